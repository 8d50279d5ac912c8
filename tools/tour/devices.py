"""Two devices of one user: two programs with a data directory each, and one server between them."""

import json
import os
import pathlib
import signal
import subprocess
import sys
import time

import screen
from screen import Missing, click, find, gone, press, set_clipboard, shows, shows_text, type_text, wait
from server import Server

EXECUTABLE, PICTURES, SCHEMA = sys.argv[1], pathlib.Path(sys.argv[2]), sys.argv[3]
HOME = pathlib.Path(os.environ["HOME"])
HALF = 950  # the width of a window; the screen has room for two
AUTO_SAVE = 20  # seconds between two saves that nobody asks for
ROW = "table cell"


class Device:
    """A program beside the other one; the functions of `screen` look at the device that was entered last."""

    def __init__(self, name, column):
        self.column = column
        self.data = HOME / name
        self.log = open(PICTURES / f"device-{name}.log", "w", encoding="utf-8")
        self.start()
        wait("there are no news", lambda: find("Get Coding") or self.has_read_news())
        if find("Get Coding"):
            click("Get Coding", "push button")
            gone("Get Coding")

    def has_read_news(self):
        """By the settings of the other device."""
        return self.setting("versionSeen")

    def start(self):
        environment = os.environ | {"XDG_DATA_HOME": str(self.data), "XDG_STATE_HOME": str(self.data / "state"),
                                    "XDG_RUNTIME_DIR": str(HOME / "runtime")}
        self.process = subprocess.Popen([EXECUTABLE], stdout=self.log, stderr=self.log, env=environment)
        self.enter(raised=False)
        shows("Languages")
        self.window = wait("the program has no window", self._window)
        screen.run("xdotool", "windowmove", "--sync", self.window, str(self.column * (HALF + 10)), "30",
                   "windowsize", self.window, str(HALF), "740")

    def crash(self):
        self.process.send_signal(signal.SIGKILL)
        self.process.wait()

    def setting(self, key):
        file = self.data / "Quillet" / "Settings.json"
        return json.loads(file.read_text()).get(key) if file.exists() else None

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


def road(first, second):
    """A snippet's way from the button that creates it to the list of the other device."""
    second.enter()
    click("Languages", ROW)
    first.enter()
    set_clipboard("let origin = \"the first device\"")
    click("Add", "push button")
    shows("New Snippet")
    type_text("Shared")
    click("Import code from the clipboard")
    click("Language", "push button")
    shows("Search")
    type_text("swift")
    press("Return")
    click("Save", "push button")
    gone("New Snippet")
    shows_text("the first device")
    wait("the language is not kept for the next snippet", lambda: first.setting("LastUsedLanguage") == "swift")
    click("Languages", ROW)
    click("swift", ROW)
    shows("Shared", ROW)
    second.enter()
    click("swift", ROW)
    shows("Shared", ROW)
    print("ok     A snippet that one device creates is in the list of the other", flush=True)

    first.enter()
    click("Code", "text")
    press("ctrl+End")
    type_text(" // by the timer")
    time.sleep(AUTO_SAVE + 1)
    first.crash()
    first.start()
    click("Languages", ROW)
    click("swift", ROW)
    click("Shared", ROW)
    shows_text("by the timer")
    print("ok     A crash takes nothing that is older than an auto-save", flush=True)

    click("Add Segment", "push button")
    shows("Segment 1")
    click("Code", "text")
    type_text("a part of it")
    click("Code", "radio button")  # chosen away from, a segment is written
    shows_text("by the timer")
    press("ctrl+s")
    second.enter()
    click("Shared", ROW)
    shows_text("by the timer")
    click("Segment 1", "radio button")
    shows_text("a part of it")
    click("Code", "radio button")
    print("ok     A segment is on both devices", flush=True)


def add_line(text):
    click("Code", "text")
    press("ctrl+End", "Return")
    type_text(text)
    press("ctrl+s")


def devices(first, second):
    second.enter()
    shows_text("the first device")
    add_line("let answer = \"the second device\"")

    first.enter()
    shows_text("the second device")
    screen.picture(str(PICTURES / "two-devices.png"))
    print("ok     Two devices show each other's edits", flush=True)

    # Both type into one text, and neither has seen the other's line.
    click("Code", "text")
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
        road(first, second)
        devices(first, second)
        first.quit()
        second.quit()
    finally:
        server.stop()


screen.take(tour, PICTURES / "devices-failed.png")
