#!/usr/bin/env python3
"""Another calendar reads what `tavo export` wrote, and shows the same occurrences over ten years.

usage: peer_test.py TAVO

The other calendar is khal, with a configuration and a home of its own. Status 77 (skipped) where it is not installed.
Its lists take seconds a year, so this is a test of the long check.
"""

import datetime
import os
import random
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

SEED = 20260503
SERIES_OF_EACH = 6
FIRST = datetime.date(2026, 1, 1)
DAYS = 3652  # to the end of 2035
SKIPPED = 77
DAY_NAMES = ("MO", "TU", "WE", "TH", "FR", "SA", "SU")
ZONES = ("", ";TZID=America/New_York", ";TZID=Europe/Berlin", ";TZID=Asia/Kolkata")

CONFIGURATION = """[calendars]
[[peer]]
path = {home}/calendar
type = calendar
[locale]
local_timezone = Europe/Berlin
default_timezone = Europe/Berlin
timeformat = %H:%M
dateformat = %Y-%m-%d
longdateformat = %Y-%m-%d
datetimeformat = %Y-%m-%dT%H:%M
longdatetimeformat = %Y-%m-%dT%H:%M
[sqlite]
path = {home}/khal.db
"""


class Draw:
    """Events by lot: the six types of the device, and rules beyond them."""

    def __init__(self):
        self.dice = random.Random(SEED)
        self.events = []

    def day(self):
        return FIRST + datetime.timedelta(days=self.dice.randrange(0, 700))

    def ending(self):
        return self.dice.choice(("", ";COUNT=" + str(self.dice.randrange(2, 40)), ";UNTIL=20310630T235959Z"))

    def event(self, name, day, rule, extra=""):
        """At a time of day that no zone skips, or on whole days."""
        self.events.append(self.component(name, day, self.dice.randrange(8, 20), self.dice.choice(ZONES),
                                          f"RRULE:{rule}\n{extra}"))

    def component(self, name, day, hour, zone, lines):
        start = f"{day:%Y%m%d}T{hour:02}3000"
        universal = "" if zone else "Z"
        lines = lines.replace("@START@", f"{zone}:{start}{universal}")
        return (f"BEGIN:VEVENT\nUID:{name}@peer\nDTSTART{zone}:{start}{universal}\nDURATION:PT45M\nSUMMARY:{name}\n"
                f"{lines}END:VEVENT\n")

    def six_types(self):
        for number in range(SERIES_OF_EACH):
            day = self.day()
            weekday = DAY_NAMES[day.weekday()]
            nth = f"{(day.day - 1) // 7 + 1}{weekday}" if day.day < 29 else f"-1{weekday}"
            interval = f";INTERVAL={self.dice.randrange(1, 5)}"
            some = ",".join({weekday, *self.dice.sample(DAY_NAMES, 2)})
            for kind, rule in (
                    ("daily", f"FREQ=DAILY;INTERVAL={self.dice.randrange(9, 40)}"),
                    ("working days", "FREQ=WEEKLY;BYDAY=MO,TU,WE,TH,FR"),
                    ("weekly", f"FREQ=WEEKLY;WKST=SU{interval};BYDAY={some}"),
                    ("monthly", f"FREQ=MONTHLY{interval};BYMONTHDAY={min(day.day, 28)}"),
                    ("month's end", "FREQ=MONTHLY;BYMONTHDAY=28,29,30,31;BYSETPOS=-1"),
                    ("nth weekday", f"FREQ=MONTHLY{interval};BYDAY={nth}"),
                    ("yearly", f"FREQ=YEARLY;BYMONTH={day.month};BYMONTHDAY={min(day.day, 28)}"),
                    ("nth of a year", f"FREQ=YEARLY;BYMONTH={day.month};BYDAY={nth}")):
                self.event(f"{kind} {number}", self.on_rule(kind, day), rule + self.ending())

    @staticmethod
    def on_rule(kind, day):
        """The first day must be one of the rule's own: others take a start beside it in different ways."""
        if kind in ("monthly", "yearly"):
            return day.replace(day=min(day.day, 28))
        if kind == "month's end":
            return (day.replace(day=28) + datetime.timedelta(days=4)).replace(day=1) - datetime.timedelta(days=1)
        if kind == "working days":
            return day - datetime.timedelta(days=max(0, day.weekday() - 4))
        return day

    def others(self):
        friday = datetime.date(2026, 2, 13)
        self.event("friday the 13th", friday, "FREQ=MONTHLY;BYDAY=FR;BYMONTHDAY=13")
        self.event("last working day", datetime.date(2026, 1, 30), "FREQ=MONTHLY;BYDAY=MO,TU,WE,TH,FR;BYSETPOS=-1")
        self.event("twice a month", datetime.date(2026, 1, 1), "FREQ=MONTHLY;BYMONTHDAY=1,15;COUNT=50")
        self.event("week 20", datetime.date(2026, 5, 11), "FREQ=YEARLY;BYWEEKNO=20;BYDAY=MO")
        self.event("days of the year", datetime.date(2026, 1, 1), "FREQ=YEARLY;BYYEARDAY=1,100,-1")
        self.event("every other week", datetime.date(2026, 1, 6), "FREQ=WEEKLY;INTERVAL=2;WKST=MO;BYDAY=TU,SU;COUNT=99")
        self.event("first and last", datetime.date(2026, 1, 5), "FREQ=MONTHLY;BYDAY=1MO,-1FR")

    def changed(self):
        """Series with occurrences that were moved and cancelled, singles, and whole days."""
        for number, zone in enumerate(ZONES[1:]):
            name = f"changed {number}"
            start = datetime.date(2026, 3, 3)
            moved = start + datetime.timedelta(days=14)
            off = start + datetime.timedelta(days=28)
            self.events.append(self.component(name, start, 10, zone, "RRULE:FREQ=WEEKLY;BYDAY=TU;COUNT=60\n"
                                              f"EXDATE{zone}:{off:%Y%m%d}T103000\n"))
            self.events.append(self.component(name, moved + datetime.timedelta(days=1), 15, zone,
                                              f"RECURRENCE-ID{zone}:{moved:%Y%m%d}T103000\n"))
            self.events.append(self.component(f"alone {number}", self.day(), 12, zone, ""))
        for name, lines in (("birthday", "DTSTART;VALUE=DATE:20260314\nRRULE:FREQ=YEARLY\n"),
                            ("holidays", "DTSTART;VALUE=DATE:20260701\nDTEND;VALUE=DATE:20260715\n"),
                            ("a day", "DTSTART;VALUE=DATE:20260801\nDTEND;VALUE=DATE:20260802\n")):
            self.events.append(f"BEGIN:VEVENT\nUID:{name}@peer\nSUMMARY:{name}\n{lines}END:VEVENT\n")


