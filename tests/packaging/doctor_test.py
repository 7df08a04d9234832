#!/usr/bin/env python3
"""vymkit-cli doctor as a whole program, on this computer and against a virtual printer.

doctor_test.py BUILD_FOLDER
"""
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

BIN = pathlib.Path(sys.argv.pop(1)).resolve() / "bin"
CHECKS = ["package", "signature", "system", "print-server", "queues", "usb", "permission",
          "usb-owner", "udev-rule", "address", "port", "suspend", "log-folder"]


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

    def test_a_named_queue_needs_the_print_server(self):
        found = self.doctor("--printer", "office", "--package", str(BIN))
        self.assertEqual(found["print-server"]["status"], "problem")


if __name__ == "__main__":
    unittest.main(verbosity=1)
