// What `tavo --help` and `tavo COMMAND --help` say.
#include "tools/help.h"

namespace tavo::tools {

const std::string_view kGeneralHelp =
    R"(tavo - the command line of Tavo Calendar

Usage: tavo COMMAND [OPTIONS]

Commands:
  add SUBJECT      put an appointment, alarm, holiday or anniversary into the calendar
  edit NUMBER      change an item
  delete NUMBER... delete items
  show NUMBER...   tell all that is stored of items
  find WORD...     find items by words in their subjects, places and notes

  today            list what there is today
  week [DAY]       list the week of today, or of a day
  month [DAY]      show a month as a grid
  agenda           list the appointments of any days

  history          list what was changed
  undo             take the last change back
  restore NUMBER... bring items back that were deleted or changed

  import PATH...   bring iCalendar files, or folders of them, into the calendar
  export [FILE]    write the calendar, or parts of it, as iCalendar
  print FILE       draw a month, week, day or list into a PDF file
  memo             list the handwritten memos, or export them as pictures
  reminders        list what will remind, what happened, and switch reminders on or off
  backup FILE      keep everything in one file
  restore-backup FILE  bring back what a backup holds
  check            say whether the calendar's files are sound, and what to do if not

  tavo help COMMAND   explains a command, as tavo COMMAND --help does
  tavo --help         shows this text
  tavo --version      shows the version

The calendar is in the folder $TAVO_HOME; without that, in $XDG_DATA_HOME/tavocalendar,
which commonly is ~/.local/share/tavocalendar. All commands may be used while the
calendar's window is open.

Exit status: 0 all went well, 1 something went wrong or was refused, 2 the command
line was not understood.
)";

const std::string_view kImportHelp =
    R"(tavo import - bring iCalendar files into the calendar

Usage: tavo import PATH... [--as alarm|holiday|anniversary] [--strict]

A PATH is an .ics file, a folder whose .ics files are all read, its subfolders too, or -
for standard input. Pipes, devices and links to folders in a folder are passed over.

  --as KIND   tag what the files hold as alarm, holiday or anniversary; this also
              works while the calendar's window is open
  --strict    refuse a file that is anywhere against the format, instead of mending it
  --help      show this text

What is against the format costs the smallest part that it spoils: that is left out or
read another way, and file, line and what was done are named. An entry that has no
readable start, or that the calendar cannot hold (it lies outside the years 1900 to 2999,
for example), is refused by itself. What lasts longer than 31 days comes as one
appointment on each of its days. Importing a file again changes only what is different in
it: entries are known by their UID.

Tasks, notes, cancelled events and older versions of an entry are passed over; memos that
`tavo export` wrote come back. Ctrl+C takes back the file that is just being read; what
was imported before it stays.

Exit status: 0 everything was imported, 1 something was refused or broken, 2 the
command line was not understood, 130 after Ctrl+C.
)";

const std::string_view kExportHelp =
    R"(tavo export - write the calendar as iCalendar, for other calendars or as a copy

Usage: tavo export [FILE] [--from DATE] [--to DATE] [--kind KIND] [--item NUMBER]...

Without a FILE, or with -, the calendar goes to standard output. A FILE that is there is
replaced whole or not at all.

  --from DATE     only what takes place on this day or later: 2026-03-14, "1 dec", today
  --to DATE       only what takes place on this day or earlier
  --kind KIND     only alarm, holiday, anniversary or appointment
  --item NUMBER   only this item, and others that are named in this way;
                  `tavo agenda --tsv` tells the numbers
  --help          show this text

The memos of days are written too, unless --kind or --item is given. A series is written
whole when one of its occurrences is asked for. What only this calendar knows (kinds,
sounds, ink) stands beside what others understand, so that `tavo import` brings back all
of it: into an empty calendar, or into this one, where nothing is doubled. What others
will not understand is said on standard error.

Exit status: 0 everything was written, 1 something could not be read or written, 2 the
command line was not understood, 130 after Ctrl+C, which leaves an old FILE as it was.
)";

const std::string_view kAgendaHelp =
    R"(tavo agenda - list appointments

Usage: tavo agenda [--from DATE] [--to DATE] [--tsv | --json]

  --from DATE   the first day; today if not given (or the day of --to, if that is earlier)
  --to DATE     the last day, itself included; today if not given (or the day of --from,
                if that is later)
  --tsv         one line for each occurrence, for other programs
  --json        an array of them, with the same fields and more, named
  --help        show this text

A DATE is written as people do: today, fri, "1 dec", "in 2 weeks", 2026-03-14. What lasts
several days stands on each of them; with --tsv and --json it stands once.

With --tsv a line holds, separated by tabs: start, end (both as YYYY-MM-DDTHH:MM), kind
(Alarm, Holiday, Anniversary or Appointment), the item's number (its OID) and its subject.
Lines come in order of start, then OID. A tab or line break within a subject is
written as a blank. Nothing else is written to standard output.
)";

const std::string_view kCheckHelp =
    R"(tavo check - see whether the calendar's files are sound

Usage: tavo check

Reads the store and the list of tags through and says in words what is wrong, if anything,
and what to do. It changes nothing.

  --help   show this text

Exit status: 0 everything is sound, 1 something is wrong.
)";

const std::string_view kMemoHelp =
    R"(tavo memo - list and export handwritten memos

Usage: tavo memo list [--date DATE]
       tavo memo export NAME... --to FOLDER [--format svg|png|pdf]
       tavo memo export --all --to FOLDER [--format svg|png|pdf]

list writes the names of the memos, a line for each; a name begins with the memo's day.

  --date DATE     only the memos of this day: 2026-03-14, yesterday, "1 dec"

export draws each memo at the size of its paper into a file of its own in the FOLDER,
which is made if it is missing. A file of the same name there is replaced.

  --all           every memo
  --to FOLDER     where the files go
  --format KIND   svg (if not given) and pdf keep the strokes, png is a picture of dots
  --help          show this text

A memo that another program wrote cannot be drawn; it is named, and the others go on.

Exit status: 0 all went well, 1 something could not be drawn or written, 2 the command
line was not understood.
)";

const std::string_view kRemindersHelp =
    R"(tavo reminders - what will remind, what was missed, and what happened

Usage: tavo reminders list [--days N]
       tavo reminders log
       tavo reminders on|off

  list        what nobody has answered yet, and what will come in the next N days (7)
  log         what happened to each reminder in the last 90 days
  on          start the reminder service now and at each login
  off         end it, and do not start it at login; the calendar starts it again
  --help      show this text

A line of the list holds when it is due, its state, its subject and, in brackets, the
start. Times are the calendar's own.
)";

const std::string_view kVersionText = "tavo " TAVO_VERSION "\n";

} // namespace tavo::tools
