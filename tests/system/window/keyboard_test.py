# SPDX-License-Identifier: MIT
"""The whole way with the keyboard alone; the accessibility bus is only read."""

import unittest

from case import WizardCase
from peers import BOTH, Package, Printer, PrintSystem
from x11 import Bell


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

    def test_rings_the_bell_at_a_fourth_digit_and_at_no_other_key(self):
        self.start(Package(self.desk))
        self.to_device_page()
        self.wizard.wait_for(self.texts["Device_NoPrinters"])
        self.wizard.click(self.wizard.find("text"))
        bell = Bell(self.wizard.screen["DISPLAY"])
        self.addCleanup(bell.close)
        self.wizard.type_address("192.0.2.99")
        self.wizard.type("x9")
        self.wait_for_address("192.0.2.255")
        self.assertEqual(bell.rings(), 0)
        self.wizard.type("1")
        self.wizard.until(lambda: bell.rings() == 1, "the bell rings")
        self.wizard.keys("BackSpace")
        self.wait_for_address("192.0.2.25")
        self.assertEqual(bell.rings(), 1)

    def wait_for_address(self, address):
        self.wizard.until(lambda: [node.text for node in self.wizard.nodes("text")]
                          == address.split("."), f"the address {address}")

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
