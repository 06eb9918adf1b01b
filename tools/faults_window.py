#!/usr/bin/env python3
# Lets the n-th call into the system fail, for every n of what is done in the window: opening, applying, painting with its
# journal, undo, saving, settings, copying, pasting, browsing, bringing back.
# SPDX-License-Identifier: MIT
#
#   tools/faults_window.py BIN_FOLDER [--sanitizer | --room] [--at-most=N] [PART_OF_A_ROW'S_NAME...]
#
# BIN_FOLDER/faulty_window (built with -DKELU_BENCH=ON) drives the real window without a screen and tells what good is.
# It is started anew where it ends, which is a finding. --sanitizer is for one built with the address sanitizer: what
# it reports, leaks among it, is a finding, too. --room makes no call fail but leaves each step 0 to 400 MB of address space,
# as `ulimit -v` would. --at-most takes N faults of a row's calls of a kind, evenly from the first to the last. Prints a
# line per finding and the counts.
import os, select, shutil, subprocess, sys, tempfile

from fault_plan import KINDS, faults, library

bin_folder, wanted = os.path.abspath(sys.argv[1]), sys.argv[2:]
program = os.path.join(bin_folder, "faulty_window")
sanitizer, room = "--sanitizer" in wanted, "--room" in wanted
at_most = max([int(word.split("=")[1]) for word in wanted if word.startswith("--at-most=")], default=sys.maxsize)
wanted = [word for word in wanted if not word.startswith("--")]
here = tempfile.mkdtemp(prefix="kelu-faults-")
PATIENCE = 120  # seconds
environment = dict(os.environ, XDG_RUNTIME_DIR=here, LD_PRELOAD=library(here), KELU_FAULT_BYTES=str(1200 * 900 * 3), LC_ALL="C.UTF-8",
                   TMPDIR=here)
if sanitizer:
    asan = subprocess.run(["cc", "-print-file-name=libasan.so"], capture_output=True, text=True).stdout.strip()
    suppressions = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tests", "support", "lsan.supp")
    environment.update(LD_PRELOAD=library(here, "-DOVER_SANITIZER") + " " + os.path.realpath(asan),
                       ASAN_OPTIONS="verify_asan_link_order=0:allocator_may_return_null=1",
                       LSAN_OPTIONS="print_suppressions=0:suppressions=" + suppressions)
rows = subprocess.run([program], env=dict(environment, LD_PRELOAD=""), capture_output=True, text=True).stdout.split()


def some(faults):
    if len(faults) <= at_most:
        return faults
    return [faults[i * (len(faults) - 1) // max(at_most - 1, 1)] for i in range(at_most)]


class Window:
    def __init__(self):
        self.said = open(os.path.join(here, "said"), "w+")
        self.process = subprocess.Popen([program], env=environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=self.said, text=True, bufsize=1)

    def tried(self, row, fault):
        """The number of calls and the answer; no number from one that ended."""
        try:
            self.process.stdin.write("%s %s\n" % (row, fault))
        except BrokenPipeError:
            pass
        if not select.select([self.process.stdout], [], [], PATIENCE)[0]:
            self.process.kill()
        line = self.process.stdout.readline()
        if not line:
            return None, "ENDED with %s: %s" % (self.process.wait(), self.words())
        calls, answer = line.rstrip("\n").split("\t", 1)
        return int(calls), answer

    def words(self):
        self.said.seek(0)
        words = [line for line in self.said.read().splitlines() if not line.startswith("QThread") or "rror" in line]
        return "\n".join(words[:60] if sanitizer else words[-3:])

    def end(self):
        """What it has to say at its end, if that is a finding."""
        self.process.stdin.close()
        try:
            status = self.process.wait(PATIENCE)
        except subprocess.TimeoutExpired:
            self.process.kill()
            status = "hangs"
        return "" if status == 0 else "ENDED at last with %s: %s" % (status, self.words())


tried = told = findings = 0
for row in rows:
    if wanted and not any(part in row for part in wanted):
        continue
    window, counts = Window(), []
    for kind in ["room"] if room else KINDS:
        calls, answer = window.tried(row, "open:0" if room else kind + ":0")
        if calls is None or answer.startswith("FOUND"):
            print("%s undisturbed: %s" % (row, answer), flush=True)
            findings += 1
            break
        for fault in some(["room:%d" % left for left in range(0, 401, 10)] if room else faults(kind, calls)):
            number, answer = window.tried(row, fault)
            tried += 1
            told += answer.startswith("told")
            if number is None or answer.startswith("FOUND"):
                findings += 1
                print("%s, %s: %s" % (row, fault, answer), flush=True)
            elif os.environ.get("KELU_TELL"):
                print("%s, %s: %s" % (row, fault, answer), flush=True)
            if number is None:
                window = Window()
        counts.append("%s %d" % (kind, calls))
    last = window.end()
    if last:
        findings += 1
        print("%s: %s" % (row, last), flush=True)
    print("%-16s %s" % (row, ", ".join(counts)), flush=True)
shutil.rmtree(here)
print("%d faults, %d told, %d findings" % (tried, told, findings))
sys.exit(1 if findings else 0)
