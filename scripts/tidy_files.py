"""Prints the source files that clang-tidy is to read, one a line; see scripts/tidy for the arguments."""

import pathlib
import re
import subprocess
import sys

FOLDERS = ("src", "tests", "bench", "fuzz", "tools")
INCLUDE = re.compile(r'^\s*#include "([^"]+)"', re.MULTILINE)


def git(*arguments):
    return subprocess.run(["git", *arguments], check=True, capture_output=True, text=True).stdout


def paths(lines):
    return [pathlib.PurePosixPath(line) for line in lines.splitlines() if line]


def all_files():
    return [path for path in paths(git("ls-files", *FOLDERS)) if path.suffix in (".cpp", ".h")]


def including(files):
    """For each file the files that include it, by the folders in which the build looks for headers."""
    known = set(files)
    found = {path: [] for path in files}
    for path in files:
        for name in INCLUDE.findall(pathlib.Path(path).read_text(encoding="utf-8")):
            for place in (path.parent / name, pathlib.PurePosixPath("src") / name, pathlib.PurePosixPath("tests") / name):
                if place in known:
                    found[place].append(path)
    return found


def affected(changed, users):
    """The changed files first, then what includes them, the nearest first."""
    reached = [path for path in changed if path in users]
    known = set(reached)
    for path in reached:
        for user in users[path]:
            if user not in known:
                known.add(user)
                reached.append(user)
    return [path for path in reached if path.suffix == ".cpp"]


def changes():
    """What isn't committed yet, then the commits from the newest back. A merge counts as the change that it was
    for its first parent. The last commit of a shallow clone, as it knows no parent, changes everything."""
    yield "what isn't committed", paths(git("diff", "--name-only", "--diff-filter=d", "HEAD"))
    log = git("log", "--first-parent", "-m", "--name-only", "--no-renames", "--diff-filter=d", "--format=%x00%h")
    for commit in log.split("\0")[1:]:
        name, _, changed = commit.partition("\n")
        yield name, paths(changed)


def latest(most, files):
    """As many as were touched last: a change that lands is read, however many commits it came in, and the time
    that this takes has its bound."""
    users = including(files)
    chosen = {}
    for name, changed in changes():
        new = [path for path in affected(changed, users) if path not in chosen]
        room = most - len(chosen)
        chosen.update(dict.fromkeys(new[:room]))
        if len(new) >= room:
            part = f"{min(room, len(new))} of its {len(new)} files"
            print(f"clang-tidy: back to {name}, {part}", file=sys.stderr)
            break
    return chosen


def main(arguments):
    files = all_files()
    if arguments[:1] == ["--since"]:
        chosen = affected(paths(git("diff", "--name-only", "--diff-filter=d", arguments[1])), including(files))
    elif arguments[:1] == ["--latest"]:
        chosen = latest(int(arguments[1]), files)
    else:
        chosen = [pathlib.PurePosixPath(name) for name in arguments] or files
    for path in sorted(chosen):
        if path.suffix == ".cpp":
            print(path)


main(sys.argv[1:])
