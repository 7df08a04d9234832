# SPDX-License-Identifier: MIT
"""The windows of a run where screens are small or letters large: OK and the reason why the window
stays open are on the screen. In German, which has the longest words; with pictures in PICTURES."""

import os
import pathlib
import unittest

from camera import large_letters, picture
from case import WizardCase
from desk import Desk
from peers import SLOWER, Firmware, Package, Printer

PICTURES = pathlib.Path(os.environ.get("VYMKIT_PICTURES", "build/dev/pictures"))
# Depending on its time, a printer that vanishes appears as an end or as an error of the link.
ENDS = ("Error_OtherTitle", "Error_PoweredOffTitle")


class NarrowScreen(WizardCase):
    def setUp(self):
        PICTURES.mkdir(parents=True, exist_ok=True)

    def run_until_the_printer_vanishes(self, name, size, environment=None, letters=None):
        self.take_desk(Desk(*size))
        self.use_language(os.environ.get("VYMKIT_LANGUAGE", "de"))
        environment = {**(environment or {}), **(large_letters(self.desk, letters) if letters else {})}
        self.name, self.size = f"{self.language}-{name}", size
        printer = Printer(self.desk, *SLOWER)
        self.start(Package(self.desk, [Firmware(size=200000), Firmware("BOOT", size=9001)]),
                   environment=environment)
        self.to_run(printer.address)
        self.wizard.wait_for(self.texts.pattern("State_WriteUpdate_Plural"))
        with printer.held():
            self.wizard.close_window()
            reason = self.wizard.wait_for(self.texts["Update_CloseRefused"])
            self.keep("5-stays-open")
            self.assert_on_screen(reason)
            self.assert_on_screen(self.wizard.find("progress bar"))
            printer.vanish()
        self.wizard.alert(*(self.texts[title] for title in ENDS))
        self.keep("6-result")
        self.assert_on_screen(self.ok())
        self.wizard.press(self.texts["Details_Button"], "check box")
        self.keep("6-details")
        self.assert_on_screen(self.ok())
        self.press("OK")
        self.assertEqual(self.wizard.exit_code(), 0)

    def keep(self, place):
        picture(self.wizard, PICTURES / f"{self.name}-{place}.png", whole_screen=True)

    def ok(self):
        return self.wizard.find("push button", self.texts["OK"])

    def assert_on_screen(self, node):
        left, top, width, height = node.box
        self.assertTrue(left >= 0 and top >= 0 and left + width <= self.size[0]
                        and top + height <= self.size[1] and width > 0 and height > 0,
                        f"{node.role} {node.name!r} at {node.box}")

    def test_shows_reason_and_result_on_800x480_at_150_percent(self):
        self.run_until_the_printer_vanishes("800x480-150", (800, 480), {"QT_SCALE_FACTOR": "1.5"})

    def test_shows_reason_and_result_on_1280x800_in_24_points(self):
        self.run_until_the_printer_vanishes("1280x800-24pt", (1280, 800), letters=24)


if __name__ == "__main__":
    unittest.main()
