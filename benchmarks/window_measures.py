"""The measurements of the window while it is worked: month change, clock tick, resize and minimised."""

import os
import statistics
import subprocess
import tempfile
import time
from pathlib import Path

from companions import end_companion

SCALE = 2
MONTH_CHANGES = 24
MONTH_CHANGE_MILLISECONDS = 4
TICKS = 12
TICK_MILLISECONDS = 1
RESIZES = [(600, 800), (480, 640), (720, 960), (540, 720), (480, 640)]
RESIZE_MILLISECONDS = 150
MINIMISED_SECONDS = 10
QUIET_SECONDS = 0.4
PATIENCE_SECONDS = 20
CLOSE = (227 * SCALE, 13 * SCALE)  # the cross of a page, in the window of fixed scale
INSIDE = (100, 150)  # a point of the window at any size: keys go to what the pointer is on


class Screen:
    """An X server of its own, without a window manager."""

    def __enter__(self):
        reading, writing = os.pipe()
        self.server = subprocess.Popen(["Xvfb", "-displayfd", str(writing), "-screen", "0", "1000x1100x24",
                                        "-nolisten", "tcp"],
                                       pass_fds=[writing], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading) as answer:
            self.name = ":" + answer.readline().strip()
        return self

    def __exit__(self, *_):
        self.server.terminate()
        self.server.wait()


class Window:
    """The calendar in a window, and the frames that it showed."""

    def __init__(self, program, environment, screen, fixed_scale):
        self.folder = tempfile.TemporaryDirectory(prefix="tavo-frames-")
        self.trace = Path(self.folder.name) / "frames"
        self.environment = {**environment, "DISPLAY": screen.name, "QT_QPA_PLATFORM": "xcb",
                            "TAVO_TRACE_FRAMES": str(self.trace)}
        if fixed_scale:
            self.environment["TAVO_SCALE"] = str(SCALE)
        self.process = subprocess.Popen([str(program)], env=self.environment,
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def __enter__(self):
        begin = time.monotonic()
        while not self.frames():
            if self.process.poll() is not None or time.monotonic() - begin > PATIENCE_SECONDS:
                raise RuntimeError("the window showed no frame")
            time.sleep(0.01)
        time.sleep(1)
        return self

    def __exit__(self, *_):
        self.process.terminate()
        self.process.wait()
        end_companion(self.environment["TAVO_HOME"])
        self.folder.cleanup()

    def frames(self):
        """Of every frame so far the moment and the processor time used until then, in nanoseconds."""
        if not self.trace.exists():
            return []
        lines = self.trace.read_text().split("\n")[:-1]
        return [tuple(int(word) for word in line.split()) for line in lines]

    def do(self, *words):
        subprocess.run(["xdotool", *map(str, words)], env=self.environment, check=True, stdout=subprocess.DEVNULL)

    def identify(self):
        found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "Tavo Calendar"],
                               env=self.environment, check=True, capture_output=True, text=True)
        return found.stdout.split()[0]

    def settle(self):
        """Waits until no frame comes any more; gives the last one."""
        last = self.frames()
        while True:
            time.sleep(QUIET_SECONDS)
            now = self.frames()
            if len(now) == len(last):
                return now[-1]
            last = now

    def show_calendar(self):
        """From the Clock page, by keys, which mean the same at every scale."""
        self.do("mousemove", *INSIDE, "key", "ctrl+Next", "key", "ctrl+Next")
        self.settle()

    def wake_ups(self):
        """How often its threads have given up the processor to wait for something."""
        total = 0
        for status in Path(f"/proc/{self.process.pid}/task").glob("*/status"):
            for line in status.read_text().splitlines():
                if line.startswith("voluntary_ctxt_switches:"):
                    total += int(line.split()[1])
        return total


def measure_month_change(report, window, month_milliseconds):
    window.show_calendar()
    costs = []
    before = window.settle()
    for _ in range(MONTH_CHANGES):
        window.do("key", "Right")
        after = window.settle()
        if after != before:
            costs.append((after[1] - before[1]) / 1e6)
        before = after
    if len(costs) < MONTH_CHANGES:
        raise RuntimeError("a month change showed no frame")
    allowed = month_milliseconds + MONTH_CHANGE_MILLISECONDS
    cost = statistics.median(costs)
    report.figure("month change, key to frame", cost / allowed, 1,
                  f"{cost:.2f} ms of processor time beside {month_milliseconds:.2f} ms of the month window "
                  f"+ {MONTH_CHANGE_MILLISECONDS} ms = {allowed:.2f} ms")


def measure_tick(report, window):
    time.sleep(0.471 * (TICKS + 2))
    frames = window.frames()[-TICKS - 1:]
    cost = statistics.median((after[1] - before[1]) / 1e6 for before, after in zip(frames, frames[1:]))
    report.figure("clock tick in ms of processor time", cost, TICK_MILLISECONDS, f"the median of {TICKS}")


def measure_minimised(report, window):
    window.do("mousemove", "--window", window.identify(), *CLOSE, "click", 1)
    time.sleep(2)
    frames, wake_ups = len(window.frames()), window.wake_ups()
    time.sleep(MINIMISED_SECONDS)
    report.figure("minimised, frames", len(window.frames()) - frames, 0, f"in {MINIMISED_SECONDS} s")
    report.figure("minimised, wake-ups a second", (window.wake_ups() - wake_ups) / MINIMISED_SECONDS, 1,
                  "all threads together")


def measure_resize(report, window):
    identity = window.identify()
    window.show_calendar()
    spans = []
    for width, height in RESIZES:
        begin = time.monotonic_ns()
        window.do("windowsize", identity, width, height)
        spans.append((window.settle()[0] - begin) / 1e6)
    report.figure("resize, ms until the last frame", max(spans), RESIZE_MILLISECONDS,
                  f"the worst of {len(spans)}, the resizing command included")


def measure_window(report, device, folder, month_milliseconds):
    report.section(f"The window, in an X server without a window manager, at {SCALE}x")
    program = folder / "tavocalendar"
    with Screen() as screen:
        with Window(program, device.environment, screen, fixed_scale=True) as window:
            measure_tick(report, window)
            measure_month_change(report, window, month_milliseconds)
            measure_minimised(report, window)
        with Window(program, device.environment, screen, fixed_scale=False) as window:
            measure_resize(report, window)
