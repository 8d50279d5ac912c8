"""What processes take, by the kernel's own figures, and how that goes up or down."""

import csv
import os
import pathlib
import threading
import time

KINDS = ("Rss", "Pss", "Private_Dirty", "Anonymous")
COLUMNS = ("seconds", "device", "process", *KINDS, "descriptors", "threads", "processor_seconds", "helpers", "helpers_pss",
           "store_bytes")
TICKS = os.sysconf("SC_CLK_TCK")


def _stat(process):
    """The fields behind the name, which may hold spaces and brackets."""
    return pathlib.Path(f"/proc/{process}/stat").read_text().rpartition(")")[2].split()


def _processor_seconds(process):
    fields = _stat(process)
    return (int(fields[11]) + int(fields[12])) / TICKS


def _memory(process):
    """KB by kind."""
    lines = pathlib.Path(f"/proc/{process}/smaps_rollup").read_text().splitlines()
    found = dict(line.split(":", 1) for line in lines[1:])
    return {kind: int(found[kind].split()[0]) for kind in KINDS}


def _children(process):
    threads = pathlib.Path(f"/proc/{process}/task")
    return [int(child) for thread in threads.iterdir() for child in (thread / "children").read_text().split()]


class Clock:
    """Processor time of all that runs in this process's session, those that have ended included."""

    def __init__(self):
        self.session = str(os.getsid(0))
        self.spent = {}

    def seconds(self):
        for folder in pathlib.Path("/proc").glob("[0-9]*"):
            try:
                fields = _stat(folder.name)
                if fields[3] == self.session:
                    self.spent[folder.name, fields[19]] = (int(fields[11]) + int(fields[12])) / TICKS
            except (FileNotFoundError, ProcessLookupError):
                pass
        return sum(self.spent.values())


class Sampler(threading.Thread):
    """Writes a line for each device every `interval` seconds."""

    def __init__(self, path, devices, interval):
        super().__init__(daemon=True)
        self.path, self.devices, self.interval = path, devices, interval
        self.start_time = time.monotonic()
        self.rows = []
        self.over = threading.Event()

    def run(self):
        with open(self.path, "w", newline="", encoding="utf-8") as file:
            table = csv.DictWriter(file, COLUMNS)
            table.writeheader()
            while not self.over.wait(self.interval):
                for device in self.devices:
                    self._sample(device, table)
                file.flush()

    def _sample(self, device, table):
        process = device.process.pid
        try:
            row = {"seconds": round(time.monotonic() - self.start_time, 1), "device": device.name, "process": process,
                   **_memory(process),
                   "descriptors": len(os.listdir(f"/proc/{process}/fd")),
                   "threads": len(os.listdir(f"/proc/{process}/task")),
                   "processor_seconds": _processor_seconds(process),
                   "helpers": len(_children(process)),
                   "helpers_pss": sum(_memory(child)["Pss"] for child in _children(process)),
                   "store_bytes": device.store.stat().st_size}
        except (OSError, KeyError, IndexError):  # it ends just now
            return
        self.rows.append(row)
        table.writerow(row)


def slope(points):
    """Of the line through [(x, y)] with the least squares; None for less than two places."""
    if len({x for x, _ in points}) < 2:
        return None
    middle_x = sum(x for x, _ in points) / len(points)
    middle_y = sum(y for _, y in points) / len(points)
    return (sum((x - middle_x) * (y - middle_y) for x, y in points) / sum((x - middle_x) ** 2 for x, _ in points))
