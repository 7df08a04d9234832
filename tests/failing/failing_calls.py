#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes calls of whole programs fail, one after the other, and checks how the programs react.

Usage: failing_calls.py --shim LIB --bin FOLDER --cli PROGRAM [--commands a,b] [--calls a,b]
                        [--most N] [--late] [--keep-going] [--jobs N]

For every command and kind of call: counts the calls of a run without failures, then fails the n-th of
them, once and for good, for up to --most values of n (0: all). With --late they are counted from the
connection to the printer on. A run passes if it ends in time, by itself, with a documented exit code.
With --json, its last line must also be a result with that code that does not deny firmware bytes that
the printer received; "member", the process of one printer of many, also records it: one whole line
with that code, or none where nothing was sent. Without memory no printer may stay in download mode.
With a clock that jumps ("clock") a run must succeed as without.
"""
import argparse
import concurrent.futures
import json
import os
import pathlib
import shutil
import socket
import subprocess
import sys
import tempfile
import threading
import time

CALLS = ["alloc", "open", "read", "write", "poll", "connect", "send", "recv", "pread", "thread",
         "event"]
CODES = {0, 1, 2, 70, 73, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 22, 64, 66, 68, 69, 130}
LIMIT = 60  # seconds; a run takes less than two, and waits at most for the package's times
IMAGE = bytes((i * 31 + i // 7) & 0xFF for i in range(20000))
DESCRIPTION = """TGMNAME MODEL-A
MODELNAME "Model A"
DRIVERNAME A
PLATFORMVERSION MACOS=0
PORT NET
ENTERTIME 2
EXITTIME 1
UPDATETIME 2
VERSION MAIN=AB010200 MAIN.img MAIN.FW
VERSION BOOT=AB010200 BOOT.img BOOT.FW
"""


def own_network():
    """A network that no other test uses while the socket, its claim, is open."""
    for network in range(202, 208):
        claim = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        try:
            claim.bind((f"127.{network}.255.254", 48350))
            return claim, network
        except OSError:
            claim.close()
    raise RuntimeError("all networks are in use")


class Stage:
    """Makes a package, and a printer for each address."""

    def __init__(self, arguments):
        self.bin = pathlib.Path(arguments.bin)
        self.cli = arguments.cli
        self.shim = arguments.shim
        self.is_late = arguments.late
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="vymkit-failing-"))
        self.source = self.folder / "source"
        self.source.mkdir()
        self.package = self.folder / "package"
        self.package.mkdir()
        (self.source / "VYMINFO.txt").write_bytes(DESCRIPTION.replace("\n", "\r\n").encode())
        for name in ("MAIN.img", "BOOT.img"):
            (self.source / name).write_bytes(IMAGE)
        files = [str(self.source / name) for name in ("VYMINFO.txt", "MAIN.img", "BOOT.img")]
        self.files = files
        subprocess.run([self.bin / "vympack", "make", "--output", self.package / "VYMBINDDATA",
                        *files], check=True, capture_output=True)
        self.claim, self.network = own_network()
        self.number = 0
        self.lock = threading.Lock()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.claim.close()
        shutil.rmtree(self.folder, ignore_errors=True)

    def own_address(self):
        with self.lock:
            self.number += 1
            return f"127.{self.network}.{self.number >> 7 & 0xFF}.{1 + (self.number & 0x7F)}"


def command_of(stage, name, address, scratch):
    package = str(stage.package)
    container = str(stage.package / "VYMBINDDATA")
    pack = str(stage.bin / "vympack")
    return {
        "info": [stage.cli, "info", "--package", package, "--json"],
        "check": [stage.cli, "check", "--package", package, "--json", "--address", address],
        "update": [stage.cli, "update", "--package", package, "--json", "--yes", "--address",
                   address],
        "member": [stage.cli, "update", "--package", package, "--json", "--yes", "--address",
                   address],
        "doctor": [stage.cli, "doctor", "--package", package, "--json", "--address", address],
        "report": [stage.cli, "report", "--package", package, "--output", str(scratch / "report")],
        "history": [stage.cli, "history", "--json"],
        "printers": [stage.cli, "printers", "--package", package, "--json"],
        "init": [pack, "init", "--model", "Model 100", "--firmware", f"MAIN=AB010203:{stage.files[1]}",
                 "--output", str(scratch / "VYMINFO.txt")],
        "make": [pack, "make", "--output", str(scratch / "made"), *stage.files],
        "list": [pack, "list", container],
        "check-package": [pack, "check", container],
        "extract": [pack, "extract", container, "-d", str(scratch / "unpacked")],
        "simulate": [pack, "simulate", container, "--installed", "MAIN=AB010100"],
        "diff": [pack, "diff", container, container],
        "rehearse": [pack, "rehearse", "--quick", container],
        "bundle": [pack, "bundle", "--output", str(scratch / "bundle"), container],
    }[name]


class Printer:
    """A virtual printer for one run; its store has the bytes that it received."""

    def __init__(self, stage, address, store):
        self.store = store
        self.process = subprocess.Popen(
            [stage.bin / "vymprinter", "--listen", f"{address}:48350", "--store", store, "--model",
             "MODEL-A", "--firmware", "MAIN=AB010100", "--firmware", "BOOT=AB010100",
             "--max-packet", "4096", "--quiet"], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.process.stdout.readline()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.terminate()
        self.process.wait()
        self.process.stdout.close()

    def got_firmware(self):
        return any(path.name.endswith(".FW") or path.name.endswith(".part")
                   for path in self.store.rglob("*"))

    def is_left(self):
        """Whether its last request, if any, was to leave download mode. A program without memory may
        have ended before the printer takes that request up."""
        end = time.monotonic() + LIMIT
        while (last := self.last_request()) not in (None, "0x5102"):
            if time.monotonic() > end:
                return False
            time.sleep(0.05)
        return True

    def last_request(self):
        requests = [line.split("\t")[2] for path in self.store.rglob("transcript.txt")
                    for line in path.read_text().splitlines() if "\tin\t" in line]
        return requests[-1] if requests else None


def run(stage, name, call, at, always):
    """Returns (the problem or None, number of calls); at 0: a run without failures."""
    address = stage.own_address()
    with tempfile.TemporaryDirectory(dir=stage.folder) as text:
        scratch = pathlib.Path(text)
        count = scratch / "count"
        environment = dict(os.environ, LD_PRELOAD=stage.shim, FAILING_CALL=call, FAILING_AT=str(at),
                           FAILING_COUNT=str(count), XDG_STATE_HOME=str(scratch / "state"),
                           DBUS_SYSTEM_BUS_ADDRESS="unix:path=/nonexistent",
                           CUPS_SERVER="/nonexistent")
        if always:
            environment["FAILING_ALWAYS"] = "1"
        if stage.is_late:
            environment["FAILING_LATE"] = "1"
        results = scratch / "results"
        if name == "member":
            environment["VYMKIT_FLEET_MEMBER"] = json.dumps(
                {"printer": "hall", "results": str(results)})
        command = command_of(stage, name, address, scratch)
        store = scratch / "store"
        store.mkdir()
        with Printer(stage, address, store) as printer:
            try:
                done = subprocess.run(command, env=environment, stdin=subprocess.DEVNULL,
                                      capture_output=True, timeout=LIMIT, check=False)
            except subprocess.TimeoutExpired:
                return f"still runs after {LIMIT} s", 0
            fault = fault_of(done, "--json" in command, printer, call)
            if name == "member" and not fault:
                fault = fault_of_record(done, results, printer, at == 0)
            if (at == 0 or call == "clock") and done.returncode not in (0, 69):  # 69: there is no print server here
                fault = f"ends with {done.returncode}: {done.stderr.decode()}"
        calls = int(count.read_text()) if count.exists() else 0
        return fault, calls


def fault_of(done, has_json, printer, call):
    errors = done.stderr.decode(errors="replace").strip().splitlines()
    if done.returncode < 0:
        return f"ends with signal {-done.returncode}: {errors[-1] if errors else ''}"
    if done.returncode not in CODES:
        return f"ends with {done.returncode}, which is not documented"
    if call == "alloc" and not printer.is_left():
        return "the printer stays in download mode"
    if not has_json or done.returncode == 64:
        return None
    lines = done.stdout.decode(errors="replace").strip().splitlines()
    if not lines:
        # A result line that cannot be written is reported in words, if at all.
        return None if call == "write" else "no result line"
    try:
        result = json.loads(lines[-1])
    except ValueError:
        return None if call == "write" else f"the last line is not JSON: {lines[-1][:80]}"
    if call == "write" and result.get("type") != "result":
        return None
    if result.get("exit_code") != done.returncode:
        return f"the last line is no result of code {done.returncode}: {lines[-1][:120]}"
    if result.get("firmware_bytes_sent") is False and printer.got_firmware():
        return "firmware_bytes_sent is false, but the printer got firmware"
    return None


def fault_of_record(done, results, printer, is_sound):
    text = results.read_text() if results.exists() else ""
    if not text and not is_sound and not printer.got_firmware():
        return None  # a later call begins with this printer
    try:
        lines = [json.loads(line) for line in text.splitlines()]
    except ValueError:
        return f"a record is no JSON: {text[:120]}"
    if len(lines) != 1 or not text.endswith("\n"):
        return f"{len(lines)} records instead of one: {text[:120]}"
    if (lines[0]["printer"], lines[0]["exit_code"]) != ("hall", done.returncode):
        return f"the record is another one than code {done.returncode}: {text[:120]}"
    return None


def sample(count, most):
    if most == 0 or count <= most:
        return list(range(1, count + 1))
    # Each of the first calls, and the rest evenly.
    front = most // 4
    step = (count - front) / (most - front)
    return sorted({*range(1, front + 1), *(front + 1 + int(i * step) for i in range(most - front))})


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--shim", required=True)
    parser.add_argument("--bin", required=True)
    parser.add_argument("--cli", required=True)
    parser.add_argument("--commands", default="info,check,update,member")
    parser.add_argument("--calls", default=",".join(CALLS))
    parser.add_argument("--most", type=int, default=4)
    parser.add_argument("--late", action="store_true")
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("--keep-going", action="store_true")
    arguments = parser.parse_args()
    faults = runs = 0
    with Stage(arguments) as stage, \
            concurrent.futures.ThreadPoolExecutor(arguments.jobs) as pool:
        for name in arguments.commands.split(","):
            for call in arguments.calls.split(","):
                fault, count = run(stage, name, call, 0, False)
                if fault:
                    print(f"{name}: a sound run: {fault}")
                    return 1
                if call == "clock":  # all calls of a run at once
                    count = min(count, 1)
                cases = [(n, always) for n in sample(count, arguments.most)
                         for always in (False, True)]
                found = pool.map(lambda case: run(stage, name, call, *case)[0], cases)
                bad = [(case, fault) for case, fault in zip(cases, found) if fault]
                runs += len(cases)
                faults += len(bad)
                for (n, always), fault in bad[:None if arguments.keep_going else 3]:
                    print(f"{name}: {call} {n} of {count}{' and later' if always else ''}: {fault}",
                          flush=True)
    print(f"{runs} runs, {faults} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
