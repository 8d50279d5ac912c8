"""When all has come to rest, two devices hold the same, and it is what was typed."""

import time

from gi.repository import GLib
from screen import Missing

SETTLED = 180  # seconds that two devices may take to be the same
SETTINGS_SETTLED = 30


def _recover_and_save(devices, journal):
    """Who comes back to a program has it look at the cloud at once, whatever it was waiting for."""
    for device in [*devices, devices[0]]:
        try:
            device.recover()
            device.save()
        except (Missing, GLib.Error) as missing:
            journal.missed(f"compare, {device.name}", missing)


def _settle(devices, journal):
    """Gives the two libraries, and whether they are the same."""
    end = time.monotonic() + SETTLED
    while True:
        first, second = (device.library() for device in devices)
        differences = first.differences(second)
        if not differences and not first.unsent and not second.unsent:
            return first, second, True
        if time.monotonic() > end:
            journal.fault(f"not the same after {SETTLED} s: {len(differences)} rows, {first.unsent} and {second.unsent} unsent")
            (journal.folder / f"differences-{len(journal.faults)}.txt").write_text("\n".join(differences), encoding="utf-8")
            return first, second, False
        time.sleep(1)


def _compare_settings(devices, journal):
    end = time.monotonic() + SETTINGS_SETTLED
    while (settings := [device.settings() for device in devices])[0] != settings[1]:
        if time.monotonic() > end:
            return journal.fault(f"the settings are not the same after {SETTINGS_SETTLED} s: {settings}")
        time.sleep(1)


def compare(devices, ledger, journal):
    _recover_and_save(devices, journal)
    start = journal.seconds()
    *libraries, are_same = _settle(devices, journal)
    now = time.monotonic()
    words = {device.name: library.words() for device, library in zip(devices, libraries)}
    for name, held in words.items():
        ledger.observe(name, held, now)
    if not are_same:
        return
    ledger.settle(words, now)
    _compare_settings(devices, journal)
    journal.happened("comparisons", f"the same after {journal.seconds() - start:.1f} s:",
                     f"{len(libraries[0].objects('Snippet'))} snippets, {libraries[0].size()} characters,",
                     f"{len(words[devices[0].name])} words")
