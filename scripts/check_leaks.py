#!/usr/bin/env python3
"""Runs pytest with the arguments given, then fails on memory that the module allocated and lost.

Runs under the address sanitizer (see `make asan`), whose own leak check speaks of Python's leaks as well: here a leak
counts when it was allocated by the module, or by Python while it was serving the module.
"""

import ctypes
import gc
import os
import re
import sys
import tempfile

import pytest


PROBE = 12321
c = ctypes.CDLL(None)


def main():
    failed = pytest.main(sys.argv[1:])
    gc.collect()
    for _ in range(10):
        c.malloc(PROBE)  # lost on purpose: a report without it would mean that nothing is found
    report = leak_report()
    if not any(int(size) % PROBE == 0 for size in re.findall(r"leak of (\d+) byte", report)):
        sys.exit("the leak check did not work:\n" + report)
    leaks = [leak for leak in lost_blocks(report) if is_ours(leak)]
    for leak in leaks:
        print(leak, file=sys.stderr)
    print("leaks of the module: {}".format(len(leaks)))
    return int(failed) or bool(leaks)


def leak_report():
    """What the sanitizer writes about blocks that nothing refers to any more."""
    errors = sys.stderr.fileno()
    saved = os.dup(errors)
    with tempfile.TemporaryFile("w+", errors="replace") as report:
        os.dup2(report.fileno(), errors)
        try:
            c.__lsan_do_recoverable_leak_check()
        finally:
            os.dup2(saved, errors)
            os.close(saved)
        report.seek(0)
        return report.read()


def lost_blocks(report):
    return re.findall(r"^(?:Direct|Indirect) leak of .*\n(?: +#.*\n)+", report, re.MULTILINE)


def is_ours(leak):
    """Whether the module is on the stack above the Python code that was running."""
    for frame in leak.splitlines()[1:]:
        if "_PyEval_EvalFrameDefault" in frame:
            return False
        if "/zelvarine." in frame or " zv::" in frame:
            return True
    return False


if __name__ == "__main__":
    sys.exit(main())
