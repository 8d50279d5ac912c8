#!/usr/bin/env python3
"""Makes one table of all figures that the benchmarks have kept, and plots of what grows with a size.

    tools/bench/tables.py RESULTS DOCUMENTS     RESULTS has a file of records for each benchmark
"""

import json
import pathlib
import sys

from plot import svg

# In the order of the document: what has kept the figures, its title.
BENCHMARKS = {
    "startup_bench": "Start-up",
    "store_bench": "The library's store",
    "screens_bench": "The sidebar",
    "editor_bench": "The editor",
    "highlightr_bench": "Highlighting",
    "cloud_bench": "The cloud",
    "document_bench": "The engine's document",
    "textstore_bench": "Its text store",
    "lineindex_bench": "Its line index",
    "search_bench": "The engine's search",
    "syntax_bench": "The engine's syntax",
    "languages_bench": "The languages",
    "editing_bench": "The engine's editing",
    "layout_bench": "The engine's layout",
    "longline_bench": "A long line",
    "view_bench": "The engine on Qt",
    "session_bench": "An editor's session",
}

OURS = {"Tessarine", "Quillet"}
BUSY = 1.5

# file, title, benchmark, axes, and the rows whose curves it has.
PLOTS = [
    ("document-edits", "An edit at a random place", "document_bench", "lines", "ns, median",
     ["random edit by lines, ns"]),
    ("document-keystrokes", "A keystroke at one place", "document_bench", "lines", "ns, median",
     ["keystroke by lines, ns"]),
    ("search", "A search through all of a text that has no match", "search_bench", "characters", "ms, median",
     ["literal, no match, by characters", "expression with a common start, no match, by characters",
      "expression without a literal, no match, by characters"]),
    ("layout", "A pass of the engine's layout", "layout_bench", "lines", "µs, median",
     ["first viewport of 60 rows", "scroll by a row", "page down", "jump to a random place"]),
]


def kept_records(results):
    """For each benchmark its figures by row, who and size, in the order of the first keeping; the last keeping counts."""
    benches = {}
    for path in sorted(results.glob("*.jsonl")):
        for line in path.read_text(encoding="utf-8").splitlines():
            record = json.loads(line)
            key = (record["row"].strip(), record["who"], record["size"])
            benches.setdefault(record["bench"], {})[key] = record
    for path in sorted(results.glob("*.json")):
        for run in json.loads(path.read_text(encoding="utf-8"))["benchmarks"]:
            record = {"median": run["real_time"], "p99": run["real_time"], "unit": run["time_unit"]}
            benches.setdefault(path.stem, {})[(run["name"], "Tessarine", 0)] = record
    return benches


def number(value):
    if value >= 1000:
        return f"{value:,.0f}"
    return f"{value:.3g}" if value else "0"


def figure(record, ours):
    text = number(record["median"])
    if record["p99"] != record["median"]:
        text += f" ({number(record['p99'])})"
    if ours and ours is not record and ours["median"]:
        text += f", {number(record['median'] / ours['median'])} times"
    return text


def unit_of(row, unit):
    return f"{row}, {'µs' if unit == 'us' else unit}" if unit else row


def markdown(head, rows):
    lines = ["| " + " | ".join(cells) + " |" for cells in [head, ["---"] * len(head), *rows]]
    return "\n".join(lines) + "\n"


def comparison(figures):
    """A row for what was measured, a column for whose it is; where the first is ours, the others are set against it."""
    owners = list(dict.fromkeys(who for _, who, _ in figures))
    rows = {}
    for (row, who, _), record in figures.items():
        rows.setdefault(row, {})[who] = record
    cells = []
    for row, records in rows.items():
        first = next(iter(records.values()))
        ours = records.get(owners[0]) if owners[0] in OURS else None
        cells.append([unit_of(row, first["unit"]), *(figure(records[who], ours) if who in records else "" for who in owners)])
    return markdown(["", *owners], cells)


def growth(figures):
    sizes = sorted({size for _, _, size in figures})
    rows = {}
    for (row, who, size), record in figures.items():
        rows.setdefault((row, who), {})[size] = record
    order = list(dict.fromkeys(row for row, _ in rows))
    rows = dict(sorted(rows.items(), key=lambda item: order.index(item[0][0])))
    cells = [[unit_of(row, next(iter(records.values()))["unit"]), who,
              *(figure(records[size], None) if size in records else "" for size in sizes)]
             for (row, who), records in rows.items()]
    return markdown(["", "", *(number(size) for size in sizes)], cells)


def load_note(path):
    """What else the machine did when the benchmark began: with much of it only medians in one run can be compared."""
    load = float(path.read_text(encoding="utf-8")) if path.exists() else 0
    return [f"Measured on a busy machine: its load was {load:g} at the start.\n"] if load > BUSY else []


def section(bench, figures, results):
    parts = [f"## {BENCHMARKS[bench]} (`{bench}`)\n", *load_note(results / f"{bench}.load")]
    fixed = {key: record for key, record in figures.items() if not key[2]}
    growing = {key: record for key, record in figures.items() if key[2]}
    if fixed:
        parts.append(comparison(fixed))
    if growing:
        parts.append("By size:\n")
        parts.append(growth(growing))
    parts += [f"![{title}](plots/{file}.svg)\n" for file, title, of, *_ in PLOTS if of == bench]
    return "\n".join(parts)


def series(figures, rows):
    """Curves by whose they are; where there are several rows each has its name."""
    curves = {}
    for (row, who, size), record in figures.items():
        if row in rows and size:
            measured = row.replace(", by characters", "")
            owners = {owner for name, owner, _ in figures if name in rows}
            parts = ([measured] if len(rows) > 1 else []) + ([who] if len(owners) > 1 else [])
            curves.setdefault(", ".join(parts), []).append((size, record["median"]))
    return [(name, sorted(points)) for name, points in curves.items()]


def main():
    results, documents = map(pathlib.Path, sys.argv[1:])
    benches = kept_records(results)
    unknown = benches.keys() - BENCHMARKS.keys()
    if unknown or not benches:
        sys.exit(f"{results}: no records" if not benches else f"these benchmarks have no title: {sorted(unknown)}")
    plots = documents / "plots"
    plots.mkdir(exist_ok=True)
    for file, title, bench, across, up, rows in PLOTS:
        if bench in benches:
            picture = svg(title, across, up, series(benches[bench], rows))
            (plots / f"{file}.svg").write_text(picture, encoding="utf-8")
    text = ["# All benchmarks\n", "Made by `./bench all`; [benchmarks.md](benchmarks.md) tells what is measured and how to read it. "
            "Each figure is a median,\nwith the p99 in brackets, and beside ours how many times as much it is. A benchmark that is missing has not been run.\n"]
    text += [section(bench, benches[bench], results) for bench in BENCHMARKS if bench in benches]
    (documents / "benchmarks-all.md").write_text("\n".join(text), encoding="utf-8")


if __name__ == "__main__":
    main()
