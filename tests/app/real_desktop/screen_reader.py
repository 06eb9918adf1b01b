#!/usr/bin/python3
"""Every window as a screen reader meets it, over the accessibility bus: what is there under which role, what shows, where the
focus is, and what is told without being asked. Uses the window by its accessible actions alone.
Run as screen_reader.py KELU FOLDER-OF-PICTURES; 77 where the bus or a display can't be had. SPDX-License-Identifier: MIT"""
import os
import subprocess
import sys
import time

from private_session import LAUNCHER, run_in_private_session

WAIT = 20  # seconds for anything

# Window (role, name): what must show in it. A state behind + must be set, behind - must not.
TABLE = {
    ("frame", "Kelu"): """
        button|Open
        button|Save
        check box|Show Original Image|-checked
        canvas|Picture|+focusable
        radio button|Sepia|-checked
        button|Scroll down
        button|Zoom In
        button|v1.0.0  by Tarvane Design|+focusable
        label|PICTURE|-focusable
        button|Settings""",
    ("dialog", "Settings"): """
        page tab|E-mail|+selected
        page tab|Cursor|-selected
        page tab|SFX Selector
        radio button|Use Kelu Internal E-Mail|+checked
        radio button|Use Google Mail (tm)|-checked
        password text|Password
        button|OK""",
    ("dialog", "Print"): """
        list|Available Printers
        radio button|Portrait
        radio button|Landscape|+checked
        button|Print
        button|Cancel""",
    ("dialog", "E-mail"): """
        text|From|+focused
        text|To
        text|Message
        button|Send""",
    ("dialog", "Open"): """
        label|Look in:
        check box|My Pictures
        list|Files
        button|Cancel""",
    ("frame", "Kelu Help - Sepia"): """
        button|Back (Alt+Left)
        text|Search all pages
        button|All effects (Alt+Home)""",
}
# Opened by the action of this button of the main window, and closed with Escape.
OPENERS = {"Settings": "Settings", "Print": "Print", "E-mail": "E-mail", "Open": "Open", "Kelu Help - Sepia": "Help"}
# Read as a whole by their own text, or parts of the toolkit's controls.
NAMELESS = {"scroll bar", "filler", "list", "viewport", "table column header"}
# What older releases of the bus call them.
OLD_ROLES = {"push button": "button"}


def role_of(item):
    name = item.get_role_name()
    return OLD_ROLES.get(name, name)


