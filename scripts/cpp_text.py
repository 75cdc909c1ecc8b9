"""C++ sources as the house checks see them: which files there are, and their text without comments or literals."""

import os
import re

# The project's own folders; what a build makes lies elsewhere.
SOURCE_FOLDERS = ["platform", "framework", "res", "store", "memo", "alarm", "edit", "page", "schedule",
                  "calendar", "settings", "app", "host", "tools", "companion", "tests", "benchmarks", "fuzz"]
SOURCE_SUFFIXES = (".h", ".hpp", ".inc", ".cpp", ".cc", ".cxx")

_TOKEN = re.compile(
    r"""(?P<comment>//(?:[^\n\\]|\\\n|\\.)*|/\*.*?\*/)
    |(?P<raw>R"(?P<mark>[^()\\\s]{0,16})\(.*?\)(?P=mark)")
    |(?P<include>^[ \t]*\#[ \t]*include[ \t]*(?:<[^>\n]*>|"[^"\n]*"))
    |(?P<text>"(?:\\.|[^"\\\n])*")
    |(?P<number>\b\d(?:'?\w)*)
    |(?P<character>'(?:\\.|[^'\\\n])+')""",
    re.X | re.S | re.M)


def _blank(text):
    return re.sub(r"[^\n]", " ", text)


def blank_comments(text):
    """The text with every comment blanked; lines and columns stay where they are."""
    return _TOKEN.sub(lambda match: _blank(match.group()) if match.lastgroup == "comment" else match.group(), text)


def blank_literals(text):
    """The text, free of comments, with texts, characters and includes blanked as well."""
    kept = {"number"}
    return _TOKEN.sub(lambda match: match.group() if match.lastgroup in kept else _blank(match.group()), text)


def sources_of(root):
    """Paths from the root of every source file, in order."""
    found = []
    for folder in SOURCE_FOLDERS:
        for directory, _, names in os.walk(os.path.join(root, folder)):
            found += [os.path.relpath(os.path.join(directory, name), root).replace(os.sep, "/")
                      for name in names if name.endswith(SOURCE_SUFFIXES)]
    return sorted(found)
