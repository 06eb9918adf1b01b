#!/usr/bin/env python3
# Kills the real window program at random moments of real sessions and looks at what the next start brings back.
# SPDX-License-Identifier: MIT
#
#   tools/killed_sessions.py BIN_FOLDER Gallery/cat.jpg ROUNDS [SEED]
#
# Mouse and keys come from xdotool on a display of its own (Xvfb, openbox); what was on the canvas after each stroke comes
# from the program's own Copy (xclip). The kill comes at any moment from the start on: while a picture is opened or
# saved, during a render, a stroke, an undo. A round is good when every saved file is whole and, after SIGKILL and a new
# start that is answered with Yes, the canvas is what kelu-cli replays from the journal, and some prefix of that journal
# is the canvas as it was after a stroke that ended at most a second before the kill, or a later one. Where the last
# stroke was saved nothing need come back. Prints a line a round and the counts.
import hashlib, os, random, shutil, subprocess, sys, tempfile, threading, time

bin_folder, picture, rounds = os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2]), int(sys.argv[3])
seed = int(sys.argv[4]) if len(sys.argv) > 4 else 1
display = os.environ.get("KELU_DISPLAY", ":77")
cli = os.path.join(bin_folder, "kelu-cli")
PLACE = (197, 195)  # of the window
EFFECTS = [(1010, 310), (1010, 412), (1010, 513)]  # middles of the first buttons of the chooser
APPLY = (1010, 771)
CANVAS = (365, 368, 440, 290)  # inside the picture: left, top, width, height


def run(*words, env=None, timeout=20):
    try:
        return subprocess.run(words, env=env, capture_output=True, timeout=timeout)
    except subprocess.TimeoutExpired:  # asked a program that was just killed
        return subprocess.CompletedProcess(words, 1, b"", b"")


def xdo(env, *words):
    run("xdotool", *map(str, words), env=env)


def sum_of(path):
    raw = run("convert", path, "-alpha", "off", "-depth", "8", "rgb:-").stdout
    return hashlib.sha1(raw).hexdigest() if raw else None


def copied(env, path):
    xdo(env, "key", "ctrl+c")
    time.sleep(0.15)
    data = run("xclip", "-selection", "clipboard", "-t", "image/png", "-o", env=env, timeout=3).stdout
    if not data:
        return None
    with open(path, "wb") as file:
        file.write(data)
    return sum_of(path)


