#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks that finished programs are hardened, as in every optimised build.

Usage: hardening.py [--release] PROGRAM...   (needs readelf and objdump, which come with the compiler)

With --release also for what only the builds for users have: landing marks for indirect jumps, and
large stack frames that are touched page by page.
"""
import pathlib
import platform
import re
import subprocess
import sys

ENDBR64 = bytes.fromhex("f30f1efa")
PAGE = 4096


def readelf(option, program):
    return subprocess.run(["readelf", "--wide", option, program], capture_output=True, text=True,
                          check=True).stdout


def largest_step(program):
    """The most by which a function moves the stack pointer at once."""
    listing = subprocess.run(["objdump", "--disassemble", "--no-show-raw-insn", program],
                             capture_output=True, text=True, check=True).stdout
    steps = re.findall(r"sub +\$0x([0-9a-f]{4,8}),%rsp", listing)
    return max((int(step, 16) for step in steps), default=0)


def faults_of(program, release):
    header, dynamic = readelf("--file-header", program), readelf("--dynamic", program)
    segments, symbols = readelf("--segments", program), readelf("--dyn-syms", program)
    stack = next(line for line in segments.splitlines() if "GNU_STACK" in line)
    wanted = {
        "position independent": "DYN" in header and "PIE" in dynamic,
        "relocations read-only": "GNU_RELRO" in segments,
        "all symbols bound at the start": "BIND_NOW" in dynamic or "NOW" in dynamic,
        "no executable stack": " E " not in stack and "RWE" not in stack,
        "stack protector": "__stack_chk_fail" in symbols,
        "fortified copies": "_chk@" in symbols.replace("__stack_chk_fail@", ""),
        "checked containers": "__glibcxx_assert_fail" in symbols,
    }
    if release and platform.machine() == "x86_64":
        code = pathlib.Path(program).read_bytes()
        wanted["landing marks for indirect jumps"] = code.count(ENDBR64) > 100
        wanted["large stack frames touched page by page"] = largest_step(program) <= PAGE
    return [what for what, held in wanted.items() if not held]


def main():
    programs = [argument for argument in sys.argv[1:] if argument != "--release"]
    release = "--release" in sys.argv
    faults = [(program, fault) for program in programs for fault in faults_of(program, release)]
    for program, fault in faults:
        print(f"{program}: not hardened: {fault}")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
