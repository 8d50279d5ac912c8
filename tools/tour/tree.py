"""The accessibility tree of a running program, asked for all at once: a look takes as many waits as the tree is deep, not as
it has nodes. On a busy machine that is the difference between a tenth of a second and two."""

from gi.repository import Atspi, Gio, GLib

ACCESSIBLE = "org.a11y.atspi.Accessible"
REGISTRY = ("org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root")
BUS = ("org.freedesktop.DBus", "/org/freedesktop/DBus")
LONGEST = 20000  # milliseconds that a program may take to answer


def _connect():
    session = Gio.bus_get_sync(Gio.BusType.SESSION)
    (address,) = session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None, None,
                                   Gio.DBusCallFlags.NONE, LONGEST).unpack()
    return Gio.DBusConnection.new_for_address_sync(
        address, Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)


_connection = _connect()
_processes = {}  # the name on the bus, which is never used again -> process


def _property(name):
    return "org.freedesktop.DBus.Properties", "Get", GLib.Variant("(ss)", (ACCESSIBLE, name))


class Node:
    """As it was when the program was looked at; only its place and its text are asked for anew."""

    def __init__(self, bus, path):
        self.bus, self.path = bus, path
        self.name = self.description = self.role = ""
        self.states = 0
        self.children = []

    def has(self, state):
        return bool(self.states >> int(state) & 1)

    def box(self):
        """Left, upper edge, width, height on the screen."""
        return self.ask("org.a11y.atspi.Component", "GetExtents", GLib.Variant("(u)", (Atspi.CoordType.SCREEN,)))[0]

    def text(self):
        return self.ask("org.a11y.atspi.Text", "GetText", GLib.Variant("(ii)", (0, -1)))[0]

    def ask(self, interface, method, arguments=None):
        return _connection.call_sync(self.bus, self.path, interface, method, arguments, None, Gio.DBusCallFlags.NONE,
                                     LONGEST).unpack()

    def shown(self):
        """This and all that shows in it, in the order of the tree, each with its depth."""
        yield 0, self
        for child in self.children:
            if child.has(Atspi.StateType.SHOWING):
                yield from ((depth + 1, node) for depth, node in child.shown())


class _Look:
    """Asks for a node and, if it shows, for what is in it."""

    def __init__(self, root):
        self.pending = 0
        self._visit(root, is_root=True)
        while self.pending:
            GLib.MainContext.default().iteration(True)

    def _visit(self, node, is_root=False):
        def keep(answers):
            if None in answers:  # it is gone by now
                return
            (node.name,), (node.description,), (role,), (states,), (children,) = answers
            node.role = Atspi.role_get_name(Atspi.Role(role))
            node.states = states[0] | states[1] << 32
            node.children = [Node(*each) for each in children]
            if is_root or node.has(Atspi.StateType.SHOWING):
                for child in node.children:
                    self._visit(child)

        self._ask(node, [_property("Name"), _property("Description"), (ACCESSIBLE, "GetRole", None), (ACCESSIBLE, "GetState", None),
                         (ACCESSIBLE, "GetChildren", None)], keep)

    def _ask(self, node, questions, keep):
        answers = []  # they come in the order of the questions

        def answered(connection, result):
            self.pending -= 1
            try:
                answers.append(connection.call_finish(result).unpack())
            except GLib.Error:
                answers.append(None)
            if len(answers) == len(questions):
                keep(answers)

        self.pending += len(questions)
        for interface, method, arguments in questions:
            _connection.call(node.bus, node.path, interface, method, arguments, None, Gio.DBusCallFlags.NONE, LONGEST, None,
                             answered)


def _process(bus):
    if bus not in _processes:
        (_processes[bus],) = Node(*BUS).ask("org.freedesktop.DBus", "GetConnectionUnixProcessID", GLib.Variant("(s)", (bus,)))
    return _processes[bus]


def look(name, process=None):
    """The program whose name has `name` in it, and that is the process if one is given; None where there is none."""
    for bus, path in Node(*REGISTRY).ask(ACCESSIBLE, "GetChildren")[0]:
        root = Node(bus, path)
        if process in (None, _process(bus)) and name in root.ask(*_property("Name"))[0].lower():
            _Look(root)
            return root
    return None
