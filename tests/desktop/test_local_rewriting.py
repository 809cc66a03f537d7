#!/usr/bin/python3
"""Dictations that this computer rewrites itself, with a small real language model and no server anywhere."""

import json
import os
import sys
from pathlib import Path
from unittest import SkipTest

from dictationcase import CANCEL_KEY, CHILD, CHILD_WORDS, DictationCase, main, words

CACHE = Path(os.environ.get("XDG_CACHE_HOME", Path.home() / ".cache"))
MODEL = CACHE / "vantro-build/models/SmolLM2-135M-Instruct.Q4_1.gguf"
NAME = MODEL.stem


class LocalRewritingTest(DictationCase):
    @classmethod
    def setUpClass(cls):
        if not MODEL.exists():
            raise SkipTest("the small language model is not there: run scripts/get-language-model")
        super().setUpClass()

    @classmethod
    def prepare_profile(cls):
        super().prepare_profile()
        cls.command("models", "add", str(MODEL))
        cls.command("modes", "set", "Custom", "--prompt", "Repeat the text.", "--local")
        cls.command("settings", "set", "defaultProcessingMode", "Custom")

    @classmethod
    def command(cls, *arguments):
        result = cls.vantro.run(*arguments)
        if result.returncode != 0:
            raise AssertionError(f"vantro {' '.join(arguments)}: {result.stderr}")
        return result.stdout

    def is_loaded(self):
        return MODEL.name in Path(f"/proc/{self.vantro.process.pid}/maps").read_text()

    def latest(self):
        return json.loads(self.command("history", "--json"))[0]

    # --- tests

    def test_the_model_loads_while_one_speaks_rewrites_and_gives_its_memory_back(self):
        self.vantro.open_launcher()
        self.wait(self.is_loaded, 60, "the language model to be loaded while the user speaks")
        self.speak(CHILD)
        self.vantro.end_dictation()
        text = self.wait_for_text()
        self.wait_until_over()
        # So small a model is not always believed; then the words are there as they were said.
        kept = self.latest()
        self.assertEqual(words(kept["transcription"]), CHILD_WORDS)
        self.assertIn(text.strip(), (kept.get("formatted", "").strip(), kept["transcription"].strip()))
        self.assertIn(f"Using this computer ({NAME}) for Custom", self.news())
        self.wait(lambda: not self.is_loaded(), 30, "the memory to be given back")

    def test_escape_ends_it_and_the_next_dictation_works(self):
        self.dictate(CHILD)
        self.wait(lambda: "Processing transcription" in self.news(), 60, "the rewriting")
        self.desktop.press(CANCEL_KEY)
        self.wait_until_over()
        self.assertEqual(self.arrived(), "")
        self.assertEqual(words(self.latest()["transcription"]), CHILD_WORDS)
        self.dictate(CHILD)
        self.wait_for_text()

    def test_a_model_that_has_gone_is_told_and_nothing_is_lost(self):
        self.command("models", "remove", NAME)
        try:
            with self.delivers_nothing():
                self.dictate(CHILD)
                self.dismiss_alert_saying("Please download a language model under Settings, Models")
                self.wait_until_over()
            self.assertEqual(words(self.latest()["transcription"]), CHILD_WORDS)
        finally:
            self.command("models", "add", str(MODEL))


if __name__ == "__main__":
    sys.exit(main())
