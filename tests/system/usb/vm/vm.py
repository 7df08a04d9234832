#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs a command in a virtual machine that has a real USB bus: Debian's kernel under QEMU.

The guest has virtual USB controllers that are wired to themselves (dummy_hcd): the program that
plays a USB device and the one that uses it both run inside. --program takes a program and the
libraries that it is linked with; --file takes a single file. All keep their paths in the guest. The
command runs as root in /tmp; --results copies its files in /results back.

Exit code: the command's own; 124 when it ran too long; 125 when the machine itself failed.
"""
import argparse
import pathlib
import re
import shlex
import shutil
import signal
import subprocess
import sys
import tarfile
import tempfile

sys.dont_write_bytecode = True  # leaves the source folder unchanged
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
import kernel  # noqa: E402
from archive import Archive  # noqa: E402

HERE = pathlib.Path(__file__).resolve().parent
RIG_FAILED = 125
TIMED_OUT = 124
KILLED = 128 + signal.SIGKILL
BOOT_ALLOWANCE = 60  # s of real time besides the command's own: start, results, a busy machine
PORTS = ["out", "err", "results", "code"]
KERNEL_OPTIONS = ("console=ttyS0 quiet panic=-1 nokaslr mitigations=off tsc=reliable "
                  "no_timer_check cryptomgr.notests random.trust_cpu=on")


def arguments():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--program", action="append", default=[], metavar="FILE",
                        help="a program (or a library opened at run time) for the guest")
    parser.add_argument("--file", action="append", default=[], metavar="FILE[:PATH]",
                        help="a file for the guest, at another path there if one is given")
    parser.add_argument("--controllers", type=int, default=4,
                        help="USB controllers, one printer each (4)")
    parser.add_argument("--timeout", type=int, default=120,
                        help="seconds of the guest's clock for the command (120)")
    parser.add_argument("--limit", type=int,
                        help="seconds of real time for all (the time-out and a minute)")
    parser.add_argument("--icount", action="store_true",
                        help="the guest's clock counts its instructions: milliseconds are true "
                             "on a busy machine too, and waiting costs nothing")
    parser.add_argument("--memory", type=int, default=512, help="MiB (512)")
    parser.add_argument("--results", metavar="FOLDER", help="where the guest's /results go")
    parser.add_argument("--console", action="store_true", help="show the guest's console always")
    parser.add_argument("command", nargs="+", help="behind --")
    return parser.parse_args()


def need(program, package):
    found = shutil.which(program)
    if not found:
        raise kernel.Unavailable(f"{program} is missing; the package {package} brings it")
    return found


def add_busybox(archive):
    busybox = need("busybox", "busybox-static")
    if "dynamic" not in subprocess.run(["ldd", busybox], capture_output=True, text=True,
                                       check=False).stderr:
        raise kernel.Unavailable("busybox is not static; the package busybox-static brings one")
    archive.copy(busybox, "/bin/busybox")
    for applet in subprocess.run([busybox, "--list"], capture_output=True, text=True,
                                 check=True).stdout.split():
        archive.link(f"/bin/{applet}", "busybox")


def add_program(archive, program):
    """Adds the program and every library that it is linked with, at their own paths."""
    with tempfile.NamedTemporaryFile() as plain:  # debug information would only slow down the start
        done = subprocess.run(["strip", "--strip-debug", "-o", plain.name, program], check=False).returncode
        archive.copy(plain.name if done == 0 else program, pathlib.Path(program).absolute())
    listed = subprocess.run(["ldd", program], capture_output=True, text=True, check=False).stdout
    for library in re.findall(r"(/\S+) \(0x", listed):
        archive.copy(library)


def guest_files(options, kernel_folder):
    archive = Archive()
    for folder in "/proc", "/sys", "/dev", "/tmp", "/root", "/var/tmp", "/usr":
        archive.folder(folder)
    for merged in "lib", "lib64":  # one tree for both spellings of a path
        archive.folder(f"/{merged}")
        archive.link(f"/usr/{merged}", f"/{merged}")
    archive.copy(HERE / "init", "/init")
    archive.file("/etc/passwd", b"root:x:0:0::/root:/bin/sh\nnobody:x:65534:65534::/tmp:/bin/sh\n")
    archive.file("/etc/group", b"root:x:0:\nnogroup:x:65534:\n")
    archive.file("/etc/hosts", b"127.0.0.1 localhost\n")
    archive.file("/run-settings", f"CONTROLLERS={options.controllers}\nTIMEOUT={options.timeout}\n"
                 .encode())
    archive.file("/run-command", shlex.join(options.command).encode() + b"\n")
    add_busybox(archive)
    for module in sorted((kernel_folder / "modules").iterdir()):
        archive.copy(module, f"/modules/{module.name}")
    for program in options.program:
        add_program(archive, program)
    for one in options.file:
        source, _, path = one.partition(":")
        archive.copy(source, path or None)
    return archive.bytes()


def qemu_command(options, kernel_folder, work):
    limit = options.limit or options.timeout + BOOT_ALLOWANCE
    command = ["timeout", "-s", "KILL", limit, need("qemu-system-x86_64", "qemu-system-x86"),
               "-accel", "tcg", "-cpu", "max", "-m", options.memory, "-smp", "1", "-nodefaults",
               "-no-user-config", "-display", "none", "-no-reboot",
               "-kernel", kernel_folder / "vmlinux", "-initrd", work / "initrd",
               "-append", KERNEL_OPTIONS,
               "-chardev", f"file,id=console,path={work}/console", "-serial", "chardev:console",
               "-device", "isa-debug-exit,iobase=0x501,iosize=2", "-device", "virtio-serial-pci"]
    if options.icount:
        command += ["-icount", "shift=2,sleep=off"]
    for port in PORTS:
        command += ["-chardev", f"file,id={port},path={work}/{port}",
                    "-device", f"virtserialport,chardev={port},name={port}"]
    return [str(word) for word in command]


def hand_over(work, results):
    for port, stream in ("out", sys.stdout), ("err", sys.stderr):
        stream.buffer.write((work / port).read_bytes())
        stream.buffer.flush()
    if results and (work / "results").stat().st_size:
        with tarfile.open(work / "results") as archive:
            archive.extractall(results)


def show_console(work, errors):
    print("--- the guest's console ---", file=sys.stderr)
    console = work / "console"
    print(console.read_text(errors="replace") if console.exists() else "(none)", errors,
          file=sys.stderr)


def run(options, work):
    kernel_folder = kernel.prepare()
    (work / "initrd").write_bytes(guest_files(options, kernel_folder))
    for port in PORTS:
        (work / port).touch()
    ended = subprocess.run(qemu_command(options, kernel_folder, work), stdin=subprocess.DEVNULL,
                           capture_output=True, text=True, check=False)
    hand_over(work, options.results)
    text = (work / "code").read_text().strip()
    code = int(text) if text.isdigit() else RIG_FAILED
    if code == RIG_FAILED:
        print("vm.py: the machine did not get to its end", file=sys.stderr)
    if code == KILLED:
        print(f"vm.py: the command ran for more than {options.timeout} s", file=sys.stderr)
        code = TIMED_OUT
    if code != 0 or options.console:
        show_console(work, ended.stderr)
    return code


def main():
    options = arguments()
    try:
        with tempfile.TemporaryDirectory(prefix="vymkit-vm-") as work:
            return run(options, pathlib.Path(work))
    except (kernel.Unavailable, OSError, subprocess.CalledProcessError) as failure:
        print(f"vm.py: {failure} {getattr(failure, 'stderr', None) or ''}", file=sys.stderr)
        return RIG_FAILED


if __name__ == "__main__":
    sys.exit(main())
