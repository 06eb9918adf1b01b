# Which calls are made to fail, for tools/faults.py and tools/faults_window.py.
# SPDX-License-Identifier: MIT
import os, subprocess

KINDS = ["write", "fsync", "rename", "open", "mmap", "malloc"]


def library(folder, *options):
    """tools/fault.c, built into this folder."""
    built = os.path.join(folder, "fault.so")
    source = os.path.join(os.path.dirname(os.path.abspath(__file__)), "fault.c")
    subprocess.run(["cc", "-shared", "-fPIC", "-O2", *options, "-o", built, source], check=True)
    return built


def faults(kind, calls):
    """Each call alone and with all later ones; of more than 40 the first, the last and some between."""
    chosen = range(1, calls + 1) if calls <= 40 else [*range(1, 16), *range(16, calls - 10, (calls - 26) // 14 + 1),
                                                      *range(calls - 9, calls + 1)]
    return ["%s:%d%s" % (kind, n, later) for n in chosen for later in ("", "+")]
