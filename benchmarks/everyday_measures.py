"""What is done every day from a terminal, and searching."""

import datetime
import random
import shutil

from processes import compare, run

SEARCH_MILLISECONDS = 20
ADD_RATIO = 2
BACKUP_RATIO = 1.5
TODAY_RATIO = 2
RUNS = 40
BACKUPS = 7


def measure_search(report, device, bin_folder):
    subjects = run(["sqlite3", str(device.store), "SELECT subject FROM item WHERE oid IN"
                                                  " (SELECT min(oid) FROM item UNION SELECT max(oid) FROM item)"]).split("\n")
    word = max(subjects[0].split(), key=len)
    words = [word, "e", "qqqzzz"]
    lines = run([str(bin_folder / "tavo-search-costs"), str(device.store), *words]).splitlines()
    report.section(f"Search of {device.items:,} items, in parts as the window does")
    for searched, line in zip(words, lines):
        first, whole, hits = map(int, line.split())
        what = "first hits" if hits else "the whole search, which finds nothing,"
        report.figure(f"{what} of \"{searched}\", in ms", first / 1e6, SEARCH_MILLISECONDS,
                      f"{hits:,} hits in {whole / 1e6:.1f} ms")


def measure_add(report, device, folder, bin_folder):
    day = datetime.date(2030, 1, 1) + datetime.timedelta(days=random.Random(1).randrange(300))
    add = device.command("add", "Dentist", "--start", f"{day} 15:00")
    cost, yardstick = compare(add, [str(bin_folder / "tavo-one-insert"), str(folder / "one.db")], RUNS, device.environment)
    report.figure("tavo add, beside a bare program that inserts one row", cost.wall / yardstick.wall, ADD_RATIO,
                  f"{cost.wall * 1e3:.2f} ms beside {yardstick.wall * 1e3:.2f} ms; "
                  f"processor time {cost.cpu * 1e3:.2f} ms beside {yardstick.cpu * 1e3:.2f} ms")


def compare_backups(report, what, device, environment, theirs, shell):
    ours = theirs.with_suffix(".tavo")
    cost, yardstick = compare(device.command("backup", ours), ["sh", "-c", shell], BACKUPS, environment)
    report.figure(what, cost.wall / yardstick.wall, BACKUP_RATIO,
                  f"{cost.wall:.2f} s for {ours.stat().st_size / 1e6:.1f} MB beside {yardstick.wall:.2f} s for "
                  f"{theirs.stat().st_size / 1e6:.1f} MB; processor time {cost.cpu:.2f} s beside {yardstick.cpu:.2f} s")


def measure_backup(report, device, folder):
    """Of the store alone, beside SQLite's of the same file; then of all, where the yardstick takes the memos along too."""
    alone = folder / "store alone"
    alone.mkdir(mode=0o700)
    shutil.copy(device.store, alone / device.store.name)
    theirs = folder / "theirs.db"
    copy = f"sqlite3 '{device.store}' \".backup '{theirs}'\""
    compare_backups(report, "tavo backup of the store alone, beside the sqlite3 shell's", device,
                    {**device.environment, "TAVO_HOME": str(alone)}, theirs, copy)
    compare_backups(report, "tavo backup, beside the sqlite3 shell's and tar of the memos", device, device.environment, theirs,
                    f"{copy} && tar cf '{folder / 'theirs.tar'}' -C '{device.home}' 'My Documents'")


def measure_today(report, device, select_rows):
    today = datetime.date.today()
    command = device.command("today", "--tsv")
    shell = ["sqlite3", str(device.store), select_rows(today, today, True)]
    cost, yardstick = compare(command, shell, RUNS, device.environment)
    lines = run(command, device.environment).count("\n")
    report.figure("tavo today, beside the sqlite3 shell selecting items and series", cost.wall / yardstick.wall, TODAY_RATIO,
                  f"{cost.wall * 1e3:.2f} ms for {lines} occurrences beside {yardstick.wall * 1e3:.2f} ms")


def measure_everyday(report, device, folder, bin_folder, select_rows):
    """Adds items."""
    measure_search(report, device, bin_folder)
    report.section("Commands, the whole process")
    measure_today(report, device, select_rows)
    measure_backup(report, device, folder)
    measure_add(report, device, folder, bin_folder)
