# SPDX-License-Identifier: MIT
"""Writes a program's completion for a shell, from its --help.

completion.py bash|zsh|fish PROGRAM PATH > FILE
Values are completed by their kind: folders, files, and values that only the program itself knows, for
which the completion runs it (print queues, port strings, faults).
"""
import re
import sys

sys.dont_write_bytecode = True
import helptext  # noqa: E402

# Options whose values the program itself lists; the shell functions are below.
LIVE = {"--printer": "queues", "--uri": "ports", "--fault": "faults"}
FOLDERS = ("FOLDER", "DIR", "DIRECTORY")
FILES = ("FILE", "PACKAGE", "INPUT", "OLD", "NEW")

# Prints the value after a key in one line of JSON, if there is one. A queue has a name for people and
# an identifier; the identifier has no blanks.
QUERY = r"""vymkit-cli printers --all --json --deadline 5 %s 2>/dev/null |
        grep -o '"%s":"[^"]*"' | cut -d '"' -f 4 | sort -u"""


def kind(entry):
    if entry.name in LIVE:
        return LIVE[entry.name]
    if entry.name in ("--directory", "--store") or entry.value in FOLDERS:
        return "folders"
    if entry.value in FILES or entry.value == "FILE|FOLDER" or entry.name == "--output":
        return "files"
    if "|" in entry.value and entry.value == entry.value.lower():
        return "words"
    return "text" if entry.value else ""


def scopes(page):
    """Yields (command or '', its options): the words that may follow it."""
    found = [("", page.options())]
    for name, (_, own) in page.commands.items():
        if own is None:
            entries = [each for each in page.options()
                       if not each.commands or name in each.commands]
        else:
            entries = own.options()
        found.append((name, entries))
    return found


def unique(entries):
    return list({entry.name: entry for entry in entries}.values())


def every_option(page):
    return unique([entry for _, entries in scopes(page) for entry in entries])


def names_of(entries):
    return " ".join(name for entry in entries for name in entry.names)


def function(program):
    return "_" + program.replace("-", "_")


# -- bash

BASH_LIVE = {
    "queues": ("""    while IFS= read -r value; do
      [[ $value == "$current"* ]] && COMPREPLY+=("$(printf %q "$value")")
    done < <("""
               + QUERY % ('"${package[@]}"', "identifier") + ")"),
    "ports": """    # What was typed before the last colon stays, and is not repeated.
    typed=${typed#[\\"\\']}
    while IFS= read -r value; do
      [[ $value == "$typed"* ]] && COMPREPLY+=("${value:${#typed} - ${#current}}")
    done < <(""" + QUERY % ('"${package[@]}"', "address") + ")",
    "faults": """    mapfile -t COMPREPLY < <(compgen -W \\
      "list $(vymprinter --fault list 2>/dev/null | sed -n 's/^\\([a-z-]*\\):.*/\\1/p')" -- "$current")""",
    "folders": """    mapfile -t COMPREPLY < <(compgen -d -- "$current")
    compopt -o filenames""",
    "files": """    mapfile -t COMPREPLY < <(compgen -f -- "$current")
    compopt -o filenames""",
    "text": "    COMPREPLY=()",
}


def bash_values(page):
    cases = {}
    for entry in every_option(page):
        if kind(entry) == "words":
            words = entry.value.replace("|", " ")
            cases.setdefault(f'    mapfile -t COMPREPLY < <(compgen -W "{words}" -- "$current")',
                             []).extend(entry.names)
        elif kind(entry):
            cases.setdefault(BASH_LIVE[kind(entry)], []).extend(entry.names)
    lines = []
    for body, names in cases.items():
        lines += [f"  {' | '.join(names)})", body, "    return ;;"]
    return lines


