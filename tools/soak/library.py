"""What a device's store holds, read from its file beside the running program."""

import re
import sqlite3
import time

WORD = re.compile(r"\bq\d+z\b")  # what the soak types: each word once in the life of a library
TEXTS = {"Snippet": ("title", "notes", "code"), "Segment": ("title", "code"), "Tag": ("title",), "Folder": ("title",)}
PATIENCE = 20  # seconds that another may hold the file


def _text(value):
    """A text with lone surrogates is stored as bytes."""
    return value.decode("utf-8", "surrogatepass") if isinstance(value, bytes) else value or ""


class Library:
    """One reading of a store: all of it as of one moment."""

    def __init__(self, path):
        self.rows = {}  # (table, id) -> the row without its revision
        self.unsent = 0
        self._read(path)

    def _read(self, path):
        end = time.monotonic() + PATIENCE
        while True:
            try:
                return self._read_once(path)
            except sqlite3.OperationalError:  # in use, or its journal is not rolled back yet
                if time.monotonic() > end:
                    raise
                time.sleep(0.1)

    def _read_once(self, path):
        store = sqlite3.connect(f"file:{path}?mode=ro", uri=True, timeout=PATIENCE)
        store.row_factory = sqlite3.Row
        try:
            store.execute("BEGIN")
            tables = [name for (name,) in store.execute("SELECT name FROM sqlite_schema WHERE type = 'table'")]
            joins = [name for name in tables if name.startswith(("_Snippet_", "_Segment_", "_Tag_", "_Folder_"))]
            for table in [*TEXTS, *joins]:
                for row in store.execute(f'SELECT * FROM "{table}"'):
                    values = {key: row[key] for key in row.keys() if key != "_rev"}
                    key = values["_id"] if "_id" in values else (values["source"], values["target"])
                    self.rows[table, key] = values
            (self.unsent,) = store.execute("SELECT count(*) FROM _Mirror WHERE change > 0").fetchone()
        finally:
            store.close()

    def objects(self, table):
        return [values for (of, _), values in self.rows.items() if of == table]

    def texts(self):
        """(id of the object, the text) for each text."""
        for table, columns in TEXTS.items():
            for values in self.objects(table):
                for column in columns:
                    yield values["_id"], _text(values[column])

    def words(self):
        return {word for _, text in self.texts() for word in WORD.findall(text)}

    def words_of_snippet(self, snippet):
        """In its own texts and in its segments'."""
        of_it = {snippet} | {each["_id"] for each in self.objects("Segment") if each["snippet"] == snippet}
        return {word for owner, text in self.texts() if owner in of_it for word in WORD.findall(text)}

    def code(self, snippet):
        return _text(self.rows["Snippet", snippet]["code"]) if ("Snippet", snippet) in self.rows else ""

    def size(self):
        return sum(len(text) for _, text in self.texts())

    def differences(self, other):
        """A line for each row that is not the same in both."""
        keys = sorted({*self.rows, *other.rows}, key=repr)
        return [f"{key}: {self.rows.get(key)} | {other.rows.get(key)}" for key in keys
                if self.rows.get(key) != other.rows.get(key)]
