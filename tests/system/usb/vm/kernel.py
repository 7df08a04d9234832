#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Fetches Debian's kernel for the virtual machine; installs nothing.

The package is downloaded and unpacked once for each kernel version, into
${XDG_CACHE_HOME:-~/.cache}/vymkit-usb-vm/VERSION: the kernel as QEMU starts it fastest, and the
modules of a machine with virtual USB controllers, in loading order. Run as a program, it fetches
them if they are missing.
"""
import fcntl
import gzip
import lzma
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

METAPACKAGE = "linux-image-amd64"
# The modules that the guest needs; modprobe adds their dependencies.
MODULES = ["virtio_pci", "virtio_console", "usbcore", "usbmon", "dummy_hcd", "configfs",
           "libcomposite", "usb_f_fs", "usblp"]
XZ_MAGIC = bytes.fromhex("FD377A585A00")
FORMAT = "1"  # of a cache folder; raised when its layout changes


class Unavailable(Exception):
    """Says what is missing and what to do about it."""


def cache_root():
    base = os.environ.get("XDG_CACHE_HOME") or pathlib.Path.home() / ".cache"
    return pathlib.Path(base) / "vymkit-usb-vm"


def run(*command, **more):
    path = os.environ.get("PATH", "") + ":/usr/sbin:/sbin"  # not in every user's PATH
    return subprocess.run([str(word) for word in command], check=True, text=True,
                          capture_output=True, env={**os.environ, "PATH": path}, **more).stdout


def package_name(apt_options=()):
    """The real package behind the metapackage; None if apt does not know it."""
    listed = subprocess.run(["apt-cache", *apt_options, "depends", METAPACKAGE], text=True,
                            capture_output=True, check=False).stdout
    found = re.search(r"Depends: (linux-image-\S+)", listed)
    return found and found.group(1)


def private_lists(folder):
    """apt's options for private package lists, which need no root and change nothing else."""
    (folder / "lists" / "partial").mkdir(parents=True)
    options = ["-o", f"Dir::State::lists={folder}/lists", "-o", "Dir::Cache::pkgcache=",
               "-o", "Dir::Cache::srcpkgcache="]
    run("apt-get", *options, "update")
    return options


def download(folder):
    """Downloads the kernel's package; with fresh package lists if the present ones fail."""
    problem = f"apt does not know {METAPACKAGE}"
    for fresh in False, True:
        try:
            options = private_lists(folder) if fresh else []
            name = package_name(options)
            if name:
                run("apt-get", *options, "download", name, cwd=folder)
                return next(folder.glob("*.deb"))
        except subprocess.CalledProcessError as error:
            problem = error.stderr.strip().splitlines()[-1] if error.stderr.strip() else str(error)
    raise Unavailable(f"cannot download Debian's kernel: {problem}")


def extract_vmlinux(packed, target):
    """The kernel without its own unpacker starts 3 s earlier under QEMU."""
    image = packed.read_bytes()
    at = image.find(XZ_MAGIC)
    if at < 0:
        raise Unavailable(f"{packed.name} is not packed as expected")
    kernel = lzma.LZMADecompressor(format=lzma.FORMAT_XZ).decompress(image[at:])
    if not kernel.startswith(b"\x7fELF"):
        raise Unavailable(f"{packed.name} holds no kernel")
    target.write_bytes(kernel)


def module_files(tree, version):
    """All modules in loading order: the first mention of each wins."""
    run("depmod", "-b", tree, version)
    order = []
    for module in MODULES:
        for line in run("modprobe", "-d", tree, "-S", version, "--show-depends",
                        module).splitlines():
            kind, _, path = line.partition(" ")
            if kind == "insmod" and path.strip() not in order:
                order.append(path.strip())
    return order


def copy_module(path, target):
    """The guest's busybox loads plain modules only."""
    unpack = {".xz": lzma.open, ".gz": gzip.open}.get(path.suffix)
    if unpack is None:
        shutil.copyfile(path, target)
        return
    with unpack(path) as packed:
        target.write_bytes(packed.read())


def unpack(package, folder):
    tree = folder / "tree"
    run("dpkg-deb", "-x", package, tree)
    if (tree / "usr/lib/modules").exists() and not (tree / "lib").exists():
        (tree / "lib").symlink_to("usr/lib")
    version = next((tree / "lib/modules").iterdir()).name
    extract_vmlinux(tree / f"boot/vmlinuz-{version}", folder / "vmlinux")
    (folder / "modules").mkdir()
    for number, path in enumerate(module_files(tree, version)):
        name = pathlib.Path(path).name.partition(".")[0]
        copy_module(pathlib.Path(path), folder / "modules" / f"{number:02}-{name}.ko")
    shutil.rmtree(tree)
    package.unlink()
    return version


def newest(root):
    """The kernel folder that was made last; None if there is none."""
    folders = [path.parent for path in root.glob("*/format") if path.read_text() == FORMAT]
    return max(folders, key=lambda folder: folder.stat().st_mtime, default=None)


def prepare():
    """The folder with "vmlinux" and "modules/"; makes it if it is missing."""
    root = cache_root()
    root.mkdir(parents=True, exist_ok=True)
    with open(root / "lock", "w", encoding="ascii") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        if (folder := newest(root)):
            return folder
        for left in root.glob("new-*"):  # by an interrupted run
            shutil.rmtree(left)
        work = pathlib.Path(tempfile.mkdtemp(dir=root, prefix="new-"))
        version = unpack(download(work), work)
        shutil.rmtree(work / "lists", ignore_errors=True)
        (work / "format").write_text(FORMAT)
        shutil.rmtree(root / version, ignore_errors=True)
        return work.rename(root / version)


if __name__ == "__main__":
    try:
        print(prepare())
    except (Unavailable, OSError, subprocess.CalledProcessError) as failure:
        sys.exit(f"kernel.py: {failure}{getattr(failure, 'stderr', None) or ''}")
