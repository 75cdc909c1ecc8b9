"""The companion that a calendar starts: it stays when the calendar has ended."""

import fcntl
import os
import signal
import struct
import time
from pathlib import Path

# struct flock: kind, whence, start, length, process.
LOCK_FORMAT = "hhqqi4x"
PATIENCE_SECONDS = 10


def find_companion(home):
    """The process that serves this root folder; 0 when there is none."""
    try:
        with open(Path(home) / "Run" / "RSound.lock", "r+b") as lock:
            question = struct.pack(LOCK_FORMAT, fcntl.F_WRLCK, os.SEEK_SET, 0, 0, 0)
            kind, _, _, _, process = struct.unpack(LOCK_FORMAT, fcntl.fcntl(lock, fcntl.F_GETLK, question))
    except FileNotFoundError:
        return 0
    return 0 if kind == fcntl.F_UNLCK else process


def end_companion(home):
    """So that nothing is left behind, and the next one on this folder finds its place free."""
    process = find_companion(home)
    if process:
        os.kill(process, signal.SIGTERM)
    end = time.monotonic() + PATIENCE_SECONDS
    while process and find_companion(home) == process:
        if time.monotonic() > end:
            raise RuntimeError(f"the companion {process} does not end")
        time.sleep(0.01)
