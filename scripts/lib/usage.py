"""Resource usage of a running process, as counted by the kernel."""

import os
import time
from dataclasses import dataclass
from pathlib import Path

_TICKS_PER_S = os.sysconf("SC_CLK_TCK")


@dataclass(frozen=True)
class Usage:
    """cpu_s: processor time of all threads; wakeups: how often one of them stopped waiting; resident_mb: 10^6 bytes."""

    cpu_s: float
    wakeups: int
    resident_mb: float


class ProcessUsage:
    def __init__(self, pid):
        self._folder = Path("/proc") / str(pid)

    def look(self):
        fields = (self._folder / "stat").read_text().rsplit(")", 1)[1].split()
        wakeups = sum(_number(task / "status", "voluntary_ctxt_switches")
                      for task in (self._folder / "task").iterdir())
        return Usage((int(fields[11]) + int(fields[12])) / _TICKS_PER_S, wakeups,
                     _number(self._folder / "status", "VmRSS") * 1024 / 1e6)

    def rests_for(self, duration_s):
        """Whether no thread wakes up during that time."""
        before = self.look()
        time.sleep(duration_s)
        return self.look().wakeups == before.wakeups


def _number(path, name):
    """The value of a field in one of the kernel's files; 0 if the thread has just ended."""
    try:
        lines = path.read_text().splitlines()
    except (FileNotFoundError, ProcessLookupError):
        return 0
    return next((int(line.split()[1]) for line in lines if line.startswith(name + ":")), 0)
