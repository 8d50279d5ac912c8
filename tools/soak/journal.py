"""What has happened: a line for each step, how often each kind came, and the faults."""

import collections
import contextlib
import time

import screen
from screen import Missing

MOST_PICTURES = 60


class Journal:
    def __init__(self, folder):
        self.folder = folder
        self.began = time.monotonic()
        self.counts = collections.Counter()
        self.faults = []
        self.pictures = 0
        self.file = open(folder / "steps.log", "w", encoding="utf-8")

    def seconds(self):
        return time.monotonic() - self.began

    def note(self, *words):
        print(f"{self.seconds():8.1f}", *words, file=self.file, flush=True)

    def happened(self, what, *words):
        self.counts[what] += 1
        self.note(what, *words)

    def fault(self, text):
        self.faults.append(f"after {self.seconds():.0f} s: {text}")
        self.note("FAULT", text)
        self.picture("fault")

    def missed(self, what, trouble):
        """Something was not where the soak looked for it; it goes on without."""
        self.happened("missed", what, repr(trouble))
        self.picture("missed")

    def picture(self, name):
        self.pictures += 1
        if self.pictures <= MOST_PICTURES:
            with contextlib.suppress(Missing):
                screen.picture(str(self.folder / f"{name}-{self.pictures}.png"))
