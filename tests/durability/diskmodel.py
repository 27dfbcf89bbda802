"""What a disk may hold after a power cut, from the list of operations that faulty-disk writes.

A file keeps what was synced; of what was written since, nothing, everything or any part may be
there. A name keeps what its folder's last sync knew; the changes since are kept up to any of them,
in their order, as the journal of a file system does. A sync of a file does not sync its name.
"""
import os
import random

O_CREAT, O_TRUNC = 0o100, 0o1000


class Operation:
    def __init__(self, line, data):
        number, self.name, self.path, self.path2, offset, length, place, result, flags = line.rstrip("\n").split("\t")
        self.number, self.offset, self.length = int(number), int(offset), int(length)
        self.result, self.flags = int(result), int(flags)
        self.data = data[int(place) : int(place) + self.length] if self.name == "write" else b""

    def __str__(self):
        return f"{self.number} {self.name} {os.path.basename(self.path)} {os.path.basename(self.path2)}"


def read_operations(list_file, data_file=None):
    data = open(data_file, "rb").read() if data_file else b""
    with open(list_file, encoding="utf-8", errors="surrogateescape") as lines:
        return [Operation(line, data) for line in lines]


class File:
    """Its synced bytes, and what was done to them since: (offset, bytes), or (length, None) for a new length."""

    def __init__(self, synced=b""):
        self.synced = synced
        self.changes = []

    def content(self, keep=lambda: True):
        content = bytearray(self.synced)
        for offset, data in self.changes:
            if not keep():
                continue
            if data is None:
                content = content[:offset].ljust(offset, b"\0")
            else:
                content = content.ljust(offset, b"\0")
                content[offset : offset + len(data)] = data
        return bytes(content)

    def sync(self):
        self.synced, self.changes = self.content(), []


FOLDER = "a folder"


class Names:
    """Paths, each of a File or FOLDER."""

    def __init__(self, names=None):
        self.names = dict(names or {})

    def change(self, kind, path, path2, what):
        if kind == "add":
            self.names[path] = what
        elif kind == "remove":
            self.names.pop(path, None)
        elif kind == "link":
            if path in self.names:
                self.names[path2] = self.names[path]
        elif path in self.names and path != path2:
            if self.names[path] is not FOLDER and self.names.get(path2) is self.names[path]:
                return  # two names of one file: nothing is done
            self.names[path2] = self.names.pop(path)
            for below in [name for name in self.names if name.startswith(path + "/")]:
                self.names[path2 + below[len(path) :]] = self.names.pop(below)


class Disk:
    def __init__(self, root):
        self.root = root
        self.now = Names({root: FOLDER})
        for folder, folders, files in os.walk(root):
            for name in folders:
                self.now.names[os.path.join(folder, name)] = FOLDER
            for name in files:
                path = os.path.join(folder, name)
                self.now.names[path] = File(open(path, "rb").read())
        self.synced = Names(self.now.names)
        self.pending = []  # changes of names that no sync has reached: (kind, path, path2, file, folders left)

    def rename(self, kind, path, path2="", what=None):
        folders = {os.path.dirname(path2 or path)} | ({os.path.dirname(path)} if kind == "move" else set())
        self.now.change(kind, path, path2, what)
        self.pending.append((kind, path, path2, what, folders))

    def apply(self, operation):
        """Carries out an operation that has succeeded."""
        if operation.result < 0:
            return
        file = self.now.names.get(operation.path)
        if operation.name == "open":
            if file is None:
                self.rename("add", operation.path, what=File())
            elif operation.flags & O_TRUNC:
                file.changes.append((0, None))
        elif operation.name == "write" and file is not None:
            file.changes.append((operation.offset, operation.data[: operation.result]))
        elif operation.name == "truncate" and file is not None:
            file.changes.append((operation.length, None))
        elif operation.name == "sync":
            self.sync(operation.path, file)
        elif operation.name == "mkdir":
            self.rename("add", operation.path, what=FOLDER)
        elif operation.name in ("unlink", "rmdir"):
            self.rename("remove", operation.path)
        elif operation.name in ("rename", "link"):
            self.rename("move" if operation.name == "rename" else "link", operation.path, operation.path2)

    def sync(self, path, file):
        if isinstance(file, File):
            file.sync()
        if file is not FOLDER:
            return
        left = []
        for kind, first, second, what, folders in self.pending:
            folders.discard(path)
            if folders:
                left.append((kind, first, second, what, folders))
            else:
                self.synced.change(kind, first, second, what)
        self.pending = left

    def after_cut(self, seed):
        """Yields the possible contents, as {path: bytes, or None for a folder}."""
        chance = random.Random(seed)
        rules = [lambda: False, lambda: True, lambda: chance.random() < 0.5]
        for kept in range(len(self.pending) + 1):
            names = Names(self.synced.names)
            for kind, path, path2, what, _ in self.pending[:kept]:
                names.change(kind, path, path2, what)
            for rule in rules:
                contents = {}  # two names of one file have the same
                for path, file in names.names.items():
                    if file is not FOLDER and id(file) not in contents:
                        contents[id(file)] = file.content(rule)
                yield {path: None if file is FOLDER else contents[id(file)] for path, file in names.names.items()}
