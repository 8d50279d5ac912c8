"""The screen as a user meets it: what is shown, by the accessibility tree; input, by real events."""

import os
import subprocess
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import GLib  # noqa: E402

import tree  # noqa: E402

PATIENCE = 20  # seconds that anything may take to appear

process = None  # the one program to look at, where several run


class Missing(Exception):
    """Something that should be on screen is not."""


def run(*command, text=None):
    done = subprocess.run(command, input=text, capture_output=True, text=True, timeout=60)
    if done.returncode != 0:
        raise Missing(f"{command[0]}: {done.stderr.strip()}")
    return done.stdout


def wait(what, condition):
    """Waits until `condition` gives something true, and gives that back."""
    end = time.monotonic() + PATIENCE
    while True:
        try:
            found = condition()
        except (Missing, GLib.Error):
            found = None  # no active window yet, or the tree changed under us
        if found:
            return found
        if time.monotonic() > end:
            raise Missing(what)
        time.sleep(0.05)


def application():
    return tree.look("quillet", process)


def nodes(role=None):
    program = application()
    return [node for depth, node in program.shown() if depth and role in (None, node.role)] if program else []


def texts_of(node):
    return [node.name, node.description, *([node.text()] if node.role == "text" else [])]


def _is_called(node, name):
    # Of a row its title is read, and then what stands at its end.
    return node.name == name or (node.name.startswith(f"{name}, ") and node.role == "table cell")


def find(name, role=None):
    matching = [node for node in nodes(role) if _is_called(node, name)]
    # What was opened last lies on top.
    return matching[-1] if matching else None


def find_text(fragment):
    return next((node for node in nodes() if any(fragment in text for text in texts_of(node))), None)


def shows(name, role=None):
    return wait(f"nothing named {name!r} is on screen", lambda: find(name, role))


def shows_text(fragment):
    return wait(f"no text {fragment!r} is on screen", lambda: find_text(fragment))


def center(node):
    left, top, width, height = node.box()
    return left + width // 2, top + height // 2


def click_at(node, button="1"):
    x, y = center(node)
    run("xdotool", "mousemove", str(x), str(y), "click", button)


def click(name, role=None, button="1"):
    shows(name, role)
    time.sleep(0.6)  # what moves comes to rest
    click_at(shows(name, role), button)


def gone(name, role=None):
    return wait(f"{name!r} is still on screen", lambda: find(name, role) is None)


def press(*keys):
    run("xdotool", "key", "--clearmodifiers", *keys)


def type_text(text):
    run("xdotool", "type", "--clearmodifiers", "--delay", "15", text)


def set_clipboard(text):
    subprocess.run(["xclip", "-selection", "clipboard", "-in"], input=text, text=True, check=True,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def place_of(window):
    """Its left and upper edge, its width and height, without its frame."""
    lines = run("xwininfo", "-id", window).splitlines()
    box = dict(line.strip().split(":", 1) for line in lines if line.count(":") == 1)
    return [int(box[name]) for name in ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")]


def picture(path, window=None):
    """Of the whole screen, or of the part where `window` is, with what lies over it."""
    time.sleep(0.4)  # the last painting
    area = ()
    if window:
        left, top, width, height = place_of(window)
        area = ("-crop", f"{width}x{height}{left:+d}{top:+d}")
    run("import", "-window", "root", *area, "+repage", path)


def colours_in(path, node):
    """How many colours the part of a picture under `node` has."""
    left, top, width, height = node.box()
    area = f"{width}x{height}+{left}+{top}"
    return int(run("convert", path, "-crop", area, "-format", "%k", "info:"))


def take(tour, failed):
    """Takes a tour with a window manager, and ends the process; a step that fails leaves the picture `failed`."""
    window_manager = subprocess.Popen(["openbox", "--sm-disable"], stderr=subprocess.DEVNULL)
    code = 1
    try:
        wait("the window manager does not start",
             lambda: "window id" in run("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"))
        tour()
        code = 0
    except Missing as missing:
        picture(str(failed))
        print(f"FAILED: {missing}", flush=True)
    finally:
        window_manager.kill()
    os._exit(code)
