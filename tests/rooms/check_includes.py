#!/usr/bin/env python3
"""Checks that the library's includes point down only, by the order of rooms in rooms.txt.

usage: check_includes.py [ROOT]

Reads the #include lines of all sources and headers in the rooms' folders and in include/. Fails on
an include of a room that the file's own does not know, on a header from outside that its room may
not have, on headers that include each other in a circle, on files and public headers without a
room, and on public headers and upward calls that rooms.txt names and nobody has.
"""

import fnmatch
import pathlib
import re
import sys

INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>|(\w+))')


class Rooms:
    def __init__(self, path):
        self.known = {}  # room: all rooms that it knows, itself included
        self.headers = {}  # public header, as a path: its room
        self.outside = {}  # room: patterns
        self.upward = set()  # (file, public header)
        for number, line in enumerate(path.read_text().splitlines(), 1):
            line = line.split('#')[0].strip()
            if line:
                try:
                    head, names = line.split(':')
                    kind, subject = head.split()
                    getattr(self, 'add_' + kind)(subject, names.split())
                except (ValueError, AttributeError, KeyError) as error:
                    sys.exit(f'{path}:{number}: cannot be read: {error!r}')

    def add_room(self, room, below):
        self.known[room] = {room}.union(*(self.known[name] for name in below))

    def add_headers(self, room, names):
        assert room in self.known, room
        self.headers.update({'include/' + name: room for name in names})

    def add_outside(self, room, patterns):
        self.outside.setdefault(room, []).extend(patterns)

    def add_upward(self, file, names):
        self.upward.update((file, 'include/' + name) for name in names)

    def room_of(self, file):
        """A public header's room, else the deepest one that the file lies in."""
        folders = [str(folder) for folder in pathlib.PurePath(file).parents]
        return self.headers.get(file) or next((each for each in folders if each in self.known), None)


def includes_of(path):
    for number, line in enumerate(path.read_text(encoding='utf-8').splitlines(), 1):
        if match := INCLUDE.match(line):
            yield number, next(name for name in match.groups() if name)


def library_files(root, rooms):
    tops = sorted({room.split('/')[0] for room in rooms.known} | {'include'})
    for top in tops:
        for path in sorted((root / top).rglob('*')):
            if path.suffix in ('.h', '.cpp'):
                yield path.relative_to(root).as_posix()


def circles(graph):
    """The includes that close a circle, as (file, header)."""
    open_files, done, found = [], set(), []

    def visit(file):
        open_files.append(file)
        for header in graph[file]:
            if header in open_files:
                found.append((file, header))
            elif header not in done:
                visit(header)
        done.add(open_files.pop())

    for file in graph:
        if file not in done:
            visit(file)
    return found


def resolve(file, name, files):
    """The library's file that is included, or None: beside the file, by its room, or public."""
    beside = (pathlib.PurePath(file).parent / name).as_posix()
    return next((path for path in (beside, name, 'include/' + name) if path in files), None)


def is_standard(name):
    return '/' not in name and not name.endswith(('.h', '_H'))


def check(root, rooms):
    faults = []
    used = set()
    graph = {file: [] for file in library_files(root, rooms)}
    for file in graph:
        room = rooms.room_of(file)
        if room is None:
            faults.append(f'{file}: belongs to no room')
            continue
        for number, name in includes_of(root / file):
            fault = f'{file}:{number}: {room} may not include {name}'
            if path := resolve(file, name, graph):
                graph[file].append(path)
                if (file, path) in rooms.upward:
                    used.add((file, path))
                elif rooms.room_of(path) not in rooms.known[room]:
                    faults.append(f'{fault} of {rooms.room_of(path)}')
            elif not is_standard(name):
                patterns = rooms.outside.get(room, [])
                if not any(fnmatch.fnmatch(name, pattern) for pattern in patterns):
                    faults.append(fault)
    faults += [f'{file}: {header} closes a circle' for file, header in circles(graph)]
    faults += [f'{file}: includes no {header} any more' for file, header in rooms.upward - used]
    faults += [f'{header}: is not there' for header in rooms.headers if header not in graph]
    return len(graph), faults


def main():
    here = pathlib.Path(__file__).resolve().parent
    root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else here.parent.parent)
    rooms = Rooms(here / 'rooms.txt')
    count, faults = check(root, rooms)
    print('\n'.join(faults) or f'{count} files in {len(rooms.known)} rooms: includes point down')
    return 1 if faults or not count else 0


if __name__ == '__main__':
    sys.exit(main())
