"""The measurements of the Schedule page's lists and of the Settings page's deletion."""

import os
import shutil
import statistics
from pathlib import Path

from processes import run
from window_measures import SCALE, Screen, Window

KINDS = ("alarms", "holidays", "anniversaries", "appointments")
APPOINTMENTS = KINDS.index("appointments")
FIRST_DAY = (2025, 3, 1)
PERIOD_DAYS = 31
LONGEST_ITEM_DAYS = 32
SECONDS_PER_DAY = 86400
FILL_RUNS = 5
DELETION_RUNS = 3
SCROLL_STEPS = 24
SCROLL_MILLISECONDS = 4
TABLES = ("plain", "series", "foreign_rule", "exception", "item")


def list_costs(bin_folder, *words):
    return [int(word) for word in run([str(bin_folder / "tavo-list-costs"), *map(str, words)]).split()]


def fill(bin_folder, home, kind):
    return list_costs(bin_folder, "fill", home, kind, *FIRST_DAY)


def items_of(kind, first_second):
    """What a list shows, as a selection of OIDs."""
    if kind != APPOINTMENTS:
        return f"SELECT oid FROM tag WHERE list = {kind}"
    last = first_second + (PERIOD_DAYS + 1) * SECONDS_PER_DAY - 1
    return (f"SELECT oid FROM plain WHERE start BETWEEN {first_second - LONGEST_ITEM_DAYS * SECONDS_PER_DAY} AND {last}"
            f" AND start + length >= {first_second}"
            f" UNION ALL SELECT oid FROM series WHERE first <= {last} AND until >= {first_second}")


def make_lean_home(device, folder, kind, first_second):
    """The same device with a store that holds what the list shows, and nothing else."""
    home = folder / f"lean-{KINDS[kind]}"
    shutil.copytree(device.home, home, ignore=shutil.ignore_patterns("Outlook.db*"))
    store = home / "Outlook.db"
    run(["sqlite3", str(device.store), f"VACUUM INTO '{store}'"])
    keep = f"CREATE TEMP TABLE gone AS SELECT oid FROM item WHERE oid NOT IN ({items_of(kind, first_second)})"
    deletions = "; ".join(f"DELETE FROM {table} WHERE oid IN (SELECT oid FROM gone)" for table in TABLES)
    run(["sqlite3", str(store), f"{keep}; {deletions}; DELETE FROM journal_change; DELETE FROM journal_group; VACUUM;"
                                " PRAGMA journal_mode=WAL"])
    return home


def measure_fills(report, device, folder, bin_folder, first_second):
    fill(bin_folder, device.home, 0)  # carries out the tags that the imports asked for
    for kind, name in enumerate(KINDS):
        lean = make_lean_home(device, folder, kind, first_second)
        full_costs, lean_costs = [], []
        for _ in range(FILL_RUNS):
            full_costs.append(fill(bin_folder, device.home, kind))
            lean_costs.append(fill(bin_folder, lean, kind))
        full, alone = (statistics.median(cost[0] for cost in costs) for costs in (full_costs, lean_costs))
        if full_costs[0][1] != lean_costs[0][1]:
            raise RuntimeError(f"the {name} of the two stores are not the same")
        report.figure(f"{name}, filled and painted, beside a store of nothing else", full / alone, 1.5,
                      f"{full / 1e6:.2f} ms beside {alone / 1e6:.2f} ms, {full_costs[0][1]:,} rows")
        shutil.rmtree(lean)


def measure_deletion(report, device, folder, bin_folder):
    home = folder / "to-be-emptied"
    deletions, undos, bare = [], [], []
    for _ in range(DELETION_RUNS):
        shutil.copytree(device.home, home)
        deleted, cost, undo = list_costs(bin_folder, "delete", home)
        deletions.append(cost)
        undos.append(undo)
        shutil.rmtree(home)
        shutil.copytree(device.home, home)
        rows, cost = list_costs(bin_folder, "bare", home / "Outlook.db")
        bare.append(cost)
        shutil.rmtree(home)
        if rows != deleted:
            raise RuntimeError("the two deletions are not the same")
    cost, yardstick, undo = map(statistics.median, (deletions, bare, undos))
    report.figure(f"all {deleted:,} appointments deleted as one step", cost / yardstick, 3,
                  f"{cost / 1e9:.2f} s beside {yardstick / 1e9:.2f} s of bare SQLite with a copy in the journal; "
                  f"taken back in {undo / 1e9:.2f} s")


def measure_scrolling(report, device, bin_folder):
    environment = {**os.environ, "TAVO_HOME": str(device.home)}
    with Screen() as screen, Window(bin_folder / "tavocalendar", environment, screen, True) as window:
        window.do("mousemove", 100, 150, "key", "ctrl+Next")
        before = window.settle()
        costs = []
        for _ in range(SCROLL_STEPS):
            window.do("click", 5)
            after = window.settle()
            if after != before:
                costs.append((after[1] - before[1]) / 1e6)
            before = after
        if len(costs) < SCROLL_STEPS:
            raise RuntimeError("a scroll step showed no frame")
        report.figure(f"scroll step to frame at {SCALE}x in ms of processor time", statistics.median(costs),
                      SCROLL_MILLISECONDS, f"the median of {SCROLL_STEPS}, in a list of 1,000 alarms")


def measure_lists(report, device, folder: Path, bin_folder: Path, first_second):
    report.section("Lists of the Schedule page, and deletion on the Settings page")
    measure_fills(report, device, folder, bin_folder, first_second)
    measure_deletion(report, device, folder, bin_folder)
    if (bin_folder / "tavocalendar").exists() and shutil.which("Xvfb") and shutil.which("xdotool"):
        measure_scrolling(report, device, bin_folder)
