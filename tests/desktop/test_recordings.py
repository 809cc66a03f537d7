#!/usr/bin/python3
"""Recordings that are kept with their dictations: heard again, transcribed again, and gone with them."""

import json
import stat
import time

from dictationcase import CHILD, CHILD_WORDS, main, words
from shellcase import ShellCase

from accessibility import ScreenReader
from program import poll_until

TITLE = "vantro history"
MOST_STOPS = 30


class RecordingsTest(ShellCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.vantro.quit()
        cls.desktop.env["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        cls.vantro.start()
        cls.reader = ScreenReader(cls.desktop, "vantro")
        cls.folder = cls.vantro.history_file.parent / "recordings"

    def setUp(self):
        super().setUp()
        self.settings("set", "keepRecordings", "30")

    def settings(self, *words_):
        self.assertEqual(self.vantro.run("settings", *words_).returncode, 0)

    def files(self):
        return sorted(self.folder.glob("*")) if self.folder.is_dir() else []

    def stored(self):
        return json.loads(self.vantro.run("history", "--json").stdout)

    def dictate_one(self):
        before = len(self.editor.text())
        self.dictate(CHILD)
        self.wait(lambda: words(self.editor.text()[before:]) == CHILD_WORDS, 60, "the text")
        self.wait_until_over()

    def empty(self):
        for row in self.stored():
            self.vantro.run("history", "delete", "--yes", row["id"])

    def tab_to(self, name):
        for _ in range(MOST_STOPS):
            focused = self.reader.focused(TITLE)
            if focused and focused.name == name:
                return
            self.desktop.press("Tab")
            poll_until(lambda: (now := self.reader.focused(TITLE)) and (not focused or now.address != focused.address), 2)
        self.fail(f"no stop is named {name}")

    def names(self):
        return [node.name for node in self.reader.controls(TITLE)]

    def playing(self):
        return bool(self.desktop.audio._pactl("list", "short", "sink-inputs").strip())

    def open_history(self):
        self.assertEqual(self.vantro.run("show", "history").returncode, 0)
        self.has_keyboard(self.window(TITLE))
        self.desktop.press("Down")

    def test_a_recording_is_heard_transcribed_again_and_deleted_with_its_dictation(self):
        self.empty()
        self.dictate_one()
        self.wait(lambda: len(self.files()) == 1, 10, "the recording")
        file = self.files()[0]
        row = self.stored()[0]
        self.assertEqual(file.name, row["id"] + ".flac")
        self.assertEqual(stat.S_IMODE(file.stat().st_mode), 0o600)
        self.assertEqual(stat.S_IMODE(self.folder.stat().st_mode), 0o700)
        self.assertEqual(json.loads(self.vantro.run("history", "show", row["id"], "--json").stdout)["audio"], str(file))
        copy = self.folder.parent / "copy.flac"
        self.assertEqual(self.vantro.run("history", "audio", row["id"][:8], str(copy)).returncode, 0)
        self.assertEqual(words(self.vantro.run("transcribe", str(copy)).stdout), CHILD_WORDS)

        self.open_history()
        self.tab_to("Play")
        self.desktop.press("space")
        self.wait(self.playing, 10, "the sound")
        self.wait(lambda: "Pause" in self.names(), 5, "the button to be for a pause")
        self.desktop.press("space")
        self.wait(lambda: not self.playing(), 5, "the pause")
        self.desktop.press("Tab")
        self.desktop.press("End")
        self.desktop.press("shift+Tab")
        self.desktop.press("space")
        self.wait(lambda: "Play" in self.names() and not self.playing(), 20, "it to have ended")

        self.vantro.run("replacements", "add", "child", "walrus")
        self.addCleanup(self.vantro.run, "replacements", "remove", "child")
        self.choose_first("Transcribe again...")
        self.wait(lambda: "walrus" in self.stored()[0]["transcription"], 60, "the new text")
        self.desktop.press("ctrl+z")
        self.wait(lambda: self.stored()[0]["transcription"] == row["transcription"], 5, "the former text")

        self.tab_to("Delete")
        self.desktop.press("space")
        self.wait(lambda: not self.stored(), 5, "the deletion")
        self.desktop.press("ctrl+z")
        self.wait(lambda: self.stored(), 5, "it to come back")
        self.wait(lambda: "Play" in self.names(), 5, "its recording")
        self.tab_to("Delete")
        self.desktop.press("space")
        self.wait(lambda: not self.stored(), 5, "the deletion")
        self.close(TITLE)
        self.wait(lambda: not self.files(), 10, "the recording to go with the window")

    def notes(self):
        shown = self.vantro.run("notes", "show", "--json")
        return json.loads(shown.stdout)["notes"] if shown.returncode == 0 else []

    def choose_first(self, name):
        self.tab_to(name)
        for key in ("space", "Down", "Return"):
            self.desktop.press(key)
            time.sleep(0.2)  # the list opens

    def file_note(self):
        self.vantro.open_launcher()
        self.desktop.press("2")
        self.speak(CHILD)
        self.vantro.end_dictation()
        self.wait(self.files, 60, "the recording")
        self.wait_until_over()

    def test_a_note_keeps_its_recording_as_a_dictation_does(self):
        self.empty()
        self.file_note()
        note, = self.notes()
        self.assertEqual(words(note["transcription"]), CHILD_WORDS)
        self.assertEqual([str(file) for file in self.files()], [note["audio"]])
        self.assertEqual(stat.S_IMODE(self.files()[0].stat().st_mode), 0o600)

        self.assertEqual(self.vantro.run("show", "notes").returncode, 0)
        self.has_keyboard(self.window(TITLE))
        self.tab_to("Play")
        self.desktop.press("space")
        self.wait(self.playing, 10, "the sound")
        self.desktop.press("space")
        self.wait(lambda: not self.playing(), 5, "the pause")
        self.vantro.run("replacements", "add", "child", "walrus")
        self.addCleanup(self.vantro.run, "replacements", "remove", "child")
        self.choose_first("Transcribe again...")
        self.wait(lambda: "walrus" in self.notes()[0]["transcription"], 60, "the new text")
        self.desktop.press("ctrl+z")
        self.wait(lambda: self.notes()[0]["transcription"] == note["transcription"], 5, "the former text")

        self.tab_to("Delete")
        self.desktop.press("space")
        self.wait(lambda: not self.notes(), 5, "the deletion")
        self.desktop.press("ctrl+z")
        self.wait(self.notes, 5, "it to come back")
        self.wait(lambda: "Play" in self.names(), 5, "its recording")
        self.close(TITLE)
        self.assertEqual(len(self.files()), 1)
        self.assertEqual(self.vantro.run("notes", "delete", "--yes", note["id"]).returncode, 0)
        self.assertEqual(self.files(), [], "a command cannot be undone")

    def test_commands_delete_recordings_at_once(self):
        self.dictate_one()
        self.wait(self.files, 10, "the recording")
        row = self.stored()[0]
        self.vantro.run("history", "delete", "--yes", row["id"])
        self.assertEqual(self.files(), [])
        self.dictate_one()
        self.wait(self.files, 10, "the recording")
        self.settings("set", "keepRecordings", "never")
        self.wait(lambda: not self.files(), 10, "the recording to go")
        missing = self.vantro.run("history", "audio", self.stored()[0]["id"])
        self.assertEqual(missing.returncode, 3)
        self.assertIn("keepRecordings", missing.stderr)
        self.dictate_one()
        self.assertEqual(self.files(), [], "nothing is kept unless it is wanted")

    def test_a_folder_in_which_nothing_can_be_written_costs_no_text_and_is_told_once(self):
        self.wait(lambda: not self.files(), 10, "the folder to be empty")
        if self.folder.is_dir():
            self.folder.rmdir()
        self.folder.write_text("in the way")
        self.addCleanup(self.folder.unlink)
        count = len(self.stored())
        self.dictate_one()
        self.dismiss_alert_saying("not their recordings")
        self.dictate_one()
        self.assertEqual(len(self.stored()), count + 2)
        self.assertEqual(self.vantro.alerts(), [])


if __name__ == "__main__":
    main()
