#!/usr/bin/python3
"""Dictations with a Parakeet entry of the catalogue: the small real model lies under its file's name."""

import json
import os
import shutil
import signal
import time

from dictationcase import CANCEL_KEY, ROOT, DictationCase, main, words

DATA = ROOT / "tests/data/parakeet"
MODEL = "Parakeet v3 (Fluid)"
FILE = "ggml-parakeet-tdt-0.6b-v3-q8_0.bin"
PLAN = DATA / "recordings/sentence-01.flac"
PLAN_TEXT = "Can you show me the plan?"
PETER = DATA / "recordings/sentence-02.flac"
PETER_TEXT = "Good morning, Peter."
LONG = DATA / "recordings/long-01.flac"


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
        self.assertEqual(self.news().count("Loading Fluid model"), 0 if self.was_loaded() else 1)
        self.assertIn("Tail coverage OK", self.news())

    def was_loaded(self):
        return "Fluid model parakeet-tdt-0.6b-v3 ready" in self.vantro.log()[:self._log_before]

    def test_a_cancelled_dictation_leaves_no_trace_and_the_next_one_works(self):
        with self.delivers_nothing():
            self.vantro.open_launcher()
            self.speak(LONG)
            self.vantro.end_dictation()
            self.stand_still_when("Transcribing with")
            self.desktop.press(CANCEL_KEY)
            os.kill(self.vantro.process.pid, signal.SIGCONT)
            self.wait_until_over()
        self.dictate(PETER)
        self.assertEqual(words(self.wait_for_text()), words(PETER_TEXT))

    def stand_still_when(self, line):
        """Holds the program when it has logged this: the small model is done sooner than a test could look."""
        deadline = time.monotonic() + 20
        while line not in self.news():
            self.assertLess(time.monotonic(), deadline, f"{line} was not logged")
            os.kill(self.vantro.process.pid, signal.SIGCONT)
            time.sleep(0.002)
            os.kill(self.vantro.process.pid, signal.SIGSTOP)

    def test_a_file_becomes_json_with_the_times_of_its_tokens(self):
        result = self.vantro.run("transcribe", "--model", MODEL, "--json", str(PLAN))
        self.assertEqual(result.returncode, 0, result.stderr)
        transcript = json.loads(result.stdout)
        self.assertEqual(transcript["text"], PLAN_TEXT)
        starts = [token["start_s"] for token in transcript["tokens"]]
        self.assertEqual(starts, sorted(starts))
        self.assertTrue(all(0 < token["confidence"] <= 1 for token in transcript["tokens"]))


if __name__ == "__main__":
    main()