class Home:
    """A device of ours and one of the other calendar's, in one folder."""

    def __init__(self, folder, tavo):
        self.folder = folder
        self.tavo = tavo
        (folder / "calendar").mkdir()
        (folder / "khal").mkdir()
        (folder / "khal" / "config").write_text(CONFIGURATION.format(home=folder))
        self.environment = {**os.environ, "TAVO_HOME": str(folder / "home"), "HOME": str(folder), "TZ": "Europe/Berlin",
                            "XDG_CONFIG_HOME": str(folder), "XDG_DATA_HOME": str(folder / "data"),
                            "XDG_CACHE_HOME": str(folder / "cache"), "LC_ALL": "C.UTF-8"}

    def run(self, *command):
        result = subprocess.run([str(word) for word in command], env=self.environment, capture_output=True, text=True,
                                cwd=self.folder, check=False)
        if result.returncode != 0:
            raise RuntimeError(f"{' '.join(map(str, command))}: {result.stderr.strip()}")
        return result.stdout

    def exchange(self, events):
        """Through our store into the other calendar."""
        file = self.folder / "in.ics"
        file.write_text("BEGIN:VCALENDAR\nVERSION:2.0\nPRODID:-//Peer//EN\n" + "".join(events) + "END:VCALENDAR\n")
        print(self.run(self.tavo, "import", file), end="")
        self.run(self.tavo, "export", self.folder / "out.ics")
        self.run("khal", "import", "--batch", "-a", "peer", self.folder / "out.ics")

    def ours(self):
        last = FIRST + datetime.timedelta(days=DAYS - 1)
        lines = self.run(self.tavo, "agenda", "--from", FIRST, "--to", last, "--tsv").splitlines()
        return {self.row(*line.split("\t")) for line in lines}

    @staticmethod
    def row(start, end, _kind, _oid, subject):
        """Whole days as the other calendar has them: without a time, the last day included."""
        if not (start.endswith("T00:00") and end.endswith("T00:00")):
            return start, end, subject
        first, after = (datetime.date.fromisoformat(text[:10]) for text in (start, end))
        last = max(first, after - datetime.timedelta(days=1))
        return first.isoformat(), last.isoformat(), subject

    def theirs(self):
        lines = self.run("khal", "list", "--notstarted", "--day-format", "", "--format", "{start-long}|{end-long}|{title}",
                         FIRST, f"{DAYS}d").splitlines()
        return {tuple(line.split("|")) for line in lines if line}


def compare(ours, theirs):
    for side, rows in (("only here", ours - theirs), ("only there", theirs - ours)):
        for row in sorted(rows)[:20]:
            print(f"{side}: {' '.join(row)}")
    return ours == theirs


def main():
    if shutil.which("khal") is None:
        print("skipped: khal is not installed")
        return SKIPPED
    draw = Draw()
    draw.six_types()
    draw.others()
    draw.changed()
    with tempfile.TemporaryDirectory(prefix="tavo-peer-") as folder:
        home = Home(Path(folder), Path(sys.argv[1]).resolve())
        home.exchange(draw.events)
        ours, theirs = home.ours(), home.theirs()
    print(f"{len(draw.events)} events, {len(ours)} occurrences here, {len(theirs)} there")
    return 0 if len(ours) > 2000 and compare(ours, theirs) else 1


if __name__ == "__main__":
    sys.exit(main())
