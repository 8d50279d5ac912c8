"""Two devices with one server between them, for a while: edits, a monkey, and all that befalls networks and programs."""

import argparse
import pathlib
import random
import time

import screen
from comparison import compare
from device import Device
from gate import Gate
from hands import Fault, Hands, choose_act
from journal import Journal
from ledger import Ledger
from mishaps import Mishaps
from report import write_report
from samples import Clock, Sampler
from screen import Missing
from server import Server

SHARE = 0.25  # of one processor, for all of the soak together
HEAD_START = 20  # processor seconds that nobody counts, for the start
SAVED_BY_ITSELF = 90  # seconds in which what nobody saves is saved
PATIENT_WITH = 4  # acts of a device that may miss something before it is started anew

screen.PATIENCE = 40  # a machine may have other work


class Soak:
    def __init__(self, given):
        self.seed, self.length = given.seed, given.minutes * 60
        self.random = random.Random(given.seed)
        self.journal = Journal(given.folder)
        self.ledger = Ledger()
        self.hands = Hands(self.ledger, self.random)
        self.clock = Clock()
        self.server = Server(given.schema)
        self.devices = [Device(name, column, given.executable, given.folder, Gate(self.server.port))
                        for column, name in enumerate(("first", "second"))]
        self.sampler = Sampler(given.folder / "samples.csv", self.devices, min(10, self.length / 60))
        self.sampler.start()
        self.mishaps = Mishaps(self)
        self.next_comparison = self.between_comparisons()

    def between_comparisons(self):
        return self.journal.seconds() + max(50, 300 * min(1, self.length / 1800)) * self.random.uniform(0.7, 1.3)

    def run(self):
        while self.journal.seconds() < self.length:
            self.guarded(self.act)
            self.guarded(self.mishaps.befall)
            if self.journal.seconds() > self.next_comparison:
                self.guarded(self.compare)
                self.next_comparison = self.between_comparisons()
            self.rest()
        self.compare()
        self.end()

    def guarded(self, part):
        """What the soak cannot do it tells of, and goes on."""
        try:
            part()
        except Exception as trouble:  # noqa: BLE001
            self.journal.missed(part.__name__, trouble)

    def act(self):
        device = self.random.choice(self.devices)
        act = choose_act(self.random, device.library())
        losses = len(self.ledger.losses)
        try:
            device.enter() if device.is_clean else device.recover()
            act(self.hands, device)
            self.hands.observe(device)
            self.journal.happened(act.__name__, device.name)
            device.failures = 0
        except Fault as fault:
            self.journal.fault(f"{device.name}, {act.__name__}: {fault}")
            device.is_clean = False
        except Exception as trouble:  # noqa: BLE001
            self.journal.missed(f"{act.__name__}, {device.name}", trouble)
            device.failures += 1
            device.is_clean = False
        self.ledger.overdue(SAVED_BY_ITSELF, time.monotonic())
        self.tell_losses(losses, f"{device.name}, {act.__name__}")
        self.see_to(device)

    def tell_losses(self, known, where):
        for _, word, how in self.ledger.losses[known:]:
            self.journal.fault(f"{where}: {word} is lost, {how}")

    def see_to(self, device):
        """Starts it anew where it has ended or does not come on."""
        code = device.process.poll()
        if code == 0:
            self.journal.happened("ended by the monkey", device.name)
            device.start()
        elif code is not None:
            self.journal.fault(f"{device.name} ended with {code}")
            self.ledger.kill(device.name)
            device.start()
        elif device.failures >= PATIENT_WITH:
            self.journal.happened("stuck", device.name)
            self.restart(device)

    def restart(self, device):
        losses = len(self.ledger.losses)
        self.hands.observe(device)
        self.ledger.kill(device.name)
        device.kill()
        device.start()
        self.hands.observe(device)
        self.tell_losses(losses, f"{device.name}, killed")

    def compare(self):
        losses = len(self.ledger.losses)
        self.mishaps.all_online()
        compare(self.devices, self.ledger, self.journal)
        self.tell_losses(losses, "compared")

    def rest(self):
        """So that the machine stays free for others."""
        time.sleep(self.random.uniform(0.2, 1.0))
        while self.clock.seconds() > SHARE * self.journal.seconds() + HEAD_START and self.journal.seconds() < self.length:
            time.sleep(1)

    def end(self):
        for device in self.devices:
            code = device.quit()
            if code != 0:
                self.journal.fault(f"{device.name} {'does not end' if code is None else f'ended with {code}'}")
        self.sampler.over.set()

    def stop(self):
        for device in self.devices:
            if device.process.poll() is None:
                device.kill()
        self.server.stop()


def arguments():
    parser = argparse.ArgumentParser()
    parser.add_argument("executable")
    parser.add_argument("schema")
    parser.add_argument("folder", type=pathlib.Path)
    parser.add_argument("--minutes", type=float, default=120)
    parser.add_argument("--seed", type=int, default=1)
    return parser.parse_args()


def take():
    given = arguments()
    soak = Soak(given)
    try:
        soak.run()
    finally:
        is_well = write_report(given.folder / "report.txt", soak)
        soak.stop()
    if not is_well:
        raise Missing("see the report")


screen.take(take, "failed.png")
