"""A virtual desktop for testing vantro as its users use it: with a real microphone, real keys and a real editor.

    with VirtualDesktop() as desktop:
        editor = desktop.open_editor()
        desktop.press("ctrl+alt+d")
        desktop.audio.play("speech.wav")
        desktop.wait_until(lambda: "word" in editor.text(), 10, "the dictated text")

Everything runs in a private folder with its own HOME and XDG folders and ends with the context, even on an error or a
signal. There are no fixed sleeps. Use it from the main thread.
"""

import os
import shutil
import signal
import socket
import subprocess
import tempfile
from pathlib import Path

from audioserver import AudioServer
from program import DesktopError, Program, adopt_orphans, dismiss_guard, end_strays, poll_until, start_guard
from xdisplay import XDisplay

_SESSION_VARIABLES = ("DBUS_", "DISPLAY", "GNOME_", "GTK_", "LANG", "LC_", "PULSE_", "QT_", "SSH_", "WAYLAND_", "XAUTH",
                      "XDG_")
_ENDING_SIGNALS = (signal.SIGTERM, signal.SIGHUP)
_KEYRING_PASSWORD = b"vantro"
PATIENCE = float(os.environ.get("VANTRO_PATIENCE", 1))  # of whoever waits for a program, which may be a slow one


class Editor:
    """A program that text is delivered to.

    text()      its whole contents
    changed()   whether something arrived since the last text(); fast enough for measurements
    """

    def __init__(self, window, program, text, changed):
        self.window = window
        self.program = program
        self.text = text
        self.changed = changed


