#!/usr/bin/env python3
"""Names the files that have outgrown their size. A hint to split by job, not a failure.

usage: report_sizes.py [ROOT]
"""

import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))
from cpp_text import sources_of

LIMITS = {".h": 150, ".cpp": 400}


def main(arguments):
    root = Path(arguments[0] if arguments else Path(__file__).resolve().parent.parent)
    for path in sources_of(root):
        limit = LIMITS.get(Path(path).suffix)
        lines = len((root / path).read_text(encoding="utf-8").splitlines())
        if limit is not None and lines > limit:
            print(f"warning: {path} has {lines} lines; past {limit} it is better split by job")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
