#!/usr/bin/python3
"""Every window as a screen reader reads it and as the keyboard walks through it: each stop has a name and is seen."""

from dictationcase import CHILD, main
from shellcase import ONBOARDING_TITLE, SETTINGS_TITLE, ShellCase

from accessibility import ScreenReader
from focusline import LEAST_PIXELS, Sight
from historyfill import dictations, fill_dictations, fill_notes
from program import poll_until
from vantro import LAUNCHER_TITLE

HISTORY_TITLE = "vantro history"
MOST_STOPS = 60


class AccessibilityTest(ShellCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.vantro.quit()
        cls.desktop.env["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        cls.vantro.start()
        fill_dictations(cls.vantro.history_file, dictations(20))
        fill_notes(cls.vantro.history_file, [("About the house.", ["Ask for the price of oak."]), ("", ["Old."])])
        cls.reader = ScreenReader(cls.desktop, "vantro")

    def check(self, title):
        """What can be used has a name, and Tab leads from one named control to the next and round again."""
        self.wait(lambda: self.reader.controls(title), 10, f"{title} in the tree")
        nameless = [str(node) for node in self.reader.controls(title) if not node.name.strip()]
        self.assertEqual(nameless, [], title)
        first = self.wait(lambda: self.reader.focused(title), 5, "the focus")
        stops = [first]
        window = self.window(title)
        sight = Sight(self.desktop, window, first)
        lines = {}
        for _ in range(MOST_STOPS):
            self.desktop.press("Tab")
            before = stops[-1].address
            # A page with a single stop keeps the focus there.
            stop = poll_until(lambda: (found := self.reader.focused(title)) and found.address != before and found,
                              5 if len(stops) > 1 else 2) or self.reader.focused(title)
            self.assertIsNotNone(stop, f"nothing has the focus after {stops[-1]}")
            self.assertTrue(stop.name.strip(), f"{stop} after {stops[-1]}")
            former, sight = sight, Sight(self.desktop, window, stop)
            if stop.address != before:
                lines[former.name] = former.line(sight)
            if stop.address == first.address:
                self.check_lines(lines)
                return stops
            stops.append(stop)
        self.fail(f"{title}: Tab never comes round: {[str(stop) for stop in stops]}")

    def check_lines(self, lines):
        """What has the keyboard looks different from when the next control has it."""
        compared = {name: pixels for name, pixels in lines.items() if pixels is not None}
        faint = {name: pixels for name, pixels in compared.items() if pixels < LEAST_PIXELS}
        self.assertEqual(faint, {}, "not seen to have the keyboard")
        # The last stop of a page may be scrolled away, or disabled, when the next one has the keyboard.
        self.assertGreaterEqual(len(compared), int(0.8 * len(lines)) - 1, f"out of sight at once: {lines}")

    def test_in_the_dark(self):
        self.vantro.run("settings", "set", "appearance", "dark")
        self.addCleanup(self.vantro.run, "settings", "reset", "appearance")
        self.start_again()
        self.has_keyboard(self.window(SETTINGS_TITLE))
        self.check(SETTINGS_TITLE)
        self.close(SETTINGS_TITLE)

    def test_every_page_of_the_settings(self):
        self.start_again()
        self.has_keyboard(self.window(SETTINGS_TITLE))
        pages = [node.name for node in self.reader.nodes(SETTINGS_TITLE) if node.role == "page tab"]
        self.assertGreater(len(pages), 8)
        for page in pages:
            with self.subTest(page):
                self.search_for(page)
                self.assertGreater(len(self.check(SETTINGS_TITLE)), 2)
        self.close(SETTINGS_TITLE)

    def test_the_entries_of_a_list_are_read_one_by_one(self):
        self.start_again()
        first = self.wait(lambda: self.reader.focused(SETTINGS_TITLE), 10, "the focus")
        pages = [node.name for node in self.reader.nodes(SETTINGS_TITLE) if node.role == "page tab"]
        self.assertEqual(first.name, pages[0])
        for page in pages[1:]:
            self.desktop.press("Down")
            self.wait(lambda: (stop := self.reader.focused(SETTINGS_TITLE)) and stop.name == page, 5, f"the entry {page}")
        self.close(SETTINGS_TITLE)

    def search_for(self, page):
        """Its name leads to the page itself, at its top, and to its entry in the list."""
        self.desktop.press("ctrl+f")
        self.desktop.type_text(page)
        self.desktop.press("Return")
        self.wait(lambda: (stop := self.reader.focused(SETTINGS_TITLE)) and stop.name == page, 5, f"the entry {page}")
        self.wait(lambda: any(node.role == "heading" and node.name.startswith(page)
                              for node in self.reader.nodes(SETTINGS_TITLE)), 5, f"the page {page}")

    def test_the_history_and_the_notes(self):
        for page, text in (("history", "Text of the dictation"), ("notes", "Copy")):
            self.assertEqual(self.vantro.run("show", page).returncode, 0)
            self.has_keyboard(self.window(HISTORY_TITLE))
            if page == "history":
                self.desktop.press("Down")
            self.assertIn(text, [stop.name for stop in self.check(HISTORY_TITLE)])
        self.close(HISTORY_TITLE)

    def test_the_guide(self):
        self.assertEqual(self.vantro.run("show", "guide").returncode, 0)
        self.has_keyboard(self.window(ONBOARDING_TITLE))
        while "Done" not in [stop.name for stop in self.check(ONBOARDING_TITLE)]:
            while self.reader.focused(ONBOARDING_TITLE).name not in ("Continue", "Later"):
                self.desktop.press("Tab")
            self.desktop.press("Return")
        self.close(ONBOARDING_TITLE)

    def test_the_launcher_and_an_alert(self):
        self.vantro.open_launcher()
        names = self.wait(lambda: [node.name for node in self.reader.controls(LAUNCHER_TITLE)], 5, "the launcher")
        self.assertIn("<Space> Start transcription", names)
        self.assertIn("Normal", names)
        self.assertNotIn("", names)
        self.speak(CHILD)
        self.vantro.run("cancel")
        self.wait_until_over()
        self.vantro.run("retry", "--discard")


if __name__ == "__main__":
    main()
