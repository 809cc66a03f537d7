#!/usr/bin/python3
"""The models command fetches the Parakeet entries, here the small real model under their files' names, and uses them."""

import json
import re
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

import test_download
from test_download import DONE, FAILED, NOT_FOUND, ROOT, DownloadCase, main

DATA = ROOT / "tests/data/parakeet"
ENTRIES = {"Parakeet v3 (Fluid)": ("ggml-parakeet-tdt-0.6b-v3-q8_0.bin", "parakeet-micro-tdt-q8_0.bin"),
           "Parakeet v2 (Fluid, English)": ("ggml-parakeet-tdt-0.6b-v2-q8_0.bin", "parakeet-micro-tdt.bin")}
MODEL = "Parakeet v3 (Fluid)"
FILE, SOURCE = ENTRIES[MODEL]
RECORDING = DATA / "recordings/sentence-01.flac"
TEXT = "Can you show me the plan?"


def setUpModule():
    test_download.mirror = Path(unittest.enterModuleContext(tempfile.TemporaryDirectory(prefix="vantro-mirror-")))
    for file, source in ENTRIES.values():
        shutil.copy(DATA / source, test_download.mirror / file)


class ParakeetTest(DownloadCase):
    def setUp(self):
        super().setUp()
        self.file = self.models / FILE

    def fetch(self, model=MODEL, *arguments, **options):
        return self.run_models("download", model, *arguments, host=self.server.url, **options)

    def listed(self):
        return next(entry for entry in json.loads(self.run_models("list", "--json").stdout) if entry["name"] == MODEL)

    def check_there(self):
        self.assertEqual(self.file.read_bytes(), (DATA / SOURCE).read_bytes())
        self.assertEqual(self.listed()["state"], "ready")
        self.assertEqual(self.run_models("verify", MODEL).returncode, DONE)

    def transcribe(self, *arguments):
        command = [test_download.PROGRAM, "transcribe", "--model", MODEL, *arguments, RECORDING]
        return subprocess.run([str(word) for word in command], env=self.env, capture_output=True,
                                            text=True, timeout=60)

    def test_both_entries_come_from_the_mirror_and_are_used(self):
        for model, (file, source) in ENTRIES.items():
            result = self.fetch(model, "--verbose")
            self.assertEqual((result.returncode, result.stdout.strip()), (DONE, str(self.models / file)), result.stderr)
            self.assertEqual((self.models / file).read_bytes(), (DATA / source).read_bytes())
        self.check_there()
        self.assertEqual([path for path, *_ in self.server.requests],
                         ["/resolve/main/" + file for file, _ in ENTRIES.values()])
        percents = [int(percent) for percent in
                    re.findall(r"Fluid download parakeet-tdt-0.6b-v2-en: (\d+)% \[", result.stderr)]
        self.assertTrue(percents)
        self.assertTrue(all(later - earlier >= 10 for earlier, later in zip(percents, percents[1:])), percents)

        spoken = json.loads(self.transcribe("--json").stdout)
        self.assertEqual(spoken["text"], TEXT)
        self.assertEqual("".join(token["token"] for token in spoken["tokens"]).replace("\u2581", " ").strip(), TEXT)
        ends = 0
        for token in spoken["tokens"]:
            self.assertLess(token["start_s"], token["end_s"])
            self.assertLessEqual(token["end_s"], spoken["duration_s"])
            self.assertGreaterEqual(token["end_s"], ends)
            self.assertTrue(0 < token["confidence"] <= 1)
            ends = token["end_s"]

        self.assertEqual(self.fetch().returncode, DONE)
        self.assertEqual(len(self.server.requests), 2, "nothing is fetched twice")
        self.assertEqual(self.run_models("select", "tiny").returncode, DONE)
        freed = sum((DATA / source).stat().st_size for _, source in ENTRIES.values())
        self.assertEqual(json.loads(self.run_models("clear", "--json").stdout)["freed_bytes"], freed)
        self.assertEqual(self.run_models("verify", MODEL).returncode, NOT_FOUND)
        self.assertIn("run vantro models download", self.transcribe().stderr)

    def test_what_is_no_whole_model_is_removed_and_named(self):
        served = test_download.mirror / FILE
        whole = served.read_bytes()
        self.addCleanup(served.write_bytes, whole)
        for wrong in (whole[:-100], b"<html>sign in to download</html>" * 1000, whole[:4] + b"\xff" * 16 + whole[20:]):
            served.write_bytes(wrong)
            result = self.fetch()
            self.assertEqual(result.returncode, FAILED, result.stderr)
            self.assertIn(f"{FILE} is not a complete Parakeet model", result.stderr)
            self.assertFalse(self.file.exists())
        served.write_bytes(whole)
        self.assertEqual(self.fetch().returncode, DONE)
        self.check_there()


if __name__ == "__main__":
    main()
