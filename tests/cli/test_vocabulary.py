#!/usr/bin/python3
"""The user's words at the command line: in transcripts, tried on a recording, and with what they sound like.

VANTRO_PROGRAM names the program, VANTRO_SOURCE_DIR the source.
"""

import json
import os
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

SOURCE = Path(os.environ.get("VANTRO_SOURCE_DIR", Path(__file__).resolve().parents[2]))
PROGRAM = Path(os.environ.get("VANTRO_PROGRAM", SOURCE / "build/dev/bin/vantro"))
DATA = SOURCE / "tests/data/parakeet"
MODELS = ("--model", str(DATA / "parakeet-micro-tdt.bin"), "--ctc-model", str(DATA / "parakeet-micro-ctc.gguf"))
REDIS = str(DATA / "recordings/term-03.flac")
NO_SERVICE = 4


class VocabularyCase(unittest.TestCase):
    def setUp(self):
        self.profile = Path(self.enterContext(tempfile.TemporaryDirectory(prefix="vantro-vocabulary-")))
        self.env = {name: value for name, value in os.environ.items() if not name.startswith("XDG_")}
        self.env |= {"XDG_DATA_HOME": str(self.profile / "data"), "XDG_CONFIG_HOME": str(self.profile / "config"),
                     "LC_ALL": "C.UTF-8"}

    def run_vantro(self, *words, code=0):
        outcome = subprocess.run([PROGRAM, *words], env=self.env, capture_output=True, text=True, stdin=subprocess.DEVNULL)
        self.assertEqual(outcome.returncode, code, outcome.stderr)
        return outcome

    def as_json(self, *words):
        return json.loads(self.run_vantro(*words, "--json").stdout)

    def test_a_transcript_tells_what_was_replaced_and_why(self):
        found = self.as_json("transcribe", *MODELS, "--term", "Redis", "--term", "Quillon", REDIS)
        self.assertEqual(found["text"], "Redis is very difficult.")
        self.assertEqual(found["vocabulary"]["way"], "boosting")
        replaced, = found["vocabulary"]["replacements"]
        self.assertEqual((replaced["term"], replaced["heard"]), ("Redis", "Red is"))
        self.assertGreater(replaced["score_after"] + replaced["bias"], replaced["score_before"])
        self.assertLess(replaced["start_s"], replaced["end_s"])
        plain = self.as_json("transcribe", *MODELS, REDIS)
        self.assertEqual(plain["text"], "Red is is very difficult.")
        self.assertEqual(plain["vocabulary"], {"way": "none"})

    def test_the_users_words_are_found_with_the_installed_model_and_the_model_in_use(self):
        self.run_vantro("vocabulary", "add", "Redis")
        models = self.profile / "data/vantro/models"
        models.mkdir(parents=True)
        shutil.copy(DATA / "parakeet-micro-tdt.bin", models / "ggml-parakeet-tdt-0.6b-v2-q8_0.bin")
        self.run_vantro("models", "select", "Parakeet v2 (Fluid, English)")
        without = self.run_vantro("transcribe", REDIS)
        self.assertEqual(without.stdout, "Red is is very difficult.\n")
        self.assertIn("your words were not looked for", without.stderr)
        model = models / "parakeet-tdt_ctc-110m-q8_0.gguf"
        shutil.copy(DATA / "parakeet-micro-ctc.gguf", model)
        self.assertEqual(self.run_vantro("transcribe", REDIS).stdout, "Redis is very difficult.\n")
        for damage in (model.read_bytes()[:100_000], Path(DATA / "parakeet-micro-tdt.bin").read_bytes(), b""):
            model.write_bytes(damage)
            found = self.as_json("transcribe", REDIS)
            self.assertEqual(found["text"], "Red is is very difficult.")
            self.assertIn("skipped", found["vocabulary"])

    def test_a_damaged_model_is_named(self):
        damaged = self.profile / "damaged.gguf"
        damaged.write_bytes((DATA / "parakeet-micro-ctc.gguf").read_bytes()[:100_000])
        tried = self.run_vantro("transcribe", *MODELS[:2], "--ctc-model", str(damaged), "--term", "Redis", REDIS)
        self.assertIn(f"{damaged} is not a usable model", tried.stderr)

    def test_a_model_for_words_is_no_speech_model(self):
        refused = self.run_vantro("transcribe", "--model", MODELS[3], REDIS, code=NO_SERVICE)
        self.assertIn("--ctc-model", refused.stderr)

    def test_words_that_cannot_be_looked_for_are_named(self):
        terms = [option for term in ("x", "Redis", "🎉", "Q" * 100_000) for option in ("--term", term)]
        tried = self.as_json("vocabulary", "try", REDIS, *MODELS, *terms)
        self.assertEqual(tried["not_looked_for"], ["x", "🎉", "Q" * 100_000])
        self.assertEqual(tried["text"], "Redis is very difficult.")
        shown = self.run_vantro("vocabulary", "try", REDIS, *MODELS, "--term", "x").stdout
        self.assertIn('"x" cannot be looked for', shown)
        self.assertNotIn("No place", shown)

    def test_a_term_brings_no_line_break_into_the_text(self):
        self.assertEqual(self.run_vantro("transcribe", *MODELS, "--term", "\nRedis\t\n", REDIS).stdout,
                         "Redis is very difficult.\n")

    def test_what_cannot_be_written_fails(self):
        with open("/dev/full", "w") as full:
            for command in (("vocabulary", "--help"), ("vocabulary", "export"), ("transcribe", *MODELS[:2], REDIS)):
                outcome = subprocess.run([PROGRAM, *command], env=self.env, stdout=full, stderr=subprocess.PIPE, text=True)
                self.assertEqual(outcome.returncode, 1, command)
                self.assertEqual(outcome.stderr.count("Cannot write to standard output"), 1)

    def test_a_list_can_go_into_a_pipe_and_come_from_one(self):
        self.run_vantro("vocabulary", "add", "Redis")
        pipe = self.profile / "pipe"
        os.mkfifo(pipe)
        with subprocess.Popen(["cat", pipe], stdout=subprocess.PIPE) as reader:
            self.run_vantro("vocabulary", "export", str(pipe))
            self.assertEqual(reader.communicate(timeout=10)[0], b'["Redis"]\n')
        self.assertTrue(pipe.is_fifo(), "a file took its place")
        words = self.profile / "words.txt"
        words.write_text("Redis\nQuillon\n")
        self.run_vantro("vocabulary", "import", str(words))
        with words.open() as piped:
            refused = subprocess.run([PROGRAM, "vocabulary", "import", "-"], env=self.env, capture_output=True, text=True, stdin=piped)
        self.assertIn("--format csv", refused.stderr)
        self.assertEqual(self.as_json("vocabulary"), ["Redis", "Quillon"])

    def test_a_list_that_leaves_and_comes_back_is_the_same(self):
        self.run_vantro("vocabulary", "add", "Gregsson", "--sounds-like", "greg sun, said fast", "--weight", "2.5")
        self.run_vantro("vocabulary", "add", "Redis", "#1")
        whole = [{"word": "Gregsson", "weight": 2.5, "sounds_like": ["greg sun, said fast"]}, "Redis", "#1"]
        self.assertEqual(self.as_json("vocabulary"), whole)
        for name in ("words.json", "words.csv"):
            words = str(self.profile / name)
            self.run_vantro("vocabulary", "export", words)
            shutil.rmtree(self.profile / "config")
            self.run_vantro("vocabulary", "import", words)
            self.assertEqual(self.as_json("vocabulary"), whole, name)
        for line in ("Redis,much", "Redis,5", ",2"):
            (self.profile / "words.csv").write_text(f"Quillon\n{line}\n")
            refused = self.run_vantro("vocabulary", "import", str(self.profile / "words.csv"), code=1)
            self.assertIn("entry 2 is not of the form word,weight,sounds like. The list is unchanged", refused.stderr)
        self.run_vantro("vocabulary", "remove", "#1")
        self.assertEqual(self.as_json("vocabulary"), whole[:2], "the word of that name goes first")

    def test_the_model_that_looks_for_words_is_one_of_the_models(self):
        refused = self.run_vantro("models", "download", "vocabulary-boosting", code=NO_SERVICE)
        self.assertIn("convert-ctc", refused.stderr)
        models = self.profile / "data/vantro/models"
        models.mkdir(parents=True, exist_ok=True)
        model = models / "parakeet-tdt_ctc-110m-q8_0.gguf"
        shutil.copy(DATA / "parakeet-micro-ctc.gguf", model)
        listed = next(entry for entry in self.as_json("models") if entry["kind"] == "vocabulary model")
        self.assertEqual((listed["file"], listed["state"]), (str(model), "ready"))
        self.run_vantro("models", "select", listed["name"], code=1)
        self.run_vantro("models", "verify", listed["name"])
        self.run_vantro("models", "select", "parakeet-v2")
        self.assertEqual(self.as_json("models", "clear")["freed_bytes"], 0, "the words need it")
        self.run_vantro("models", "select", "tiny.en")
        self.assertEqual(self.as_json("models", "clear")["freed_bytes"], (DATA / "parakeet-micro-ctc.gguf").stat().st_size)
        self.assertFalse(model.exists())

    def test_words_that_nobody_can_spell_leave_the_plain_text(self):
        odd = ["🎉", "李", "x", "Q" * 200, "", "Redis Redis", "Rediss"]
        terms = [option for term in odd for option in ("--term", term)]
        self.assertEqual(self.as_json("transcribe", *MODELS, *terms, REDIS)["text"], "Red is is very difficult.")
        found = self.as_json("transcribe", *MODELS, "--term", "🎉", "--term", "李", REDIS)
        self.assertEqual(found["vocabulary"]["skipped"],
                         "None of the vocabulary terms could be tokenized for boosting.")

    def test_trying_a_term_shows_each_place_where_it_was_considered(self):
        tried = self.as_json("vocabulary", "try", REDIS, *MODELS, "--term", "Redis")
        place = next(place for place in tried["places"] if place["heard"] == "Red is")
        self.assertTrue(place["replaced"])
        kept = self.as_json("vocabulary", "try", str(DATA / "recordings/term-04.flac"), *MODELS, "--term", "Tensora")
        self.assertEqual({place["replaced"] for place in kept["places"]}, {False})
        self.assertIn("tensor a", {place["heard"] for place in kept["places"]})
        shown = self.run_vantro("vocabulary", "try", REDIS, *MODELS, "--term", "Redis").stdout
        self.assertIn("Red is", shown)
        self.assertIn("replaced", shown)
        nothing = self.run_vantro("vocabulary", "try", REDIS, *MODELS, "--term", "Grafana").stdout
        self.assertIn("No place", nothing)
        self.run_vantro("vocabulary", "try", "/nowhere.wav", *MODELS, "--term", "Redis", code=3)
        self.run_vantro("vocabulary", "try", REDIS, *MODELS[:2], "--ctc-model", "/nowhere.gguf", code=NO_SERVICE)

    def test_what_a_word_sounds_like_and_its_weight_are_kept_and_used(self):
        tensora = str(DATA / "recordings/term-04.flac")
        self.run_vantro("vocabulary", "add", "Tensora")
        self.assertIn("tensor a", self.run_vantro("transcribe", *MODELS, tensora).stdout)
        self.run_vantro("vocabulary", "add", "Tensora", "--weight", "2")
        self.assertIn("Tensora", self.run_vantro("transcribe", *MODELS, tensora).stdout)
        self.assertEqual(self.as_json("vocabulary"), [{"word": "Tensora", "weight": 2, "sounds_like": []}], "once in the list")
        self.run_vantro("vocabulary", "add", "Tensora", "--weight", "much", code=2)
        self.run_vantro("vocabulary", "add", "Tensora", "--weight", "nan", code=2)
        self.run_vantro("vocabulary", "add", "Rhedyss", "--sounds-like", "Redis", "--sounds-like", "red us")
        self.assertEqual(self.run_vantro("transcribe", *MODELS, REDIS).stdout, "Rhedyss is very difficult.\n")


if __name__ == "__main__":
    unittest.main(verbosity=2)
