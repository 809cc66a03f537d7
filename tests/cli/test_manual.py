#!/usr/bin/python3
"""The manual page, which is written from the help texts, loses nothing of them; its own prose is true of the program."""

import os
import re
import shutil
import subprocess
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
PROGRAM = os.environ.get("VANTRO_PROGRAM", ROOT / "build/release/bin/vantro")
PROSE = ROOT / "packaging/vantro.1.in"
OPTION = re.compile(r"(?<![\w-])--[a-z][a-z-]+")


def program_help(*command):
    return subprocess.run([PROGRAM, *command, "--help"], check=True, capture_output=True, text=True,
                          env={**os.environ, "LC_ALL": "C.UTF-8"}).stdout


def commands():
    listed = program_help().split("Commands:")[1].split("Exit status")[0]
    return [name for names in re.findall(r"^  ([a-z-]+(?:, [a-z-]+)*)", listed, re.MULTILINE)
            for name in names.split(", ")]


def words(text):
    return re.findall(r"[\w#-]+", text)


def without_markup(roff):
    return re.sub(r"\\f.", "", roff.replace("\\-", "-").replace("\\e", "\\"))


class ManualTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.page = subprocess.run([sys.executable, ROOT / "packaging/manual.py", PROGRAM, PROSE], check=True,
                                  capture_output=True, text=True).stdout
        cls.prose = without_markup(PROSE.read_text())

    def test_every_word_of_the_help_is_in_its_section_in_the_same_order(self):
        sections = dict(re.findall(r"^\.SS vantro ([\w-]+)\n(.*?)(?=^\.S)", without_markup(self.page),
                                   re.MULTILINE | re.DOTALL))
        self.assertEqual(list(sections), commands())
        self.assertGreater(len(sections), 10)
        for name, section in sections.items():
            help_text = program_help(name).split("\n", 1)[1]
            help_text = help_text.split("\nArguments:")[0].replace("  -h, --help", "").replace("Show this text.", "", 1)
            main, _, options = help_text.partition("\nOptions:\n")
            main, mark, status = main.partition("Exit status:")
            macros = re.sub(r"^\.(TP|PP)$", "", section, flags=re.MULTILINE)
            self.assertEqual(words(macros), words(main) + words(options) + words(mark + status), name)

    def test_the_prose_names_options_and_exit_codes_of_the_program(self):
        texts = [program_help(), *map(program_help, commands())]
        offered = {option for text in texts for option in OPTION.findall(text)}
        self.assertEqual(sorted(set(OPTION.findall(self.prose)) - offered), [], "the program does not know them")
        codes = {code for text in texts for code in
                 re.findall(r"[:,] (\d+) ", text.partition("Exit status")[2].replace("\n", " "))}
        self.assertGreater(len(codes), 3)
        self.assertLessEqual(codes, set(re.findall(r"^\.B (\d+)$", self.prose, re.MULTILINE)))

    @unittest.skipUnless(shutil.which("groff"), "groff is not installed")
    def test_the_page_can_be_set_without_a_warning(self):
        result = subprocess.run(["groff", "-man", "-ww", "-Tutf8", "-Z"], input=self.page, capture_output=True, text=True,
                                check=True)
        self.assertEqual(result.stderr, "")


if __name__ == "__main__":
    unittest.main()
