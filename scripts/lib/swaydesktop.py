"""A virtual desktop of the sway compositor, without an X server: see desktop.py and waylanddesktop.py."""

import json
import subprocess
from pathlib import Path

from waylandclient import VirtualKeyboard
from waylanddesktop import WaylandDesktop, WaylandDisplay, WaylandVantro, run_as_user
from xdisplay import Window

NEEDED = ("sway", "swaymsg", "grim")
_BACKGROUND = bytes.fromhex("303540")
_PANELS = (700, 420, 40, 230)  # x, y, width, height: where panels are and windows are not


class SwayDisplay(WaylandDisplay):
    """Windows as sway tells of them, and a keyboard."""

    def __init__(self, desktop, keyboard):
        super().__init__(keyboard)
        self._desktop = desktop

    def _views(self):
        pending = [json.loads(self._desktop.run("swaymsg", "--raw", "-t", "get_tree"))]
        while pending:
            node = pending.pop()
            pending += node["nodes"] + node["floating_nodes"]
            if node.get("pid"):
                yield node

    def windows(self):
        """The visible windows of all programs; panels are none."""
        return [Window(view["id"], view["app_id"] or "", view["app_id"] or "", view["name"] or "",
                       *(view["rect"][side] for side in ("x", "y", "width", "height")))
                for view in self._views() if view["visible"]]

    def active_window(self):
        """The window that has the keyboard; 0 while a panel has it."""
        return next((view["id"] for view in self._views() if view["focused"]), 0)


class SwayDesktop(WaylandDesktop):
    """bindings: lines for the compositor's configuration. layout: of the keyboard."""

    NAME = "sway"

    def __init__(self, bindings=(), layout="us", width=1280, height=800):
        super().__init__(width, height)
        self._bindings, self._layout = bindings, layout

    def _start_display(self):
        self.env |= {"WLR_BACKENDS": "headless", "WLR_LIBINPUT_NO_DEVICES": "1", "WLR_RENDERER": "pixman"}
        configuration = self.folder / "sway.conf"
        configuration.write_text("\n".join(("xwayland disable", f"output HEADLESS-1 resolution {self._resolution}",
                                            f"output * background #{_BACKGROUND.hex()} solid_color",
                                            'for_window [app_id=".*"] floating enable, resize set 640 360, move position 20 20',
                                            *self._bindings, "")))
        self.start_service("sway", "--config", configuration)
        sockets = self.wait_until(lambda: self._sockets(), 20, "the compositor")
        self.env |= {"WAYLAND_DISPLAY": sockets[0], "SWAYSOCK": sockets[1]}
        self.display = SwayDisplay(self, VirtualKeyboard(self.runtime_folder / sockets[0], self._layout))

    def _sockets(self):
        display = next((path.name for path in self.runtime_folder.glob("wayland-?")), None)
        control = next((str(path) for path in self.runtime_folder.glob("sway-ipc.*.sock")), None)
        return display and control and (display, control)

    def message(self, *words):
        """Has the compositor run a command."""
        return self.run("swaymsg", *words)

    def _focus(self, window):
        self.message(f"[con_id={window.id}]", "focus")

    def pixels(self, x, y, width, height):
        picture = subprocess.run(["grim", "-g", f"{x},{y} {width}x{height}", "-t", "ppm", "-"], env=self.env,
                                 capture_output=True, check=True, timeout=10).stdout
        return picture[-3 * width * height:]

    def panel_pixels(self):
        """A part of the screen where panels are."""
        return self.pixels(*_PANELS)

    def panel_shown(self):
        """Whether a panel of the program is on the screen."""
        pixels = self.panel_pixels()
        return pixels != _BACKGROUND * (len(pixels) // 3)

    def screenshot(self, path):
        path = Path(path).absolute()
        path.parent.mkdir(parents=True, exist_ok=True)
        self.run("grim", path)
        return path


class SwayVantro(WaylandVantro):
    """Its panels are no windows: they are seen on the screen."""

    def launcher(self):
        return self.desktop.panel_shown() and self.desktop.display.active_window() == 0

    def notice(self):
        """Whether the heads-up display is there."""
        return self.status()["state"] == "idle" and self.desktop.panel_shown()


__all__ = ["SwayDesktop", "SwayVantro", "run_as_user"]
