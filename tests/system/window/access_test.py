# SPDX-License-Identifier: MIT
"""A screen reader's view: every visible control has a role and a name of its own, and what happens
outside the focus is said."""

import unittest

from accessibility import ROLES, ScreenReader
from case import WizardCase
from peers import EVERY_SYSTEM, SLOW, Package, Printer, PrintSystem

# Containers of other controls, which say nothing themselves.
ROOMS = {"filler", "frame", "layered pane", "panel", "scroll pane", "separator", "viewport"}


class Access(WizardCase):
    def check(self, place):
        nodes = self.wizard.showing()
        for node in nodes:
            with self.subTest(place, role=node.role, name=node.name):
                self.assertIn(node.role, ROLES.values())
                if node.role not in ROOMS and not self.is_silent(node, nodes[0]):
                    self.assertNotEqual(node.name.strip(), "")
                self.assertNotIn(node.name, self.texts.untranslated)
        buttons = [node.name for node in nodes if node.role == "push button"]
        self.assertEqual(len(buttons), len(set(buttons)), f"{place}: buttons with the same name")

    @staticmethod
    def is_silent(node, window):
        """A line that is empty at the moment, and the toolkit's own sign beside a question."""
        return node.role == "label" and not node.text or \
            node.role == "image" and window.role == "alert"

    def walk(self, language):
        self.start_in(language)
        self.check("opening page")
        self.press("Next")
        self.wizard.wait_for(self.texts["Preference_Description"])
        self.check("preparation page")
        self.press("Next")
        self.wizard.find("table cell", "office")
        self.check("device page")
        self.press("Cancel")
        self.wizard.alert(self.texts["Cancel_MesTitle"])
        self.check("cancel question")
        self.press("NO")
        self.press("Next")
        self.wizard.wait_for(self.texts["Guide_Description"])
        self.check("confirmation page")
        self.press("Start")
        self.wizard.alert(self.texts["Confirmation_Normal_Title"])
        self.check("start question")
        self.press("YES")
        self.wizard.wait_for(self.texts.pattern("State_WriteUpdate_Plural"))
        with self.printer.held():
            self.check("progress window")
        self.wizard.alert(self.texts["NormalEndTitle"])
        self.check("last message")

    def start_in(self, language):
        self.use_language(language)
        self.printer = Printer(self.desk, *SLOW)
        queues = PrintSystem(self.desk,
                             ("office", f"lpd://{self.printer.address}/", "Vymprint 200"))
        self.start(Package(self.desk, rows=(EVERY_SYSTEM, "NEEDENTEROPERATION YES")),
                   environment=queues.environment)

    def test_switches_between_printers_and_address_without_a_click(self):
        queues = PrintSystem(self.desk, ("office", "lpd://127.0.0.2/", "Vymprint 200"))
        self.start(Package(self.desk), environment=queues.environment)
        self.to_device_page()
        self.wizard.find("table cell", "office")
        for key in ("Device_SpecifyIPAddress", "Device_SpecifyPrinteName"):
            self.wizard.choose(self.texts[key])
            chosen = [node.name for node in self.wizard.nodes("radio button")
                      if node.has("checked")]
            self.assertEqual(chosen, [self.texts[key]])

    def listen(self):
        """Before the wizard starts, which then sends its notifications from the start."""
        self.reader = ScreenReader(self.desk.environment["DBUS_SESSION_BUS_ADDRESS"])

    def hear(self, text):
        self.wizard.until(lambda: text in self.reader.heard(), f"a screen reader hears {text!r}")

    def test_says_that_the_list_has_come_and_how_long_it_is(self):
        self.listen()
        queues = PrintSystem(self.desk, ("office", "lpd://127.0.0.2/", "Vymprint 200"),
                             ("reception", "lpd://127.0.0.3/", "Vymprint 200"))
        self.start(Package(self.desk), environment=queues.environment)
        self.to_device_page()
        found = self.texts["Device_Found"]
        self.hear(found.replace("%u", "2"))
        queues.process.terminate()
        queues.process.wait()
        self.press("Device_SearchAgain")
        self.hear(found.replace("%u", "0"))

    def test_says_each_stage_of_a_run_and_why_the_window_stays_open(self):
        self.listen()
        printer = Printer(self.desk, *SLOW)
        self.start(Package(self.desk))
        self.to_run(printer.address)
        writing = self.wizard.wait_for(self.texts.pattern("State_WriteUpdate_Plural")).text
        self.hear(writing)
        with printer.held():
            self.wizard.close_window()
            self.hear(self.texts["Update_CloseRefused"])
        said = [self.texts["State_Connection"], writing, self.texts["Update_CloseRefused"]]
        heard = [text for text in self.reader.heard() if text in said]
        self.assertEqual(heard, said)  # each once, in this order

    def test_names_every_control_in_english(self):
        self.walk("en")

    def test_names_every_control_in_japanese(self):
        self.walk("ja")


if __name__ == "__main__":
    unittest.main()
