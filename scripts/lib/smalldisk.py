"""A disk of a few megabytes that programs of a test can fill, without any right that a user does not have.

    disk = SmallDisk(desktop)
    disk.run("vantro", "history")
    disk.fill()

It is mounted in a name space of its own: only what runs through it sees it, below disk.path. Run as a program this file
is what keeps the name space.
"""

import ctypes
import os
import signal
import sys
from pathlib import Path

_SIZE = "8m"
_NEW_NAMESPACES = 0x10000000 | 0x00020000  # users, mounts


class SmallDisk:
    """Raises DesktopError where the system lets no user mount anything."""

    def __init__(self, desktop):
        self._desktop = desktop
        self.path = desktop.home / "small"
        self.path.mkdir(exist_ok=True)
        ready = desktop.home / "small-is-mounted"
        ready.unlink(missing_ok=True)  # of an earlier one
        self._keeper = desktop.start("/usr/bin/python3", Path(__file__).resolve(), self.path, ready)
        desktop.wait_until(lambda: ready.exists() or not self._keeper.running, 10, "the small disk")
        if not self._keeper.running:
            raise desktop.failure("the small disk cannot be mounted")

    def command(self, *command):
        """What starts a program that sees the disk."""
        return ("nsenter", "--target", str(self._keeper.pid), "--user", "--mount", "--preserve-credentials", *command)

    def run(self, *command):
        return self._desktop.run(*self.command(*command))

    def fill(self):
        self.run("sh", "-c", f"! cat /dev/zero > {self.path}/filler 2>/dev/null")

    def make_room(self):
        self.run("rm", f"{self.path}/filler")

    def stop(self):
        self._keeper.stop()


def _keep(path, ready):
    libc = ctypes.CDLL(None, use_errno=True)
    user, group = os.getuid(), os.getgid()
    if libc.unshare(_NEW_NAMESPACES) != 0:
        sys.exit(os.strerror(ctypes.get_errno()))
    Path("/proc/self/setgroups").write_text("deny")
    Path("/proc/self/uid_map").write_text(f"{user} {user} 1")
    Path("/proc/self/gid_map").write_text(f"{group} {group} 1")
    if libc.mount(b"none", os.fsencode(path), b"tmpfs", 0, f"size={_SIZE}".encode()) != 0:
        sys.exit(os.strerror(ctypes.get_errno()))
    Path(ready).touch()
    signal.pause()


if __name__ == "__main__":
    _keep(*sys.argv[1:])
