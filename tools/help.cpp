// What `tavo --help` and `tavo COMMAND --help` say.
#include "tools/help.h"

namespace tavo::tools {

const std::string_view kGeneralHelp =
    R"(tavo - the command line of Tavo Calendar

Usage: tavo COMMAND [OPTIONS]

Commands:
  import PATH...   bring iCalendar files, or folders of them, into the calendar
  agenda           list the appointments of today, or of any days
  memo             list the handwritten memos, or export them as pictures
  reminders        list what will remind, what happened, and switch reminders on or off
  check            say whether the calendar's files are sound, and what to do if not

  tavo COMMAND --help   explains a command
  tavo --help           shows this text
  tavo --version        shows the version

The calendar is in the folder $TAVO_HOME; without that, in $XDG_DATA_HOME/tavocalendar,
which commonly is ~/.local/share/tavocalendar. All commands may be used while the
calendar's window is open.

Exit status: 0 all went well, 1 something went wrong or was refused, 2 the command
line was not understood.
)";

const std::string_view kImportHelp =
    R"(tavo import - bring iCalendar files into the calendar

Usage: tavo import PATH... [--as alarm|holiday|anniversary] [--strict]

A PATH is an .ics file, or a folder whose .ics files are all read, its subfolders too.

  --as KIND   tag what the files hold as alarm, holiday or anniversary; this also
              works while the calendar's window is open
  --strict    refuse a file that is anywhere against the format, instead of mending it
  --help      show this text

What is against the format costs the smallest part that it spoils: that is left out or
read another way, and file, line and what was done are named. An entry that has no
readable start, or that the calendar cannot hold (it lasts longer than 31 days, for
example), is refused by itself. Importing a file again changes only what is different in
it: entries are known by their UID.

Tasks, notes and cancelled events are passed over. Ctrl+C takes back the file that is
just being read; what was imported before it stays.

Exit status: 0 everything was imported, 1 something was refused or broken, 2 the
command line was not understood, 130 after Ctrl+C.
)";

const std::string_view kAgendaHelp =
    R"(tavo agenda - list appointments

Usage: tavo agenda [--from DATE] [--to DATE] [--tsv]

  --from DATE   the first day; today if not given (or the day of --to, if that is earlier)
  --to DATE     the last day, itself included; today if not given (or the day of --from,
                if that is later)
  --tsv         one line for each occurrence, for other programs
  --help        show this text

A DATE is written YYYY-MM-DD, like 2026-03-14.

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

Exit status: 0 everything is sound, 1 something is wrong.
)";

const std::string_view kMemoHelp =
    R"(tavo memo - list and export handwritten memos

Usage: tavo memo list [--date DATE]
       tavo memo export NAME... --to FOLDER [--format svg|png|pdf]
       tavo memo export --all --to FOLDER [--format svg|png|pdf]

list writes the names of the memos, a line for each; a name begins with the memo's day.

  --date DATE     only the memos of this day, written YYYY-MM-DD

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
