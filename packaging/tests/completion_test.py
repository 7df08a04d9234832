#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Completion as users see it: in bash, in zsh and in fish.

completion_test.py BUILD_FOLDER
"""
import os
import pathlib
import pty
import select
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

BUILD = pathlib.Path(sys.argv.pop(1)).resolve()
WORDS = BUILD / "packaging/words"
LIMIT = 30  # seconds until a shell has answered, on a busy machine

# One line, as the command line writes it; two printers, one of them on USB.
PRINTERS = """{"type":"result","address":null,"printers":[
{"name":"Office, 2nd floor","identifier":"office","address":"lpd://192.0.2.7/queue"},
{"name":"USB Printer","identifier":null,"address":"usb://Acme/P1?serial=S77"}]}""".replace("\n", "")

FAULTS = "close: closes the connection\n    Stage: piece.\n\nsilent: never replies again.\n"

ZSH_SETUP = """PROMPT='ready> '; unsetopt zle_bracketed_paste; fpath=({folder} $fpath)
autoload -Uz compinit; compinit -u -D; zstyle ':completion:*' menu no; LISTMAX=999
"""


class Place:
    """A folder with replacements of the programs, so that their values are known."""

    def __init__(self):
        self.path = pathlib.Path(tempfile.mkdtemp())
        self.write("vymkit-cli", f"#!/bin/sh\n[ \"$1\" = printers ] && echo '{PRINTERS}'\n")
        self.write("vymprinter", f"#!/bin/sh\nprintf '{FAULTS!s}'\n".replace("\n\n", "\\n\\n"))
        (self.path / "folder").mkdir()
        (self.path / "folder/one.vymbind").touch()
        for file in WORDS.glob("*.zsh"):
            shutil.copy(file, self.path / f"_{file.stem}")
        self.env = {**os.environ, "PATH": f"{self.path}:{os.environ['PATH']}", "TERM": "dumb",
                    "HOME": str(self.path), "LC_ALL": "C.UTF-8"}

    def write(self, name, text):
        file = self.path / name
        file.write_text(text, encoding="utf-8")
        file.chmod(0o755)

    def run(self, *words):
        done = subprocess.run(words, capture_output=True, text=True, timeout=LIMIT, check=True,
                              env=self.env, cwd=self.path)
        return set(done.stdout.split("\n")) - {""}


BASH = r"""
source "$1"
COMP_LINE=$2 COMP_POINT=${#2}
compopt() { :; }
# Words as readline parts them, at colons and equal signs as well.
python3 - "$COMP_LINE" > words <<'END'
import re, sys
words = re.findall(r"[:=]|[^\s:=]+", sys.argv[1])
print("\n".join(words + ([""] if sys.argv[1].endswith(" ") else [])))
END
mapfile -t COMP_WORDS < words
COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
"_${3//-/_}"
printf '%s\n' "${COMPREPLY[@]}"
"""


class Completion(unittest.TestCase):
    def setUp(self):
        self.place = Place()
        self.addCleanup(shutil.rmtree, self.place.path)

    def bash(self, line):
        program = line.split()[0]
        return self.place.run("bash", "-c", BASH, "bash", str(WORDS / f"{program}.bash"), line,
                              program)

    def fish(self, line):
        program = line.split()[0]
        found = self.place.run("fish", "--no-config", "-c",
                               f"source {WORDS / program}.fish; complete -C '{line}'")
        return {each.split("\t")[0] for each in found}

    def zsh(self, line, expected):
        """Types the line and the tab key; returns whether the text appears."""
        child, terminal = pty.fork()
        if child == 0:
            os.chdir(self.place.path)
            os.execvpe("zsh", ["zsh", "-f", "-i"], {**self.place.env, "COLUMNS": "200"})
        try:
            os.write(terminal, ZSH_SETUP.format(folder=self.place.path).encode())
            os.write(terminal, b"echo be''gin\n")
            self.assertIn("begin", self.shown(terminal, "begin"))
            os.write(terminal, line.encode() + b"\t\t")
            return expected in self.shown(terminal, expected)
        finally:
            os.kill(child, 9)
            os.close(terminal)
            os.waitpid(child, 0)

    def shown(self, terminal, expected):
        text, end = "", time.monotonic() + LIMIT
        while expected not in text and time.monotonic() < end:
            if select.select([terminal], [], [], 0.2)[0]:
                text += os.read(terminal, 4096).decode(errors="replace")
        return text

    def test_commands_are_completed(self):
        for shell in (self.bash, self.fish):
            self.assertEqual(shell("vymkit-cli up") - {"--"}, {"update"})
            self.assertTrue({"make", "check"} <= shell("vympack "))
        self.assertTrue(self.zsh("vymkit-cli upd", "update"))

    def test_options_are_those_of_the_command(self):
        for shell in (self.bash, self.fish):
            self.assertEqual(shell("vymkit-cli update --ye"), {"--yes"})
            self.assertEqual(shell("vymkit-cli info --ye"), set())
            self.assertEqual(shell("vympack extract --dir"), {"--directory"})
        self.assertTrue(self.zsh("vymkit-cli update --ye", "--yes"))
        self.assertTrue(self.zsh("vymprinter --mod", "--model"))

    def test_print_queues_are_completed_from_the_list_of_printers(self):
        self.assertEqual(self.bash("vymkit-cli check --printer "), {"office"})
        self.assertEqual(self.fish("vymkit-cli check --printer "), {"office"})
        self.assertTrue(self.zsh("vymkit-cli check --printer of", "office"))

    def test_port_strings_are_completed_from_the_list_of_printers(self):
        # bash begins a new word after the colon, and completes only what follows it.
        self.assertEqual(self.bash("vymkit-cli check --uri usb:"), {"//Acme/P1?serial=S77"})
        self.assertEqual(self.fish("vymkit-cli check --uri usb"), {"usb://Acme/P1?serial=S77"})
        self.assertTrue(self.zsh("vymkit-cli check --uri us", "S77"))

    def test_faults_of_the_virtual_printer_are_completed(self):
        self.assertEqual(self.bash("vymprinter --fault "), {"list", "close", "silent"})
        self.assertTrue({"list", "close", "silent"} <= self.fish("vymprinter --fault "))
        self.assertTrue(self.zsh("vymprinter --fault sil", "silent"))

    def test_files_and_folders_are_completed_where_they_belong(self):
        self.assertEqual(self.bash("vymkit folder/"), {"folder/one.vymbind"})
        self.assertIn("folder/one.vymbind", self.fish("vymkit folder/"))
        self.assertEqual(self.bash("vymprinter --store fol"), {"folder"})


if __name__ == "__main__":
    unittest.main(verbosity=1)
