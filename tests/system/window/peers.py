# SPDX-License-Identifier: MIT
"""The wizard's peers: packages from the real package maker, virtual printers, queues."""

import contextlib
import os
import select
import signal
import socket
import struct
import subprocess
import threading
from dataclasses import dataclass

from desk import LIMIT
from wizard import BIN

QUEUES = str(BIN.parent / "tests/private_queues")
ENDLESS_WAITS = str(BIN.parent / "tests/endless_waits.so")
PORT = 48350
BLOCK = 16  # addresses of one process, out of 2^17 blocks
MODEL = "Vymprint 200"
# The times are long: no printer here is silent, but some are held or wait for the processor.
ROWS = (f'TGMNAME "{MODEL}"', f'MODELNAME "{MODEL}"', "DRIVERNAME Vymprint", "ENTERTIME 60",
        "EXITTIME 60", "UPDATETIME 60")
SLOW = ("--write-rate", 4000)  # writes long enough for every text to appear
SLOWER = ("--write-rate", 2000)  # and for a large picture of it
EVERY_SYSTEM = "PLATFORMVERSION MACOS=0"


@dataclass
class Firmware:
    name: str = "MAIN"
    version: str = "AB010200"
    size: int = 20000
    shown: str = "Main controller"
    more: str = ""  # further tokens of its row

    def bytes(self):
        pattern = bytes((i * 7 + i // 251 + len(self.name)) % 256 for i in range(4099))
        return (pattern * (self.size // len(pattern) + 1))[:self.size]

    def row(self):
        return (f'VERSION {self.name}={self.version} {self.name}.img {self.name}.FW '
                f'DISPFIRM="{self.shown}" DISPVER={self.version}{self.more}')


class Nameless(Firmware):
    """Firmware without name and version in the package."""

    def row(self):
        return f"VERSION {self.name}.img {self.name}.FW"


BOTH = (Firmware(), Firmware("BOOT", "AB010300", 9001, "Boot loader"))


class Package:
    """A folder with a package of that firmware, made by the package maker; the rows come first."""

    def __init__(self, desk, firmware=BOTH, rows=(EVERY_SYSTEM,), name="package"):
        self.folder = desk.folder / name
        self.folder.mkdir()
        self.firmware = firmware
        lines = [*rows, *ROWS, *(one.row() for one in firmware)]
        self.file = self.folder / "VYMBINDDATA"
        self.make(desk, {"VYMINFO.txt": "".join(line + "\r\n" for line in lines).encode(),
                         **{f"{one.name}.img": one.bytes() for one in firmware}})

    def make(self, desk, files):
        for name, content in files.items():
            (self.folder / name).write_bytes(content)
        desk.run(str(BIN / "vympack"), "make", "--force", "-o", str(self.file),
                 *(str(self.folder / name) for name in files))


class UncheckedPackage(Package):
    """A package that the package maker refuses to make."""

    def make(self, desk, files):
        table, place = b"", 0
        for name, content in files.items():
            table += struct.pack("<32sII", name.encode(), place, len(content))
            place += len(content)
        self.file.write_bytes(b"".join(files.values()) + table
                              + struct.pack("<Ii8s", place, len(files), b"VYMBIND\0"))


def own_address(number):
    """The number-th address of this process, from 0; 127.80 to 127.111 are no other tests'."""
    assert number < BLOCK - 1
    pid = os.getpid()
    return f"127.{80 + (pid >> 12 & 31)}.{pid >> 4 & 255}.{(pid & 15) * BLOCK + number + 1}"


class Printer:
    """A virtual printer with older firmware, unless the options say otherwise."""

    def __init__(self, desk, *options, installed=("MAIN=AB010100", "BOOT=AB010100"), number=0):
        self.address = own_address(number)
        self.store = desk.folder / "received"
        command = [str(BIN / "vymprinter"), "--listen", f"{self.address}:{PORT}", "--store",
                   str(self.store), "--max-packet", "4096", *map(str, options)]
        if "--model" not in options:
            command += ["--model", MODEL]
        for one in installed:
            command += ["--firmware", one]
        self.process = desk.start(command, stdout=subprocess.PIPE, text=True)
        if not select.select([self.process.stdout], [], [], LIMIT)[0] or \
                not self.process.stdout.readline().startswith("listening on"):
            raise RuntimeError(f"no printer: {desk.errors_of(self.process)}")

    def stored(self, firmware):
        """The bytes kept under that firmware's name; None if it received none."""
        place = self.store / self.address / f"{firmware.name}.FW"
        return place.read_bytes() if place.exists() else None

    @contextlib.contextmanager
    def held(self):
        """While it does nothing the wizard waits for its answer, so that what is on the screen stays
        there however long a look at it takes."""
        self.process.send_signal(signal.SIGSTOP)
        try:
            yield
        finally:
            self.process.send_signal(signal.SIGCONT)

    def vanish(self):
        self.process.kill()
        self.process.wait()


class PrintSystem:
    """A print scheduler of this test's own, with queues as (identifier, address, model)."""

    def __init__(self, desk, *queues):
        words = [word for queue in queues for word in queue]
        self.process = desk.start([QUEUES, *words], stdout=subprocess.PIPE, text=True)
        if not select.select([self.process.stdout], [], [], LIMIT)[0] or \
                not (server := self.process.stdout.readline().strip()):
            raise RuntimeError(f"no print system: {desk.errors_of(self.process)}")
        self.environment = {"CUPS_SERVER": server}


class EndlessPrintSystem:
    """A print system whose answer never ends, so that the search for printers goes on until the
    wizard ends. Each of its bytes comes long before the wizard would stop waiting for one."""

    PAUSE = 0.1  # seconds between two bytes

    def __init__(self, desk):
        place = str(desk.folder / "endless.sock")
        self._listener = socket.socket(socket.AF_UNIX)
        self._listener.bind(place)
        self._listener.listen()
        self._asked, self._closed = threading.Event(), threading.Event()
        self._thread = threading.Thread(target=self._answer)
        self._thread.start()
        self.environment = {"CUPS_SERVER": place, "LD_PRELOAD": ENDLESS_WAITS}

    def _answer(self):
        with contextlib.suppress(OSError):  # the wizard has ended
            peer, _ = self._listener.accept()
            with peer:
                peer.recv(1)
                self._asked.set()
                peer.sendall(b"HTTP/1.1 200 OK\r\nWait: ")
                while not self._closed.wait(self.PAUSE):
                    peer.sendall(b".")

    def wait_until_asked(self):
        if not self._asked.wait(LIMIT):
            raise TimeoutError("the wizard does not ask this print system")

    @property
    def answers(self):
        """Whether the connection still stands."""
        return self._thread.is_alive()

    def close(self):
        self._closed.set()
        self._listener.shutdown(socket.SHUT_RDWR)  # wakes a thread that still waits for the wizard
        self._listener.close()
        self._thread.join()
