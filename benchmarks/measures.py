"""The measurements of ./bench, in the order in which they are printed."""

import argparse
import datetime
import os
import platform
import shutil
import statistics
import subprocess
import sys
import tempfile
from pathlib import Path

from day_menu_measures import measure_day_menu
from desktop_measures import has_desktop, measure_start
from editor_measures import measure_editor
from everyday_measures import measure_everyday
from exchange_measures import measure_exchange, measure_rules
from ink_measures import measure_ink, measure_ink_window
from list_measures import FIRST_DAY, measure_lists
from processes import compare, run
from reminder_measures import measure_reminders
from report import Report
from text_measures import measure_text
from window_measures import MONTH_CHANGES, measure_window

ROOT = Path(__file__).resolve().parent.parent
BUILD = ROOT / "build-bench"
BIN = BUILD / "bin"

SECONDS_PER_DAY = 86400
OCCURRENCE_NANOSECONDS = 150
BYTES_PER_ITEM = 600
LONGEST_ITEM_DAYS = 32
KINDS = ("alarm", "holiday", "anniversary")
# What can be measured by itself, in the order in which it is printed.
ROWS = ("import", "rules", "size", "month", "agenda", "ink", "text", "window", "day-menu", "ink-window", "editor", "lists",
        "reminders", "everyday")
# A day and a month in the middle of the ten years.
DAY = datetime.date(2025, 3, 14)
MONTH = (datetime.date(2025, 3, 1), datetime.date(2025, 3, 31))


def build():
    options = ["-DCMAKE_BUILD_TYPE=Release", "-DTAVO_BENCHMARKS=ON", "-DTAVO_TESTS=OFF"]
    run(["cmake", "-S", str(ROOT), "-B", str(BUILD), "-G", "Ninja", *options])
    targets = ["products", "tavo-generate", "tavo-parse-whole", "tavo-month-window", "tavo-ink-costs", "tavo-list-costs",
               "tavo-rule-costs", "tavo-next-reminder", "tavo-notification-service", "tavo-search-costs", "tavo-one-insert"]
    run(["cmake", "--build", str(BUILD), "--target", *targets])
    # These need Qt, as the window does.
    if (BIN / "tavocalendar").exists():
        run(["cmake", "--build", str(BUILD), "--target", "tavo-month-grid", "tavo-editor-window",
             "tavo-day-menu-window", "tavo-ink-window", "tavo-text-costs"])


def describe_machine(report):
    model = next((line.split(":", 1)[1].strip() for line in open("/proc/cpuinfo") if line.startswith("model name")), "?")
    load = os.getloadavg()[0]
    report.section("Machine")
    report.note(f"{model}, {os.cpu_count()} processors, {platform.system()} {platform.release()}, load {load:.1f}")
    report.note(f"{run(['sqlite3', '--version']).split()[0]} (sqlite3), "
                f"libical {run(['pkg-config', '--modversion', 'libical']).strip()}")
    if load > os.cpu_count() / 2:
        report.note("Other work is going on: the figures will be less steady than on a quiet machine.")


def seconds_of(day):
    """The store's count of seconds of a day's midnight."""
    return (day - datetime.date(1899, 12, 30)).days * SECONDS_PER_DAY


class Device:
    """A calendar, imported into a device of its own."""

    def __init__(self, folder, items):
        self.calendars = folder / "calendars"
        self.home = folder / "home"
        self.environment = {**os.environ, "TAVO_HOME": str(self.home)}
        self.items = items
        self.store = self.home / "Outlook.db"
        run([str(BIN / "tavo-generate"), str(self.calendars), str(items)])

    def command(self, *words):
        return [str(BIN / "tavo"), *map(str, words)]

    def empty(self):
        shutil.rmtree(self.home, ignore_errors=True)

    def fill(self):
        run(self.command("import", self.calendars / "calendar.ics"), self.environment)

    def complete(self):
        """Tags and memos, as a device in long use has them."""
        for kind in KINDS:
            run(self.command("import", self.calendars / f"{kind}.ics", "--as", kind), self.environment)
        shutil.copytree(self.calendars / "memos", self.home / "My Documents" / "TavoCalendar", dirs_exist_ok=True)


