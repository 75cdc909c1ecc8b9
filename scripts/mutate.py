#!/usr/bin/env python3
"""Do the tests notice? Changes the program in one place at a time, and runs the tests of that place's folder.

usage: scripts/mutate.py FOLDER [--count N] [--seed S] [--only PATH] [--jobs J] [--root TREE] [--list]

Each change (a "mutant") flips a comparison, drops a call or changes a constant in a source file of the program or its
framework. It is built in FOLDER, which gets a copy of the tree and a build of its own: the working tree is never
changed. Then the tests of that folder run, headless, on the copy. A mutant is killed when a test fails, is stopped for
taking too long, or crashes; it survives when all pass; one that does not compile does not count. The same seed gives
the same mutants in the same order.

The last lines name the survivors with file, line and change, and the share of the killed. The exit code is 1 when fewer
than 95 in a hundred were killed, 2 when nothing could be tried.
"""

import argparse
import filecmp
import os
import pathlib
import queue
import random
import re
import shutil
import subprocess
import sys
import threading
from concurrent.futures import ThreadPoolExecutor

import cpp_text

MUTATED_FOLDERS = ["app", "store", "calendar", "memo", "edit", "page", "schedule", "settings", "alarm", "framework"]
WANTED_PERCENT = 95
TEST_PROCESSOR_SECONDS = 200  # what takes longer than this goes round without end
TEST_SECONDS = 1200  # and this, waits for something that never comes; others may have the machine meanwhile
BUILD_SECONDS = 1800

COMPARISONS = {"==": "!=", "!=": "==", "<": "<=", ">": ">=", "<=": "<", ">=": ">", "&&": "||", "||": "&&"}
# The formatter puts blanks around operators of two sides, and none beside the brackets of templates.
_COMPARISON = re.compile(r"(?<= )(==|!=|<=|>=|&&|\|\||<|>)(?= )")
_CALL = re.compile(r"^\s+((?!return\b|co_return\b|delete\b|throw\b)[A-Za-z_][\w:.\[\]]*(?:(?:->|\(\)\.|\(\)->)[\w.:]+)*"
                   r"\(.*\);)\s*$")
_NUMBER = re.compile(r"(?<![\w.'])(0x[0-9A-Fa-f]+|\d+)(?![\w.'])")
_TRUTH = re.compile(r"\b(true|false)\b")


class Mutant:
    """One change: in this file, on this line (from 1), from this column on, `old` becomes `new`."""

    def __init__(self, path, line, column, old, new):
        self.path, self.line, self.column, self.old, self.new = path, line, column, old, new

    def apply(self, text):
        lines = text.split("\n")
        line = lines[self.line - 1]
        assert line[self.column:].startswith(self.old)
        lines[self.line - 1] = line[:self.column] + self.new + line[self.column + len(self.old):]
        return "\n".join(lines)

    def __str__(self):
        place = f"{self.path}:{self.line}:{self.column + 1}"
        return f"{place}: {self.old} dropped" if self.new == ";" else f"{place}: {self.old} -> {self.new}"


def _is_whole_call(code):
    """A call of a call's result is one too; anything else between them is not."""
    depth = 0
    for position, character in enumerate(code):
        depth += {"(": 1, ")": -1}.get(character, 0)
        if depth == 0 and character == ")" and not code[position + 1:].startswith((".", "->")):
            return code[position + 1:] == ";"
    return False


def mutants_of(path, text):
    """Every mutant of one source, in the order of lines and columns."""
    found = []
    for number, (line, code) in enumerate(zip(text.split("\n"), cpp_text.blank_literals(text).split("\n")), 1):
        if code.lstrip().startswith(("#", "template", "static_assert")) or "operator" in code:
            continue
        for match in _COMPARISON.finditer(code):
            found.append(Mutant(path, number, match.start(), match.group(), COMPARISONS[match.group()]))
        for match in _NUMBER.finditer(code):
            value = int(match.group(), 0)
            found.append(Mutant(path, number, match.start(), match.group(), str(value + 1)))
        for match in _TRUTH.finditer(code):
            found.append(Mutant(path, number, match.start(), match.group(),
                                "false" if match.group() == "true" else "true"))
        match = _CALL.match(code)
        if match is not None and _is_whole_call(match.group(1)):
            column = match.start(1)
            found.append(Mutant(path, number, column, line[column:match.end(1)], ";"))
    return sorted(found, key=lambda mutant: (mutant.line, mutant.column, mutant.old))


def all_mutants(root, only=()):
    found = []
    for path in cpp_text.sources_of(root):
        if path.endswith(".cpp") and path.split("/")[0] in MUTATED_FOLDERS and path.startswith(tuple(only) or ""):
            found += mutants_of(path, (root / path).read_text(encoding="utf-8"))
    return found


def shuffled(mutants, seed):
    mutants = list(mutants)
    random.Random(seed).shuffle(mutants)
    return mutants


def test_programs(root, folder):
    """The names of the folder's test programs, as its listing gives them."""
    listing = root / "tests" / folder / "CMakeLists.txt"
    text = listing.read_text(encoding="utf-8") if listing.exists() else ""
    return re.findall(r"^tavo_test\(\s*(\w+)", text, re.M)


class UnfitTests(Exception):
    """Nothing can be learnt from them."""


