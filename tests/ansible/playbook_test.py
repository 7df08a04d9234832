#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The collection's playbook and role with a few virtual printers: canary, stop rule, runners, report.

playbook_test.py BUILD_FOLDER, with the interpreter that Ansible uses
"""
import json
import unittest

import desk

FAULT = ("--fault", "refuse-busy")


class Playbook(desk.Ansible):
    def hosts(self, count):
        return {f"p{number}": {"fleet_address": desk.own_address(number)} for number in range(count)}

    def test_a_canary_that_fails_keeps_all_others_as_they_are(self):
        self.printers(0, 1, *FAULT)
        self.printers(1, 3)
        code, output, report = self.play(self.inventory(self.hosts(4)))
        self.assertEqual(code, 2, output)
        self.assertEqual(set(self.recap(output)), {"p0"})
        self.assertEqual(self.recap(output)["p0"]["failed"], 1)
        self.assertEqual(self.received()["MAIN"], set())
        self.assertIn("Site north: 1 failed, 1 not started\n  p0: printer-busy, next: retry. The printer at ",
                      report)
        self.assertIn("Site south: 2 not started", report)

    def test_the_stop_rule_counts_the_failures_of_a_batch(self):
        self.printers(0, 1, *FAULT)
        self.printers(1, 3)
        inventory = self.inventory(self.hosts(4))
        batches = ("-e", '{"fleet_batches": [2]}')
        code, output, report = self.play(inventory, *batches, "-e", "fleet_max_fail_percentage=49")
        self.assertEqual(code, 2, output)
        self.assertEqual(self.received()["MAIN"], {1}, "the batch was finished, the next one not begun")
        self.assertIn("Site south: 2 not started", report)
        code, output, report = self.play(inventory, *batches, "-e", "fleet_max_fail_percentage=50")
        self.assertEqual(code, 2, output)
        self.assertEqual(self.received()["MAIN"], {1, 2, 3})
        self.assertIn("Site north: 1 failed, 1 updated", report)
        self.assertIn("Site south: 2 updated", report)

    def test_each_runner_updates_the_printers_of_its_site(self):
        self.printers(0, 3)
        hosts = self.hosts(3)
        hosts["p1"]["fleet_model"] = "Vymprint 210"
        inventory = self.inventory(hosts, away={"south"})
        code, output, report = self.play(inventory, "-e", '{"fleet_batches": ["100%"]}')
        self.assertNotEqual(code, 0, output)
        self.assertIn("changed: [p0 -> runner-north", output)
        self.assertIn("[p2 -> runner-south", output)
        self.assertEqual([self.recap(output)[name]["failed"] for name in ("p0", "p1", "p2")], [0, 1, 1])
        self.assertEqual(self.received()["MAIN"], {0})
        self.assertIn("p1: unexpected-model, next: retry. The printer was expected to have the model "
                      "Vymprint 210, and has Vymprint 200.", report)
        self.assertIn("Site south: 1 unreachable runner", report)

    def test_the_package_must_be_pinned_and_no_printer_named_twice(self):
        self.printers(0, 2)
        hosts = self.hosts(2)
        hosts["again"] = hosts["p0"]
        for rows in ((hosts, desk.SHA256), (self.hosts(2), None)):
            code, output, _ = self.play(self.inventory(rows[0], fleet_sha256=rows[1]))
            self.assertEqual(code, 2, output)
            self.assertIn("name no printer twice", output)
        self.assertEqual(self.received()["MAIN"], set())

    def test_the_printers_of_a_runner_are_listed(self):
        queue = {"name": "Office", "address": None, "explanation": "has no address"}
        cli = self.folder / "scripted-cli"
        cli.write_text("#!/bin/sh\ncat <<'END'\n" + json.dumps({
            "type": "result", "name": "printers-listed", "exit_code": 0, "next": "none",
            "message": "One.", "printers": [queue]}) + "\nEND\n")
        cli.chmod(0o755)
        done = self.ansible("ansible-playbook", "-i", self.inventory({}, fleet_vymkit_cli=str(cli)),
                            "vymkit.printers.list", "--limit", "runner-south")
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        self.assertIn('"msg": "Office, no address: has no address"', done.stdout)


if __name__ == "__main__":
    unittest.main(verbosity=1)
