#!/usr/bin/env python3
"""Fails on code that goes past the table of settings.

A key has its type, default and owner in app/ground/SettingsTable.h, which the compiler holds everybody to. That is
worth nothing if the store below is used by itself, or if two entries share a key.
Usage: check_settings.py <root of the source>
"""

import pathlib
import re
import sys

COMMENT = re.compile(r"//[^\n]*|/\*.*?\*/", re.DOTALL)
# Registering defaults, writing out and the file's state concern no single key.
STORE = re.compile(r"\bQSettings\b|\bservices\(\)\s*\.\s*settings\b"
                   r"|\bplatform::Settings\s*[&*]"
                   r"|\bsettings\(\)(?!\s*\.\s*(?:registerDefaults|synchronize|state)\()")
KEY = re.compile(r'"([^"]*)"_L1[,)]')


def check_store(src):
    for path in sorted(src.rglob("*")):
        name = path.relative_to(src)
        if path.suffix not in (".h", ".cpp") or name.parts[0] == "platform":
            continue
        if name.as_posix() == "app/ground/Setting.h":
            continue
        for use in STORE.findall(COMMENT.sub("", path.read_text())):
            yield f"{name}: {use}: go through a setting of app/ground/SettingsTable.h"


def main():
    src = pathlib.Path(sys.argv[1]) / "src"
    keys = KEY.findall((src / "app/ground/SettingsTable.h").read_text())
    faults = [*check_store(src), *(f"the key {key} stands twice" for key in sorted(set(keys)) if keys.count(key) > 1)]
    print("\n".join(faults) or f"{len(keys)} settings, each reached by its entry alone")
    return not keys or bool(faults)


if __name__ == "__main__":
    sys.exit(main())
