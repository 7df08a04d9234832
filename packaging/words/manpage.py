# SPDX-License-Identifier: MIT
"""Fills a manual page's template with the content of the program's --help.

manpage.py PROGRAM PATH TEMPLATE VERSION DATE > PAGE
Lines of a template that are replaced: @COMMANDS@, @OPTIONS@, @EXIT@.
"""
import pathlib
import re
import sys

sys.dont_write_bytecode = True
import helptext  # noqa: E402


def roff(text):
    text = text.replace("\\", "\\e").replace("-", "\\-").replace("'", "\\(aq")
    return "\\&" + text if text.startswith((".", "\\(aq")) else text


def prose(text):
    """A description: hyphens between letters stay hyphens, the rest are minus signs."""
    return re.sub(r"(?<=[a-z])\\-(?=[a-z])", "-", roff(text))


def option(entry):
    names = ", ".join(f"\\fB{roff(name)}\\fR" for name in entry.names)
    value = f" \\fI{roff(entry.value)}\\fR" if entry.value else ""
    more = " ..." if entry.repeats else ""
    return [".TP", names + value + more, prose(entry.text)]


def options(page):
    lines = []
    for title, entries in page.groups:
        if len(page.groups) > 1:
            lines.append(f".SS \"{prose(title)}\"")
        for entry in entries:
            lines += option(entry)
    return lines


def commands(page):
    lines = []
    for name, (text, own) in page.commands.items():
        operands = ""
        if own:
            operands = "".join(f" \\fI{roff(operand)}\\fR" for operand, _ in own.operands)
        lines += [".TP", f"\\fB{roff(name)}\\fR{operands}", prose(text)]
        if own is None:
            continue
        known = {each for entry in page.options() for each in entry.names}
        details = []
        for operand, words in own.operands:
            details += [".TP", f"\\fI{roff(operand)}\\fR", prose(words)]
        for entry in own.options():
            if not known & set(entry.names):
                details += option(entry)
        lines += [".RS", *details, ".RE"] if details else []
    return lines


def exits(page):
    lines = []
    for code, text in sorted(page.exits.items()):
        lines += [".TP", f".B {code}", prose(text)]
    return lines


def fill(template, page, version, date):
    parts = {"@COMMANDS@": commands, "@OPTIONS@": options, "@EXIT@": exits}
    lines = []
    for line in template.splitlines():
        lines += parts[line](page) if line in parts else [line]
    return "\n".join(lines).replace("@VERSION@", version).replace("@DATE@", date) + "\n"


if __name__ == "__main__":
    program, path, template, version, date = sys.argv[1:]
    words = pathlib.Path(template).read_text(encoding="utf-8")
    print(fill(words, helptext.of_program(program, path), version, date), end="")
