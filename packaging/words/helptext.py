# SPDX-License-Identifier: MIT
"""Reads the --help page of a program: commands, options, examples and exit codes as values.

The page is the only place where an option is described for people; manual pages and completion are
made from it, so that they cannot differ.
"""
import collections
import dataclasses
import re
import subprocess

ENTRY = re.compile(r"^\s*-")
SECTION = re.compile(r"^(\S.*?):\s*(.*)$")


@dataclasses.dataclass
class Option:
    names: list  # ["-a", "--address"]
    value: str  # "FOLDER", or empty for a switch
    text: str
    repeats: bool = False
    commands: list = dataclasses.field(default_factory=list)  # empty: all of them

    @property
    def name(self):
        return self.names[-1]


@dataclasses.dataclass
class Page:
    program: str
    summary: str = ""
    usage: str = ""
    groups: list = dataclasses.field(default_factory=list)  # (title, [Option])
    commands: dict = dataclasses.field(default_factory=dict)  # name: (text, Page or None)
    operands: list = dataclasses.field(default_factory=list)  # (name, text)
    examples: list = dataclasses.field(default_factory=list)
    exits: dict = dataclasses.field(default_factory=dict)  # code: text

    def options(self):
        return [option for _, options in self.groups for option in options]

    def all_options(self):
        """The options of the program and of its commands."""
        pages = [self] + [page for _, page in self.commands.values() if page]
        return [option for page in pages for option in page.options()]

    def all_names(self):
        """The same for every spelling."""
        return {name for option in self.all_options() for name in option.names}


def sections(text):
    """Parts of the page under lines such as 'Options:'; the first part has the title ''."""
    title, lines, found = "", [], []
    for line in text.splitlines():
        match = SECTION.match(line)
        if match and not line.startswith(("http", "$")):
            found.append((title, lines))
            title, lines = match[1], [match[2]] if match[2] else []
        else:
            lines.append(line)
    found.append((title, lines))
    return found


def text_column(lines):
    """The column where descriptions begin: most entries have two blanks before it."""
    starts = [re.match(r"^\s+\S.*?\s{2,}(?=\S)", line) for line in lines
              if not line.startswith(" " * 12)]
    columns = collections.Counter(match.end() for match in starts if match)
    return columns.most_common(1)[0][0] if columns else 80


def entries(lines):
    """(left side, description) of each entry, with its lines joined."""
    column = text_column(lines)
    lines = [line for line in lines if line.strip()]
    indents = [len(line) - len(line.lstrip()) for line in lines] + [0]
    found = []
    for line, indent, next_indent in zip(lines, indents, indents[1:]):
        aligned = line[column - 2:column] == "  " or next_indent < column
        if indent >= min(column, 12) and found:
            found[-1][1].append(line.strip())
        elif aligned and len(line) > column and line[column - 1] == " ":
            found.append((line[:column].strip(), [line[column:].strip()]))
        else:
            found.append((line.strip(), []))
    return [(left, " ".join(words)) for left, words in found]


def option_of(left, text):
    names, value = [], left
    while match := re.match(r"\s*(--?[\w?][\w-]*)(?:\{[^}]*\})?,?", value):
        names.append(match[1])
        value = value[match.end():]
    repeats = "..." in value or "repeatable" in text
    value = re.sub(r"\bREQUIRED\b|\.\.\.", "", value).strip()
    # The range, check and default that the parser's library writes after a value's type.
    value = re.sub(r"^([A-Z]+):\1( in .*)?$|^(TEXT|UINT|INT|FLOAT)\b.*$", r"\1\3", value)
    return Option(names, value, text, repeats)


def exit_codes(lines):
    """Codes and their meaning, from a table of one or two columns or from a sentence."""
    text = " ".join(line.strip() for line in lines)
    if not any(re.match(r"^\s+\d+\s{2,}", line) for line in lines):
        found = re.findall(r"(?:^|, |; )(\d+) (.*?)(?=[,;] \d+ |\.(?:\s|$)|$)", text)
        return {int(code): words for code, words in found}
    codes, at = {}, {}
    for line in lines:
        for cell in re.finditer(r"(?:(\d{1,3})\s{2,})?(\S+(?:\s\S+)*)", line):
            start = cell.start(2)
            if cell[1]:
                codes[int(cell[1])] = cell[2]
                at[start] = int(cell[1])
            elif start in at:
                codes[at[start]] += " " + cell[2]
    return codes


def commands_of(text, known):
    """The commands that a description names in parentheses: '(check, update)'."""
    for inner in re.findall(r"\(([^)]*)\)", text):
        words = re.split(r"[,;] | and | or ", inner)
        named = [word for word in words if word in known]
        if named:
            return named
    return []


def read(program, text):
    page = Page(program)
    for title, lines in sections(text):
        kind = title.lower()
        if kind == "":
            page.summary = " ".join(line.strip() for line in lines if line.strip())
        elif kind == "usage":
            page.usage = " ".join(line.strip() for line in lines if line.strip())
        elif kind == "examples":
            page.examples = [line.strip() for line in lines
                             if line.strip().startswith((program + " ", "$"))]
        elif kind == "exit codes":
            end = lines.index("") if "" in lines[1:] else len(lines)
            page.exits = exit_codes(lines[:end])
        elif kind in ("commands", "subcommands"):
            page.commands = {left.split()[0]: (words, None) for left, words in entries(lines)}
        elif kind in ("positionals", "arguments"):
            page.operands = [(left.split()[0], words) for left, words in entries(lines)]
        elif any(ENTRY.match(line) for line in lines):
            block = lines[:lines.index("")] if "" in lines else lines
            page.groups.append((title, [option_of(*entry) for entry in entries(block)
                                        if entry[0].startswith("-")]))
    for title, options in page.groups:
        for option in options:
            option.commands = commands_of(option.text, page.commands) \
                or commands_of(title, page.commands)
    return page


def show(path, *words):
    return subprocess.run([path, *words], check=True, capture_output=True, text=True,
                          timeout=60).stdout


def of_program(program, path):
    """The program's page, and a page for each command that has one of its own."""
    text = show(path, "--help")
    page = read(program, text)
    for name, (words, _) in list(page.commands.items()):
        own = show(path, name, "--help")
        if own != text:
            page.commands[name] = (words, read(program, own))
    return page
