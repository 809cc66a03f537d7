#!/usr/bin/python3
"""Recordings that have not become text: after a crash, after the end of the session, after a cancel."""

import signal

from dictationcase import CANCEL_KEY, CHILD, CHILD_WORDS, HUD_TITLE, SHORTCUT_KEYS, main, words
from shellcase import ShellCase


class KeptCase(ShellCase):
    @property
    def folder(self):
        return self.desktop.runtime_folder / "vantro"

    def kept(self):
        return sorted(path.name for path in self.folder.iterdir()) if self.folder.exists() else []

    def record(self):
        """A recording that is written to its end and goes on."""
        self.vantro.open_launcher()
        self.speak(CHILD)
        file = self.folder / self.wait(self.kept, 5, "the kept recording")[0]
        size = file.stat().st_size
        self.wait(lambda: file.stat().st_size > size + 8_000, 5, "the rest of what was said")

    def kill_and_start(self):
        self.vantro.process.kill()
        self.vantro.start()
        self._log_before = 0

    def wait_for_clipboard(self):
        self.wait(lambda: words(self.desktop.clipboard() or "") == CHILD_WORDS, 60, "the words on the clipboard")
        self.wait(lambda: not self.kept(), 5, "the recording to be deleted")


class EndTest(KeptCase):
    def test_after_a_crash_the_next_start_offers_the_recording(self):
        self.record()
        self.kill_and_start()
        self.answer(self.wait_for_alert_saying("became text"), "space")
        self.wait_for_clipboard()
        self.wait_until_over()
        self.assertEqual(words(self.vantro.run("history", "list").stdout.splitlines()[0].split("\t")[-1]), CHILD_WORDS)

    def test_a_refused_recording_is_gone_and_one_that_waits_is_offered_again(self):
        self.record()
        self.assertEqual(self.vantro.process.stop(signal.SIGTERM, patience_s=5), 0)
        self.vantro.start()
        self._log_before = 0
        self.dismiss_alert_saying("became text")
        self.assertEqual(len(self.kept()), 1)
        self.restart()
        self.answer(self.wait_for_alert_saying("became text"), "Tab", "space")
        self.assertEqual(len(self.kept()), 1, "asked once more")
        self.answer(self.wait_for_alert_saying("will be gone"), "Tab", "space")
        self.wait(lambda: not self.kept(), 5, "the recording to be deleted")
        self.restart()
        self.assertEqual(self.vantro.alerts(), [])

    def test_retry_prints_the_words_with_and_without_the_program(self):
        self.assertEqual(self.vantro.run("retry").returncode, 3)
        self.record()
        refused = self.vantro.run("retry")
        self.assertEqual((refused.returncode, "already in progress" in refused.stderr), (1, True))
        self.kill_and_start()
        self.dismiss_alert_saying("became text")
        self.assertEqual(words(self.vantro.run("retry").stdout), CHILD_WORDS)
        self.wait_for_clipboard()

        self.record()
        self.vantro.process.stop(signal.SIGSEGV)
        self.assertRegex(self.vantro.log(), r"vantro ends by signal 11 at:\n.*vantro.*\n|Sanitizer")
        try:
            no_model = self.vantro.run("retry", env={"XDG_DATA_HOME": str(self.desktop.home / "elsewhere")})
            self.assertEqual((no_model.returncode, len(self.kept())), (4, 1))
            self.assertEqual(words(self.vantro.run("retry").stdout), CHILD_WORDS)
            self.assertEqual(self.kept(), [])
            self.assertEqual(self.vantro.run("retry", "--discard").returncode, 3)
        finally:
            self.vantro.start()
            self._log_before = 0
        self.dismiss_alert_saying("ended unexpectedly")


class CancelTest(KeptCase):
    def cancel(self):
        self.record()
        self.desktop.press(CANCEL_KEY)
        self.vantro.wait_until_closed()
        return self.wait(lambda: self.vantro.window(HUD_TITLE), 5, "the offer")

    def check_words(self):
        self.wait(lambda: words(self.arrived()) == CHILD_WORDS, 60, "the words in the editor")
        self.wait_until_over()
        self.wait(lambda: not self.kept(), 5, "the recording to be deleted")

    def test_a_click_on_the_display_takes_it_back(self):
        window = self.cancel()
        self.assertEqual(self.desktop.display.active_window(), self.editor.window.id)
        self.desktop.run("xdotool", "mousemove", "--window", window.id, "60", "60", "click", "1")
        self.check_words()

    def test_the_shortcut_takes_it_back(self):
        self.cancel()
        self.desktop.press(SHORTCUT_KEYS)
        self.check_words()

    def test_so_does_a_desktops_own_binding_to_the_command(self):
        self.cancel()
        self.assertEqual(self.vantro.run("toggle").returncode, 0)
        self.check_words()

    def test_after_ten_seconds_it_is_gone(self):
        self.cancel()
        self.wait(lambda: all(name.startswith(".") for name in self.kept()), 5, "the recording to be hidden")
        self.wait(lambda: not self.kept(), 20, "the recording to be deleted")
        self.wait(lambda: not self.vantro.window(HUD_TITLE), 5, "the offer to go")
        self.assertEqual(self.vantro.run("retry").returncode, 3)
        self.assertEqual(self.arrived(), "")


if __name__ == "__main__":
    main()
