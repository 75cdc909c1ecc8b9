"""Runs processes and measures them from outside."""

import os
import statistics
import subprocess
import time
from collections import namedtuple

# Seconds by the clock, seconds of processor time, kilobytes of memory at the peak.
Cost = namedtuple("Cost", "wall cpu peak")


def run(command, environment=None):
    """Standard output of a command that must succeed."""
    result = subprocess.run(command, env=environment, capture_output=True, text=True, check=False)
    if result.returncode != 0:
        raise RuntimeError(f"{command[0]} failed: {result.stderr.strip()}")
    return result.stdout


def measure(command, environment=None):
    """The cost of one run, its output thrown away."""
    with open(os.devnull, "wb") as null:
        actions = [(os.POSIX_SPAWN_DUP2, null.fileno(), 1)]
        begin = time.perf_counter()
        process = os.posix_spawnp(command[0], command, environment or os.environ, file_actions=actions)
        _, status, usage = os.wait4(process, 0)
        wall = time.perf_counter() - begin
    if os.waitstatus_to_exitcode(status) != 0:
        raise RuntimeError(f"{command[0]} ended with status {os.waitstatus_to_exitcode(status)}")
    return Cost(wall, usage.ru_utime + usage.ru_stime, usage.ru_maxrss)


def median(costs):
    return Cost(*(statistics.median(values) for values in zip(*costs)))


def compare(left, right, runs, environment=None):
    """The median costs of two commands, run in turn so that both meet the same machine."""
    costs = ([], [])
    for _ in range(runs):
        costs[0].append(measure(left, environment))
        costs[1].append(measure(right, environment))
    return median(costs[0]), median(costs[1])
