# SPDX-License-Identifier: MIT
"""Runs the benchmarks and prints a line for each; ./bench/run calls it."""

import argparse
import os
import pathlib
import platform
import re
import subprocess
import sys

import fleet
import programs
import updates
import usb
import window

BENCHMARKS = {
    "data-path": programs.data_path,
    "start": programs.start,
    "getters": programs.getters,
    "printers": programs.printers,
    "window": window.window,
    "usb": usb.bulk,
    "memory": updates.memory,
    "fleet": fleet.fleet,
    "update": updates.whole_update,
}


def machine():
    cpu = re.search(r"model name\s*: (.*)", pathlib.Path("/proc/cpuinfo").read_text())
    compiler = subprocess.run(["c++", "--version"], check=True, capture_output=True, text=True)
    cores = len(os.sched_getaffinity(0))
    name = cpu.group(1) if cpu else platform.machine()
    load = os.getloadavg()[0]
    return (f"{cores} cores, {name}, Linux {platform.release()}, "
            f"{compiler.stdout.splitlines()[0]}; load {load:.1f} at the start")


def main():
    parser = argparse.ArgumentParser(prog="bench/run", description=__doc__)
    parser.add_argument("names", nargs="*", metavar="NAME",
                        help=f"some of {', '.join(BENCHMARKS)}; all without one")
    chosen = parser.parse_args().names or list(BENCHMARKS)
    if unknown := set(chosen) - set(BENCHMARKS):
        parser.error(f"no benchmark is called {', '.join(sorted(unknown))}")
    print(machine(), flush=True)
    missed = 0
    for name in chosen:
        for result in BENCHMARKS[name]():
            print(result.line(), flush=True)
            missed += not result.met()
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
