#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The collection's modules, called as Ansible calls them, with the real command line against virtual
printers; with a scripted one for what no virtual printer shows.

modules_test.py BUILD_FOLDER, with the interpreter that Ansible uses
"""
import contextlib
import importlib
import io
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest
from unittest import mock

import desk
from ansible.module_utils import basic

ROOT = tempfile.TemporaryDirectory()
sys.path.insert(0, str(desk.collections_in(ROOT.name)))
sys.dont_write_bytecode = True
MODULES = {name: importlib.import_module(f"ansible_collections.vymkit.printers.plugins.modules.{name}")
           for name in ("update", "printers_info")}


class Modules(desk.Folder):
    def call(self, module, check_mode=False, **parameters):
        """Runs the module; returns its results."""
        parameters.setdefault("vymkit_cli", str(desk.CLI))
        if module == "update":
            parameters.setdefault("package", str(desk.PACKAGE))
        words = {"ANSIBLE_MODULE_ARGS": {**parameters, "_ansible_check_mode": check_mode,
                                         "_ansible_remote_tmp": str(self.folder)}}
        said = io.StringIO()
        with (mock.patch.dict(os.environ, self.env, clear=True), contextlib.redirect_stdout(said),
              mock.patch.object(basic, "_ANSIBLE_ARGS", json.dumps(words).encode()),
              self.assertRaises(SystemExit)):
            MODULES[module].main()
        return json.loads(said.getvalue())

    def update(self, **parameters):
        if not {"printer", "uri"} & set(parameters):
            parameters.setdefault("address", desk.own_address(0))
        return self.call("update", **parameters)

    def script(self, *lines):
        """A program that notes its words, says these lines, and ends as the last of them says."""
        path = self.folder / "scripted-cli"
        said = "\n".join(json.dumps(line) for line in lines)
        code = lines[-1].get("exit_code", 139) if lines else 139
        path.write_text(f'#!/bin/sh\necho "$@" >>"$0.words"\ncat <<"END"\n{said}\nEND\nexit {code}\n')
        path.chmod(0o755)
        return str(path)

    def words(self):
        return (self.folder / "scripted-cli.words").read_text().splitlines()

    def result(self, **facts):
        return {"type": "result", "name": "nothing-to-update", "exit_code": 2, "next": "none",
                "message": "Nothing.", "firmware": [], "firmware_bytes_sent": False, **facts}


class Update(Modules):
    def test_check_mode_predicts_the_change_and_sends_nothing(self):
        self.printers(0)
        said = self.update(check_mode=True)
        self.assertEqual((said["changed"], said["name"]), (True, "update-available"))
        self.assertEqual((said["diff"]["before"], said["diff"]["after"]), (desk.OLD, desk.NEW))
        self.assertEqual(self.received(), {"MAIN": set(), "ENGINE": set()})

    def test_an_update_is_a_change_with_the_versions_before_and_after(self):
        self.printers(0)
        said = self.update(sha256=desk.SHA256, deadline=60, stall_limit=50.5)
        self.assertNotIn("failed", said)
        self.assertEqual((said["changed"], said["name"], said["exit_code"]), (True, "updated", 0))
        self.assertEqual((said["diff"]["before"], said["diff"]["after"]), (desk.OLD, desk.NEW))
        self.assertEqual(said["printer_model"], "Vymprint 200")
        self.assertEqual([entry["installed_version"] for entry in said["firmware"]],
                         list(desk.OLD.values()))
        self.assertEqual(self.received(), {"MAIN": {0}, "ENGINE": {0}})

    def test_a_printer_that_has_the_firmware_is_no_change_and_no_run(self):
        self.printers(0, firmware=desk.NEW)
        for check_mode in (True, False):
            said = self.update(check_mode=check_mode)
            self.assertNotIn("failed", said)
            self.assertEqual((said["changed"], said["name"]), (False, "nothing-to-update"))
            self.assertEqual(said["diff"]["before"], said["diff"]["after"])
        self.assertFalse((self.folder / "state").exists(), "an update leaves a log")

    def test_a_verified_update_has_the_versions_that_the_printer_reports_and_is_no_change_when_repeated(self):
        self.printers(0, 1, *desk.RESTART)
        said = self.update(verify=60)
        self.assertEqual((said["changed"], said["verdict"]), (True, "verified"))
        self.assertEqual(said["diff"]["after"], desk.NEW)
        said = self.update(verify=60)
        self.assertEqual((said["changed"], said["diff"]["before"]), (False, desk.NEW))

    def test_a_printer_that_comes_back_with_its_old_version_is_a_failure(self):
        self.printers(0, 1, *desk.RESTART, "--fault", "old-version")
        said = self.update(verify=4)  # which passes before it is believed
        self.assertEqual((said["failed"], said["changed"], said["exit_code"]), (True, True, 4))
        self.assertEqual((said["verdict"], said["next"]), ("not-installed", "check-printer"))
        self.assertEqual(said["diff"]["after"], desk.OLD)

    def test_only_the_firmware_that_is_named_is_sent(self):
        self.printers(0)
        said = self.update(only=["ENGINE"])
        self.assertTrue(said["changed"])
        self.assertEqual(said["diff"]["after"], {"ENGINE": desk.NEW["ENGINE"]})
        self.assertEqual(self.received(), {"MAIN": set(), "ENGINE": {0}})

    def test_a_refused_printer_fails_with_the_words_of_the_command_line(self):
        self.printers(0, 1, "--fault", "wrong-model")
        said = self.update()
        words = [str(desk.CLI), "check", "--json", "--address", desk.own_address(0), "--package",
                 str(desk.PACKAGE)]
        done = subprocess.run(words, capture_output=True, text=True, check=False, env=self.env)
        result = json.loads(done.stdout.splitlines()[-1])
        self.assertEqual((said["failed"], said["changed"]), (True, False))
        self.assertEqual((said["msg"], said["name"], said["next"], said["exit_code"]),
                         (result["message"], "other-model", "choose-other-package", 17))

    def test_a_run_that_breaks_off_has_changed_the_printer_and_says_that_a_person_is_needed(self):
        self.printers(0, 1, "--fault", "reset@piece:100000")
        said = self.update()
        self.assertEqual((said["failed"], said["changed"]), (True, True))
        self.assertEqual((said["next"], said["exit_code"]), ("check-printer", 16))
        self.assertEqual(said["diff"]["after"], {"MAIN": "unknown", "ENGINE": desk.OLD["ENGINE"]})

    def test_a_missing_printer_fails_without_a_change(self):
        said = self.update()
        self.assertEqual((said["failed"], said["changed"]), (True, False))
        self.assertEqual((said["name"], said["next"], said["exit_code"]), ("connection-lost", "retry", 16))

    def test_another_model_than_expected_is_sent_nothing(self):
        self.printers(0)
        said = self.update(expected_model="Vymprint 210")
        self.assertEqual((said["failed"], said["changed"]), (True, False))
        self.assertEqual((said["name"], said["exit_code"]), ("unexpected-model", None))
        self.assertIn("Vymprint 210, and has Vymprint 200.", said["msg"])
        self.assertEqual(self.received()["MAIN"], set())
        self.assertTrue(self.update(expected_model="Vymprint 200")["changed"])

    def test_a_network_printer_reports_no_serial_number_and_is_refused_if_one_is_expected(self):
        self.printers(0)
        said = self.update(expected_serial="VP0001")
        self.assertEqual((said["failed"], said["name"]), (True, "unexpected-serial"))
        self.assertIn("reports none", said["msg"])
        self.assertEqual(self.received()["MAIN"], set())

    def test_a_serial_number_is_compared_with_the_one_of_the_port_string(self):
        cli = self.script(self.result(address="usb://Acme/P1?serial=S77"))
        self.assertEqual(self.update(printer="desk", vymkit_cli=cli, expected_serial="S7")["name"],
                         "unexpected-serial")
        said = self.update(printer="desk", vymkit_cli=cli, expected_serial="S77")
        self.assertEqual((said["name"], said["changed"]), ("nothing-to-update", False))

    def test_a_package_that_is_missing_or_another_one_is_refused(self):
        rows = [({"package": "/nowhere"}, "no-usable-package"),
                ({"sha256": "0" * 64}, "package-not-trusted")]
        for parameters, name in rows:
            with self.subTest(name=name):
                said = self.update(**parameters)
                self.assertEqual((said["failed"], said["changed"]), (True, False))
                self.assertEqual((said["name"], said["exit_code"]), (name, 66))

    def test_what_the_command_line_calls_wrong_fails_in_its_words(self):
        for parameters in ({"deadline": -1}, {"only": ["NOBODY"]}, {"address": "300.1.1.1"}):
            with self.subTest(parameters=parameters):
                said = self.update(**parameters)
                self.assertEqual((said["failed"], said["changed"]), (True, False))
                self.assertIn(said["exit_code"], (64, 68))

    def test_every_parameter_reaches_the_command_line(self):
        said = self.update(
            uri="lpd://192.0.2.7/x", port=9100, package="/p", sha256="0" * 64, key="k", only=["A", "B"],
            stall_limit=7, verify=8, deadline=600,
            vymkit_cli=self.script(self.result(name="update-available", exit_code=0)))
        self.assertEqual(said["exit_code"], 0)
        check, update = self.words()
        both = ("--json --quiet {}--uri lpd://192.0.2.7/x --port 9100 --package /p --sha256 " + "0" * 64
                + " --key k --only A --only B --skip-same ")
        self.assertRegex(check, "^check " + both.format("") + "--deadline (600|5[0-9][0-9])[.0-9]*$")
        self.assertRegex(update, "^update " + both.format("--yes ")
                         + "--stall-limit 7.0 --verify 8.0 --deadline (600|5[0-9][0-9])[.0-9]*$")

    def test_the_same_version_is_sent_again_only_on_request(self):
        cli = self.script(self.result())
        self.update(vymkit_cli=cli)
        self.update(vymkit_cli=cli, skip_same=False)
        with_it, without_it = self.words()
        self.assertIn("--skip-same", with_it)
        self.assertNotIn("--skip-same", without_it)

    def test_without_a_result_the_state_of_the_run_tells_whether_firmware_was_sent(self):
        available = self.result(name="update-available", exit_code=0)
        rows = [(3, True, "check-printer"), (2, False, "retry")]
        for state, changed, following in rows:
            with self.subTest(state=state):
                cli = self.script({"type": "status", "state": state})
                path = pathlib.Path(cli)
                path.write_text(path.read_text().replace(
                    "cat <<", f"[ $1 = update ] || {{ echo '{json.dumps(available)}'; exit 0; }}\ncat <<"))
                said = self.update(vymkit_cli=cli)
                self.assertEqual((said["failed"], said["changed"]), (True, changed))
                self.assertEqual((said["name"], said["next"], said["exit_code"]),
                                 ("no-result", following, 139))

    def test_a_program_that_is_missing_fails_without_a_change(self):
        for name in ("no-such-vymkit-cli", "/nowhere/vymkit-cli"):
            said = self.update(vymkit_cli=name)
            self.assertEqual(said["failed"], True)
            self.assertIn(name, said["msg"])

    def test_exactly_one_printer_is_named(self):
        self.assertIn("mutually exclusive", self.update(address="a", printer="b")["msg"])
        self.assertIn("one of the following is required", self.call("update")["msg"])
        self.assertIn("Unsupported parameters", self.update(prnter="b", address="a")["msg"])


class PrintersInfo(Modules):
    def test_without_a_print_server_it_fails_with_the_printers_on_usb(self):
        said = self.call("printers_info", package=str(desk.PACKAGE))
        self.assertEqual((said["failed"], said["name"], said["exit_code"]),
                         (True, "print-server-unreachable", 69))
        self.assertEqual(said["printers"], [])

    def test_a_list_is_passed_on_as_it_is_and_never_a_change(self):
        queue = {"name": "Office", "address": "lpd://192.0.2.7/q", "reason": "candidate"}
        cli = self.script({"type": "result", "name": "printers-listed", "exit_code": 0, "next": "none",
                           "message": "One.", "printers": [queue]})
        said = self.call("printers_info", vymkit_cli=cli, all=True, deadline=9)
        self.assertNotIn("failed", said)
        self.assertEqual((said["printers"], said["msg"], said["changed"]), ([queue], "One.", False))
        self.assertEqual(self.words(), ["printers --json --quiet --all --deadline 9.0"])


if __name__ == "__main__":
    unittest.main(verbosity=1)
