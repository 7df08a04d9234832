# SPDX-License-Identifier: MIT
"""How the wizard starts: on good packages, on bad ones, and with parts of it missing."""

import shutil
import unittest

from case import WizardCase
from peers import Package, PrintSystem
from wizard import BIN

UNUSABLE = 66  # the exit code for a file that cannot be read


class Start(WizardCase):
    def assert_unsupported(self, *arguments):
        """The wizard says that the system is not supported, and ends; returns all its texts."""
        self.wizard = self.start_unseen(*arguments)
        texts = self.wizard.alert(self.texts["VYM_UnSupportOS_Title"])
        self.assert_says("VYM_UnSupportOS_Mes", texts)
        self.press("OK")
        self.wizard.exit_code()
        return self.wizard.errors()

    def test_lists_the_firmware_of_the_package(self):
        wizard = self.start(Package(self.desk))
        cells = [node.name for node in wizard.nodes("table cell")]
        self.assertEqual(cells, ["Main controller", "AB010200", "Boot loader", "AB010300"])
        self.assertTrue(wizard.shows("Vymprint 200"))

    def test_refuses_a_system_that_the_package_does_not_support(self):
        package = Package(self.desk, rows=["PLATFORMVERSION MACOS=9999"])
        self.assert_unsupported("--package", package.folder)

    def test_tells_the_true_reason_where_the_package_is_damaged(self):
        package = Package(self.desk)
        package.file.write_bytes(package.file.read_bytes()[:-9])
        self.assertIn("VYMBINDDATA", self.assert_unsupported("--package", package.folder))

    def test_tells_the_true_reason_where_there_is_no_package(self):
        folder = self.desk.folder / "empty"
        folder.mkdir()
        self.assertIn(str(folder), self.assert_unsupported("--package", folder))
        [log] = self.logs()
        self.assertIn(f"package: {folder}\nproblem: The folder '{folder}' holds no", log)

    def test_takes_the_package_that_lies_beside_it(self):
        package = Package(self.desk)
        program = package.folder / "vymkit"
        shutil.copy(BIN / "vymkit", program)
        shutil.copy(BIN / "MainWindow.ui", package.folder)
        self.wizard = self.start_unseen(program=program)
        self.wizard.wait_for("Vymprint 200")

    def test_lets_the_user_choose_a_package_by_keyboard_where_there_is_none(self):
        self.use_language("de")
        package = Package(self.desk)
        folder = self.desk.folder / "program"
        folder.mkdir()
        for name in ("vymkit", "MainWindow.ui"):
            shutil.copy(BIN / name, folder)
        self.wizard = self.start_unseen(program=folder / "vymkit")
        self.wizard.wait_for(self.texts["Start_NoPackage"])
        self.wizard.focused("push button", self.texts["Start_ChoosePackage"])
        self.wizard.keys("space")
        self.wizard.wait_for("Suchen in:")  # the toolkit's own words are in the user's language
        self.wizard.focused("text")
        self.wizard.fill(str(package.file))
        self.wizard.keys("Return")
        self.wizard.wait_for("Vymprint 200")
        self.wizard.wait_for(self.texts["Start_Description"])

    def test_saves_a_report_where_the_package_is_damaged(self):
        package = Package(self.desk)
        package.file.write_bytes(package.file.read_bytes()[:-9])
        self.wizard = self.start_unseen("--package", package.folder)
        self.wizard.alert(self.texts["VYM_UnSupportOS_Title"])
        self.press("Report_Save")
        self.wizard.find("text")
        self.wizard.focused("text")
        report = self.desk.folder / "report.txt"
        self.wizard.fill(str(report))
        self.wizard.keys("Return")
        self.wizard.alert(self.texts["Report_Saved"])
        self.press("OK")
        self.wizard.alert(self.texts["VYM_UnSupportOS_Title"])
        self.press("OK")
        self.assertEqual(self.wizard.exit_code(), 0)
        text = report.read_text(encoding="utf-8")
        self.assertIn("problem, package: ", text)
        self.assertNotIn(str(package.folder), text)

    def test_ends_without_a_window_where_its_interface_file_is_missing(self):
        program = self.desk.folder / "vymkit"
        shutil.copy(BIN / "vymkit", program)
        wizard = self.start_unseen("--package", Package(self.desk).folder, program=program)
        self.assertEqual(wizard.exit_code(), UNUSABLE)
        self.assertEqual(len(wizard.errors().splitlines()), 1)
        self.assertIn("MainWindow.ui", wizard.errors())

    def test_leaves_only_the_address_where_there_is_no_printer_to_choose(self):
        self.start(Package(self.desk))
        self.to_device_page()
        self.wizard.wait_for(self.texts["Device_NoPrinters"])
        by_name = self.wizard.find("radio button", self.texts["Device_SpecifyPrinteName"])
        by_address = self.wizard.find("radio button", self.texts["Device_SpecifyIPAddress"])
        self.assertFalse(by_name.has("enabled"))
        self.assertTrue(by_address.has("checked"))

    def test_offers_the_printer_list_first_where_there_are_queues(self):
        queues = PrintSystem(self.desk, ("office", "lpd://127.0.0.2/", "Vymprint 200"))
        self.start(Package(self.desk), environment=queues.environment)
        self.to_device_page()
        self.wizard.find("table cell", "office")
        by_name = self.wizard.find("radio button", self.texts["Device_SpecifyPrinteName"])
        self.assertTrue(by_name.has("checked"))


if __name__ == "__main__":
    unittest.main()
