"""The real wizard, driven from outside as a screen reader and a keyboard do it.

What is seen is what the program tells the accessibility bus, and of that only what is showing.
Pressing goes to the window in front alone: an action over the bus would pass by a question that
holds the other windows up, which no user can do.
"""

import contextlib
import os
import pathlib
import re

from gi.repository import GLib

from accessibility import Bus
from desk import LIMIT, until
from x11 import ask_to_close

# The folder with the programs; a build tree's, unless somebody names another one.
BIN = pathlib.Path(os.environ.get("VYMKIT_BIN", "build/dev/bin")).resolve()


class Wizard:
    def __init__(self, desk, *arguments, language="en_US.UTF-8", screen=0, environment=None,
                 program=BIN / "vymkit"):
        self.desk = desk
        self.screen = {"DISPLAY": f"{desk.environment['DISPLAY']}.{screen}"}
        self.process = desk.start([str(program), *map(str, arguments)],
                                  {"LC_ALL": language, **self.screen, **(environment or {})})
        self._bus = Bus(desk.environment["DBUS_SESSION_BUS_ADDRESS"])
        self._root = None

    # What there is to see.

    def windows(self):
        """The showing windows, each with its nodes."""
        with contextlib.suppress(GLib.Error):
            self._root = self._root or self._bus.program(self.process.pid)
            if self._root:
                trees = [list(self._bus.tree(top)) for top in self._bus.children(self._root)]
                return [tree for tree in trees if tree]
        return []

    def showing(self):
        """The nodes of the window in front: a question's, where there is one."""
        windows = self.windows()
        asking = [tree for tree in windows if tree[0].role == "alert"]
        return (asking or windows or [[]])[-1]

    def until(self, question, what, limit=LIMIT):
        def answer():
            found = question()
            if not found and self.process.poll() is not None:
                raise RuntimeError(f"the wizard ended with {self.process.returncode} before this: "
                                   f"{what}; it said: {self.errors()}")
            return found
        try:
            return until(answer, what, limit)
        except TimeoutError as error:
            seen = "\n".join(f"  {node.role}: {node.text!r}" for node in self.showing())
            raise TimeoutError(f"{error}; showing are:\n{seen}") from None

    def nodes(self, role):
        return [node for node in self.showing() if node.role == role]

    def find(self, role, name=None, limit=LIMIT):
        """Waits for a showing control; a name is compared without its mnemonic."""
        def first():
            return next((node for node in self.nodes(role) if name in (None, node.name)), None)
        return self.until(first, f"a {role} {name!r}", limit)

    def wait_for(self, text, limit=LIMIT):
        """Waits until a text (or what fits a pattern) is on the screen; gives its node."""
        pattern = text if isinstance(text, re.Pattern) else re.compile(re.escape(text))
        return self.until(lambda: next((node for node in self.showing()
                                        if pattern.search(node.text)), None),
                          f"the text {pattern.pattern!r}", limit)

    def shows(self, text):
        return any(text in node.text for node in self.showing())

    def alert(self, *titles, limit=LIMIT):
        """Waits for a message with one of these titles; gives its texts, the title first."""
        def asked():
            nodes = self.showing()
            texts = [node.text for node in nodes if node.role == "label"]
            return texts if nodes and nodes[0].role == "alert" and texts[:1] and \
                texts[0] in titles else None
        return self.until(asked, f"the question {' or '.join(titles)!r}", limit)

    # What can be done.

    def press(self, name, role="push button"):
        """Presses what can be pressed; the result comes later and has to be waited for."""
        node = self.until(lambda: next((one for one in self.nodes(role) if one.name == name
                                        and one.has("enabled")), None), f"a {role} {name!r}")
        self.act(node)

    def choose(self, name):
        self.press(name, "radio button")
        self.until(lambda: self.find("radio button", name).has("checked"), f"{name!r} is chosen")

    def act(self, node):
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

    def keep_focus(self):
        """What a window manager does: a window that goes leaves its focus to the one behind it."""
        mine = self.x_windows()
        if self.tool("xdotool", "getwindowfocus").strip() not in mine:
            self.tool("xdotool", "windowfocus", mine[-1])

    def x_windows(self):
        return self.tool("xdotool", "search", "--onlyvisible", "--pid",
                         str(self.process.pid)).split()

    def focused(self, role, name=None):
        """Waits until that control has the keyboard."""
        def has_it():
            self.keep_focus()
            return any(node.role == role and name in (None, node.name) and node.has("focused")
                       for node in self.showing())
        self.until(has_it, f"the focus on a {role} {name!r}")

    def type_address(self, address):
        """Into the cell with the focus and those behind it; three digits move on by themselves."""
        numbers = address.split(".")
        for place, number in enumerate(numbers):
            self.type(number)
            if len(number) < 3 and place + 1 < len(numbers):
                self.keys("Tab")

    def close_window(self):
        """As the close button of a window manager does it."""
        self.keep_focus()
        window = self.tool("xdotool", "getwindowfocus").split()[-1]
        ask_to_close(self.screen["DISPLAY"], int(window))

    def tool(self, *command):
        """A program on this wizard's screen."""
        return self.desk.run(*command, environment=self.screen)

    # What remains.

    def exit_code(self, limit=LIMIT):
        until(lambda: self.process.poll() is not None, "the wizard ends", limit)
        return self.process.returncode

    def errors(self):
        return self.desk.errors_of(self.process)
