"""What a screen reader makes of the example editor: the text, its parts, what is told of changes, and edits."""

import pathlib
import subprocess
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PATIENCE = 30  # seconds that anything may take
SAMPLE = "one two\nthree four five\nsix\n"

told = []  # what has been told of the text: kind, place, text


def fail(message):
    sys.exit(f"reader: {message}")


def wait(what, condition):
    """Lets events come until `condition` gives something true, and gives that back."""
    end = time.monotonic() + PATIENCE
    while True:
        GLib.MainContext.default().iteration(False)
        try:
            found = condition()
        except GLib.Error:
            found = None  # the tree has changed under us
        if found:
            return found
        if time.monotonic() > end:
            fail(what() if callable(what) else what)
        time.sleep(0.01)


def expect(what, actual, expected):
    if actual != expected:
        fail(f"{what}: {actual!r} instead of {expected!r}")


def walk(node):
    yield node
    for index in range(node.get_child_count()):
        child = node.get_child_at_index(index)
        if child is not None:
            yield from walk(child)


def find_text():
    desktop = Atspi.get_desktop(0)
    for index in range(desktop.get_child_count()):
        for node in walk(desktop.get_child_at_index(index)):
            if node.get_role_name() == "text" and node.get_state_set().contains(Atspi.StateType.MULTI_LINE):
                return node
    return None


def whole(node):
    return Atspi.Text.get_text(node, 0, Atspi.Text.get_character_count(node))


def hear(event):
    told.append((event.type, event.detail1, event.any_data if isinstance(event.any_data, str) else ""))


def expect_told(kind, place, text=""):
    def is_told():
        return any(each[0].startswith(kind) and each[1:] == (place, text) for each in told)

    wait(lambda: f"nobody told of {kind} {place} {text!r}, but: {told}", is_told)
    told.clear()


def press(*keys):
    subprocess.run(["xdotool", "key", "--clearmodifiers", *keys], check=True)


def focus(editor):
    """There is no window manager that would."""
    found = subprocess.run(["xdotool", "search", "--onlyvisible", "--pid", str(editor.pid)], capture_output=True, text=True)
    windows = found.stdout.split()
    return windows and subprocess.run(["xdotool", "windowfocus", windows[-1]]).returncode == 0


def is_focused(node):
    node.clear_cache()
    return node.get_state_set().contains(Atspi.StateType.FOCUSED)


def read(node):
    expect("the text", whole(node), SAMPLE)
    for state in ("EDITABLE", "FOCUSABLE", "SHOWING", "MULTI_LINE"):
        if not node.get_state_set().contains(getattr(Atspi.StateType, state)):
            fail(f"the text is not {state}")
    expect("its name", node.get_name(), "sample.txt")
    # Qt 6.4 knows the older of the two ways to ask.
    line = Atspi.Text.get_text_at_offset(node, 10, Atspi.TextBoundaryType.LINE_START)
    expect("a line", (line.content, line.start_offset, line.end_offset), ("three four five\n", 8, 24))
    word = Atspi.Text.get_text_at_offset(node, 15, Atspi.TextBoundaryType.WORD_START)
    expect("a word", (word.content, word.start_offset, word.end_offset), ("four", 14, 18))
    here = Atspi.Text.get_character_extents(node, 0, Atspi.CoordType.SCREEN)
    below = Atspi.Text.get_character_extents(node, 8, Atspi.CoordType.SCREEN)
    # Rows are no whole pixels high.
    if here.width <= 0 or below.x != here.x or abs(below.y - here.y - here.height) > 1:
        fail("the second line does not stand below the first")
    found = Atspi.Text.get_offset_at_point(node, below.x + 1, below.y + 1, Atspi.CoordType.SCREEN)
    expect("the offset at a point", found, 8)


def move(node):
    Atspi.Text.set_caret_offset(node, 3)
    expect_told("object:text-caret-moved", 3)
    expect("the caret", Atspi.Text.get_caret_offset(node), 3)
    Atspi.Text.add_selection(node, 4, 7)
    expect_told("object:text-selection-changed", 0)
    selection = Atspi.Text.get_selection(node, 0)
    expect("the selection", (selection.start_offset, selection.end_offset), (4, 7))
    Atspi.Text.remove_selection(node, 0)
    expect("selections", Atspi.Text.get_n_selections(node), 0)
    Atspi.Text.set_caret_offset(node, 3)


def type_keys(node):
    told.clear()
    press("x")
    expect_told("object:text-changed:insert", 3, "x")
    press("shift+Left", "y")
    expect_told("object:text-changed:insert", 3, "y")
    press("BackSpace")
    expect_told("object:text-changed:delete", 3, "y")
    expect("the text again", whole(node), SAMPLE)


def edit(node):
    Atspi.EditableText.insert_text(node, 0, "zero ", 5)
    expect_told("object:text-changed:insert", 0, "zero ")
    Atspi.EditableText.delete_text(node, 5, 9)
    expect_told("object:text-changed:delete", 5, "one ")
    expect("the edited text", whole(node), "zero " + SAMPLE[4:])
    Atspi.EditableText.set_text_contents(node, "another\ntext")
    wait(lambda: f"the text is {whole(node)!r}", lambda: whole(node) == "another\ntext")
    press("ctrl+z")
    wait(lambda: f"undone it is {whole(node)!r}", lambda: whole(node) != "another\ntext")


def main(executable, path):
    pathlib.Path(path).write_text(SAMPLE, encoding="utf-8")
    editor = subprocess.Popen([executable, path])
    try:
        node = wait("there is no text", find_text)
        wait(lambda: f"the text is {whole(node)!r}", lambda: whole(node) == SAMPLE)
        listener = Atspi.EventListener.new(hear)
        for kind in ("object:text-changed", "object:text-caret-moved", "object:text-selection-changed"):
            listener.register(kind)
        wait("the window takes no focus", lambda: focus(editor))
        wait("the text is not focused", lambda: is_focused(node))
        for step in (read, move, type_keys, edit):
            step(node)
    finally:
        editor.terminate()
        editor.wait()


main(*sys.argv[1:])
