# SPDX-License-Identifier: MIT
"""The real wizard, driven from outside in the way of a screen reader and a keyboard.

Sees only visible nodes on the accessibility bus. Presses only controls of the front window: an
action over the bus would bypass a modal question, which no user can do.
"""

import contextlib
import itertools
import os
import pathlib
import re
import subprocess

from gi.repository import GLib

from accessibility import Bus
from desk import LIMIT, LOOK_LATE, until
from x11 import ask_to_close

# The folder with the programs; a build tree's, unless the environment names another.
BIN = pathlib.Path(os.environ.get("VYMKIT_BIN", "build/dev/bin")).resolve()

FOCUS_LATE = 20  # checks after which the focus may be on a wrong window
TYPED_LATE = 10.0  # seconds for keys to arrive
ALERT_LATE = 1.0  # seconds between two checks for a message, which stays until it is answered


class Wizard:
    def __init__(self, desk, *arguments, language="en_US.UTF-8", screen=0, environment=None,
                 program=BIN / "vymkit"):
        self.desk = desk
        self.screen = {"DISPLAY": f"{desk.environment['DISPLAY']}.{screen}"}
        self.frame = desk.frames / f"Xvfb_screen{screen}"
        self.process = desk.start([str(program), *map(str, arguments)],
                                  {"LC_ALL": language, **self.screen, **(environment or {})})
        self._bus = Bus(desk.environment["DBUS_SESSION_BUS_ADDRESS"])
        self._root = None

    # Looking.

    def windows(self):
        """The visible windows, each with its nodes."""
        with contextlib.suppress(GLib.Error):
            self._root = self._root or self._bus.program(self.process.pid)
            if self._root:
                trees = self._bus.trees(self._bus.children(self._root))
                return [tree for tree in trees if tree]
        self._root = None  # a program that has started itself again has another one
        return []

    def showing(self):
        """The nodes of the front window: of the question, if there is one."""
        windows = self.windows()
        asking = [tree for tree in windows if tree[0].role == "alert"]
        return (asking or windows or [[]])[-1]

    def until(self, question, what, limit=LIMIT, late=LOOK_LATE):
        def answer():
            found = question()
            if not found and self.process.poll() is not None:
                raise RuntimeError(f"the wizard ended with {self.process.returncode} before this: "
                                   f"{what}; it said: {self.errors()}")
            return found
        try:
            return until(answer, what, limit, late)
        except TimeoutError as error:
            seen = "\n".join(f"  {node.role}: {node.text!r}" for node in self.showing())
            raise TimeoutError(f"{error}; showing are:\n{seen}") from None

    def nodes(self, role):
        return [node for node in self.showing() if node.role == role]

    def find(self, role, name=None, limit=LIMIT):
        """Waits for a visible control; compares names without mnemonics."""
        def first():
            return next((node for node in self.nodes(role) if name in (None, node.name)), None)
        return self.until(first, f"a {role} {name!r}", limit)

    def wait_for(self, text, limit=LIMIT):
        """Waits until a text (or a match of a pattern) is on the screen; returns its node."""
        pattern = text if isinstance(text, re.Pattern) else re.compile(re.escape(text))
        return self.until(lambda: next((node for node in self.showing()
                                        if pattern.search(node.text)), None),
                          f"the text {pattern.pattern!r}", limit)

    def shows(self, text):
        return any(text in node.text for node in self.showing())

    def alert(self, *titles, limit=LIMIT):
        """Waits for a message with one of these titles; returns its texts, the title first."""
        def asked():
            nodes = self.showing()
            texts = [node.text for node in nodes if node.role == "label"]
            return texts if nodes and nodes[0].role == "alert" and texts[:1] and \
                texts[0] in titles else None
        return self.until(asked, f"the question {' or '.join(titles)!r}", limit, ALERT_LATE)

    # Acting.

    def press(self, name, role="push button"):
        """Presses a control; the caller has to wait for the effect."""
        node = self.until(lambda: next((one for one in self.nodes(role) if one.name == name
                                        and one.has("enabled")), None), f"a {role} {name!r}")
        node.act()

    def choose(self, name):
        self.press(name, "radio button")
        self.until(lambda: self.find("radio button", name).has("checked"), f"{name!r} is chosen")

    def act(self, node):
        """Presses a control that was found before."""
        if node.place not in (one.place for one in self.showing()):
            raise RuntimeError(f"{node.role} {node.name!r} is behind a question")
        node.act()

    def click(self, node):
        left, top, width, height = node.box
        self.tool("xdotool", "mousemove", str(left + min(width // 2, 8)), str(top + height // 2),
                  "click", "1")

    def keys(self, *names):
        self.keep_focus()
        self.tool("xdotool", "key", "--delay", "20", *names)

    def type(self, text):
        self.keep_focus()
        self.tool("xdotool", "type", "--delay", "20", text)

    def fill(self, text):
        """Replaces the focused field's text; types it again if a list of suggestions took some keys."""
        def holds_it():
            return any(node.role == "text" and node.has("focused") and node.text == text
                       for node in self.showing())

        def fills_it():
            self.keys("ctrl+a")
            self.type(text)
            with contextlib.suppress(TimeoutError):
                return self.until(holds_it, "the text is typed", TYPED_LATE)
            return False
        self.until(fills_it, f"the field holds {text!r}")

    def keep_focus(self):
        """Does a window manager's duty: a closed window's focus goes to the one behind it. Waits until
        the front window knows that it has the focus: keys that are sent before would be lost. While a
        list of suggestions is open, only the control that it belongs to knows that. A list that comes
        and goes may have left the focus to a window that takes none: then all get it in turn."""
        looks = itertools.count(1)

        def has_it():
            mine, look = self.x_windows(), next(looks)
            with contextlib.suppress(subprocess.CalledProcessError):  # the window has closed meanwhile
                if mine and self.tool("xdotool", "getwindowfocus").strip() not in mine:
                    self.tool("xdotool", "windowfocus", mine[-1])
                elif mine and look % FOCUS_LATE == 0:
                    self.tool("xdotool", "windowfocus", mine[look // FOCUS_LATE % len(mine)])
            front = self.showing()
            return any(node.has("active") for node in front[:1]) or any(
                node.has("focused") for node in front)
        self.until(has_it, "the focus on the front window")

    def x_windows(self):
        with contextlib.suppress(subprocess.CalledProcessError):  # none between two questions
            return self.tool("xdotool", "search", "--onlyvisible", "--pid",
                             str(self.process.pid)).split()
        return []

    def focused(self, role, name=None):
        """Waits until that control has the keyboard focus."""
        def has_it():
            self.keep_focus()
            return any(node.role == role and name in (None, node.name) and node.has("focused")
                       for node in self.showing())
        self.until(has_it, f"the focus on a {role} {name!r}")

    def type_address(self, address):
        """Types into the focused cell and those after it; after three digits the focus moves on."""
        numbers = address.split(".")
        for place, number in enumerate(numbers):
            self.type(number)
            if len(number) < 3 and place + 1 < len(numbers):
                self.keys("Tab")

    def close_window(self):
        """Closes the window in the way of a window manager's close button."""
        self.keep_focus()
        window = self.tool("xdotool", "getwindowfocus").split()[-1]
        ask_to_close(self.screen["DISPLAY"], int(window))

    def tool(self, *command):
        """Runs a program on this wizard's screen; returns its output."""
        return self.desk.run(*command, environment=self.screen)

    # Ending.

    def exit_code(self, limit=LIMIT):
        until(lambda: self.process.poll() is not None, "the wizard ends", limit)
        return self.process.returncode

    def errors(self):
        return self.desk.errors_of(self.process)
