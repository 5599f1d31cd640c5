"""Times what a game spends its frames on. Run by `make bench`.

Every figure is the median of many rounds, in milliseconds of processor time. What draws a frame is also told in times
that its pixels could have been written past the caches ("writes"), and filled by SDL_FillRect ("fills"). Two builds are
timed in turn, round by round; their ratio is the median of the rounds' ratios, which a busy machine changes least.
"""
import argparse
import importlib.util
import json
import os
import platform
import statistics
import subprocess
import sys
import time

WORKER = os.path.join(os.path.dirname(os.path.abspath(__file__)), "worker.py")
FEWEST_ROUNDS, MOST_ROUNDS = 3, 60


class Build:
    """A build of the module, in a process of its own."""

    def __init__(self, folder, yardstick):
        self._folder = os.path.abspath(folder)
        environment = dict(os.environ, PYTHONPATH=self._folder, YARDSTICK=yardstick,
                           SDL_VIDEODRIVER="dummy", SDL_AUDIODRIVER="dummy")
        self._process = subprocess.Popen([sys.executable, WORKER], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                         universal_newlines=True, env=environment)
        if os.path.dirname(self.ask("module")) != self._folder:
            sys.exit("there is no module in %s for this interpreter" % folder)

    def ask(self, *request):
        try:
            print(json.dumps(request), file=self._process.stdin, flush=True)
        except BrokenPipeError:
            pass  # the missing answer tells
        answer = self._process.stdout.readline()
        if not answer:
            sys.exit("the process that times %s has ended" % self._folder)
        return json.loads(answer)


def measured(builds, group, name, seconds):
    """The rounds of a scenario, one list for each build. The first warms up, unless there are only a few slow ones."""
    for build in builds:
        build.ask("prepare", group, name)
    rounds = []
    end = time.time() + seconds * len(builds)
    while len(rounds) < FEWEST_ROUNDS or (len(rounds) < MOST_ROUNDS and time.time() < end):
        rounds.append([build.ask("round") for build in builds])
    return list(zip(*rounds[len(rounds) > FEWEST_ROUNDS:]))


def by_name(dictionaries):
    return {name: [each[name] for each in dictionaries] for name in dictionaries[0]}


def summary(rounds, rounds_before=()):
    """The figures of a scenario, as they are printed and written. A build may have some that another has not."""
    now = by_name([figures for figures, _ in rounds])
    yardsticks = by_name([yardsticks for _, yardsticks in rounds])
    before = by_name([figures for figures, _ in rounds_before]) if rounds_before else {}
    for name in list(now) + [name for name in before if name not in now]:
        figure = {"figure": name}
        if name in before:
            figure["before"] = statistics.median(before[name])
        if name in now:
            figure["ms"] = statistics.median(now[name])
            for yardstick, times in yardsticks.items():
                figure[yardstick + "s"] = median_ratio(now[name], times)
        if name in now and name in before:
            figure["ratio"] = median_ratio(now[name], before[name])
        yield figure


def median_ratio(times, others):
    return statistics.median(time / other for time, other in zip(times, others))


def line(name, cells):
    return "  %-34s" % name + "".join("%11s" % cell for cell in cells)


def number(value):
    return "" if value is None else "%.3f" % value if value < 100 else "%.0f" % value


def parse_options():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("only", nargs="*", metavar="PART",
                        help="time only what has such a part in its name, for instance: frames entities/1,000")
    parser.add_argument("--seconds", type=float, default=1, help="for each scenario and build (default: %(default)s)")
    parser.add_argument("--against", metavar="FOLDER", help="time the build in this folder, too, in turn")
    parser.add_argument("--json", metavar="FILE.json", nargs="?", const="",
                        help="write the figures to a file, too (default: bench.json in the build folder)")
    options = parser.parse_args()
    if options.json and not options.json.endswith(".json"):
        parser.error("%s is not the name of a .json file" % options.json)
    return options


def main():
    options = parse_options()
    found = importlib.util.find_spec("zelvarine")
    folder = os.path.dirname(os.path.abspath(found.origin)) if found else ""
    yardstick = os.path.join(folder, "libyardstick.so")
    if not os.path.exists(yardstick):
        sys.exit("`make bench` builds what this needs")
    builds = [Build(each, yardstick) for each in filter(None, (folder, options.against))]
    columns = ("before", "ms", "ratio", "writes", "fills") if options.against else ("ms", "writes", "fills")
    figures = []
    for group, about, scenarios in builds[0].ask("scenarios"):
        chosen = [name for name in scenarios
                  if not options.only or any(part in "%s/%s" % (group, name) for part in options.only)]
        if chosen:
            print("\n%s: %s" % (group, about))
            print(line("", columns))
        for name in chosen:
            for figure in summary(*measured(builds, group, name, options.seconds)):
                figures.append(dict(group=group, scenario=name, **figure))
                title = ": ".join(filter(None, (name, figure["figure"])))
                print(line(title, [number(figure.get(column)) for column in columns]), flush=True)
    if options.json is not None:
        path = options.json or os.path.join(folder, "bench.json")
        with open(path, "w") as file:
            json.dump({"build": folder, "against": options.against, "python": platform.python_version(),
                       "machine": platform.machine(), "figures": figures}, file, indent=1)
        print("\nwritten to %s" % path)


if __name__ == "__main__":
    main()
