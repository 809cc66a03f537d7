#!/usr/bin/python3
"""vantro transcribe as scripts use it: formats, standard input, JSON, exit codes. Needs no display."""

import ctypes
import json
import os
import subprocess
import tempfile
import unittest
from pathlib import Path

from dictationcase import CHILD, CHILD_WORDS, ROOT, TABLE, TABLE_WORDS, main, program_under_test, words

# Of sndfile.h.
_READ, _WRITE = 0x10, 0x20
_FORMATS = {"wav": 0x010002, "flac": 0x170002, "ogg": 0x200060, "mp3": 0x230082}
DONE, WRONG_USAGE, UNREADABLE, NO_MODEL = 0, 2, 3, 4


class _Info(ctypes.Structure):
    _fields_ = [("frames", ctypes.c_int64), ("rate_hz", ctypes.c_int), ("channels", ctypes.c_int),
                ("format", ctypes.c_int), ("sections", ctypes.c_int), ("seekable", ctypes.c_int)]


def convert(source, target, form):
    """Writes source in another of libsndfile's formats."""
    sndfile = ctypes.CDLL("libsndfile.so.1")
    sndfile.sf_open.restype = ctypes.c_void_p
    for name in ("sf_readf_short", "sf_writef_short"):
        getattr(sndfile, name).argtypes = [ctypes.c_void_p, ctypes.c_void_p, ctypes.c_int64]
        getattr(sndfile, name).restype = ctypes.c_int64
    sndfile.sf_close.argtypes = [ctypes.c_void_p]
    info = _Info()
    reading = sndfile.sf_open(bytes(source), _READ, ctypes.byref(info))
    samples = (ctypes.c_short * (info.frames * info.channels))()
    frames = sndfile.sf_readf_short(reading, samples, info.frames)
    sndfile.sf_close(reading)
    writing = sndfile.sf_open(bytes(target), _WRITE,
                              ctypes.byref(_Info(rate_hz=info.rate_hz, channels=info.channels, format=_FORMATS[form])))
    assert writing and sndfile.sf_writef_short(writing, samples, frames) == frames
    sndfile.sf_close(writing)
    return target


class TranscribeTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.program = program_under_test()
        if cls.program is None:
            raise unittest.SkipTest("there is no built program; VANTRO_PROGRAM can name one")
        cls.folder = Path(cls.enterClassContext(tempfile.TemporaryDirectory(prefix="vantro-transcribe-")))
        cls.env = os.environ | {name: str(cls.folder / name.lower()) for name in
                                ("XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME")} | {"LC_ALL": "C.UTF-8"}
        models = cls.folder / "xdg_data_home" / "vantro" / "models"
        subprocess.run([ROOT / "scripts" / "get-model", "--dir", models], check=True, stdout=subprocess.DEVNULL)
        cls.model = models / "ggml-tiny.en.bin"

    def transcribe(self, *arguments, stdin=None, env=None):
        return subprocess.run([self.program, "transcribe", *map(str, arguments)], env=self.env | (env or {}),
                              capture_output=True, timeout=120,
                              **({"stdin": subprocess.DEVNULL} if stdin is None else {"input": stdin}))

    def check(self, result, *expected):
        self.assertEqual(result.returncode, DONE, result.stderr.decode())
        self.assertEqual([words(line) for line in result.stdout.decode().splitlines()], list(expected))
        self.assertNotIn(b"%", result.stderr, "progress is for people at a terminal")

    def test_every_format_gives_the_same_text_a_line_each(self):
        files = [convert(CHILD, self.folder / f"child.{form}", form) for form in _FORMATS]
        self.check(self.transcribe(*files, TABLE), *[CHILD_WORDS] * len(files), TABLE_WORDS)

    def test_only_the_first_thread_changes_the_environment(self):
        watch = self.program.parent.parent / "tests" / "vantro_environment_watch.so"
        self.assertTrue(watch.exists())
        self.check(self.transcribe(CHILD, env={"LD_PRELOAD": str(watch)}), CHILD_WORDS)

    def test_standard_input_is_a_file_too(self):
        self.check(self.transcribe("--language", "en", "-", stdin=CHILD.read_bytes()), CHILD_WORDS)

    def test_json_has_the_text_the_duration_and_the_times(self):
        result = self.transcribe("--json", "--model", self.model, CHILD, TABLE)
        self.assertEqual(result.returncode, DONE)
        child, table = map(json.loads, result.stdout.splitlines())
        self.assertEqual(words(child["text"]), CHILD_WORDS)
        self.assertEqual(words(table["text"]), TABLE_WORDS)
        self.assertEqual(child["file"], str(CHILD))
        self.assertAlmostEqual(child["duration_s"], 2.87, delta=0.01)
        self.assertGreater(child["timings"]["transcribe_ms"], 0)

    def test_subtitles_have_times_and_nothing_but_errors_is_said_beside_them(self):
        result = self.transcribe("--format", "srt", CHILD)
        number, times, text = result.stdout.decode().strip().split("\n")
        self.assertEqual(number, "1")
        start, end = (sum(float(part) * unit for part, unit in zip(time.replace(",", ".").split(":"), (3600, 60, 1)))
                      for time in times.split(" --> "))
        self.assertTrue(0 <= start < end <= 4, times)
        self.assertEqual(words(text), CHILD_WORDS)
        self.assertEqual(result.stderr, b"")

    def test_several_files_go_into_a_folder(self):
        folder = self.folder / "texts"
        folder.mkdir()
        self.assertEqual(self.transcribe("--format", "vtt", CHILD, TABLE).returncode, WRONG_USAGE)
        result = self.transcribe("--format", "vtt", "--output", folder, CHILD, TABLE)
        self.assertEqual((result.returncode, result.stdout), (DONE, b""))
        text = (folder / CHILD.with_suffix(".vtt").name).read_text()
        self.assertTrue(text.startswith("WEBVTT\n\n00:00:0"), text)
        self.assertTrue((folder / TABLE.with_suffix(".vtt").name).exists())

    def test_an_unknown_language_or_format_is_refused_before_anything_is_loaded(self):
        for arguments in (("--language", "klingon"), ("--format", "doc"), ("--output", "/nowhere")):
            result = self.transcribe(*arguments, CHILD)
            self.assertEqual((result.returncode, result.stdout), (WRONG_USAGE, b""))
            self.assertIn(arguments[1], result.stderr.decode())

    def test_what_cannot_be_read_is_named_and_the_rest_is_transcribed(self):
        noise = self.folder / "noise.wav"
        noise.write_bytes(b"this is no recording")
        for bad in (noise, self.folder / "missing.wav"):
            result = self.transcribe(bad, CHILD)
            self.assertEqual(result.returncode, UNREADABLE)
            self.assertIn(str(bad), result.stderr.decode())
            self.assertEqual(words(result.stdout.decode()), CHILD_WORDS)

    def test_a_model_that_cannot_be_used_is_told_from_other_failures(self):
        cut = self.folder / "cut.bin"
        cut.write_bytes(self.model.read_bytes()[:-4])
        foreign = self.folder / "foreign.bin"
        foreign.write_bytes(bytes(100_000))
        empty = {"XDG_DATA_HOME": str(self.folder / "empty")}
        for arguments, env in (((self.folder / "missing.bin",), {}), ((cut,), {}), ((foreign,), {}),
                               (("no such name",), {}), (("tiny.en",), empty)):
            with self.subTest(model=arguments):
                result = self.transcribe("--model", *arguments, CHILD, env=env)
                self.assertEqual(result.returncode, NO_MODEL, result.stderr.decode())
                self.assertTrue(result.stderr)


if __name__ == "__main__":
    main()
