"""The browsing tour: tags, folders, the order of the list and deletions, in a wide and a narrow window, light and dark."""

import json
import os
import pathlib

import screen
from accessibility import write_listing
from program import PICTURES, Album, DarkDesktop, Program, dismiss_account_warning
from screen import Missing, click, find, gone, press, shows, type_text, wait

SIZES = {"wide": (1280, 800), "narrow": (390, 844)}
ROW = "table cell"


class Browsing:
    """One walk through an empty library in a window of one size."""

    def __init__(self, look, size):
        self.album = Album(f"browsing-{size}-{look}-")
        self.is_narrow = size == "narrow"
        data = pathlib.Path(os.environ["HOME"]) / f"{size}-{look}"
        self.settings = data / "Quillet" / "Settings.json"
        self.program = Program(data, before_news=lambda: None)
        self.program.resize(*SIZES[size])
        self.album.window = self.program.window

    def walk(self):
        self.empty_list()
        self.new_snippet()
        self.tag_the_snippet()
        self.file_the_snippet()
        self.open_groups()
        self.sort()
        self.delete("red hot", "Delete Tag", "tag")
        self.delete("Work", "Delete Folder", "folder")
        self.program.quit()

    def empty_list(self):
        self.album.done("Empty list")

    def new_snippet(self):
        click("Add", "push button")
        shows("New Snippet")
        type_text("Greeting")
        click("Language", "push button")
        shows("Search")
        type_text("swift")
        press("Return")
        click("Save", "push button")
        shows("Code")

    def tag_the_snippet(self):
        click("Tags", "push button")
        click("New Tag", ROW)
        shows("Tag Details")
        type_text("red hot")
        click("Red", "radio button")
        self.album.done("New tag form")
        press("Tab")
        click("Save", "push button")
        shows("red hot", ROW)
        gone("Tag Details")
        self.album.done("Tag sheet")
        press("Escape")
        gone("New Tag")
        wait("the form and the sheet that closes do not save once each",
             lambda: self.program.times_printed("💾 actually saved: Added Tag") == 2)
        if self.is_narrow:
            click("Back", "push button")
            dismiss_account_warning()

    def file_the_snippet(self):
        click("Languages", ROW)
        click("swift", ROW)
        click("Greeting", ROW, button="3")
        wait("a right click opens no menu", self.program.open_menu)
        self.album.done("Context menu")
        self.program.choose(2, of=3)
        click("New Folder", ROW)
        shows("Folder Details")
        type_text("Work")
        press("Return")
        shows("Work", ROW)
        gone("Folder Details")
        self.album.done("Folder sheet")
        click("Close", "push button")
        gone("New Folder")
        if not find("Work", ROW):
            click("Folders", ROW)
        shows("Work", ROW)

    def open_groups(self):
        click("Tags", ROW)
        click("red hot", ROW)
        self.album.done("Home list")
        if not self.is_narrow:
            write_listing(PICTURES / "home-list.txt")

    def sort(self):
        click("Sort", "push button")
        wait("the button has no menu", self.program.open_menu)
        self.album.done("Sort menu")
        self.program.choose(1, of=2)
        self.sorted_by(0)
        click("Sort", "push button")
        self.album.done("Sort menu by date")
        self.program.choose(0, of=2)
        self.sorted_by(1)

    def sorted_by(self, index):
        wait(f"the order is not {index}", lambda: json.loads(self.settings.read_text())["SnippetSort"] == index)

    def delete(self, title, action, kind):
        question = (f"Are you sure you want to delete {title}? This will leave your snippets, but delete the "
                    f"containing {kind}.")
        for answer in ("Cancel", action):
            click(title, ROW, button="3")
            self.program.choose(0, of=1)
            shows(question)
            if answer == "Cancel":
                self.album.done(f"{action} asks")
            click(answer, "push button")
            gone(question)
            if answer == "Cancel" and not find(title, ROW):
                raise Missing(f"{title!r} went although the user cancelled")
        gone(title, ROW)
        shows("Greeting", ROW)


def tour():
    for size in SIZES:
        Browsing("light", size).walk()
    with DarkDesktop():
        for size in SIZES:
            Browsing("dark", size).walk()
    print(f"The tour is done: its pictures are in {os.path.relpath(PICTURES)}", flush=True)


screen.take(tour, PICTURES / "browsing-failed.png")
