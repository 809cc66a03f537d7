#!/usr/bin/python3
"""The icon in trays of both kinds, also in those that come later than the program, and what its menu does."""

import os
import re
import time
from pathlib import Path

from dictationcase import CHILD, CHILD_WORDS, TABLE, TABLE_WORDS, DesktopError, main, words
from shellcase import SETTINGS_TITLE, ShellCase

from notifier import WATCHER, find_item

TRAY_HEIGHT = 24
ENTRIES = ["Dictate", "Copy a Recent Dictation", "Microphone", "Mode", "History", "Notes", "Private Session", "Settings", "Models", "First Steps", "Check for Updates", "Report an Error", "Send Feedback",
           "About vantro", "Quit"]
OPENER = """#!/bin/sh
printf '%s\\n' "$1" >> "$HOME/opened.txt"
"""


class StatusNotifierTest(ShellCase):
    @classmethod
    def prepare_profile(cls):
        super().prepare_profile()
        # What the desktop opens addresses with.
        folder = cls.desktop.home / "bin"
        folder.mkdir()
        (folder / "xdg-open").write_text(OPENER)
        (folder / "xdg-open").chmod(0o755)
        cls.desktop.env["PATH"] = f"{folder}:{os.environ['PATH']}"

    def find_icon(self):
        return self.wait(lambda: find_item(self.desktop), 10, "the icon")

    def test_a_tray_that_comes_after_the_program_gets_the_icon_and_gets_it_again_after_a_crash(self):
        watcher = self.desktop.start(*WATCHER)
        icon = self.find_icon()
        self.assertEqual(icon.labels(), ENTRIES)
        watcher.kill()
        self.wait(lambda: not find_item(self.desktop), 5, "the end of the watcher")
        watcher = self.desktop.start(*WATCHER)
        self.addCleanup(watcher.stop)
        self.find_icon().choose("Settings")
        self.close(SETTINGS_TITLE)

    def test_the_menu_dictates_opens_windows_and_writes_mails(self):
        watcher = self.desktop.start(*WATCHER)
        self.addCleanup(watcher.stop)
        icon = self.find_icon()

        icon.choose("Dictate")
        self.vantro.wait_for_launcher()
        self.wait(lambda: "listening" in str(icon.property("ToolTip")), 5, "the icon to tell of the recording")
        icon.choose("Cancel Dictation")
        self.wait_until_over()
        self.assertFalse({"Cancel Dictation", "End Recording"} & set(icon.labels()))

        icon.choose("Dictate")
        self.vantro.wait_for_launcher()
        self.speak(CHILD)
        icon.choose("End Recording")
        self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)
        self.wait(lambda: "listening" not in str(icon.property("ToolTip")), 5, "the icon to rest")

        for entry in ("Models", "About vantro"):
            icon.choose(entry)
            self.close(SETTINGS_TITLE)

        for entry in ("Report an Error", "Send Feedback"):
            icon.choose(entry)
        opened = self.desktop.home / "opened.txt"
        mails = self.wait(lambda: opened.exists() and len(opened.read_text().split()) == 2 and
                          opened.read_text().split(), 10, "two mails")
        report = next(mail for mail in mails if "report" in mail)
        self.assertRegex(report, r"^mailto:[^?]+\?subject=vantro%20error%20report&body=%F0%9F%93%9D")
        kernel = Path("/proc/sys/kernel/osrelease").read_text().strip()
        self.assertIn(kernel, report)
        self.assertTrue(any(re.fullmatch(r"mailto:[^?]+\?subject=vantro%20feedback", mail) for mail in mails))

    def test_the_menu_copies_recent_dictations_chooses_microphone_and_mode_and_keeps_a_session_private(self):
        watcher = self.desktop.start(*WATCHER)
        self.addCleanup(watcher.stop)
        icon = self.find_icon()
        self.dictate(CHILD)
        text = self.wait_for_text()
        self.wait_until_over()
        recent = self.wait(lambda: icon.submenu("Copy a Recent Dictation"), 5, "the dictation in the menu")
        time.sleep(0.5)  # until the former clipboard is back, as it is when a person has opened the menu
        icon.choose("Copy a Recent Dictation", list(recent)[0])
        self.wait(lambda: self.desktop.clipboard() == text.strip(), 5, "its text on the clipboard")

        self.assertEqual(icon.submenu("Mode"), {"Normal": True, "Notes": False})
        icon.choose("Mode", "Notes")
        self.wait(lambda: icon.submenu("Mode")["Notes"], 5, "the mode")
        self.assertEqual(self.vantro.run("settings", "get", "defaultProcessingMode").stdout, "Notes\n")
        icon.choose("Mode", "Normal")

        microphones = icon.submenu("Microphone")
        self.assertTrue(microphones.pop("Same as the Desktop"))
        icon.choose("Microphone", list(microphones)[0])
        self.wait(lambda: icon.submenu("Microphone")[list(microphones)[0]], 5, "the microphone")
        icon.choose("Microphone", "Same as the Desktop")

        before = self.vantro.run("last").stdout
        icon.choose("Private Session")
        self.wait(lambda: icon.is_checked("Private Session"), 5, "the private session")
        self.dictate(TABLE)
        arrived = self.wait(lambda: len(self.arrived()) > len(text) and self.arrived(), 60, "its text")
        self.assertEqual(words(arrived[len(text):])[:4], TABLE_WORDS[:4])
        self.wait_until_over()
        self.assertEqual(self.vantro.run("last").stdout, before)
        icon.choose("Private Session")

    def test_quit_ends_the_program(self):
        watcher = self.desktop.start(*WATCHER)
        self.addCleanup(watcher.stop)
        self.find_icon().choose("Quit")
        self.vantro.process.expect_exit(0)
        self.restart()


