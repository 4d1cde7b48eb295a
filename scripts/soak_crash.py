"""Kills a program that saves without end, again and again, and fills up its disk.

Usage: soak_crash.py <tavimo_soak> <kills>
After each kill the next start must find the words of the last save that had ended, or of the one that was going on.
"""

import pathlib
import random
import subprocess
import sys
import tempfile
import time


def words(line):
    kind, number = line.split()
    return kind, int(number)


def kill_again_and_again(program, folder, kills):
    allowed, lost, finished = {-1}, 0, 0
    for number in range(kills + 1):
        process = subprocess.Popen([program, folder], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        if number == kills:
            time.sleep(1)
        else:
            time.sleep(0.02 + random.random() * 0.25)
        process.kill()
        output, errors = process.communicate()
        finished += "finished the write" in errors
        for line in output.splitlines(keepends=True):
            if not line.endswith("\n"):
                continue
            kind, count = words(line)
            if kind == "found":
                if count not in allowed:
                    lost += 1
                    print(f"kill {number}: found {count}, expected one of {sorted(allowed)}")
                allowed = {count}
            elif kind == "saving":
                allowed.add(count)
            elif kind == "saved":
                allowed = {count}
            else:
                print(f"kill {number}: {line.strip()}")
    print(f"{kills} kills: {lost} times neither the words before nor after; {finished} torn writes finished")
    return lost


def fill_up(program, folder):
    """On a disk without room a save fails, and the file stays as it was."""
    image = pathlib.Path(folder) / "disk"
    mount = pathlib.Path(folder) / "mount"
    mount.mkdir()
    with open(image, "wb") as file:
        file.truncate(8 << 20)
    subprocess.run(["mkfs.ext4", "-q", image], check=True)
    if subprocess.run(["mount", "-o", "loop", image, mount]).returncode != 0:
        print("full disk: not tried, as no image can be mounted here")
        return 0
    try:
        subprocess.run([program, mount, "2000"], check=True, capture_output=True)
        with open(mount / "filler", "wb", buffering=0) as filler:
            size = 1 << 20
            while size:
                try:
                    filler.write(b"x" * size)
                except OSError:
                    size //= 2
        lost = 0
        for count in ("30000", "2001", "1"):
            output = subprocess.run([program, mount, count], check=True, capture_output=True, text=True).stdout
            lines = [words(line) for line in output.splitlines()]
            before, after = lines[0][1], lines[-1][1]
            hasFailed = ("failed", int(count)) in lines
            expected = before if hasFailed else int(count)
            lost += after != expected
            print(f"full disk: {before} words, saving {count}: {lines[2][0]}, found {after}")
        return lost
    finally:
        subprocess.run(["umount", mount], check=True)


with tempfile.TemporaryDirectory() as scratch:
    losses = kill_again_and_again(sys.argv[1], scratch, int(sys.argv[2]))
    losses += fill_up(sys.argv[1], scratch)
sys.exit(losses != 0)
