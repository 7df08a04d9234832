# SPDX-License-Identifier: MIT
"""Sends the one request of a window manager that no tool here can send: to close a window."""

import ctypes

CLIENT_MESSAGE, FORMAT = 33, 32  # from <X11/X.h>; the message's words have 32 bits


class ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong),
                ("message_type", ctypes.c_ulong), ("format", ctypes.c_int),
                ("words", ctypes.c_long * 5),
                ("room", ctypes.c_long * 24)]  # the library copies a whole XEvent


def ask_to_close(display_name, window):
    """Sends the message of the close button in a window's frame."""
    x11 = ctypes.CDLL("libX11.so.6")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    x11.XInternAtom.restype = ctypes.c_ulong
    display = ctypes.c_void_p(x11.XOpenDisplay(display_name.encode()))
    if not display:
        raise RuntimeError(f"no display {display_name}")
    protocols, delete = (x11.XInternAtom(display, name, 0)
                         for name in (b"WM_PROTOCOLS", b"WM_DELETE_WINDOW"))
    message = ClientMessage(CLIENT_MESSAGE, 0, 1, display, window, protocols, FORMAT, (delete,))
    x11.XSendEvent(display, ctypes.c_ulong(window), 0, ctypes.c_long(0), ctypes.byref(message))
    x11.XCloseDisplay(display)
