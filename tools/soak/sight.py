"""What a program shows, asked for all at once: a look takes as many waits as the tree is deep, not as it has nodes. On a
busy machine that is the difference between a tenth of a second and two."""

import time

import screen
from gi.repository import Atspi, Gio, GLib
from screen import Missing, run, wait

SHOWING = 1 << int(Atspi.StateType.SHOWING)
ACCESSIBLE = "org.a11y.atspi.Accessible"
REGISTRY = ("org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root")


class Node:
    def __init__(self, bus, path):
        self.bus, self.path = bus, path
        self.name, self.role, self.shows, self.children = "", "", True, []

    def box(self):
        return _ask(self, "org.a11y.atspi.Component", "GetExtents", GLib.Variant("(u)", (0,)))[0]

    def text(self):
        return _ask(self, "org.a11y.atspi.Text", "GetText", GLib.Variant("(ii)", (0, -1)))[0]


def _connect():
    session = Gio.bus_get_sync(Gio.BusType.SESSION)
    (address,) = session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None, None, 0, -1).unpack()
    return Gio.DBusConnection.new_for_address_sync(
        address, Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)


_connection = _connect()
_programs = {}  # process -> its root


def _ask(node, interface, method, arguments=None):
    return _connection.call_sync(node.bus, node.path, interface, method, arguments, None, 0, 20000).unpack()


def _root():
    if screen.process not in _programs:
        for bus, path in _ask(Node(*REGISTRY), ACCESSIBLE, "GetChildren")[0]:
            (process,) = _ask(Node("org.freedesktop.DBus", "/org/freedesktop/DBus"), "org.freedesktop.DBus",
                              "GetConnectionUnixProcessID", GLib.Variant("(s)", (bus,)))
            _programs[process] = Node(bus, path)
    return _programs.get(screen.process)


class _Look:
    """Asks for a node and, if it shows, for what is in it."""

    def __init__(self, root):
        self.pending = 0
        self._visit(root, is_root=True)
        while self.pending:
            GLib.MainContext.default().iteration(True)

    def _visit(self, node, is_root=False):
        left = 4

        def answered(take):
            def on_answer(connection, result):
                nonlocal left
                self.pending -= 1
                try:
                    take(connection.call_finish(result).unpack())
                except GLib.Error:  # it is gone by now
                    node.shows = False
                left -= 1
                if left == 0 and (node.shows or is_root):
                    for child in node.children:
                        self._visit(child)
            return on_answer

        def keep_name(values):
            node.name = values[0]

        def keep_role(values):
            node.role = Atspi.role_get_name(Atspi.Role(values[0]))

        def keep_state(values):
            node.shows = node.shows and bool(values[0][0] & SHOWING)

        def keep_children(values):
            node.children = [Node(*each) for each in values[0]]

        self._call(node, "org.freedesktop.DBus.Properties", "Get", GLib.Variant("(ss)", (ACCESSIBLE, "Name")), answered(keep_name))
        for method, keep in (("GetRole", keep_role), ("GetState", keep_state), ("GetChildren", keep_children)):
            self._call(node, ACCESSIBLE, method, None, answered(keep))

    def _call(self, node, interface, method, arguments, on_answer):
        self.pending += 1
        _connection.call(node.bus, node.path, interface, method, arguments, None, 0, 20000, None, on_answer)


def _walk(node):
    if node.shows:
        yield node
        for child in node.children:
            yield from _walk(child)


def nodes(role=None):
    root = _root()
    if not root:
        return []
    looked = Node(root.bus, root.path)
    _Look(looked)
    return [node for child in looked.children for node in _walk(child) if role in (None, node.role)]


def find(name, role=None):
    """Of those that are called so the last, which lies on top."""
    # Of a row its title is read, and then what stands at its end.
    return next((node for node in reversed(nodes(role))
                 if node.name == name or (node.role == "table cell" and node.name.startswith(f"{name}, "))), None)


def shows(name, role=None):
    return wait(f"nothing named {name!r} is on screen", lambda: find(name, role))


def gone(name, role=None):
    return wait(f"{name!r} is still on screen", lambda: find(name, role) is None)


def click_at(node, button="1"):
    x, y, width, height = node.box()
    run("xdotool", "mousemove", str(x + width // 2), str(y + height // 2), "click", button)


def click(name, role=None, button="1"):
    shows(name, role)
    time.sleep(0.4)  # what moves comes to rest, what is made anew is there
    click_at(shows(name, role), button)
