#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The options and exit codes of --help, manual page, docs and completion agree, and every place with
the version has the same one.

words_test.py BUILD_FOLDER
A new option belongs in the program's --help; manual page and completion are made from that. This test
then fails for the docs, which are written by hand.
"""
import pathlib
import re
import subprocess
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "packaging/words"))
import helptext  # noqa: E402

BUILD = pathlib.Path(sys.argv.pop(1)).resolve()
WORDS = BUILD / "packaging/words"

# Where the options of a program are documented: in tables whose first column names them, or, for a
# program with commands of its own, in its examples.
TABLES = {"vymkit": ["users"], "vymkit-cli": ["command-line"], "vymprinter": ["virtual-printer"]}
EXAMPLES = {"vympack": ["package-format", "makers"]}
# Options of every program, which pages need not repeat.
ALWAYS = {"-h", "--help", "--version", "--help-all"}
NAME = r"(?<![\w-])--?[A-Za-z][\w-]*"

PAGES = {program: helptext.of_program(program, str(BUILD / "bin" / program))
         for program in ("vymkit", "vymkit-cli", "vympack", "vymprinter")
         if (BUILD / "bin" / program).exists()}


def doc(names):
    files = [ROOT / "docs" / f"{name}.md" for name in names]
    return "\n".join(file.read_text(encoding="utf-8") for file in files if file.exists())


def first_cells(text):
    return [re.split(r"(?<!\\)\|", line)[1].strip() for line in text.splitlines()
            if line.startswith("|") and line.count("|") > 2]


def manual(program):
    """The page's text as lines, without roff's additions."""
    text = (WORDS / f"{program}.1").read_text(encoding="utf-8")
    return text.replace("\\-", "-").replace("\\(aq", "'").replace("\\e", "\\").replace("\\&", "")


def bold_names(text):
    return {name for bold in re.findall(r"\\fB(-[^\\]*)\\fR", text) for name in [bold.strip()]}


def section(text, title):
    return re.split(r"^\.SH ", text.split(f"\n.SH {title}\n")[1], flags=re.M)[0]


class Words(unittest.TestCase):
    def each(self):
        for program, page in PAGES.items():
            with self.subTest(program=program):
                yield program, page

    def test_every_help_page_has_options_and_exit_codes(self):
        for program, page in self.each():
            self.assertIn("--help", page.all_names())
            self.assertIn("--version", page.all_names())
            self.assertTrue({0, 64} <= set(page.exits), page.exits)
            self.assertTrue(page.usage.startswith(program), page.usage)

    def test_every_option_of_the_help_is_taken_by_the_command_line(self):
        # The other programs' help is made from their parser. A parser names every word that it does
        # not know; the last one ensures that nothing starts.
        for option in PAGES["vymkit-cli"].options():
            if set(option.names) & ALWAYS:
                continue  # wins over everything else on the line
            for name in option.names:
                said = self.refused("info", name, *(["x"] if option.value else []))
                self.assertNotIn(f" {name}", said)
        self.assertIn(" --no-other", self.refused("info", "--no-other"))

    def refused(self, *words):
        run = subprocess.run([str(BUILD / "bin/vymkit-cli"), *words, "--no-such-option"],
                             capture_output=True, text=True, timeout=60, check=False)
        self.assertEqual(run.returncode, 64, run.stdout + run.stderr)
        self.assertIn("--no-such-option", (run.stdout + run.stderr).splitlines()[0])
        return (run.stdout + run.stderr).splitlines()[0]

    def test_the_manual_page_has_the_options_of_the_help(self):
        for program, page in self.each():
            text = manual(program)
            named = bold_names(section(text, "OPTIONS"))
            if page.commands:
                named |= bold_names(section(text, "COMMANDS"))
            self.assertEqual(named | ALWAYS, page.all_names() | ALWAYS)

    def test_the_manual_page_has_the_exit_codes_of_the_help(self):
        for program, page in self.each():
            codes = re.findall(r"^\.B (\d+)$", section(manual(program), "EXIT STATUS"), flags=re.M)
            self.assertEqual([int(code) for code in codes], sorted(page.exits))

    def test_completion_offers_the_options_of_the_help(self):
        for program, page in self.each():
            text = (WORDS / f"{program}.bash").read_text(encoding="utf-8")
            offered = {word for words in re.findall(r'compgen -W "([^"$]*)" --', text)
                       for word in words.split() if word.startswith("-")}
            self.assertEqual(offered, page.all_names(), "bash")
            text = (WORDS / f"{program}.zsh").read_text(encoding="utf-8")
            offered = set(re.findall(r"^    '\*?(--?[\w?-]+)\[", text, flags=re.M))
            self.assertEqual(offered, page.all_names(), "zsh")
            text = (WORDS / f"{program}.fish").read_text(encoding="utf-8")
            lines = [line.split(" -d ")[0] for line in text.splitlines() if "complete -c" in line]
            offered = {"--" + name for line in lines for name in re.findall(r" -l ([\w-]+)", line)}
            offered |= {"-" + name for line in lines for name in re.findall(r" -s (\w)\b", line)}
            self.assertEqual(offered | ALWAYS, page.all_names() | ALWAYS, "fish")

    def test_the_docs_have_the_options_of_the_help_and_no_others(self):
        for program, names in TABLES.items():
            if program not in PAGES:
                continue
            with self.subTest(program=program, docs=names):
                cells = [cell for cell in first_cells(doc(names)) if cell.startswith("`-")]
                documented = {name for cell in cells for code in re.findall(r"`([^`]*)`", cell)
                              for name in re.findall(NAME, code.split("=")[0].split(" ")[0])}
                self.assertEqual(documented | ALWAYS, PAGES[program].all_names() | ALWAYS)

    def test_the_docs_show_every_option_of_a_command_and_no_unknown_one(self):
        for program, names in EXAMPLES.items():
            with self.subTest(program=program, docs=names):
                text = doc(names)
                code = re.findall(r"```.*?```|`[^`\n]*`", text, flags=re.S)
                shown = {name for words in code for name in re.findall(NAME, words)}
                missing = [option.name for option in PAGES[program].all_options()
                           if not (shown | ALWAYS) & set(option.names)]
                if (ROOT / "docs/makers.md").exists():  # the guide is complete where it is there
                    self.assertEqual(missing, [], "undocumented")
                lines = [line for words in code for line in words.strip("`").splitlines()
                         if re.match(rf"\s*(\$ )?(\./)?{program} ", line)]
                used = {name for line in lines
                        for name in re.findall(NAME, re.split(r"[|#>;&]", line)[0])}
                self.assertEqual(used - PAGES[program].all_names(), set(), "unknown")

    def test_the_docs_have_the_exit_codes_of_the_help(self):
        for program, names in {**TABLES, **EXAMPLES}.items():
            if program not in PAGES:
                continue
            with self.subTest(program=program, docs=names):
                text = doc(names)
                codes = {int(cell) for cell in first_cells(text.partition("xit code")[2])
                         if cell.isdigit()} if program in ("vymkit", "vymkit-cli") else set()
                sentences = re.findall(r"Exit codes: (.*?\.)(?:\s|$)", re.sub(r"\s+", " ", text))
                codes = codes or {code for sentence in sentences
                                  for code in helptext.exit_codes([sentence])}
                self.assertEqual(codes, set(PAGES[program].exits))

    def test_a_description_key_is_in_its_manual_page_and_in_the_docs(self):
        source = (ROOT / "Tools/vympack/DescriptionKeys.cpp").read_text(encoding="utf-8")
        keys = set(re.findall(r'^    \{"([A-Z]+)", "', source, flags=re.M))
        self.assertGreater(len(keys), 15)
        page = (ROOT / "packaging/man/vyminfo.5.in").read_text(encoding="utf-8")
        rows = re.split(r"^\.TP$", section(page, "KEYS"), flags=re.M)[1:]
        self.assertEqual({re.match(r"\n\.B ([A-Z]+)", row)[1] for row in rows}, keys)
        for row in rows:
            key = re.match(r"\n\.B ([A-Z]+)", row)[1]
            self.assertRegex(row, r"Default: |Required\.", key)
            self.assertRegex(row, f"\nExample: {key} ", key)
        documented = {cell.strip("`") for cell in first_cells(doc(["package-format"]))}
        self.assertEqual(keys - documented, set())

    def test_every_place_has_the_version_of_the_project(self):
        cmake = (ROOT / "CMakeLists.txt").read_text(encoding="utf-8")
        version = re.search(r"project\(vymkit VERSION ([\d.]+)", cmake)[1]
        changes = (ROOT / "CHANGELOG.md").read_text(encoding="utf-8")
        newest = re.search(r"^## ([\d.]+) \((\d{4}-\d\d-\d\d)\)$", changes, flags=re.M)
        debian = (ROOT / "packaging/debian/changelog").read_text(encoding="utf-8")
        self.assertEqual(newest[1], version)
        self.assertEqual(re.match(r"vymkit \(([\d.]+)\)", debian)[1], version)
        for program, _ in self.each():
            self.assertIn(version, helptext.show(str(BUILD / "bin" / program), "--version"))
            self.assertIn(f'"{newest[2]}" "Vymkit {version}"', manual(program))

    def test_the_debian_packages_are_built_with_what_every_build_needs(self):
        rows = [line.split() for line in (ROOT / "packages.txt").read_text().splitlines()
                if line and not line.startswith("#")]
        needed = {row[0] for row in rows if "build" in row[1:]} - {"g++"}  # build-essential
        control = (ROOT / "packaging/debian/control").read_text(encoding="utf-8")
        block = control.split("Build-Depends:")[1].split("\nStandards")[0]
        declared = set(re.findall(r"^ ([\w.+-]+)", block, flags=re.M)) - {"debhelper-compat"}
        self.assertEqual(declared, needed)


if __name__ == "__main__":
    unittest.main(verbosity=1)
