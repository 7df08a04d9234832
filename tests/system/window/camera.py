# SPDX-License-Identifier: MIT
"""Takes pictures of the wizard, and sets a desktop to dark colours or large letters."""

import contextlib
import pathlib
import struct
import subprocess
import time
import zlib

STILL = 0.1  # seconds without a change after which a window counts as drawn
MOVES = 10  # attempts at a picture on which something never rests

# Qt reads colours and fonts of such a desktop session from a file; no switch of the product.
OWN_SESSION = {"XDG_CURRENT_DESKTOP": "KDE", "KDE_SESSION_VERSION": "5"}
DARK_COLOURS = {  # background, text, every second row
    "Window": ("42,46,50", "252,252,252", "49,54,59"),
    "Button": ("49,54,59", "252,252,252", "30,87,116"),
    "View": ("27,30,32", "252,252,252", "35,38,41"),
    "Selection": ("61,174,233", "252,252,252", "30,87,116"),
    "Tooltip": ("49,54,59", "252,252,252", "42,46,50"),
}


def dark_desktop(desk):
    """Makes the desk dark; returns the environment of programs that shall use it."""
    lines = ["[KDE]", "widgetStyle=Fusion"]
    for name, (ground, text, second) in DARK_COLOURS.items():
        lines += [f"[Colors:{name}]", f"BackgroundNormal={ground}", f"ForegroundNormal={text}",
                  f"BackgroundAlternate={second}", "ForegroundInactive=161,169,177",
                  "ForegroundLink=29,153,243", "ForegroundVisited=155,89,182"]
    settings = pathlib.Path(desk.environment["XDG_CONFIG_HOME"]) / "kdeglobals"
    settings.write_text("\n".join(lines) + "\n", encoding="utf-8")
    return OWN_SESSION


def large_letters(desk, points):
    """Makes the desk's letters that large; returns the environment of programs that shall use it."""
    settings = pathlib.Path(desk.environment["XDG_CONFIG_HOME"]) / "kdeglobals"
    settings.write_text("[KDE]\nwidgetStyle=Fusion\n[General]\n"
                        f"font=DejaVu Sans,{points},-1,5,50,0,0,0,0,0\n", encoding="utf-8")
    return OWN_SESSION


def picture(wizard, path, whole_screen=False):
    """Takes a picture when the windows rest, or after a while if one of them keeps moving."""
    if not whole_screen:
        wizard.until(wizard.x_windows, "a window on the screen")  # described a moment before it is drawn
    seen = wizard.frame.read_bytes()
    for _ in range(MOVES):
        time.sleep(STILL)
        before, seen = seen, wizard.frame.read_bytes()
        if seen == before:
            break
    width, height = wizard.desk.size
    part = (0, 0, width, height) if whole_screen else around(wizard)
    pathlib.Path(path).write_bytes(png(memoryview(seen)[-4 * width * height:], width, *part))


def png(pixels, line, left, top, right, bottom):
    """A part of a screen with so many pixels in a line, of four bytes each: blue, green, red, unused."""
    rows = bytearray()
    for first in range(top * line, bottom * line, line):
        row = pixels[4 * (first + left):4 * (first + right)]
        colours = bytearray(3 * (right - left))
        colours[::3], colours[1::3], colours[2::3] = row[2::4], row[1::4], row[::4]
        rows += b"\0" + colours  # as it is, not as a difference from another row
    size = struct.pack(">IIBBBBB", right - left, bottom - top, 8, 2, 0, 0, 0)  # 8 bits of 3 colours
    chunks = (b"IHDR" + size, b"IDAT" + zlib.compress(rows), b"IEND")
    return b"\x89PNG\r\n\x1a\n" + b"".join(
        struct.pack(">I", len(chunk) - 4) + chunk + struct.pack(">I", zlib.crc32(chunk))
        for chunk in chunks)


def around(wizard):
    """Left, top, right and bottom of the part of the screen that the windows cover."""
    lefts, tops, rights, bottoms = zip(*wizard.until(lambda: boxes(wizard), "a window on the screen"))
    width, height = wizard.desk.size
    return (max(min(lefts), 0), max(min(tops), 0),
            min(max(rights), width), min(max(bottoms), height))


def boxes(wizard):
    """Left, top, right and bottom of each window; none if one of them has closed meanwhile."""
    found = []
    with contextlib.suppress(subprocess.CalledProcessError):
        for window in wizard.x_windows():
            place = dict(line.split("=") for line in wizard.tool(
                "xdotool", "getwindowgeometry", "--shell", window).splitlines())
            left, top, width, height = (int(place[name]) for name in ("X", "Y", "WIDTH", "HEIGHT"))
            found.append((left, top, left + width, top + height))
        return found
    return []
