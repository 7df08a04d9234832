#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Every title of a result, in the window and on the command line, has its entry in the guide to
troubleshooting, with cause and mend."""
import pathlib
import re
import unittest
import xml.etree.ElementTree as ElementTree

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
PAGE = (ROOT / "docs/troubleshooting.md").read_text(encoding="utf-8")


def source(name):
    return (ROOT / name).read_text(encoding="utf-8")


def window_titles():
    """The English titles of the result table, and of the pages that show a problem."""
    keys = dict(re.findall(r'(k\w+) = "([^"]+)"', source("UI/Text/TextKeys.h")))
    named = set(re.findall(r"textkey::(k\w+Title)\b", source("UI/Run/UpdateRun.cpp")))
    named |= {"kUnSupportOSTitle", "kStartNoPackageTitle"}
    table = ElementTree.parse(ROOT / "Resources/vymkit_en.ts").getroot()
    texts = {each.findtext("source"): each.findtext("translation") for each in table.iter("message")}
    return {texts[keys[name]] for name in named}


def command_line_titles():
    return set(re.findall(r'KeyText\{"\w+Title", "([^"]+)"\}', source("CLI/Messages.cpp")))


class Troubleshooting(unittest.TestCase):
    def test_every_title_of_the_window_is_a_heading_with_cause_and_mend(self):
        sections = dict(re.findall(r"^### ([^\n]*)\n(.*?)(?=^##|\Z)", PAGE, re.M | re.S))
        self.assertGreater(len(window_titles()), 12)
        for title in window_titles():
            with self.subTest(title):
                self.assertIn(title, list(sections))
                self.assertIn("**Cause:**", sections[title])
                self.assertIn("**Mend:**", sections[title])

    def test_every_title_of_the_command_line_is_named(self):
        self.assertGreater(len(command_line_titles()), 12)
        for title in command_line_titles():
            with self.subTest(title):
                self.assertIn(f"*{title}*", PAGE)

    def test_every_heading_of_a_result_is_a_title(self):
        part = PAGE.partition("## How a run can end")[2].partition("## Before a run")[0]
        headings = set(re.findall(r"^### (.*)$", part, re.M)) - {"Only on the command line"}
        self.assertLessEqual(headings, window_titles())


if __name__ == "__main__":
    unittest.main(verbosity=1)
