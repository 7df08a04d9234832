#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The section "With Ansible" of the guide for administrators: its files and its commands do what the page
shows, with virtual printers in place of the page's and the package of this build.

guide_test.py BUILD_FOLDER, with the interpreter that Ansible uses
"""
import re
import shutil
import unittest

import desk

SECTION = (desk.ROOT / "docs/administrators.md").read_text(encoding="utf-8").split(
    "\n## With Ansible\n")[1].split("\n## ")[0]


class Guide(desk.Ansible):
    def here(self, text):
        """The page's addresses, digest and paths, as they are in this test."""
        text = re.sub(r"192\.0\.2\.\[7:8\]", re.sub(r"\d+$", "", desk.own_address(0)).replace("\\", "")
                      + f"[{self.last(7)}:{self.last(8)}]", text)
        text = re.sub(r"192\.0\.2\.([789])", lambda found: desk.own_address(int(found[1])), text)
        return text.replace("/srv/firmware", str(self.folder)).replace(
            "2e7d2c03a9507ae265ecf5b5356885a53393a2029d241394997265a1a25aefc6", desk.SHA256)

    @staticmethod
    def last(number):
        return desk.own_address(number).rpartition(".")[2]

    def test_the_files_and_commands_of_the_page(self):
        self.printers(7, 3)
        (self.folder / "stick").mkdir()
        shutil.copy(desk.PACKAGE, self.folder / "stick")
        # The computer of this test is every runner, and its command line has shortened pauses.
        (self.folder / "bin").mkdir()
        (self.folder / "bin/vymkit-cli").symlink_to(desk.CLI)
        self.env["PATH"] = f"{self.folder}/bin:{self.env['PATH']}"
        (self.folder / "group_vars").mkdir()
        (self.folder / "group_vars/runners.yml").write_text("ansible_connection: local\n")

        files = re.findall(r"^```yaml\n# (\S+)\n(.*?)^```$", SECTION, re.MULTILINE | re.DOTALL)
        self.assertEqual([name for name, _ in files], ["inventory.yml", "slowly.yml"])
        for name, text in files:
            (self.folder / name).write_text(self.here(text))
        blocks = re.findall(r"^```console\n(.*?)^```$", SECTION, re.MULTILINE | re.DOTALL)
        steps = [step for block in blocks for step in re.split(r"^\$ ", block, flags=re.MULTILINE)[1:]]
        self.assertEqual(len(steps), 6)
        for step in steps:
            command, _, shown = step.partition("\n")
            with self.subTest(command=command):
                done = self.ansible("sh", "-c", self.here(command))
                self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
                pattern = re.escape(shown).replace(re.escape("...\n"), r"(.*\n)*?")
                self.assertRegex(done.stdout, "^" + pattern)
        self.assertEqual(self.received()["MAIN"], {7, 8, 9})


if __name__ == "__main__":
    unittest.main(verbosity=1)
