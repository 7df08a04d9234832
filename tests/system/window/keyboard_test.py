# SPDX-License-Identifier: MIT
"""The whole way with the keyboard alone; the accessibility bus is only read."""

import unittest

from case import WizardCase
from peers import BOTH, Package, Printer, PrintSystem


class Keyboard(WizardCase):
    def alt(self, key):
        self.wizard.keys(f"alt+{self.texts.mnemonic(key)}")

    def test_leads_from_the_first_page_to_the_result(self):
        package, printer = Package(self.desk, BOTH[:1]), Printer(self.desk)
        self.start(package)
        self.wizard.keys("Return")
        self.wizard.wait_for(self.texts["Preference_Description"])
        self.alt("Back")
        self.wizard.wait_for(self.texts["Start_Description"])
        self.alt("Next")
        self.wizard.wait_for(self.texts["Preference_Description"])
        self.wizard.keys("Return")
        self.wizard.wait_for(self.texts["Device_NoPrinters"])
        self.wizard.type_address(printer.address)
        self.wizard.keys("Return")
        self.wizard.wait_for(self.texts["Guide_Description"])
        self.wizard.wait_for(printer.address)
        self.wizard.keys("Return")
        self.wizard.alert(self.texts["Confirmation_Normal_Title"])
        with printer.held():
            self.alt("YES")
            self.wizard.wait_for(self.texts["Update_Precaution"])
            self.wizard.keys("Escape", "Return", "space")
        self.wizard.alert(self.texts["NormalEndTitle"])
        self.wizard.keys("Return")
        self.assertEqual(self.wizard.exit_code(), 0)
        self.assert_stored(printer, package)

    def test_reaches_printers_and_address_and_buttons_in_turn(self):
        queues = PrintSystem(self.desk, ("office", "lpd://127.0.0.2/", "Vymprint 200"),
                             ("reception", "lpd://127.0.0.3/", "Vymprint 200"))
        self.start(Package(self.desk), environment=queues.environment)
        self.wizard.keys("Return")
        self.wizard.wait_for(self.texts["Preference_Description"])
        self.wizard.keys("Return")
        self.wizard.find("table cell", "office")
        self.wizard.keys("Down")
        self.wizard.until(lambda: self.chosen() == ["reception"], "the second printer is chosen")
        self.wizard.keys("Tab")
        self.wizard.focused("radio button", self.texts["Device_SpecifyIPAddress"])
        self.wizard.keys("space")
        self.wizard.focused("text")
        self.assertEqual(self.chosen(), [])
        self.wizard.keys("shift+Tab", "shift+Tab")
        self.wizard.focused("radio button", self.texts["Device_SpecifyPrinteName"])
        self.wizard.keys("space")
        self.wizard.until(lambda: self.chosen() == ["reception"], "the choice comes back")
        self.wizard.keys("Return")
        self.wizard.wait_for("lpd://127.0.0.3/")

    def chosen(self):
        cells = [node for node in self.wizard.nodes("table cell") if node.has("selected")]
        return [cell.name for cell in cells[:1]]

    def test_leaves_a_question_by_its_safe_answer(self):
        self.start(Package(self.desk))
        for key in ("Return", "Escape"):
            self.wizard.keys("Escape")
            self.wizard.alert(self.texts["Cancel_MesTitle"])
            self.wizard.keys(key)
            self.wizard.until(lambda: not self.wizard.nodes("alert"), "the question goes")
            self.wizard.wait_for(self.texts["Start_Description"])
        self.wizard.keys("Escape")
        self.wizard.alert(self.texts["Cancel_MesTitle"])
        self.alt("YES")
        self.assertEqual(self.wizard.exit_code(), 0)


if __name__ == "__main__":
    unittest.main()
