# SPDX-License-Identifier: MIT
"""The benchmark on a USB bus, in the tests' virtual machine."""

import subprocess
import sys

from desk import BIN, ROOT, Result

VM = ROOT / "tests/system/usb/vm/vm.py"
PAIRS = 9
PRINTER = [BIN / "vymprinter", "--usb", "any", "--usb-take", "16384", "--model", "BENCH",
           "--firmware", "MAIN=AB010100", "--quiet"]


def bulk():
    guest = " ".join(str(word) for word in [*PRINTER, "& sleep 2;", BIN / "bench_usb", PAIRS])
    done = subprocess.run([sys.executable, VM, "--icount", "--program", PRINTER[0], "--program",
                           BIN / "bench_usb", "--", "sh", "-c", guest],
                          check=True, stdout=subprocess.PIPE, text=True)
    ratio, speed = done.stdout.split()[-2:]
    yield Result("usb bulk speed", float(ratio), 0.95,
                 f"of a bare libusb loop's speed ({speed} MB/s by the machine's own clock)",
                 at_least=True)
