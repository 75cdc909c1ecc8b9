#!/usr/bin/env python3
"""Fails on a file that clang-format would write differently.

usage: check_format.py [ROOT]

Versions of clang-format disagree in details, so one is the judge: version 14. Where only another is installed nothing is
judged, and the status is 77 (skipped).
"""

import re
import shutil
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))
from cpp_text import sources_of

JUDGE = 14
SKIPPED = 77
BATCH = 20


def version_of(tool):
    output = subprocess.run([tool, "--version"], capture_output=True, text=True, check=True).stdout
    found = re.search(r"version (\d+)", output)
    return int(found.group(1)) if found else None


def find_formatter():
    """The judge's path, and the versions met while looking for it."""
    met = []
    for name in (f"clang-format-{JUDGE}", "clang-format"):
        path = shutil.which(name)
        if path is not None:
            met.append(version_of(path))
            if met[-1] == JUDGE:
                return path, met
    return None, met


def main(arguments):
    root = Path(arguments[0] if arguments else Path(__file__).resolve().parent.parent)
    files = sources_of(root)
    if not files:
        print(f"{root}: no source files here", file=sys.stderr)
        return 2
    formatter, met = find_formatter()
    if formatter is None:
        others = ", ".join(str(version) for version in met) or "none"
        print(f"format: not judged. clang-format {JUDGE} is the judge; installed here: {others}")
        return SKIPPED

    def judge(batch):
        return subprocess.run([formatter, "--style=file", "--dry-run", "-Werror", *batch], cwd=root,
                              capture_output=True, text=True)

    batches = [files[start:start + BATCH] for start in range(0, len(files), BATCH)]
    with ThreadPoolExecutor(max_workers=2) as pool:
        results = list(pool.map(judge, batches))
    failed = any(result.returncode != 0 for result in results)
    if failed:
        output = "".join(result.stderr for result in results)
        unformatted = dict.fromkeys(re.findall(r"^(\S[^:\n]*):\d+:\d+: error", output, re.M))
        print("\n".join(unformatted) if unformatted else output)
        print("format: these need clang-format-14 -i")
    print(f"format: {len(files)} files")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
