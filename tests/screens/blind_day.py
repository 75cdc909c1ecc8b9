#!/usr/bin/env python3
"""A day with the calendar of somebody who sees nothing: it is made, found, changed, deleted and reminded of by keys and by
what the accessibility bus tells.

usage: blind_day.py PROGRAM TAVO

Status 77 where the machine has no display server, bus or bindings for it.
"""

import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time

SKIPPED = 77
INSIDE = "--inside"
PYTHON = "/usr/bin/python3"  # the one that has the system's bindings
LAUNCHER = pathlib.Path("/usr/libexec/at-spi-bus-launcher")
PATIENCE = 15  # seconds
KEYS = {"Escape": 9, "1": 10, "4": 13, "Tab": 23, "Return": 36, "Control": 37, "a": 38, "f": 41, "space": 65, "Up": 111,
        "Left": 113, "Right": 114, "Down": 116, "Delete": 119}


class Day:
    """What can be heard and done."""

    def __init__(self, atspi, glib):
        self.atspi = atspi
        self.context = glib.MainContext.default()
        self.heard = []
        self.listener = atspi.EventListener.new(self.hear)
        for event in ("object:state-changed:focused", "object:state-changed:selected"):
            self.listener.register(event)

    def hear(self, event):
        if event.detail1 == 1 and event.source is not None:
            self.heard.append((event.type.split(":")[2], event.source.get_role_name(), event.source.get_name() or ""))

    def wait(self, seconds):
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            while self.context.iteration(False):
                pass
            time.sleep(0.01)

    def until(self, what, find):
        end = time.monotonic() + PATIENCE
        while time.monotonic() < end:
            self.wait(0.1)
            found = find()
            if found:
                return found
        raise AssertionError(f"not within {PATIENCE} seconds: {what}; heard: {self.heard[-8:]}")

    def applications(self):
        desktop = self.atspi.get_desktop(0)
        return [desktop.get_child_at_index(index) for index in range(desktop.get_child_count())]

    def walk(self, node):
        """Everything below it that is to be perceived."""
        if node is None or not node.get_state_set().contains(self.atspi.StateType.SHOWING):
            return
        yield node
        for index in range(node.get_child_count()):
            yield from self.walk(node.get_child_at_index(index))

    def find(self, role, begin=""):
        for application in self.applications():
            for node in self.walk(application):
                if node.get_role_name() == role and (node.get_name() or "").startswith(begin):
                    return node
        return None

    def expect(self, role, begin=""):
        return self.until(f"{role} \"{begin}\"", lambda: self.find(role, begin))

    def expect_gone(self, role, begin=""):
        self.until(f"no {role} \"{begin}\"", lambda: self.find(role, begin) is None)

    def press(self, role, begin=""):
        node = self.expect(role, begin)
        assert node.get_n_actions() > 0, f"{role} \"{begin}\" cannot be pressed"
        node.do_action(0)
        self.wait(0.3)

    def key(self, name, *modifiers):
        self.heard.clear()
        synth = self.atspi.KeySynthType
        for modifier in modifiers:
            self.atspi.generate_keyboard_event(KEYS[modifier], None, synth.PRESS)
        self.atspi.generate_keyboard_event(KEYS[name], None, synth.PRESSRELEASE)
        for modifier in modifiers:
            self.atspi.generate_keyboard_event(KEYS[modifier], None, synth.RELEASE)
        self.wait(0.3)

    def type(self, text):
        self.atspi.generate_keyboard_event(0, text, self.atspi.KeySynthType.STRING)
        self.wait(0.5)

    def expect_heard(self, what, role, begin):
        self.until(f"{what}: {role} \"{begin}\"", lambda: any(
            kind == what and heard == role and name.startswith(begin) for kind, heard, name in self.heard))


def make(day):
    day.key("4", "Control")
    day.expect("dialog", "Tavo Calendar")
    day.expect_heard("focused", "dialog", "Tavo Calendar")
    day.type("Swimming")
    day.expect("text", "Subject")
    day.key("Tab")
    day.expect_heard("focused", "spin button", "Start")
    day.press("push button", "OK")
    day.expect_gone("dialog")


def find(day):
    day.key("f", "Control")
    day.expect("dialog", "Find")
    day.type("swim")
    day.expect("list item", "Swimming")
    day.key("Return")
    day.expect_gone("dialog")
    cell = day.until("today's cell", lambda: next(
        (node for node in day.walk(day.find("table")) if (node.get_description() or "").endswith(", today")), None))
    assert cell.get_name().endswith(": appointment"), cell.get_name()
    assert cell.get_state_set().contains(day.atspi.StateType.SELECTED)
    table = day.expect("table")
    assert (table.get_n_columns(), table.get_column_description(1)) == (7, "Monday")
    day.key("Right", "Control")
    day.expect_heard("focused", "table cell", "2")


