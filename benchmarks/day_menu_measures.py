"""What it takes to open the menu of a full day, in a large store and in a small one."""

import datetime
import os
import shutil
from pathlib import Path

from list_measures import SECONDS_PER_DAY, TABLES
from processes import run

ITEMS_OF_DAY = 100
SMALL_STORE = 1000
YEARS_AHEAD = 40  # beyond the generated calendar, so that the day is the same in both stores
DAY = 15
OPEN_MILLISECONDS = 30
OPEN_RATIO = 1.5


def write_day(path):
    today = datetime.date.today()
    day = f"{today.year + YEARS_AHEAD}{today.month:02}{DAY:02}"
    lines = ["BEGIN:VCALENDAR", "VERSION:2.0", "PRODID:-//bench//"]
    for item in range(ITEMS_OF_DAY):
        lines += ["BEGIN:VEVENT", f"UID:day-{item}", "DTSTAMP:20250314T090000",
                  f"DTSTART:{day}T{8 + item // 10:02}{item % 10 * 5:02}00", f"DTEND:{day}T200000",
                  f"SUMMARY:Item {item} of the day", "END:VEVENT"]
    path.write_text("\r\n".join([*lines, "END:VCALENDAR", ""]))


def end_series_before(store):
    """Takes out the series that could reach the day: it has the same items in both stores then."""
    first = (datetime.date.today().replace(day=DAY) - datetime.date(1899, 12, 30)).days * SECONDS_PER_DAY
    gone = f"CREATE TEMP TABLE gone AS SELECT oid FROM series WHERE until >= {first}"
    deletions = "; ".join(f"DELETE FROM {table} WHERE oid IN (SELECT oid FROM gone)" for table in TABLES)
    run(["sqlite3", str(store), f"{gone}; {deletions}"])
    return run(["sqlite3", str(store), "SELECT count(*) FROM item"]).strip()


def tap(program, home):
    """Milliseconds of processor time from the tap to the open menu, and the appointments in it."""
    environment = {**os.environ, "TAVO_HOME": str(home), "QT_QPA_PLATFORM": "offscreen", "TAVO_SCALE": "2"}
    cost, count = run([str(program), str(YEARS_AHEAD), str(DAY)], environment).split()
    return int(cost) / 1e6, int(count)


def measure_day_menu(report, device, folder: Path, bin_folder: Path):
    program = bin_folder / "tavo-day-menu-window"
    if not os.access(program, os.X_OK):
        report.note("Not built: there is no Qt here.")
        return
    report.section(f"The menu of a day of {ITEMS_OF_DAY} items")
    day = folder / "day.ics"
    write_day(day)
    large, small = folder / "day-large", folder / "day-small"
    shutil.copytree(device.home, large)
    calendars = folder / "small-calendars"
    run([str(bin_folder / "tavo-generate"), str(calendars), str(SMALL_STORE)])
    small_environment = {**os.environ, "TAVO_HOME": str(small)}
    run(device.command("import", calendars / "calendar.ics"), small_environment)
    left = [end_series_before(home / "Outlook.db") for home in (large, small)]
    for home in (large, small):
        run(device.command("import", day), {**os.environ, "TAVO_HOME": str(home)})
    (cost, count), (yardstick, small_count) = tap(program, large), tap(program, small)
    if (count, small_count) != (ITEMS_OF_DAY, ITEMS_OF_DAY):
        raise RuntimeError(f"the day has {count} and {small_count} items")
    report.figure("tap to open menu in ms of processor time", cost, OPEN_MILLISECONDS,
                  f"the median of 21, {count} items on the day, {int(left[0]):,} in the store")
    report.figure(f"tap to open menu, beside a store of {SMALL_STORE:,}", cost / yardstick, OPEN_RATIO,
                  f"{cost:.1f} ms beside {yardstick:.1f} ms, {int(left[1]):,} in that store")
    for home in (large, small, calendars):
        shutil.rmtree(home)
