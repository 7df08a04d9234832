#!/usr/bin/env python3
"""Checks that finished programs are hardened, as in every optimised build.

Usage: hardening.py PROGRAM...   (needs readelf, which comes with the compiler)
"""
import subprocess
import sys


def readelf(option, program):
    return subprocess.run(["readelf", "--wide", option, program], capture_output=True, text=True,
                          check=True).stdout


def faults_of(program):
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
    return [what for what, held in wanted.items() if not held]


def main():
    faults = [(program, fault) for program in sys.argv[1:] for fault in faults_of(program)]
    for program, fault in faults:
        print(f"{program}: not hardened: {fault}")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
