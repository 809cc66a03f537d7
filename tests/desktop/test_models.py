#!/usr/bin/python3
"""Fresh profiles: the real model comes from a local mirror by the real downloader, is adopted, and is dictated with."""

import shutil
import subprocess
import sys
import tempfile
import time
from pathlib import Path

from dictationcase import CHILD, CHILD_WORDS, HUD_TITLE, REST_S, ROOT, SHORTCUT_KEYS, DictationCase, main, words
from shellcase import ONBOARDING_TITLE

sys.path.insert(0, str(ROOT / "tests" / "models"))
from modelserver import Fault, ModelServer, sha1  # noqa: E402

MODEL = "tiny.en"
FILE = "ggml-tiny.en.bin"
SHA1 = "c78c86eb1a8faa21b369bcd33207cc90d64ae9df"
SIZE = 77_704_715
FORTY_PERCENT = SIZE * 4 // 10
READ_AHEAD = 8 * 1024 * 1024  # what may be under way when a connection ends
WINDOW_TITLE = "Speech model"


class ModelsTest(DictationCase):
    @classmethod
    def setUpClass(cls):
        mirror = Path(cls.enterClassContext(tempfile.TemporaryDirectory(prefix="vantro-mirror-")))
        subprocess.run([ROOT / "scripts" / "get-model", "--dir", mirror], check=True, stdout=subprocess.DEVNULL)
        cls.server = cls.enterClassContext(ModelServer(mirror))
        super().setUpClass()

    def setUp(self):
        super().setUp()
        self.vantro.quit()
        for folder in (self.vantro.models_folder, self.desktop.config_home / "vantro"):
            shutil.rmtree(folder, ignore_errors=True)
        self.server.fault = Fault()
        self.server.requests.clear()
        self.server.paused.clear()
        self.server.resume.clear()
        self._log_before = 0

    # --- steps

    @property
    def file(self):
        return self.vantro.models_folder / FILE

    @property
    def part(self):
        return self.vantro.models_folder / ".work" / (FILE + ".part")

    def download(self):
        return self.vantro.run("models", "download", MODEL, "--model-host", self.server.url)

    def pause_at_forty_percent(self):
        self.server.fault = Fault(pause_at=FORTY_PERCENT, once=True)

    def wait_for_forty_percent(self):
        self.wait(self.server.paused.is_set, 30, "40 % to be sent")
        self.wait(lambda: self.part.exists() and self.part.stat().st_size == FORTY_PERCENT, 30, "40 % to be stored")
        self.assertFalse(self.file.exists(), "a part must not look like a model")

    def check_that_only_the_rest_was_fetched(self):
        first, second = self.server.requests
        self.assertIsNone(first[1])
        self.assertGreaterEqual(int(second[1].removeprefix("bytes=").removesuffix("-")), FORTY_PERCENT - READ_AHEAD)
        self.assertIsNotNone(second[2], "the rest is asked for on condition that the file is the same")

    def check_adopted_and_dictate(self, on_start=lambda: None):
        self.vantro.start()
        on_start()
        self.assertEqual(sha1(self.file), SHA1)
        self.wait(lambda: f"Model {MODEL} is downloaded" in self.vantro.log(), 20, "the model's check")
        self.assertIn(f"Adopted cached model as selection: {MODEL}", self.vantro.log())
        self.assertEqual(self.vantro.status()["model"], MODEL)
        self.assertIsNone(self.vantro.window(WINDOW_TITLE))
        self.dictate_once()

    def dictate_once(self):
        self.desktop.activate(self.editor.window)
        self.dictate(CHILD)
        self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)

    # --- tests

    def test_a_model_fetched_by_command_is_adopted_and_dictated_with(self):
        result = self.download()
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(result.stdout.strip(), str(self.file))
        self.check_adopted_and_dictate()

    def test_the_window_at_the_start_goes_on_where_a_killed_program_was(self):
        self.assertEqual(self.vantro.run("models", "select", MODEL).returncode, 0)
        self.pause_at_forty_percent()
        host = ("--model-host", self.server.url, "--shortcut", "Ctrl+Alt+D")
        self.vantro.start(*host)
        self.wait(lambda: self.vantro.window(WINDOW_TITLE), 20, "the download window")
        self.wait_for_forty_percent()
        self.vantro.process.kill()
        self.server.resume.set()
        self.assertEqual(self.part.stat().st_size, FORTY_PERCENT)

        self.vantro.start(*host)
        self.wait(lambda: f"Model {MODEL} is downloaded" in self.vantro.log(), 60, "the end of the download")
        self.wait(lambda: not self.vantro.window(WINDOW_TITLE), 5, "the download window to close")
        self.assertEqual(sha1(self.file), SHA1)
        self.check_that_only_the_rest_was_fetched()
        self.close_alert(self.wait_for_alert_saying("vantro ended unexpectedly"))
        self.dictate_once()

    def test_a_model_that_goes_while_vantro_runs_is_fetched_at_the_shortcut(self):
        result = self.download()
        self.assertEqual(result.returncode, 0, result.stderr)
        self.vantro.start("--model-host", self.server.url, "--shortcut", "Ctrl+Alt+D")
        self.wait(lambda: f"Model {MODEL} is downloaded" in self.vantro.log(), 20, "the model's check")
        shutil.rmtree(self.vantro.models_folder)
        self.pause_at_forty_percent()
        self.desktop.press(SHORTCUT_KEYS)
        self.wait(lambda: self.vantro.window(WINDOW_TITLE), 5, "the download instead of the launcher")
        self.assertEqual(self.vantro.status()["state"], "idle")
        self.wait_for_forty_percent()
        self.server.resume.set()
        self.wait(lambda: not self.vantro.window(WINDOW_TITLE), 60, "the download window to close")
        self.dictate_once()

    def test_return_alone_leads_to_the_download_and_back_and_the_guide_can_be_taken_up_again(self):
        self.assertEqual(self.vantro.run("models", "select", MODEL).returncode, 0)
        self.server.fault = Fault(status=404)
        self.vantro.start("--verbose", "--model-host", self.server.url)
        guide = self.wait(lambda: self.vantro.window(ONBOARDING_TITLE), 20, "the guide")
        self.wait(lambda: self.desktop.display.active_window() == guide.id, 5, "its keyboard")
        self.desktop.press("Return")
        self.wait(self.desktop.audio.recording_sources, 10, "the microphone to be tried")
        self.desktop.press("Return")
        self.wait(lambda: "keystroke" in self.vantro.log(), 20, "the keyboard's trial")
        self.desktop.press("Return")
        self.wait(lambda: self.vantro.status()["shortcut"], 5, "the shortcut")
        self.desktop.press("Return")

        def press(key):
            """Not as fast as a key that repeats by itself."""
            self.vantro.status()
            self.desktop.press(key)

        def asked(times):
            self.wait(lambda: self.vantro.log().count("Model download failed") == times, 20, f"{times} failures")

        press("Return")
        asked(1)
        for key in ("Tab", "Tab", "space", "Return", "Return"):  # past "Later" to "Back", and here again
            press(key)
        asked(2)
        self.desktop.press("Escape")
        self.wait(lambda: not self.vantro.window(ONBOARDING_TITLE), 5, "the guide to close")
        self.wait(lambda: self.vantro.window(HUD_TITLE), 5, "the display to say where it is")
        self.assertEqual(self.vantro.run("show", "guide").returncode, 0)
        guide = self.wait(lambda: self.vantro.window(ONBOARDING_TITLE), 5, "the guide again")
        self.desktop.activate(guide)
        press("Return")
        asked(3)  # it goes on where it was left
        self.desktop.press("Escape")
        self.wait(lambda: not self.vantro.window(ONBOARDING_TITLE), 5, "the guide to close")

    def test_a_file_of_the_librarys_own_script_is_taken_over_and_adopted(self):
        legacy = self.desktop.home / "whisper.cpp/models" / FILE
        legacy.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(self.server.folder / FILE, legacy)
        self.addCleanup(legacy.unlink)  # the next test's start would take it over, too
        self.check_adopted_and_dictate(on_start=lambda: self.wait(self.file.exists, 20, "the file to be taken over"))
        self.assertIn(f"Migrated legacy model file {FILE}", self.vantro.log())
        self.assertEqual(self.vantro.run("models", "remove", MODEL, "--force").returncode, 0)
        self.assertEqual(sha1(legacy), SHA1, "another program's file stays as it was")

    def test_the_window_says_what_is_wrong_and_tries_again_on_return(self):
        self.assertEqual(self.vantro.run("models", "select", MODEL).returncode, 0)
        self.server.fault = Fault(status=404)
        self.vantro.start("--model-host", self.server.url, "--shortcut", "Ctrl+Alt+D")
        self.wait(lambda: "Model download failed: 127.0.0.1 has no file " + FILE in self.vantro.log(), 20,
                  "the failure")
        window = self.wait(lambda: self.vantro.window(WINDOW_TITLE), 5, "the download window")
        self.desktop.activate(window)
        self.server.fault = Fault()
        time.sleep(REST_S)
        self.desktop.press("Return")
        self.wait(lambda: not self.vantro.window(WINDOW_TITLE), 60, "the download window to close")
        self.dictate_once()


if __name__ == "__main__":
    main()
