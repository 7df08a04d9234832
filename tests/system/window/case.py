# SPDX-License-Identifier: MIT
"""The base of the window's tests: a desk for each test, and the way through the pages."""

import pathlib
import unittest

from desk import Desk
from texts import Texts
from wizard import Wizard

LOCALES = {"en": "en_US.UTF-8", "de": "de_DE.UTF-8", "fr": "fr_FR.UTF-8", "ja": "ja_JP.UTF-8"}


class WizardCase(unittest.TestCase):
    def setUp(self):
        self.take_desk(Desk())
        self.use_language("en")

    def take_desk(self, desk):
        self.desk = desk
        self.addCleanup(desk.close)

    def use_language(self, language):
        self.language = language
        self.texts = Texts(language)

    def start(self, package, **how):
        """Starts the wizard with that package; it shows its opening page."""
        self.wizard = self.start_unseen("--package", package.folder, **how)
        self.wizard.wait_for(self.texts["Start_Description"])
        return self.wizard

    def start_unseen(self, *arguments, **how):
        return Wizard(self.desk, *arguments, language=LOCALES[self.language], **how)

    def press(self, key):
        self.wizard.press(self.texts[key])

    def to_device_page(self):
        self.press("Next")
        self.wizard.wait_for(self.texts["Preference_Description"])
        self.press("Next")
        self.wizard.wait_for(self.texts["Device_Description"])

    def to_confirmation(self, address):
        """Goes to the confirmation page with a typed address."""
        self.to_device_page()
        self.wizard.wait_for(self.texts["Device_NoPrinters"])
        self.wizard.click(self.wizard.find("text"))
        self.wizard.type_address(address)
        self.press("Next")
        self.wizard.wait_for(self.texts["Guide_Description"])

    def to_run(self, address):
        self.to_confirmation(address)
        self.confirm()

    def confirm(self):
        self.press("Start")
        self.wizard.alert(self.texts["Confirmation_Normal_Title"])
        self.press("YES")

    def ends_with(self, *ends):
        """Checks that the run's last message is one of these; OK then ends the program."""
        titles = [self.texts[title] for title, _ in ends]
        texts = self.wizard.alert(*titles)
        self.assert_says(ends[titles.index(texts[0])][1], texts)
        self.press("OK")
        self.assertEqual(self.wizard.exit_code(), 0)

    def logs(self):
        """The logs of the programs on this desk, the oldest first."""
        folder = pathlib.Path(self.desk.environment["XDG_STATE_HOME"])
        return [log.read_text(encoding="utf-8") for log in sorted(folder.glob("vymkit/run-*.log"))]

    def assert_says(self, key, texts):
        """A message may have details below its own words."""
        self.assertTrue(any(text.startswith(self.texts[key]) for text in texts), texts)

    def assert_stored(self, printer, package):
        for one in package.firmware:
            self.assertTrue(printer.stored(one) == one.bytes(), one.name)
