#!/usr/bin/env python3
"""Fails on whatever breaks the layers: an include against them, a forbidden header or word, a platform with behaviour,
a header that may be included twice, a source that nothing compiles.

usage: check_layers.py [ROOT]

The two tables below are the law: what a layer may include, and the order of the folders inside the program.
"""

import re
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))
from cpp_text import blank_comments, blank_literals, sources_of

# A folder may include itself and what stands before it.
PROGRAM_ORDER = ["res", "store", "memo", "alarm", "edit", "page", "schedule", "calendar", "settings", "app"]

# The layers that know the standard library and each other, and nothing else.
PURE_LAYERS = {
    "program": {"program", "framework", "platform"},
    "framework": {"framework", "platform"},
    "platform": {"platform"},
}

# All that a host, and with it everything outside the program except its tests, may know of the program.
START_HEADER = "app/start.h"
MAY_NOT_REACH_IN = {"host", "companion"}

# Folders that build on a machine without Qt.
FREE_OF_QT = ["host/backup", "host/print", "host/rules", "host/disk", "host/posix", "host/outlook", "host/exchange", "host/files", "host/locale",
              "host/ink", "host/reminders", "host/shell", "host/bare", "host/headless", "tools", "tests/memory_host"]
# The one folder that speaks SQL. What lies within it is for itself, and for those that look at stores from inside.
SQL_FOLDER = "host/outlook"
SQL_HEADER = "sqlite3.h"
SQL_INSIDES = {"host/outlook/database.h", "host/outlook/store_core.h"}
LOOK_INSIDE = {"tests", "fuzz", "benchmarks"}
# Folders that ask the operating system nothing: what they need of it is handed to them.
FREE_OF_POSIX = ["host/rules", "host/reminders", "host/locale", "host/shell", "host/exchange", "host/disk", "host/files",
                 "host/ink", "host/outlook", "host/bare", "tests/memory_host"]
POSIX_FOLDER = "host/posix"
POSIX_HEADER = re.compile(r"(?:sys|netinet|arpa|net|linux|asm)/|(?:unistd|fcntl|poll|dirent|spawn|signal|pwd|grp|glob|"
                          r"pthread|sched|semaphore|termios|dlfcn|syslog|ftw|utime|ucontext|mqueue|netdb)\.h$")
# What these folders of the host may include besides the standard library, the platform and themselves.
PURE_HOST_FOLDERS = {
    "host/rules": {"host/locale"},
    "host/reminders": set(),
    "host/disk": set(),
    "host/exchange": {"host/rules", "host/locale"},
}
# What no other host folder includes: each windowing host stands alone.
WINDOWING_HOSTS = ["host/qt", "host/headless", "tests/memory_host"]
# How many lines of .h and .cpp a folder may have in all: what shows that a windowing host is small has to stay so.
MOST_LINES = {"tests/memory_host": 400}
# No #if or #ifdef here: what differs between machines is a host's business.
FREE_OF_CONDITIONS = {"program", "framework", "platform", "tools", "companion"}

STANDARD_HEADERS = set("""
    algorithm any array atomic barrier bit bitset cassert cctype cerrno cfenv cfloat charconv chrono cinttypes climits
    clocale cmath codecvt compare complex concepts condition_variable coroutine csetjmp csignal cstdarg cstddef cstdint
    cstdio cstdlib cstring ctime cuchar cwchar cwctype deque exception execution filesystem format forward_list fstream
    functional future initializer_list iomanip ios iosfwd iostream istream iterator latch limits list locale map memory
    memory_resource mutex new numbers numeric optional ostream queue random ranges ratio regex scoped_allocator
    semaphore set shared_mutex source_location span sstream stack stdexcept stop_token streambuf string string_view
    strstream syncstream system_error thread tuple type_traits typeindex typeinfo unordered_map unordered_set utility
    valarray variant vector version""".split())

# Standard, but not for the pure layers.
FORBIDDEN_HEADERS = {}
for reason, names in {
    "time comes only from the host": "ctime",
    "randomness comes only from the host": "random",
    "the locale comes only from the host": "locale clocale codecvt",
    "files and streams come only from the host":
        "filesystem fstream iostream istream ostream sstream strstream syncstream streambuf iomanip ios cstdio",
    "the program has one thread":
        "thread mutex shared_mutex condition_variable future semaphore latch barrier stop_token atomic coroutine",
    "the program throws nothing": "exception stdexcept system_error csetjmp",
    "signals are the host's business": "csignal",
}.items():
    for name in names.split():
        FORBIDDEN_HEADERS[name] = reason

