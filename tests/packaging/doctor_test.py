#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""vymkit-cli doctor as a whole program, on this computer and against a virtual printer.

doctor_test.py BUILD_FOLDER
"""
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

BIN = pathlib.Path(sys.argv.pop(1)).resolve() / "bin"
CHECKS = ["package", "signature", "system", "print-server", "queues", "usb", "permission",
          "usb-owner", "udev-rule", "address", "port", "suspend", "log-folder"]


def minisign(*words):
    subprocess.run(["minisign", *map(str, words)], check=True, capture_output=True, timeout=60)


class Doctor(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        # A print server that is not there: whatever runs here is left out of it.
        self.env = {**os.environ, "XDG_STATE_HOME": f"{self.folder.name}/state",
                    "CUPS_SERVER": f"{self.folder.name}/cups.sock", "LC_ALL": "C.UTF-8"}

    def doctor(self, *words):
        run = subprocess.run([str(BIN / "vymkit-cli"), "doctor", "--json", *words],
                             capture_output=True, text=True, timeout=60, check=False, env=self.env)
        lines = [json.loads(line) for line in run.stdout.splitlines()]
        self.assertEqual([line["type"] for line in lines], ["finding"] * 13 + ["result"])
        self.assertEqual([line["check"] for line in lines[:-1]], CHECKS)
        for line in lines[:-1]:
            self.assertIn(line["status"], ("ok", "warning", "problem", "skipped"))
            self.assertTrue(line["message"])
        hasProblem = any(line["status"] == "problem" for line in lines[:-1])
        self.assertEqual(run.returncode, 1 if hasProblem else 0)
        self.assertEqual(lines[-1]["exit_code"], run.returncode)
        self.assertEqual(lines[-1]["name"], "obstacles" if hasProblem else "ready")
        self.assertEqual(os.listdir(self.folder.name), [], "the doctor creates no file")
        return {line["check"]: line for line in lines[:-1]}

    def test_a_printer_that_answers_is_no_obstacle(self):
        with subprocess.Popen([str(BIN / "vymprinter"), "--listen", "127.0.0.1:0", "--quiet"],
                              stdout=subprocess.PIPE, text=True) as printer:
            self.addCleanup(printer.kill)
            port = printer.stdout.readline().rsplit(":", 1)[1].strip()
            found = self.doctor("--address", "127.0.0.1", "--port", port, "--package", str(BIN))
            printer.terminate()
        self.assertEqual(found["package"]["status"], "ok")
        self.assertEqual(found["address"]["status"], "ok")
        self.assertEqual(found["port"]["status"], "ok")
        self.assertEqual(found["print-server"]["status"], "warning")

    def test_a_closed_port_is_a_problem_with_a_mend(self):
        found = self.doctor("--address", "127.0.0.1", "--port", "1", "--package", str(BIN))
        self.assertEqual(found["port"]["status"], "problem")
        self.assertIn("refused", found["port"]["message"])
        self.assertTrue(found["port"]["mend"])

    def test_without_a_printer_its_checks_are_skipped(self):
        found = self.doctor("--package", str(BIN))
        self.assertEqual(found["address"]["status"], "skipped")
        self.assertEqual(found["port"]["status"], "skipped")
        self.assertEqual(found["signature"]["status"], "skipped")

    def test_a_missing_package_is_a_problem_and_leaves_the_rest_to_be_checked(self):
        found = self.doctor("--package", "/nowhere", "--address", "127.0.0.1")
        self.assertEqual(found["package"]["status"], "problem")
        self.assertEqual(found["system"]["status"], "skipped")
        self.assertEqual(found["address"]["status"], "ok")
        self.assertEqual(found["port"]["status"], "skipped")

    def signed_package(self, *keys):
        """A package with a signature of the first key; the keys are files NAME.pub."""
        place = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, place)
        shutil.copy(BIN / "VYMBINDDATA", place)
        for key in keys:
            minisign("-G", "-W", "-p", place / f"{key}.pub", "-s", place / f"{key}.key")
        if keys:
            minisign("-S", "-s", place / f"{keys[0]}.key", "-m", place / "VYMBINDDATA",
                     "-t", "release 1.2.10")
        return place

    @unittest.skipUnless(shutil.which("minisign"), "makes the signatures")
    def test_the_signature_is_checked_with_the_given_key(self):
        place = self.signed_package("maker", "other")
        found = self.doctor("--package", str(place), "--key", str(place / "maker.pub"))
        self.assertEqual(found["signature"]["status"], "ok")
        self.assertIn("maker.pub (release 1.2.10)", found["signature"]["message"])
        found = self.doctor("--package", str(place), "--key", str(place / "other.pub"))
        self.assertEqual(found["signature"]["status"], "problem")
        self.assertEqual(found["package"]["status"], "skipped")
        (place / "VYMBINDDATA.minisig").unlink()
        found = self.doctor("--package", str(place), "--key", str(place / "maker.pub"))
        self.assertEqual(found["signature"]["status"], "problem")
        self.assertIn("not signed", found["signature"]["message"])

    def test_a_report_names_no_person_no_computer_and_no_folder(self):
        home = pathlib.Path(self.folder.name) / "susanne-krause"
        state = home / ".local/state/vymkit"
        state.mkdir(parents=True)
        (state / "run-20261121T100000.000Z-8.log").write_text(
            "program: vymkit 1.0.0\nstarted: 2026-11-21 11:00:00 +0100\n"
            f"package: {home}/Geheim\naddress: usb://Acme/M?serial=%56X900177\n"
            f"note: susanne-krause, VX900177, lab7.example\nended: x\n")
        run = subprocess.run(
            [str(BIN / "vymkit-cli"), "report", "--package", f"{home}/Geheim",
             "--uri", "lpd://lab7.example/q"], capture_output=True, text=True, timeout=60,
            check=False, env={**self.env, "HOME": str(home), "USER": "susanne-krause",
                              "XDG_STATE_HOME": ""})
        self.assertEqual(run.returncode, 0, run.stderr)
        for secret in ("krause", "Geheim", "900177", "lab7"):
            self.assertNotIn(secret, run.stdout)
        self.assertIn("serial=<serial-1>", run.stdout)
        self.assertIn("note: <user>, <serial-1>, <host-1>", run.stdout)

    def test_a_named_queue_needs_the_print_server(self):
        found = self.doctor("--printer", "office", "--package", str(BIN))
        self.assertEqual(found["print-server"]["status"], "problem")


if __name__ == "__main__":
    unittest.main(verbosity=1)
