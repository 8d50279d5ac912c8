"""Two devices of one user: two programs with a data directory each, and one server between them."""

import os
import pathlib
import subprocess
import sys

import screen
from screen import Missing, click, press, shows, shows_text, type_text, wait
from server import Server

EXECUTABLE, PICTURES, SCHEMA = sys.argv[1], pathlib.Path(sys.argv[2]), sys.argv[3]
HOME = pathlib.Path(os.environ["HOME"])
HALF = 950  # the width of a window; the screen has room for two


class Device:
    """A program beside the other one; the functions of `screen` look at the device that was entered last."""

    def __init__(self, name, column):
        self.log = open(PICTURES / f"device-{name}.log", "w", encoding="utf-8")
        environment = os.environ | {"XDG_DATA_HOME": str(HOME / name), "XDG_RUNTIME_DIR": str(HOME / "runtime")}
        self.process = subprocess.Popen([EXECUTABLE], stdout=self.log, stderr=self.log, env=environment)
        self.enter(raised=False)
        shows("Languages")
        self.window = wait("the program has no window", self._window)
        screen.run("xdotool", "windowmove", "--sync", self.window, str(column * (HALF + 10)), "30",
                   "windowsize", self.window, str(HALF), "740")

    def _window(self):
        return screen.run("xdotool", "search", "--onlyvisible", "--pid", str(self.process.pid)).split()[-1]

    def enter(self, raised=True):
        screen.process = self.process.pid
        if raised:
            screen.run("xdotool", "windowactivate", "--sync", self.window)

    def quit(self):
        self.enter()
        press("alt+F4")
        if self.process.wait(timeout=screen.PATIENCE) != 0:
            raise Missing(f"the program ended with {self.process.returncode}")


def new_snippet(title, language):
    click("Add")
    shows("New Snippet")
    type_text(title)
    click("Language", "push button")
    shows("Search")
    type_text(language)
    press("Return")
    click("Save", "push button")
    click("Code")


def add_line(text):
    click("Code")
    press("ctrl+End", "Return")
    type_text(text)
    press("ctrl+s")


def devices(first, second):
    first.enter()
    new_snippet("Shared", "swift")
    type_text("let origin = \"the first device\"")
    press("ctrl+s")

    second.enter()
    click("Languages")
    click("swift")
    click("Shared")
    shows_text("the first device")
    add_line("let answer = \"the second device\"")

    first.enter()
    shows_text("the second device")
    screen.picture(str(PICTURES / "two-devices.png"))
    print("ok     Two devices show each other's edits", flush=True)

    # Both type into one text, and neither has seen the other's line.
    click("Code")
    press("ctrl+Home", "Return", "Up")
    type_text("// At the top, by the first.")
    second.enter()
    add_line("// At the end, by the second.")
    first.enter()
    press("ctrl+s")
    for device in (first, second):
        device.enter()
        shows_text("At the top, by the first.")
        shows_text("At the end, by the second.")
    screen.picture(str(PICTURES / "two-devices-merged.png"))
    print("ok     What both typed at once is in one text", flush=True)


def tour():
    server = Server(SCHEMA)
    try:
        server.sign_in(HOME)
        first, second = Device("first", 0), Device("second", 1)
        devices(first, second)
        first.quit()
        second.quit()
    finally:
        server.stop()


screen.take(tour, PICTURES / "devices-failed.png")
