"""The editing tour: the editor and all that it and the settings open, in a wide and a narrow window, light and dark."""

import os
import pathlib
import time

import screen
from program import PICTURES, Album, DarkDesktop, Program, dismiss_account_warning
from screen import Missing, click, find, gone, press, set_clipboard, shows, shows_text, type_text, wait

SIZES = {"wide": (1280, 800), "narrow": (390, 844)}
ROW = "table cell"
BUTTON = "push button"
CODE = "".join(
    f"/// Sorts what it is given, the {name} way.\n"
    f"func {name}<T: Comparable>(_ items: [T]) -> [T] {{\n"
    "    guard items.count > 1 else { return items } // nothing to do\n"
    "    let pivot = items[items.count / 2]\n"
    "    return items.filter { $0 < pivot } + items.filter { $0 == pivot }\n"
    "}\n\n"
    for name in ("quick", "merge", "heap", "shell", "bubble"))


class Editing:
    """One walk through the editor in a window of one size."""

    def __init__(self, look, size):
        self.album = Album(f"editing-{size}-{look}-")
        self.is_narrow = size == "narrow"
        self.data = pathlib.Path(os.environ["HOME"]) / f"editing-{size}-{look}"
        self.program = Program(self.data, before_news=lambda: self.album.done("What is new"))
        self.program.resize(*SIZES[size])
        self.album.window = self.program.window

    def walk(self):
        self.create()
        self.tags()
        self.segments()
        self.menus()
        self.language()
        self.theme()
        self.find()
        self.leave_editor()
        self.settings()
        self.delete()
        self.program.quit()

    def create(self):
        if not self.is_narrow:
            self.album.done("No snippet")
        set_clipboard(CODE)
        click("Add", BUTTON)
        shows("New Snippet")
        type_text("Sorting")
        click("Notes")
        type_text("What the book says about sorting, in the order in which it says it.")
        click("Import code from the clipboard")
        self.album.done("Details form")
        click("Language", BUTTON)
        shows("Search")
        type_text("swif")
        shows("swift")
        self.album.done("Language list")
        press("Return")
        click("Save", BUTTON)
        shows_text("Sorts what it is given")
        time.sleep(1)
        self.album.done("Editor")

    def tags(self):
        click("Tags", BUTTON)
        click("New Tag", ROW)
        shows("Tag Details")
        type_text("algorithms")
        press("Return")
        shows("algorithms", ROW)
        gone("Tag Details")
        click("Close", BUTTON)
        gone("New Tag")

    def segments(self):
        for number in (1, 2):
            click("Add Segment", BUTTON)
            shows(f"Segment {number}")
        click("Code", "text")
        type_text("let tests = 12")
        self.album.done("Segments")
        click("Segment 1", button="3")
        wait("a segment has no menu", self.program.open_menu)
        self.album.done("Segment menu")
        self.program.choose(1, of=2)
        shows("Title")
        type_text("Tests")
        self.album.done("Rename segment")
        press("Return")
        shows("Tests")
        click("Code", "radio button")
        shows_text("Sorts what it is given")
        click("Segment 2", "radio button")
        shows_text("let tests = 12")
        click("Code", "radio button")
        shows_text("Sorts what it is given")
        click("Tags and Segments")
        gone("Add Segment")
        self.album.done("Panel closed")
        click("Tags and Segments")

    def menus(self):
        click("More", BUTTON)
        wait("there is no more menu", self.program.open_menu)
        self.album.done("More menu")
        press("Down", "Down", "Down", "Down", "Return")
        shows("Copy", ROW)
        self.album.done("Share text")
        click("Copy", ROW)
        gone("Copy", ROW)
        if screen.run("xclip", "-selection", "clipboard", "-out") != CODE:
            raise Missing("the copied text is another one")
        click("More", BUTTON)
        wait("there is no more menu", self.program.open_menu)
        press("Down", "Down", "Down", "Return")
        shows("Copy", ROW)
        self.album.done("Share image")
        press("Escape")
        gone("Copy", ROW)

    def language(self):
        click("Pick Language", BUTTON)
        shows("swift", ROW)
        self.album.done("Language popover")
        click("Close", BUTTON)
        gone("swift", ROW)

    def theme(self):
        click("Theme, xcode", BUTTON)
        shows("Search")
        type_text("atom-one-dark")
        shows("atom-one-dark", ROW)
        press("Return")
        time.sleep(1)
        self.album.done("Theme picker")
        click("Close", BUTTON)
        shows("Theme, atom-one-dark")

    def find(self):
        click("Code", "text")
        press("ctrl+Home")
        press("ctrl+f")
        type_text("items")
        shows_text(" of 35")
        press("Return")
        self.album.done("Find")
        press("Escape")
        gone("Next Match")
        press("ctrl+plus", "ctrl+plus", "ctrl+plus")
        self.album.done("Zoomed")
        press("ctrl+0")

    def leave_editor(self):
        if not self.is_narrow:
            return
        click("Back", BUTTON)
        dismiss_account_warning()

    def settings(self):
        click("Settings", BUTTON)
        shows("Website")
        self.album.done("Settings")
        click("Data", BUTTON)
        shows("Legacy Data")
        self.album.done("Your data")
        click("Legacy Data", BUTTON)
        shows("Migrate Data")
        self.album.done("Legacy data")
        press("alt+Left")
        shows("Legacy Data", BUTTON)
        press("alt+Left")
        click("Close", BUTTON)
        gone("Website")

    def delete(self):
        if self.is_narrow:
            click("Languages", ROW)
            click("swift", ROW)
            click("Sorting", ROW)
            shows_text("Sorts what it is given")
        click("More", BUTTON)
        wait("there is no more menu", self.program.open_menu)
        press("Down", "Down", "Return")
        if self.is_narrow:
            dismiss_account_warning()
            shows("Languages", ROW)
        else:
            shows_text("Enter text here to start creating a snippet")
        self.album.done("After the deletion")


def tour():
    for size in SIZES:
        Editing("light", size).walk()
    with DarkDesktop():
        for size in SIZES:
            Editing("dark", size).walk()
    print(f"The tour is done: its pictures are in {os.path.relpath(PICTURES)}", flush=True)


screen.take(tour, PICTURES / "editing-failed.png")