class EmbeddingTrayTest(ShellCase):
    def start_tray(self):
        tray = self.desktop.start("trayer", "--widthtype", "request", "--height", str(TRAY_HEIGHT))
        self.addCleanup(tray.stop)
        return tray

    def icon(self):
        """The middle of the icon's window inside the tray, or None."""
        if not self.desktop.display.selection_owner("_NET_SYSTEM_TRAY_S0"):
            return None
        try:
            tree = self.desktop.run("xwininfo", "-root", "-tree")
        except DesktopError:
            return None  # a window went while the tree was read
        _, found, panel = tree.partition('("panel" "trayer")')
        icon = re.search(r'"vantro"\)\s+(\d+)x(\d+)\S+\s+\+(\d+)\+(\d+)', panel) if found else None
        if not icon:
            return None
        width, height, x, y = map(int, icon.groups())
        return (x + width // 2, y + height // 2) if 1 < width <= TRAY_HEIGHT else None

    def settled_icon(self):
        before = []

        def settled():
            before.append(self.icon())
            return len(before) > 1 and before[-1] == before[-2] and before[-1]

        return self.wait(settled, 10, "the icon in the tray")

    def check_icon(self):
        x, y = self.settled_icon()
        self.desktop.run("xdotool", "mousemove", str(x), str(y), "click", "1")
        self.close(SETTINGS_TITLE)

    def test_an_old_tray_that_comes_later_gets_the_icon_and_gets_it_again_after_a_crash(self):
        self.assertIsNone(self.icon())
        self.start_tray().kill()
        self.start_tray()
        self.check_icon()

    def test_the_icon_is_in_one_tray_and_in_the_better_one(self):
        self.start_tray()
        self.settled_icon()
        watcher = self.desktop.start(*WATCHER)
        self.addCleanup(watcher.stop)
        self.wait(lambda: find_item(self.desktop), 10, "the icon in the newer tray")
        self.wait(lambda: not self.icon(), 5, "the older tray to lose it")
        watcher.kill()
        self.check_icon()
        self.assertIsNone(find_item(self.desktop))
        watcher = self.desktop.start(*WATCHER)
        self.addCleanup(watcher.stop)
        self.wait(lambda: find_item(self.desktop), 10, "the icon in the newer tray")
        self.wait(lambda: not self.icon(), 5, "the older tray to lose it")
        find_item(self.desktop).choose("Quit")
        self.vantro.process.expect_exit(0)
        self.restart()


if __name__ == "__main__":
    main()
