#!/usr/bin/python3
"""Dictations with a Parakeet entry of the catalogue: the small real model lies under its file's name."""

import shutil
import sys
import tempfile
from pathlib import Path

from dictationcase import ROOT, DictationCase, main, words
from shellcase import SETTINGS_TITLE, SettingsCase

sys.path.insert(0, str(ROOT / "tests" / "models"))
from modelserver import Fault, ModelServer  # noqa: E402

DATA = ROOT / "tests/data/parakeet"
MODEL = "Parakeet v3 (Fluid)"
FILE = "ggml-parakeet-tdt-0.6b-v3-q8_0.bin"
PLAN = DATA / "recordings/sentence-01.flac"
PLAN_TEXT = "Can you show me the plan?"
PETER = DATA / "recordings/sentence-02.flac"
PETER_TEXT = "Good morning, Peter."
TERM = "Lumenor"  # the recogniser by itself mostly writes other words
LATE = DATA / "recordings/term-05.flac"
SKIPPED = "Vocabulary boosting skipped: "
BOOSTING_FILE = "parakeet-tdt_ctc-110m-q8_0.gguf"


def install_parakeet(vantro, **settings):
    vantro.models_folder.mkdir(parents=True, exist_ok=True)
    shutil.copy(DATA / "parakeet-micro-tdt-q8_0.bin", vantro.models_folder / FILE)
    vantro.configure(selectedModelName=f'"{MODEL}"', **settings)


class ParakeetTest(DictationCase):
    @classmethod
    def prepare_profile(cls):
        install_parakeet(cls.vantro)

    def test_what_is_said_arrives_in_the_editor(self):
        self.assertEqual(self.vantro.status()["model"], MODEL)
        for recording, text in ((PLAN, PLAN_TEXT), (PETER, PETER_TEXT)):
            before = self.editor.text()
            self.dictate(recording)
            self.wait(lambda: words(self.editor.text()[len(before):]) == words(text), 30, "the text in the editor")
            self.wait_until_over()
        self.assertIn(f"Transcribing with Fluid ({MODEL})", self.news())
        self.assertEqual(self.news().count("Loading Fluid model"), 1)
        self.assertIn("Tail coverage OK", self.news())


class VocabularyTest(SettingsCase):
    """A word that the recogniser does not know, from the settings to the editor."""

    @classmethod
    def prepare_profile(cls):
        super().prepare_profile()
        cls.hosted = Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        shutil.copy(DATA / "parakeet-micro-ctc.gguf", cls.hosted / BOOSTING_FILE)
        cls.server = cls.enterClassContext(ModelServer(cls.hosted))
        install_parakeet(cls.vantro, modelHostBaseURL=cls.server.url)

    def dictated(self):
        before = self.editor.text()
        self.dictate(LATE)
        self.wait(lambda: len(self.editor.text()) > len(before), 30, "text in the editor")
        self.wait_until_over()
        return self.editor.text()[len(before):]

    def add_the_word(self):
        self.open("Vocabulary")
        self.tab_to("Word")
        self.desktop.type_text(TERM)
        self.desktop.press("Return")
        self.wait(lambda: TERM in self.vantro.run("vocabulary").stdout, 5, "the word in the list")
        # What the virtual microphone hears on a busy machine is not always said well enough.
        self.vantro.run("vocabulary", "add", TERM, "--weight", "4")

    def fetch_the_model(self):
        """The connection breaks once."""
        self.server.fault = Fault(cut_after=1_000_000, bytes_per_s=1_000_000, once=True)
        self.tab_to("Download")
        self.desktop.press("space")
        self.wait(lambda: "Cancel" in self.shown(), 5, "the progress")
        self.wait(lambda: any(text.startswith("Ready: ") for text in self.shown()), 30, "the model to be ready")
        self.assertFalse([text for text in self.shown() if "latest dictation" in text])

    def focused(self):
        node = self.reader.focused(SETTINGS_TITLE)
        return node and (node.name, node.description)

    def test_words_are_edited_and_removed_by_keyboard(self):
        self.vantro.run("vocabulary", "add", "Aldora", "Bremont", "Cassini")
        self.open("Vocabulary")
        self.tab_to("Edit word", of="Bremont")
        self.desktop.press("space")
        self.desktop.type_text("bray mont")
        self.desktop.press("Return")
        self.wait(lambda: "Sounds like: bray mont" in self.shown(), 5, "the spelling in its row")
        self.assertEqual(self.focused(), ("Edit word", "Bremont"))
        # Somebody changes the list meanwhile.
        self.desktop.press("space")
        self.desktop.type_text(", bre")
        self.vantro.run("vocabulary", "remove", "Aldora")
        self.wait(lambda: "Aldora" not in self.shown(), 5, "the other word to go")
        self.desktop.type_text("mon")
        self.desktop.press("Return")
        self.wait(lambda: "Sounds like: bray mont, bremon" in self.shown(), 5, "both spellings")
        self.tab_to("Remove", of="Bremont")
        self.desktop.press("space")
        self.wait(lambda: self.focused() == ("Edit word", "Cassini"), 5, "the keyboard in the row that follows")
        self.assertIn("\"Bremont\" has been removed.", self.shown(), "in sight")
        self.desktop.press("ctrl+z")
        self.wait(lambda: self.focused() == ("Edit word", "Bremont"), 5, "the keyboard in the row that is back")
        self.assertIn("Sounds like: bray mont, bremon", self.shown())
        self.close(SETTINGS_TITLE)
        for word in ("Bremont", "Cassini"):
            self.vantro.run("vocabulary", "remove", word)

    def test_a_word_is_added_its_model_fetched_and_the_word_written(self):
        self.add_the_word()
        self.close(SETTINGS_TITLE)
        self.dictated()
        self.assertEqual(self.news().count(SKIPPED), 1)
        self.open("Vocabulary")
        self.fetch_the_model()
        self.close(SETTINGS_TITLE)
        # On a busy machine the virtual microphone may leave gaps.
        self.assertTrue(any(TERM in self.dictated() for _ in range(3)), self.news())
        self.assertEqual(self.news().count(SKIPPED), 1)
        self.assertIn("CTC keyword spotting finished", self.news())
        (self.vantro.models_folder / BOOSTING_FILE).write_bytes(b"no model")
        self.dictated()
        self.assertEqual(self.news().count(SKIPPED), 2)


if __name__ == "__main__":
    main()
