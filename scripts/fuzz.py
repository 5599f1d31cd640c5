#!/usr/bin/env python3
"""Attacks the module with hostile calls and damaged files until something ends or hangs the process.

Each seed is a worker process of its own. A fault is told with its seed, which repeats it, and with as few lines of
Python as will do.
"""

import argparse
import os
import random
import signal
import subprocess
import sys
import tempfile
import time

WORKER = os.path.join(os.path.dirname(os.path.abspath(__file__)), "fuzz_worker.py")
ENVIRONMENT = dict(os.environ, PYTHONHASHSEED="0", SDL_VIDEODRIVER="dummy", SDL_AUDIODRIVER="dummy")
if os.path.isdir("/dev/shm"):
    tempfile.tempdir = ENVIRONMENT["TMPDIR"] = "/dev/shm"  # many small files, which need no disk


def main():
    options = parse_options()
    with tempfile.TemporaryDirectory() as folder:
        return attack(options, os.path.join(folder, "lines"))


def attack(options, log):
    end, seed, count = time.time() + options.seconds, options.seed, {"calls": 0, "files": 0}
    while time.time() < end and (options.runs is None or seed < options.seed + options.runs):
        mode = options.mode or ("calls", "files")[seed % 2]
        fault, output = watch(options, log, mode, seed, options.lines)
        lines = read(log)
        count[mode] += len(lines)
        if fault:
            print(output[-6000:])
            print("{}, after {} lines. What repeats it: --mode {} --seed {} --lines {} --runs 1, or, with PYTHONPATH={}:\n".format(
                fault, len(lines), mode, seed, options.lines, os.pathsep.join([os.environ.get("PYTHONPATH", ""), "scripts"])))
            print("\n".join(["from fuzz_worker import *"] + ["do(%r)" % line for line in fewest(options, log, lines)]))
            return 1
        seed += 1
    print("{calls} calls and {files} files, seeds {} to {}: no fault".format(options.seed, seed - 1, **count))
    return 0


def watch(options, log, *arguments):
    """Runs a worker; returns what went wrong, or None, and what the worker wrote about it."""
    with tempfile.TemporaryFile() as errors:
        worker = subprocess.Popen([sys.executable, WORKER, log] + list(map(str, arguments)), env=ENVIRONMENT,
                                  stdout=subprocess.DEVNULL, stderr=errors)
        fault, size = None, -1
        while worker.poll() is None:
            try:
                worker.wait(options.patience)
            except subprocess.TimeoutExpired:
                before, size = size, os.path.exists(log) and os.path.getsize(log)
                if size == before:  # no new line in all that time
                    fault = "It hung"
                    worker.send_signal(signal.SIGABRT)  # prints the stack
        if worker.returncode and not fault:
            fault = "It ended by signal %d" % -worker.returncode if worker.returncode < 0 else "It ended with %d" % worker.returncode
        errors.seek(0)
        return fault, errors.read().decode(errors="replace")


def read(log):
    with open(log, encoding="utf-8") as file:
        return file.read().splitlines()


def fewest(options, log, lines):
    """Leaves out as many lines as it can, in two minutes, while the others still end or hang the process."""
    end, size = time.time() + 120, len(lines) // 2
    while size and time.time() < end:
        start = 0
        while start < len(lines) and time.time() < end:
            fewer = lines[:start] + lines[start + size:]
            with open(log, "w", encoding="utf-8") as file:
                file.write("\n".join(fewer))
            if watch(options, log, "repeat")[0]:
                lines = fewer
            else:
                start += size
        size //= 2
    return lines


def parse_options():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--seconds", type=float, default=60, help="how long to go on (60)")
    parser.add_argument("--seed", type=int, default=random.randrange(10**6), help="the first seed; otherwise a random one")
    parser.add_argument("--runs", type=int, help="end after so many seeds")
    parser.add_argument("--mode", choices=("calls", "files"), help="only hostile calls, or only damaged files")
    parser.add_argument("--lines", type=int, default=3000, help="calls or files for each seed (3000)")
    parser.add_argument("--patience", type=float, default=15, help="seconds without a new line that count as a hang (15)")
    return parser.parse_args()


if __name__ == "__main__":
    sys.exit(main())
