#!/usr/bin/python3
"""What commands make of the settings file: many at once, one that cannot be written, one that was damaged.

VANTRO_PROGRAM names the program.
"""

import contextlib
import fcntl
import json
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
NOT_SAVED = 5
SERVER = ("--type", "Custom", "--model", "m", "--base-url", "http://localhost:1/v1")


def names_in(value):
    """The names of all members."""
    if isinstance(value, dict):
        yield from value
        value = list(value.values())
    for each in value if isinstance(value, list) else []:
        yield from names_in(each)


class SettingsCase(unittest.TestCase):
    def setUp(self):
        self.profile = Path(self.enterContext(tempfile.TemporaryDirectory(prefix="vantro-settings-")))
        self.env = {name: value for name, value in os.environ.items()
                    if not name.startswith("XDG_") and name not in ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS")}
        self.env |= {"XDG_DATA_HOME": str(self.profile / "data"), "XDG_CONFIG_HOME": str(self.profile / "config"),
                     "DISPLAY": ":99999", "DBUS_SESSION_BUS_ADDRESS": "unix:path=/nowhere", "LC_ALL": "C.UTF-8"}
        self.folder = self.profile / "config/vantro"
        self.file = self.folder / "vantro.ini"

    def start(self, *words):
        return subprocess.Popen([PROGRAM, *words], env=self.env, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE, text=True)

    def run_vantro(self, *words):
        process = self.start(*words)
        output, errors = process.communicate(timeout=TIMEOUT_S)
        return subprocess.CompletedProcess(words, process.returncode, output, errors)

    def listed(self, command):
        result = self.run_vantro(command, "list", "--json")
        self.assertEqual(result.returncode, 0, result.stderr)
        return json.loads(result.stdout)

    def test_members_of_json_are_all_named_alike(self):
        for words in (("vocabulary", "add", "Gregsson", "--sounds-like", "greg sun"), ("replacements", "add", "um", "-"),
                      ("providers", "add", "--name", "House", *SERVER), ("modes", "set", "Email", "--provider", "House"),
                      ("applications", "set", "emacs", "--paste-keys", "ctrl+v")):
            self.assertEqual(self.run_vantro(*words).returncode, 0, words)
        odd = {}
        for command in ("applications", "cleaning", "history", "models", "modes", "notes", "providers", "replacements",
                        "settings", "shortcuts", "vocabulary"):
            result = self.run_vantro(command, "--json")
            self.assertTrue(result.stdout.startswith(("[", "{")), f"{command}: {result.stderr}")
            odd[command] = sorted(name for name in names_in(json.loads(result.stdout))
                                  if not re.fullmatch(r"[a-z0-9]+(_[a-z0-9]+)*", name))
        self.assertEqual({command: names for command, names in odd.items() if names}, {})
        self.assertEqual(self.listed("applications"),
                         [{"application": "emacs", "full_stop": True, "mode": None, "paste_keys": "Ctrl+V"}])
        self.assertEqual(self.run_vantro("applications", "set", "emacs", "--paste-keys", "Ctrl+P").returncode, 2)

    def test_of_many_changes_at_once_none_is_lost(self):
        names = [f"name{number}" for number in range(8)]
        calls = [("vocabulary", "add", name) for name in names]
        calls += [("replacements", "add", name, "with") for name in names]
        calls += [("providers", "add", "--name", name, *SERVER) for name in names]
        calls += [("modes", "set", mode, "--prompt", mode) for mode in ("Email", "Grammar", "Custom", "Notes")]
        processes = [self.start(*call) for call in calls]
        for process in processes:
            _, errors = process.communicate(timeout=TIMEOUT_S)
            self.assertEqual(process.returncode, 0, errors)
        self.assertEqual(sorted(self.listed("vocabulary")), names)
        self.assertEqual(sorted(entry["find"] for entry in self.listed("replacements")), names)
        self.assertEqual(sorted(entry["name"] for entry in self.listed("providers") if entry["name"] in names), names)
        self.assertEqual(len(self.listed("providers")), 3 + len(names), "the public ones are made once")
        prompts = {entry["mode"]: entry["prompt"] for entry in self.listed("modes") if entry["mode"] != "Normal"}
        self.assertEqual(prompts, {mode: mode for mode in prompts})

    def test_a_change_waits_for_one_that_takes_long(self):
        self.run_vantro("vocabulary", "add", "old")
        with (self.folder / ".vantro.ini.change").open() as lock:
            fcntl.flock(lock, fcntl.LOCK_EX)
            process = self.start("vocabulary", "add", "new")
            with self.assertRaises(subprocess.TimeoutExpired):
                process.wait(3)
            self.assertEqual(self.listed("vocabulary"), ["old"])
        self.assertEqual(process.communicate(timeout=TIMEOUT_S)[1], "")
        self.assertEqual(process.returncode, 0)
        self.assertEqual(self.listed("vocabulary"), ["old", "new"])

    def test_what_is_not_written_is_an_error_and_reading_goes_on(self):
        self.run_vantro("vocabulary", "add", "old")
        (self.profile / "file").touch()
        self.env["XDG_CONFIG_HOME"] = str(self.profile / "file")
        for call in (("vocabulary", "add", "word"), ("replacements", "add", "find", "with"),
                     ("modes", "set", "Email", "--prompt", "p"), ("modes", "default", "Notes"),
                     ("providers", "add", "--name", "mine", *SERVER), ("providers", "edit", "OpenAI", "--name", "b"),
                     ("providers", "remove", "OpenAI", "--yes"), ("models", "select", "tiny.en"),
                     ("shortcuts", "mode", "hold"), ("devices", "bluetooth", "on")):
            with self.subTest(call):
                result = self.run_vantro(*call)
                self.assertEqual(result.returncode, NOT_SAVED, result.stdout + result.stderr)
                self.assertEqual(result.stdout, "")
                self.assertIn("vantro.ini cannot be written", result.stderr)
        for command in ("vocabulary", "modes", "providers", "models"):
            self.assertEqual(self.run_vantro(command).returncode, 0, command)

    def test_a_file_that_cannot_be_read_is_not_written_over(self):
        self.run_vantro("vocabulary", "add", "old")
        if os.geteuid() == 0:
            self.skipTest("nothing is unreadable for root")
        self.file.chmod(0)
        self.assertEqual(self.run_vantro("vocabulary", "add", "new").returncode, NOT_SAVED)
        self.file.chmod(0o600)
        self.assertEqual(self.listed("vocabulary")[0], "old")

    def test_settings_are_listed_changed_and_reset_and_nonsense_is_refused(self):
        listed = {row["key"]: row for row in self.listed("settings")}
        self.assertGreater(len(listed), 15)
        self.assertTrue(all(row["is_default"] and row["meaning"] for row in listed.values()))
        for key, value, stored in (("autopasteenabled", "off", "false"), ("SelectedLanguage", "DE", "de"),
                                   ("keepHistory", "30", "30"), ("keepHistory", "Never", "never"),
                                   ("defaultProcessingMode", "notes", "Notes"), ("appearance", "Dark", "dark"),
                                   ("selectedModelName", "parakeet-v2", "Parakeet v2 (Fluid, English)"),
                                   ("pasteChords", '{"st": "Ctrl+Shift+V"}', '{"st": "Ctrl+Shift+V"}')):
            self.assertEqual(self.run_vantro("settings", "set", key, value).returncode, 0, (key, value))
            self.assertEqual(self.run_vantro("settings", "get", key).stdout, stored + "\n")
        self.assertEqual(self.run_vantro("settings", "reset", "keepHistory").returncode, 0)
        self.assertEqual(self.run_vantro("settings", "get", "keepHistory").stdout, "forever\n")
        before = self.file.read_text()
        for words, code in ((("set", "autoPasteEnabled", "maybe"), 2), (("set", "SelectedLanguage", "klingon"), 2),
                            (("set", "keepHistory", "0"), 2), (("set", "appearance", "pink"), 2),
                            (("set", "pasteChords", "{"), 2), (("set", "selectedModelName", "huge"), 2),
                            (("set", "modelHostBaseURL", "nowhere"), 2), (("get", "nothing"), 3), (("set", "holdToTalk"), 2)):
            result = self.run_vantro("settings", *words)
            self.assertEqual((result.returncode, result.stdout), (code, ""), words)
            self.assertTrue(result.stderr, words)
        self.assertEqual(self.file.read_text(), before)

    def test_every_table_fits_its_terminal(self):
        self.run_vantro("providers", "add", "--name", "A provider with a name that is far too long for it" * 2, *SERVER)
        self.run_vantro("vocabulary", "add", "word", "--sounds-like", "a spelling of many words " * 5)
        self.run_vantro("replacements", "add", "a text of many words " * 5, "another text " * 10)
        for command in ("settings", "models", "providers", "devices", "history", "notes", "vocabulary", "replacements"):
            for line in self.on_terminal(command, columns=80).splitlines():
                self.assertLessEqual(len(line), 80, (command, line))
        self.assertIn("\x1b[1m", self.on_terminal("models", columns=80, plain=False))
        self.assertNotIn("\x1b", self.on_terminal("models", columns=80, plain=False, NO_COLOR="1"))

    def on_terminal(self, *words, columns, plain=True, **env):
        ours, theirs = pty.openpty()
        fcntl.ioctl(theirs, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))
        process = subprocess.Popen([PROGRAM, *words], env=self.env | {"TERM": "xterm", "LC_ALL": "C.UTF-8"} | env,
                                   stdin=subprocess.DEVNULL, stdout=theirs, stderr=subprocess.DEVNULL)
        os.close(theirs)
        output = b""
        with contextlib.suppress(OSError):  # the end of a terminal
            while piece := os.read(ours, 65536):
                output += piece
        process.wait(TIMEOUT_S)
        os.close(ours)
        text = output.decode().replace("\r\n", "\n")
        return re.sub(r"\x1b\[[0-9;]*m", "", text) if plain else text

    def test_a_stray_line_costs_nothing(self):
        for words in (("vocabulary", "add", "old"), ("shortcuts", "mode", "hold"), ("modes",)):
            self.assertEqual(self.run_vantro(*words).returncode, 0)
        damaged = self.file.read_text() + "a stray line\n"
        self.file.write_text(damaged)
        for command in ("vocabulary", "modes", "providers", "models", "shortcuts", "replacements"):
            self.run_vantro(command)
        self.assertEqual(self.file.read_text(), damaged, "reading changes nothing")
        self.assertEqual(self.listed("vocabulary")[0], "old")

        self.assertEqual(self.run_vantro("vocabulary", "add", "new").returncode, 0)
        self.assertEqual(self.listed("vocabulary"), ["old", "new"])
        self.assertEqual(self.run_vantro("shortcuts", "mode").stdout, "hold\n")
        self.assertEqual((self.folder / "vantro.ini.damaged").read_text(), damaged)
        self.run_vantro("vocabulary", "add", "more")
        self.assertEqual([path.name for path in self.folder.glob("*damaged*")], ["vantro.ini.damaged"])


if __name__ == "__main__":
    unittest.main()
