# SPDX-License-Identifier: MIT
"""Benchmark of the wizard: its first window, compared with a program that shows a small form."""

import contextlib
import statistics
import subprocess
import tempfile

from desk import BIN, ROOT, Result, weigh

PAIRS = 31
WIZARD = [str(BIN / "vymkit")]
FORM = [str(BIN / "bench_form"), str(ROOT / "bench/form.ui")]


@contextlib.contextmanager
def screen():
    """Runs an X server; yields an environment that makes programs end after their first paint."""
    with tempfile.TemporaryDirectory(prefix="vymkit-bench-") as home, subprocess.Popen(
            ["Xvfb", "-displayfd", "1", "-screen", "0", "1280x1024x24", "-nolisten", "tcp"],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True) as server:
        try:
            if not (number := server.stdout.readline().strip()):
                raise RuntimeError("the X server does not start")
            yield {"DISPLAY": ":" + number, "HOME": home, "XDG_RUNTIME_DIR": home,
                   "DBUS_SESSION_BUS_ADDRESS": f"unix:path={home}/no-bus",
                   "QT_PLUGIN_PATH": str(BIN.parent / "bench/plugins"),
                   "QT_QPA_GENERIC_PLUGINS": "FirstPaint"}
        finally:
            server.terminate()


def shown(command, environment):
    weight = weigh(command, environment)
    if weight.code != 0:
        raise RuntimeError(f"{command[0]} ended with {weight.code}")
    return weight


def window():
    with screen() as environment:
        shown(WIZARD, environment), shown(FORM, environment)  # fills the disk cache
        pairs = [(shown(WIZARD, environment), shown(FORM, environment)) for _ in range(PAIRS)]
    ratio = statistics.median(wizard.seconds / form.seconds for wizard, form in pairs)
    form_seconds = statistics.median(form.seconds for _, form in pairs)
    yield Result("window start", ratio, 1.5,
                 f"of a small form's time to its first paint ({form_seconds * 1000:.0f} ms)")
    more = statistics.median(wizard.peak_mib - form.peak_mib for wizard, form in pairs)
    yield Result("window memory", more, 24, "MiB, at the first paint, above a small form's peak")
