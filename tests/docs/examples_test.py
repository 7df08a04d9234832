#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs every example of README, guides and manual pages, and compares what it prints.

examples_test.py BUILD_FOLDER [PLACE], the beginning of a page or of "PAGE:LINE"

Each block runs in a folder of its own with the demo package, against a virtual printer and a print
system of its own. The addresses and folders of the pages stand for others here: 192.0.2.7 is the
virtual printer's, /media/stick is the folder with the package. Pauses are shortened.
In the output that a page shows, "..." stands for anything, a line of it for any lines.
"""
import contextlib
import os
import pathlib
import pty
import re
import select
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
import pages  # noqa: E402

BUILD = pathlib.Path(sys.argv[1]).resolve()
PLACE = "".join(sys.argv[2:])
LIMIT = 60  # seconds; an update on the shortened clock takes three
# The first of 64 addresses that no other test process uses at the same time: an example has 50
# printers, on consecutive addresses. 127.112 to 127.127 are no other tests'.
NUMBER = os.getpid() % 16384 * 64 + 2
ADDRESS = f"127.{112 + (NUMBER >> 16)}.{NUMBER >> 8 & 255}.{NUMBER & 255}"
INSTALLED = "MAIN=VP010200 ENGINE=VE010106"
WRAPPED = 98  # a shown line of that length goes on in the next one
WRAPPER = """#!/bin/bash
words=("$@")
words=("${words[@]//192.0.2.7/%(address)s}")
words=("${words[@]//127.0.0.1/%(address)s}")
words=("${words[@]//\\/media\\/stick/%(stick)s}")
words=("${words[@]//\\/tmp\\/received/%(home)s/received}")
if [[ %(program)s == */vymprinter && " ${words[*]} " != *" --listen "* &&
      " ${words[*]} " != *"--fault list"* ]]; then
  words+=(--listen %(address)s)
