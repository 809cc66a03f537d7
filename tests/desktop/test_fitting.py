#!/usr/bin/python3
"""Every text of every window fits into its place, in English and German, in the smallest windows and at twice the density."""

import time

from dictationcase import main
from shellcase import ShellCase

from desktop import VirtualDesktop
from historyfill import fill_dictations, fill_notes
from vantro import HUD_TITLE

LANGUAGES = {"en": {}, "de": {"LANG": "de_DE.UTF-8", "LANGUAGE": "de", "LC_ALL": ""}}
DOWN = 12  # more than there are pages of settings
LOOK_S = 0.5  # the watch looks ten times a second, and believes what it sees three times
LEAST_TEXTS = 150
NOTE = "Ask for the price of oak, 40 centimetres deep, four boards, and whether they bring them."
FITS = "fits: "


class FittingTest(ShellCase):
    scale = 1

    @classmethod
    def make_desktop(cls):
        return VirtualDesktop(1280 * cls.scale, 800 * cls.scale)

    def open_windows(self):
        """One after the other, each page of them, at the usual size and at the smallest."""
        for name, pages in (("settings", DOWN), ("history", 2), ("notes", 1), ("guide", 1)):
            self.assertEqual(self.vantro.run("show", name).returncode, 0)
            window = self.wait(lambda: next(iter(self.vantro.alerts()), None), 10, name)
            self.has_keyboard(window)
            for smallest in (False, True):
                if smallest:
                    self.desktop.display.resize(window, 1, 1)
                self.desktop.press("Home")
                for _ in range(pages):
                    self.desktop.press("Down")
                    time.sleep(LOOK_S)
            self.desktop.press("alt+F4")
            self.wait(lambda: not self.vantro.alerts(), 5, f"{name} to close")

    def check(self, language):
        report = self.desktop.home / f"texts-{language}.txt"
        self.vantro.quit()
        self.vantro.start(env={"LD_PRELOAD": str(self.vantro.program.parent.parent / "tests" / "vantro_text_watch.so"),
                               "VANTRO_TEXT_WATCH": str(report), "QT_SCALE_FACTOR": str(self.scale)} | LANGUAGES[language])
        if not self.vantro.history_file.exists() or not self.vantro.run("history", "--limit", "1").stdout:
            fill_dictations(self.vantro.history_file, [(time.time(), "Email", "Call Anna.", "Hello,\n\ncall Anna.")])
            fill_notes(self.vantro.history_file, [("About the house.", [NOTE])])
        self.vantro.run("providers", "add", "--type", "custom", "--name", "House", "--model", "small", "--base-url",
                        "http://127.0.0.1:9/v1")
        for mode in ("Email", "Grammar", "Custom"):
            self.vantro.run("modes", "set", mode, "--provider", "House", "--prompt", "Rewrite it.")
        self.open_windows()
        self.vantro.open_launcher()
        time.sleep(LOOK_S)
        self.vantro.run("cancel")
        self.wait(lambda: self.vantro.window(HUD_TITLE), 10, "the offer")
        time.sleep(LOOK_S)
        lines = report.read_text().splitlines()
        self.assertGreater(sum(line.startswith(FITS) for line in lines), LEAST_TEXTS)
        self.assertEqual([line for line in lines if not line.startswith(FITS)], [])

    def test_english(self):
        self.check("en")

    def test_german(self):
        self.check("de")


class DenseScreenTest(FittingTest):
    scale = 2
    test_english = None


if __name__ == "__main__":
    main()
