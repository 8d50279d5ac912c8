"""The first-use tour: a person's first steps with the program, each checked by what is then on screen."""

import os
import pathlib
import subprocess
import sys
import time

import screen
from screen import Missing, click, press, set_clipboard, shows, shows_text, type_text, wait

EXECUTABLE, PICTURES = sys.argv[1], pathlib.Path(sys.argv[2])
HERE = pathlib.Path(__file__).parent
CODE = "func greet(name: String) -> String {\n    // Says hello.\n    return \"Hello, \\(name)!\"\n}\n"

steps = 0


def done(title):
    """A picture of the step just taken, and its line."""
    global steps
    steps += 1
    path = PICTURES / f"{steps:02d}-{title.lower().replace(' ', '-')}.png"
    screen.picture(str(path))
    print(f"ok {steps:2d}  {title}", flush=True)
    return str(path)


class Program:
    """The running program and the lines it has printed."""

    def __init__(self):
        self.log = open(PICTURES / "program.log", "a", encoding="utf-8")
        self.process = subprocess.Popen([EXECUTABLE], stdout=self.log, stderr=self.log)
        shows("Languages")
        dismiss_account_warning()

    def quit(self):
        press("alt+F4")
        try:
            code = self.process.wait(timeout=screen.PATIENCE)
        except subprocess.TimeoutExpired:
            raise Missing("the program does not end when its window closes") from None
        if code != 0:
            raise Missing(f"the program ended with {code}")


def dismiss_account_warning():
    """The tour has no account, of which the program warns each time the list appears."""
    shows("Sign into your iCloud account to use Quillet. Without this your snippets will only ever save locally.")
    if steps == 0:
        done("Warning without an account")
    click("Okay")
    wait("the warning does not go", lambda: not screen.find("Okay"))


def open_snippet(language, title):
    click("Languages")
    click(language)
    click(title)


def first_use(program):
    done("First start")

    set_clipboard(CODE)
    click("Add")
    shows("New Snippet")
    type_text("Greeting")
    click("Import code from the clipboard")
    done("New snippet form")

    click("Language", "push button")
    shows("Search")
    type_text("swif")
    shows("swift")
    done("Choosing the language")
    press("Return")
    click("Save", "push button")
    shows_text("Says hello.")
    wait("the title bar does not name the snippet",
         lambda: "Greeting" in screen.run("xdotool", "getactivewindow", "getwindowname"))
    code = shows("Code")
    time.sleep(1)
    path = done("Created from the clipboard")
    if screen.colours_in(path, code) < 20:
        raise Missing("the code has no colours")

    click("Code")
    press("ctrl+End")
    type_text("print(greet(name: \"you\"))")
    shows_text("print(greet(name: \"you\"))")
    press("ctrl+s")
    done("Typed and saved")

    click("Theme")
    shows("Search")
    type_text("atom-one-dark")
    press("Return")
    shows_text("atom-one-dark")
    time.sleep(1)
    done("Another theme")

    window = screen.run("xdotool", "getactivewindow").strip()
    screen.run("xdotool", "windowminimize", "--sync", window)
    subprocess.run([EXECUTABLE], timeout=screen.PATIENCE, check=True, stdout=program.log, stderr=program.log)
    wait("a second start does not raise the first window",
         lambda: screen.run("xdotool", "getactivewindow").strip() == window)
    done("A second start raises the first window")


def after_restart():
    open_snippet("swift", "Greeting")
    shows_text("print(greet(name: \"you\"))")
    shows_text("atom-one-dark")
    time.sleep(1)
    done("Found again after a restart")


def narrow():
    window = screen.run("xdotool", "getactivewindow").strip()
    screen.run("xdotool", "windowsize", "--sync", window, "390", "744")
    wait("the narrow window does not show one column", lambda: not screen.find("Code"))
    done("Narrow list")
    click("Greeting")
    shows("Back")
    done("Narrow editor")
    click("Back")
    dismiss_account_warning()
    shows("Languages")


def dark():
    open_snippet("swift", "Greeting")
    shows_text("Says hello.")
    time.sleep(1)
    done("Dark")
    click("Add")
    shows("New Snippet")
    done("Dark form")
    press("Escape")


def tour():
    program = Program()
    first_use(program)
    program.quit()
    program = Program()
    after_restart()
    narrow()
    program.quit()

    portal = subprocess.Popen(["/usr/bin/python3", str(HERE / "portal.py")], stdout=subprocess.PIPE, text=True)
    portal.stdout.readline()
    program = Program()
    dark()
    program.quit()
    portal.kill()
    print(f"The tour is done: {steps} pictures in {os.path.relpath(PICTURES)}", flush=True)


screen.take(tour, PICTURES / "failed.png")
