"""What the tests of the program around the dictations share."""

from dictationcase import TRIES, DictationCase
from program import poll_until

SETTINGS_TITLE = "vantro settings"
ONBOARDING_TITLE = "Welcome to vantro"


class ShellCase(DictationCase):
    def window(self, title):
        return self.wait(lambda: self.vantro.window(title), 10, f"the window {title}")

    def has_keyboard(self, window):
        self.wait(lambda: self.desktop.display.active_window() == window.id, 5, f"{window.title} to have the keyboard")

    def close(self, title):
        """Presses Escape, once more where the window came up by itself: its keyboard has to rest first."""
        self.desktop.activate(self.window(title))
        for _ in range(TRIES):
            self.desktop.press("Escape")
            if poll_until(lambda: not self.vantro.window(title), 2):
                return
        self.fail(f"{title} does not close")

    def start_again(self):
        """What a user does who does not know that it runs."""
        self.assertEqual(self.vantro.run().returncode, 0)
