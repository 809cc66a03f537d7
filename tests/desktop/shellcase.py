"""What the tests of the program around the dictations share."""

from dictationcase import DictationCase

SETTINGS_TITLE = "vantro settings"
ONBOARDING_TITLE = "Welcome to vantro"


class ShellCase(DictationCase):
    def window(self, title):
        return self.wait(lambda: self.vantro.window(title), 10, f"the window {title}")

    def has_keyboard(self, window):
        self.wait(lambda: self.desktop.display.active_window() == window.id, 5, f"{window.title} to have the keyboard")

    def close(self, title):
        self.desktop.activate(self.window(title))
        self.desktop.press("Escape")
        self.wait(lambda: not self.vantro.window(title), 5, f"{title} to close")

    def start_again(self):
        """What a user does who does not know that it runs."""
        self.assertEqual(self.vantro.run().returncode, 0)
