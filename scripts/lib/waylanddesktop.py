"""What virtual desktops of Wayland compositors have in common: see desktop.py, whose interface they have.

Their compositors do not run as root: run_as_user() first.
"""

import os
import subprocess
import sys

from desktop import Editor, VirtualDesktop
from program import poll_until
from vantro import LAUNCHER_TIMEOUT_S, Vantro

NEEDED = ("wl-copy", "wl-paste", "foot", "mousepad", "dbus-daemon", "gdbus", "gnome-keyring-daemon", "pulseaudio",
          "pactl", "paplay", "unshare")
_MOUSEPAD = "org.xfce.mousepad"


def run_as_user():
    """Starts this script again in a user namespace, where root is an ordinary user; does nothing without need."""
    if os.geteuid() == 0:
        os.execvp("unshare", ["unshare", "--user", "--map-user=1000", "--map-group=1000", sys.executable, *sys.argv])


class WaylandDisplay:
    """A keyboard; subclasses know the windows."""

    def __init__(self, keyboard):
        self._keyboard = keyboard

    def close(self):
        self._keyboard.close()

    def title(self, window):
        return next((each.title for each in self.windows() if each.id == window), "")

    def key(self, name, down):
        self._keyboard.key(name, down)

    def chord_down(self, chord):
        for name in chord.split("+"):
            self.key(name, True)

    def chord_up(self, chord):
        for name in reversed(chord.split("+")):
            self.key(name, False)

    def keys_held(self):
        return self._keyboard.held()


class WaylandDesktop(VirtualDesktop):
    """Subclasses start the compositor, and have a NAME."""

    def __init__(self, width=1280, height=800):
        super().__init__(width, height)
        self._resolution = f"{width}x{height}"

    def _make_folders(self):
        super()._make_folders()
        self.env |= {"XDG_SESSION_TYPE": "wayland", "XDG_CURRENT_DESKTOP": self.NAME, "GDK_BACKEND": "wayland",
                     "QT_QPA_PLATFORM": "wayland", "DBUS_SESSION_BUS_ADDRESS": f"unix:path={self.runtime_folder}/bus"}

    def type_text(self, text):
        for letter in text:
            self.press({" ": "space"}.get(letter, letter))

    def activate(self, window, timeout_s=5):
        self._focus(window)
        self.wait_until(lambda: self.display.active_window() == window.id, timeout_s, f"{window.title} to be active")

    def open_editor(self):
        document = self.home / "document.txt"
        document.write_text("")
        program = self.start("mousepad", document)
        window = self.wait_for_window(title=document.name)
        self.activate(window)

        def unsaved():
            return self.display.title(window.id).startswith("*")

        def saved():
            if unsaved():
                self.call_bus(_MOUSEPAD, "/" + _MOUSEPAD.replace(".", "/") + "/window/1", "org.gtk.Actions.Activate",
                              "file.save", "[]", "{}")
            return not unsaved()

        def read():
            self.wait_until(saved, 5, "the editor to save")
            return document.read_text()

        return Editor(window, program, read, unsaved)

    # A terminal that runs a command: TERMINAL_COMMAND's arguments are followed by it.
    TERMINAL_COMMAND = ("foot", "-o", "dpi-aware=no", "--app-id={}")

    def open_terminal(self, app_id="foot"):
        """Opens a terminal that records everything typed or pasted into it; text() returns all of it."""
        typed = self.home / f"typed-{len(self._programs)}.txt"
        program = self.start(*(argument.format(app_id) for argument in self.TERMINAL_COMMAND), "sh", "-c",
                             'stty -icanon -echo; exec cat > "$1"', "sh", typed)
        window = self.wait_for_window(app_id)
        self.activate(window)
        self.wait_until(typed.exists, 5, "the terminal's shell")
        return Editor(window, program, lambda: typed.read_text(), lambda: typed.stat().st_size > 0)

    def clipboard(self, selection="clipboard"):
        """The clipboard's text as another program sees it; None if it has no owner."""
        primary = ("--primary",) if selection == "primary" else ()
        result = subprocess.run(["wl-paste", "--no-newline", *primary], env=self.env, capture_output=True, text=True,
                                timeout=10)
        return result.stdout if result.returncode == 0 else None

    def clipboard_types(self):
        """What the clipboard's owner offers."""
        return self.run("wl-paste", "--list-types").split()

    def set_clipboard(self, text, selection="clipboard"):
        """Copies text in another program."""
        primary = ("--primary",) if selection == "primary" else ()
        self.start("wl-copy", "--foreground", *primary, text)
        self.wait_until(lambda: self.clipboard(selection) == text, 5, "the clipboard")


class WaylandVantro(Vantro):
    """Its panels are no windows to others. Subclasses say in launcher() whether it is there and has the keyboard."""

    def wait_for_launcher(self):
        self.desktop.wait_until(self.launcher, LAUNCHER_TIMEOUT_S, "the launcher to have the keyboard")
        self.desktop.wait_until(self.desktop.audio.recording_sources, LAUNCHER_TIMEOUT_S, "the recording")
