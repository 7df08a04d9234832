#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The collection itself: ansible-doc shows it, Ansible's own sanity tests pass, its examples are sound.

collection_test.py BUILD_FOLDER, with the interpreter that Ansible uses

ansible-test gets most of its tools from the network. Here run those of its tests that need none, and,
with Debian's tools and ansible-test's own rules, validate-modules, pep8 and yamllint. Its tests import,
pylint and runtime-metadata are left out; ansible-doc is called directly.
"""
import json
import pathlib
import shutil
import sys
import unittest

import ansible_test
import desk
import yaml

SANITY = pathlib.Path(ansible_test.__file__).parent / "_util/controller/sanity"
FROM_THE_NETWORK = ["ansible-doc", "import", "pep8", "pylint", "runtime-metadata", "validate-modules",
                    "yamllint"]


class Collection(desk.Ansible):
    def copy(self):
        """ansible-test wants a collection that is no link, and writes into it."""
        place = self.folder / "copy/ansible_collections/vymkit/printers"
        shutil.copytree(desk.COLLECTION, place, ignore=shutil.ignore_patterns("__pycache__"))
        self.env["ANSIBLE_COLLECTIONS_PATH"] = str(self.folder / "copy")
        return place

    def test_ansible_doc_shows_both_modules_and_the_role(self):
        done = self.ansible("ansible-doc", "--json", "vymkit.printers.update",
                            "vymkit.printers.printers_info")
        pages = json.loads(done.stdout)
        self.assertEqual(set(pages), {"vymkit.printers.update", "vymkit.printers.printers_info"})
        options = pages["vymkit.printers.update"]["doc"]["options"]
        self.assertEqual(options["skip_same"]["default"], True)
        self.assertLessEqual({"printer", "package", "sha256", "key", "deadline", "stall_limit", "verify",
                              "expected_serial", "expected_model", "only", "vymkit_cli"}, set(options))
        done = self.ansible("ansible-doc", "--type", "role", "--json", "vymkit.printers.fleet")
        role = json.loads(done.stdout)["vymkit.printers.fleet"]["entry_points"]["main"]["options"]
        defaults = yaml.safe_load((desk.COLLECTION / "roles/fleet/defaults/main.yml").read_text())
        self.assertEqual({name: option["default"] for name, option in role.items() if "default" in option},
                         defaults)

    def test_what_ansible_test_can_do_without_a_network_finds_nothing(self):
        skipped = [word for name in FROM_THE_NETWORK for word in ("--skip-test", name)]
        version = f"{sys.version_info.major}.{sys.version_info.minor}"
        done = self.ansible("ansible-test", "sanity", "--color", "no", "--python", version, *skipped,
                            folder=self.copy())
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        self.assertIn('"compile"', done.stdout + done.stderr)
        self.assertIn('"no-assert"', done.stdout + done.stderr)

    def test_documentation_and_accepted_arguments_agree(self):
        collection = self.copy()
        modules = sorted(collection.glob("plugins/modules/*.py"))
        done = self.ansible(sys.executable, SANITY / "validate-modules/validate.py", "--format", "json",
                            "--arg-spec", "--collection", "ansible_collections/vymkit/printers",
                            "--collection-version", "1.0.0",
                            *(module.relative_to(collection) for module in modules), folder=collection)
        self.assertEqual(done.stderr, "")
        found = {(pathlib.Path(path).name, error["code"])
                 for path, said in json.loads(done.stdout).items()
                 for error in said["errors"] + said["warnings"]}
        lines = (collection / "tests/sanity/ignore-2.14.txt").read_text().splitlines()
        ignored = {(pathlib.Path(words[0]).name, words[1].partition(":")[2])
                   for words in (line.split() for line in lines)}
        self.assertEqual(found, ignored)

    def test_its_python_and_its_yaml_follow_the_rules_of_ansible_test(self):
        ignored = ",".join(line for line in (SANITY / "pep8/current-ignore.txt").read_text().split())
        rows = [("pycodestyle", "--max-line-length", "160", "--config", "/dev/null", "--ignore", ignored),
                ("yamllint", "-c", SANITY / "yamllint/config/default.yml")]
        for words in rows:
            with self.subTest(tool=words[0]):
                done = self.ansible(sys.executable, "-m", *words, desk.COLLECTION)
                self.assertEqual(done.stdout + done.stderr, "")

    def test_it_has_the_version_of_the_project(self):
        cmake = (desk.ROOT / "CMakeLists.txt").read_text(encoding="utf-8")
        galaxy = yaml.safe_load((desk.COLLECTION / "galaxy.yml").read_text())
        self.assertIn(f"project(vymkit VERSION {galaxy['version']} ", cmake)

    def test_it_is_installed_from_its_sources_without_a_network(self):
        done = self.ansible("ansible-galaxy", "collection", "install", "--offline", desk.COLLECTION,
                            "-p", self.folder / "installed")
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        place = self.folder / "installed/ansible_collections/vymkit/printers"
        self.assertTrue((place / "MANIFEST.json").exists() and (place / "README.md").exists())
        self.assertFalse((place / "tests").exists())

    def test_the_example_inventory_and_the_playbooks_can_be_read(self):
        example = desk.COLLECTION / "examples/inventory.yml"
        done = self.ansible("ansible-inventory", "-i", example, "--list")
        hosts = json.loads(done.stdout)
        self.assertEqual(len(hosts["north"]["hosts"]) + len(hosts["south"]["hosts"]), 27)
        for playbook in ("update", "list"):
            done = self.ansible("ansible-playbook", "-i", example, "--syntax-check",
                                f"vymkit.printers.{playbook}")
            self.assertEqual(done.returncode, 0, done.stdout + done.stderr)


if __name__ == "__main__":
    unittest.main(verbosity=1)
