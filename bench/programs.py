# SPDX-License-Identifier: MIT
"""Benchmarks of single programs: the data path, the start, the getters."""

import os
import subprocess

from desk import BIN, CLI, MIB, Result, instructions, package, system_calls

IMAGE_MIB = 64
PAIRS = 31
PIECE = 65536 - 60  # MAXPACKET minus the head of a file packet
QUEUES = 500
DATA_PATH = str(BIN / "bench_data_path")


def data_path():
    with package(IMAGE_MIB * MIB, os.urandom(MIB)) as folder:
        run = [DATA_PATH, folder]
        done = subprocess.run([*run, "pairs", str(PAIRS)], check=True, capture_output=True,
                              text=True)
        yield Result("data-path speed", float(done.stdout), 0.95,
                     "of the bare loop's speed", at_least=True)
        engine = instructions("vymProtocol::UpdateFirmware*", [*run, "engine"])
        bare = instructions("BareLoop::run*", [*run, "bare"])
        yield Result("data-path instructions", engine / bare, 1.5,
                     f"of the bare loop's ({bare / IMAGE_MIB:.0f} per MiB)")
        pieces = IMAGE_MIB * MIB / PIECE
        yield Result("data-path system calls", system_calls([*run, "engine"]) / pieces, 6,
                     "per piece, those of the whole process counted")


def libraries(program):
    done = subprocess.run(["ldd", program], check=True, capture_output=True, text=True)
    return {line.split()[0] for line in done.stdout.splitlines()}


def start():
    empty = str(BIN / "bench_empty")
    if libraries(empty) != libraries(CLI):
        raise RuntimeError("the empty program has other libraries than vymkit-cli")
    ratio = instructions(None, [CLI, "--version"]) / instructions(None, [empty])
    yield Result("start", ratio, 2, "of an empty program's instructions, same libraries")


def getters():
    program = [str(BIN / "bench_getters")]
    questions = int(subprocess.run(program, check=True, capture_output=True, text=True).stdout)
    asked = instructions("*askEverything*", program) / questions
    walk = instructions("*walkRowEnds*", program)
    yield Result("getters", asked / walk, 3,
                 f"of one memchr pass over the rows ({walk} instructions), per question")


def printers():
    program = [str(BIN / "bench_printers"), str(QUEUES), str(PAIRS)]
    done = subprocess.run(program, check=True, capture_output=True, text=True)
    yield Result("printers", float(done.stdout), 1.2,
                 f"of the time in which libcups hands over {QUEUES} queues")
