#!/usr/bin/env python3
# Kills the real window program at random moments of real sessions and looks at what the next start brings back.
# SPDX-License-Identifier: MIT
#
#   tools/killed_sessions.py BIN_FOLDER PICTURE ROUNDS [SEED [AT_ONCE [SIGNAL]]]
#
# Mouse and keys come from xdotool on displays of its own (Xvfb, openbox), one for each of the rounds under way at once.
# What was on the canvas after each stroke comes from the program's own Copy: the clipboard is given up to a mark first,
# so that an old copy is never taken for a new one. The kill comes at any moment: while the program starts, a picture is
# opened or saved, during a render, a stroke, an undo. After it the program is started again and its question answered
# with Yes. A round is good when
# - every saved file, and the picture that was opened, is whole;
# - the canvas is what kelu-cli replays from the journal as it was found, and some beginning of that journal is the
#   canvas as it was after a stroke that ended at most a second before the kill, or a later one;
# - or, where the last of the strokes was saved or none was painted, there is nothing to bring back.
# With TERM, INT or HUP in place of KILL the program ends by itself, and all that was finished before must come back.
# Prints a line a round and the counts. The folder of a round that is not good stays.
import collections, concurrent.futures, hashlib, itertools, os, queue, random, re, shutil, signal, subprocess, sys
import tempfile, threading, time

BIN, PICTURE = os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2])
ROUNDS, SEED, AT_ONCE = [int(word) for word in sys.argv[3:6] + ["1", "1", "2"][len(sys.argv[3:6]):]]
SIGNAL = signal.Signals["SIG" + (sys.argv[6] if len(sys.argv) > 6 else "KILL")]
GRACE = 1.0 if SIGNAL == signal.SIGKILL else 0.0  # s before the end of which strokes may be lost
# In the window: the first buttons of the chooser, Apply, and what is inside the picture (left, top, width, height).
EFFECTS, APPLY, CANVAS = [(813, 115), (813, 217), (813, 318)], (813, 576), (168, 173, 440, 290)
PATIENCE = 120  # s that a busy machine may take for an answer


class Killed(Exception):
    """The program was killed while the session waited for it."""


def run(*words, env=None, timeout=PATIENCE, **more):
    try:
        return subprocess.run(list(map(str, words)), env=env, capture_output=True, timeout=timeout, **more).stdout
    except subprocess.TimeoutExpired:  # asked a program that was just killed
        return b""


def sum_of(path):
    """Of the size and the colors of a picture's file; None when it can't be read."""
    if not os.path.exists(path):
        return None
    data = open(path, "rb").read() if path.endswith(".bmp") else run("convert", path, "bmp3:-")
    number = lambda at, length: int.from_bytes(data[at:at + length], "little", signed=True)
    start, width, height, pixel = number(10, 4), number(18, 4), number(22, 4), number(28, 2) // 8
    line = (width * pixel + 3) // 4 * 4
    if data[:2] != b"BM" or pixel not in (3, 4) or len(data) < start + line * abs(height):
        return None
    rows = [data[at:at + width * pixel] for at in range(start, start + line * abs(height), line)]
    sum = hashlib.sha1(b"%d" % width)
    for row in rows if height < 0 else reversed(rows):
        sum.update(row[0::pixel] + row[1::pixel] + row[2::pixel])
    return sum.hexdigest()


def written(path, data):
    with open(path, "wb") as file:
        file.write(data)
    return path


