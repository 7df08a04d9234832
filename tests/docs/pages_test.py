#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Every page with examples is one of those whose examples run, and few examples are left out."""
import pathlib
import sys
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
import pages  # noqa: E402

# Examples that need root, hardware or a person at a terminal.
MOST_LEFT_OUT = 10


class Pages(unittest.TestCase):
    def test_every_page_with_examples_is_run(self):
        listed = (pages.ROOT / "tests/CMakeLists.txt").read_text(encoding="utf-8")
        listed = listed.partition("foreach(page ")[2].partition(")")[0].split()
        for page in {each.page for each in pages.examples()}:
            self.assertTrue(page.startswith(tuple(listed)), page)

    def test_few_examples_are_left_out_each_for_a_reason(self):
        left_out = [each for each in pages.examples() if each.how.startswith("not run")]
        self.assertLessEqual(len(left_out), MOST_LEFT_OUT, [each.place for each in left_out])
        for each in left_out:
            self.assertTrue(each.reason, each.place)

    def test_a_block_without_a_program_is_no_example(self):
        self.assertFalse(pages.starts_program("TGMNAME \"Model 100\""))
        self.assertFalse(pages.starts_program("vymkit-cli info [--package FOLDER]"))
        self.assertTrue(pages.starts_program("$ ./vymprinter --fault list"))

    def test_a_command_may_go_on_in_the_next_line(self):
        self.assertEqual(pages.commands_of("a \\\n  b  # why\nc |\n  d\n"),
                         [("a b", None), ("c | d", None)])
        self.assertEqual(pages.commands_of("$ a\nx\ny\n$ b\n"), [("a", "x\ny"), ("b", "")])


if __name__ == "__main__":
    unittest.main(verbosity=1)