def measure_size(report, device):
    size = sum(path.stat().st_size for path in device.home.glob("Outlook.db*"))
    report.section("Size of the store")
    report.figure("bytes for an item", size / device.items, BYTES_PER_ITEM, f"{size / 1e6:.1f} MB in all")


def month_window(store, month):
    """Of the prepared statement and of the interfaces: nanoseconds, and how many rows or occurrences there are."""
    command = [str(BIN / "tavo-month-window"), str(store), str(month.year), str(month.month)]
    return tuple(map(int, run(command).split()))


def make_lean_store(device, folder):
    """A store that holds only what touches the month, and nothing else."""
    home = folder / "lean"
    home.mkdir(exist_ok=True)
    lean = home / "Outlook.db"
    run(["sqlite3", str(device.store), f"VACUUM INTO '{lean}'"])
    first, last = seconds_of(MONTH[0]), seconds_of(MONTH[1]) + SECONDS_PER_DAY - 1
    outside = (f"oid NOT IN (SELECT oid FROM plain WHERE start <= {last} AND start + length >= {first}"
               f" UNION ALL SELECT oid FROM series WHERE first <= {last} AND until >= {first})")
    tables = ("plain", "series", "foreign_rule", "exception", "tag", "item")
    keep = f"CREATE TEMP TABLE gone AS SELECT oid FROM item WHERE {outside}"
    deletions = "; ".join(f"DELETE FROM {table} WHERE oid IN (SELECT oid FROM gone)" for table in tables)
    run(["sqlite3", str(lean), f"{keep}; {deletions}; DELETE FROM journal_change; DELETE FROM journal_group; VACUUM;"
                               " PRAGMA journal_mode=WAL"])
    return lean


def measure_month(report, device, folder):
    lean = make_lean_store(device, folder)
    full_runs, lean_runs = [], []
    for _ in range(5):
        full_runs.append(month_window(device.store, DAY))
        lean_runs.append(month_window(lean, DAY))
    statement, rows, interfaces, occurrences = (statistics.median(values) for values in zip(*full_runs))
    lean_interfaces = statistics.median(values[2] for values in lean_runs)
    lean_occurrences = lean_runs[0][3]
    allowed = 2 * statement + OCCURRENCE_NANOSECONDS * occurrences
    report.section(f"Month window through the interfaces: {rows:.0f} rows, {occurrences:.0f} occurrences")
    report.figure("month window", interfaces / allowed, 1,
                  f"{interfaces / 1e6:.2f} ms beside 2 x {statement / 1e6:.2f} ms of a prepared statement "
                  f"+ {OCCURRENCE_NANOSECONDS} ns x {occurrences:.0f} = {allowed / 1e6:.2f} ms")
    report.figure("month window, beside a store of nothing else", interfaces / lean_interfaces, 1.5,
                  f"{interfaces / 1e6:.2f} ms beside {lean_interfaces / 1e6:.2f} ms "
                  f"({lean_occurrences} occurrences)")


