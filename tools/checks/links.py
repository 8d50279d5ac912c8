#!/usr/bin/env python3
"""Checks what the documents point at: relative links and their anchors, paths and names of types in backticks.

    tools/checks/links.py [DOCUMENT...]     all of them by default
"""

import pathlib
import re
import sys

import tree

LINK = re.compile(r"!?\[[^\]]*\]\(([^)\s]+)\)")
CODE = re.compile(r"`([^`\n]+)`")
FENCE = re.compile(r"^```.*?^```$", re.MULTILINE | re.DOTALL)
PATH = re.compile(r"[\w.@-]+(/[\w.@-]+)+/?")
FILE = re.compile(r"[\w-]+\.(md|h|cpp|py|cmake|json|txt|scm|sql|js)")
TYPE = re.compile(r"[A-Z][a-z0-9]+([A-Z][A-Za-z0-9]*)+")


def without_code(text):
    return CODE.sub("", FENCE.sub("", text))


def anchors(text):
    """As the usual renderers make them: lower case, words joined by hyphens, the second of a kind numbered."""
    found = set()
    for heading in re.findall(r"^#+ +(.*?)\s*#*$", FENCE.sub("", text), re.MULTILINE):
        base = re.sub(r"[^\w\- ]", "", LINK.sub(r"\1", heading).lower()).replace(" ", "-")
        anchor, count = base, 0
        while anchor in found:
            count += 1
            anchor = f"{base}-{count}"
        found.add(anchor)
    return found


def wrong_links(document, text):
    for target in LINK.findall(without_code(text)):
        if re.match(r"[a-z]+:", target):
            continue
        path, _, anchor = target.partition("#")
        file = (tree.ROOT / document).parent / path if path else tree.ROOT / document
        if not file.exists():
            yield f"{document}: {target} leads to no file"
        elif anchor and anchor not in anchors(file.read_text(encoding="utf-8")):
            yield f"{document}: {target} leads to no heading"


class Names:
    """What may be named: the files of the tree by any of their last parts, folders, words of the sources."""

    def __init__(self):
        files = tree.tracked()
        self.paths = set()
        for file in map(pathlib.PurePosixPath, files):
            for path in (file, file.with_suffix(""), *file.parents):
                parts = path.parts
                self.paths.update("/".join(parts[start:]) for start in range(len(parts)))
        self.top = {file.split("/")[0] for file in files if "/" in file}
        sources = [file for file in files if re.search(r"(\.(h|cpp|cmake|py|js|in)|CMakeLists\.txt)$", file)]
        self.text = "\n".join(map(tree.text_of, sources))
        self.words = set(re.findall(r"\w+", self.text))

    def is_wrong(self, code):
        if FILE.fullmatch(code):
            return code not in self.paths and code not in self.text
        if PATH.fullmatch(code):
            return code.split("/")[0] in self.top and code.rstrip("/") not in self.paths
        return bool(TYPE.fullmatch(code)) and not any(word.startswith(code) for word in self.words)


def wrong_names(document, text, names):
    for code in CODE.findall(FENCE.sub("", text)):
        if names.is_wrong(code):
            yield f"{document}: `{code}` is not in the tree"


def main():
    documents = sys.argv[1:] or [file for file in tree.tracked("*.md") if not file.endswith("/sample.md")]
    names = Names()
    faults = []
    for document in documents:
        text = tree.text_of(document)
        faults += wrong_links(document, text)
        faults += wrong_names(document, text, names)
    tree.end("documents", len(documents), faults)


main()
