#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Tests the virtual machine itself: exit codes, streams, results, time-outs, a USB bus."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

VM = pathlib.Path(__file__).resolve().parent / "vm" / "vm.py"


def run(command, *options):
    return subprocess.run([sys.executable, VM, *options, "--", "sh", "-c", command],
                          capture_output=True, text=True, check=False)


class Machine(unittest.TestCase):
    def test_hands_back_the_code_both_streams_and_the_results(self):
        with tempfile.TemporaryDirectory() as folder:
            ran = run("echo said; echo complained >&2; echo kept >/results/file; exit 200",
                      "--results", folder)
            self.assertEqual(ran.returncode, 200, ran.stderr)
            self.assertEqual(ran.stdout, "said\n")
            self.assertTrue(ran.stderr.startswith("complained\n"), ran.stderr)
            self.assertIn("the guest's console", ran.stderr)
            self.assertEqual(pathlib.Path(folder, "file").read_text(), "kept\n")

    def test_ends_what_runs_too_long_and_waits_for_free_by_counted_instructions(self):
        ran = run("echo begun; sleep 1000", "--timeout", "300", "--icount", "--limit", "500")
        self.assertEqual(ran.returncode, 124, ran.stderr)
        self.assertEqual(ran.stdout, "begun\n")

    def test_has_controllers_and_the_kernels_printer_driver(self):
        ran = run("ls /sys/class/udc; ls -d /sys/bus/usb/drivers/usblp; "
                  "su -s /bin/sh nobody -c 'id -u'", "--controllers", "2")
        self.assertEqual(ran.returncode, 0, ran.stderr)
        self.assertEqual(ran.stdout.split(), ["dummy_udc.0", "dummy_udc.1",
                                              "/sys/bus/usb/drivers/usblp", "65534"])


if __name__ == "__main__":
    unittest.main()
