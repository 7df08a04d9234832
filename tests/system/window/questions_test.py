# SPDX-License-Identifier: MIT
"""Every question answered with no, and questions that must be answered."""

import signal
import unittest

from case import WizardCase
from peers import EVERY_SYSTEM, EndlessPrintSystem, Package

NOWHERE = "127.255.255.254"


class Question(WizardCase):
    def no_to_cancel(self):
        self.wizard.alert(self.texts["Cancel_MesTitle"])
        self.press("NO")
        self.wizard.until(lambda: not self.wizard.nodes("alert"), "the question goes")

    def test_of_cancelling_answered_with_no_stays_on_each_page(self):
        self.start(Package(self.desk))
        pages = ("Start_Description", "Preference_Description", "Device_Description")
        for page in pages:
            self.wizard.wait_for(self.texts[page])
            self.press("Cancel")
            self.no_to_cancel()
            self.wizard.wait_for(self.texts[page])
            self.wizard.keys("Escape")
            self.no_to_cancel()
            self.wizard.wait_for(self.texts[page])
            self.press("Next")

    def test_of_cancelling_answered_with_yes_ends_the_wizard(self):
        self.start(Package(self.desk))
        self.press("Next")
        self.wizard.wait_for(self.texts["Preference_Description"])
        self.press("Cancel")
        self.wizard.alert(self.texts["Cancel_MesTitle"])
        self.press("YES")
        self.assertEqual(self.wizard.exit_code(), 0)

    def search_without_end(self):
        """The device page, while a search goes on that ends only with the wizard."""
        server = EndlessPrintSystem(self.desk)
        self.addCleanup(server.close)
        self.start(Package(self.desk), environment=server.environment)
        self.to_device_page()
        server.wait_until_asked()
        self.wizard.wait_for(self.texts["Device_Searching"])
        self.assertTrue(server.answers)

    def test_of_cancelling_answered_with_yes_ends_the_wizard_in_the_middle_of_a_search(self):
        self.search_without_end()
        self.press("Cancel")
        self.wizard.alert(self.texts["Cancel_MesTitle"])
        self.press("YES")
        self.assertEqual(self.wizard.exit_code(), 0)

    def test_is_not_asked_where_the_system_ends_the_wizard_in_the_middle_of_a_search(self):
        self.search_without_end()
        self.wizard.process.send_signal(signal.SIGTERM)
        self.assertEqual(self.wizard.exit_code(), 0)

    def test_of_starting_answered_with_no_asks_about_cancelling_and_then_stays(self):
        self.start(Package(self.desk))
        self.to_confirmation(NOWHERE)
        self.press("Start")
        self.wizard.alert(self.texts["Confirmation_Normal_Title"])
        self.press("NO")
        self.no_to_cancel()
        self.wizard.wait_for(self.texts["Guide_Description"])
        self.assertTrue(self.wizard.shows(NOWHERE))

    def test_of_starting_answered_with_no_and_then_with_yes_ends_the_wizard(self):
        self.start(Package(self.desk))
        self.to_confirmation(NOWHERE)
        self.press("Start")
        self.wizard.alert(self.texts["Confirmation_Normal_Title"])
        self.press("NO")
        self.wizard.alert(self.texts["Cancel_MesTitle"])
        self.press("YES")
        self.assertEqual(self.wizard.exit_code(), 0)

    def test_of_starting_warns_of_older_firmware_where_the_package_always_sends(self):
        self.start(Package(self.desk, rows=(EVERY_SYSTEM, "ALLOWVERSIONDOWN YES")))
        self.to_confirmation(NOWHERE)
        self.press("Start")
        texts = self.wizard.alert(self.texts["Confirmation_VerDown_Title"])
        self.assert_says("Confirmation_VerDown_Description", texts)
        self.press("NO")
        self.no_to_cancel()

    def test_holds_the_window_behind_it_up(self):
        self.start(Package(self.desk))
        behind = self.wizard.find("push button", self.texts["Next"])
        self.press("Cancel")
        self.wizard.alert(self.texts["Cancel_MesTitle"])
        with self.assertRaisesRegex(RuntimeError, "behind a question"):
            self.wizard.act(behind)
        self.wizard.click(behind)
        self.press("NO")
        self.wizard.wait_for(self.texts["Start_Description"])

    def test_for_an_address_comes_where_none_is_typed(self):
        self.start(Package(self.desk))
        self.to_device_page()
        self.press("Next")
        self.wizard.alert(self.texts["Device_AlertInputAddressTitle"])
        self.press("OK")
        self.wizard.wait_for(self.texts["Device_Description"])
        self.wizard.focused("text")


if __name__ == "__main__":
    unittest.main()
