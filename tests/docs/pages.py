# SPDX-License-Identifier: MIT
"""The examples of the guides and manual pages, as values.

An example is a fenced block (in a manual page: lines between .nf and .fi, or a bold line under
EXAMPLES) whose first line starts a program. Above a block, a comment may say how to run it:

  <!-- example: printer MAIN=VP010100 ENGINE=VE010100 -->   what the virtual printer has installed
  <!-- example: not run, needs root -->                     and why
"""
import dataclasses
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
PROGRAMS = ("vymkit", "vymkit-cli", "vympack", "vymprinter", "minisign", "sha256sum", "cmake", "ls",
            "sudo", "./run", "./test", "packaging/build-deb", "ctest")
FENCE = re.compile(r"(?:^<!-- example: (?P<how>[^\n]*) -->\n\n?)?^```[a-z]*\n(?P<body>.*?)^```$",
                   re.MULTILINE | re.DOTALL)


@dataclasses.dataclass
class Example:
    page: str
    line: int
    how: str  # empty: as usual
    commands: list  # (command, the output that is shown or None)

    @property
    def reason(self):
        """Why it is not run, or empty."""
        return self.how.removeprefix("not run, ") if self.how.startswith("not run, ") else ""

    @property
    def place(self):
        return f"{self.page}:{self.line}"


def starts_program(line):
    words = line.removeprefix("$ ").split()
    if "[--" in line or "[N]" in line:  # the forms of a command, not a command
        return False
    return bool(words) and words[0].removeprefix("./") in PROGRAMS or words[:1] == ["./run"] \
        or words[:1] == ["./test"]


def joined(lines):
    """Commands that go on in the next line, as one each; without comments."""
    commands, open_one = [], ""
    for line in lines:
        text = re.sub(r"(^|\s+)# .*$", "", line).rstrip()
        if not text:
            continue
        open_one += ("" if not open_one else " ") + text.removesuffix("\\").strip()
        if not text.endswith(("\\", "|")):
            commands.append(open_one)
            open_one = ""
    return commands + ([open_one] if open_one else [])


def commands_of(body):
    lines = body.splitlines()
    if not any(line.startswith("$ ") for line in lines):
        return [(command, None) for command in joined(lines)]
    found, taken = [], None
    for line in lines:
        if line.startswith("$ "):
            found.append([[line[2:]], []])
            taken = found[-1][0]
        elif taken and taken[-1].endswith("\\") and not found[-1][1]:
            taken.append(line)
        else:
            found[-1][1].append(line)
    return [(joined(command)[0], "\n".join(output)) for command, output in found]


def of_markdown(path):
    text = path.read_text(encoding="utf-8")
    for block in FENCE.finditer(text):
        first = next((line for line in block["body"].splitlines() if line.strip()), "")
        if starts_program(first):
            line = text.count("\n", 0, block.start("body")) + 1
            yield Example(str(path.relative_to(ROOT)), line, block["how"] or "",
                          commands_of(block["body"]))


def of_manual(path):
    text = path.read_text(encoding="utf-8")
    plain = text.replace("\\-", "-").replace("\\(dq", '"').replace("\\(aq", "'").replace("\\&", "")
    bodies = [(m.start(1), m[1]) for m in re.finditer(r"^\.nf\n(.*?)^\.fi$", plain, re.M | re.S)]
    section = plain.partition("\n.SH EXAMPLES\n")[2].partition("\n.SH ")[0]
    at = plain.find(section) if section else 0
    bodies += [(at + m.start(1), m[1]) for m in re.finditer(r"^\.B (.*)$", section, re.M)]
    for start, body in bodies:
        if starts_program(body.splitlines()[0]):
            yield Example(str(path.relative_to(ROOT)), plain.count("\n", 0, start) + 1, "",
                          commands_of(body))


def examples():
    # The makers' guide has a test of its own, which runs its examples one after the other.
    pages = [ROOT / "README.md", *sorted((ROOT / "docs").glob("*.md"))]
    found = [each for page in pages if page.name != "makers.md" for each in of_markdown(page)]
    return found + [each for page in sorted((ROOT / "packaging/man").glob("*.in"))
                    for each in of_manual(page)]
