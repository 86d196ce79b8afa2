#!/usr/bin/env python3
"""Keeps the floors: every include of the core points down, and the platform stays behind its door.

A file may include its own room and the rooms on floors below: never a neighbour on its floor, never
up. Pure interfaces (I*.h) and TRootObject.h are stairs, open to all. A public header belongs to the
room that defines it. Hosts, collectors and examples see the public headers and their own folder.
"""
import re
import subprocess
import sys
from pathlib import Path

FLOORS = {
    "core/base": 0,
    "model/datetime": 1,
    "platform": 2,
    "model": 3,
    "core/log": 3,
    "cimxml": 4,
    "identity": 4,
    "plugin": 5,
    "cinterface": 6,
    "core/startup": 7,
}
# Public headers whose room neither a source nor their folder tells.
HOMES = {"core/TLogRecord.h": "core/log", "vskplugin.h": "cinterface"}
STAIRS = re.compile(r"(^|/)(I[A-Z]\w*|TRootObject)\.h$")

STANDARD = set(
    """algorithm array atomic bitset cctype cerrno cfloat charconv chrono climits clocale cmath
    csignal cstdarg cstddef cstdint cstdio cstdlib cstring ctime deque exception filesystem fstream
    functional initializer_list iomanip ios iosfwd iostream istream iterator limits list locale map
    memory new numeric optional ostream queue set sstream stack stdexcept string string_view
    system_error tuple type_traits typeinfo typeindex unordered_map unordered_set utility variant
    vector stdint.h stddef.h""".split()
)
# Sources in C may name the C library's own.
C_LIBRARY = {"ctype.h", "errno.h", "inttypes.h", "limits.h", "stdio.h", "stdlib.h", "string.h"}
# What else each part of the tree may name in angle brackets.
FOREIGN = {
    "include": r"boost/shared_ptr\.hpp",
    "src": r"boost/.*|zlib\.h",
    "src/platform": r".*",
    "host": r"CLI/CLI\.hpp|nlohmann/json\.hpp",
    "collectors": r"$^",
    "examples": r"$^",
}
PLATFORM_TEST = re.compile(
    r"#\s*(el)?if.*\b(__linux__|__unix__|__APPLE__|_WIN32|_MSC_VER|__FreeBSD__)\b"
)
INCLUDE = re.compile(r'^\s*#\s*include\s+([<"])([^>"]+)[>"]', re.M)

root = Path(__file__).resolve().parent.parent
faults = []


def tracked():
    listed = subprocess.run(
        ["git", "-C", root, "ls-files", "-co", "--exclude-standard"],
        check=True, capture_output=True, text=True).stdout.split("\n")
    return [name for name in listed if name.endswith((".h", ".cpp", ".c"))]


def longest_room(path):
    """The room of a path like model/datetime/X.h; None for the header that gathers all others."""
    rooms = [room for room in FLOORS if path.startswith(room + "/")]
    return max(rooms, key=len, default=None)


def public_room(path, sources):
    """A header counts to the room of its source; else to that of its folder."""
    if path in HOMES:
        return HOMES[path]
    stem = Path(path).stem
    if stem in sources:
        return sources[stem]
    folder = "core/base" if path.startswith("core/") else path
    return longest_room(folder + "/" if folder in FLOORS else folder)


def fault(name, text):
    faults.append(f"{name}: {text}")


def check_floor(name, own, target, room):
    if room is None:
        fault(name, f"{target} belongs to no room")
    elif own is None:
        fault(name, "belongs to no room")
    elif room != own and FLOORS[room] >= FLOORS[own]:
        fault(name, f"{own} (floor {FLOORS[own]}) includes {target} of {room} "
                    f"(floor {FLOORS[room]})")


def check_core(name, own, bracket, target, sources):
    if STAIRS.search(target):
        return
    if target.startswith("vskcore/"):
        check_floor(name, own, target, public_room(target.removeprefix("vskcore/"), sources))
    elif bracket == '"':
        check_floor(name, own, target, longest_room(target))


def check_foreign(name, area, target):
    allowed = FOREIGN["src/platform" if name.startswith("src/platform/") else area]
    standard = STANDARD | C_LIBRARY if name.endswith(".c") else STANDARD
    if target not in standard and not re.fullmatch(allowed, target):
        fault(name, f"<{target}> is not for {area}/")


def check_outer(name, area, bracket, target):
    """Own includes stay in the folder, under the paths that the build gives."""
    if bracket == '"':
        candidates = [root / area / target, (root / name).parent / target]
        if not any(path.is_file() and path.resolve().is_relative_to(root / area)
                   for path in candidates):
            fault(name, f'"{target}" is not of {area}/')


def main():
    names = tracked()
    sources = {Path(n).stem: longest_room(n.removeprefix("src/"))
               for n in names if n.startswith("src/") and n.endswith(".cpp")}
    # Defined in several places, each accessor beside the object that it hands out.
    sources.pop("TRootObject", None)
    for name in names:
        area = name.split("/")[0]
        if area not in FOREIGN or name == "include/vskcore/vskcore.h":
            continue
        text = (root / name).read_text(encoding="utf-8")
        if not name.startswith("src/platform/") and PLATFORM_TEST.search(text):
            fault(name, "tests for a platform")
        inside = name.removeprefix("src/").removeprefix("include/vskcore/")
        own = None
        if area == "src":
            own = longest_room(inside)
        elif area == "include":
            own = public_room(inside, sources)
        for bracket, target in INCLUDE.findall(text):
            if bracket == "<" and not target.startswith("vskcore/"):
                check_foreign(name, area, target)
            elif area in ("src", "include"):
                check_core(name, own, bracket, target, sources)
            else:
                check_outer(name, area, bracket, target)
    for line in faults:
        print(line, file=sys.stderr)
    return 1 if faults else 0


sys.exit(main())