def measure_changed_month(report, device):
    """Milliseconds of the month window where the month changes of the window lead, from this month on."""
    today = datetime.date.today()
    months = today.year * 12 + today.month - 1 + MONTH_CHANGES // 2
    middle = datetime.date(months // 12, months % 12 + 1, 1)
    runs = [month_window(device.store, middle) for _ in range(5)]
    _, _, interfaces, occurrences = (statistics.median(values) for values in zip(*runs))
    report.note(f"{middle:%B %Y}: {interfaces / 1e6:.2f} ms for {occurrences:.0f} occurrences")
    return interfaces / 1e6


def select_rows(first, last, series):
    """What the shell selects: times, number and subject of the rows of a window, without any repetition."""
    begin, end = seconds_of(first), seconds_of(last) + SECONDS_PER_DAY - 1
    short = (f"SELECT p.start, p.length, p.oid, i.subject FROM plain p JOIN item i USING (oid)"
             f" WHERE span = 0 AND p.start BETWEEN {begin - SECONDS_PER_DAY} AND {end}"
             f" AND p.start + p.length >= {begin}")
    long = short.replace("span = 0", "span = 1").replace(
        str(begin - SECONDS_PER_DAY), str(begin - LONGEST_ITEM_DAYS * SECONDS_PER_DAY))
    repeated = (f" UNION ALL SELECT s.first, s.length, s.oid, i.subject FROM series s JOIN item i USING (oid)"
                f" WHERE first <= {end} AND until >= {begin}")
    return f"{short} UNION ALL {long}{repeated if series else ''} ORDER BY 1, 3"


def measure_agenda(report, device, name, first, last):
    command = device.command("agenda", "--from", first, "--to", last, "--tsv")
    lines = run(command, device.environment).count("\n")
    for series in (False, True):
        shell = ["sqlite3", str(device.store), select_rows(first, last, series)]
        rows = run(shell).count("\n")
        cost, yardstick = compare(command, shell, 60, device.environment)
        kind = "items and series" if series else "items without series"
        detail = (f"{cost.wall * 1e3:.2f} ms for {lines} occurrences beside {yardstick.wall * 1e3:.2f} ms for {rows} rows; "
                  f"processor time {cost.cpu * 1e3:.2f} ms beside {yardstick.cpu * 1e3:.2f} ms")
        report.figure(f"agenda of {name}, shell selecting {kind}", cost.wall / yardstick.wall, 2, detail)


def parse_rows(text):
    rows = text.split(",")
    unknown = [row for row in rows if row not in ROWS]
    if unknown:
        raise argparse.ArgumentTypeError(f"no such rows: {', '.join(unknown)}; there are {', '.join(ROWS)}")
    return rows


def parse_options():
    parser = argparse.ArgumentParser(prog="./bench")
    parser.add_argument("--items", type=int, default=100_000)
    parser.add_argument("--rows", type=parse_rows, default=ROWS)
    parser.add_argument("--keep", type=Path)
    parser.add_argument("--folder-of-caller", type=Path, default=Path.cwd(), help=argparse.SUPPRESS)
    return parser.parse_args()


def measure_windows(report, device, folder, rows):
    if "text" in rows:
        measure_text(report, BIN)
    if "window" in rows:
        measure_start(report, device, BIN)
        measure_window(report, device, BIN, measure_changed_month(report, device))
    if "day-menu" in rows:
        measure_day_menu(report, device, folder, BIN)
    if "ink-window" in rows:
        measure_ink_window(report, folder, BIN)
    if "editor" in rows:
        measure_editor(report, device, BIN)  # changes an item


def measure_all(report, folder, items, rows):
    describe_machine(report)
    device = Device(folder, items)
    report.section("Data")
    size = (device.calendars / "calendar.ics").stat().st_size
    report.note(f"{items:,} items over ten years in {size / 1e6:.1f} MB of iCalendar; in {folder}")
    if "import" in rows:
        measure_exchange(report, device, BIN)
    else:
        device.empty()
        device.fill()
    device.complete()
    if "rules" in rows:
        measure_rules(report, BIN)
    if "size" in rows:
        measure_size(report, device)
    if "month" in rows:
        measure_month(report, device, folder)
    if "agenda" in rows:
        report.section("tavo agenda, the whole process, beside the sqlite3 shell")
        measure_agenda(report, device, "a day", DAY, DAY)
        measure_agenda(report, device, "a month", *MONTH)
    if "ink" in rows:
        measure_ink(report, BIN)
    if has_desktop(BIN):
        measure_windows(report, device, folder, rows)
    else:
        report.note("The window is not measured: built without Qt.")
    if "lists" in rows:
        measure_lists(report, device, folder, BIN, seconds_of(datetime.date(*FIRST_DAY)))
    if "reminders" in rows:
        measure_reminders(report, device, BIN)
    if "everyday" in rows:
        measure_everyday(report, device, folder, BIN, select_rows)


def main():
    options = parse_options()
    report = Report()
    keep = options.keep and (options.folder_of_caller / options.keep).resolve()
    folder = keep or Path(tempfile.mkdtemp(prefix="tavo-bench-"))
    folder.mkdir(parents=True, exist_ok=True)
    try:
        print("Building ...", flush=True)
        build()
        measure_all(report, folder, options.items, options.rows)
    except (RuntimeError, subprocess.SubprocessError) as problem:
        print(f"error: {problem}")
        return 2
    finally:
        if keep is None:
            shutil.rmtree(folder, ignore_errors=True)
    return report.finish()


if __name__ == "__main__":
    sys.exit(main())
