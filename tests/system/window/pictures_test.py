# SPDX-License-Identifier: MIT
"""Pictures of every page, question and final message, for people to look at, in folder PICTURES.

A picture cannot fail, but the way to the place where it is taken can.
"""

import os
import pathlib
import unittest

from camera import dark_desktop, picture
from case import WizardCase
from desk import Desk
from peers import EVERY_SYSTEM, SLOW, Firmware, Package, Printer, PrintSystem

PICTURES = pathlib.Path(os.environ.get("VYMKIT_PICTURES", "build/dev/pictures"))
BY_HAND = (EVERY_SYSTEM, "NEEDENTEROPERATION YES")  # shows the line about the download mode
USUAL, SMALL = (1024, 768), (800, 480)
TWICE = {"size": (2048, 1536), "environment": {"QT_SCALE_FACTOR": "2"}}

# All other final messages of a run: the title's key, and the printer's options that cause it.
ENDS = {
    "nothing-to-do": ("NoUpdateEndTitle", ["--firmware", "MAIN=AB010300"]),
    "device-error": ("Error_DeviceErrorTitle", ["--fault", "status-0803@piece"]),
    "damaged": ("Error_ConnectErrorTitle", ["--fault", "bad-checksum"]),
    "busy": ("Error_DeviceBusyTitle", ["--fault", "refuse-busy"]),
    "fax": ("Error_FaxTitle", ["--fault", "refuse-fax"]),
    "no-connection": ("Error_PoweredOffTitle", ["--fault", "reset@enter"]),
    "other-model": ("Error_ModelMismatchTitle", ["--fault", "wrong-model"]),
    "too-old": ("Error_CompatibleTitle", ["--firmware", "MAIN=AB010100"]),
    "system": ("Error_SystemTitle", ["--fault", "no-model"]),
    "other": ("Error_OtherTitle", ["--fault", "garbage@enter"]),
}
ABREAST = 5  # with more, the printers' time-outs pass on a small machine
NEEDS_NEWER = [Firmware(version="AB010300", more=" COMPATIBLE=AB010200")]


class Walk(WizardCase):
    def setUp(self):
        PICTURES.mkdir(parents=True, exist_ok=True)

    def walk(self, language, name, size=USUAL, dark=False, environment=None):
        """From the first page to the last message, with a picture at every step."""
        self.name = f"{language}-{name}"
        self.whole_screen = size == SMALL
        self.take_desk(Desk(*size))
        self.use_language(language)
        self.printer = printer = Printer(self.desk, *SLOW)
        queues = PrintSystem(self.desk, ("office", f"lpd://{printer.address}/", "Vymprint 200"),
                             ("reception", "lpd://192.0.2.17/queue", "Vymprint 210"))
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

    def run_to_the_end(self):
        with self.printer.held():
            self.press("YES")
            self.wizard.wait_for(self.texts["State_Connection"])
            self.keep("5-connecting")
        self.wizard.wait_for(self.texts.pattern("State_WriteUpdate_Plural"))
        with self.printer.held():
            self.keep("5-writing")
            self.wizard.close_window()
            self.wizard.wait_for(self.texts["Update_CloseRefused"])
            self.keep("5-stays-open")
        self.wizard.alert(self.texts["NormalEndTitle"])
        self.keep("6-done")

    def ends(self, language):
        self.take_desk(Desk(*USUAL, screens=ABREAST))
        self.use_language(language)
        self.package = Package(self.desk, NEEDS_NEWER)
        names = list(ENDS)
        for first in range(0, len(names), ABREAST):
            self.ends_abreast(language, names[first:first + ABREAST])

    def ends_abreast(self, language, names):
        """Runs side by side, each on a screen of its own. All screens share one keyboard, and a run's
        windows grab it, so every address is typed before the first run begins."""
        wizards = []
        for screen, name in enumerate(names):
            options = ENDS[name][1]
            installed = [] if "--firmware" in options else ["MAIN=AB010200"]
            printer = Printer(self.desk, *options, number=list(ENDS).index(name),
                              installed=installed)
            self.start(self.package, screen=screen)
            self.to_confirmation(printer.address)
            wizards.append(self.wizard)
        for self.wizard in wizards:
            self.confirm()
        for name, self.wizard in zip(names, wizards):
            self.wizard.alert(self.texts[ENDS[name][0]])
            picture(self.wizard, PICTURES / f"{language}-light-6-{name}.png")
            self.press("OK")
            self.wizard.exit_code()


class Picture(Walk):
    """Few walks, which together show every size, both colours and both languages."""

    def test_of_an_unsupported_system(self):
        for language in ("en", "ja"):
            self.take_desk(Desk(*USUAL))
            self.use_language(language)
            package = Package(self.desk, rows=["PLATFORMVERSION MACOS=9999"])
            self.wizard = self.start_unseen("--package", package.folder)
            self.wizard.alert(self.texts["VYM_UnSupportOS_Title"])
            picture(self.wizard, PICTURES / f"{language}-light-0-unsupported.png")

    def test_of_a_device_page_without_printers(self):
        for language in ("en", "ja"):
            self.take_desk(Desk(*USUAL))
            self.use_language(language)
            self.start(Package(self.desk))
            self.to_device_page()
            self.wizard.wait_for(self.texts["Device_NoPrinters"])
            picture(self.wizard, PICTURES / f"{language}-light-3-no-printers.png")

    def test_in_english(self):
        self.walk("en", "light")

    def test_in_english_on_a_small_screen(self):
        self.walk("en", "light-800x480", SMALL)

    def test_in_japanese_dark_at_200_percent(self):
        self.walk("ja", "dark-200", dark=True, **TWICE)


class LongPicture(Walk):
    """The other walks, and the other final messages: "./test long"."""

    def test_of_every_end_in_english(self):
        self.ends("en")

    def test_of_every_end_in_japanese(self):
        self.ends("ja")

    def test_in_english_and_dark(self):
        self.walk("en", "dark", dark=True)

    def test_in_english_at_200_percent(self):
        self.walk("en", "light-200", **TWICE)

    def test_in_english_dark_at_200_percent(self):
        self.walk("en", "dark-200", dark=True, **TWICE)

    def test_in_english_dark_on_a_small_screen(self):
        self.walk("en", "dark-800x480", SMALL, dark=True)

    def test_in_japanese(self):
        self.walk("ja", "light")

    def test_in_japanese_and_dark(self):
        self.walk("ja", "dark", dark=True)

    def test_in_japanese_at_200_percent(self):
        self.walk("ja", "light-200", **TWICE)

    def test_in_japanese_on_a_small_screen(self):
        self.walk("ja", "light-800x480", SMALL)

    def test_in_japanese_dark_on_a_small_screen(self):
        self.walk("ja", "dark-800x480", SMALL, dark=True)


if __name__ == "__main__":
    unittest.main()
