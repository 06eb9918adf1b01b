#!/usr/bin/python3
"""A person without a mouse opens a picture, chooses an effect, sets its number, applies it, paints and saves.
Run as by_keys.py KELU FOLDER-OF-PICTURES [FOLDER-FOR-SCREENSHOTS]; 77 where no display can be had. SPDX-License-Identifier: MIT"""
import os
import shutil
import subprocess
import sys
import time

from private_session import run_in_private_session

WAIT = 30  # seconds for anything


def keys(*names):
    for name in names:
        subprocess.run(["xdotool", "key", "--clearmodifiers", name], check=True)
        time.sleep(0.15)


def write(text):
    subprocess.run(["xdotool", "type", "--delay", "30", text], check=True)
    time.sleep(0.3)


def windows():
    found = subprocess.run(["xdotool", "search", "--onlyvisible", "--class", "kelu"], capture_output=True, text=True)
    return {subprocess.run(["xdotool", "getwindowname", each], capture_output=True, text=True).stdout.strip()
            for each in found.stdout.split()}


def wait_for(condition, what):
    end = time.monotonic() + WAIT
    while time.monotonic() < end:
        if condition():
            time.sleep(0.5)
            return
        time.sleep(0.2)
    raise RuntimeError(f"never came: {what}; windows: {windows()}")


def main():
    kelu, gallery = sys.argv[1:3]
    shots = sys.argv[3] if len(sys.argv) > 3 else None
    home = os.environ["KELU_PRIVATE_SESSION"]
    shutil.copy(os.path.join(gallery, "cat.jpg"), home)
    steps = iter(range(1, 100))

    def shot(name):
        if shots:
            path = os.path.join(shots, f"{next(steps):02}-{name}.png")
            subprocess.run(["import", "-window", "root", path], check=True)

    program = subprocess.Popen([kelu])
    saved = os.path.join(home, "painted.png")
    try:
        wait_for(lambda: "Kelu" in windows(), "the window")
        time.sleep(5)  # the splash, and what may be told after it
        keys("Escape", "Escape")
        keys("ctrl+o")
        wait_for(lambda: "Open" in windows(), "the open dialog")
        keys("ctrl+l")
        write(os.path.join(home, "cat.jpg") + "\n")
        # Once the folder is read the picture is chosen, and Enter opens it.
        wait_for(lambda: time.sleep(1) or "Open" not in windows() or keys("Return"), "the picture")
        shot("opened")
        keys("Tab", "Tab")  # from the picture past the overview to the effects
        write("Oil")
        keys("Return")
        time.sleep(1)
        shot("chosen")
        keys("Tab", "Tab")  # brush size, radius
        keys("Return")
        write("9")
        shot("number")
        keys("Return")
        keys("Tab", "Return")  # Apply
        time.sleep(3)
        shot("applied")
        keys("Return")  # the reminder
        keys(*["shift+Tab"] * 5)  # back to the picture
        for _ in range(3):
            keys("shift+Left")
        subprocess.run(["xdotool", "keydown", "space"], check=True)
        for _ in range(12):
            keys("shift+Right")
        subprocess.run(["xdotool", "keyup", "space"], check=True)
        time.sleep(1)
        shot("painted")
        keys("ctrl+s")
        wait_for(lambda: "Save" in windows(), "the save dialog")
        keys("ctrl+a")
        write(saved + "\n")
        wait_for(lambda: os.path.exists(saved) or time.sleep(2) or "Save" in windows() and keys("Return"), "the saved picture")
        shot("saved")
    finally:
        program.terminate()
        program.wait()
    changed = subprocess.run(["compare", "-metric", "AE", "-fuzz", "3%", os.path.join(home, "cat.jpg"), saved, "null:"],
                             capture_output=True, text=True).stderr
    print("changed pixels:", changed)
    return 0 if 500 < float(changed) < 100000 else 1


if __name__ == "__main__":
    sys.exit(run_in_private_session(main, "compare"))
