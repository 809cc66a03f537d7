#!/usr/bin/python3
"""Dictations with a Parakeet entry of the catalogue: the small real model lies under its file's name."""

import shutil

from dictationcase import ROOT, DictationCase, main, words

DATA = ROOT / "tests/data/parakeet"
MODEL = "Parakeet v3 (Fluid)"
FILE = "ggml-parakeet-tdt-0.6b-v3-q8_0.bin"
PLAN = DATA / "recordings/sentence-01.flac"
PLAN_TEXT = "Can you show me the plan?"
PETER = DATA / "recordings/sentence-02.flac"
PETER_TEXT = "Good morning, Peter."


class ParakeetTest(DictationCase):
    @classmethod
    def prepare_profile(cls):
        cls.vantro.models_folder.mkdir(parents=True, exist_ok=True)
        shutil.copy(DATA / "parakeet-micro-tdt-q8_0.bin", cls.vantro.models_folder / FILE)
        cls.vantro.configure(selectedModelName=f'"{MODEL}"')

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


if __name__ == "__main__":
    main()
