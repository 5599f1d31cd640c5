"""The half of bench.py that works: times the build that it imports, one round at a time.

Each line of input asks for something, each line of output answers, both in JSON.
"""
import gc
import json
import os
import sys

sys.path.append(os.path.join(os.path.dirname(os.path.abspath(__file__)), os.pardir, "examples"))

import zelvarine  # noqa: E402 (the path is set before the imports)
from entities import entities  # noqa: E402
from frames import frames, kernels, passes  # noqa: E402
from headless import headless  # noqa: E402
from movement import movement  # noqa: E402
from widgets import buttons, widgets  # noqa: E402
from yardsticks import beside, yardsticks  # noqa: E402

GROUPS = yardsticks, frames, kernels, passes, headless, movement, entities, buttons, widgets


class Worker:
    def __init__(self):
        self._scenario = self._one_round = None

    def module(self):
        return os.path.abspath(zelvarine.__file__)

    def scenarios(self):
        """Each group with what it tells of itself, and the names of its scenarios."""
        return [(group.__name__, group.__doc__, [scenario.name for scenario in group()]) for group in GROUPS]

    def prepare(self, group, name):
        self._one_round = None  # lets go of the one before
        self._scenario = next(scenario for each in GROUPS if each.__name__ == group
                              for scenario in each() if scenario.name == name)
        self._one_round = self._scenario.prepare()

    def round(self):
        """The times of the figures, and those of the yardsticks, taken at the same time."""
        gc.collect()
        return self._one_round(), beside(self._scenario.frame)() if self._scenario.frame else {}


def main():
    # What levels print goes nowhere.
    answers = os.fdopen(os.dup(sys.stdout.fileno()), "w")
    os.dup2(os.open(os.devnull, os.O_WRONLY), sys.stdout.fileno())
    gc.disable()
    worker = Worker()
    for line in sys.stdin:
        request, *arguments = json.loads(line)
        print(json.dumps(getattr(worker, request)(*arguments)), file=answers, flush=True)


if __name__ == "__main__":
    main()
