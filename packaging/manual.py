#!/usr/bin/python3
"""Writes the manual page: inserts the help texts of all commands into a prose file.

    manual.py PROGRAM PROSE > vantro.1

PROSE is roff in which four lines are replaced: @TITLE@, @SYNOPSIS@, @OPTIONS@, @COMMANDS@.
"""

import os
import re
import subprocess
import sys
from pathlib import Path

# Common to all commands; described in the section OPTIONS.
COMMON_OPTIONS = {"-h, --help"}
_ENTRY = re.compile(r"  (?! )(\S.*?)(  +)\S")


class Help:
    """A parsed help text.

    usage        lines after "Usage:"
    sections     (heading, blocks); the first heading is empty. A block is a paragraph (text) or a table
                 (list of term and description)
    """

    def __init__(self, program, *command):
        text = subprocess.run([program, *command, "--help"], check=True, capture_output=True, text=True,
                              env={**os.environ, "LC_ALL": "C.UTF-8"}).stdout
        first, *rest = text.splitlines()
        self.usage = [first.removeprefix("Usage: ")]
        while rest and rest[0].startswith("       "):
            self.usage.append(rest.pop(0).strip())
        self.sections = [("", [])]
        for block in "\n".join(rest).strip("\n").split("\n\n"):
            self._take(block.split("\n"))

    def section(self, name):
        return next((blocks for heading, blocks in self.sections if heading == name), [])

    def table(self, name):
        return [row for block in self.section(name) if isinstance(block, list) for row in block]

    def _take(self, lines):
        if re.fullmatch(r"[A-Z]\w+:", lines[0]):
            self.sections.append((lines.pop(0)[:-1], []))
        blocks = self.sections[-1][1]
        if lines[0].startswith("  "):
            blocks.append(_table(lines))
        else:
            blocks.append(" ".join(lines))


def _table(lines):
    """Terms start in the third column; descriptions share a column to the right."""
    column = min(match.end() - 1 for match in map(_ENTRY.match, lines) if match)
    rows = []
    for line in lines:
        if line.startswith("   "):
            rows[-1][1] = f"{rows[-1][1]} {line.strip()}".strip()
        elif line[column - 1:column] in ("", " "):
            rows.append([line[:column].strip(), line[column:].strip()])
        else:
            rows.append([line.strip(), ""])
    return rows


def plain(text):
    text = text.replace("\\", "\\e").replace("-", "\\-")
    return "\\&" + text if text.startswith((".", "'")) else text


def term(text):
    """Literal text in bold, placeholders in italics."""

    def part(match):
        placeholder, punctuation, literal = match.groups()
        if placeholder:
            return f"\\fI{plain(placeholder.strip('<>'))}\\fR"
        return plain(punctuation) if punctuation else f"\\fB{plain(literal)}\\fR"

    return re.sub(r"(<[A-Z]+>|[A-Z#]+)|([][|., ]+)|([^][|., <A-Z#]+)", part, text)


def option_synopsis(help_text):
    options = [name for name, _ in help_text.table("Options") if name not in COMMON_OPTIONS]
    return [f"[{name.replace('<', '').replace('>', '')}]" for name in options]


def synopsis(main, commands):
    yield from (term(main.usage[0]), ".br")
    for text in commands.values():
        words = text.usage[0].replace(" [options]", "").split(" ")
        yield term(" ".join(words[:2] + option_synopsis(text) + words[2:]))
        yield ".br"


def table(rows):
    for name, description in rows:
        yield from (".TP", term(name), plain(description) or "\\&")


def command_section(name, text):
    yield f".SS vantro {name}"
    status = [block for block in text.section("") if block[:12] == "Exit status:"]
    for block in text.section(""):
        if block not in status:
            yield from table(block) if isinstance(block, list) else (".PP", plain(block))
    yield from table(row for row in text.table("Options") if row[0] not in COMMON_OPTIONS)
    yield from (line for block in status for line in (".PP", plain(block)))


def command_names(main):
    return [name for names, _ in main.table("Commands") for name in re.match(r"[a-z-]+(?:, [a-z-]+)*", names)[0].split(", ")]


def manual(program, prose):
    main = Help(program)
    version = subprocess.run([program, "--version"], check=True, capture_output=True, text=True).stdout.strip()
    commands = {name: Help(program, name) for name in command_names(main)}
    parts = {
        "@TITLE@": [f'.TH VANTRO 1 "" "{version}" "User Commands"'],
        "@SYNOPSIS@": synopsis(main, commands),
        "@OPTIONS@": table(main.table("Options")),
        "@COMMANDS@": (line for name, text in commands.items() for line in command_section(name, text)),
    }
    for line in prose.splitlines():
        yield from parts.get(line, [line])


if __name__ == "__main__":
    print("\n".join(manual(sys.argv[1], Path(sys.argv[2]).read_text())))
