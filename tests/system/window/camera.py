# SPDX-License-Identifier: MIT
"""Takes pictures of the wizard, and sets a desktop to dark colours or large letters."""

import pathlib
import subprocess
import time

from desk import LIMIT

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


def screen(wizard):
    done = subprocess.run(["import", "-window", "root", "ppm:-"], check=True, capture_output=True,
                          timeout=LIMIT, env={**wizard.desk.environment, **wizard.screen})
    return done.stdout


def picture(wizard, path, whole_screen=False):
    """Takes a picture when the windows rest, or after a while if one of them keeps moving."""
    seen = screen(wizard)
    for _ in range(MOVES):
        time.sleep(STILL)
        before, seen = seen, screen(wizard)
        if seen == before:
            break
    cut = [] if whole_screen else ["-crop", around(wizard), "+repage"]
    subprocess.run(["convert", "ppm:-", *cut, str(path)], input=seen, check=True, timeout=LIMIT)


def around(wizard):
    """The part of the screen that the windows cover, in the screen's own pixels."""
    boxes = []
    for window in wizard.x_windows():
        place = dict(line.split("=") for line in wizard.tool(
            "xdotool", "getwindowgeometry", "--shell", window).splitlines())
        boxes.append([int(place[name]) for name in ("X", "Y", "WIDTH", "HEIGHT")])
    left, top = (max(min(box[i] for box in boxes), 0) for i in (0, 1))
    right, bottom = (max(box[i] + box[i + 2] for box in boxes) for i in (0, 1))
    return f"{right - left}x{bottom - top}+{left}+{top}"