fi
exec %(program)s "${words[@]}"
"""


class Desk:
    """A home, a stick with the package, and programs that know both."""

    def __init__(self, queues):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="vymkit-docs-"))
        self.stick, self.home, self.bin = (self.folder / name for name in ("stick", "home", "bin"))
        for folder in (self.stick, self.home, self.bin, self.folder / "program"):
            folder.mkdir()
        package = BUILD / "bin/VYMBINDDATA"
        (self.home / "stick").symlink_to(self.stick)
        shutil.copy(package, self.stick)
        shutil.copy(package, self.folder / "program")
        shutil.copy(BUILD / "tests/vymkit-cli-fast", self.folder / "program/vymkit-cli")
        subprocess.run([BUILD / "bin/vympack", "extract", package, "-d", self.folder / "files"],
                       check=True, capture_output=True)
        for file in (self.folder / "files").iterdir():
            shutil.copy(file, self.home)
        shutil.copy(package, self.home)
        self.wrap("vymkit-cli", self.folder / "program/vymkit-cli")
        self.wrap("vymprinter", BUILD / "bin/vymprinter")
        for name in ("vympack", "vymkit"):
            if (BUILD / "bin" / name).exists():
                self.wrap(name, BUILD / "bin" / name)
        self.environment = {
            **os.environ, "HOME": str(self.home), "LC_ALL": "C.UTF-8", "TERM": "xterm",
            "PATH": f"{self.bin}:{os.environ['PATH']}", "QT_QPA_PLATFORM": "offscreen",
            "CUPS_SERVER": queues or str(self.folder / "none.sock"),
            "DBUS_SYSTEM_BUS_ADDRESS": f"unix:path={self.folder}/no-bus"}
        self.environment.pop("XDG_STATE_HOME", None)
        self.environment["XDG_RUNTIME_DIR"] = str(self.folder)
        self.background = []

    def wrap(self, name, program):
        script = self.bin / name
        script.write_text(WRAPPER % {"address": ADDRESS, "stick": self.stick, "home": self.home,
                                     "program": program})
        script.chmod(0o755)
        (self.home / name).symlink_to(script)  # for "./NAME"

    def start_printer(self, installed):
        words = [word for one in installed.split() for word in ("--firmware", one)]
        printer = subprocess.Popen(
            [BUILD / "bin/vymprinter", "--listen", f"{ADDRESS}:48350", "--model", "Vymprint 200",
             "--quiet", "--write-rate", "200000", *words], stdout=subprocess.PIPE, text=True)
        self.background.append(printer)
        if not printer.stdout.readline().startswith("listening on"):
            raise RuntimeError("no virtual printer")

    def close(self):
        for program in self.background:
            program.kill()
            program.communicate()
        shutil.rmtree(self.folder)

    def shown(self, text):
        """The output as the pages have it."""
        text = re.sub(r"\x1b\[[0-9;?]*[A-Za-z]", "", text).replace("\r", "\n")
        for own, page in ((ADDRESS, "192.0.2.7"), (str(self.stick), "/media/stick")):
            text = text.replace(own, page)
        return text

    def run(self, command):
        """Exit code, output and errors of a command without a terminal."""
        done = subprocess.run(["bash", "-o", "pipefail", "-c", command], cwd=self.home,
                              env=self.environment, stdin=subprocess.DEVNULL, text=True,
                              capture_output=True, timeout=LIMIT, check=False)
        return done.returncode, self.shown(done.stdout), self.shown(done.stderr)

    def run_at_terminal(self, command):
        """The same for a person who says yes."""
        child, terminal = pty.fork()
        if child == 0:
            os.chdir(self.home)
            os.environ.clear()
            os.environ.update(self.environment, COLUMNS="100")
            os.execvp("bash", ["bash", "-c", f"stty cols 100; {command}"])
        output, end = b"", time.monotonic() + LIMIT
        answered = False
        while select.select([terminal], [], [], max(0, end - time.monotonic()))[0]:
            try:
                part = os.read(terminal, 65536)
            except OSError:  # the other end is closed
                break
            if not part:
                break
            output += part
            if b"[y/N]" in output and not answered:
                answered = True
                os.write(terminal, b"y\n")
        _, status = os.waitpid(child, 0)
        os.close(terminal)
        return os.waitstatus_to_exitcode(status), self.shown(output.decode())

    def start(self, command):
        """A printer in the background."""
        program = subprocess.Popen(["bash", "-c", f"exec {command.removesuffix('&')}"],
                                   cwd=self.home, text=True, env=self.environment,
                                   stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                   stderr=subprocess.DEVNULL)
        self.background.append(program)
        return 0, self.shown(program.stdout.readline()), ""

    def start_and_end(self, command):
        """A program that runs until it is ended: whether it starts. Returns as run does."""
        with subprocess.Popen(["bash", "-c", f"exec {command}"], cwd=self.home, text=True,
                              env=self.environment, stdin=subprocess.DEVNULL, bufsize=1,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT) as program:
            is_printer = command.removeprefix("./").startswith("vymprinter")
            first = program.stdout.readline() if is_printer else ""
            if not is_printer:  # the wizard says something only if it cannot start
                select.select([program.stdout], [], [], 1)
            program.send_signal(signal.SIGTERM)
            rest, _ = program.communicate(timeout=LIMIT)
        # The toolkit without a screen.
        rest = "".join(line for line in rest.splitlines(True)
                       if not line.startswith("This plugin does not support"))
        started = first.startswith("listening on") or (not is_printer and not rest)
        return (0 if started else 1), first, rest


def runs_until_ended(command):
    name = command.removeprefix("./").split()[0]
    return name == "vymkit" or (name == "vymprinter" and "--fault list" not in command
                                and not command.endswith("&"))


def needs_terminal(command):
    return "vymkit-cli update" in command and "--yes" not in command


def goes_on(line):
    """In the next one; a progress bar fills its line and does not."""
    return len(line) >= WRAPPED and "[#" not in line


def expected(shown):
    """A pattern of what the page shows."""
    shown = shown.replace("127.0.0.1", "192.0.2.7")  # the virtual printer's as well
    # Columns are as wide as the address, which is another one here.
    return "".join(r"(?:.*\n)*?" if line == "..." else
                   re.sub(r"(\\ ){2,}", " +", re.escape(line).replace(r"\.\.\.", ".*"))
                   + (r"\s+" if goes_on(line) else r" *\n")
                   for line in shown.rstrip().splitlines())


def unwrapped(lines):
    """Whole paragraphs."""
    found = [""]
    for line in lines:
        found[-1] += line
        found[-1] += " " if goes_on(line) else "\n"
        if not goes_on(line):
            found.append("")
    return "".join(found).splitlines()


def counted(line):
    """A line of the display that counts, without what changes."""
    return re.sub(r"[\d.]+", "0", re.sub(r"\[[# -]*\]", "[]", re.sub(r"\s+", " ", line.strip())))


class Examples(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        program = BUILD / "tests/private_queues"
        cls.queues, cls.server = None, None
        if program.exists():
            cls.queues = subprocess.Popen(
                [program, "office", f"lpd://{ADDRESS}/queue", "Vymprint 200", "lab",
                 "socket://192.0.2.9", "Vymprint 200"], stdout=subprocess.PIPE, text=True)
            cls.server = cls.queues.stdout.readline().strip()

    @classmethod
    def tearDownClass(cls):
        if cls.queues:
            cls.queues.terminate()
            cls.queues.wait()
            cls.queues.stdout.close()

    def check_terminal(self, desk, command, shown):
        code, output = desk.run_at_terminal(command)
        self.assertEqual(code, 0, output)
        seen = counted(output)
        for line in unwrapped((shown or "").splitlines()):
            self.assertIn(counted(line), seen, f"{line!r} in\n{output}")

    def check(self, desk, command, shown):
        if " -o " in command:  # makes a new file
            name = command.split(" -o ")[1].split()[0]
            (desk.home / name).unlink(missing_ok=True)
        if needs_terminal(command):
            self.check_terminal(desk, command, shown)
            return
        if command.endswith("&"):
            code, output, errors = desk.start(command)
        elif runs_until_ended(command):
            code, output, errors = desk.start_and_end(command)
        else:
            code, output, errors = desk.run(command)
        self.assertIn(code, (0, 2) if shown is not None else (0,), output + errors)
        if "| jq" in command and "| while" not in command:
            self.assertEqual(len(output.splitlines()), 1, f"one answer of jq:\n{output}")
            self.assertNotIn(output.strip(), ("", "null"))
        if shown and shown.strip():
            self.assertRegex((output or errors).rstrip() + "\n", rf"\A{expected(shown)}\Z")

    def test_examples(self):
        found = [each for each in pages.examples() if each.place.startswith(PLACE)]
        self.assertTrue(found)
        for example in found:
            if example.reason:
                continue
            with self.subTest(example.place), contextlib.closing(Desk(self.server)) as desk:
                if not any("vymprinter" in command for command, _ in example.commands):
                    desk.start_printer(example.how.removeprefix("printer ") or INSTALLED)
                for command, shown in example.commands:
                    with self.subTest(command):
                        self.check(desk, command, shown)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=1)
