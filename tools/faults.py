#!/usr/bin/env python3
# Lets the n-th call into the system fail, for every n of saving, opening, applying, replaying and settings.
# SPDX-License-Identifier: MIT
#
#   tools/faults.py BIN_FOLDER [PART_OF_A_ROW'S_NAME...]
#
# Each row is a run of kelu-cli over small pictures made here by other programs. With one call made to fail (tools/fault.c)
# the run is good when it ends with status 0, nothing on standard error and the very file of an undisturbed run, or with
# status 1, one line more that names a file and a reason, and the old file. Nothing else may lie in the folder, and no
# signal may end it. Of calls that come more often than 40 times the first, the last and some between are made to fail, each
# alone and with all later ones. Prints a line per finding and the counts.
import os, re, shutil, subprocess, sys, tempfile

from fault_plan import KINDS, faults, library

bin_folder, wanted = os.path.abspath(sys.argv[1]), sys.argv[2:]
cli = os.path.join(bin_folder, "kelu-cli")
here = tempfile.mkdtemp(prefix="kelu-faults-")
preloaded = library(here)
home = os.path.join(here, "home")
os.makedirs(home + "/run", mode=0o700)
environment = dict(os.environ, HOME=home, XDG_RUNTIME_DIR=home + "/run", LC_ALL="C.UTF-8", QT_QPA_PLATFORM="offscreen")
for name in ["XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "TMPDIR"]:
    environment.pop(name, None)
OLD = b"what was there before"
OLD_SETTINGS = b""  # as this version of the program writes them
SIZE = "160x120"  # of the pictures; what takes their bytes or more counts as of picture size


def made(name, *words):
    path = os.path.join(here, name)
    subprocess.run([*words, path], check=True, capture_output=True)
    return path


def samples():
    photo = os.path.join(os.path.dirname(__file__), "..", "Gallery", "cat.jpg")
    png = made("in.png", "convert", photo, "-resize", SIZE + "!", "-strip")
    for extension in ["bmp", "gif", "jpg", "tif", "pcx", "psd", "tga", "webp"]:
        made("in." + extension, "convert", png)
    for extension, writer in [("heic", ["heif-enc", "-q", "50", png, "-o"]), ("jxl", ["cjxl", "-e", "1", png])]:
        if shutil.which(writer[0]):
            made("in." + extension, *writer)
    with open(os.path.join(here, "in.reg"), "w") as file:
        file.write('REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\SOFTWARE\\Tarvane\\Kelu\\Settings\\Paint]\r\n"Reminder"="0"\r\n')
    with open(os.path.join(here, "in.json"), "w") as file:
        file.write('{"strokes":[{"size":40,"points":[[50,50],[100,90],[150,10]]}]}')
    for extra in ["in.kelu"]:
        shutil.copy(os.path.join(os.path.dirname(__file__), "..", "tests", "cli", "data", "first.kelu"), os.path.join(here, extra))


# name, name of the result, words of kelu-cli; IN is the folder of the samples, OUT the result
def rows():
    for extension in ["bmp", "png", "gif", "jpg", "tif", "webp", "pdf"]:
        yield "save " + extension, "out." + extension, ["convert", "IN/in.png", "OUT", "--force"]
    for extension in ["bmp", "gif", "jpg", "tif", "pcx", "psd", "tga", "webp", "heic", "jxl"]:
        if os.path.exists(os.path.join(here, "in." + extension)):
            yield "open " + extension, "out.bmp", ["convert", "IN/in." + extension, "OUT", "--force"]
    for effect in ["Melt", "Oil Painting", "Emboss"]:
        yield "apply " + effect, "out.bmp", ["apply", effect, "IN/in.png", "OUT", "--force"]
    yield "strokes", "out.png", ["apply", "1", "IN/in.png", "OUT", "--force", "--strokes", "IN/in.json"]
    yield "replay", "out.png", ["replay", "IN/in.kelu", "IN/in.png", "OUT", "--force", "--fit"]
    yield "settings", "out.reg", ["registry", "import", "IN/in.reg", "--store", "OUT"]
    yield "pipe", "-", ["convert", "IN/in.png", "-", "--format", "png"]


class Run:
    def __init__(self, row, fault=None):
        name, self.result, words = row
        self.folder = os.path.join(here, "work")
        shutil.rmtree(self.folder, ignore_errors=True)
        os.makedirs(self.folder)
        out = os.path.join(self.folder, self.result) if self.result != "-" else "-"
        self.old = OLD_SETTINGS if name == "settings" else OLD
        if out != "-":
            with open(out, "wb") as file:
                file.write(self.old)
        told = os.path.join(here, "told")
        if os.path.exists(told):
            os.remove(told)
        env = dict(environment)
        if fault:
            env.update(LD_PRELOAD=preloaded, KELU_FAULT=fault, KELU_FAULT_TOLD=told, KELU_FAULT_BYTES=str(160 * 120 * 4))
        words = [w.replace("IN/", here + "/").replace("OUT", out) for w in words]
        try:
            ended = subprocess.run([cli, *words], env=env, capture_output=True, timeout=60)
            self.status, self.said, output = ended.returncode, ended.stderr.decode(errors="replace"), ended.stdout
        except subprocess.TimeoutExpired:
            self.status, self.said, output = "hangs", "", b""
        self.calls = int(open(told).read()) if os.path.exists(told) else 0
        left = sorted(os.listdir(self.folder))
        self.left = [f for f in left if f not in (self.result, self.result + ".lock")]
        self.left += [file for _, _, files in os.walk(home) for file in files]
        # A PDF file tells when it was made.
        self.bytes = output if out == "-" else open(out, "rb").read() if self.result in left else None
        self.bytes = re.sub(rb"D:\d{14}", b"", self.bytes) if self.bytes else None

    def verdict(self, good):
        if self.left:
            return "LEFT " + " ".join(self.left)
        if self.status == 0:
            return "" if self.bytes == good.bytes and self.said == good.said else "DONE, BUT NOT AS WITHOUT"
        if self.status != 1:
            return "STATUS %s" % self.status
        said = self.said.replace(good.said, "")
        if not re.fullmatch(r"kelu-cli: (\S*/\S+|-): [^:\s].*\n", said):
            return "NOT ONE CLEAR LINE"
        if "nknown" in self.said or "No error" in self.said or "Success" in self.said or self.said.rstrip().endswith(":"):
            return "NO REASON"
        if self.result != "-" and self.bytes not in (self.old, good.bytes):
            return "OLD FILE GONE"
        return ""


samples()
subprocess.run([cli, "registry", "import", here + "/in.reg", "--store", here + "/old.reg"], check=True)
with open(here + "/old.reg", "rb") as file:
    OLD_SETTINGS = file.read().replace(b"Reminder", b"Another")
runs = findings = 0
for row in rows():
    if wanted and not any(part in row[0] for part in wanted):
        continue
    good = Run(row)
    if good.status != 0 or good.left:
        print(row[0], "undisturbed:", good.status, good.said, good.left)
        findings += 1
        continue
    counts = []
    for kind in KINDS:
        calls = Run(row, kind + ":0").calls
        for fault in faults(kind, calls):
            run = Run(row, fault)
            runs += 1
            verdict = run.verdict(good)
            if verdict:
                findings += 1
                print("%s, %s: %s: %s" % (row[0], fault, verdict, run.said.strip()), flush=True)
        counts.append("%s %d" % (kind, calls))
    print("%-20s %s" % (row[0], ", ".join(counts)), flush=True)
shutil.rmtree(here)
print("%d faults, %d findings" % (runs, findings))
sys.exit(1 if findings else 0)
