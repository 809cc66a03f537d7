#!/usr/bin/python3
"""The language of the command line: that of the session for people, English for programs.

VANTRO_PROGRAM names the program.
"""

import fcntl
import os
import pty
import re
import struct
import subprocess
import tempfile
import termios
import unittest
from pathlib import Path

PROGRAM = Path(os.environ.get("VANTRO_PROGRAM", "build/dev/bin/vantro"))
TIMEOUT_S = 60
COLUMNS = 80
GERMAN = {"LC_ALL": "de_DE.UTF-8", "LANGUAGE": "de"}
ENGLISH = {"LC_ALL": "C.UTF-8", "LANGUAGE": "de"}
#: They take no message of Qt or of the system for a text of their own.
LISTS = ("applications", "cleaning", "history", "models", "modes", "notes", "providers", "replacements", "settings",
         "shortcuts", "vocabulary")


class LanguageTest(unittest.TestCase):
    def setUp(self):
        profile = Path(self.enterContext(tempfile.TemporaryDirectory(prefix="vantro-language-")))
        self.env = {name: value for name, value in os.environ.items()
                    if not name.startswith(("XDG_", "LC_", "LANG")) and name not in ("DISPLAY", "WAYLAND_DISPLAY")}
        self.env |= {"XDG_DATA_HOME": str(profile / "data"), "XDG_CONFIG_HOME": str(profile / "config"),
                     "DBUS_SESSION_BUS_ADDRESS": "unix:path=/nowhere", "TERM": "dumb"}

    def run_vantro(self, *words, locale=GERMAN, stdin=subprocess.DEVNULL):
        return subprocess.run([PROGRAM, *words], env=self.env | locale, stdin=stdin, capture_output=True, text=True,
                              encoding="utf-8", timeout=TIMEOUT_S)

    def on_terminal(self, *words, answer=None):
        """What the program shows on a terminal of 80 columns."""
        ours, its = pty.openpty()
        fcntl.ioctl(its, termios.TIOCSWINSZ, struct.pack("HHHH", 24, COLUMNS, 0, 0))
        if answer:
            os.write(ours, answer.encode())
        process = subprocess.Popen([PROGRAM, *words], env=self.env | GERMAN, stdout=its, stderr=its,
                                   stdin=its if answer else subprocess.DEVNULL)
        os.close(its)
        shown = b""
        try:
            while chunk := os.read(ours, 65536):
                shown += chunk
        except OSError:
            pass  # the end of the output
        os.close(ours)
        self.code = process.wait(timeout=TIMEOUT_S)
        return shown.decode().replace("\r\n", "\n")

    def commands(self):
        listed = self.run_vantro("--help").stdout.split("\nBefehle:\n")[1].split("\nExit-Status")[0]
        names = re.findall(r"^  ([a-z-]+)", listed, re.MULTILINE)
        self.assertGreater(len(names), 20)
        return names

    def test_help_is_in_german_and_fits_a_terminal(self):
        for words in ([], *([name] for name in self.commands())):
            german = self.run_vantro(*words, "--help").stdout
            self.assertTrue(german.startswith("Aufruf: vantro"), words)
            for mark in ("Exit-Status: 0 erledigt", "\nOptionen:\n"):
                self.assertIn(mark, german, words)
            for locale in (GERMAN, ENGLISH):
                lines = self.run_vantro(*words, "--help", locale=locale).stdout.splitlines()
                self.assertEqual([line for line in lines if len(line) > COLUMNS], [], words)
            # Nothing is left of the English text but usage, names and values.
            english = self.run_vantro(*words, "--help", locale=ENGLISH).stdout
            sentences = {line.strip() for line in english.splitlines()[1:]
                         if line.strip().count(" ") > 3 and not line.strip().startswith("vantro ")}
            self.assertEqual({line for line in german.splitlines() if line.strip() in sentences}, set(), words)

    def test_errors_are_in_german(self):
        for words, code, text in (
                (["diktat"], 2, "unbekannter Befehl „diktat“ (siehe vantro --help)"),
                (["--diktat"], 2, "unbekannte Option „--diktat“ (siehe vantro --help)"),
                (["--shortcut", "Hyper+Q"], 2, "„Hyper+Q“ ist kein Tastenkürzel"),
                (["models", "tanzen"], 2, "es gibt keine Aktion „tanzen“ (siehe vantro models --help)"),
                (["models", "select"], 2, "models select braucht den Namen eines Modells"),
                (["models", "--tanzen"], 2, "Unbekannte Option „tanzen“."),
                (["models", "select", "nichts"], 3, "es gibt kein Modell „nichts“"),
                (["history", "--limit", "x"], 2, "„x“ ist keine Anzahl von Diktaten"),
                (["settings", "set", "appearance", "rot"], 2, "„rot“ ist keines von: light, dark"),
                (["transcribe", "/nowhere.wav"], 4, "kein Modell: "),
                (["notes", "delete", "abcd", "--yes"], 3, "es gibt keine Notiz „abcd“"),
                (["status"], 4, "status: es gibt keinen Sitzungsbus"),
                (["vocabulary", "import", "/nowhere"], 1, "vocabulary import: ")):
            result = self.run_vantro(*words)
            self.assertEqual((result.returncode, result.stdout), (code, ""), words)
            self.assertIn("\nvantro: " + text, "\n" + result.stderr)

    def test_tables_and_questions_are_in_german_on_a_terminal(self):
        for words in (["add", "Gregsson", "--weight", "2"], ["list"]):
            shown = self.on_terminal("vocabulary", *words)
        self.assertRegex(shown, r"NR\. +WORT +MIT PARAKEET\n#1 +Gregsson +Gewicht 2\n")
        self.assertIn("false: nur kopieren und zeigen", " ".join(self.on_terminal("settings").split()).replace(
            "autoPasteEnabled true ", ""))
        for command in LISTS:
            shown = self.on_terminal(command).splitlines()
            self.assertEqual([line for line in shown if len(line) > COLUMNS and "vantro: " not in line], [],
                             command)
        self.assertIn("Ein Diktat beginnen", self.on_terminal("shortcuts"))
        self.assertIn("Noch keine Diktate.", self.on_terminal("history"))
        for answer, code, kept in (("n\n", 1, True), ("j\n", 0, False), ("y\n", 0, False)):
            self.assertEqual(self.run_vantro("modes", "add", "Brief").returncode, 0)
            self.assertIn("Den Modus Brief mit seiner Anweisung entfernen? [j/N]",
                          self.on_terminal("modes", "remove", "Brief", answer=answer))
            self.assertEqual(self.code, code)
            self.assertEqual("Brief" in self.run_vantro("modes").stdout, kept, answer)
            self.run_vantro("modes", "remove", "Brief", "--yes")

    def test_programs_read_the_same_in_every_language(self):
        self.run_vantro("vocabulary", "add", "Gregsson", "--sounds-like", "greg sun")
        self.run_vantro("applications", "set", "emacs", "--mode", "Email", "--no-full-stop")
        self.run_vantro("modes", "set", "Grammar", "--clean")
        for command in LISTS:
            for words in ([command, "--json"], [command]):
                german, english = (self.run_vantro(*words, locale=locale) for locale in (GERMAN, ENGLISH))
                self.assertEqual(german.returncode, 0, german.stderr)
                self.assertEqual(german.stdout, english.stdout, words)
        refused = [self.run_vantro("models", "verify", "tiny", "--json", locale=locale).stderr
                   for locale in (GERMAN, ENGLISH)]
        self.assertEqual(*refused)
        candidates = [self.run_vantro("complete", "--", "providers", "--", locale=locale).stdout
                      for locale in (GERMAN, ENGLISH)]
        self.assertIn("--max-tokens\tMaximum", candidates[0])
        self.assertEqual(*candidates)

    def test_the_language_is_chosen_as_by_other_programs(self):
        german = "Ein JSON-Objekt."
        for locale, is_german in (({"LANG": "de_DE.UTF-8"}, True), ({"LANG": "de_AT.UTF-8"}, True),
                                  ({"LANG": "en_GB.UTF-8", "LC_MESSAGES": "de_DE.UTF-8"}, True),
                                  ({"LANG": "en_GB.UTF-8", "LANGUAGE": "de"}, True),
                                  ({"LANG": "de_DE.UTF-8", "LANGUAGE": "en"}, False),
                                  ({"LANG": "de_DE.UTF-8", "LC_ALL": "C"}, False),
                                  ({"LANG": "C.UTF-8", "LANGUAGE": "de"}, False),
                                  ({"LANG": "fr_FR.UTF-8"}, False)):
            self.assertEqual(german in self.run_vantro("status", "--help", locale=locale).stdout, is_german, locale)


if __name__ == "__main__":
    unittest.main()
