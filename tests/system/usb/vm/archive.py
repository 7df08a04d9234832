# SPDX-License-Identifier: MIT
"""A cpio archive in the format of the kernel's initial file system."""
import os
import pathlib
import stat

NAME_LIMIT = 4096  # the kernel's


class Archive:
    """Collects files, links and the folders above them, everything owned by root."""

    def __init__(self):
        self._parts = []
        self._names = set()

    def folder(self, path, mode=0o755):
        path = pathlib.PurePosixPath("/", path)
        if path != path.parent:
            self.folder(path.parent)
            self._add(path, stat.S_IFDIR | mode, b"")

    def file(self, path, content, mode=0o644):
        self._place(path, stat.S_IFREG | mode, content)

    def link(self, path, target):
        self._place(path, stat.S_IFLNK | 0o777, os.fsencode(target))

    def copy(self, source, path=None):
        """Adds a file of this machine, with links followed, under its own path or another."""
        source = pathlib.Path(source)
        mode = 0o755 if os.access(source, os.X_OK) else 0o644
        self.file(path or source.absolute(), source.read_bytes(), mode)

    def bytes(self):
        return b"".join(self._parts) + self._entry("TRAILER!!!", 0, b"")

    def _place(self, path, mode, content):
        self.folder(pathlib.PurePosixPath("/", path).parent)
        self._add(pathlib.PurePosixPath("/", path), mode, content)

    def _add(self, path, mode, content):
        name = str(path).lstrip("/")
        if name not in self._names:
            self._names.add(name)
            self._parts.append(self._entry(name, mode, content))

    def _entry(self, name, mode, content):
        packed = os.fsencode(name) + b"\0"
        assert len(packed) <= NAME_LIMIT
        fields = [len(self._names), mode, 0, 0, 1, 0, len(content), 0, 0, 0, 0, len(packed), 0]
        head = b"070701" + b"".join(b"%08X" % field for field in fields) + packed
        return self._padded(head) + self._padded(content)

    @staticmethod
    def _padded(part):
        return part + b"\0" * (-len(part) % 4)
