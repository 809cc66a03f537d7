#!/usr/bin/python3
"""The manual page names what the program's help names, command by command and option by option, and nothing else."""

import os
import re
import subprocess
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
PROGRAM = os.environ.get("VANTRO_PROGRAM", ROOT / "build/release/bin/vantro")
OPTION = re.compile(r"(?<![\w-])--[a-z][a-z-]+")
# Described by the page's own text: every command has it.
EVERYWHERE = {"--help", "--verbose", "--version"}


def program_help(*command):
    return subprocess.run([PROGRAM, *command, "--help"], check=True, capture_output=True, text=True,
                          env={**os.environ, "LC_ALL": "C.UTF-8"}).stdout


def commands():
    listed = program_help().split("Commands:")[1].split("Exit status")[0]
    names = []
    for line in listed.splitlines():
        entry = re.match(r"  ([a-z]+(?:, [a-z]+)*)", line)
        names += entry.group(1).split(", ") if entry else []
    return names


class ManualTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        source = (ROOT / "packaging/vantro.1").read_text()
        plain = re.sub(r"\\f.", "", source.replace("\\-", "-"))
        cls.lines = plain.splitlines()
        cls.words = set(re.findall(r"[\w-]+", plain))
        cls.options = set(OPTION.findall(plain))

    def test_every_command_and_action_is_described(self):
        self.assertGreater(len(commands()), 5)
        self.assertEqual([name for name in commands() if name not in self.words], [])
        actions = re.findall(r"^  ([a-z]+) ", program_help("models"), re.MULTILINE)
        self.assertEqual([name for name in actions if name not in self.words], [])

    def test_options_are_those_of_the_program(self):
        offered = set(OPTION.findall(program_help()))
        for name in commands():
            offered |= set(OPTION.findall(program_help(name)))
        self.assertEqual(sorted(offered - self.options - EVERYWHERE), [], "the page does not name them")
        self.assertEqual(sorted(self.options - offered - EVERYWHERE), [], "the program does not know them")

    def test_the_version_and_the_exit_codes_are_the_programs(self):
        version = subprocess.run([PROGRAM, "--version"], check=True, capture_output=True, text=True).stdout.split()[1]
        self.assertIn(f"vantro {version}", self.lines[0])
        codes = set(re.findall(r"(?:status:|,|;) (\d+) ", program_help().replace("\n", " ")))
        described = {line.split()[1] for line in self.lines if re.match(r"\.B \d+$", line)}
        self.assertLessEqual(codes, described)


if __name__ == "__main__":
    unittest.main()
