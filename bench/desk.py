# SPDX-License-Identifier: MIT
"""Helpers of the benchmarks: packages, virtual printers, and programs whose cost is measured."""

import contextlib
import os
import pathlib
import re
import signal
import struct
import subprocess
import tempfile
from dataclasses import dataclass

ROOT = pathlib.Path(__file__).resolve().parent.parent
BIN = ROOT / "build/bench/bin"
CLI = str(BIN / "vymkit-cli")
PORT = 48377  # not the default, so as not to disturb a printer that is being tried out
FIRST_ADDRESS = "127.0.77.1"
MIB = 1024 * 1024

# Keeps the user's home folder untouched; deleted when this process ends.
STATE = tempfile.TemporaryDirectory(prefix="vymkit-bench-")
os.environ["XDG_STATE_HOME"] = STATE.name


@dataclass
class Result:
    name: str
    value: float
    aim: float
    what: str  # the value's meaning
    at_least: bool = False

    def met(self):
        return self.value >= self.aim if self.at_least else self.value <= self.aim

    def line(self):
        sign = ">=" if self.at_least else "<="
        verdict = "met" if self.met() else "MISSED"
        return f"{self.name:<24}{self.value:8.3f}   {sign} {self.aim:<6g}{verdict:<8}{self.what}"


def description():
    rows = ["TGMNAME BENCH", "MODELNAME BENCH", "DRIVERNAME BENCH", f"PORTNO {PORT}",
            "ENTERTIME 5", "EXITTIME 5", "UPDATETIME 30", "PLATFORMVERSION MACOS=0",
            "VERSION MAIN=AB010200 image.bin MAIN.BIN"]
    return "".join(row + "\r\n" for row in rows).encode()


def write_package(folder, image_size, pattern=None):
    """A container with an image of that size: the pattern repeated, or a sparse file's hole."""
    info = description()
    entries = [("VYMINFO.txt", 0, len(info)), ("image.bin", len(info), image_size)]
    table = len(info) + image_size
    with open(pathlib.Path(folder) / "VYMBINDDATA", "wb") as file:
        file.write(info)
        for _ in range(image_size // len(pattern) if pattern else 0):
            file.write(pattern)
        file.seek(table)
        for name, place, size in entries:
            file.write(struct.pack("<32sII", name.encode(), place, size))
        file.write(struct.pack("<Ii8s", table, len(entries), b"VYMBIND\0"))


@contextlib.contextmanager
def package(image_size, pattern=None):
    with tempfile.TemporaryDirectory(prefix="vymkit-bench-") as folder:
        write_package(folder, image_size, pattern)
        yield folder


@contextlib.contextmanager
def printers(count=1, *options):
    """Runs that many virtual printers on consecutive addresses; yields the addresses."""
    command = [str(BIN / "vymprinter"), "--listen", f"{FIRST_ADDRESS}:{PORT}", "--count",
               str(count), "--model", "BENCH", "--firmware", "MAIN=AB010100", "--quiet", *options]
    with subprocess.Popen(command, stdout=subprocess.PIPE, text=True) as process:
        try:
            lines = [process.stdout.readline() for _ in range(count)]
            if not all(line.startswith("listening on ") for line in lines):
                raise RuntimeError("the virtual printers cannot listen")
            yield [line.split()[-1].split(":")[0] for line in lines]
        finally:
            process.send_signal(signal.SIGTERM)


def update_command(folder, address):
    return [CLI, "update", "--package", folder, "--address", address, "--yes", "--quiet"]


@dataclass
class Weight:
    code: int
    seconds: float
    peak_mib: float
    bytes_read: int


def weigh(command, environment=None):
    with tempfile.NamedTemporaryFile(prefix="vymkit-bench-") as file:
        subprocess.run([str(BIN / "bench_weigh"), file.name, *command], check=True,
                       stdout=subprocess.DEVNULL, env=os.environ | (environment or {}))
        code, seconds, peak, read = file.read().split()
    return Weight(int(code), float(seconds), int(peak) / 1024, int(read))


def weigh_update(folder, address):
    weight = weigh(update_command(folder, address))
    if weight.code != 0:
        raise RuntimeError(f"the update of {address} ended with {weight.code}")
    return weight


def instructions(function, command):
    """Callgrind's count for a function and its callees; for the whole program if function is None."""
    # Without the tunable, glibc copies with one instruction that callgrind counts once per byte.
    environment = os.environ | {
        "GLIBC_TUNABLES": "glibc.cpu.x86_rep_movsb_threshold=0x7fffffffffff"}
    chosen = ["--collect-atstart=no", f"--toggle-collect={function}"] if function else []
    done = subprocess.run(["valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null",
                           *chosen, *command], env=environment, check=True, capture_output=True,
                          text=True)
    count = int(re.search(r"Collected : (\d+)", done.stderr).group(1))
    if count == 0:
        raise RuntimeError(f"{function} was not found in {command[0]}")
    return count


def system_calls(command):
    """Counts all system calls of a process, without its children's."""
    with tempfile.NamedTemporaryFile("r", prefix="vymkit-bench-") as file:
        subprocess.run(["strace", "-c", "-o", file.name, *command], check=True,
                       stdout=subprocess.DEVNULL)
        return int(re.search(r"(\d+)(?: +\d+)? total$", file.read(), re.MULTILINE).group(1))