def main():
    import gi
    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi, GLib

    faults = 0
    told = []
    checked = 0

    def fault(what):
        nonlocal faults
        faults += 1
        print(what, flush=True)

    def turn(seconds=0.05):
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            while GLib.MainContext.default().iteration(False):
                pass
            time.sleep(0.01)

    def wait_for(find, what):
        end = time.monotonic() + WAIT
        while time.monotonic() < end:
            found = find()
            if found:
                return found
            turn()
        fault("never came: " + what)
        return None

    def has(item, state):
        return item.get_state_set().contains(getattr(Atspi.StateType, state.upper()))

    def walk(item):
        yield item
        for i in range(item.get_child_count()):
            child = item.get_child_at_index(i)
            if child:
                yield from walk(child)

    def shown_tree(item):
        if has(item, "showing"):
            yield item
            for i in range(item.get_child_count()):
                yield from shown_tree(item.get_child_at_index(i))

    def showing(item):
        return [each for each in walk(item) if has(each, "showing")]

    def program():
        desktop = Atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(i)
            if child and child.get_name() == "Kelu":
                return child
        return None

    def window(role, name):
        app = program()
        for i in range(app.get_child_count() if app else 0):
            each = app.get_child_at_index(i)
            if each and role_of(each) == role and each.get_name() == name and has(each, "showing"):
                return each
        return None

    def press(role, name):
        item = wait_for(lambda: next((each for each in showing(program()) if role_of(each) == role and
                                      each.get_name().split(",")[0] == name), None), f"{role} {name}")
        if item:
            item.get_action_iface().do_action(0)

    def key(*names):
        subprocess.run(["xdotool", "key", *names], check=False)
        turn()

    def differences(place, rows, picture):
        root = window(*place)
        if not root:
            return [f"no window {place}"]
        items, unlike = showing(root), []
        found = {(role_of(each), each.get_name().strip()): each for each in items}
        for role, name, *states in rows:
            name = name.replace("PICTURE", picture)
            item = found.get((role, name))
            if not item:
                others = [r for r, n in found if n == name]
                unlike.append(f"{place[1]}: no {role} '{name}'" + (f", but {others}" if others else ""))
                continue
            for state in states:
                if has(item, state[1:]) != (state[0] == "+"):
                    unlike.append(f"{place[1]}: {role} '{name}' is{' not' if state[0] == '+' else ''} {state[1:]}")
        for item in items:
            if has(item, "focusable") and not item.get_name() and role_of(item) not in NAMELESS:
                unlike.append(f"{place[1]}: a {role_of(item)} without a name")
        # A list that has the focus says so beside its row.
        focused = [f"{role_of(each)} '{each.get_name()}'" for each in shown_tree(root) if has(each, "focused") and
                   not any(has(child, "focused") for child in list(walk(each))[1:])]
        if len(focused) > 1 or (place[0] == "dialog" and not focused):
            unlike.append(f"{place[1]}: focus at {focused}")
        return unlike

    def compare(place, table, picture=""):
        nonlocal checked
        rows = [row.split("|") for row in filter(None, map(str.strip, table.splitlines()))]
        checked += len(rows)
        end = time.monotonic() + WAIT
        while (unlike := differences(place, rows, picture)) and time.monotonic() < end:
            turn(0.2)
        for each in unlike:
            fault(each)

    def heard(event):
        try:
            told.append((event.type.split(":")[-1], role_of(event.source), event.source.get_name(),
                         event.source.get_description()))
        except GLib.Error:
            pass  # gone already

    listener = Atspi.EventListener.new(heard)
    for kind in ("object:state-changed:showing", "object:property-change:accessible-name",
                 "object:property-change:accessible-value", "window:activate", "object:children-changed:add"):
        listener.register(kind)

    kelu, picture = sys.argv[1], os.path.join(sys.argv[2], "cat.jpg")
    launcher = subprocess.Popen([LAUNCHER, "--launch-immediately", "--a11y=1"], stderr=subprocess.DEVNULL)
    turn(1)
    process = subprocess.Popen([kelu, picture])
    try:
        wait_for(lambda: window("frame", "Kelu"), "the main window")
        # The splash ends by a key; a message that there is no camera follows where there is none.
        wait_for(lambda: key("Escape") or window("frame", "Kelu") and any(
            role_of(each) == "radio button" for each in showing(window("frame", "Kelu"))), "the effects")
        end = time.monotonic() + 3
        while not window("dialog", "Error") and time.monotonic() < end:
            turn()
        wait_for(lambda: not window("dialog", "Error") or key("Escape"), "the end of the message about the camera")
        label = wait_for(lambda: next((each.get_name() for each in showing(program()) if role_of(each) == "label"
                                       and os.path.basename(picture) in each.get_name()), None), "the picture")
        compare(("frame", "Kelu"), TABLE["frame", "Kelu"], label or "")
        hidden = [each.get_name() for each in walk(program()) if role_of(each) == "list item" and has(each, "showing")]
        if hidden:
            fault(f"rows of the hidden list show: {hidden[:3]}")

        def hear(what, kind, role, words):
            nonlocal checked
            checked += 1
            wait_for(lambda: any(kind == k and role == r and words in n + d for k, r, n, d in told), f"word of {what}")

        press("radio button", "Sepia")
        press("button", "Apply")
        hear("a message", "activate", "dialog", "You are ready to go!")
        press("check box", "Don't Show This Again")
        key("Return")
        hear("a note", "showing", "notification", "Hold Ctrl while you paint")
        hear("Apply, no longer waiting", "accessible-name", "button", "Apply")
        press("button", "Apply")
        hear("the rendered effect", "showing", "notification", "The effect is ready")
        for (role, name), rows in TABLE.items():
            if name not in OPENERS:
                continue
            press("button", OPENERS[name])
            compare((role, name), rows)
            key("Escape")
            wait_for(lambda: not window(role, name), f"the end of {name}")
        told.clear()
        press("button", "Close")
        turn(1)
    finally:
        process.terminate()
        process.wait()
        launcher.kill()
    print(f"{checked} rows over {len(TABLE)} windows, {faults} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(run_in_private_session(main, LAUNCHER))
