#!/usr/bin/env python3
"""Looks up the words of what a user reads: texts in the sources and the documents.

A text is a literal that is translated, or one of two words at least that is no code. Words that the dictionary does
not have are in words.txt beside this file; those that nobody writes any more have to leave it.

    tools/checks/spelling.py            all
    tools/checks/spelling.py FILE...    these; with no look for words of the list that are not needed
"""

import re
import subprocess
import sys

import tree

LIST = "tools/checks/words.txt"
SOURCES = re.compile(r"^(app|account|Quillet|Halcyonix|platform|examples|Tessarine|themes|packaging)/.*"
                     r"\.(cpp|h|desktop|xml)(\.in)?$")
TESTS = re.compile(r"/(tests|bench|fuzz|gallery)/")
DOCUMENT = re.compile(r"^(?!.*/sample\.md$|THIRD_PARTY_NOTICES\.md$).*\.md$")
TOKEN = re.compile(r"//[^\n]*|/\*.*?\*/|R\"(\w*)\((?:.*?)\)\1\"|(?<![0-9a-fA-F])'(?:[^'\\\n]|\\.)+'|\"((?:[^\"\\\n]|\\.)*)\"", re.DOTALL)
CODE = re.compile(r"[=;{}$<>|\[\]_]|::|->|\b[A-Z]{2,} [A-Z]{2,}\b|^\s*#|\w\.\w+\(")
FENCE = re.compile(r"^```.*?^```$|^(?: {4}|\t)[^\n]*|`[^`]*`|\]\([^)]*\)|<[^>]*>", re.MULTILINE | re.DOTALL)
WORD = re.compile(r"[A-Za-z\u00c0-\u024f]+(?:['’][A-Za-z]+)*")


def literals(source):
    """The literals of a C++ source, each with whether it is handed to a translator."""
    for match in TOKEN.finditer(source):
        if match.group(2) is not None:
            yield match.group(2), re.search(r"(\btr|translate|NOOP)\((\"[^\"]*\",\s*)?$", source[max(0, match.start() - 80):match.start()]) is not None


def texts(path):
    content = tree.text_of(path)
    if path.endswith(".md"):
        yield FENCE.sub(" ", content)
    elif not re.search(r"\.(cpp|h)(\.in)?$", path):
        yield re.sub(r"<[^>]*>|^\w+=", " ", content, flags=re.MULTILINE)
    else:
        for literal, is_translated in literals(content):
            literal = re.sub(r"\\[nrt\"]|&(?=\w)|%\d?[a-zA-Z]?|\\\w+", lambda m: "" if m[0] == "&" else " ", literal)
            if is_translated or (re.search(r"[A-Za-z]{2} [A-Za-z]{2}", literal) and not CODE.search(literal)):
                yield literal


def words(path):
    """Words in ordinary writing: names of types and abbreviations are left to the compiler and the reader."""
    for text in texts(path):
        for word in WORD.findall(text):
            word = word.replace("’", "'")
            if len(word) > 2 and re.fullmatch(r"[^\W\d_][^A-Z]*", word):
                yield word


def unknown(all_words):
    result = subprocess.run(["hunspell", "-d", "en_GB,en_US", "-l", "-i", "utf-8"], input="\n".join(all_words),
                            check=True, capture_output=True, text=True)
    return set(result.stdout.split())


def main():
    files = sys.argv[1:] or [path for path in tree.tracked()
                             if (SOURCES.match(path) and not TESTS.search(path))
                             or DOCUMENT.match(path)]
    accepted = {line for line in tree.text_of(LIST).split("\n") if line and not line.startswith("#")}
    found = {}
    for path in files:
        for word in words(path):
            found.setdefault(word, path)
    faults = [f"{found[word]}: {word}" for word in sorted(unknown(sorted(found)) - accepted)]
    if not sys.argv[1:]:
        faults += [f"{LIST}: {word} is not written anywhere" for word in sorted(accepted - found.keys())]
    tree.end("words", len(found), faults)


main()
