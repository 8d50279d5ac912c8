"""One device of the user: a program with a data directory, a home and a network of its own."""

import json
import os
import signal
import subprocess
import time

import screen
from library import Library
from screen import Missing, click_at, nodes, press, shows, wait
from server import PASSWORD

WIDTH, HEIGHT = 950, 1120


class Device:
    """The functions of `screen` look at the device that was entered last."""

    def __init__(self, name, column, executable, folder, gate):
        self.name, self.column, self.executable, self.gate = name, column, executable, gate
        self.home = folder / name
        self.store = self.home / "data" / "Quillet" / "Quillet.sqlite"
        self.log = open(folder / f"{name}.log", "a", encoding="utf-8")
        self.failures = 0  # acts in a row that missed something
        self.is_clean = True  # nothing is known to be in the way
        self._sign_in()
        self.start()

    def _sign_in(self):
        (self.home / "programs").mkdir(parents=True)
        (self.home / ".pg_service.conf").write_text(
            f"[quillet]\nhost=127.0.0.1\nport={self.gate.port}\ndbname=quillet\nuser=ada\n", encoding="utf-8")
        passwords = self.home / ".pgpass"
        passwords.write_text(f"127.0.0.1:{self.gate.port}:quillet:ada:{PASSWORD}\n", encoding="utf-8")
        passwords.chmod(0o600)

    def start(self):
        environment = os.environ | {
            "HOME": str(self.home), "XDG_DATA_HOME": str(self.home / "data"), "XDG_STATE_HOME": str(self.home / "state"),
            "XDG_CONFIG_HOME": str(self.home / "config"),
            "PATH": str(self.home / "programs")}  # nothing is started from here
        self.process = subprocess.Popen([self.executable], stdout=self.log, stderr=self.log, env=environment)
        self.enter(raised=False)
        shows("Languages")
        self.window = wait("the program has no window", self._windows)[-1]
        self._place()
        self.dismiss()

    def _place(self):
        screen.run("xdotool", "windowmove", "--sync", self.window, str(self.column * (WIDTH + 10)), "30",
                   "windowsize", self.window, str(WIDTH), str(HEIGHT))

    def _windows(self):
        return screen.run("xdotool", "search", "--onlyvisible", "--pid", str(self.process.pid)).split()

    def open_menu(self):
        return next((window for window in self._windows() if window != self.window), None)

    def choose(self, entry, of):
        """Clicks an entry of the menu that is up, by its place among `of` entries of the same height."""
        left, top, width, height = screen.place_of(wait("no menu is up", self.open_menu))
        screen.run("xdotool", "mousemove", str(left + width // 2), str(top + height * (2 * entry + 1) // (2 * of)), "click", "1")
        wait("the menu does not close", lambda: not self.open_menu())

    def enter(self, raised=True):
        screen.process = self.process.pid
        if raised:
            screen.run("xdotool", "windowactivate", "--sync", self.window)

    def dismiss(self):
        """Closes whatever is open over the window's own screens."""
        for _ in range(10):
            buttons = {node.name: node for node in nodes("push button")}
            answer = next((name for name in ("Get Coding", "Okay", "Cancel") if name in buttons), None)
            if answer:
                click_at(buttons[answer])
            elif "Close" not in buttons and not self.open_menu():
                return
            press("Escape")
            time.sleep(0.4)
        raise Missing("something stays open")

    def recover(self):
        self.enter()
        self._place()
        self.dismiss()
        self.is_clean = True

    def save(self):
        press("ctrl+s")

    def library(self):
        return Library(self.store)

    def settings(self):
        return json.loads((self.home / "data" / "Quillet" / "Settings.json").read_text(encoding="utf-8"))

    def kill(self):
        self.process.send_signal(signal.SIGKILL)
        self.process.wait()

    def quit(self):
        """Gives the exit code, or None for a program that did not end."""
        self.enter()
        press("ctrl+q")
        try:
            return self.process.wait(timeout=screen.PATIENCE)
        except subprocess.TimeoutExpired:
            return None
