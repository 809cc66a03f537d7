"""Child processes of a virtual desktop: logged, in their own process groups, ending with their parent."""

import ctypes
import os
import shutil
import signal
import subprocess
import sys
import time
from pathlib import Path

_libc = ctypes.CDLL(None)
_PR_SET_PDEATHSIG = 1
_PR_SET_CHILD_SUBREAPER = 36
_POLL_INTERVAL_S = 0.004


class DesktopError(RuntimeError):
    """Something on the virtual desktop did not happen; the text ends with the programs' logs."""


def poll_until(predicate, timeout_s):
    """Returns the first true value of predicate(), or None on timeout."""
    deadline = time.monotonic() + timeout_s
    while True:
        value = predicate()
        if value:
            return value
        if time.monotonic() >= deadline:
            return None
        time.sleep(_POLL_INTERVAL_S)


def tail(path, lines):
    try:
        return Path(path).read_text(errors="replace").splitlines()[-lines:]
    except FileNotFoundError:
        return []


def _die_with_parent():
    _libc.prctl(_PR_SET_PDEATHSIG, signal.SIGTERM)


class Program:
    """A running command. Start it from the main thread: the kernel ends it with the thread that created it."""

    def __init__(self, command, *, env, log, stdin=None, pass_fds=()):
        self.command = [str(part) for part in command]
        self.name = Path(self.command[0]).name
        self.log = Path(log)
        with self.log.open("ab") as output:
            self._process = subprocess.Popen(
                self.command, env=env, stdout=output, stderr=subprocess.STDOUT, pass_fds=pass_fds,
                stdin=subprocess.DEVNULL if stdin is None else subprocess.PIPE,
                start_new_session=True, preexec_fn=_die_with_parent)
        if stdin is not None:
            self._process.stdin.write(stdin)
            self._process.stdin.close()

    @property
    def pid(self):
        return self._process.pid

    @property
    def exit_code(self):
        """None while it runs; negative if a signal ended it."""
        return self._process.poll()

    @property
    def running(self):
        return self.exit_code is None

    def expect_exit(self, code=0, timeout_s=10):
        """Waits for the end and checks the exit code."""
        try:
            actual = self._process.wait(timeout_s)
        except subprocess.TimeoutExpired:
            raise DesktopError(f"{self.name} still runs after {timeout_s} s{self.log_tail()}") from None
        if actual != code:
            raise DesktopError(f"{self.name} ended with {actual} instead of {code}{self.log_tail()}")

    def stop(self, sig=signal.SIGTERM, patience_s=3):
        """Ends the whole process group, by force after a timeout. Returns the exit code."""
        if self.running:
            self._signal_group(sig)
            try:
                self._process.wait(patience_s)
            except subprocess.TimeoutExpired:
                pass
        self._signal_group(signal.SIGKILL)
        return self._process.wait()

    def kill(self):
        """Ends it like a crash."""
        return self.stop(signal.SIGKILL)

    def log_tail(self, lines=15):
        state = "" if self.running else f"\n  {self.name} ended with {self.exit_code}"
        if state and self.exit_code < 0:
            lines *= 5  # with the whole trace of a crash
        return state + "".join(f"\n  {self.name}| {line}" for line in tail(self.log, lines))

    def _signal_group(self, sig):
        try:
            os.killpg(self.pid, sig)
        except ProcessLookupError:
            pass


def adopt_orphans():
    """Reparents detached descendants to this process, so that it can end them."""
    _libc.prctl(_PR_SET_CHILD_SUBREAPER, 1)


def end_strays(folder):
    """Kills every process whose environment refers to folder, i.e. detached services."""
    marker = str(folder).encode() + b"/"
    for entry in Path("/proc").iterdir():
        if not entry.name.isdigit() or int(entry.name) == os.getpid():
            continue
        try:
            if marker in (entry / "environ").read_bytes():
                os.kill(int(entry.name), signal.SIGKILL)
                os.waitpid(int(entry.name), 0)
        except (ChildProcessError, FileNotFoundError, PermissionError, ProcessLookupError):
            continue


def start_guard(folder):
    """Starts a process that removes folder and its strays if this process is killed."""
    return subprocess.Popen([sys.executable, "-I", __file__, str(folder)], stdin=subprocess.PIPE,
                            start_new_session=True)


def dismiss_guard(guard):
    guard.kill()
    guard.stdin.close()
    guard.wait()


def _guard(folder):
    sys.stdin.read()
    end_strays(folder)
    shutil.rmtree(folder, ignore_errors=True)


if __name__ == "__main__":
    _guard(sys.argv[1])
