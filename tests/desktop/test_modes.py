#!/usr/bin/python3
"""Dictations in the processing modes: what is delivered, and what stands in the history afterwards."""

import json
import sys

from dictationcase import CHILD, CHILD_WORDS, TABLE, ROOT, DictationCase, main, words

sys.path.insert(0, str(ROOT / "tests" / "ai" / "services"))
from chatserver import Answer, ChatServer  # noqa: E402

PROMPT = "Translate into German."
TRANSLATION = "Das Kind verletzte beinahe den kleinen Hund."
SUMMARY = "A child, a dog, a table."
KEY_OF_2 = 11  # wherever it is, and whatever stands on it


class ModesTest(DictationCase):
    @classmethod
    def setUpClass(cls):
        cls.server = cls.enterClassContext(ChatServer())
        super().setUpClass()

    @classmethod
    def prepare_profile(cls):
        super().prepare_profile()
        cls.command("providers", "add", "--type", "custom", "--name", "House", "--model", "small", "--base-url",
                    cls.server.url + "/v1", "--key-stdin", stdin=b"sk-house")
        for mode in ("Email", "Grammar"):  # which take the first provider
            cls.command("modes", "set", mode, "--no-provider")
        cls.command("modes", "set", "Custom", "--name", "Translate", "--prompt", PROMPT, "--provider", "House")
        cls.command("modes", "set", "Notes", "--provider", "House")

    def setUp(self):
        super().setUp()
        if stored := self.history():
            self.command("history", "delete", "--yes", *[row["id"] for row in stored])
        self.server.requests.clear()

    # --- steps

    @classmethod
    def command(cls, *arguments, stdin=None):
        result = cls.vantro.run(*arguments, stdin=stdin)
        if result.returncode != 0:
            raise AssertionError(f"vantro {' '.join(arguments)}: {result.stderr}")
        return result.stdout

    def history(self):
        return json.loads(self.command("history", "--json"))

    def dictate_in(self, digit, recording):
        """Chooses the mode as the user does, by its place in the launcher."""
        self.vantro.open_launcher()
        self.desktop.press(digit)
        self.speak(recording)
        self.vantro.end_dictation()

    # --- tests

    def test_normal_delivers_and_stores_the_transcript(self):
        self.dictate(CHILD)
        self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)
        row, = self.history()
        self.assertEqual((row["processing_mode"], words(row["transcription"]), row["formatted"]),
                         ("Normal", CHILD_WORDS, ""))
        self.assertEqual(self.server.requests, [], "Normal asks nobody")

    def test_a_mode_cleans_by_rules_without_asking_anybody(self):
        self.command("modes", "set", "Normal", "--clean")
        self.addCleanup(self.command, "modes", "set", "Normal", "--no-provider")
        self.command("cleaning", "add", "almost")
        self.addCleanup(self.command, "cleaning", "reset")
        self.dictate(CHILD)
        self.assertEqual(self.wait_for_text(), "The child hurt the small dog.")
        row, = self.history()
        self.assertEqual((words(row["transcription"]), row["formatted"]),
                         (CHILD_WORDS, "The child hurt the small dog."))
        self.assertEqual(self.server.requests, [])

    def test_an_application_has_a_mode_of_its_own_and_no_full_stop(self):
        self.server.answer = Answer.chat(TRANSLATION)
        self.command("applications", "set", "MOUSEPAD", "--mode", "translate", "--no-full-stop")
        self.addCleanup(self.command, "applications", "remove", "mousepad")
        self.dictate(CHILD)
        self.wait(lambda: self.arrived() == TRANSLATION.rstrip("."), 60, "the translation without its full stop")
        self.wait_until_over()

    def test_custom_delivers_what_the_model_wrote_and_keeps_both_texts(self):
        self.server.answer = Answer.chat(TRANSLATION)
        self.dictate_in("2", CHILD)
        self.wait(lambda: self.arrived() == TRANSLATION, 60, "the translation in the editor")
        self.wait_until_over()
        row, = self.history()
        self.assertEqual((row["processing_mode"], words(row["transcription"]), row["formatted"]),
                         ("Custom", CHILD_WORDS, TRANSLATION))
        system = json.loads(self.server.requests[0]["body"])["messages"][0]["content"]
        self.assertTrue(system.startswith(PROMPT), system)

    def test_a_mode_of_ones_own_has_its_digit_and_is_gone_when_removed(self):
        self.command("modes", "add", "Letters", "--prompt", "Write a letter.", "--provider", "House")
        self.command("modes", "move", "Letters", "2")
        self.server.answer = Answer.chat("Dear child, the dog is well.")
        self.dictate_in("2", CHILD)
        self.assertEqual(self.wait_for_text().strip(), "Dear child, the dog is well.")
        self.wait_until_over()
        self.assertEqual(len(json.loads(self.command("history", "--mode", "Letters", "--json"))), 1)
        self.assertEqual(self.vantro.run("modes", "add", "letters").returncode, 2, "there is one")
        self.assertEqual(self.vantro.run("modes", "remove", "Email", "--yes").returncode, 2, "it is built in")
        self.assertEqual(self.vantro.run("modes", "add", "Broken", "--provider", "Nobody").returncode, 3)
        self.command("modes", "default", "Letters")
        self.command("modes", "remove", "Letters", "--yes")
        names = [mode["name"] for mode in json.loads(self.command("modes", "--json"))]
        self.assertEqual(names, ["Normal", "Email", "Grammar", "Translate", "Notes"])
        self.dictate(CHILD)
        self.wait_until_over()
        self.wait(lambda: words(self.arrived())[-len(CHILD_WORDS):] == CHILD_WORDS, 10,
                  "the words themselves: the default is Normal again")
        self.command("modes", "default", "Normal")

    def test_a_digit_that_the_layout_has_with_shift_is_chosen_by_its_key(self):
        self.server.answer = Answer.chat(TRANSLATION)
        self.desktop.run("setxkbmap", "fr")
        self.addCleanup(self.desktop.run, "setxkbmap", "us")
        self.vantro.open_launcher()
        for down in (True, False):
            self.desktop.display.key_code(KEY_OF_2, down)
        self.speak(CHILD)
        self.vantro.end_dictation()
        self.wait(lambda: self.arrived() == TRANSLATION, 60, "the translation in the editor")
        self.wait_until_over()

    def test_notes_are_filed_and_summarized_and_not_pasted(self):
        self.server.answer = Answer.chat(SUMMARY)
        with self.delivers_nothing():
            self.dictate_in("3", CHILD)
            self.vantro.wait_until_closed(timeout_s=5)
            self.wait_until_over()
            self.dictate_in("3", TABLE)
            self.wait_until_over()
        day, = json.loads(self.command("notes", "--json"))
        self.assertEqual(day["formatted"], SUMMARY)
        both = json.loads(self.server.requests[-1]["body"])["messages"][1]["content"].split("\n\n---\n\n")
        self.assertEqual(words(both[0]), CHILD_WORDS)
        self.assertEqual(len(both), 2)
        self.assertEqual(self.history(), [], "a note is no dictation of the history")

    def test_the_running_program_takes_over_what_the_command_line_changes(self):
        self.command("replacements", "add", "small dog", "$1 Great Dane")
        self.addCleanup(self.command, "replacements", "remove", "small dog")
        self.dictate(CHILD)
        self.assertTrue(self.wait_for_text().rstrip(". ").endswith("hurt the $1 Great Dane"))
        self.assertIn("$1 Great Dane", self.history()[0]["transcription"])
        said = self.vantro.run("transcribe", CHILD).stdout
        self.assertIn("$1 Great Dane", said)


if __name__ == "__main__":
    main()
