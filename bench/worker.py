"""The half of bench.py that works: times the build that it imports, one round at a time.

Each line of input asks for something, each line of output answers, both in JSON.
"""
import gc
import json
import os
import sys

FOLDER = os.path.dirname(os.path.abspath(__file__))
sys.path.append(os.path.join(FOLDER, os.pardir, "examples"))


class Worker:
    def __init__(self, yardsticks):
        import entities
        import frames
        import headless
        import movement
        import widgets

        self.groups = (frames.frames, frames.kernels, frames.passes, headless.headless, movement.movement,
                       entities.entities, widgets.buttons, widgets.widgets)
        self.yardsticks = yardsticks
        self.one_round = self.one_round_of_yardsticks = None

    def module(self):
        import zelvarine

        return os.path.abspath(zelvarine.__file__)

    def scenarios(self):
        """Each group with what it tells of itself, and the names of its scenarios."""
        return [(group.__name__, group.__doc__, [scenario.name for scenario in group()]) for group in self.groups]

    def prepare(self, group, name):
        self.one_round = None  # lets go of the one before
        scenario = next(scenario for each in self.groups if each.__name__ == group
                        for scenario in each() if scenario.name == name)
        self.one_round = scenario.prepare()
        compares = self.yardsticks and scenario.frame
        self.one_round_of_yardsticks = self.yardsticks.prepare(*scenario.frame) if compares else dict

    def round(self):
        gc.collect()
        return self.one_round(), self.one_round_of_yardsticks()


def main():
    # What levels print goes nowhere.
    answers = os.fdopen(os.dup(sys.stdout.fileno()), "w")
    os.dup2(os.open(os.devnull, os.O_WRONLY), sys.stdout.fileno())
    from yardsticks import Yardsticks

    worker = Worker(Yardsticks(sys.argv[1]) if len(sys.argv) > 1 else None)
    gc.disable()
    for line in sys.stdin:
        request, *arguments = json.loads(line)
        print(json.dumps(getattr(worker, request)(*arguments)), file=answers, flush=True)


if __name__ == "__main__":
    main()