FORBIDDEN_WORDS = {
    r"throw|try|catch": "the program throws nothing and catches nothing",
    r"system_clock|steady_clock|high_resolution_clock|utc_clock": "time comes only from the host",
    r"getenv|secure_getenv": "the surroundings are the host's business",
    r"rand|srand": "randomness comes only from the host",
    r"thread_local": "the program has one thread",
}

# Nothing unwinds through the program, so what lies behind its seam reports failures and throws none: no throw, and of the
# library's calls on files only those that report into an `error`. The scripted device of the tests may give up.
THROWS_NOTHING = ["host", "tools", "companion"]
MAY_GIVE_UP = ["host/headless"]
FILE_CALL = re.compile(r"\b(?:std::filesystem|fs)::(?:[a-z_]*directory_iterator(?:\s+\w+)?|(?!path\b|perms\b)[a-z_]+)\s*"
                       r"\((?=[^()\s])((?:[^()]|\((?:[^()]|\([^()]*\))*\))*)\)")

# Sources here are named, each of them, in the CMakeLists.txt that builds them.
LISTED_FOLDERS = PROGRAM_ORDER + ["framework", "host", "tools", "companion", "tests"]

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*(?:<([^>\n]+)>|"([^"\n]+)"|(.*))', re.M)
CONDITION = re.compile(r"^[ \t]*#[ \t]*(?:if|ifdef|ifndef|elif)\b", re.M)
MODULE_IMPORT = re.compile(r'^[ \t]*(?:export[ \t]+)?import[ \t]*[<"\w]', re.M)


def layer_of(path):
    """The layer of a path given from the root: a pure layer's name, or the name of its first folder."""
    first = path.split("/", 1)[0]
    return "program" if first in PROGRAM_ORDER else first


def is_in(path, folders):
    return any(path.startswith(folder + "/") for folder in folders)


def line_of(text, position):
    return text.count("\n", 0, position) + 1


