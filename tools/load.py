#!/usr/bin/env python3
# Pictures of extreme sizes, and too little memory: what opens, what is refused, what it takes.
# SPDX-License-Identifier: MIT
#
#   tools/load.py BIN_FOLDER sizes     pictures up to and beyond the limit of 2^28 pixels, converted and rendered
#   tools/load.py BIN_FOLDER memory    conversions and effects under ulimit -v, in steps up to what they need
#
# A run of kelu-cli is good when it ends with status 0, nothing on standard error and a whole file, or with status 1, one
# line that names a file and a reason, and no file; below what the loader of programs needs, nothing starts. Results tell
# the largest memory that a run held (resident, MB) and the seconds of processor time.
import os, re, resource, shutil, struct, subprocess, sys, tempfile

bin_folder, part = os.path.abspath(sys.argv[1]), sys.argv[2]
cli = os.path.join(bin_folder, "kelu-cli")
here = tempfile.mkdtemp(prefix="kelu-load-")
findings = 0
MOST = 1 << 28


def bmp(width, height):
    """24 bits a pixel, all black and nothing of it on the disk."""
    path = "%s/%dx%d.bmp" % (here, width, height)
    size = (width * 3 + 3) // 4 * 4 * height
    with open(path, "wb") as file:
        file.write(struct.pack("<2sIHHIIiiHHIIiiII", b"BM", (54 + size) & 0xffffffff, 0, 0, 54, 40, width, height, 1, 24, 0,
                               size & 0xffffffff, 2835, 2835, 0, 0))
        file.truncate(54 + size)
    return path


def run(words, limit=None):
    """Status, what was said, resident MB, seconds of processor time."""
    errors = open(here + "/errors", "w+b")
    limits = (lambda: resource.setrlimit(resource.RLIMIT_AS, (limit, limit))) if limit else None
    program = subprocess.Popen([cli, *words], stderr=errors, stdout=subprocess.DEVNULL, preexec_fn=limits)
    _, status, used = os.wait4(program.pid, 0)
    program.returncode = os.waitstatus_to_exitcode(status)
    errors.seek(0)
    said = errors.read().decode(errors="replace")
    errors.close()
    return program.returncode, said, used.ru_maxrss // 1024, used.ru_utime + used.ru_stime


def verdict(status, said, out):
    if status == 0:
        return "" if not said and os.path.exists(out) else "DONE WITHOUT A FILE"
    if status == 127 and "loading shared libraries" in said:
        return ""
    if status != 1:
        return "STATUS %s" % status
    if not re.fullmatch(r"kelu-cli: \S*/\S+: .+\n", said) or "nknown" in said:
        return "NOT ONE CLEAR LINE"
    return "A FILE AFTER A FAILURE" if os.path.exists(out) else ""


def tell(name, words, out, limit=None):
    global findings
    if os.path.exists(out):
        os.remove(out)
    status, said, memory, seconds = run(words, limit)
    bad = verdict(status, said, out)
    findings += bool(bad)
    if bad or not limit:
        print("%-34s %-7s %5d MB %6.1f s  %s %s" % (name, "done" if status == 0 else "refused", memory, seconds,
                                                  said.strip().rsplit(": ", 1)[-1], bad), flush=True)
    return status


def sizes():
    for width, height in [(1, 65535), (65535, 1), (3, 70000), (70000, 3), (1, 1 << 20), (16384, 16384), (1 << 25, 8),
                          (16385, 16384), (1, MOST + 1), (65535, 65535)]:
        picture = bmp(width, height)
        for name, words, end in [("to BMP", ["convert", picture], "bmp"), ("to PNG", ["convert", picture], "png"),
                                 ("to TIFF", ["convert", picture], "tif"), ("to PDF", ["convert", picture], "pdf"),
                                 ("to JPEG", ["convert", picture], "jpg"), ("to GIF", ["convert", picture], "gif"),
                                 ("to WebP", ["convert", picture], "webp"),
                                 ("Blur 1 to BMP", ["apply", "Blur 1", picture], "bmp")]:
            if width * height > 1 << 24 and end in ("gif", "webp", "pdf", "png"):
                continue  # minutes each
            out = here + "/out." + end
            status = tell("%d x %d %s" % (width, height, name), [*words, out], out)
            if (status == 0) and width * height > MOST:
                print("OPENED BEYOND THE LIMIT")
        os.remove(picture)


def memory():
    photo = here + "/photo.jpg"
    subprocess.run(["convert", os.path.join(os.path.dirname(__file__), "..", "Gallery", "cat.jpg"), "-resize", "4000x3000!", photo],
                   check=True)
    for name, words, end in [("JPEG to BMP", ["convert", photo], "bmp"), ("JPEG to PNG", ["convert", photo], "png"),
                             ("JPEG to GIF", ["convert", photo], "gif"), ("JPEG to WebP", ["convert", photo], "webp"),
                             ("Blur 1 to JPEG", ["apply", "Blur 1", photo], "jpg"), ("Melt to BMP", ["apply", "Melt", photo], "bmp")]:
        out = here + "/out." + end
        counts = {}
        for limit in range(100, 2000, 25):
            status = tell("%s in %d MB" % (name, limit), [*words, out], out, limit << 20)
            counts[status] = counts.get(status, 0) + 1
            if counts.get(0, 0) == 3:
                break
        print("%-14s not started %d, refused %d, done from %d MB on" %
              (name, counts.get(127, 0), counts.get(1, 0), limit - 50), flush=True)


try:
    {"sizes": sizes, "memory": memory}[part]()
finally:
    shutil.rmtree(here)
print("%d findings" % findings)
sys.exit(1 if findings else 0)
