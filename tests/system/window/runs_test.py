# SPDX-License-Identifier: MIT
"""Whole updates through the real window, with a printer that keeps the bytes it receives."""

import signal
import unittest

from case import WizardCase
from peers import (BOTH, EVERY_SYSTEM, SLOW, Firmware, Nameless, Package, Printer, PrintSystem,
                   UncheckedPackage)


class Run(WizardCase):
    def test_brings_every_byte_to_the_printer_at_a_typed_address(self):
        package, printer = Package(self.desk), Printer(self.desk, *SLOW)
        self.start(package)
        with printer.held():
            self.to_run(printer.address)
            self.wizard.wait_for(self.texts["State_Connection"])
        self.wizard.wait_for(self.texts.pattern("State_WriteUpdate_Plural"))
        self.ends_with(("NormalEndTitle", "NormalEnd_AutoMes"))
        self.assert_stored(printer, package)

    def test_brings_every_byte_to_the_printer_behind_a_queue(self):
        package, printer = Package(self.desk, BOTH[:1]), Printer(self.desk)
        queues = PrintSystem(self.desk, ("far", "lpd://127.0.0.2/", "Vymprint 210"),
                             ("near", f"lpd://{printer.address}/", "Vymprint 200"),
                             ("other", f"lpd://{printer.address}/x", "Another Maker 7"))
        self.start(package, environment=queues.environment)
        self.to_device_page()
        self.wizard.click(self.wizard.find("table cell", "near"))
        self.press("Next")
        self.wizard.wait_for(f"lpd://{printer.address}/")
        self.confirm()
        self.ends_with(("NormalEndTitle", "NormalEnd_AutoMes"))
        self.assert_stored(printer, package)

    def test_says_that_there_is_nothing_to_do_where_the_printer_has_it_all(self):
        package = Package(self.desk, BOTH[:1])
        printer = Printer(self.desk, installed=["MAIN=AB010200"])
        self.start(package)
        self.to_run(printer.address)
        self.ends_with(("NoUpdateEndTitle", "NoUpdateEnd_AutoMes"))
        self.assertIsNone(printer.stored(BOTH[0]))

    def test_ends_with_a_message_when_the_printer_vanishes_in_the_middle(self):
        package = Package(self.desk, [Firmware(size=200000)])
        printer = Printer(self.desk, *SLOW)
        self.start(package)
        self.to_run(printer.address)
        self.wizard.wait_for(self.texts["State_WriteUpdate"])
        printer.vanish()
        # Depending on its time, a cut appears as an end or as an error of the link.
        self.ends_with(("Error_OtherTitle", "Error_OtherMes"),
                       ("Error_PoweredOffTitle", "Error_PoweredOffMes"))

    def test_says_so_when_no_printer_answers_at_the_address(self):
        self.start(Package(self.desk))
        self.to_run("127.255.255.254")
        self.ends_with(("Error_PoweredOffTitle", "Error_PoweredOffMes"))

    def test_keeps_the_progress_window_open_and_says_why_when_somebody_closes_it(self):
        package, printer = Package(self.desk, BOTH[:1]), Printer(self.desk, *SLOW)
        self.start(package)
        self.to_run(printer.address)
        self.wizard.wait_for(self.texts["State_WriteUpdate"])
        with printer.held():
            self.wizard.close_window()
            self.wizard.wait_for(self.texts["Update_CloseRefused"])
            self.wizard.keys("Escape")
        self.ends_with(("NormalEndTitle", "NormalEnd_AutoMes"))
        self.assert_stored(printer, package)

    def test_goes_on_to_its_end_when_the_system_asks_it_to_stop(self):
        package, printer = Package(self.desk, BOTH[:1]), Printer(self.desk, *SLOW)
        self.start(package)
        self.to_run(printer.address)
        self.wizard.wait_for(self.texts["State_WriteUpdate"])
        with printer.held():
            for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
                self.wizard.process.send_signal(number)
            self.wizard.wait_for(self.texts["Update_CloseRefused"])
        self.ends_with(("NormalEndTitle", "NormalEnd_AutoMes"))
        self.assert_stored(printer, package)
        self.assertIn("note: signal", self.logs()[0])

    def finishes_when(self, the_window_ends, why):
        package, printer = Package(self.desk, BOTH[:1]), Printer(self.desk, *SLOW)
        self.start(package)
        self.to_run(printer.address)
        self.wizard.wait_for(self.texts["State_WriteUpdate"])
        with printer.held():
            the_window_ends()
        code = self.wizard.exit_code()
        self.assert_stored(printer, package)
        self.assertIn(f"note: {why}", self.logs()[0])
        self.assertRegex(self.logs()[0], r"\nresult: .*\nended: .*\n$")
        return code

    def test_finishes_what_is_being_sent_when_the_display_goes_away(self):
        def go_away():
            self.desk.x_server.kill()
            self.desk.x_server.wait()
        self.finishes_when(go_away, "the display has gone")

    def test_finishes_what_is_being_sent_when_the_window_crashes(self):
        def crash():
            self.wizard.process.send_signal(signal.SIGSEGV)
        # A sanitizer that catches the signal gives a code of its own.
        self.assertNotEqual(self.finishes_when(crash, "the window has crashed"), 0)

    def test_ends_without_a_question_when_the_system_asks_it_to_stop_before(self):
        self.start(Package(self.desk))
        self.press("Next")
        self.wizard.wait_for(self.texts["Preference_Description"])
        self.wizard.process.send_signal(signal.SIGTERM)
        self.assertEqual(self.wizard.exit_code(), 0)

    def test_leaves_a_question_when_the_system_asks_it_to_stop_meanwhile(self):
        self.start(Package(self.desk))
        self.press("Cancel")
        self.wizard.alert(self.texts["Cancel_MesTitle"])
        self.wizard.process.send_signal(signal.SIGTERM)
        self.assertEqual(self.wizard.exit_code(), 0)

    def test_tells_how_to_end_the_download_mode_where_the_user_has_to_do_it(self):
        package = Package(self.desk, BOTH[:1], rows=(EVERY_SYSTEM, "NEEDEXITOPERATION YES"))
        printer = Printer(self.desk)
        self.start(package)
        self.to_run(printer.address)
        self.ends_with(("NormalEndTitle", "NormalEnd_ManualMes"))

    def test_goes_on_with_a_package_that_has_no_firmware_to_show(self):
        package, printer = UncheckedPackage(self.desk, [Nameless()]), Printer(self.desk)
        self.start(package)
        self.assertEqual(self.wizard.nodes("table cell"), [])
        self.to_run(printer.address)
        self.ends_with(("NoUpdateEndTitle", "NoUpdateEnd_AutoMes"))


if __name__ == "__main__":
    unittest.main()
