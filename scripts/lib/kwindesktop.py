"""A virtual desktop of KDE's compositor, without an X server: see desktop.py and waylanddesktop.py."""

from vantro import LAUNCHER_TIMEOUT_S, Vantro
from waylandclient import FakeInput, PlasmaWindows
from waylanddesktop import WaylandDesktop, WaylandDisplay
from xdisplay import Window

NEEDED = ("kwin_wayland",)


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
    NAME = "KDE"

    def _start_display(self):
        super()._start_bus()  # its shortcuts live there
        self.env |= {"KDE_FULL_SESSION": "true", "KWIN_COMPOSE": "Q", "KWIN_WAYLAND_NO_PERMISSION_CHECKS": "1",
                     "WAYLAND_DISPLAY": "wayland-kwin"}
        width, height = self._resolution.split("x")
        self.start_service("env", "-u", "QT_QPA_PLATFORM", "kwin_wayland", "--virtual", "--width", width, "--height",
                           height, "--socket", self.env["WAYLAND_DISPLAY"], "--no-lockscreen")
        self.wait_until((self.runtime_folder / self.env["WAYLAND_DISPLAY"]).exists, 20, "the compositor")
        self.display = KwinDisplay(self.runtime_folder / self.env["WAYLAND_DISPLAY"])

    def _start_bus(self):
        pass

    def _focus(self, window):
        self.display.activate(window.id)


class KwinVantro(Vantro):
    """Without the portal of a whole KDE session: its settings bind the shortcut to this command."""

    def launcher(self):
        return self.status()["state"] == "recording" and self.desktop.display.active_window() == 0

    def open_launcher(self):
        self.run("toggle")
        self.desktop.wait_until(self.launcher, LAUNCHER_TIMEOUT_S, "the launcher to have the keyboard")
        self.desktop.wait_until(self.desktop.audio.recording_sources, LAUNCHER_TIMEOUT_S, "the recording")
