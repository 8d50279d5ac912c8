"""What befalls a user's network, server and programs, each at its own times."""

import time

from gate import Gate


class Mishaps:
    def __init__(self, soak):
        self.soak, self.random, self.journal = soak, soak.random, soak.journal
        self.back_online = {}  # gate -> when
        # Seconds between two of a kind; a short soak has to see each as well.
        hurry = min(1, soak.length / 1800)
        self.every = {self.cut_network: max(30, 90 * hurry), self.restart_server: max(40, 400 * hurry),
                      self.kill: max(45, 420 * hurry)}
        self.due = {mishap: time.monotonic() + seconds for mishap, seconds in self.every.items()}

    def befall(self):
        now = time.monotonic()
        for gate in [gate for gate, when in self.back_online.items() if now > when]:
            self.online(gate)
        for mishap in [mishap for mishap, when in self.due.items() if now > when]:
            self.due[mishap] = now + self.every[mishap] * self.random.uniform(0.7, 1.3)
            mishap()

    def online(self, gate):
        gate.open()
        self.back_online.pop(gate, None)

    def all_online(self):
        for device in self.soak.devices:
            self.online(device.gate)

    def cut_network(self):
        device = self.random.choice(self.soak.devices)
        cut = self.random.choice([Gate.shut, Gate.shut, Gate.silence])
        cut(device.gate)
        self.back_online[device.gate] = time.monotonic() + self.random.uniform(15, 90)
        self.journal.happened(f"network {cut.__name__}", device.name)

    def restart_server(self):
        how = self.random.choice(["fast", "immediate"])
        self.soak.server.restart(how)
        self.journal.happened(f"server {how}")

    def kill(self):
        device = self.soak.devices[1]
        # The first device has a long life behind its first minutes, so that there is one to measure.
        if self.journal.seconds() < min(720, self.soak.length / 2) and self.random.random() < 0.5:
            device = self.soak.devices[0]
        device.enter()
        if self.random.random() < 0.5:
            device.save()
        self.soak.restart(device)
        self.journal.happened("kill", device.name)
