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


def picture_of_screen():
    return hash(subprocess.run(["xwd", "-silent", "-root"], capture_output=True).stdout)


def settle():
    """Until the screen stands still: what was asked for has happened."""
    before, end = None, time.monotonic() + WAIT
    while time.monotonic() < end:
        time.sleep(0.1)
        now = picture_of_screen()
        if now == before:
            return
        before = now


def keys(*names):
    subprocess.run(["xdotool", "key", "--delay", "30", *names], check=True)
    settle()


def write(text):
    subprocess.run(["xdotool", "type", "--delay", "20", text], check=True)
    settle()


def windows():
    """Their titles; a message has the window's title and counts beside it."""
    found = subprocess.run(["xdotool", "search", "--onlyvisible", "--class", "kelu"], capture_output=True, text=True)
    return sorted(subprocess.run(["xdotool", "getwindowname", each], capture_output=True, text=True).stdout.strip()
                  for each in found.stdout.split())


def comes(condition, patience):
    end = time.monotonic() + patience
    while not condition():
        if time.monotonic() > end:
            return False
        time.sleep(0.05)
    return True


def wait_for(condition, what):
    if not comes(condition, WAIT):
        raise RuntimeError(f"never came: {what}; windows: {windows()}")
    settle()


def press_until(condition, what):
    """Enter, again where the first one only chose."""
    wait_for(lambda: comes(condition, 1) or keys("Return"), what)


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
        comes(lambda: "Kelu" in windows(), WAIT)
        keys("Escape")  # the splash
        comes(lambda: "Error" in windows(), 3)  # there is no camera
        keys("Escape")
        keys("ctrl+o")
        wait_for(lambda: "Open" in windows(), "the open dialog")
        keys("ctrl+l")
        write(os.path.join(home, "cat.jpg") + "\n")
        press_until(lambda: "Open" not in windows(), "the picture")
        shot("opened")
        keys("Tab", "Tab")  # from the picture past the overview to the effects
        write("Oil")
        keys("Return")
        shot("chosen")
        keys("Tab", "Tab")  # brush size, radius
        keys("Return")
        write("9")
        shot("number")
        keys("Return")
        keys("Tab", "Return")  # Apply
        wait_for(lambda: len(windows()) == 2, "the reminder")
        shot("applied")
        keys("Return")
        keys(*["shift+Tab"] * 5)  # back to the picture
        keys(*["shift+Left"] * 3)
        subprocess.run(["xdotool", "keydown", "space"], check=True)
        keys(*["shift+Right"] * 12)
        subprocess.run(["xdotool", "keyup", "space"], check=True)
        settle()
        shot("painted")
        keys("ctrl+s")
        wait_for(lambda: "Save" in windows(), "the save dialog")
        shot("saving")
        keys("ctrl+a")
        write(saved + "\n")
        press_until(lambda: os.path.exists(saved), "the saved picture")
        shot("saved")
    finally:
        program.terminate()
        program.wait()
    changed = subprocess.run(["compare", "-metric", "AE", "-fuzz", "3%", os.path.join(home, "cat.jpg"), saved, "null:"],
                             capture_output=True, text=True).stderr.split()[0]  # the count; newer versions tell its share beside it
    print("changed pixels:", changed)
    return 0 if 500 < float(changed) < 100000 else 1


if __name__ == "__main__":
    sys.exit(run_in_private_session(main, "compare", "xwd"))
