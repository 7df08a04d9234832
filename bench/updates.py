# SPDX-License-Identifier: MIT
"""Benchmarks of whole updates: vymkit-cli, with all its pauses, against vymprinter."""

import concurrent.futures
import statistics

from desk import MIB, Result, package, printers, weigh_update

PAUSES = 2 + 2 + 2 + 2  # seconds: before entering, before the check, before the data, at the end
# A printer writes for minutes; one minute shows well enough what the updater adds. Not a multiple
# of the half second between two status queries, so that noise does not decide the result.
WRITING = 60.3
WRITTEN = 8 * MIB
AT_ONCE = 3  # updates that mostly wait do not disturb each other


def whole_update():
    with package(WRITTEN) as folder, printers(
            AT_ONCE, "--write-rate", str(round(WRITTEN / WRITING))) as addresses:
        with concurrent.futures.ThreadPoolExecutor(AT_ONCE) as pool:
            weights = list(pool.map(lambda address: weigh_update(folder, address), addresses))
    taken = statistics.median(weight.seconds for weight in weights)
    yield Result("update time", taken / (PAUSES + WRITING), 1.02,
                 f"of the pauses ({PAUSES} s) and the printer's writing ({WRITING} s)")


def memory():
    weights = {}
    for size in (MIB, 1024 * MIB):
        with package(size) as folder, printers(1) as (address,):
            weights[size] = weigh_update(folder, address)
    small, large = (weights[size].peak_mib for size in sorted(weights))
    yield Result("memory growth", large - small, 1, "MiB, from an image of 1 MiB to one of 1 GiB")
    yield Result("memory peak", max(small, large), 16, "MiB, with an image of 1 GiB or of 1 MiB")
    read = max(weight.bytes_read / size for size, weight in weights.items())
    yield Result("bytes read", read, 1.05, "per byte delivered, all files of the process counted")
