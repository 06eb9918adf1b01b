#!/usr/bin/python3
# Lets the monkey of the tests live in the real window for long, with pictures of every kind, and watches its memory.
# SPDX-License-Identifier: MIT
#
#   tools/soak.py BIN_FOLDER MINUTES [--seed NUMBER] [--monkeys COUNT] [--platform xcb|offscreen]
#                 [--log FILE] [--photos FOLDER]
#
# One process has one monkey after the other paint, each in a window of its own, until it took MINUTES of processor time
# or COUNT have lived: on a display of its own (Xvfb, openbox), with the kinds of bench/picture_kinds.py (its packages, and
# those of test.sh) and photographs of up to two megapixels in each format. Every monkey compares the screen with a fresh
# painting, the parts with each other and the replayed recipe with the picture. Between two monkeys, when the windows of the
# one are gone and those of the next not yet there, this samples memory (private bytes), threads and open files of the
# process, and memory and windows of the display server. Good is: every monkey found all in order, and in the last tenth
# of the time (two minutes at least) the median of memory is at most 10 % above that of the minutes 4 to 6, and the least
# number of threads, files and windows, which come and go but stay where they leak, is no higher. Prints a line a minute
# and the verdict; status 1 when it is not good. FOLDER keeps the pictures for the next run.
import argparse, os, pathlib, re, select, shutil, statistics, subprocess, sys, tempfile, time

sys.dont_write_bytecode = True
ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "bench"))
import picture_kinds

TICK = os.sysconf("SC_CLK_TCK")
FORMATS = ["bmp", "gif", "jpg", "png", "tif", "webp", "pcx", "psd", "tga", "heic", "avif", "jxl"]


