"""The measurements of ink: its bytes, the frame after a sample of the pen, painting and memory."""

import json
import os
import shutil

from processes import run

STROKES = 5000
ENCODED_PER_SECOND = 25e6
DECODED_PER_SECOND = 50e6
BYTES_PER_POINT = 5
SAMPLE_MILLISECONDS = 2
SAMPLE_RATIO = 1.5
FEW_STROKES = 50
PAINT_MILLISECONDS = 60
PAGE_MEGABYTES = 40
MILLISECONDS_OF = {"ns": 1e-6, "us": 1e-3, "ms": 1}


def read_benchmarks(program):
    answer = json.loads(run([str(program), "--benchmark_format=json", "--benchmark_repetitions=5",
                             "--benchmark_report_aggregates_only=true"]))
    medians = [entry for entry in answer["benchmarks"] if entry.get("aggregate_name") == "median"]
    return {entry["run_name"].split("/iterations")[0]: entry for entry in medians}


def milliseconds_of(entry):
    return entry["cpu_time"] * MILLISECONDS_OF[entry["time_unit"]]


def measure_ink(report, binaries):
    results = read_benchmarks(binaries / "tavo-ink-costs")
    encode, decode = results[f"EncodeInk/{STROKES}"], results[f"DecodeInk/{STROKES}"]
    report.section(f"Ink: a page of {STROKES:,} strokes of 60 points, scale 2; processor time")
    report.figure("encoding, share of the time allowed", ENCODED_PER_SECOND / encode["items_per_second"], 1,
                  f"{encode['items_per_second'] / 1e6:.0f} million points a second")
    report.figure("decoding, share of the time allowed", DECODED_PER_SECOND / decode["items_per_second"], 1,
                  f"{decode['items_per_second'] / 1e6:.0f} million points a second")
    report.figure("bytes for a point", encode["BytesPerPoint"], BYTES_PER_POINT, "with pressure and time")
    few, many = (milliseconds_of(results[f"FrameAfterSample/{count}"]) for count in (FEW_STROKES, STROKES))
    report.figure("painting after a sample of the pen, ms", many, SAMPLE_MILLISECONDS, f"{many * 1e3:.1f} us")
    report.figure("painting after a sample, beside a page of 50 strokes", many / few, SAMPLE_RATIO,
                  f"{many * 1e3:.2f} us beside {few * 1e3:.2f} us")
    paint = milliseconds_of(results[f"PaintAllSeen/{STROKES}"])
    report.figure("painting all that is seen, ms", paint, PAINT_MILLISECONDS, "zoom 100")
    report.figure("memory of the page in MB", results[f"OpenPage/{STROKES}"]["Megabytes"], PAGE_MEGABYTES,
                  "above an editor with empty paper")


def write_in_window(program, folder, strokes):
    """Milliseconds of processor time from a sample to the end of its painting: the median, and what 95 of 100 stay below."""
    home = folder / "ink-window"
    environment = {**os.environ, "TAVO_HOME": str(home), "QT_QPA_PLATFORM": "offscreen", "TAVO_SCALE": "2"}
    home.mkdir()
    try:
        return [int(cost) / 1e6 for cost in run([str(program), str(strokes)], environment).split()]
    finally:
        shutil.rmtree(home)


def measure_ink_window(report, folder, binaries):
    program = binaries / "tavo-ink-window"
    (few, _), (many, most) = (write_in_window(program, folder, count) for count in (FEW_STROKES, STROKES))
    report.section(f"A sample of the pen in the open ink editor, {STROKES:,} strokes, scale 2; processor time")
    report.figure("the frame after it, ms", many, SAMPLE_MILLISECONDS,
                  f"from the pen's event to the painted window, the median of 600; 95 of 100 under {most:.3f} ms")
    report.figure(f"the frame after it, beside a page of {FEW_STROKES} strokes", many / few, SAMPLE_RATIO,
                  f"{many * 1e3:.1f} us beside {few * 1e3:.1f} us")