class Session:
    def __init__(self, folder, dice):
        self.folder, self.dice = folder, dice
        self.env = dict(os.environ, DISPLAY=display, HOME=folder, XDG_STATE_HOME=folder + "/state",
                        XDG_CONFIG_HOME=folder + "/config", XDG_RUNTIME_DIR=folder + "/run", QT_QPA_PLATFORM="xcb")
        os.makedirs(folder + "/run", mode=0o700)
        shutil.copy(picture, folder)
        with open(folder + "/settings.reg", "w") as file:
            file.write('REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\SOFTWARE\\Tarvane\\Kelu\\Settings\\Paint]\r\n"Reminder"="0"\r\n'
                       '[HKEY_CURRENT_USER\\SOFTWARE\\Tarvane\\Kelu\\Settings\\Capture]\r\n"Reminder"="0"\r\n')
        run(cli, "registry", "import", folder + "/settings.reg", env=self.env)
        self.killed = self.opened = None
        self.saves = 0
        self.truths = []  # (time of the stroke's end, sum) of the open picture
        self.files = {}  # what a saved file must hold: sum by path

    def launch(self, *words):
        self.program = subprocess.Popen([os.path.join(bin_folder, "kelu"), *words], env=self.env,
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def wait_for_window(self, ends_splash=True):
        for _ in range(100):
            found = run("xdotool", "search", "--onlyvisible", "--class", "kelu", env=self.env).stdout.split()
            if found or self.program.poll() is not None:
                break
            time.sleep(0.2)
        if found and ends_splash:
            xdo(self.env, "getactivewindow", "windowmove", *PLACE, "sleep", 0.4, "key", "Escape", "sleep", 1.0)

    def active_window(self):
        return run("xdotool", "getactivewindow", env=self.env).stdout

    def work(self, seconds):
        killer = threading.Timer(seconds, self.kill)
        killer.start()
        self.wait_for_window()
        left, top, width, height = CANVAS
        self.opened = copied(self.env, self.folder + "/truth.png")
        apply = True
        while self.killed is None:
            if self.truths and self.dice.random() < 0.12:
                self.save_and_go_on()
                apply = True
            if apply or self.dice.random() < 0.1:
                xdo(self.env, "mousemove", *self.dice.choice(EFFECTS), "click", 1, "sleep", 0.05,
                    "mousemove", *APPLY, "click", 1, "sleep", 0.4)
                apply = False
            if self.dice.random() < 0.15:
                xdo(self.env, "key", "ctrl+z")
            words = []
            for i in range(self.dice.randint(2, 7)):
                words += ["mousemove", left + self.dice.randrange(width), top + self.dice.randrange(height), "sleep", 0.02]
                words += ["mousedown", 1] if i == 0 else []
            xdo(self.env, *words, "mouseup", 1)
            ended = time.time()
            time.sleep(0.05)
            seen = copied(self.env, self.folder + "/truth.png")
            if seen and self.killed is None and seen != self.opened:
                self.truths.append((ended, seen))
        killer.join()

    def save_and_go_on(self):
        self.saves += 1
        path = "%s/saved%d.%s" % (self.folder, self.saves, self.dice.choice(["png", "bmp"]))
        self.files[path] = self.truths[-1][1]
        xdo(self.env, "key", "ctrl+s", "sleep", 0.6)
        xdo(self.env, "key", "ctrl+a", "type", path)
        xdo(self.env, "key", "Return", "sleep", 0.6)
        if self.killed is None and os.path.exists(path):
            self.truths, self.opened = [], self.files[path]
            run(os.path.join(bin_folder, "kelu"), path, env=self.env, timeout=5)  # hands it over
            time.sleep(0.8)

    def kill(self):
        self.program.kill()
        self.killed = time.time()
        self.program.wait()

    def journal(self):
        folder = self.folder + "/state/Tarvane/Kelu"
        found = [f for f in (os.listdir(folder) if os.path.isdir(folder) else []) if f.endswith(".journal")]
        return os.path.join(folder, max(found)) if found else None

    def replayed(self, journal):
        out = self.folder + "/replayed.png"
        run(cli, "replay", journal, out, "--force", env=self.env)
        return sum_of(out)

    def saved_last(self):
        return any(self.truths and sum_of(path) == self.truths[-1][1] for path in self.files)

    def verdict(self):
        for path, wanted in self.files.items():
            if os.path.exists(path) and sum_of(path) != wanted:
                return "BROKEN FILE"
        wanted = [s for t, s in self.truths if t <= self.killed - 1.0][-1:]
        since = [s for t, s in self.truths if t > self.killed - 1.0]
        journal = self.journal()
        if not journal:
            return "nothing painted" if not wanted else "saved" if self.saved_last() else "LOST"
        text = open(journal, "rb").read()
        whole = text[:text.rfind(b"\n") + 1]
        if b"\nstroke " not in whole:  # killed before its first line was due: there is nothing to bring back
            return "LOST" if wanted else "nothing due"
        if b"\nsettled" in whole and b"\nstroke " not in whole[whole.rfind(b"\nsettled"):]:
            return "saved" if self.saved_last() or not self.truths else "SETTLED UNSAVED"
        with open(self.folder + "/whole.journal", "wb") as file:
            file.write(whole)
        all_of_it = self.replayed(self.folder + "/whole.journal")
        self.launch()
        self.wait_for_window(ends_splash=False)  # a late key would answer the question
        main = self.active_window()
        for _ in range(60):
            time.sleep(0.25)
            if self.active_window() != main:
                break
        time.sleep(0.3)
        run("import", "-window", "root", self.folder + "/question.png", env=self.env)
        xdo(self.env, "key", "Return")  # Yes
        back = None
        for _ in range(10):  # a busy machine takes its time
            time.sleep(1.0)
            back = copied(self.env, self.folder + "/back.png")
            if back == all_of_it:
                break
        self.program.kill()
        self.program.wait()
        if back is None or back != all_of_it:
            return "NOT THE JOURNAL'S PICTURE"
        lines = whole.split(b"\n")[:-1]
        while lines and b"stroke" in b"".join(lines):
            with open(self.folder + "/part.journal", "wb") as file:
                file.write(b"\n".join(lines) + b"\n")
            shown = self.replayed(self.folder + "/part.journal")
            if shown in wanted + since or (not wanted and not since):
                return "good"
            lines.pop()
        return "good" if not wanted else "OLDER THAN A SECOND"


server = subprocess.Popen(["Xvfb", display, "-screen", "0", "1280x1024x24"], stderr=subprocess.DEVNULL)
time.sleep(3)
manager = subprocess.Popen(["openbox"], env=dict(os.environ, DISPLAY=display), stderr=subprocess.DEVNULL)
counts = {}
try:
    for number in range(rounds):
        dice = random.Random(seed * 1000 + number)
        folder = tempfile.mkdtemp(prefix="kelu-killed-")
        session = Session(folder, dice)
        session.launch(os.path.join(folder, os.path.basename(picture)))
        session.work(dice.uniform(0.2, 20.0))
        verdict = session.verdict()
        counts[verdict] = counts.get(verdict, 0) + 1
        print(number, verdict, len(session.truths), "strokes", folder if verdict.isupper() else "", flush=True)
        if not verdict.isupper():
            shutil.rmtree(folder, ignore_errors=True)
finally:
    manager.kill()
    server.kill()
print(counts)
