#!/usr/bin/python3
"""A person without a mouse opens a picture, chooses an effect, sets its number, applies it, paints and saves; then keeps a
password and pastes a picture. What the program leaves is listed at the end of each session, the second of which is killed.
Run as by_keys.py KELU FOLDER-OF-PICTURES [FOLDER-FOR-SCREENSHOTS]; 77 where no display can be had. SPDX-License-Identifier: MIT"""
import os
import pathlib
import shutil
import subprocess
import sys
import time

from private_session import run_in_private_session

WAIT = 30  # seconds for anything
PASSWORD = "Zwetschge"  # short enough to be kept in the settings

# Every file and folder that a session may leave (docs/reliability.md), with its mode where new files are for all to read.
MODES = """
d700 run tmp config config/Tarvane config/Tarvane/Kelu
d700 .local .local/share .local/state .local/state/Tarvane .local/state/Tarvane/Kelu
d700 .cache .cache/Tarvane .cache/Tarvane/Kelu .cache/Tarvane/Kelu/Temp .cache/thumbnails .cache/thumbnails/*
d755 .cache
f600 config/Tarvane/Kelu/settings.txt config/Tarvane/Kelu/settings.txt.lock config/Tarvane/Kelu/kelu.lock
f600 .cache/thumbnails/*/*.png .local/share/recently-used.xbel
f644 painted.png config/QtProject.conf
"""
UNTIL_SAVED = """
f600 .local/state/Tarvane/Kelu/*.journal .local/state/Tarvane/Kelu/*-1.png .cache/Tarvane/Kelu/Temp/Kelu_Paste.png
s700 run/kelu-*.socket
"""
# Of the test, the window manager, the buses and libraries; of what modes is their affair.
OF_OTHERS = tuple("/" + each for each in """cat.jpg .cache/openbox .cache/gstreamer-1.0 .cache/fontconfig .cache/mesa_shader_cache
    .cache/dconf config/dconf config/pulse run/at-spi run/dbus-1 run/dconf run/pulse""".split())


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


def left_wrong(home, table):
    """What is below the folder and in no row, or with another mode, and what holds the password."""
    rows = [(words[0], "/" + pattern) for words in map(str.split, table.strip().splitlines()) for pattern in words[1:]]
    wrong = []
    for path in pathlib.Path(home).rglob("*"):
        state, name = path.lstat(), pathlib.PurePath("/") / path.relative_to(home)
        mode = {0o04: "d", 0o10: "f", 0o14: "s"}.get(state.st_mode >> 12, "?") + f"{state.st_mode & 0o7777:o}"
        known = any(name.match(pattern) and mode == row for row, pattern in rows)
        if not known and not str(name).startswith(OF_OTHERS):
            wrong.append(f"{mode} {name}")
        if path.is_file() and PASSWORD.encode() in path.read_bytes():
            wrong.append(f"password in {name}")
    return wrong


def main():
    kelu, gallery = sys.argv[1:3]
    shots = sys.argv[3] if len(sys.argv) > 3 else None
    home = os.environ["KELU_PRIVATE_SESSION"]
    os.umask(0o022)
    shutil.copy(os.path.join(gallery, "cat.jpg"), home)
    steps = iter(range(1, 100))

    def shot(name):
        if shots:
            path = os.path.join(shots, f"{next(steps):02}-{name}.png")
            subprocess.run(["import", "-window", "root", path], check=True)

    def start(*words):
        program = subprocess.Popen([kelu, *words])
        comes(lambda: "Kelu" in windows(), WAIT)
        keys("Escape")  # the splash
        comes(lambda: "Error" in windows(), 3)  # there is no camera
        keys("Escape")
        return program

    def paint():
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

    saved = os.path.join(home, "painted.png")
    program = start()
    try:
        keys("ctrl+o")
        wait_for(lambda: "Open" in windows(), "the open dialog")
        keys("ctrl+l")
        write(os.path.join(home, "cat.jpg") + "\n")
        press_until(lambda: "Open" not in windows(), "the picture")
        shot("opened")
        paint()
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
    wrong = left_wrong(home, MODES)

    program = start(saved)
    try:
        keys(*["shift+Tab"] * 5, "Return")
        wait_for(lambda: "Settings" in windows(), "the settings")
        keys(*["Tab"] * 3, "Down", "Down")  # past the buttons and pages: an account
        shot("account")
        keys("Tab")
        write("somebody\t" + PASSWORD)
        shot("password")
        keys("Return")
        wait_for(lambda: "Settings" not in windows(), "the end of the settings")
        subprocess.run(["xclip", "-selection", "clipboard", "-t", "image/png", "-i", saved], check=True)
        keys("ctrl+v")
        keys(*["Tab"] * 5)
        shot("pasted")
        paint()
        wait_for(lambda: list(pathlib.Path(home).rglob("*.journal")), "the journal")
    finally:
        program.kill()
        program.wait()
    if "somebody" not in pathlib.Path(home, "config/Tarvane/Kelu/settings.txt").read_text():
        wrong.append("the account was not kept")
    wrong += left_wrong(home, MODES + UNTIL_SAVED)
    print("files that are left:", "; ".join(wrong) or "as the table tells")
    changed = subprocess.run(["compare", "-metric", "AE", "-fuzz", "3%", os.path.join(home, "cat.jpg"), saved, "null:"],
                             capture_output=True, text=True).stderr.split()[0]  # the count; newer versions tell its share beside it
    print("changed pixels:", changed)
    return 0 if 500 < float(changed) < 100000 and not wrong else 1


if __name__ == "__main__":
    sys.exit(run_in_private_session(main, "compare", "xclip", "xwd"))