class Checker:
    def __init__(self, root):
        self.root = root
        self.problems = []

    def complain(self, path, line, message):
        self.problems.append(f"{path}:{line}: {message}")

    def check_file(self, path):
        text = blank_comments((self.root / path).read_text(encoding="utf-8"))
        layer = layer_of(path)
        self.check_includes(path, layer, text)
        bare = blank_literals(text)
        if path.endswith(".h") and not re.search(r"^#pragma once$", bare, re.M):
            self.complain(path, 1, "a header says #pragma once")
        if path.endswith(".cpp") and is_in(path, LISTED_FOLDERS):
            self.check_is_listed(path)
        if layer in FREE_OF_CONDITIONS:
            for match in CONDITION.finditer(bare):
                self.complain(path, line_of(bare, match.start()), "no #if outside host/: the host tells machines apart")
        if is_in(path, THROWS_NOTHING) and not is_in(path, MAY_GIVE_UP):
            self.check_throws_nothing(path, bare)
        if layer in PURE_LAYERS:
            for words, reason in FORBIDDEN_WORDS.items():
                for match in re.finditer(rf"\b(?:{words})\b", bare):
                    self.complain(path, line_of(bare, match.start()), f"'{match.group()}': {reason}")
            for match in MODULE_IMPORT.finditer(bare):
                self.complain(path, line_of(bare, match.start()), "modules are not used: include the header")
        if layer == "platform" and not path.endswith(".h"):
            self.complain(path, 1, "the platform declares and does nothing: it has headers only")

    def check_sizes(self, files):
        for folder, most in MOST_LINES.items():
            within = [path for path in files if is_in(path, [folder])]
            lines = sum((self.root / path).read_text(encoding="utf-8").count("\n") for path in within)
            if lines > most:
                self.complain(folder, lines, f"{lines} lines: this folder has at most {most}")

    def check_throws_nothing(self, path, bare):
        for match in re.finditer(r"\bthrow\b", bare):
            self.complain(path, line_of(bare, match.start()), "'throw': what lies behind the seam reports its failures")
        for match in FILE_CALL.finditer(bare):
            if not re.search(r"\berror\b", match.group(1)) and match.group(1) != "status": # which is known by then
                self.complain(path, line_of(bare, match.start()), f"'{match.group().split('(')[0].strip()}' throws without an error to report into")

    def check_includes(self, path, layer, text):
        own_header = path.rsplit(".", 1)[0] + ".h"
        first = True
        for match in INCLUDE.finditer(text):
            line = line_of(text, match.start())
            system, quoted, other = match.groups()
            if first and path.endswith(".cpp") and (self.root / own_header).exists() and quoted != own_header:
                self.complain(path, line, f'the own header comes first: "{own_header}"')
            first = False
            if system is not None:
                self.check_system_include(path, layer, line, system)
            elif quoted is not None:
                self.check_own_include(path, layer, line, quoted)
            else:
                self.complain(path, line, f"an include that cannot be checked: {other.strip()}")

    def check_is_listed(self, path):
        for folder in Path(path).parents:
            listing = self.root / folder / "CMakeLists.txt"
            if listing.is_file():
                name = re.escape(Path(path).relative_to(folder).as_posix())
                text = listing.read_text(encoding="utf-8").replace("${CMAKE_CURRENT_SOURCE_DIR}/", "")
                if not re.search(rf"(?<![\w./-]){name}(?![\w.])", text):
                    self.complain(path, 1, f"{(folder / 'CMakeLists.txt').as_posix()} does not list it: nothing compiles it")
                return
        self.complain(path, 1, "no CMakeLists.txt lists it: nothing compiles it")

    def check_system_include(self, path, layer, line, header):
        if layer in PURE_LAYERS:
            if header not in STANDARD_HEADERS:
                self.complain(path, line, f"<{header}> is not the standard library's; the {layer} knows nothing else")
            elif header in FORBIDDEN_HEADERS:
                self.complain(path, line, f"<{header}>: {FORBIDDEN_HEADERS[header]}")
        elif re.match(r"Q[A-Z]|Qt", header) and is_in(path, FREE_OF_QT):
            self.complain(path, line, f"<{header}>: this folder builds without Qt")
        elif header == SQL_HEADER and layer not in LOOK_INSIDE and not is_in(path, [SQL_FOLDER]):
            self.complain(path, line, f"<{header}>: only {SQL_FOLDER}/ speaks SQL")
        elif POSIX_HEADER.match(header) and is_in(path, FREE_OF_POSIX):
            self.complain(path, line, f"<{header}>: this folder asks the operating system nothing")
        else:
            self.check_pure_host_include(path, line, f"<{header}>", header in STANDARD_HEADERS)

    def check_pure_host_include(self, path, line, header, is_known):
        for folder, others in PURE_HOST_FOLDERS.items():
            if is_in(path, [folder]) and not is_known and header not in others:
                self.complain(path, line, f"{header}: {folder}/ needs less than that")

    def check_own_include(self, path, layer, line, header):
        if header.endswith(".moc") and layer not in PURE_LAYERS:
            return
        if ".." in header.split("/") or not (self.root / header).is_file():
            self.complain(path, line, f'"{header}" is no file, seen from the root')
            return
        target = layer_of(header)
        if layer in PURE_LAYERS and target not in PURE_LAYERS[layer]:
            self.complain(path, line, f'"{header}": the {layer} may not include {target}/')
        elif layer == "program" and target == "program":
            source_folder, target_folder = path.split("/", 1)[0], header.split("/", 1)[0]
            if PROGRAM_ORDER.index(target_folder) > PROGRAM_ORDER.index(source_folder):
                self.complain(path, line, f'"{header}": {target_folder}/ stands above {source_folder}/')
        elif layer in MAY_NOT_REACH_IN and target == "program" and header != START_HEADER:
            self.complain(path, line, f'"{header}": of the program a host knows only {START_HEADER}')
        if layer == "host" or is_in(path, WINDOWING_HOSTS):
            for host in WINDOWING_HOSTS:
                if header.startswith(host + "/") and not path.startswith(host + "/"):
                    self.complain(path, line, f'"{header}": {host}/ stands alone')
        if header in SQL_INSIDES and layer not in LOOK_INSIDE and not is_in(path, [SQL_FOLDER]):
            self.complain(path, line, f'"{header}": what lies within {SQL_FOLDER}/ is for itself')
        if header.startswith(POSIX_FOLDER + "/") and is_in(path, FREE_OF_POSIX):
            self.complain(path, line, f'"{header}": what this folder needs of the operating system is handed to it')
        folder = header.rsplit("/", 1)[0]
        self.check_pure_host_include(path, line, folder, target == "platform" or path.startswith(folder + "/"))
        if header.startswith("host/qt/") and is_in(path, FREE_OF_QT):
            self.complain(path, line, f'"{header}": this folder builds without Qt')


def main(arguments):
    if len(arguments) > 1:
        print(__doc__, file=sys.stderr)
        return 2
    root = Path(arguments[0] if arguments else Path(__file__).resolve().parent.parent)
    files = sources_of(root)
    if not files:
        print(f"{root}: no source files here", file=sys.stderr)
        return 2
    checker = Checker(root)
    for path in files:
        checker.check_file(path)
    checker.check_sizes(files)
    for problem in checker.problems:
        print(problem)
    print(f"layers: {len(files)} files, {len(checker.problems)} problems")
    return 1 if checker.problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
