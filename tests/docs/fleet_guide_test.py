#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The section "Many printers from one desk" of the guide for administrators, with GNU parallel and the
timer, and the example of the reference page: the commands one after the other, with virtual printers in
place of the pages'.

fleet_guide_test.py BUILD_FOLDER
"""
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
import examples_test  # noqa: E402
import pages  # noqa: E402

PAGE = (pages.ROOT / "docs/administrators.md").read_text(encoding="utf-8")
SECTION, _, NIGHT = PAGE.partition("\n## Many printers from one desk\n")[2].partition(
    "\n## ")[0].partition("\n### Every night")
PID = os.getpid()
# In the order of the page; no other test process uses them at the same time.
PRINTERS = {"192.0.2.7": examples_test.ADDRESS,
            "reception.example": f"127.{240 + (PID >> 16 & 7)}.{PID >> 8 & 255}.{max(PID & 255, 2)}"}
REFERENCE = (pages.ROOT / "docs/command-line.md").read_text(encoding="utf-8").partition(
    "\n## Many printers\n")[2]
THIRD = f"127.{252 + (PID >> 16 & 1)}.{PID >> 8 & 255}.{max(PID & 255, 2)}"
BUSY = f"127.{248 + (PID >> 16 & 3)}.{PID >> 8 & 255}.{max(PID & 255, 2)}"


class Guide(unittest.TestCase):
    def setUp(self):
        queues = subprocess.Popen([examples_test.BUILD / "tests/private_queues", "office",
                                   f"lpd://{BUSY}/queue", "Vymprint 200"], stdout=subprocess.PIPE, text=True)
        self.desk = examples_test.Desk(queues.stdout.readline().strip())
        self.desk.background.append(queues)
        self.addCleanup(self.desk.close)
        self.store = self.desk.folder / "store"
        for address in PRINTERS.values():
            self.printer(address)

    def printer(self, address, *options):
        self.store.mkdir(exist_ok=True)
        printer = subprocess.Popen(
            [examples_test.BUILD / "bin/vymprinter", "--listen", f"{address}:48350", "--model",
             "Vymprint 200", "--store", self.store, "--firmware", "MAIN=VP010100", *options],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.desk.background.append(printer)
        self.assertIn("listening on", printer.stdout.readline())

    def transfers(self, address):
        """How often an update of that printer began."""
        transcript = self.store / address / "transcript.txt"
        return len(re.findall(r"\tin\t0x5002\tMAIN\S*\t0x0000\t0\t", transcript.read_text()))

    def run_well(self, command):
        code, output, errors = self.desk.run(command)
        self.assertEqual(code, 0, f"{command}\n{output}{errors}")
        return output

    def jobs(self):
        """Printer and exit code of each row of GNU parallel's list."""
        rows = (self.desk.home / "joblog").read_text().splitlines()[1:]
        return [(row.split()[11], int(row.split()[6])) for row in rows]

    @unittest.skipUnless(shutil.which("parallel"), "left out: it needs the package parallel")
    def test_the_commands_of_the_page(self):
        blocks = [pages.commands_of(body) for body in re.findall(r"```(?:console|sh)\n(.*?)```", SECTION,
                                                                 re.DOTALL)]
        self.assertEqual([len(block) for block in blocks], [3, 2, 2])
        (shown, check, update), (failed, summary), (parallel, failed_jobs) = blocks
        self.assertEqual(shown[0], "cat list")
        text = shown[1] + "\n"
        for name, address in PRINTERS.items():
            self.assertIn(name, text)
            text = text.replace(name, address)
        (self.desk.home / "list").write_text(text)

        self.run_well(check[0])
        self.run_well(update[0])
        lines = [json.loads(line) for line in (self.desk.home / "done.jsonl").read_text().splitlines()]
        self.assertEqual({line["printer"]: line["name"] for line in lines},
                         {address: "updated" for address in PRINTERS.values()})
        self.assertEqual(self.run_well(failed[0]), "")
        self.assertEqual(json.loads(self.run_well(summary[0]))["skipped"], len(PRINTERS))

        self.run_well(parallel[0])
        self.assertEqual(sorted(self.jobs()), sorted((address, 0) for address in PRINTERS.values()))
        self.assertEqual(self.run_well(failed_jobs[0]), "")
        self.assertEqual([self.transfers(address) for address in PRINTERS.values()], [2, 2])
        # Once more, with a printer that refuses: only that one is new.
        self.printer(BUSY, "--fault", "refuse-busy")
        (self.desk.home / "list").write_text(text + BUSY + "\n")
        self.assertEqual(self.desk.run(parallel[0])[0], 1)
        self.assertEqual(len(self.jobs()), 3)
        code = dict(self.jobs())[BUSY]
        self.assertEqual(self.run_well(failed_jobs[0]), f"{code} {BUSY}\n")
        self.assertEqual([self.transfers(address) for address in PRINTERS.values()], [2, 2])
        said = [path.read_text() for path in (self.desk.home / "runs").rglob("stdout")]
        self.assertEqual(sorted(json.loads(text.splitlines()[-1])["exit_code"] for text in said),
                         [0, 0, code])

    def test_the_example_of_the_reference_page(self):
        for address in (THIRD, BUSY):
            self.printer(address)
        shown, update = pages.commands_of(re.search(r"```\n(\$ cat list.*?)```", REFERENCE, re.DOTALL)[1])
        text = shown[1] + "\n"
        for name, address in {**PRINTERS, "192.0.2.9": THIRD}.items():
            self.assertIn(name, text)
            text = text.replace(name, address)
        (self.desk.home / "list").write_text(text)
        self.run_well(update[0])
        lines = [json.loads(line) for line in (self.desk.home / "north.jsonl").read_text().splitlines()]
        self.assertEqual({line["printer"]: line["name"] for line in lines},
                         dict.fromkeys([*PRINTERS.values(), f"lpd://{THIRD}/queue", "office"], "updated"))
        self.assertEqual([self.transfers(address) for address in (*PRINTERS.values(), THIRD, BUSY)], [1] * 4)

    def test_the_call_of_the_timer(self):
        unit = next(body for body in re.findall(r"```ini\n(.*?)```", NIGHT, re.DOTALL) if "ExecStart" in body)
        command = " ".join(re.search(r"^ExecStart=((?:.*\\\n)*.*)$", unit, re.MULTILINE)[1].split("\\\n"))
        self.assertTrue(command.startswith("/usr/bin/"))
        here = {"/usr/bin/": "", "/etc/vymkit/printers": "list", "/srv/firmware/": "stick/", "%S/": "state/"}
        for there, name in here.items():
            self.assertIn(there, command)
            command = command.replace(there, name)
        (self.desk.home / "state/vymkit-fleet").mkdir(parents=True)
        (self.desk.home / "list").write_text("\n".join(PRINTERS.values()) + "\n")
        journal = re.search(r"^journalctl [^|]*(\|.*)$", NIGHT, re.MULTILINE)[1]
        summary = json.loads(self.run_well(command + journal))
        self.assertEqual(sorted(summary["updated"]), sorted(map(self.desk.shown, PRINTERS.values())))
        self.assertEqual(len((self.desk.home / "state/vymkit-fleet/done.jsonl").read_text().splitlines()), 2)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=1)
