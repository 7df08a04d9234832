"""Pictures of every page, question and end, to be looked at: they lie in the folder PICTURES.

A picture cannot fail; what it takes to get to the place where it is taken can.
"""

import os
import pathlib
import unittest

from camera import dark_desktop, picture
from case import WizardCase
from desk import Desk
from peers import EVERY_SYSTEM, SLOW, Package, Printer, PrintSystem

PICTURES = pathlib.Path(os.environ.get("VYMKIT_PICTURES", "build/dev/pictures"))
BY_HAND = (EVERY_SYSTEM, "NEEDENTEROPERATION YES")  # shows the line about the download mode
ENDS = {  # what the last message is about: its title's key, and how the printer brings it about
    "nothing-to-do": ("NoUpdateEndTitle", ["--installed", "MAIN=AB010200"]),
    "device-error": ("Error_DeviceErrorTitle", ["--fault", "status-0803@piece"]),
    "connection": ("Error_ConnectErrorTitle", ["--fault", "bad-checksum"]),
    "busy": ("Error_DeviceBusyTitle", ["--fault", "refuse-busy"]),
    "fax": ("Error_FaxTitle", ["--fault", "refuse-fax"]),
    "powered-off": ("Error_PoweredOffTitle", ["--fault", "reset@enter"]),
    "model": ("Error_ModelMismatchTitle", ["--fault", "wrong-model"]),
    "system": ("Error_SystemTitle", ["--fault", "no-model"]),
    "other": ("Error_OtherTitle", ["--fault", "garbage@enter"]),
}


class Picture(WizardCase):
    def setUp(self):
        PICTURES.mkdir(parents=True, exist_ok=True)

    def walk(self, language, name, size=(1280, 1024), dark=False, environment=None):
        """From the first page to the last message, with a picture at every step."""
        self.name = f"{language}-{name}"
        self.whole_screen = size == SMALL
        self.take_desk(Desk(*size))
        self.use_language(language)
        printer = Printer(self.desk, *SLOW)
        queues = PrintSystem(self.desk, ("office", f"lpd://{printer.address}/", "Model A"),
                             ("reception", "lpd://192.0.2.17/queue", "Model A Plus"))
        environment = {**(environment or {}), **queues.environment,
                       **(dark_desktop(self.desk) if dark else {})}
        self.start(Package(self.desk, rows=BY_HAND), environment=environment)
        self.pages()
        self.questions()
        self.run_to_the_end()

    def keep(self, place):
        picture(self.wizard, PICTURES / f"{self.name}-{place}.png", self.whole_screen)

    def pages(self):
        self.keep("1-opening")
        self.press("Next")
        self.wizard.wait_for(self.texts["Preference_Description"])
        self.keep("2-preparation")
        self.press("Next")
        self.wizard.find("table cell", "office")
        self.keep("3-device")
        self.wizard.choose(self.texts["Device_SpecifyIPAddress"])
        self.keep("3-device-address")
        self.press("Next")
        self.wizard.alert(self.texts["Device_AlertInputAddressTitle"])
        self.keep("3-no-address")
        self.press("OK")
        self.wizard.choose(self.texts["Device_SpecifyPrinteName"])
        self.press("Next")
        self.wizard.wait_for(self.texts["Guide_Description"])
        self.keep("4-confirmation")

    def questions(self):
        self.press("Cancel")
        self.wizard.alert(self.texts["Cancel_MesTitle"])
        self.keep("4-cancel")
        self.press("NO")
        self.press("Start")
        self.wizard.alert(self.texts["Confirmation_Normal_Title"])
        self.keep("4-start")
        self.press("YES")

    def run_to_the_end(self):
        self.wizard.wait_for(self.texts["State_Connection"])
        self.keep("5-connecting")
        self.wizard.wait_for(self.texts.pattern("State_WriteUpdate_Plural"))
        self.keep("5-writing")
        self.wizard.close_window()
        self.wizard.wait_for(self.texts["Update_CloseRefused"])
        self.keep("5-stays-open")
        self.wizard.alert(self.texts["NormalEndTitle"])
        self.keep("6-done")

    def test_in_english(self):
        self.walk("en", "light")

    def test_in_english_and_dark(self):
        self.walk("en", "dark", dark=True)

    def test_in_english_at_200_percent(self):
        self.walk("en", "light-200", **TWICE)

    def test_in_english_dark_at_200_percent(self):
        self.walk("en", "dark-200", dark=True, **TWICE)

    def test_in_english_on_a_small_screen(self):
        self.walk("en", "light-800x480", SMALL)

    def test_in_english_dark_on_a_small_screen(self):
        self.walk("en", "dark-800x480", SMALL, dark=True)

    def test_in_japanese(self):
        self.walk("ja", "light")

    def test_in_japanese_and_dark(self):
        self.walk("ja", "dark", dark=True)

    def test_in_japanese_at_200_percent(self):
        self.walk("ja", "light-200", **TWICE)

    def test_in_japanese_dark_at_200_percent(self):
        self.walk("ja", "dark-200", dark=True, **TWICE)

    def test_in_japanese_on_a_small_screen(self):
        self.walk("ja", "light-800x480", SMALL)

    def test_in_japanese_dark_on_a_small_screen(self):
        self.walk("ja", "dark-800x480", SMALL, dark=True)


SMALL = (800, 480)
TWICE = {"size": (2560, 2048), "environment": {"QT_SCALE_FACTOR": "2"}}

if __name__ == "__main__":
    unittest.main()