class Session:
    def __init__(self, display, folder, dice):
        self.folder, self.dice, self.window, self.killed = folder, dice, None, None
        self.env = dict(os.environ, DISPLAY=display, HOME=folder, XDG_STATE_HOME=folder + "/state",
                        XDG_CONFIG_HOME=folder + "/config", XDG_RUNTIME_DIR=folder + "/run", QT_QPA_PLATFORM="xcb",
                        GST_REGISTRY=tempfile.gettempdir() + "/kelu-killed.gst")  # else each start makes it anew
        os.makedirs(folder + "/run", mode=0o700)
        self.picture = shutil.copy(PICTURE, folder)
        key = "[HKEY_CURRENT_USER\\SOFTWARE\\Tarvane\\Kelu\\Settings\\%s]\r\n\"Reminder\"=\"0\"\r\n"
        settings = "REGEDIT4\r\n\r\n" + key % "Paint" + key % "Capture"
        run(BIN + "/kelu-cli", "registry", "import", written(folder + "/settings.reg", settings.encode()), env=self.env)
        self.opened, self.shown, self.saves = None, None, 0
        self.truths = []  # (time of the stroke's end, sum) of the open picture
        self.files = {self.picture: sum_of(self.picture)}  # what each file must hold

    # ---- the program and its windows

    def launch(self, *words):
        self.killed, self.window = None, None
        self.program = subprocess.Popen([BIN + "/kelu", *words], env=self.env, stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)

    def kill(self):
        self.killed = time.time()
        self.program.send_signal(SIGNAL)
        self.program.wait(PATIENCE)

    def wait(self, condition, seconds=PATIENCE, between=0.05):
        """What the condition gave; raises when the program is killed or the time is over."""
        end = time.time() + seconds
        while time.time() < end:
            if self.killed is not None:
                raise Killed
            got = condition()
            if got:
                return got
            time.sleep(between)
        raise TimeoutError if self.killed is None else Killed

    def xdo(self, *words):
        with open(self.folder + "/log", "a") as log:
            print("%.2f" % time.time(), *words, file=log)
        run("xdotool", *words, env=self.env)
        if self.killed is not None:
            raise Killed

    def windows(self):
        """The managed windows, the oldest first, and the active one."""
        told = run("xprop", "-root", "_NET_CLIENT_LIST", "_NET_ACTIVE_WINDOW", env=self.env).decode().split("\n")
        return [[int(word, 16) for word in re.findall(r"0x[0-9a-f]+", line)] for line in told[:2]]

    def shows(self, count):
        """The newest of `count` windows, once it is there and active."""
        listed, active = (self.windows() + [[], []])[:2]
        return listed[-1] if len(listed) == count and active == listed[-1:] else None

    def started(self):
        self.window = self.wait(lambda: self.shows(1))

    def at(self, x, y):
        return ["mousemove", "--window", self.window, x, y]

    def copied(self, path):
        """The sum of what Copy hands out, which is pressed again while the program can't hear it."""
        subprocess.run(["xclip", "-selection", "clipboard"], input=b"mark", env=self.env, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL)

        def offered():
            return b"image/bmp" in run("xclip", "-selection", "clipboard", "-t", "TARGETS", "-o", env=self.env,
                                      timeout=10)

        def pressed():
            self.xdo("key", "ctrl+c")
            try:
                return self.wait(offered, 1.0)
            except TimeoutError:
                return False

        self.wait(pressed)
        got = sum_of(written(path, run("xclip", "-selection", "clipboard", "-t", "image/bmp", "-o", env=self.env,
                                         timeout=30)))
        if self.killed is not None:
            raise Killed
        return got

    # ---- a session

    def work(self):
        """Paints and saves until the kill comes: while the program starts, or in one of the steps after that."""
        self.launch(self.picture)
        last = self.dice.randrange(-2, 16)
        killer = threading.Timer(self.dice.uniform(0.0, 3.0 if last < 0 else 1.5), self.kill)
        try:
            if last < 0:
                killer.start()
            self.started()
            self.xdo("key", "Return")  # the splash's end
            self.opened = self.copied(self.folder + "/truth.bmp")
            for step in itertools.count():
                if step == last:
                    killer.start()
                self.paint_or_save(is_first=step == 0)
        except Killed:
            pass
        killer.join()

    def paint_or_save(self, is_first):
        left, top, width, height = CANVAS
        applies = is_first or self.dice.random() < 0.15
        if self.truths and self.dice.random() < 0.2:
            self.save_and_go_on()
            applies = self.dice.random() < 0.7  # else with the paint of the picture before
        if applies:
            self.xdo(*self.at(*self.dice.choice(EFFECTS)), "click", 1, "sleep", 0.05, *self.at(*APPLY), "click", 1,
                     "sleep", 0.2)
        if self.dice.random() < 0.25:
            self.xdo("key", self.dice.choice(["ctrl+z", "ctrl+y", "bracketleft", "shift+bracketright"]))
        words = []
        for number in range(self.dice.randint(2, 7)):
            words += self.at(left + self.dice.randrange(width), top + self.dice.randrange(height)) + ["sleep", 0.02]
            words += ["mousedown", 1] if number == 0 else []
        restores = self.dice.random() < 0.15  # paints the original
        self.xdo(*["keydown", "ctrl"] * restores, *words, "mouseup", 1, *["keyup", "ctrl"] * restores)
        ended = time.time()
        self.shown = self.copied(self.folder + "/truth.bmp")
        if self.shown != self.opened or self.truths:
            self.truths.append((ended, self.shown))

    def save_and_go_on(self):
        self.saves += 1
        path = "%s/saved%d.%s" % (self.folder, self.saves, self.dice.choice(["png", "bmp"]))
        self.files[path] = self.shown
        self.xdo("key", "ctrl+s")
        self.wait(lambda: self.shows(2))
        self.xdo("key", "ctrl+a", "type", path)
        self.xdo("key", "Return")
        self.wait(lambda: self.shows(1) and os.path.exists(path))
        run(BIN + "/kelu", path, env=self.env)  # hands it over
        self.opened = self.copied(self.folder + "/truth.bmp")
        self.truths = []
        if self.opened != self.files[path]:
            raise TimeoutError

    # ---- what is left of it

    def journal(self):
        folder = self.folder + "/state/Tarvane/Kelu"
        found = [f for f in (os.listdir(folder) if os.path.isdir(folder) else []) if f.endswith(".journal")]
        return os.path.join(folder, max(found)) if found else None

    def replayed(self, journal):
        out = self.folder + "/replayed.bmp"
        if os.path.exists(out):
            os.remove(out)
        run(BIN + "/kelu-cli", "replay", journal, out, env=self.env)
        return sum_of(out)

    def brought_back(self, wanted):
        """The canvas of a new start that is answered with Yes, once it is `wanted`, or what it is at last."""
        self.launch()
        self.started()
        self.xdo("key", "--window", self.window, "Escape")  # the splash's end; the question would not hear it
        question = self.wait(lambda: self.shows(2))

        def answered():
            self.xdo("key", "Return")  # Yes
            time.sleep(0.3)
            return question not in self.windows()[0]

        self.wait(answered)
        back = None
        for _ in range(10):  # it may still play
            back = self.copied(self.folder + "/back.bmp")
            if back == wanted:
                break
            time.sleep(0.5)
        self.kill()
        return back

    def verdict(self):
        killed = self.killed
        for path, wanted in self.files.items():
            if os.path.exists(path) and sum_of(path) != wanted:
                return "BROKEN FILE"
        due = [s for t, s in self.truths if t <= killed - GRACE][-1:]
        later = [s for t, s in self.truths if t > killed - GRACE]
        is_saved = bool(self.truths) and any(sum_of(path) == self.truths[-1][1] for path in self.files)
        journal = self.journal()
        text = open(journal, "rb").read() if journal else b""
        whole = text[:text.rfind(b"\n") + 1]
        settled = whole[max(0, whole.rfind(b"\nsettled")):]
        if not re.search(rb"\n(stroke|more|undo|redo) ", settled):
            return "LOST" if due and not is_saved else "saved" if self.saves else "nothing painted yet"
        beginning = written(os.path.dirname(journal) + "/beginning", whole)
        all_of_it = self.replayed(beginning)
        if all_of_it is None:
            return "CAN'T BE REPLAYED"
        if self.brought_back(all_of_it) != all_of_it:
            return "NOT THE JOURNAL'S PICTURE"
        lines = whole.split(b"\n")[:-1]
        while due and lines and self.replayed(written(beginning, b"\n".join(lines) + b"\n")) not in due + later:
            lines.pop()
            if not any(line.startswith(b"stroke") for line in lines):
                return "OLDER THAN A SECOND"
        return "good"


