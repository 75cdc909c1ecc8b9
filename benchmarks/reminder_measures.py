"""What the waiting companion costs, and how soon it shows a reminder."""

import os
import re
import select
import shutil
import subprocess
import time
from pathlib import Path

from processes import run

EPOCH_DAY = 25569  # 1970-01-01 in the store's count of days
IDLE_SECONDS = 60
MEGABYTE = 1024
PSS_MEGABYTES = 25
WAKE_UPS_A_MINUTE = 1
NEXT_DUE_MILLISECONDS = 10
SHOWN_MILLISECONDS = 200
SETTLE_SECONDS = 3
PATIENCE_SECONDS = 30
REMINDER_SECONDS_AHEAD = 4
REPORTS = 5
SILENT = 5  # light and dialog
SOUNDING = 13  # the same with sound
RINGING = 29  # and again and again


def pss_megabytes(process):
    text = Path(f"/proc/{process}/smaps_rollup").read_text()
    return int(re.search(r"^Pss:\s+(\d+)", text, re.M).group(1)) / MEGABYTE


def wake_ups(process):
    text = Path(f"/proc/{process}/status").read_text()
    return int(re.search(r"^voluntary_ctxt_switches:\s+(\d+)", text, re.M).group(1))


def idle_wake_ups(process):
    before = wake_ups(process)
    time.sleep(IDLE_SECONDS)
    return (wake_ups(process) - before) * 60 / IDLE_SECONDS


class Bus:
    """A session bus of its own, watched from outside."""

    def __enter__(self):
        self.daemon = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address=1"],
                                       stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.address = self.daemon.stdout.readline().strip()
        return self

    def __exit__(self, *_):
        self.daemon.terminate()
        self.daemon.wait()


class Monitor:
    """What the bus sees of notifications."""

    def __init__(self, address):
        self.process = subprocess.Popen(
            ["dbus-monitor", "--address", address, "interface='org.freedesktop.Notifications'"],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.unread = b""

    def read_line(self, end):
        while b"\n" not in self.unread:
            ready, _, _ = select.select([self.process.stdout], [], [], max(0, end - time.monotonic()))
            piece = os.read(self.process.stdout.fileno(), 65536) if ready else b""
            if not piece:
                raise RuntimeError("no notification came")
            self.unread += piece
        line, _, self.unread = self.unread.partition(b"\n")
        return line.decode()

    def wait_for_notification(self, due):
        """Milliseconds from the due second to the call of Notify as the bus saw it."""
        end = time.monotonic() + PATIENCE_SECONDS
        while True:
            found = re.search(r"time=(\d+\.\d+).*member=Notify", self.read_line(end))
            if found and float(found.group(1)) >= due:
                return (float(found.group(1)) - due) * 1e3


def next_due_milliseconds(folder, store):
    numbers = [float(line) for line in run([str(folder / "tavo-next-reminder"), str(store)]).split()]
    return sorted(numbers)[len(numbers) // 2]


def add_reminder(store, seconds_ahead, options):
    """An item that reminds at its start, at a whole second; gives that second since 1970."""
    due = int(time.time()) + seconds_ahead
    start = due + EPOCH_DAY * 86400
    sql = ("PRAGMA busy_timeout=5000; BEGIN IMMEDIATE;"
           " INSERT INTO item(oid, start, length, flags, busy, sensitivity, reminder_minutes, reminder_options,"
           " reminder_sound, subject, location, categories, body) SELECT value, "
           f"{start}, 600, 2, 2, 0, 0, {options}, '', 'Bench', '', '', '' FROM setting WHERE name = 'next_oid';"
           f" INSERT INTO plain(span, start, oid, length) SELECT 0, {start}, value, 600 FROM setting"
           " WHERE name = 'next_oid'; UPDATE setting SET value = value + 1 WHERE name = 'next_oid';"
           " UPDATE change_count SET count = count + 1 WHERE kind = 'items'; COMMIT;")
    run(["sqlite3", str(store), sql])
    return due


def start_companion(device, folder, address):
    environment = {**device.environment, "DBUS_SESSION_BUS_ADDRESS": address, "TZ": "UTC",
                   "QT_QPA_PLATFORM": "offscreen"}
    return subprocess.Popen([str(folder / "RSound")], env=environment, stdout=subprocess.DEVNULL,
                            stderr=subprocess.DEVNULL)


def has_child(process):
    return Path(f"/proc/{process}/task/{process}/children").read_text().strip() != ""


def wait_for_silence(process):
    end = time.monotonic() + PATIENCE_SECONDS
    while has_child(process):
        if time.monotonic() > end:
            raise RuntimeError("the sound does not end")
        time.sleep(0.1)


def measure_waiting(report, process, when):
    report.figure(f"companion, memory {when} ringing in MB (PSS)", pss_megabytes(process), PSS_MEGABYTES, "")
    report.figure(f"companion, wake-ups a minute {when} ringing", idle_wake_ups(process), WAKE_UPS_A_MINUTE,
                  f"over {IDLE_SECONDS} s")


def measure_lateness(report, device, monitor, options, name):
    late = [monitor.wait_for_notification(add_reminder(device.store, REMINDER_SECONDS_AHEAD, options))
            for _ in range(REPORTS)]
    report.figure(f"{name} is shown, ms after it is due, the worst", max(late), SHOWN_MILLISECONDS,
                  f"of {REPORTS}; the best {min(late):.0f} ms")


def measure_companion(report, device, folder, bus):
    monitor = Monitor(bus.address)
    service = subprocess.Popen([str(folder / "tavo-notification-service"), bus.address])
    companion = start_companion(device, folder, bus.address)
    try:
        time.sleep(SETTLE_SECONDS)
        if companion.poll() is not None:
            raise RuntimeError(f"the companion ended with status {companion.returncode}")
        measure_waiting(report, companion.pid, "before")
        measure_lateness(report, device, monitor, SILENT, "a silent reminder")
        # Each but the first comes while the one before rings.
        measure_lateness(report, device, monitor, RINGING, "a ringing reminder")
        measure_lateness(report, device, monitor, SOUNDING, "a sounding reminder")
        wait_for_silence(companion.pid)
        time.sleep(SETTLE_SECONDS)
        measure_waiting(report, companion.pid, "after")
    finally:
        for process in (companion, service, monitor.process):
            process.terminate()
            process.wait()


def measure_reminders(report, device, folder):
    """The companion on the whole calendar; nothing where the bus is not at hand."""
    if not (os.access(folder / "RSound", os.X_OK) and shutil.which("dbus-daemon") and shutil.which("dbus-monitor")):
        report.note("The companion, dbus-daemon or dbus-monitor is missing: reminders are not measured.")
        return
    report.section(f"Reminders with {device.items:,} items")
    report.figure("next due reminder after a change, processor time in ms",
                  next_due_milliseconds(folder, device.store), NEXT_DUE_MILLISECONDS, "median of 21 changes")
    with Bus() as bus:
        measure_companion(report, device, folder, bus)
