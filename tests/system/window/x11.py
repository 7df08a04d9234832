# SPDX-License-Identifier: MIT
"""What no tool here can do: close a window as a window manager does, and hear the bell."""

import ctypes

CLIENT_MESSAGE, FORMAT = 33, 32  # from <X11/X.h>; the message's words have 32 bits
CORE_KEYBOARD, BELL = 0x100, 8  # from <X11/extensions/XKB.h>


class ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong),
                ("message_type", ctypes.c_ulong), ("format", ctypes.c_int),
                ("words", ctypes.c_long * 5),
                ("room", ctypes.c_long * 24)]  # the library copies a whole XEvent


def connect(display_name):
    x11 = ctypes.CDLL("libX11.so.6")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    x11.XInternAtom.restype = ctypes.c_ulong
    display = ctypes.c_void_p(x11.XOpenDisplay(display_name.encode()))
    if not display:
        raise RuntimeError(f"no display {display_name}")
    return x11, display


def ask_to_close(display_name, window):
    """Sends the message of the close button in a window's frame."""
    x11, display = connect(display_name)
    protocols, delete = (x11.XInternAtom(display, name, 0)
                         for name in (b"WM_PROTOCOLS", b"WM_DELETE_WINDOW"))
    message = ClientMessage(CLIENT_MESSAGE, 0, 1, display, window, protocols, FORMAT, (delete,))
    x11.XSendEvent(display, ctypes.c_ulong(window), 0, ctypes.c_long(0), ctypes.byref(message))
    x11.XCloseDisplay(display)


class KeyboardEvent(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("time", ctypes.c_ulong), ("kind", ctypes.c_int),
                ("room", ctypes.c_long * 24)]


class Bell:
    """Counts how often the display's bell has rung since the start."""

    def __init__(self, display_name):
        self._x11, self._display = connect(display_name)
        first, version = ctypes.c_int(), ctypes.c_int(1)
        ignored = ctypes.byref(ctypes.c_int())
        if not self._x11.XkbQueryExtension(self._display, ignored, ctypes.byref(first), ignored,
                                           ctypes.byref(version), ctypes.byref(ctypes.c_int(0))):
            raise RuntimeError("the display has no keyboard extension")
        self._event_type = first.value
        self._x11.XkbSelectEvents(self._display, CORE_KEYBOARD, 1 << BELL, 1 << BELL)
        self._rings = 0
        self.rings()  # the display knows by then that this listens

    def rings(self):
        self._x11.XSync(self._display, 0)
        event = KeyboardEvent()
        while self._x11.XPending(self._display):
            self._x11.XNextEvent(self._display, ctypes.byref(event))
            self._rings += event.type == self._event_type and event.kind == BELL
        return self._rings

    def close(self):
        self._x11.XCloseDisplay(self._display)
