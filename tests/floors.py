#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Fails when an include breaks the rules of the house's floors.

A file includes files of its own floor or of lower floors only; no two files include each other;
only the rooms made for a third-party library include its headers; the virtual printer shares
nothing with the engine; every source of the house has a test named after it; every source names its
licence.
"""
import fnmatch
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent

# The first pattern that matches a file gives its floor.
FLOORS = [
    (1, ["VYM/vymLock.*", "VYM/vymMac.*", "VYM/vymUtil.*", "VYM/ThreadSafety.h",
         "VYM/SingletonKiller.h", "VYM/SystemVersion.*", "VYM/DebugText.h", "VYM/BigEndian.h",
         "VYM/AsciiCase.h", "VYM/BundlePath.h", "VYM/Sha256.*", "Platform/*.h"]),
    (2, ["DevConn/*", "VYM/vymBindInfo.*", "VYM/vymParse*", "VYM/DescriptionText.*", "VYM/RowIndex.*",
         "VYM/ContainerSeal.*",
         "VYM/vymPackets.*",
         "Platform/*.cpp"]),
    (3, ["VYM/vymProtocol*", "VYM/ProtocolRe*", "VYM/ModelDependCheckVer.*", "VYM/AnswerAccount.*",
         "VYM/ImageReader.*", "VYM/EntryChoice.h", "VYM/FileAssembly.*", "VYM/vymDevInfo.*"]),
    (4, ["VYM/vymThread.*", "VYM/CheckRun.*"]),
    (5, ["UI/vymParseController.*", "UI/vymThreadRefusal.*", "UI/vymThreadPrinter.*",
         "UI/DevConnMgrController.*", "UI/vym_etc.*",
         "UI/rlpd_conf_access.*", "UI/VYM_Utilities.*", "UI/Text/*"]),
    (6, ["UI/Printers/*", "UI/Run/*", "UI/Package/*", "UI/Support/*",
         "UI/PrinterList.*", "UI/PrinterInfo.*",
         "UI/FirmwareList.*", "UI/WizardOptions.*"]),
    (7, ["UI/MainWindowController*", "UI/AppController.*", "UI/Pages/*",
         "UI/InputNSMatrixControl.*", "UI/vymTableView.*", "UI/Widgets/*"]),
    (8, ["main.cpp", "CLI/*"]),
]
# What a wing of UI/ must not include, besides files of a higher floor.
WALLS = [
    ("UI/Text/*", ["UI/*"], ["UI/Text/*"]),
    ("UI/Widgets/*", ["*"], ["UI/Widgets/*", "UI/Text/*"]),
    ("UI/Package/*", ["UI/Printers/*", "UI/Run/*", "UI/Support/*"], []),
    ("UI/Printers/*", ["UI/Package/*", "UI/Run/*", "UI/Support/*"], []),
    ("UI/Run/*", ["UI/Support/*"], []),
]

# Parts of the USB host that are reached only through it: LibusbHost_test and LibusbConnection_test.
TESTED_WITH_THEIR_HOST = ["Platform/LibusbDevice.cpp", "Platform/LibusbTransfer.cpp"]

# The virtual printer on a bus: tests/system/usb, in a virtual machine.
TESTED_ON_A_BUS = ["Tools/vymprinter/UsbPrinter.cpp", "Tools/vymprinter/UsbServer.cpp"]

LICENCE = "SPDX-License-Identifier: MIT"

BESIDE = ["Tools/*", "Resources/*"]  # stand beside the floors

# Which rooms may include which third-party headers.
THIRD_PARTY = [
    (r"^CLI/CLI\.hpp$|^CLI11", ["CLI/*", "UI/WizardOptions.cpp", "Tools/*"]),
    (r"^nlohmann/", ["CLI/*", "Tools/*"]),
    (r"^libusb", ["Platform/Libusb*"]),
    (r"^cups/", ["Platform/Libcups.h"]),
    (r"^sodium", ["Platform/SodiumSignature.cpp"]),
    (r"^systemd/", ["Platform/LogindInhibitor.cpp"]),
    (r"^Q[A-Z]|^Qt", ["main.cpp", "UI/MainWindowController*", "UI/AppController.*", "UI/Pages/*",
                      "UI/InputNSMatrixControl.*", "UI/vymTableView.*", "UI/Widgets/*"]),
]

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)


def fits(path, patterns):
    return any(fnmatch.fnmatch(path, pattern) for pattern in patterns)


def floor_of(path):
    for floor, patterns in FLOORS:
        if fits(path, patterns):
            return floor
    return None


def sources():
    listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", "*.h", "*.cpp"],
                            cwd=ROOT, capture_output=True, text=True, check=True).stdout
    return [path for path in listed.splitlines()
            if not path.startswith(("tests/", "fuzz/", "bench/")) and (ROOT / path).exists()]


def check_include(path, target, quoted, faults):
    floor, target_floor = floor_of(path), floor_of(target)
    if quoted and (ROOT / target).exists():
        if path.startswith("Tools/vymprinter/") and not target.startswith("Tools/vymprinter/"):
            faults.append(f"{path} includes {target}: the virtual printer reads the wire by itself")
        elif floor and target.startswith("Tools/"):
            faults.append(f"{path} includes {target}: tools stand beside the house")
        elif floor and target_floor and target_floor > floor:
            faults.append(f"{path} (floor {floor}) includes {target} (floor {target_floor})")
        for wing, unknown, known in WALLS:
            if fits(path, [wing]) and fits(target, unknown) and not fits(target, known):
                faults.append(f"{path} includes {target}, behind a wall of {wing}")
        return
    for pattern, rooms in THIRD_PARTY:
        if re.search(pattern, target) and not fits(path, rooms):
            faults.append(f"{path} includes {target}, which belongs into {', '.join(rooms)}")


def find_cycle(graph):
    done, path = set(), []

    def visit(node):
        if node in path:
            return path[path.index(node):] + [node]
        if node in done:
            return None
        path.append(node)
        for following in graph.get(node, []):
            if (cycle := visit(following)):
                return cycle
        path.pop()
        done.add(node)
        return None

    return next((cycle for node in graph if (cycle := visit(node))), None)


def check_tests(paths, faults):
    tests = {test.stem for test in (ROOT / "tests").rglob("*_test.cpp")}
    for path in paths:
        if path in TESTED_WITH_THEIR_HOST + TESTED_ON_A_BUS or path == "CLI/main.cpp":
            continue
        if path.endswith(".cpp") and path.startswith(("VYM/", "DevConn/", "UI/", "CLI/",
                                                      "Platform/")):
            stem = pathlib.PurePath(path).stem
            if f"{stem}_test" not in tests:
                faults.append(f"{path} has no test of its stem under tests/")
        # Both tools have rooms of the same name as the house: each test stands in its tool's folder.
        if path.endswith(".cpp") and path.startswith("Tools/"):
            if not (ROOT / "tests" / pathlib.PurePath(path).with_suffix("")).with_name(
                    f"{pathlib.PurePath(path).stem}_test.cpp").exists():
                faults.append(f"{path} has no test of its stem under tests/{pathlib.PurePath(path).parent}/")


def check_licences(faults):
    """Every source in C++, Python or CMake, of the house or beside it, names its licence at its head."""
    listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", "*.h", "*.cpp", "*.py",
                             "*CMakeLists.txt", "*.cmake"],
                            cwd=ROOT, capture_output=True, text=True, check=True)
    for path in listed.stdout.split():
        file = ROOT / path
        if file.is_file() and LICENCE not in file.read_text(encoding="utf-8")[:200]:
            faults.append(f"{path} does not name its licence: {LICENCE}")


def main():
    faults, graph = [], {}
    paths = sources()
    for path in paths:
        if floor_of(path) is None and not fits(path, BESIDE):
            faults.append(f"{path} stands on no floor: give it one in tests/floors.py")
        text = (ROOT / path).read_text(encoding="utf-8")
        for kind, target in INCLUDE.findall(text):
            check_include(path, target, kind == '"', faults)
            if kind == '"' and (ROOT / target).exists():
                graph.setdefault(path, []).append(target)
    if (cycle := find_cycle(graph)):
        faults.append("files include each other: " + " -> ".join(cycle))
    check_tests(paths, faults)
    check_licences(faults)
    for fault in faults:
        print("floors:", fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
