#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Fails when keys, string tables and code do not agree.

Every key of UI/Text/TextKeys.h has a text in every table, and no table has other keys; a format has
exactly the directive that its key promises, other texts have no directive; the mnemonics of one
page differ; code uses no unknown key and, in a tree with the window, leaves no key unused.
"""
import pathlib
import re
import sys
import xml.etree.ElementTree as ElementTree

ROOT = pathlib.Path(__file__).resolve().parent.parent
LANGUAGES = ["en", "ja", "de", "fr", "es", "zh_CN"]
DIRECTIVES = {"(number)": ["%u"], "(text)": ["%@"]}

# Buttons and choices that appear on the screen together.
PAGES = [
    ["Back", "Next", "Cancel", "Device_SpecifyPrinteName", "Device_SpecifyIPAddress"],
    ["Back", "Start", "Cancel"],
    ["YES", "NO"],
    ["Details_Button"],
]
MNEMONICS = {key for page in PAGES for key in page}

KEY = re.compile(r'constexpr const char\* (k\w+) = "([^"]+)";(?: // (\(\w+\)))?')
LITERAL = re.compile(r'"((?:[^"\\\n]|\\.)*)"')
# Matches whatever looks like a key, whether the tables have it or not.
SHAPE = re.compile(r"(Start|Preference|Device|Guide|Confirmation|Cancel|Check|VYM_UnSupportOS"
                   r"|Update|State|NormalEnd|NoUpdateEnd|Error|Result|Details|Icon|Step"
                   r"|Report|Package)_\w+")


def read_keys():
    text = (ROOT / "UI/Text/TextKeys.h").read_text(encoding="utf-8")
    return [found.groups() for found in KEY.finditer(text[text.index("namespace textkey"):])]


def read_table(language, faults):
    root = ElementTree.parse(ROOT / f"Resources/vymkit_{language}.ts").getroot()
    table = {}
    if [context.findtext("name") for context in root.iter("context")] != ["Localizable"]:
        faults.append(f"{language}: the one context is to be Localizable")
    for message in root.iter("message"):
        key, translation = message.findtext("source"), message.find("translation")
        if key in table:
            faults.append(f"{language}: {key} stands there twice")
        if translation.get("type") is not None:
            faults.append(f"{language}: {key} is marked as {translation.get('type')}")
        table[key] = translation.text or ""
    return table


def check_text(place, key, text, argument, faults):
    if not text.strip() or text != text.strip() or "  " in text:
        faults.append(f"{place}: empty, or blanks at its ends or doubled")
    if re.findall(r"%.?", text) != DIRECTIVES.get(argument, []):
        faults.append(f"{place}: its directives are not those that its key promises")
    if len(re.findall(r"&\w", text)) != text.count("&") or text.count("&") != (key in MNEMONICS):
        faults.append(f"{place}: one & in front of a letter for a button or choice, else none")


def check_marks(language, key, text, faults):
    """The marks of a language: a line never begins with one, and no text borrows another's."""
    if language == "fr" and re.search(r"[^\u00a0][:;?!»]|«[^\u00a0]", text.replace("&", "")):
        faults.append(f"fr: {key}: a no-break space belongs before : ; ? ! » and after «")
    if language in ("ja", "zh_CN") and re.search(r"[^\x00-\x7f][:;?!,]", text):
        faults.append(f"{language}: {key}: a mark of Latin width after a wide letter")
    if re.search(r"\w'\w|\"|\.\.\.", text):
        faults.append(f"{language}: {key}: typewriter's quotes or dots")


def check_table(language, keys, faults):
    table = read_table(language, faults)
    for _, key, argument in keys:
        if key in table:
            check_text(f"{language}: {key}", key, table[key], argument, faults)
            check_marks(language, key, table[key], faults)
        else:
            faults.append(f"{language}: {key} has no text")
    for key in table.keys() - {key for _, key, _ in keys}:
        faults.append(f"{language}: {key} is no key of UI/Text/TextKeys.h")
    for page in PAGES:
        letters = [re.findall(r"&(\w)", table.get(key, "").upper()) for key in page]
        if len({tuple(letter) for letter in letters}) != len(page):
            faults.append(f"{language}: a mnemonic is used twice in {', '.join(page)}")


def named_in(paths):
    """The names and the literals in the code."""
    names, literals = set(), set()
    for path in paths:
        text = path.read_text(encoding="utf-8")
        names |= set(re.findall(r"\btextkey::(k\w+)", text))
        if path.suffix == ".ui":
            literals |= {element.text for element in ElementTree.fromstring(text).iter("string")}
        else:
            literals |= set(LITERAL.findall(text))
    return names, literals


def check_code(keys, faults):
    paths = [path for path in (ROOT / "UI").rglob("*.*") if path.name != "TextKeys.h"]
    paths += [*ROOT.glob("main.cpp"), *(ROOT / "Resources").glob("*.ui")]
    names, literals = named_in(paths)
    known = {key for _, key, _ in keys}
    for literal in sorted(literal or "" for literal in literals):
        if SHAPE.fullmatch(literal) and literal not in known:
            faults.append(f"code names the key {literal}, which UI/Text/TextKeys.h does not have")
    if not (ROOT / "main.cpp").exists():
        return  # no window: most keys are its own
    for name, key, _ in keys:
        if name not in names and key not in literals:
            faults.append(f"{name}, {key} is not used")


def main():
    faults, keys = [], read_keys()
    if len({key for _, key, _ in keys}) != len(keys) or not keys:
        faults.append("UI/Text/TextKeys.h has no keys, or one twice")
    for language in LANGUAGES:
        check_table(language, keys, faults)
    check_code(keys, faults)
    for fault in faults:
        print("texts:", fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
