"""The tracked files of the tree, and how a check ends."""

import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]


def tracked(*patterns):
    """Paths from the root, of files that are not ignored; new ones too."""
    names = subprocess.run(
        ["git", "-c", "safe.directory=*", "ls-files", "-z", "--cached", "--others", "--exclude-standard", "--",
         *patterns],
        cwd=ROOT, check=True, capture_output=True, text=True).stdout
    paths = [name for name in names.split("\0") if name and (ROOT / name).is_file()]
    return sorted(set(paths))


def text_of(path):
    return (ROOT / path).read_text(encoding="utf-8", errors="replace")


def end(what, looked_at, faults):
    """A check that looked at nothing looks in the wrong place."""
    for fault in faults:
        print(fault)
    if not looked_at:
        print(f"no {what} were found")
    print(f"{looked_at} {what}, {len(faults)} faults")
    sys.exit(1 if faults or not looked_at else 0)