class VirtualDesktop:
    """X server, window manager, compositor, D-Bus session, Secret Service and sound server.

    folder          contains everything, including logs; VANTRO_KEEP_DESKTOP=1 keeps it
    home, config_home, data_home, cache_home, runtime_folder    the fresh profile
    env             the environment of programs on this desktop
    display         an XDisplay: windows and low-level keys
    audio           an AudioServer
    """

    def __init__(self, width=1280, height=800):
        self._size = f"{width}x{height}x24"
        self._services = []
        self._programs = []
        self._previous_handlers = {}
        self._guard = None
        self.display = None

    def __enter__(self):
        for number in _ENDING_SIGNALS:
            self._previous_handlers[number] = signal.signal(number, _leave)
        try:
            self._make_folders()
            self._start_display()
            self._start_bus()
            self._start_secret_service()
            self.audio = AudioServer(self)
            self.audio.start()
        except BaseException:
            self._end()
            raise
        return self

    def __exit__(self, kind, error, trace):
        self._end()

    # --- programs

    def start(self, *command, env=None, stdin=None):
        """Starts a program on the desktop. Its output goes to a log; env extends or overrides the environment."""
        return self._launch(self._programs, command, env, stdin)

    def start_service(self, *command, stdin=None, pass_fds=()):
        """Starts a part of the desktop itself; if it exits unexpectedly, every wait fails."""
        return self._launch(self._services, command, None, stdin, pass_fds)

    def end_service(self, service):
        self._services.remove(service)
        service.kill()

    def run(self, *command, env=None, timeout_s=10):
        """Runs a command to its end and returns its standard output; raises unless it succeeds."""
        command = [str(part) for part in command]
        result = subprocess.run(command, env=self.env | (env or {}), capture_output=True, text=True, timeout=timeout_s,
                                stdin=subprocess.DEVNULL)
        if result.returncode != 0:
            raise self.failure(f"{' '.join(command)} ended with {result.returncode}: {result.stderr.strip()}")
        return result.stdout

    def wait_until(self, predicate, timeout_s, what):
        """Waits for the first true value of predicate() and returns it. VANTRO_PATIENCE multiplies the limit."""
        patience_s = timeout_s * PATIENCE
        value = poll_until(lambda: self._check_services() or predicate(), patience_s)
        if not value:
            raise self.failure(f"timed out after {patience_s:g} s waiting for {what}")
        return value

    def failure(self, text):
        """Returns an error with the visible windows and the ends of all logs."""
        for window in self.display.windows() if self.display else []:
            mark = "*" if window.id == self.display.active_window() else " "
            text += f"\n  window{mark} {window.wm_class}: {window.title}"
        return DesktopError(text + "".join([service.log_tail(lines=3) for service in self._services] +
                                           [program.log_tail() for program in self._programs]))

    def call_bus(self, service, path, method, *arguments):
        """Calls a method on the session bus. Arguments and result are in GVariant's text format."""
        return self.run("gdbus", "call", "--session", "--dest", service, "--object-path", path, "--method", method,
                        *arguments)

    def bus_name_owned(self, name):
        return "true" in self.call_bus("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                       "org.freedesktop.DBus.NameHasOwner", name)

    # --- keys, windows, clipboard

    def press(self, chord):
        """Presses and releases a chord like "ctrl+alt+d" or "space"."""
        self.display.chord_down(chord)
        self.display.chord_up(chord)

    def type_text(self, text):
        """Types text into the active window."""
        self.run("xdotool", "type", "--delay", "2", text)

    def find_window(self, wm_class=None, title=None):
        """The topmost visible window of that class and with that text in its title, or None."""
        for window in reversed(self.display.windows()):
            if (wm_class is None or wm_class.lower() in (window.wm_class.lower(), window.instance.lower())) and (
                    title is None or title in window.title):
                return window
        return None

    def wait_for_window(self, wm_class=None, title=None, timeout_s=10):
        return self.wait_until(lambda: self.find_window(wm_class, title), timeout_s,
                               f"a window {wm_class or ''} {title or ''}")

    def activate(self, window, timeout_s=5):
        self.run("xdotool", "windowactivate", str(window.id))
        self.wait_until(lambda: self.display.active_window() == window.id, timeout_s, f"{window.title} to be active")

    def open_editor(self):
        """Opens an empty document in a text editor; text() is its contents."""
        document = self.home / "document.txt"
        document.write_text("")
        program = self.start("mousepad", document)
        window = self.wait_for_window("mousepad", document.name)
        self.activate(window)

        def unsaved():
            return self.display.title(window.id).startswith("*")

        def saved():
            if unsaved():
                # Over the bus, like its own menu, so that neither keys nor the focus are needed.
                service, menu = (self.display.text(window.id, name) for name in
                                 ("_GTK_UNIQUE_BUS_NAME", "_GTK_WINDOW_OBJECT_PATH"))
                self.call_bus(service, menu, "org.gtk.Actions.Activate", "file.save", "[]", "{}")
            return not unsaved()

        def read():
            self.wait_until(saved, 5, "the editor to save")
            return document.read_text()

        return Editor(window, program, read, unsaved)

    def open_xterm(self, wm_class="XTerm"):
        """Opens a terminal that records everything typed or pasted into it; text() returns all of it."""
        typed = self.home / f"typed-{len(self._programs)}.txt"
        program = self.start("xterm", "-class", wm_class, "-name", wm_class.lower(), "-e", "sh", "-c", 'stty -icanon; exec cat > "$1"', "sh", typed)
        window = self.wait_for_window(wm_class)
        self.activate(window)
        self.wait_until(typed.exists, 5, "the terminal's shell")
        seen_bytes = 0

        def read():
            nonlocal seen_bytes
            contents = typed.read_bytes()
            seen_bytes = len(contents)
            return contents.decode()

        return Editor(window, program, read, lambda: typed.stat().st_size > seen_bytes)

    def clipboard(self, selection="clipboard"):
        """The clipboard's text as another program sees it; None if it has no owner."""
        while self.display.selection_owner(selection.upper()):
            try:
                return self.run("xclip", "-selection", selection, "-out")
            except DesktopError:
                # Ignore an owner that has given it up meanwhile; one without text is a fault.
                if self.display.selection_owner(selection.upper()):
                    raise
        return None

    def set_clipboard(self, text, selection="clipboard"):
        """Copies text in another program."""
        self.start("xclip", "-selection", selection, "-in", "-quiet", stdin=text.encode())
        self.wait_until(lambda: self.clipboard(selection) == text, 5, "the clipboard")

    def screenshot(self, path):
        """Writes the whole screen as a PNG."""
        path = Path(path).absolute()
        path.parent.mkdir(parents=True, exist_ok=True)
        self.run("import", "-window", "root", "-depth", "8", f"png:{path}")
        return path

    # --- the parts

    def _make_folders(self):
        self.folder = Path(tempfile.mkdtemp(prefix="vantro-desktop-"))
        adopt_orphans()
        self._guard = start_guard(self.folder)
        self.home = self.folder / "home"
        self.config_home = self.home / ".config"
        self.data_home = self.home / ".local" / "share"
        self.cache_home = self.home / ".cache"
        self.runtime_folder = self.folder / "run"
        self._logs = self.folder / "logs"
        for folder in (self.config_home, self.data_home, self.cache_home, self.runtime_folder, self._logs):
            folder.mkdir(mode=0o700, parents=True)
        inherited = {name: value for name, value in os.environ.items() if not name.startswith(_SESSION_VARIABLES)}
        self.env = inherited | {
            "HOME": str(self.home),
            "XDG_CONFIG_HOME": str(self.config_home),
            "XDG_DATA_HOME": str(self.data_home),
            "XDG_STATE_HOME": str(self.home / ".local" / "state"),
            "XDG_CACHE_HOME": str(self.cache_home),
            "XDG_RUNTIME_DIR": str(self.runtime_folder),
            "XDG_SESSION_TYPE": "x11",
            "LANG": "C.UTF-8",
            "NO_AT_BRIDGE": "1",
            "QT_QPA_PLATFORM": "xcb",
            "QT_QUICK_BACKEND": "software",
        }

    def _start_display(self):
        reading, writing = os.pipe()
        with os.fdopen(reading) as numbers:
            server = self.start_service("Xvfb", "-displayfd", writing, "-screen", "0", self._size, "-nolisten", "tcp",
                                        "-noreset", pass_fds=(writing,))
            os.close(writing)
            number = numbers.readline().strip()
        if not number:
            raise self.failure(f"the X server ended with {server.stop()}")
        self.env["DISPLAY"] = f":{number}"
        self.display = XDisplay(self.env["DISPLAY"])
        self.start_service("openbox", "--sm-disable")
        self.wait_until(self.display.window_manager_runs, 10, "the window manager")
        self.start_service("xcompmgr")
        self.wait_until(lambda: self.display.selection_owner("_NET_WM_CM_S0"), 10, "the compositor")

    def _start_bus(self):
        path = self.runtime_folder / "bus"
        self.env["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={path}"
        self.start_service("dbus-daemon", "--session", "--nofork", "--nopidfile",
                           f"--address={self.env['DBUS_SESSION_BUS_ADDRESS']}")
        self.wait_until(lambda: accepts_connections(path), 10, "the session bus")

    def _start_secret_service(self):
        self.start_service("gnome-keyring-daemon", "--foreground", "--unlock", "--components=secrets",
                           stdin=_KEYRING_PASSWORD)
        self.wait_until(lambda: self.bus_name_owned("org.freedesktop.secrets") and self._default_keyring_is_open(), 10,
                        "the Secret Service")

    def _default_keyring_is_open(self):
        try:
            answer = self.call_bus("org.freedesktop.secrets", "/org/freedesktop/secrets/aliases/default",
                                   "org.freedesktop.DBus.Properties.Get", "org.freedesktop.Secret.Collection",
                                   "Locked")
        except DesktopError:  # the service is ready before its keyring
            return False
        return "false" in answer

    def _launch(self, group, command, env, stdin, pass_fds=()):
        count = len(list(self._logs.iterdir()))
        log = self._logs / f"{count:02}-{Path(command[0]).name}.log"
        program = Program(command, env=self.env | (env or {}), log=log, stdin=stdin, pass_fds=pass_fds)
        group.append(program)
        return program

    def _check_services(self):
        for service in self._services:
            if not service.running:
                raise self.failure(f"{service.name} ended unexpectedly with {service.exit_code}")

    def _end(self):
        for number in self._previous_handlers:
            signal.signal(number, signal.SIG_IGN)
        if self.display:
            self.display.close()
        for program in reversed(self._services + self._programs):
            program.stop()
        if self._guard:
            end_strays(self.folder)
            dismiss_guard(self._guard)
            if os.environ.get("VANTRO_KEEP_DESKTOP") != "1":
                shutil.rmtree(self.folder, ignore_errors=True)
        for number, handler in self._previous_handlers.items():
            signal.signal(number, handler)


def _leave(number, frame):
    raise SystemExit(128 + number)


def accepts_connections(path):
    with socket.socket(socket.AF_UNIX) as probe:
        return probe.connect_ex(str(path)) == 0
