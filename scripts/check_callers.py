#!/usr/bin/env python3
"""Fails on functions that nothing but tests names: work that is done and that nobody asks for.

usage: check_callers.py [ROOT]

A function is what a header of the system declares, unless it overrides another. It has a caller when its name stands,
other than where it is declared or defined, in a source of the system that includes that header, perhaps through others.
"""

import re
import sys
from collections import Counter
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))
from cpp_text import blank_comments, blank_literals, sources_of

# What exists to try the system out: neither asked for callers nor counted as one.
TRIALS = ("tests/", "benchmarks/", "fuzz/", "host/bare/", "host/headless/")

# What tests look through: (header, name) -> at what. Whatever the system itself could do without goes instead.
SIGHTS = {
    ("app/tavo_app.h", "MessagePump"): "a started program's loop",
    ("app/tavo_app.h", "ProgramState"): "a started program's objects",
    ("framework/message_pump.h", "TopDialog"): "what is open",
    ("host/files/device_files.h", "FolderReads"): "how often the disk was asked",
    ("host/files/registry_file.h", "ReadValue"): "what was written",
    ("host/files/scripted_clock.h", "Advance"): "a clock that tests set",
    ("host/ink/ink_control.h", "IsPenDown"): "the state of the pen",
    ("host/ink/paper_view.h", "ToControl"): "where a test has to put the pen",
    ("host/outlook/occurrence_reader.h", "ListStarts"): "the listing by starts alone",
    ("host/qt/host.h", "Box"): "the open message box",
    ("host/qt/host.h", "Desktop"): "the window itself",
    ("host/qt/host.h", "OpenMenu"): "the open menu",
    ("host/qt/host.h", "Views"): "the windows in it",
    ("host/qt/menu_view.h", "Current"): "the marked entry",
    ("host/qt/painted_widget.h", "Window"): "whose a part of the screen is",
    ("host/outlook/store_ledger.h", "Finder"): "what is due, without a ledger",
    ("host/shell/chrome/chrome.h", "PartAt"): "what lies at a point, for a host without widgets",
    ("host/shell/chrome/menu_strip.h", "ButtonPlace"): "where a button is to be tapped",
    ("host/shell/chrome/message_box.h", "ButtonPlace"): "where an answer is to be tapped",
    ("host/shell/shell_queue.h", "HasQuit"): "the end of a scripted program",
    ("memo/memo_files.h", "HasMemo"): "one day; the month asks for all of its days at once",
    ("res/dialog_templates.h", "AllDialogTemplates"): "the templates, to walk over them",
    ("store/undo.h", "IsDone"): "that all was taken back",
}
# Calls of the device's own, which stay whole whatever the program makes of them.
DEVICE = ("platform/",)
# Called by the compiler or through a template's parameter.
UNSEEN = {("host/outlook/ref_counted.h", "Release")}

NAME = r"[A-Z]\w*[a-z]\w*"
DECLARATION = re.compile(rf"""
    ^[ \t]*(?:\[\[[^\]]*\]\][ \t]*)?
    (?:(?:static|virtual|inline|constexpr|explicit|friend|template[ \t]*<[^;{{}}()]*>)\s+)*
    (?!return\b|else\b|delete\b|throw\b|co_return\b|case\b)
    [A-Za-z_][\w:]*(?:<[^;{{}}()]*>)?(?:[ \t]+const)?[ \t]*[&*]*[ \t]+[&*]*
    (?:[A-Za-z_]\w*(?:<[^;{{}}()]*>)?::)*
    ((?:get_|put_)?{NAME})\(""", re.X | re.M)


def overrides(text, end):
    """Whether the declaration whose parameters begin at `end` says that it overrides another."""
    return re.match(r"[^;{}]*\boverride\b", text[end:]) is not None


class Tree:
    """The system's own sources: what each declares, names and includes."""

    def __init__(self, root):
        self.paths = [path for path in sources_of(root) if not path.startswith(TRIALS)]
        self.declared = {}  # (header, name) -> line
        self.named = {}     # path -> names that stand there other than where they are declared or defined
        self.includes = {}
        self.closures = {}
        for path in self.paths:
            self.read(path, (root / path).read_text(encoding="utf-8"))

    def read(self, path, whole):
        text = blank_literals(whole)
        counts = Counter(re.findall(rf"(?<![\w~])(?:get_|put_)?{NAME}\b", text))
        for match in DECLARATION.finditer(text):
            counts[match.group(1)] -= 1
            if path.endswith(".h") and not overrides(text, match.end()):
                self.declared.setdefault((path, match.group(1)), text.count("\n", 0, match.start(1)) + 1)
        self.named[path] = {name for name, count in counts.items() if count > 0}
        self.includes[path] = re.findall(r'^[ \t]*#[ \t]*include[ \t]*"([^"\n]+)"', blank_comments(whole), re.M)

    def closure(self, path):
        """The path and every header that it includes, perhaps through others."""
        if path not in self.closures:
            seen, left = set(), [path]
            while left:
                one = left.pop()
                if one not in seen:
                    seen.add(one)
                    left += self.includes.get(one, [])
            self.closures[path] = seen
        return self.closures[path]

    def uncalled(self):
        """(header, line, name) of each function without a caller."""
        called = {(header, name) for path in self.paths for header in self.closure(path) for name in self.named[path]}
        return sorted((header, line, name) for (header, name), line in self.declared.items()
                      if (header, name) not in called)


def main():
    root = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).resolve().parent.parent
    tree = Tree(root)
    if not tree.declared:
        print(f"no functions below {root}")
        return 2
    uncalled = tree.uncalled()
    problems = [f"{header}:{line}: nothing but tests names {name}" for header, line, name in uncalled
                if not header.startswith(DEVICE) and (header, name) not in UNSEEN and (header, name) not in SIGHTS]
    found = {(header, name) for header, _, name in uncalled}
    problems += [f"{header}: {name} is excused and has a caller" for header, name in sorted(SIGHTS)
                 if (header, name) in tree.declared and (header, name) not in found]
    for problem in problems:
        print(problem)
    print(f"{len(problems)} problems in {len(tree.declared)} functions")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
