# SPDX-License-Identifier: MIT
"""The window's texts by key, read from the string tables, so that no test repeats a wording."""

import pathlib
import re
import xml.etree.ElementTree

RESOURCES = pathlib.Path(__file__).resolve().parents[3] / "Resources"
MNEMONIC = re.compile(r"&(?=[^&])")
DIRECTIVE = re.compile(r"%[u@]")


class Texts:
    """texts["Next"] is the text on the screen for that key."""

    def __init__(self, language):
        table = xml.etree.ElementTree.parse(RESOURCES / f"vymkit_{language}.ts")
        self._texts = {message.findtext("source"): message.findtext("translation")
                       for message in table.iter("message")}

    @property
    def untranslated(self):
        """The keys that no screen shows."""
        return {key for key, text in self._texts.items() if "_" in key and key != text}

    def __getitem__(self, key):
        return MNEMONIC.sub("", self._texts[key])

    def pattern(self, key):
        """A pattern that matches the text with any argument."""
        return re.compile(".+".join(map(re.escape, DIRECTIVE.split(self[key]))))

    def mnemonic(self, key):
        """The letter that, with Alt, presses the button."""
        return self._texts[key].split("&", 1)[1][0].lower()