def bash(page):
    operands = any(own and own.operands for _, own in page.commands.values())
    lines = [f"# Completion of {page.program} for bash, made of its --help.",
             f"{function(page.program)}() {{",
             "  local current=${COMP_WORDS[COMP_CWORD]} line=${COMP_LINE:0:COMP_POINT}",
             "  local command= word value typed previous words package=() i",
             "  COMPREPLY=()",
             "  # The shell parts words at colons and equal signs as well; people do not.",
             "  read -ra words <<< \"$line\"",
             "  [[ $line == *[[:space:]] ]] && words+=('')",
             "  typed=${words[-1]} previous=${words[-2]}",
             "  [[ $typed == --*=* ]] && previous=${typed%%=*} typed=${typed#*=}",
             "  [[ $current == [:=] ]] && current=",
             "  for ((i = 1; i < ${#words[@]} - 1; i++)); do",
             "    word=${words[i]}"]
    if page.commands:
        lines += [f"    case $word in {' | '.join(page.commands)})",
                  "      command=${command:-$word} ;;", "    esac"]
    lines += ["    if [[ $word == --package || $word == -p ]]; then",
              "      package=(--package \"${words[i + 1]//[\\\"\\']/}\")", "    fi", "  done",
              "  case $previous in", *bash_values(page), "  esac"]
    if operands or not page.commands:
        condition = "$current != -* && -n $command" if page.commands else "$current != -*"
        lines += [f"  if [[ {condition} ]]; then", BASH_LIVE["files"], "    return", "  fi"]
    lines += ["  case $command in"]
    for name, entries in scopes(page):
        words = names_of(entries) + ("" if name or not page.commands
                                     else " " + " ".join(page.commands))
        lines += [f"  {name or chr(39) * 2})",
                  f"    mapfile -t COMPREPLY < <(compgen -W \"{words}\" -- \"$current\") ;;"]
    return lines + ["  esac", "}", f"complete -F {function(page.program)} {page.program}"]


# -- zsh

ZSH_LIVE = {
    "queues": """  local -a found
  found=("${(@f)$(""" + QUERY % ("${package}", "identifier") + """)}")
  compadd -a found""",
    "ports": """  local -a found
  found=("${(@f)$(""" + QUERY % ("${package}", "address") + """)}")
  compadd -a found""",
    "faults": """  local -a found
  found=(list "${(@f)$(vymprinter --fault list 2>/dev/null | sed -n 's/^\\([a-z-]*\\):.*/\\1/p')}")
  compadd -a found""",
}
ZSH_ACTION = {"folders": "_files -/", "files": "_files", "text": " "}


def zsh_quoted(text):
    text = re.sub(r"([\\\[\]:])", r"\\\1", text)
    return text.replace("'", "'\\''")


def zsh_spec(page, entry):
    action = ""
    if kind(entry) == "words":
        action = f":{zsh_quoted(entry.name[2:])}:({entry.value.replace('|', ' ')})"
    elif kind(entry) in ZSH_LIVE:
        action = f":{zsh_quoted(entry.value)}:{function(page.program)}_{kind(entry)}"
    elif kind(entry):
        action = f":{zsh_quoted(entry.value)}:{ZSH_ACTION[kind(entry)]}"
    star = "*" if entry.repeats else ""
    return [f"    '{star}{name}[{zsh_quoted(entry.text)}]{action}' \\" for name in entry.names]


def zsh_arguments(page, entries, operands):
    lines = ["    _arguments -S \\"]
    for entry in unique(entries):
        lines += zsh_spec(page, entry)
    return lines + [f"    {operands}"]


