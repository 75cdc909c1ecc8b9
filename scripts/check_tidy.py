#!/usr/bin/env python3
"""Runs clang-tidy over every source that a configured build folder compiles.

usage: check_tidy.py BUILD_FOLDER [PATH_PART...]

With path parts, only files whose path contains one of them. What .clang-tidy counts as an error fails the check. A file
that was found good is not judged again until it, a header of it, its compile command or the rules change: what was said of
it is kept in BUILD_FOLDER/tidy.
"""

import functools
import hashlib
import json
import os
import shlex
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path


@functools.lru_cache(maxsize=None)
def digest_of(path):
    return hashlib.sha256(Path(path).read_bytes()).hexdigest()


def files_read(entry):
    """The files that the compiler reads for this entry of the compile commands, or none where it cannot tell."""
    words = shlex.split(entry["command"])
    while words and "clang" not in os.path.basename(words[0]):
        words.pop(0)  # a launcher, such as a compiler cache
    if "-o" in words:
        del words[words.index("-o"):words.index("-o") + 2]
    result = subprocess.run([*words, "-M"], cwd=entry["directory"], capture_output=True, text=True)
    if result.returncode != 0:
        return []
    rule = result.stdout.replace("\\\n", " ").split(": ", 1)[1]
    return sorted({os.path.join(entry["directory"], name) for name in shlex.split(rule)})


def rules_for(file, root):
    """What holds for this file: the rules of its own folder and of all that are around it."""
    folders = [folder for folder in Path(file).parents if folder == root or folder.is_relative_to(root)]
    found = [folder / ".clang-tidy" for folder in folders]
    return "".join(path.read_text() for path in found if path.exists())


class Verdicts:
    """What was said of files that were found good, by the contents of everything that the judgement rests on."""

    def __init__(self, folder, version):
        self.folder = folder
        self.folder.mkdir(exist_ok=True)
        self.version = version

    def place(self, entry, rules):
        """Where the verdict on this entry is kept, or None where it cannot be told what it rests on."""
        read = files_read(entry)
        if not read:
            return None
        text = "\n".join([self.version, rules, entry["command"], *(f"{name} {digest_of(name)}" for name in read)])
        return self.folder / hashlib.sha256(text.encode()).hexdigest()


def main(arguments):
    if not arguments:
        print(__doc__, file=sys.stderr)
        return 2
    build = Path(arguments[0]).resolve()
    root = Path(__file__).resolve().parent.parent
    commands = json.loads((build / "compile_commands.json").read_text())
    files = sorted({os.path.normpath(os.path.join(entry["directory"], entry["file"])) for entry in commands})
    files = [file for file in files if Path(file).is_relative_to(root) and not Path(file).is_relative_to(build)]
    if arguments[1:]:
        files = [file for file in files if any(part in file for part in arguments[1:])]
    if not files:
        print(f"{build}: compiles nothing of the project", file=sys.stderr)
        return 2

    entry_of = {os.path.normpath(os.path.join(entry["directory"], entry["file"])): entry for entry in commands}
    version = subprocess.run(["clang-tidy", "--version"], capture_output=True, text=True).stdout
    verdicts = Verdicts(build / "tidy", version)

    def judge(file):
        place = verdicts.place(entry_of[file], rules_for(file, root))
        if place and place.exists():
            return subprocess.CompletedProcess([], 0, place.read_text(), "")
        result = subprocess.run(["clang-tidy", "-p", str(build), "--quiet", file], cwd=root, capture_output=True, text=True)
        if place and result.returncode == 0:
            place.write_text(result.stdout)
        return result

    failed = 0
    with ThreadPoolExecutor(max_workers=os.cpu_count() or 2) as pool:
        for file, result in zip(files, pool.map(judge, files)):
            sys.stdout.write(result.stdout)
            if result.returncode != 0:
                failed += 1
                print(f"clang-tidy: {os.path.relpath(file, root)} fails")
                if not result.stdout:
                    sys.stdout.write(result.stderr)
    print(f"clang-tidy: {len(files)} files, {failed} with errors")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
