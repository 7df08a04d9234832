# SPDX-License-Identifier: MIT
"""The accessibility bus as a screen reader sees it: nodes with role, name, states and children.

Uses D-Bus directly, because that can query all children of a node at once. With one query for each
child, a child may vanish between two queries; its index is then out of range, and the toolkit
crashes (Qt 6.4, scroll areas).
"""

import contextlib
from dataclasses import dataclass, field
from itertools import chain, islice

from gi.repository import Gio, GLib

ROOT = "/org/a11y/atspi/accessible/root"
REGISTRY = "org.a11y.atspi.Registry"
PREFIX = "org.a11y.atspi."
PROPERTIES = "org.freedesktop.DBus.Properties"
TIMEOUT = 30000  # milliseconds for one answer, also where its program has to start first
# Roles by number, and bits of the state set, in at-spi's numbering; names differ by program.
ROLES = {2: "alert", 7: "check box", 16: "dialog", 20: "filler", 23: "frame", 27: "image",
         29: "label", 30: "layered pane", 39: "panel", 42: "progress bar", 43: "push button",
         44: "radio button", 48: "scroll bar", 49: "scroll pane", 50: "separator", 55: "table",
         56: "table cell", 57: "table column header", 61: "text", 68: "viewport"}
STATES = {"active": 1, "checked": 4, "enabled": 8, "focusable": 11, "focused": 12, "selected": 23,
          "showing": 25}
# Of each node on the screen: its states, role, name and children.
QUERIES = ((PREFIX + "Accessible", "GetState", None), (PREFIX + "Accessible", "GetRole", None),
           (PROPERTIES, "Get", GLib.Variant("(ss)", (PREFIX + "Accessible", "Name"))),
           (PREFIX + "Accessible", "GetChildren", None))
SCREEN = 0  # coordinates start at the screen's corner
NOTIFICATION = 101  # the role of what a screen reader says as soon as it appears


class Bus:
    def __init__(self, session_address):
        session = self._connect(session_address)
        address = session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress",
                                    None, None, Gio.DBusCallFlags.NONE, TIMEOUT, None).unpack()[0]
        self._connection = self._connect(address)

    @staticmethod
    def _connect(address):
        flags = (Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
                 | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)
        return Gio.DBusConnection.new_for_address_sync(address, flags, None, None)

    def ask(self, place, interface, method, arguments=None):
        """The answer's values; raises GLib.Error if the node or its program is gone."""
        name, path = place
        return self._connection.call_sync(name, path, interface, method, arguments, None,
                                          Gio.DBusCallFlags.NONE, TIMEOUT, None).unpack()

    def subscribe(self, interface, signal, event, handler):
        """Calls the handler, while the main context runs, with place, kind and first number."""
        self._connection.signal_subscribe(
            None, PREFIX + "Event." + interface, signal, None, None, Gio.DBusSignalFlags.NONE,
            lambda _, sender, path, *rest: handler((sender, path), *rest[-1].unpack()[:2]))
        # Programs send only events that a reader has registered for.
        self.ask((REGISTRY, "/org/a11y/atspi/registry"), REGISTRY, "RegisterEvent",
                 GLib.Variant("(s)", (event,)))

    def property(self, place, interface, name):
        return self.ask(place, PROPERTIES, "Get",
                        GLib.Variant("(ss)", (PREFIX + interface, name)))[0]

    def children(self, place):
        return self.ask(place, PREFIX + "Accessible", "GetChildren")[0]

    def program(self, pid):
        """The root of the program with that process number; waits until it is on the bus."""
        for place in self.children((REGISTRY, ROOT)):
            with contextlib.suppress(GLib.Error):
                if self.ask(("org.freedesktop.DBus", "/"), "org.freedesktop.DBus",
                            "GetConnectionUnixProcessID",
                            GLib.Variant("(s)", (place[0],)))[0] == pid:
                    return place
        return None

    def trees(self, places):
        """For each place a list: its node and all visible nodes below it, from top to bottom. Empty
        where nothing is visible, and without nodes that vanish meanwhile. Queries a level at once."""
        if not places:
            return []
        answers = self._ask_all([(place, *query) for place in places for query in QUERIES])
        firsts = range(0, len(answers), len(QUERIES))
        looks = [self._look(place, *answers[first:first + len(QUERIES)])
                 for place, first in zip(places, firsts)]
        below = iter(self.trees([child for _, children in looks for child in children]))
        return [[*nodes, *chain.from_iterable(islice(below, len(children)))]
                for nodes, children in looks]

    def _look(self, place, state_set, role, name, children):
        """The node and its children's places; nothing where it is not visible."""
        if None in (state_set, role, name, children):
            return [], []
        states = frozenset(state for state, bit in STATES.items() if state_set[0] >> bit & 1)
        if "showing" not in states:
            return [], []
        return [Node(ROLES.get(role, f"role {role}"), name, states, tuple(place), self)], children

    def _ask_all(self, questions):
        """The first value of each answer, in order; None from a node that is gone. Sends all questions
        before it waits: one after the other would keep three programs waking each other."""
        answers = {}

        def take(connection, result, number):
            answers[number] = None
            with contextlib.suppress(GLib.Error):
                answers[number] = connection.call_finish(result).unpack()[0]

        for number, ((name, path), interface, method, arguments) in enumerate(questions):
            self._connection.call(name, path, interface, method, arguments, None,
                                  Gio.DBusCallFlags.NONE, TIMEOUT, None, take, number)
        while len(answers) < len(questions):
            GLib.MainContext.default().iteration(True)
        return [answers[number] for number in range(len(questions))]


class ScreenReader:
    """Hears the notifications of all programs on the bus from now on, in order."""

    def __init__(self, session_address):
        self._bus = Bus(session_address)
        self._heard = []
        self._bus.subscribe("Object", "StateChanged", "object:state-changed:showing", self._hear)

    def _hear(self, place, what, is_on):
        if what == "showing" and is_on:
            with contextlib.suppress(GLib.Error):  # it has vanished meanwhile
                if self._bus.ask(place, PREFIX + "Accessible", "GetRole")[0] == NOTIFICATION:
                    self._heard.append(self._bus.property(place, "Accessible", "Name"))

    def heard(self):
        while GLib.MainContext.default().iteration(False):
            pass
        return list(self._heard)


@dataclass
class Node:
    """A snapshot of one control."""
    role: str
    name: str
    states: frozenset
    place: tuple = field(repr=False)
    bus: Bus = field(repr=False)

    def has(self, state):
        return state in self.states

    @property
    def text(self):
        """The text on the control: the content of a field, otherwise its name."""
        if self.role == "text":
            with contextlib.suppress(GLib.Error):
                return self._ask("Text", "GetText", GLib.Variant("(ii)", (0, -1)))[0]
        return self.name

    @property
    def box(self):
        """Left, top, width, height on the screen."""
        return self._ask("Component", "GetExtents", GLib.Variant("(u)", (SCREEN,)))[0]

    def act(self):
        self._ask("Action", "DoAction", GLib.Variant("(i)", (0,)))

    def _ask(self, interface, method, arguments):
        return self.bus.ask(self.place, PREFIX + interface, method, arguments)