def photographs(work, folder):
    """Into `folder`: each kind that can be read, and each photograph of the gallery in each format, the first ones enlarged."""
    picture_kinds.SECONDS = 300
    (work / "kinds").mkdir()
    for name, kind, file, _, refused, *_ in picture_kinds.Kinds(work / "kinds").all:
        if not refused:
            shutil.copy(file, folder)
    gallery = sorted((ROOT / "Gallery").glob("*.jpg"))
    for number, extension in enumerate(FORMATS * 4):
        photo, target = gallery[number % len(gallery)], folder / f"large{number}.{extension}"
        size = ["1700x1200", "1200x1700!", "900x700", "640x480!"][number // 5 % 4]
        picture_kinds.made("convert", photo, "-resize", size, work / "one.png")
        writer = {"heic": ["heif-enc", "-q", "80", work / "one.png", "-o"], "avif": ["heif-enc", "-A", "-q", "60", work / "one.png", "-o"],
                  "jxl": ["cjxl", "-e", "3", work / "one.png"]}.get(extension, ["convert", work / "one.png"])
        picture_kinds.made(*writer, target)
    picture_kinds.made("convert", gallery[0], gallery[1], gallery[2], "-resize", "500x400!", folder / "large-moving.gif")
    for turn in (3, 6):
        picture_kinds.made("convert", gallery[turn % 4], "-resize", "1700x1200", folder / f"large-turned{turn}.jpg")
        picture_kinds.made("exiftool", "-q", "-overwrite_original", "-n", f"-Orientation={turn}", folder / f"large-turned{turn}.jpg")


def private(process):
    """KiB that are its own."""
    return sum(int(held) for held in re.findall(r"Private_\w+: +(\d+)", pathlib.Path(f"/proc/{process.pid}/smaps_rollup").read_text()))


def minutes(process):
    fields = pathlib.Path(f"/proc/{process.pid}/stat").read_text().rpartition(")")[2].split()
    return (int(fields[11]) + int(fields[12])) / TICK / 60


WATCHED = ["memory, MiB", "threads", "open files", "server's memory, MiB", "server's windows"]


def sample(process, server, environment):
    tree = subprocess.run(["xwininfo", "-root", "-tree"], env=environment, capture_output=True, text=True).stdout
    held = [len(os.listdir(f"/proc/{process.pid}/{folder}")) for folder in ("task", "fd")]
    return [private(process) / 1024, *held, private(server) / 1024, len(re.findall(r"^ +0x", tree, re.M))]


def lines_of(process):
    """What it prints, line by line; None where it was silent for ten minutes."""
    rest = b""
    while True:
        if not select.select([process.stdout], [], [], 600)[0]:
            yield None
            continue
        read = os.read(process.stdout.fileno(), 65536)
        if not read:
            return
        *whole, rest = (rest + read).split(b"\n")
        yield from (line.decode(errors="replace") for line in whole)


def soak(asked, work, server, environment):
    samples, lived, failed, told = [], 0, [], -1.0
    with open(asked.log or work / "log", "w") as log:
        process = subprocess.Popen(
            [os.path.join(asked.bin, "test_app"), "--gtest_filter=Seeds/Monkey.*", "--gtest_shuffle", f"--gtest_random_seed={asked.seed}"],
            env=environment, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        for line in lines_of(process):
            if line is None:
                failed.append("silent for ten minutes")
                break
            print(line, file=log, flush=True)
            lived += line.startswith("[       OK ]")
            if line.startswith("[  FAILED  ] Seeds") and "(" in line and line.endswith("ms)"):
                failed.append(line)
                print(line, flush=True)
            if line.startswith("[ RUN"):
                taken = minutes(process)
                samples.append((taken, sample(process, server, environment)))
                if taken >= told + 1:
                    told = taken
                    print(f"{taken:5.1f} min, {lived:4} monkeys: " + ", ".join(f"{name} {n:.0f}" for name, n in zip(WATCHED, samples[-1][1])), flush=True)
                if taken >= asked.minutes:
                    process.kill()
        process.kill()
        status = process.wait()
    if status not in (0, -9):
        failed.append(f"ended with status {status}")
    return samples, lived, failed


def verdict(samples, lived, failed):
    end = samples[-1][0]
    print(f"{end:.1f} minutes of processor time, {lived} monkeys in order, {len(failed)} not", *failed, sep="\n")
    early = [held for at, held in samples if 4 <= at <= 6]
    late = [held for at, held in samples if at >= end - max(2, end / 10)]
    if end < 8:
        print("too short to tell of memory")
        early = late
    grown = []
    for name, before, after in zip(WATCHED, zip(*early), zip(*late)):
        level, limit = (statistics.median, 1.1) if "memory" in name else (min, 1)
        before, after = level(before), level(after)
        if after > before * limit:
            grown.append(name)
        print(f"{name}: {before:.1f} after five minutes, {after:.1f} at the end ({100 * (after - before) / before:+.1f} %)")
    print("GROWN: " + ", ".join(grown) if grown else "nothing grows")
    return not failed and not grown


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("bin")
    parser.add_argument("minutes", type=float)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--monkeys", type=int)
    parser.add_argument("--platform", default="xcb")
    parser.add_argument("--log")
    parser.add_argument("--photos")
    asked = parser.parse_args()
    work = pathlib.Path(tempfile.mkdtemp(prefix="kelu-soak-"))
    photos = pathlib.Path(asked.photos or work / "photos").absolute()
    if not photos.exists():
        photos.mkdir()
        photographs(work, photos)
    read, write = os.pipe()
    server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", "1600x1200x24"], pass_fds=[write], stderr=subprocess.DEVNULL)
    os.close(write)
    environment = dict(os.environ, DISPLAY=":" + os.read(read, 9).decode().strip(), QT_QPA_PLATFORM=asked.platform,
                       KELU_PHOTOS=str(photos), KELU_MONKEYS=str(asked.monkeys or int(asked.minutes * 60)))
    environment.pop("WAYLAND_DISPLAY", None)
    manager = subprocess.Popen(["openbox"], env=environment, stderr=subprocess.DEVNULL)
    time.sleep(1)
    print("display", environment["DISPLAY"], len(os.listdir(photos)), "pictures", flush=True)
    try:
        good = verdict(*soak(asked, work, server, environment))
    finally:
        manager.kill()
        server.kill()
    if good:
        shutil.rmtree(work)
    else:
        print("kept:", work)
    sys.exit(0 if good else 1)


main()
