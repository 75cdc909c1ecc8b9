#!/usr/bin/env python3
"""Runs clang-tidy over every source that a configured build folder compiles.

usage: check_tidy.py BUILD_FOLDER [PATH_PART...]

With path parts, only files whose path contains one of them. What .clang-tidy counts as an error fails the check.
"""

import json
import os
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path


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

    def judge(file):
        return subprocess.run(["clang-tidy", "-p", str(build), "--quiet", file], cwd=root, capture_output=True, text=True)

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
