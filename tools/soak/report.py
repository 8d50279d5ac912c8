"""The figures at the end, and what they come to."""

from samples import slope

WARM_UP = 15 * 60  # seconds of a process that say nothing about its slope
WORTH_A_SLOPE = 30 * 60  # seconds that a process has to run after that
STEEPEST = 2048  # KB of its own memory that a process may grow by in an hour
KINDS = ("Private_Dirty", "Pss", "descriptors", "threads", "helpers_pss")


def _lives(rows):
    lives = {}
    for row in rows:
        lives.setdefault((row["device"], row["process"]), []).append(row)
    return lives


def _slopes(life):
    """By kind, an hour; None for a process that did not run for long enough."""
    warm = [row for row in life if row["seconds"] - life[0]["seconds"] >= WARM_UP]
    if not warm or warm[-1]["seconds"] - warm[0]["seconds"] < WORTH_A_SLOPE:
        return None
    return {kind: slope([(row["seconds"] / 3600, row[kind]) for row in warm]) for kind in KINDS}


def steep_lives(rows):
    """(device and process, KB an hour) of each process that grows."""
    slopes = {name: _slopes(life) for name, life in _lives(rows).items()}
    return [(name, found["Private_Dirty"]) for name, found in slopes.items() if found and found["Private_Dirty"] > STEEPEST]


def _told(name, life):
    text = f"{name[0]} {name[1]}: {(life[-1]['seconds'] - life[0]['seconds']) / 60:.1f} min; " + ", ".join(
        f"{kind} {life[0][kind]} -> {life[-1][kind]} (most {max(row[kind] for row in life)})" for kind in KINDS)
    slopes = _slopes(life)
    return text + ("; an hour: " + ", ".join(f"{kind} {value:+.1f}" for kind, value in slopes.items()) if slopes else "")


def write_report(path, soak):
    """Gives whether all is well."""
    ledger, journal = soak.ledger, soak.journal
    faults = journal.faults + [f"{name[0]} {name[1]} grows by {steep:.0f} KB an hour"
                               for name, steep in steep_lives(soak.sampler.rows)]
    if not journal.counts["comparisons"]:
        faults.append("the devices were never compared")
    lines = [f"{journal.seconds() / 60:.1f} minutes, seed {soak.seed}",
             f"Counts: {dict(sorted(journal.counts.items()))}",
             f"Words: {ledger.count} typed, {len(ledger.kept)} kept, {len(ledger.removed)} removed, of these {ledger.taken} by "
             f"the monkey; {len(ledger.unsaved)} unsaved at a kill",
             f"Processor: {soak.clock.seconds() / journal.seconds():.1%} of one",
             *(_told(name, life) for name, life in _lives(soak.sampler.rows).items()),
             *(f"FAULT: {fault}" for fault in faults),
             f"{'FAILED' if faults else 'OK'}: {len(ledger.losses)} words lost, {len(faults)} faults"]
    path.write_text("\n".join(lines) + "\n", encoding="utf-8")
    print("\n".join(lines), flush=True)
    return not faults
