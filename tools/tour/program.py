"""The running program of a tour, and the pictures that the tour leaves."""

import os
import pathlib
import subprocess
import sys

import screen
from screen import Missing, click, press, shows, wait

EXECUTABLE, PICTURES = sys.argv[1], pathlib.Path(sys.argv[2])
HERE = pathlib.Path(__file__).parent
ACCOUNT_WARNING = "Sign into your iCloud account to use Quillet. Without this your snippets will only ever save locally."


class Album:
    """Numbered pictures, and a line for each."""

    def __init__(self, name=""):
        self.name = name
        self.steps = 0
        self.window = None  # to be pictured alone

    def done(self, title):
        """A picture of the step just taken; gives its path."""
        self.steps += 1
        path = PICTURES / f"{self.name}{self.steps:02d}-{title.lower().replace(' ', '-')}.png"
        screen.picture(str(path), self.window)
        print(f"ok {self.name}{self.steps:2d}  {title}", flush=True)
        return str(path)


class Program:
    """The running program and the lines it has printed. `before_news` runs while the first start's announcement is up,
    and `before_warning` while the first warning is."""

    def __init__(self, data=None, before_warning=lambda: None, before_news=None):
        self.path = PICTURES / f"{pathlib.Path(sys.argv[0]).stem}-program.log"
        self.log = open(self.path, "a", encoding="utf-8")
        self.start = self.path.stat().st_size
        environment = os.environ | ({"XDG_DATA_HOME": str(data)} if data else {})
        self.process = subprocess.Popen([EXECUTABLE], stdout=self.log, stderr=self.log, env=environment)
        shows("Languages")
        dismiss_account_warning(before_warning)
        if before_news:
            shows("Get Coding")
            before_news()
            click("Get Coding")
            wait("the news do not go", lambda: not screen.find("Get Coding"))
        self.window = screen.run("xdotool", "getactivewindow").strip()

    def resize(self, width, height):
        """Of what is inside the frame, in points."""
        screen.run("xdotool", "windowmove", "--sync", self.window, "0", "0",
                   "windowsize", "--sync", self.window, str(width), str(height))

    def open_menu(self):
        """The window of the menu that is up: the tree has no place for it, the windowing system has."""
        windows = screen.run("xdotool", "search", "--onlyvisible", "--pid", str(self.process.pid)).split()
        return next((window for window in windows if window != self.window), None)

    def choose(self, entry, of):
        """Clicks an entry of the menu that is up, by its place among `of` entries of the same height."""
        left, top, width, height = screen.place_of(wait("no menu is up", self.open_menu))
        y = top + height * (2 * entry + 1) // (2 * of)
        screen.run("xdotool", "mousemove", str(left + width // 2), str(y), "click", "1")
        wait("the menu does not close", lambda: not self.open_menu())

    def times_printed(self, line):
        return self.path.read_bytes()[self.start:].decode().count(line + "\n")

    def quit(self):
        press("alt+F4")
        try:
            code = self.process.wait(timeout=screen.PATIENCE)
        except subprocess.TimeoutExpired:
            raise Missing("the program does not end when its window closes") from None
        if code != 0:
            raise Missing(f"the program ended with {code}")


def dismiss_account_warning(before=lambda: None):
    """A tour has no account, of which the program warns each time the list appears."""
    shows(ACCOUNT_WARNING)
    before()
    click("Okay")
    wait("the warning does not go", lambda: not screen.find("Okay"))


class DarkDesktop:
    """While it is entered, the desktop prefers dark."""

    def __enter__(self):
        self.portal = subprocess.Popen(["/usr/bin/python3", str(HERE / "portal.py")], stdout=subprocess.PIPE, text=True)
        self.portal.stdout.readline()

    def __exit__(self, *_):
        self.portal.kill()
        self.portal.wait()