def zsh(page):
    lines = [f"#compdef {page.program}", f"# Completion of {page.program} for zsh, made of its --help."]
    for live in sorted({kind(entry) for entry in every_option(page)} & set(ZSH_LIVE)):
        lines += [f"{function(page.program)}_{live}() {{",
                  "  local -a package",
                  "  (( ${words[(I)--package]} )) && package=(--package ${(Q)words[${words[(I)--package]} + 1]})",
                  ZSH_LIVE[live], "}"]
    lines += [f"{function(page.program)}() {{"]
    if not page.commands:
        lines += zsh_arguments(page, page.options(), "'*:file:_files'")
    else:
        lines += ["  local -a commands", "  commands=("]
        lines += [f"    '{name}:{zsh_quoted(text)}'" for name, (text, _) in page.commands.items()]
        lines += ["  )", f"  local command=${{words[(r)({'|'.join(page.commands)})]}}",
                  "  case $command in"]
        for name, entries in scopes(page):
            own = page.commands[name][1] if name else None
            rest = "'*:command:{ _describe command commands }'" if not name else \
                "'*:file:_files'" if own and own.operands else "'*: :'"
            lines += [f"  '{name}')", *zsh_arguments(page, entries, rest), "    ;;"]
        lines += ["  esac"]
    return lines + ["}", f"{function(page.program)} \"$@\""]


# -- fish

def fish_quoted(text):
    return "'" + text.replace("\\", "\\\\").replace("'", "\\'") + "'"


FISH_LIVE = {
    "queues": QUERY.replace("\n       ", "") % ("(__vymkit_package)", "identifier"),
    "ports": QUERY.replace("\n       ", "") % ("(__vymkit_package)", "address"),
    "faults": "echo list; vymprinter --fault list 2>/dev/null | string match -r '^[a-z-]+(?=:)'",
}


def fish_option(page, entry, condition):
    words = [f"complete -c {page.program}"]
    if condition:
        words.append(f"-n {fish_quoted(condition)}")
    for name in entry.names:
        words.append(f"-l {name[2:]}" if name.startswith("--") else f"-s {name[1:]}")
    if kind(entry) in FISH_LIVE:
        words.append(f"-x -a {fish_quoted('(' + FISH_LIVE[kind(entry)] + ')')}")
    elif kind(entry) == "words":
        words.append(f"-x -a {fish_quoted(entry.value.replace('|', ' '))}")
    elif kind(entry) == "folders":
        words.append("-x -a '(__fish_complete_directories)'")
    elif kind(entry) == "files":
        words.append("-r -F")
    elif kind(entry):
        words.append("-x")
    return " ".join(words + [f"-d {fish_quoted(entry.text)}"])


def fish(page):
    lines = [f"# Completion of {page.program} for fish, made of its --help."]
    if any(kind(entry) in ("queues", "ports") for entry in every_option(page)):
        lines += ["function __vymkit_package",
                  "    set -l words (commandline -opc)",
                  "    set -l at (contains -i -- --package $words)",
                  "    and test $at -lt (count $words)",
                  "    and printf '%s\\n' --package $words[(math $at + 1)]", "end"]
    names = " ".join(page.commands)
    has_operands = not page.commands or any(own and own.operands
                                            for _, own in page.commands.values())
    if not has_operands:
        lines.append(f"complete -c {page.program} -f")
    elif page.commands:
        lines.append(f"complete -c {page.program} -n 'not __fish_seen_subcommand_from {names}' -f")
    for name, (text, _) in page.commands.items():
        lines.append(f"complete -c {page.program} -n 'not __fish_seen_subcommand_from {names}' "
                     f"-a {name} -d {fish_quoted(text)}")
    common = {entry.name for entry in page.options()}
    for entry in page.options():
        needs = f"__fish_seen_subcommand_from {' '.join(entry.commands)}" if entry.commands else ""
        lines.append(fish_option(page, entry, needs))
    for name, (_, own) in page.commands.items():
        lines += [fish_option(page, entry, f"__fish_seen_subcommand_from {name}")
                  for entry in (own.options() if own else []) if entry.name not in common]
    return lines


if __name__ == "__main__":
    shell, program, path = sys.argv[1:]
    print("\n".join({"bash": bash, "zsh": zsh, "fish": fish}[shell](
        helptext.of_program(program, path))))
