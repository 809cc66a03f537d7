"""A virtual desktop of KDE's compositor, without an X server: see desktop.py and waylanddesktop.py."""

import shutil
import sys
from pathlib import Path

from desktop import accepts_connections
from vantro import ROOT
from waylandclient import FakeInput, PlasmaWindows
from waylanddesktop import WaylandDesktop, WaylandDisplay, WaylandVantro
from xdisplay import Window

NEEDED = ("kwin_wayland",)
PORTAL = "GlobalShortcuts portal"
_ENTRY = ROOT / "packaging" / "com.vantro.app.desktop"


def is_plasma_5():
    return any(Path("/usr/lib").glob("*/libkwin.so.5*"))


class KwinDisplay(WaylandDisplay):
    """Windows as the compositor tells of them, and its user's keyboard."""

    def __init__(self, socket):
        super().__init__(FakeInput(socket))
        self._windows = PlasmaWindows(socket)

    def close(self):
        super().close()
        self._windows.close()

    def windows(self):
        self._windows.update()
        return [Window(identifier, app_id, app_id, title, 0, 0, 0, 0)
                for identifier, (title, app_id, _) in self._windows.windows.items()]

    def active_window(self):
        self._windows.update()
        return self._windows.active()

    def activate(self, window):
        self._windows.activate(window)


class KwinDesktop(WaylandDesktop):
    """program: may do what its desktop entry asks for, as it is when it has been installed."""

    NAME = "KDE"
    # foot 1.13 divides by the refresh rate of the virtual output, which has none.
    TERMINAL_COMMAND = ("xfce4-terminal", "--disable-server", "-x")

    def open_terminal(self, app_id="xfce4-terminal"):
        return super().open_terminal(app_id)

    def __init__(self, program, width=1280, height=800):
        super().__init__(width, height)
        self._program_path = Path(program).resolve()

    def _start_display(self):
        self.env |= {"KDE_FULL_SESSION": "true", "KWIN_COMPOSE": "Q", "XDG_MENU_PREFIX": "kf5-",
                     "WAYLAND_DISPLAY": "wayland-kwin"}
        self._allow(_ENTRY.name, self._program_path)
        python = Path(sys.executable).resolve()
        self._allow(python.name + ".desktop", python)  # in place of the system's own
        super()._start_bus()  # its shortcuts live there
        width, height = self._resolution.split("x")
        # A copy: the installed one has a capability, and is not started where that may not be had.
        compositor = shutil.copy(shutil.which("kwin_wayland"), self.home)
        self.start_service("env", "-u", "QT_QPA_PLATFORM", compositor, "--virtual", "--width", width, "--height",
                           height, "--socket", self.env["WAYLAND_DISPLAY"], "--no-lockscreen")
        socket = self.runtime_folder / self.env["WAYLAND_DISPLAY"]
        self.wait_until(lambda: accepts_connections(socket), 20, "the compositor")
        self.display = KwinDisplay(socket)

    def _start_bus(self):
        pass

    def _allow(self, name, program):
        """The compositor reads in a program's desktop entry what it may do."""
        entry = _ENTRY.read_text().replace("Exec=vantro", f"Exec={program}")
        path = self.data_home / "applications" / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(entry)

    def _focus(self, window):
        self.display.activate(window.id)

    def screenshot(self, path):
        """Writes nothing: the compositor gives pictures only to programs that it knows."""

    def process_of(self, name):
        """Who owns that name on the session bus."""
        answer = self.call_bus("org.freedesktop.DBus", "/org/freedesktop/DBus",
                               "org.freedesktop.DBus.GetConnectionUnixProcessID", name)
        return int(answer.split()[-1].rstrip(",)"))


class KwinVantro(WaylandVantro):
    """The compositor does not list its panels: while the launcher has the keyboard, no window is active."""

    def launcher(self):
        return self.status()["state"] != "idle" and self.desktop.display.active_window() == 0

    def start(self, *arguments, env=None):
        super().start(*arguments, env=env)
        self.desktop.wait_until(lambda: self.status()["shortcut_by"] == PORTAL, 60, "the shortcut")