def one_round(number, displays):
    display, dice = displays.get(), random.Random(SEED * 1000 + number)
    folder = tempfile.mkdtemp(prefix="kelu-killed-")
    session = Session(display, folder, dice)
    try:
        session.work()
        verdict = session.verdict()
    except (Killed, TimeoutError) as error:  # no answer where there should be one
        verdict = "NO ANSWER"
        run("import", "-window", "root", folder + "/screen.png", env=session.env)
        session.program.kill()
    finally:
        displays.put(display)
    if not verdict.isupper():
        shutil.rmtree(folder, ignore_errors=True)
    print(number, verdict, len(session.truths), "strokes", session.saves, "saves", folder if verdict.isupper() else "",
          flush=True)
    return verdict


def main():
    servers, displays = [], queue.Queue()
    for _ in range(AT_ONCE):
        server = subprocess.Popen(["Xvfb", "-displayfd", "1", "-screen", "0", "1280x1024x24"], stdout=subprocess.PIPE,
                                  stderr=subprocess.DEVNULL)
        display = ":" + server.stdout.readline().decode().strip()
        manager = subprocess.Popen(["openbox"], env=dict(os.environ, DISPLAY=display), stderr=subprocess.DEVNULL)
        servers += [manager, server]
        displays.put(display)
    time.sleep(2)
    try:
        with concurrent.futures.ThreadPoolExecutor(AT_ONCE) as rounds:
            counts = collections.Counter(rounds.map(lambda number: one_round(number, displays), range(ROUNDS)))
    finally:
        for server in servers:
            server.kill()
    print(dict(counts))


main()
