"""The first-use tour: a person's first steps with the program, each checked by what is then on screen."""

import os
import subprocess
import time

import screen
from program import EXECUTABLE, PICTURES, Album, DarkDesktop, Program, dismiss_account_warning
from screen import Missing, click, press, set_clipboard, shows, shows_text, type_text, wait

CODE = "func greet(name: String) -> String {\n    // Says hello.\n    return \"Hello, \\(name)!\"\n}\n"

album = Album()
done = album.done


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

    click("Theme, xcode")
    shows("Search")
    type_text("atom-one-dark")
    shows("atom-one-dark", "table cell")
    press("Return")
    click("Close", "push button")
    shows("Theme, atom-one-dark")
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
    shows("Theme, atom-one-dark")
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
    program = Program(before_warning=lambda: done("Warning without an account"), before_news=lambda: done("What is new"))
    first_use(program)
    program.quit()
    program = Program()
    after_restart()
    narrow()
    program.quit()

    with DarkDesktop():
        program = Program()
        program.resize(1120, 740)  # it came back as narrow as it was
        dark()
        program.quit()
    print(f"The tour is done: {album.steps} pictures in {os.path.relpath(PICTURES)}", flush=True)


screen.take(tour, PICTURES / "failed.png")
