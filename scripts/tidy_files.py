"""Prints the source files that clang-tidy is to read, one a line; see scripts/tidy for the arguments."""

import pathlib
import re
import subprocess
import sys

FOLDERS = ("src", "tests", "bench", "tools")
INCLUDE = re.compile(r'^\s*#include "([^"]+)"', re.MULTILINE)


def git_files(*arguments):
    lines = subprocess.run(["git", *arguments], check=True, capture_output=True, text=True).stdout
    return [pathlib.PurePosixPath(line) for line in lines.splitlines()]


def all_files():
    return [path for path in git_files("ls-files", *FOLDERS) if path.suffix in (".cpp", ".h")]


def including(files):
    """For each file the files that include it, by the folders in which the build looks for headers."""
    known = set(files)
    found = {path: set() for path in files}
    for path in files:
        for name in INCLUDE.findall(pathlib.Path(path).read_text(encoding="utf-8")):
            for place in (path.parent / name, pathlib.PurePosixPath("src") / name, pathlib.PurePosixPath("tests") / name):
                if place in known:
                    found[place].add(path)
    return found


def affected(changed, files):
    users = including(files)
    reached, waiting = set(), [path for path in changed if path in users]
    while waiting:
        path = waiting.pop()
        if path not in reached:
            reached.add(path)
            waiting.extend(users[path])
    return reached


def main(arguments):
    files = all_files()
    if arguments[:1] == ["--since"]:
        changed = git_files("diff", "--name-only", "--diff-filter=d", arguments[1])
        chosen = affected(changed, files)
    elif arguments:
        chosen = {pathlib.PurePosixPath(name) for name in arguments}
    else:
        chosen = set(files)
    for path in sorted(chosen):
        if path.suffix == ".cpp":
            print(path)


main(sys.argv[1:])
