// What the commands about single items, about days and about changes say of themselves.
#include "tools/help.h"

namespace tavo::tools {

const std::string_view kAddHelp =
    R"(tavo add - put an appointment into the calendar

Usage: tavo add SUBJECT --start WHEN [--end WHEN | --for LENGTH] [OPTIONS]

  --start WHEN      when it begins; without a time it lasts all day
  --end WHEN        when it ends; of what lasts all day, its last day
  --for LENGTH      how long it lasts; an hour if neither is given
  --all-day         it has no times
  --repeat RULE     how it repeats
  --remind MINUTES  how long before its start there is a reminder; also 2h or 1d
  --sound NAME      the sound of the reminder, by its name in the editor's list
  --kind KIND       alarm, holiday, anniversary or appointment (if not given); an alarm
                    is a time without length that reminds, the next two last one day
  --location TEXT   where it is
  --note TEXT       what else there is to say
  --help            show this text

WHEN is a day, a time or both: today, tomorrow, fri, "next fri", 2026-12-01,
2026-12-01T09:30, "1 dec", "dec 1 2027", +3d, "in 2 weeks", 9:30, 3pm, noon,
"tomorrow 15:00". A time without a day is today's, a day without a year is the next one.
"next fri" is the Friday of next week, which begins with Monday. LENGTH is minutes, or
written like 1h30, "2 hours" or "3 days".

RULE is daily, weekly, monthly, yearly, weekdays, "weekly on mon,wed", "every 2 weeks",
with an end like "until 1 dec" or "10 times"; or the text of an RRULE of iCalendar. What
repeats on days of the week begins on the first of them from the start on.

What was understood is told in full, with the item's number.

Exit status: 0 it was added, 1 it could not be, 2 the command line was not understood.
)";

const std::string_view kEditHelp =
    R"(tavo edit - change an item

Usage: tavo edit NUMBER [OPTIONS]

  --subject TEXT    what it is
  --start WHEN      when it begins; what is not said of it (its day, its time, how long it
                    lasts) stays
  --end WHEN        when it ends
  --for LENGTH      how long it lasts
  --all-day         it has no times
  --repeat RULE     how it repeats
  --no-repeat       it takes place once
  --remind MINUTES  how long before its start there is a reminder; also 2h or 1d
  --no-remind       it has no reminder
  --sound NAME      the sound of the reminder; "" is none
  --kind KIND       alarm, holiday, anniversary or appointment
  --location TEXT   where it is; "" is nowhere
  --note TEXT       what else there is to say
  --on DATE         of a series change this day only: its subject, place and times
  --help            show this text

`tavo help add` tells how days, times, lengths and rules are written. Without --on all days
of a series are changed; when it goes to another day, the days of the week or month that
it repeats on go with it. `tavo undo` takes the change back.

Exit status: 0 it was changed, 1 it could not be, 2 the command line was not understood.
)";

const std::string_view kDeleteHelp =
    R"(tavo delete - delete items

Usage: tavo delete NUMBER... [--on DATE]

  --on DATE   of a series only this day
  --help      show this text

All of them are deleted, or none when one of them is not there. Without --on all days of a
series go. `tavo undo` brings back what was deleted last, `tavo restore` a single item.

Exit status: 0 they were deleted, 1 they could not be, 2 the command line was not
understood.
)";

const std::string_view kShowHelp =
    R"(tavo show - tell all that is stored of items

Usage: tavo show NUMBER... [--tsv | --json]

  --tsv    one line for each item, for other programs
  --json   an array of them
  --help   show this text

Exit status: 0 all were told, 1 one of them is not there or could not be read, 2 the
command line was not understood.
)";

const std::string_view kFindHelp =
    R"(tavo find - find items by words in their subjects, places and notes

Usage: tavo find WORD... [--tsv | --json]

  --tsv    one line for each item, for other programs
  --json   an array of them
  --help   show this text

All of the words have to be there, in any order and in any case; parts of words count
too. A line holds the item's number, its start (a series goes on: ...), its subject and
its place. They come in order of their starts.

Exit status: 0 something was found, 1 nothing, or it could not be read, 2 the command
line was not understood.
)";

const std::string_view kTodayHelp =
    R"(tavo today - list what there is today

Usage: tavo today [--tsv | --json]

  --tsv    one line for each occurrence, for other programs
  --json   an array of them
  --help   show this text

`tavo agenda` lists other days.
)";

const std::string_view kWeekHelp =
    R"(tavo week - list a week, from Monday to Sunday

Usage: tavo week [DAY] [--tsv | --json]

  --tsv    one line for each occurrence, for other programs
  --json   an array of them
  --help   show this text

DAY is any day of the week, written like today, "next fri", "1 dec" or 2026-12-01.
)";

const std::string_view kMonthHelp =
    R"(tavo month - show a month as a grid

Usage: tavo month [DAY] [--tsv | --json]

  --tsv    one line for each occurrence of the month, for other programs
  --json   an array of them
  --help   show this text

DAY is any day of the month, written like today, "1 dec" or 2026-12-01. A day's mark is
that of the first of these that it has: * a holiday, + an anniversary, ! an alarm,
. an appointment. Today is marked by < where it has no mark. On a terminal there are
colours, unless NO_COLOR is set.
)";

const std::string_view kHistoryHelp =
    R"(tavo history - list what was changed, the last first

Usage: tavo history [--steps COUNT] [--tsv | --json]

  --steps COUNT   so many at the most; 20 if not given
  --tsv           one line for each step, for other programs
  --json          an array of them
  --help          show this text

At least the last thousand steps are remembered.
)";

const std::string_view kUndoHelp =
    R"(tavo undo - take the last change back

Usage: tavo undo

  --help   show this text

Takes back the last step of the last hour, whoever made it: the window, a command or an
import. Used again it takes back the one before.

Exit status: 0 it was taken back, 1 there was nothing, or it could not be.
)";

const std::string_view kRestoreItemsHelp =
    R"(tavo restore - bring items back that were deleted or changed

Usage: tavo restore NUMBER...

  --help   show this text

Brings each item back as it was before it was deleted, or changed last, under its old
number; `tavo history` tells the numbers. `tavo undo` takes it back.

Exit status: 0 all came back, 1 nothing is remembered of one, or it could not be written,
2 the command line was not understood.
)";

} // namespace tavo::tools
