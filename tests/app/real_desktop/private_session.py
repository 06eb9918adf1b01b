"""A screen, a window manager, a bus and a home of its own for a script that uses the real program. SPDX-License-Identifier: MIT"""
import os
import shutil
import subprocess
import sys
import tempfile

LAUNCHER = "/usr/libexec/at-spi-bus-launcher"


def run_in_private_session(main, *tools):
    """The exit status of `main`, run by this script in a second process; 77 where something it needs is missing."""
    if "KELU_PRIVATE_SESSION" in os.environ:
        return main()
    missing = [tool for tool in ("Xvfb", "openbox", "xdotool", "dbus-run-session", *tools) if not shutil.which(tool)]
    if missing:
        print("not installed:", *missing)
        return 1 if "KELU_REQUIRE_TOOLS" in os.environ else 77
    read, write = os.pipe()
    server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", "2000x1400x24"], pass_fds=[write],
                              stderr=subprocess.DEVNULL)
    os.close(write)
    display = ":" + os.read(read, 16).decode().strip()
    with tempfile.TemporaryDirectory() as home:
        for folder in ("/run", "/tmp"):
            os.mkdir(home + folder, 0o700)
        environment = dict(os.environ, DISPLAY=display, HOME=home, XDG_RUNTIME_DIR=home + "/run", QT_QPA_PLATFORM="xcb",
                           XDG_CONFIG_HOME=home + "/config", TMPDIR=home + "/tmp", LC_ALL="C.UTF-8",
                           QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", CUPS_SERVER="127.0.0.1:9", KELU_PRIVATE_SESSION=home)
        environment.pop("NO_AT_BRIDGE", None)
        manager = subprocess.Popen(["openbox"], env=environment, stderr=subprocess.DEVNULL)
        try:
            return subprocess.run(["dbus-run-session", "--", sys.executable, *sys.argv], env=environment).returncode
        finally:
            manager.kill()
            server.kill()
