"""What the soak has typed, and what has to be there because of it."""


class Ledger:
    """A word is typed; when a device's store is seen to hold it, it is kept; when a person takes it away, it is removed.
    What was kept once and nobody removed has to be in every library from then on."""

    def __init__(self):
        self.count = 0
        self.typed = {}  # word -> (device, seconds); not seen in a store yet
        self.kept = set()
        self.removed = set()
        self.taken = 0  # by the monkey
        self.unsaved = set()  # typed into a program that was killed before it saved
        self.seen = {}  # device -> what its store has held
        self.losses = []

    def new_word(self):
        self.count += 1
        return f"q{self.count}z"

    def type(self, word, device, now):
        self.typed[word] = (device, now)

    def observe(self, device, words, now):
        """Looks at what a device's store holds; a word that was there before has to be there still."""
        for word in words & (self.typed.keys() | self.unsaved):
            self.typed.pop(word, None)
            self.unsaved.discard(word)
            self.kept.add(word)
        before = self.seen.setdefault(device, set())
        self._lose(before - words - self.removed, f"gone from {device}", now)
        before |= words

    def remove(self, words):
        self.removed |= words

    def take(self, words):
        self.taken += len(words)
        self.remove(words)

    def kill(self, device):
        for word in [word for word, (where, _) in self.typed.items() if where == device]:
            del self.typed[word]
            self.unsaved.add(word)

    def overdue(self, age, now):
        """What was typed longer than `age` ago should be in the store by now."""
        late = {word for word, (_, since) in self.typed.items() if now - since > age}
        self._lose(late, f"not saved after {age} s", now)

    def settle(self, libraries, now):
        """All has to be everywhere: `libraries` is device -> words."""
        for device, words in libraries.items():
            self._lose(self.kept - words - self.removed, f"not on {device}", now)

    def _lose(self, words, how, now):
        for word in sorted(words):
            self.losses.append((now, word, how))
            self.typed.pop(word, None)
            self.removed.add(word)  # one fault is told of once
