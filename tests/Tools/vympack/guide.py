#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs the examples of docs/makers.md in a folder of their own and compares what they print with what
the page shows. --write puts the output of today into the page.

Usage: guide.py [--write] PAGE BIN_FOLDER
"""
import os
import pathlib
import re
import subprocess
import sys
import tempfile

BLOCK = re.compile(r"^```\n(\$ .*?)^```$", re.MULTILINE | re.DOTALL)
FILES = {"main.bin": bytes(range(100)), "boot.bin": b"boot" * 10,
         "debs/vymkit_1.0.0_amd64.deb": b"!<arch>\ndebian-binary   and the rest",
         "debs/vymkit-cli_1.0.0_amd64.deb": b"!<arch>\ndebian-binary   and the rest"}


def run(command, folder, programs):
    done = subprocess.run(["sh", "-c", command], cwd=folder, env=os.environ | {"PATH": programs},
                          capture_output=True, text=True, timeout=60)
    text = done.stdout + done.stderr
    if done.returncode:
        text += f"[exit code {done.returncode}]\n"
    return f"$ {command}\n{text}"


def main():
    write = "--write" in sys.argv
    page, programs = (argument for argument in sys.argv[1:] if argument != "--write")
    path = f"{pathlib.Path(programs).resolve()}:{os.environ['PATH']}"
    shown = pathlib.Path(page).read_text(encoding="utf-8")
    with tempfile.TemporaryDirectory() as folder:
        (pathlib.Path(folder) / "debs").mkdir()
        for name, content in FILES.items():
            (pathlib.Path(folder) / name).write_bytes(content)

        def answer(block):
            commands = re.findall(r"^\$ (.*)$", block.group(1), re.MULTILINE)
            return "```\n" + "".join(run(each, folder, path) for each in commands) + "```"

        printed = BLOCK.sub(answer, shown)
    if write:
        pathlib.Path(page).write_text(printed, encoding="utf-8")
    for old, new in zip(BLOCK.findall(shown), BLOCK.findall(printed)):
        if old != new and not write:
            print(f"--- the page shows\n{old}--- today's output\n{new}")
    return 0 if write or (shown == printed and "$ vympack" in shown) else 1


if __name__ == "__main__":
    sys.exit(main())
