#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Fifty printers of two sites through the collection's playbook: check mode, an update with a canary,
and a second run that changes nothing.

fifty_test.py BUILD_FOLDER, with the interpreter that Ansible uses. Takes most of a minute: Ansible
starts three processes for each printer and task.
"""
import unittest

import desk

COUNT = 50


class Fifty(desk.Ansible):
    def recapped(self, inventory, *words):
        """Plays; returns how many printers changed, and the report."""
        code, output, report = self.play(inventory, *words)
        self.assertEqual(code, 0, output)
        recap = self.recap(output)
        self.assertEqual(len(recap), COUNT)
        self.assertEqual(sum(counts["failed"] for counts in recap.values()), 0)
        return sum(counts["changed"] for counts in recap.values()), report

    def test_fifty_printers_are_predicted_then_updated_then_left_alone(self):
        hosts = {desk.own_address(number): {} for number in range(COUNT)}
        inventory = self.inventory(hosts, fleet_jobs=10)
        self.printers(0, COUNT, *desk.RESTART)

        changed, report = self.recapped(inventory, "--check")
        self.assertEqual(changed, COUNT)
        self.assertEqual(report, "Site north: 25 to be updated\nSite south: 25 to be updated")
        self.assertEqual(self.received()["MAIN"], set())

        changed, report = self.recapped(inventory)
        self.assertEqual(changed, COUNT)
        self.assertEqual(report, "Site north: 25 updated\nSite south: 25 updated")
        self.assertEqual(self.received(), {name: set(range(COUNT)) for name in desk.OLD})

        changed, report = self.recapped(inventory)
        self.assertEqual(changed, 0)
        self.assertEqual(report, "Site north: 25 nothing to update\nSite south: 25 nothing to update")


if __name__ == "__main__":
    unittest.main(verbosity=1)
