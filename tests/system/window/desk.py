# SPDX-License-Identifier: MIT
"""A desk for each test: an X server, a session bus and folders of its own.

Programs that are started here see nothing of the user's own desk, and none of them outlives this
desk: this process adopts orphaned grandchildren and ends them, too.
"""

import contextlib
import ctypes
import os
import pathlib
import select
import shutil
import signal
import subprocess
import tempfile
import time

LIMIT = 90.0  # seconds; far more than any answer takes on a busy machine
# Seconds between two checks of a condition, at first and later. No state that a test looks for passes
# in less than some seconds.
LOOK_SOON, LOOK_LATE = 0.02, 0.4
GRACE = 3.0  # seconds for a program to end by itself
PR_SET_PDEATHSIG, PR_SET_CHILD_SUBREAPER = 1, 36  # from <linux/prctl.h>

PASSED_ON = ("PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS", "TSAN_OPTIONS")
prctl = ctypes.CDLL(None).prctl


def until(question, what, limit=LIMIT, late=LOOK_LATE):
    """The first true result of the question; raises TimeoutError if there is none in time."""
    deadline, pause = time.monotonic() + limit, LOOK_SOON
    while True:
        asked = time.monotonic()
        if answer := question():
            return answer
        now = time.monotonic()
        if now > deadline:
            raise TimeoutError(f"waited {limit:.0f} s in vain: {what}")
        # On a busy machine, looks do not take more than half of the time from the programs' work.
        time.sleep(max(pause, now - asked))
        pause = min(pause * 1.5, late)


def end_with_parent():
    prctl(PR_SET_PDEATHSIG, signal.SIGKILL)


def children():
    """This process's children; reaps those that have ended."""
    found = []
    for name in os.listdir("/proc"):
        with contextlib.suppress(OSError):
            if name.isdigit():
                state, parent = pathlib.Path(f"/proc/{name}/stat").read_text().rsplit(
                    ")", 1)[1].split()[:2]
                if int(parent) == os.getpid() and state == "Z":
                    os.waitpid(int(name), os.WNOHANG)
                elif int(parent) == os.getpid():
                    found.append(int(name))
    return found


class Desk:
    """One X server; programs on different screens do not overlap."""

    def __init__(self, width=1280, height=1024, screens=1):
        prctl(PR_SET_CHILD_SUBREAPER, 1)
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="vymkit-desk-"))
        self.frames = self.folder / "frames"  # what is on the screens, in the format of xwd
        self.frames.mkdir()
        self.size = width, height
        self.screens = [f"{width}x{height}x24"] * screens
        self.processes = []
        try:
            self.environment = self._folders()
            self.environment["DISPLAY"] = self._x_server()
            self.environment["DBUS_SESSION_BUS_ADDRESS"] = self._session_bus()
        except BaseException:
            self.close()
            raise

    def _folders(self):
        environment = {name: os.environ[name] for name in PASSED_ON if name in os.environ}
        for name in ("HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME",
                     "XDG_DATA_HOME", "XDG_RUNTIME_DIR"):
            place = self.folder / name.lower()
            place.mkdir(mode=0o700)
            environment[name] = str(place)
        # Names a print system and a login manager that do not exist, to keep the machine's own out.
        environment["CUPS_SERVER"] = str(self.folder / "no-cups.sock")
        environment["DBUS_SYSTEM_BUS_ADDRESS"] = f"unix:path={self.folder}/no-system-bus"
        environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        return environment

    def _x_server(self):
        command = ["Xvfb", "-displayfd", "{fd}", "-dpi", "96", "-nolisten", "tcp", "-noreset",
                   "-nocursor", "-fbdir", str(self.frames)]
        for number, screen in enumerate(self.screens):
            command += ["-screen", str(number), screen]
        number = self._first_line(command)
        self.x_server = self.processes[-1]
        return ":" + number

    def _session_bus(self):
        return self._first_line(["dbus-daemon", "--session", "--nofork", "--nopidfile",
                                 "--print-address={fd}"])

    def _first_line(self, command):
        """Starts a program that reports on a descriptor that it is ready; returns its report."""
        reading, writing = os.pipe()
        self.start([part.format(fd=writing) for part in command], pass_fds=[writing])
        os.close(writing)
        with open(reading, encoding="utf-8") as pipe:
            if not select.select([pipe], [], [], LIMIT)[0]:
                raise TimeoutError(f"{command[0]} does not get ready")
            if not (line := pipe.readline().strip()):
                raise RuntimeError(f"{command[0]} ended: {self.errors_of(self.processes[-1])}")
        return line

    def start(self, command, environment=None, **how):
        """Starts a program on this desk; keeps its standard error in a file, see errors_of."""
        errors = self.folder / f"{len(self.processes)}-{pathlib.Path(command[0]).name}.errors"
        with open(errors, "wb") as file:
            process = subprocess.Popen(command, env={**self.environment, **(environment or {})},
                                       stdin=subprocess.DEVNULL, stderr=file,
                                       stdout=how.pop("stdout", subprocess.DEVNULL),
                                       preexec_fn=end_with_parent, **how)
        process.errors = errors
        self.processes.append(process)
        return process

    @staticmethod
    def errors_of(process):
        return process.errors.read_text(encoding="utf-8", errors="replace")

    def run(self, *command, environment=None):
        """Runs a short program to its end; returns its output."""
        return subprocess.run(command, env={**self.environment, **(environment or {})}, check=True,
                              timeout=LIMIT, capture_output=True, text=True).stdout

    def close(self):
        for process in reversed(self.processes):
            process.terminate()
            with contextlib.suppress(subprocess.TimeoutExpired):
                process.wait(GRACE)
        with contextlib.suppress(TimeoutError):
            until(lambda: not children(), "the bus's services end", GRACE)
        while left := children():
            for pid in left:
                os.kill(pid, signal.SIGKILL)
        shutil.rmtree(self.folder, ignore_errors=True)
