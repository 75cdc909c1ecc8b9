"""What measuring text costs on the desktop, in any script."""

import os

from processes import run

TEXT_MILLISECONDS = 5


def measure_text(report, bin_folder):
    report.section("Measuring 10,000 characters on the desktop, with a font that has measured nothing before")
    environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen"}
    costs = [line.split("\t") for line in run([str(bin_folder / "tavo-text-costs")], environment).splitlines()]
    script, cost = max(((name, int(cost)) for name, cost in costs), key=lambda pair: pair[1])
    report.figure("text of the slowest script, in ms of processor time", cost / 1e6, TEXT_MILLISECONDS,
                  f"{script}, of {len(costs)} scripts; medians")
