#!/usr/bin/python3
"""Where windows come to stand on two monitors of which one is further right, at a scale that is no whole number."""

import shutil
import unittest
from contextlib import contextmanager

from dictationcase import CHILD, main
from shellcase import SETTINGS_TITLE, ShellCase

from desktop import VirtualDesktop
from vantro import HUD_TITLE

SCALE = 1.5
WIDTH, HEIGHT = 1280, 800  # of each
LAUNCHER_SIZE = (500 * SCALE, 200 * SCALE)
ROUNDING = 2


def centre(window):
    return window.x + window.width / 2, window.y + window.height / 2


@unittest.skipUnless(shutil.which("xrandr"), "xrandr is not installed")
class TwoMonitorsTest(ShellCase):
    @classmethod
    def make_desktop(cls):
        return VirtualDesktop(2 * WIDTH, HEIGHT)

    @classmethod
    def prepare_profile(cls):
        super().prepare_profile()
        for name, x, output in (("left", 0, "screen"), ("right", WIDTH, "none")):
            cls.desktop.run("xrandr", "--setmonitor", name, f"{WIDTH}/340x{HEIGHT}/210+{x}+0", output)

    @contextmanager
    def scaled(self, **settings):
        self.vantro.quit()
        self.vantro.configure(**settings)
        self.vantro.start(env={"QT_SCALE_FACTOR": str(SCALE)})
        self._log_before = 0
        yield
        self.restart()

    def point_at(self, monitor):
        self.desktop.run("xdotool", "mousemove", str(monitor * WIDTH + WIDTH // 3), str(HEIGHT // 3))

    def assert_on(self, monitor, window):
        """Wholly, and in the middle from left to right."""
        self.assertGreaterEqual(window.x, monitor * WIDTH)
        self.assertLessEqual(window.x + window.width, (monitor + 1) * WIDTH)
        self.assertGreaterEqual(window.y, 0)
        self.assertLessEqual(window.y + window.height, HEIGHT)
        self.assertAlmostEqual(centre(window)[0], monitor * WIDTH + WIDTH / 2, delta=ROUNDING)

    def test_launcher_and_hud_stand_on_the_monitor_with_the_pointer_and_windows_on_the_main_one(self):
        with self.scaled(autoPasteEnabled=False):
            for monitor in (1, 0):
                with self.subTest(monitor=monitor):
                    self.point_at(monitor)
                    launcher = self.vantro.open_launcher()
                    self.assert_on(monitor, launcher)
                    self.assertEqual((launcher.width, launcher.height), LAUNCHER_SIZE)
                    self.speak(CHILD)
                    self.vantro.end_dictation()
                    hud = self.wait(lambda: self.vantro.window(HUD_TITLE), 60, "the HUD")
                    # Its window is larger than what it shows, which may reach beyond the screen's edge.
                    for actual, expected in zip(centre(hud), centre(launcher)):
                        self.assertAlmostEqual(actual, expected, delta=ROUNDING)
                    self.wait(lambda: not self.vantro.window(HUD_TITLE), 10, "the HUD to go")
            self.start_again()
            settings = self.window(SETTINGS_TITLE)
            self.assert_on(0, settings)
            title_bar = self.desktop.display.numbers(settings.id, "_NET_FRAME_EXTENTS")[2]
            self.assertGreaterEqual(settings.y, title_bar, "the title bar is beyond the screen's edge")
            self.close(SETTINGS_TITLE)


if __name__ == "__main__":
    main()
