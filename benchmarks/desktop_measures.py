"""The start of the window, beside that of a plain one."""

import os
import statistics
import subprocess
import tempfile
import time
from pathlib import Path

from companions import end_companion

PATIENCE_SECONDS = 20
START_RUNS = 11
START_RATIO = 1.5
START_MEMORY_MEGABYTES = 20


def has_desktop(folder):
    return os.access(folder / "tavocalendar", os.X_OK) and os.access(folder / "tavo-month-grid", os.X_OK)


def read_peak_kilobytes(process):
    for line in Path(f"/proc/{process}/status").read_text().splitlines():
        if line.startswith("VmRSS:"):
            return int(line.split()[1])
    return 0


def measure_first_frame(command, environment):
    """Milliseconds from the start of the process to its first frame, and its memory then in kilobytes."""
    with tempfile.TemporaryDirectory(prefix="tavo-frames-") as folder:
        trace = Path(folder) / "frames"
        begin = time.monotonic_ns()
        process = subprocess.Popen(command, env={**environment, "TAVO_TRACE_FRAMES": str(trace)},
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            while not (trace.exists() and "\n" in trace.read_text()):
                if process.poll() is not None or time.monotonic_ns() - begin > PATIENCE_SECONDS * 1e9:
                    raise RuntimeError(f"{command[0]} showed no frame")
                time.sleep(0.001)
            memory = read_peak_kilobytes(process.pid)
            shown = int(trace.read_text().split()[0])
        finally:
            process.terminate()
            process.wait()
        return (shown - begin) / 1e6, memory


def measure_start(report, device, folder):
    """From exec to the first frame of the Clock page, beside a plain program that paints a month grid."""
    report.section("The window, on the offscreen platform, beside a Qt program of a hundred lines")
    environment = {**device.environment, "QT_QPA_PLATFORM": "offscreen"}
    program, grid = [str(folder / "tavocalendar")], [str(folder / "tavo-month-grid")]
    runs = [(measure_first_frame(program, environment), measure_first_frame(grid, environment))
            for _ in range(START_RUNS)]
    end_companion(device.home)
    start, memory, grid_start, grid_memory = (
        statistics.median(values) for values in zip(*((a[0], a[1], b[0], b[1]) for a, b in runs)))
    report.figure("start, to the first frame", start / grid_start, START_RATIO,
                  f"{start:.0f} ms beside {grid_start:.0f} ms")
    report.figure("start, memory above the month grid's in MB", (memory - grid_memory) / 1024, START_MEMORY_MEGABYTES,
                  f"{memory / 1024:.0f} MB beside {grid_memory / 1024:.0f} MB")
