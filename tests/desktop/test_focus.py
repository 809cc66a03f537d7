#!/usr/bin/python3
"""The launcher among other windows: under a pointer that strays, beside programs that open windows, over a full screen."""

from dictationcase import CHILD, CHILD_WORDS, SHORTCUT_KEYS, STOP_KEY, DictationCase, main, words

WIDTH = 1280
GRIP = 10  # where the panel has nothing but its background
CONFIGURATION = "/etc/xdg/openbox/rc.xml"


class FocusTest(DictationCase):
    """The keyboard follows the pointer."""

    @classmethod
    def prepare_profile(cls):
        super().prepare_profile()
        with open(CONFIGURATION) as file:
            followed = file.read().replace("<followMouse>no</followMouse>", "<followMouse>yes</followMouse>")
        folder = cls.desktop.config_home / "openbox"
        folder.mkdir()
        (folder / "rc.xml").write_text(followed)
        cls.desktop.run("openbox", "--reconfigure")

    def setUp(self):
        super().setUp()
        self.terminal = self.desktop.open_xterm()
        self.addCleanup(self.terminal.program.stop)
        for window, x in ((self.editor.window, 0), (self.terminal.window, 700)):
            self.desktop.run("xdotool", "windowsize", window.id, 500, 400, "windowmove", window.id, x, 0)
        self.point_at(100, 200)
        self.desktop.activate(self.editor.window)
        self._before = self.editor.text()

    def point_at(self, x, y):
        self.desktop.run("xdotool", "mousemove", x, y)

    def wait_until_taken_back(self, launcher):
        self.wait(lambda: "Taking the keyboard back" in self.news(), 10, "another window in front")
        self.wait(lambda: self.desktop.display.active_window() == launcher.id, 10, "the launcher in front again")
        self.assertEqual(self.vantro.status()["state"], "recording")

    def check_text_arrives_in_the_editor(self):
        self.speak(CHILD)
        self.desktop.press(STOP_KEY)
        self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)
        self.wait_until_over()
        self.assertEqual(self.terminal.text(), "")

    def check_ended(self):
        self.wait(lambda: "Canceling the recording" in self.news(), 10, "the end of the recording")
        self.wait_until_over()

    def test_a_pointer_that_strays_over_another_window_costs_nothing(self):
        launcher = self.vantro.open_launcher()
        self.point_at(900, 200)
        self.wait_until_taken_back(launcher)
        self.check_text_arrives_in_the_editor()

    def test_a_program_that_opens_a_window_costs_nothing(self):
        launcher = self.vantro.open_launcher()
        intruder = self.desktop.start("xterm", "-class", "Intruder", "-e", "cat")
        self.addCleanup(intruder.stop)
        self.wait_until_taken_back(launcher)
        self.check_text_arrives_in_the_editor()

    def test_a_user_who_goes_elsewhere_ends_the_recording(self):
        self.vantro.open_launcher()
        self.desktop.run("xdotool", "mousemove", 900, 200, "click", 1)
        self.check_ended()

    def test_alt_tab_ends_the_recording(self):
        self.vantro.open_launcher()
        self.desktop.display.chord_down("alt+Tab")
        # Who lets go before the list is there leaves it open.
        self.wait(lambda: self.desktop.find_window("OPENBOX_FOCUS_CYCLE_POPUP"), 5, "the list of windows")
        self.desktop.display.chord_up("alt+Tab")
        self.check_ended()

    def test_a_window_that_insists_gets_the_keyboard(self):
        self.vantro.open_launcher()
        self.wait(lambda: self.desktop.run("xdotool", "windowactivate", self.terminal.window.id) or
                  not self.vantro.launcher(), 10, "the launcher to give way")
        self.check_ended()
        self.assertGreaterEqual(self.news().count("Taking the keyboard back"), 3)

    def test_the_panel_is_dragged_by_its_background(self):
        launcher = self.vantro.open_launcher()
        self.point_at(launcher.x + GRIP, launcher.y + GRIP)
        self.desktop.run("xdotool", "mousedown", 1, "mousemove_relative", "--sync", "--", -100, -50, "mouseup", 1)
        self.wait(lambda: (self.vantro.launcher().x, self.vantro.launcher().y) == (launcher.x - 100, launcher.y - 50), 5,
                  "the panel to follow")
        self.assertEqual(self.vantro.status()["state"], "recording")
        self.check_text_arrives_in_the_editor()

    def test_the_panel_of_a_held_recording_is_seen_over_a_full_screen(self):
        self.vantro.run("shortcuts", "mode", "hold")
        self.addCleanup(self.vantro.run, "shortcuts", "mode", "press")
        self.desktop.run("xdotool", "windowactivate", "--sync", self.terminal.window.id)
        self.desktop.press("alt+Return")  # xterm's own key for it
        self.wait(lambda: self.desktop.find_window("XTerm").width == WIDTH, 5, "the full screen")
        self.desktop.display.chord_down(SHORTCUT_KEYS)
        try:
            self.wait(self.vantro.launcher, 10, "the launcher")
            self.speak(CHILD)
            stack = [window.wm_class for window in self.desktop.display.windows()]
            self.assertGreater(stack.index("vantro"), stack.index("XTerm"), stack)
            self.assertEqual(self.desktop.display.active_window(), self.terminal.window.id)
        finally:
            self.desktop.display.chord_up(SHORTCUT_KEYS)
        self.wait(self.terminal.changed, 60, "text in the terminal")
        self.assertEqual(words(self.terminal.text()), CHILD_WORDS)
        self.wait_until_over()


if __name__ == "__main__":
    main()
