# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""The walls of the house: which file may include which, read from the sources and from the table in `rooms`.

Each check answers with a list of sentences, one a fault; an empty list says that the wall holds."""
import collections
import pathlib
import re
import subprocess

SOURCES = (".h", ".cpp", ".mm")
INCLUDE = re.compile(r'^\s*#\s*(?:include|import)\s*(["<])([^">]+)[">]', re.M)
CONDITION = re.compile(r"^\s*#\s*(?:if|ifdef|ifndef|elif)\b.*"
                       r"(?:__linux__|__linux|__APPLE__|__MACH__|__unix__|_WIN32|TARGET_OS_|Q_OS_|__FreeBSD__)", re.M)
ROOMS_THAT_CHOOSE = ("platform", "tray", "layer_shell", "tests")  # with all below them


class House:
    """The sources under a folder: `files` maps each path to its text."""

    def __init__(self, folder, files=None):
        self.folder = pathlib.Path(folder)
        names = files if files is not None else tracked_files(self.folder)
        self.files = {name: (self.folder / name).read_text() for name in names if name.endswith(SOURCES)}
        self.table, self.without_qt = read_table((self.folder / "tests/walls/rooms").read_text())
        self.logic = logic_components((self.folder / "orrinvale/CMakeLists.txt").read_text())

    def room_of(self, path):
        """The room that a file stands in, or None for a folder that the table does not know."""
        folder, name = path.rsplit("/", 1) if "/" in path else ("", path)
        if folder == "orrinvale":
            return self.room_in_application(path, name.rsplit(".", 1)[0])
        if folder.startswith("tests"):
            return "tests"
        return folder if folder in self.table else None

    def room_in_application(self, path, component):
        if component == "main":
            return "main"
        if component in self.logic:
            return "logic"
        is_alone = path.endswith(".h") and path[:-2] + ".cpp" not in self.files
        knows_qt = any(is_qt(*include) for include in INCLUDE.findall(self.files[path]))
        knows_kit = '"kit/' in self.files[path]
        return "logic" if is_alone and not knows_qt and not knows_kit else "interface"

    def includes(self, path):
        """The files of ours that a file includes."""
        return [name for quote, name in INCLUDE.findall(self.files[path]) if name in self.files]


def tracked_files(folder):
    listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"], cwd=folder,
                            check=True, capture_output=True, text=True).stdout
    return [name for name in listed.split("\0") if name and (folder / name).is_file()]


def read_table(text):
    table, without_qt = {}, set()
    room = None
    for line in text.splitlines():
        line = line.split("#")[0].rstrip()
        if ":" in line:
            head, allowed = line.split(":")
            room = head.removeprefix("no Qt").strip()
            if head.startswith("no Qt"):
                without_qt.add(room)
            table[room] = set(allowed.split())
        elif line:
            table[room] |= set(line.split())
    return table, without_qt


def logic_components(cmake):
    listed = re.search(r"add_library\(orrinvale_logic STATIC(.*?)\)", cmake, re.S).group(1)
    return {name.removesuffix(".cpp") for name in listed.split()}


def is_qt(quote, name):
    return quote == "<" and re.match(r"Q[A-Za-z]+(/|$)|qt?[a-z]+\.h$|private/q|qpa/", name) is not None


def component(path):
    return path.rsplit(".", 1)[0]


def unknown_folders(house):
    return [f"{path}: no room of this name is in tests/walls/rooms" for path in house.files if not house.room_of(path)]


def forbidden_includes(house):
    faults = []
    for path in house.files:
        room = house.room_of(path)
        if not room:
            continue
        for other in house.includes(path):
            there = house.room_of(other)
            if there != room and there not in house.table[room] and other not in house.table[room]:
                faults.append(f"{path} ({room}) may not include {other} ({there})")
    return faults


def qt_in_rooms_without(house):
    return [f"{path}: <{name}> is Qt, which {house.room_of(path)} does not know" for path in house.files
            if house.room_of(path) in house.without_qt
            for quote, name in INCLUDE.findall(house.files[path]) if is_qt(quote, name)]


def operating_systems(house):
    return [f"{path}: only {', '.join(ROOMS_THAT_CHOOSE)} may ask for the operating system" for path in house.files
            if path.split("/")[0] not in ROOMS_THAT_CHOOSE and CONDITION.search(house.files[path])]


def circles(house):
    """Components that include one another; a component is a header with its source."""
    graph = collections.defaultdict(set)
    for path in house.files:
        graph[component(path)] |= {component(other) for other in house.includes(path)} - {component(path)}
    faults, done = [], set()
    for start in sorted(graph):
        found = circle_from(graph, start, done)
        if found:
            faults.append(" -> ".join(found))
    return faults


def circle_from(graph, start, done):
    if start in done:
        return None
    trail, stack = [start], [(start, iter(sorted(graph[start])))]
    while stack:
        node, others = stack[-1]
        other = next(others, None)
        if other is None:
            stack.pop()
            done.add(trail.pop())
        elif other in trail:
            done.update(trail)
            return trail[trail.index(other):] + [other]
        elif other not in done:
            trail.append(other)
            stack.append((other, iter(sorted(graph[other]))))
    return None


def headers_behind_others(house):
    """A source that includes its own header first shows that the header compiles by itself. Headers without a source
    are compiled alone by this folder's CMakeLists.txt."""
    faults = []
    for path in house.files:
        own = component(path) + ".h"
        first = INCLUDE.search(house.files[path])
        if not path.endswith(".h") and own in house.files and (not first or first.group(2) != own):
            faults.append(f"{path}: its own header must be its first include")
    return faults


CHECKS = (unknown_folders, forbidden_includes, qt_in_rooms_without, operating_systems, circles, headers_behind_others)
