#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Takes the pictures of docs/pictures again, with the demo package of a build tree.

Usage: showcase.py [FOLDER]   (from the project's folder; VYMKIT_BIN names another build's programs)
"""

import pathlib
import subprocess
import sys

from camera import dark_desktop, picture
from desk import Desk
from peers import PrintSystem
from texts import Texts
from wizard import BIN, Wizard

FOLDER = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else "docs/pictures")
QUEUES = (("office", "lpd://192.0.2.7/queue", "Vymprint 200"),
          ("reception", "lpd://192.0.2.17/queue", "Vymprint 210"),
          ("workshop", "lpd://198.51.100.4/queue", "Vymprint 220"))
PRINTER = ("--listen", "127.0.0.1", "--model", "Vymprint 200", "--firmware", "MAIN=VP010100",
           "--firmware", "ENGINE=VE010100", "--write-rate", "60000", "--quiet")
TEXTS = Texts("en")


def keep(wizard, name):
    """Adds the border that a desktop would draw, and reduces the colours to keep the file small."""
    path = str(FOLDER / f"{name}.png")
    picture(wizard, path)
    subprocess.run(["convert", path, "-bordercolor", "#9a9a9a", "-border", "1", "-strip",
                    "-colors", "128", path], check=True)


def pages(wizard, suffix):
    wizard.wait_for(TEXTS["Start_Description"])
    keep(wizard, "opening" + suffix)
    wizard.press(TEXTS["Next"])
    wizard.wait_for(TEXTS["Preference_Description"])
    wizard.press(TEXTS["Next"])
    wizard.find("table cell", QUEUES[0][0])
    keep(wizard, "printer" + suffix)


def run(wizard):
    wizard.choose(TEXTS["Device_SpecifyIPAddress"])
    wizard.focused("text")
    wizard.type_address("127.0.0.1")
    wizard.press(TEXTS["Next"])
    wizard.wait_for(TEXTS["Guide_Description"])
    wizard.press(TEXTS["Start"])
    wizard.alert(TEXTS["Confirmation_Normal_Title"], TEXTS["Confirmation_VerDown_Title"])
    wizard.press(TEXTS["YES"])
    wizard.wait_for(TEXTS.pattern("State_WriteUpdate_Plural"))
    keep(wizard, "update")


def main():
    for suffix in ("", "-dark"):
        desk = Desk(1024, 768)
        try:
            desk.start([str(BIN / "vymprinter"), *PRINTER])
            environment = PrintSystem(desk, *QUEUES).environment
            if suffix:
                environment |= dark_desktop(desk)
            wizard = Wizard(desk, environment=environment)
            pages(wizard, suffix)
            if not suffix:
                run(wizard)
        finally:
            desk.close()


if __name__ == "__main__":
    main()
