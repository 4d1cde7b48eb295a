#!/usr/bin/env python3
"""Fails on code that reaches upwards in the house.

The floors are the folders in src/CMakeLists.txt, in that order; those inside its if(TAVIMO_GUI) may use widgets.
A file includes, and a target links, only what stands above its own floor in that list. The README shows the same
list. Usage: check_floors.py <root of the source>
"""

import pathlib
import re
import sys

COMMENT = re.compile(r"//[^\n]*|/\*.*?\*/", re.DOTALL)
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*["<]([^">]+)[">]', re.MULTILINE)
README_ROW = re.compile(r"^\|(?P<floors>[^|]*`[^|]*)\|[^|]*\|(?P<widgets>[^|]*)\|$", re.MULTILINE)


def read_floors(src):
    """The folders in order, each with whether it may use widgets."""
    floors, is_gui = [], False
    for line in (src / "CMakeLists.txt").read_text().splitlines():
        if line.startswith("if(TAVIMO_GUI)"):
            is_gui = True
        elif line.startswith("endif()"):
            is_gui = False
        elif match := re.match(r"\s*add_subdirectory\(([\w/]+)\)", line):
            floors.append((match.group(1), is_gui))
    return floors


def check_includes(src, ranks):
    for path in sorted(src.rglob("*")):
        if path.suffix not in (".h", ".cpp"):
            continue
        name = path.relative_to(src)
        own = name.parent.as_posix()
        if own not in ranks:
            yield f"{name}: the folder is no floor of src/CMakeLists.txt"
            continue
        for target in INCLUDE.findall(COMMENT.sub("", path.read_text())):
            if "/" not in target:
                if (path.parent / target).exists():
                    yield f'{name}: include "{own}/{target}" by its whole path'
                continue
            if not (src / target.split("/")[0]).is_dir():
                continue  # of a library
            floor = pathlib.PurePosixPath(target).parent.as_posix()
            if floor not in ranks:
                yield f'{name}: "{target}" is on no floor'
            elif ranks[floor] > ranks[own]:
                yield f"{name}: {own}/ must not know {floor}/, which stands below it in the list"


def check_links(src, floors, ranks):
    libraries = {}
    for floor, is_gui in floors:
        text = (src / floor / "CMakeLists.txt").read_text()
        match = re.search(r"tavimo_library\((\w+)(\s+WIDGETS)?.*?(?:LINK([^)]*))?\)", text, re.DOTALL)
        if not match:
            yield f"src/{floor}/CMakeLists.txt: no library"
            continue
        if bool(match.group(2)) != is_gui:
            yield f"src/{floor}/CMakeLists.txt: WIDGETS differs from the list in src/CMakeLists.txt"
        libraries[match.group(1)] = (floor, (match.group(3) or "").split())
    for floor, links in libraries.values():
        for link in links:
            if link in libraries and ranks[libraries[link][0]] >= ranks[floor]:
                yield f"src/{floor}/CMakeLists.txt: links {link}, which stands below it in the list"


def check_readme(root, floors):
    shown = []
    for row in README_ROW.finditer((root / "README.md").read_text()):
        for floor in re.findall(r"`([\w/]+)/`", row.group("floors")):
            shown.append((floor, bool(row.group("widgets").strip())))
    if shown != floors:
        yield "README.md: its list of floors differs from src/CMakeLists.txt:"
        for present, listed in zip(shown + [None] * len(floors), floors + [None] * len(shown)):
            if present != listed:
                yield f"  shown {present}, listed {listed}"
                break


def main():
    root = pathlib.Path(sys.argv[1])
    floors = read_floors(root / "src")
    ranks = {floor: rank for rank, (floor, _) in enumerate(floors)}
    faults = [*check_includes(root / "src", ranks), *check_links(root / "src", floors, ranks),
              *check_readme(root, floors)]
    print("\n".join(faults) or f"{len(floors)} floors, each on top of the ones before")
    return bool(faults)


if __name__ == "__main__":
    sys.exit(main())
