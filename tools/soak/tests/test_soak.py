"""That the soak notices what it is there to notice."""

import pathlib
import socket
import sqlite3
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent))

from gate import Gate
from ledger import Ledger
from library import Library
from report import steep_lives
from samples import slope


class LedgerTest(unittest.TestCase):
    def setUp(self):
        self.ledger = Ledger()
        self.words = [self.ledger.new_word() for _ in range(3)]
        for word in self.words:
            self.ledger.type(word, "first", now=0)

    def lost(self):
        return [word for _, word, _ in self.ledger.losses]

    def test_what_was_kept_has_to_stay_on_its_device(self):
        self.ledger.observe("first", set(self.words), now=1)
        self.ledger.observe("first", set(self.words[1:]), now=2)
        self.assertEqual(self.lost(), self.words[:1])

    def test_what_a_person_removed_is_not_lost(self):
        self.ledger.observe("first", set(self.words), now=1)
        self.ledger.remove({self.words[0]})
        self.ledger.observe("first", set(self.words[1:]), now=2)
        self.ledger.settle({"first": set(self.words[1:]), "second": set(self.words[1:])}, now=3)
        self.assertEqual(self.lost(), [])

    def test_what_never_reached_the_other_device_is_lost(self):
        self.ledger.observe("first", set(self.words), now=1)
        self.ledger.settle({"first": set(self.words), "second": set(self.words[:2])}, now=2)
        self.assertEqual(self.lost(), self.words[2:])

    def test_what_is_not_saved_in_time_is_lost(self):
        self.ledger.observe("first", set(self.words[:1]), now=1)
        self.ledger.overdue(90, now=90)
        self.assertEqual(self.lost(), [])
        self.ledger.overdue(90, now=91)
        self.assertEqual(self.lost(), self.words[1:])

    def test_a_kill_excuses_what_was_not_saved_and_nothing_else(self):
        self.ledger.observe("first", set(self.words[:1]), now=1)
        self.ledger.kill("first")
        self.ledger.overdue(90, now=200)
        self.ledger.observe("first", set(self.words[1:2]), now=201)  # one had been saved just before, and one goes
        self.assertEqual(self.lost(), self.words[:1])
        self.ledger.settle({"first": set()}, now=202)
        self.assertEqual(self.lost(), self.words[:2])


class LibraryTest(unittest.TestCase):
    def library(self, folder, revision, code):
        path = pathlib.Path(folder) / f"{revision}.sqlite"
        store = sqlite3.connect(path)
        for table, columns in (("Snippet", "title, notes, code"), ("Segment", "title, code, snippet"), ("Tag", "title"),
                               ("Folder", "title"), ("_Mirror", "change"), ("_Snippet_tags", "source, target")):
            key = "" if table.startswith("_") else "_id, _rev, "
            store.execute(f'CREATE TABLE "{table}" ({key}{columns})')
        store.execute("INSERT INTO Snippet VALUES (x'01', ?, 'q1z', NULL, ?)", (revision, code))
        store.execute("INSERT INTO Segment VALUES (x'02', 1, 'Segment 1', 'a q9z', x'01')")
        store.execute("INSERT INTO _Mirror VALUES (0), (7)")
        store.commit()
        store.close()
        return Library(path)

    def test_libraries_differ_by_what_they_hold_and_not_by_their_revisions(self):
        with tempfile.TemporaryDirectory() as folder:
            codes = ("q2z", "q2z", "q3z q4z")
            first, same, other = (self.library(folder, revision, code) for revision, code in enumerate(codes))
            self.assertEqual(first.differences(same), [])
            self.assertEqual(len(first.differences(other)), 1)
            self.assertEqual(other.words_of_snippet(b"\1"), {"q1z", "q3z", "q4z", "q9z"})
            self.assertEqual(first.unsent, 1)


class GateTest(unittest.TestCase):
    def test_it_forwards_is_silent_and_shuts(self):
        with socket.create_server(("127.0.0.1", 0)) as server:
            gate = Gate(server.getsockname()[1])
            client = socket.create_connection(("127.0.0.1", gate.port), timeout=20)
            there, _ = server.accept()
            client.sendall(b"one")
            self.assertEqual(there.recv(3), b"one")
            gate.silence()
            client.sendall(b"two")
            gate.open()
            self.assertEqual(there.recv(3), b"two")
            gate.shut()
            self.assertEqual(client.recv(1), b"")
            with self.assertRaises(OSError):
                socket.create_connection(("127.0.0.1", gate.port), timeout=20)
            there.close()
            client.close()


class SlopeTest(unittest.TestCase):
    def test_a_life_that_grows_is_told_of_and_a_short_one_is_not(self):
        self.assertAlmostEqual(slope([(0, 5), (1, 7), (2, 9)]), 2)
        self.assertIsNone(slope([(1, 5), (1, 7)]))

        def life(process, minutes, growth):
            return [{"device": "first", "process": process, "seconds": at, "Pss": 1, "descriptors": 1, "threads": 1, "helpers_pss": 1,
                     "Private_Dirty": 8000 + growth * at / 3600} for at in range(0, minutes * 60, 10)]

        self.assertEqual([name for name, _ in steep_lives(life(1, 60, 9000) + life(2, 60, 100) + life(3, 20, 9000))],
                         [("first", 1)])


unittest.main()
