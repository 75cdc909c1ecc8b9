"""What the editor costs: opening it on an item of a large store and of an empty one, and saving."""

import os
import tempfile
from pathlib import Path

from processes import run

OPEN_RATIO = 1.5
OPEN_MILLISECONDS = 50
SAVE_MILLISECONDS = 20
LONE_ITEM = """BEGIN:VCALENDAR
VERSION:2.0
PRODID:-//bench//
BEGIN:VEVENT
UID:lone
DTSTAMP:20250314T090000
DTSTART:20250314T090000
DTEND:20250314T100000
SUMMARY:Lone
END:VEVENT
END:VCALENDAR
"""


def open_and_save(program, home, oid):
    """Milliseconds: to the first frame, from OK to closed, of a synchronised transaction beside it."""
    environment = {**os.environ, "TAVO_HOME": str(home), "QT_QPA_PLATFORM": "offscreen", "TAVO_SCALE": "2"}
    return [int(word) / 1e6 for word in run([str(program), str(oid)], environment).split()]


def find_item(store):
    """An ordinary item from the middle of the store."""
    return run(["sqlite3", str(store), "SELECT oid FROM plain ORDER BY oid LIMIT 1"
                                       " OFFSET (SELECT count(*) / 2 FROM plain)"]).strip()


def measure_editor(report, device, folder):
    program = folder / "tavo-editor-window"
    if not os.access(program, os.X_OK):
        report.note("Not built: there is no Qt here.")
        return
    report.section(f"The editor on one of {device.items:,} items, beside the only item of a store")
    with tempfile.TemporaryDirectory(prefix="tavo-editor-") as home:
        calendar = Path(home) / "lone.ics"
        calendar.write_text(LONE_ITEM.replace("\n", "\r\n"))
        run(device.command("import", calendar), {**os.environ, "TAVO_HOME": home})
        lone_open, _, _ = open_and_save(program, home, find_item(Path(home) / "Outlook.db"))
    opened, saved, transaction = open_and_save(program, device.home, find_item(device.store))
    report.figure("opening the editor, to its first frame", opened / lone_open, OPEN_RATIO,
                  f"{opened:.1f} ms of processor time beside {lone_open:.1f} ms")
    report.figure("opening the editor in ms of processor time", opened, OPEN_MILLISECONDS, "the median of 21")
    report.figure("OK to closed", saved / (SAVE_MILLISECONDS + transaction), 1,
                  f"{saved:.1f} ms beside {SAVE_MILLISECONDS} ms + {transaction:.1f} ms of a synchronised SQLite "
                  f"transaction = {SAVE_MILLISECONDS + transaction:.1f} ms")
