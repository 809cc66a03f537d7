"""vantro on a virtual desktop, driven through its user interface and command line.

    with VirtualDesktop() as desktop:
        vantro = Vantro(desktop, program)
        vantro.install_model()
        vantro.start()
        vantro.open_launcher()
        desktop.audio.play("speech.flac")
        vantro.end_dictation()
"""

import json
import subprocess
from pathlib import Path

from program import DesktopError

ROOT = Path(__file__).resolve().parent.parent.parent
BUS_NAME = "com.vantro.app"
WINDOW_CLASSES = ("vantro", BUS_NAME)  # on X11, on Wayland
LAUNCHER_TITLE = "vantro"
HUD_TITLE = "paste-hud"
SHORTCUT = "Ctrl+Alt+D"
SHORTCUT_KEYS = SHORTCUT.lower()
STOP_KEY = "space"
CANCEL_KEY = "Escape"

START_TIMEOUT_S = 20
LAUNCHER_TIMEOUT_S = 10
TEXT_TIMEOUT_S = 60


class Vantro:
    """One installation; its profile is in the desktop's folders and survives restarts of the program."""

    def __init__(self, desktop, program):
        self.desktop = desktop
        self.program = Path(program)
        self.process = None

    # --- profile

    @property
    def models_folder(self):
        return self.desktop.data_home / "vantro" / "models"

    @property
    def history_file(self):
        return self.desktop.data_home / "vantro" / "MainModel.sqlite"

    def install_model(self):
        subprocess.run([ROOT / "scripts" / "get-model", "--dir", self.models_folder], check=True,
                       stdout=subprocess.DEVNULL)

    def configure(self, **settings):
        """Writes the user's settings, which take effect on the next start."""
        path = self.desktop.config_home / "vantro" / "vantro.ini"
        path.parent.mkdir(parents=True, exist_ok=True)
        lines = "".join(f"{key}={str(value).lower() if isinstance(value, bool) else value}\n"
                        for key, value in settings.items())
        path.write_text("[General]\n" + lines)

    # --- the running program

    def start(self, *arguments, env=None):
        """Starts the program and waits until it answers on the bus."""
        self.process = self.desktop.start(self.program, *(arguments or ("--shortcut", SHORTCUT)), env=env)

        def ready():
            if not self.process.running:
                raise self.desktop.failure(f"vantro ended with {self.process.exit_code} instead of staying")
            return self.desktop.bus_name_owned(BUS_NAME)

        self.desktop.wait_until(ready, START_TIMEOUT_S, f"{BUS_NAME} on the session bus")
        # It answers calls once it has started and registered its shortcut.
        self.status()

    def quit(self):
        """Ends the program like the end of a session; it must exit by itself."""
        self.process.stop()

    def log(self):
        """The program's output so far, including the log."""
        return self.process.log.read_text(errors="replace")

    def run(self, *arguments, stdin=None, env=None, timeout_s=60):
        """Runs a vantro command to its end, whatever its exit code."""
        return subprocess.run([str(part) for part in (self.program, *arguments)], env=self.desktop.env | (env or {}),
                              capture_output=True, text=stdin is None, timeout=timeout_s,
                              **({"stdin": subprocess.DEVNULL} if stdin is None else {"input": stdin}))

    def status(self):
        """The output of `vantro status --json`."""
        result = self.run("status", "--json")
        if result.returncode != 0:
            raise self.desktop.failure(f"vantro status ended with {result.returncode}: {result.stderr.strip()}")
        return json.loads(result.stdout)

    def wait_for_state(self, state, timeout_s=10):
        self.desktop.wait_until(lambda: self.status()["state"] == state, timeout_s, f"the state {state}")

    # --- what the user sees and does

    def window(self, title):
        """The program's visible window with exactly that title, or None."""
        return next((window for window in self.desktop.display.windows()
                     if window.wm_class in WINDOW_CLASSES and window.title == title), None)

    def launcher(self):
        return self.window(LAUNCHER_TITLE)

    def alerts(self):
        """All other visible windows."""
        return [window for window in self.desktop.display.windows()
                if window.wm_class in WINDOW_CLASSES and window.title not in (LAUNCHER_TITLE, HUD_TITLE)]

    def wait_for_launcher(self):
        """Waits until the launcher has the keyboard and the microphone is recorded."""
        desktop = self.desktop
        launcher = desktop.wait_until(self.launcher, LAUNCHER_TIMEOUT_S, "the launcher")
        desktop.wait_until(lambda: desktop.display.active_window() == launcher.id, LAUNCHER_TIMEOUT_S,
                           "the launcher to have the keyboard")
        desktop.wait_until(lambda: desktop.audio.recording_sources(), LAUNCHER_TIMEOUT_S, "the recording")
        return launcher

    def open_launcher(self):
        self.desktop.press(SHORTCUT_KEYS)
        return self.wait_for_launcher()

    def end_dictation(self):
        self.desktop.press(STOP_KEY)

    def wait_until_closed(self, timeout_s=TEXT_TIMEOUT_S):
        self.desktop.wait_until(lambda: not self.launcher(), timeout_s, "the launcher to close")


__all__ = ["DesktopError", "Vantro"]
