"""What the tests of the program around the dictations share."""

from dictationcase import TRIES, DictationCase
from accessibility import ScreenReader
from program import poll_until

SETTINGS_TITLE = "vantro settings"
ONBOARDING_TITLE = "Welcome to vantro"
MOST_STOPS = 60


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


class SettingsCase(ShellCase):
    """The pages of the settings by keyboard, read as a screen reader does."""

    @classmethod
    def prepare_profile(cls):
        super().prepare_profile()
        cls.desktop.env["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        cls.reader = ScreenReader(cls.desktop, "vantro")

    def open(self, page):
        """By the search, as it is the shortest way."""
        self.start_again()
        self.has_keyboard(self.window(SETTINGS_TITLE))
        self.desktop.press("ctrl+f")
        self.desktop.type_text(page)
        self.desktop.press("Return")

    def shown(self):
        return [node.name for node in self.reader.nodes(SETTINGS_TITLE)]

    def tab_to(self, name, of="", key="Tab"):
        for _ in range(MOST_STOPS):
            focused = self.reader.focused(SETTINGS_TITLE)
            if focused and focused.name == name and of in focused.description:
                return
            self.desktop.press(key)
            poll_until(lambda: (now := self.reader.focused(SETTINGS_TITLE))
                       and (not focused or now.address != focused.address), 2)
        self.fail(f"no stop is named {name}: {self.shown()}")
