# SPDX-License-Identifier: MIT
"""Benchmarks of one call for many printers: its time, and the memory of a printer that runs."""

import json
import pathlib
import subprocess
import tempfile
import threading
import time

from desk import CLI, MIB, Result, package, printers, weigh_update

PRINTERS = 1000
AT_ONCE = 100
IMAGE = MIB // 4
SAMPLE = 30  # seconds after the start: the first hundred are at work


def fleet_command(folder, addresses):
    listed = pathlib.Path(folder) / "list"
    listed.write_text("".join(address + "\n" for address in addresses))
    return [CLI, "update", "--package", folder, "--from", str(listed), "--yes", "--json",
            "--jobs", str(AT_ONCE)]


def children(pid):
    return pathlib.Path(f"/proc/{pid}/task/{pid}/children").read_text().split()


def proportional_mib(pid):
    """The process's share of all memory that it maps; 0 if it has just ended."""
    try:
        lines = pathlib.Path(f"/proc/{pid}/smaps_rollup").read_text().splitlines()
    except OSError:
        return 0
    return next((int(line.split()[1]) / 1024 for line in lines if line.startswith("Pss:")), 0)


def sample(pid, found):
    time.sleep(SAMPLE)
    found += [mib for child in children(pid) if (mib := proportional_mib(child))]


def check(lines, store, addresses, image):
    summary = json.loads(lines[-2])
    if sorted(summary["updated"]) != sorted(addresses):
        raise RuntimeError(f"not all were updated: {lines[-1]}")
    for address in addresses:
        if (pathlib.Path(store) / address / "MAIN.BIN").read_bytes() != image:
            raise RuntimeError(f"{address} has received other bytes")


def fleet():
    image = bytes(range(256)) * (IMAGE // 256)
    with package(IMAGE, image) as folder, tempfile.TemporaryDirectory() as store, printers(
            PRINTERS, "--store", store) as addresses:
        alone = weigh_update(folder, addresses[0]).seconds  # pauses and the printer's time
        weights = []
        start = time.monotonic()
        with subprocess.Popen(fleet_command(folder, addresses), stdout=subprocess.PIPE,
                              text=True) as call:
            watch = threading.Thread(target=sample, args=(call.pid, weights))
            watch.start()
            lines = [line for line in call.stdout if '"type":"status"' not in line]
            call.wait()
            watch.join()
        taken = time.monotonic() - start
        check(lines, store, addresses, image)
    ideal = alone * PRINTERS / AT_ONCE
    yield Result("fleet time", taken / ideal, 1.10,
                 f"of {PRINTERS // AT_ONCE} updates one after the other ({ideal:.0f} s)")
    yield Result("fleet memory", sum(weights) / max(len(weights), 1), 2,
                 f"MiB for each of {len(weights)} running printers, proportional")