def change(day):
    day.press("page tab", "Schedule")
    day.expect("heading", "Appointment")  # what was made last is on show
    day.press("push button", "Next kind")
    day.expect("heading", "Alarm")
    day.press("push button", "Previous kind")
    day.expect("list item", "Swimming")
    day.key("Down")
    day.expect_heard("focused", "list item", "Swimming")
    day.key("Return")
    day.press("push button", "Modify")
    day.expect("push button", "Subject: Swimming")
    day.press("push button", "Subject: ")
    day.expect("text", "Subject").grab_focus()
    day.wait(0.3)
    day.key("a", "Control")
    day.type("Diving")
    day.press("push button", "OK")
    day.expect("list item", "Diving")


def delete(day):
    day.wait(1)  # the list is filled anew after a change
    day.key("Down")
    day.expect_heard("focused", "list item", "Diving")
    day.key("Delete")
    day.expect("alert")
    day.expect("label", "Are you sure to delete?")
    day.press("push button", "Yes")
    day.expect_gone("list item", "Diving")


def be_reminded(day, tavo):
    moment = time.localtime(time.time() + 60)
    made = subprocess.run([tavo, "add", "Take the pill", "--start", time.strftime("%Y-%m-%d %H:%M", moment), "--kind",
                           "alarm", "--remind", "0"], capture_output=True, text=True, check=False)
    assert made.returncode == 0, made.stderr
    end = time.monotonic() + 75
    while time.monotonic() < end and not day.find("push button", "Dismiss"):
        day.wait(0.5)
    texts = [node.get_name() for application in day.applications() for node in day.walk(application)]
    assert any("Take the pill" in (text or "") for text in texts), texts
    day.press("push button", "Dismiss")
    day.expect_gone("push button", "Dismiss")


def live_through_it(program, tavo):
    import gi
    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi, GLib
    bus = subprocess.Popen([str(LAUNCHER), "--launch-immediately"])
    time.sleep(1)
    Atspi.init()
    day = Day(Atspi, GLib)
    calendar = subprocess.Popen([program])
    try:
        day.expect("page tab", "Clock")
        # A window manager would do that.
        subprocess.run("xdotool windowfocus $(xdotool search --name 'Tavo Calendar' | tail -1)", shell=True, check=True)
        day.wait(0.5)
        make(day)
        find(day)
        change(day)
        delete(day)
        be_reminded(day, tavo)
    finally:
        calendar.terminate()
        calendar.wait()
        bus.terminate()


def end_all_of(home):
    """The reminder service goes on without the window."""
    for process in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            if f"TAVO_HOME={home}".encode() in (process / "environ").read_bytes().split(b"\0"):
                os.kill(int(process.name), signal.SIGTERM)
        except OSError:
            pass  # not ours, or gone


def is_missing():
    bindings = [PYTHON, "-c", "import gi; gi.require_version('Atspi', '2.0')"]
    return not (LAUNCHER.exists() and all(map(shutil.which, ["Xvfb", "dbus-run-session", "xdotool", PYTHON]))
                and subprocess.run(bindings, capture_output=True, check=False).returncode == 0)


def main():
    if sys.argv[1] == INSIDE:
        live_through_it(*sys.argv[2:])
        return 0
    if is_missing():
        print("no display server, accessibility bus or bindings here")
        return SKIPPED
    with tempfile.TemporaryDirectory() as folder:
        home = pathlib.Path(folder) / "home"
        run = pathlib.Path(folder) / "run"
        home.mkdir(mode=0o700)
        run.mkdir(mode=0o700)
        reading, writing = os.pipe()
        display = subprocess.Popen(["Xvfb", "-displayfd", str(writing), "-screen", "0", "1024x768x24", "-nolisten", "tcp"],
                                   pass_fds=[writing], stderr=subprocess.DEVNULL)
        number = os.read(reading, 16).decode().strip()
        environment = {**os.environ, "DISPLAY": f":{number}", "TAVO_HOME": str(home), "XDG_RUNTIME_DIR": str(run),
                       "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "TAVO_SCALE": "2", "LC_ALL": "C.UTF-8"}
        for name in ("WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "DBUS_SESSION_BUS_ADDRESS", "AT_SPI_BUS_ADDRESS"):
            environment.pop(name, None)
        try:
            return subprocess.run(["dbus-run-session", "--", PYTHON, __file__, INSIDE, *sys.argv[1:]], env=environment,
                                  check=False, timeout=400).returncode
        finally:
            end_all_of(home)
            display.terminate()


if __name__ == "__main__":
    sys.exit(main())
