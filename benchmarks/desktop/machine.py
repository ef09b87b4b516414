"""What it was measured on, and how busy that was."""
import os
from pathlib import Path


def description():
    models = [line.split(":")[1].strip() for line in Path("/proc/cpuinfo").read_text().splitlines()
              if line.startswith("model name")]
    debian = Path("/etc/debian_version").read_text().strip()
    return f"{models[0]}, {len(models)} cores, Debian {debian}"


def load():
    """Of the last minute."""
    return os.getloadavg()[0]


class ProcessorTime:
    """The processor time, in seconds, that a process and all its descendants have used so far."""

    TICKS = os.sysconf("SC_CLK_TCK")

    def __init__(self, pid):
        self.pid = pid

    def seconds(self):
        stats = {}
        for folder in Path("/proc").glob("[0-9]*"):
            try:
                fields = (folder / "stat").read_text().rpartition(")")[2].split()
            except OSError:
                continue
            stats[int(folder.name)] = (int(fields[1]), int(fields[11]) + int(fields[12]))
        return sum(ticks for pid, (_, ticks) in stats.items() if self._belongs(pid, stats)) / self.TICKS

    def _belongs(self, pid, stats):
        while pid in stats:
            if pid == self.pid:
                return True
            pid = stats[pid][0]
        return False


def wake_ups(pid):
    """How often the threads of a process were given a processor."""
    return sum(int(line.split()[1]) for task in Path(f"/proc/{pid}/task").iterdir()
               for line in (task / "status").read_text().splitlines() if "ctxt_switches" in line)


def private_bytes(pid):
    """Resident, and not shared with any other process."""
    rollup = Path(f"/proc/{pid}/smaps_rollup").read_text().splitlines()
    return 1024 * sum(int(line.split()[1]) for line in rollup if line.startswith(("Private_Clean", "Private_Dirty")))
