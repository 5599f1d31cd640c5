#!/usr/bin/env python3
"""Attacks the module with hostile calls and damaged files, and reports what ends or hangs the process.

Each seed is a worker process of its own (fuzz_worker.py). A fault is told with its seed, which repeats it
(`--seed N --runs 1`), and with a few lines of Python that do, too.
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


def main():
    options = parse_options()
    end, seed, done = time.time() + options.seconds, options.seed, 0
    if os.path.isdir("/dev/shm"):
        tempfile.tempdir = os.environ["TMPDIR"] = "/dev/shm"  # many small files, which need no disk
    with tempfile.TemporaryDirectory() as folder:
        log = os.path.join(folder, "lines")
        while time.time() < end and (options.runs is None or seed < options.seed + options.runs):
            mode = options.mode or ("calls", "files")[seed % 2]
            fault, output = attend(options, log, mode, seed, options.lines)
            lines = read(log)
            done += len(lines)
            if fault:
                print("seed {}: {} after {} lines of {}\n{}".format(seed, fault, len(lines), mode, output[-6000:]))
                print("make fuzz ARGS='--mode {} --seed {} --lines {} --runs 1' repeats it; so does, with PYTHONPATH=build:scripts,\n"
                      "from fuzz_worker import *".format(mode, seed, options.lines))
                print("\n".join("do(%r)" % line for line in shortest(options, log, lines)))
                return 1
            seed += 1
    print("{} lines, seeds {} to {}: no fault".format(done, options.seed, seed - 1))
    return 0


def attend(options, *arguments):
    """Runs a worker; tells what went wrong, or None, and what the worker wrote about it."""
    log = arguments[0]
    environment = dict(os.environ, PYTHONHASHSEED="0", SDL_VIDEODRIVER="dummy", SDL_AUDIODRIVER="dummy")
    with tempfile.TemporaryFile() as errors:
        worker = subprocess.Popen([sys.executable, WORKER] + list(map(str, arguments)), env=environment,
                                  stdout=subprocess.DEVNULL, stderr=errors)
        fault, size = None, -1
        while worker.poll() is None:
            try:
                worker.wait(options.patience)
            except subprocess.TimeoutExpired:
                if size == os.path.getsize(log):  # no new line in all that time
                    fault = "hang"
                    worker.send_signal(signal.SIGABRT)  # prints the stack
                    worker.wait()
                size = os.path.getsize(log)
        if worker.returncode and not fault:
            fault = signal.Signals(-worker.returncode).name if worker.returncode < 0 else "exit %d" % worker.returncode
        errors.seek(0)
        return fault, errors.read().decode(errors="replace")


def read(log):
    with open(log, encoding="utf-8") as file:
        return file.read().splitlines()


def shortest(options, log, lines):
    """Leaves out as many lines as it can while the others still do it, for a minute."""
    end, size = time.time() + 60, len(lines)
    while size and time.time() < end:
        start = 0
        while start < len(lines) and time.time() < end:
            fewer = lines[:start] + lines[start + size:]
            with open(log, "w", encoding="utf-8") as file:
                file.write("\n".join(fewer))
            if attend(options, log, "repeat")[0]:
                lines = fewer
            else:
                start += size
        size //= 2
    return lines


def parse_options():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--seconds", type=float, default=60, help="how long to go on (60)")
    parser.add_argument("--seed", type=int, default=random.randrange(10**6), help="the first seed; a random one by default")
    parser.add_argument("--runs", type=int, help="end after so many seeds")
    parser.add_argument("--mode", choices=("calls", "files"), help="only hostile calls, or only damaged files")
    parser.add_argument("--lines", type=int, default=3000, help="lines for each seed (3000)")
    parser.add_argument("--patience", type=float, default=10, help="seconds without a new line that count as a hang (10)")
    return parser.parse_args()


if __name__ == "__main__":
    sys.exit(main())