class Workshop:
    """A copy of the tree with a build of its own."""

    def __init__(self, root, folder):
        self.tree, self.build = folder / "tree", folder / "build"
        self.trusted = set()  # test programs that pass when nothing is changed
        copy_tree(root, self.tree)
        if not (self.build / "build.ninja").exists():
            self.run(["cmake", "-S", self.tree, "-B", self.build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
                      "-DCMAKE_CXX_FLAGS_DEBUG=-O0", "-DTAVO_TESTS=ON", "-DTAVO_QT=OFF"], BUILD_SECONDS)

    def run(self, command, seconds, processor_seconds=None):
        """True when it ended well, and in time."""
        environment = {**os.environ, "LC_ALL": "C.UTF-8", "QT_QPA_PLATFORM": "offscreen"}
        words = [str(part) for part in command]
        if processor_seconds is not None:
            words = ["prlimit", f"--cpu={processor_seconds}", *words]
        try:
            return subprocess.run(words, cwd=self.tree, env=environment, timeout=seconds, stdout=subprocess.DEVNULL,
                                  stderr=subprocess.DEVNULL, check=False).returncode == 0
        except subprocess.TimeoutExpired:
            return False

    def test(self, program, *options):
        return self.run([self.build / "bin" / program, *options], TEST_SECONDS, TEST_PROCESSOR_SECONDS)

    def make(self, programs):
        return self.run(["ninja", "-C", self.build, *programs], BUILD_SECONDS)

    def trust(self, programs):
        """A test that fails anyway would count every mutant as killed."""
        for program in programs:
            if program not in self.trusted:
                if not self.make([program]) or not self.test(program):
                    raise UnfitTests(f"{program} does not pass although nothing was changed")
                self.trusted.add(program)

    def try_mutant(self, mutant):
        """'killed', 'survived' or 'no mutant'. The copy is as it was afterwards."""
        programs = test_programs(self.tree, mutant.path.split("/")[0])
        self.trust(programs)
        source = self.tree / mutant.path
        text = source.read_text(encoding="utf-8")
        try:
            source.write_text(mutant.apply(text), encoding="utf-8")
            if not programs or not self.make(programs):
                return "no mutant"
            for program in programs:
                if not self.test(program, "--gtest_fail_fast"):
                    return "killed"
            return "survived"
        finally:
            source.write_text(text, encoding="utf-8")


def files_of(root):
    """What the tree holds and is not ignored, by paths relative to it."""
    listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard"], cwd=root, capture_output=True, text=True,
                            check=False)
    if listed.returncode == 0:
        return [path for path in listed.stdout.splitlines() if (root / path).is_file()]
    return [str(path.relative_to(root)) for path in root.rglob("*")
            if path.is_file() and not path.relative_to(root).parts[0].startswith(("build", ".git"))]


def copy_tree(root, tree):
    """Makes `tree` the same as the root's files. What is the same already is not touched, so it is not built again."""
    wanted = set(files_of(root))
    for path in tree.rglob("*"):
        if path.is_file() and str(path.relative_to(tree)) not in wanted:
            path.unlink()
    for path in wanted:
        if not (tree / path).is_file() or not filecmp.cmp(root / path, tree / path, shallow=False):
            (tree / path).parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(root / path, tree / path)
            shutil.copymode(root / path, tree / path)


def run_all(root, folder, mutants, count, jobs):
    """(mutant, result) for the first `count` that compile."""
    waiting = queue.Queue()
    for mutant in mutants:
        waiting.put(mutant)
    results = []
    lock = threading.Lock()

    def counted():
        return sum(1 for _, result in results if result != "no mutant")

    def work(place):
        workshop = Workshop(root, place)
        while True:
            with lock:
                if counted() >= count or waiting.empty():
                    return
                mutant = waiting.get()
            result = workshop.try_mutant(mutant)
            with lock:
                if result == "no mutant" or counted() < count:
                    results.append((mutant, result))
                    print(f"{result}: {mutant}", flush=True)

    with ThreadPoolExecutor(jobs) as workers:
        places = [folder / str(job) if jobs > 1 else folder for job in range(jobs)]
        list(workers.map(work, places))  # takes up what a worker could not go on with
    return results


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("folder", type=pathlib.Path)
    parser.add_argument("--count", type=int, default=150, help="so many that compile")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--only", action="append", default=[], metavar="PATH", help="sources whose path begins so")
    parser.add_argument("--jobs", type=int, default=1)
    parser.add_argument("--root", type=pathlib.Path, default=pathlib.Path(__file__).resolve().parent.parent)
    parser.add_argument("--list", action="store_true", help="only name them")
    options = parser.parse_args()
    root = options.root.resolve()
    mutants = shuffled(all_mutants(root, options.only), options.seed)
    if options.list:
        for mutant in mutants[:options.count]:
            print(mutant)
        return 0
    try:
        results = run_all(root, options.folder.resolve(), mutants, options.count, options.jobs)
    except UnfitTests as trouble:
        print(trouble, file=sys.stderr)
        return 2
    tried = [(mutant, result) for mutant, result in results if result != "no mutant"]
    if not tried:
        print("nothing could be tried")
        return 2
    survivors = [mutant for mutant, result in tried if result == "survived"]
    print(f"\nsurvivors: {len(survivors)}")
    for mutant in survivors:
        print(f"  {mutant}")
    percent = 100 * (len(tried) - len(survivors)) / len(tried)
    print(f"{len(tried) - len(survivors)} of {len(tried)} killed: {percent:.1f} %"
          f" ({len(results) - len(tried)} did not compile)")
    return 0 if percent >= WANTED_PERCENT else 1


if __name__ == "__main__":
    sys.exit(main())
