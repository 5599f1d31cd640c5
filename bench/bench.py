"""Times what a game spends its frames on. Run by `make bench`.

Every figure is the median of many rounds, in milliseconds of processor time. What draws a frame is also told in times
that its pixels could have been written past the caches ("writes", the limit of what memory takes), and filled by
SDL_FillRect ("fills"). Two builds are timed in turn, round by round; their ratio is the median of the rounds' ratios,
which a busy machine changes least.
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
HEADLESS = {"SDL_VIDEODRIVER": "dummy", "SDL_AUDIODRIVER": "dummy"}
FEWEST_ROUNDS, MOST_ROUNDS = 3, 60


class Build:
    """A build of the module, in a process of its own."""

    def __init__(self, folder, yardstick):
        self.folder = os.path.abspath(folder)
        arguments = [yardstick] if os.path.exists(yardstick) else []
        self._process = subprocess.Popen(
            [sys.executable, WORKER] + arguments, stdin=subprocess.PIPE, stdout=subprocess.PIPE, universal_newlines=True,
            env=dict(os.environ, PYTHONPATH=self.folder, **HEADLESS))
        if os.path.dirname(self.ask("module")) != self.folder:
            sys.exit("there is no module in %s for this interpreter" % folder)

    def ask(self, *request):
        try:
            self._process.stdin.write(json.dumps(request) + "\n")
            self._process.stdin.flush()
        except BrokenPipeError:
            pass
        answer = self._process.stdout.readline()
        if not answer:
            sys.exit("the process that times %s has ended" % self.folder)
        return json.loads(answer)


class Samples:
    """The times of one scenario, by figure: as many as rounds."""

    def __init__(self):
        self.figures, self.yardsticks = {}, {}

    def take(self, figures, yardsticks):
        for times, new in ((self.figures, figures), (self.yardsticks, yardsticks)):
            for name, milliseconds in new.items():
                times.setdefault(name, []).append(milliseconds)


def measured(builds, group, name, seconds):
    """Samples for each build. The first round warms up, unless rounds are so slow that it makes no difference."""
    for build in builds:
        build.ask("prepare", group, name)
    samples = [Samples() for _ in builds]
    rounds, warm = 0, False
    start = time.time()
    while rounds < FEWEST_ROUNDS or (rounds < MOST_ROUNDS and time.time() - start < seconds * len(builds)):
        answers = [build.ask("round") for build in builds]
        if not warm and time.time() - start < seconds:
            warm, start = True, time.time()
            continue
        warm = True
        rounds += 1
        for each, answer in zip(samples, answers):
            each.take(*answer)
    return samples


def summary(samples):
    """The figures of a scenario, as they are printed and written."""
    now, before = samples[0], samples[1] if len(samples) > 1 else None
    names = list(now.figures) + [name for name in (before.figures if before else ()) if name not in now.figures]
    for name in names:
        times = now.figures.get(name)
        figure = {"figure": name}
        if times:
            figure.update(milliseconds=statistics.median(times), rounds=len(times))
            for yardstick, written in now.yardsticks.items():
                figure[yardstick + "s"] = median_ratio(times, written)
        if before and name in before.figures:
            figure["before"] = statistics.median(before.figures[name])
            if times:
                figure["ratio"] = median_ratio(times, before.figures[name])
        yield figure


def median_ratio(times, others):
    return statistics.median(a / b for a, b in zip(times, others))


COLUMNS = ("before", "milliseconds", "ratio", "writes", "fills")
HEADINGS = {"before": "before, ms", "milliseconds": "ms", "ratio": "ratio", "writes": "writes", "fills": "fills"}


def line(name, cells):
    return "  %-30s" % name + "".join("%12s" % cell for cell in cells)


def number(value):
    return "-" if value is None else "%.3f" % value if value < 100 else "%.1f" % value


def parse_options():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("only", nargs="*", help="parts of the names of the figures to time, for instance: frames entities/1,000")
    parser.add_argument("--seconds", type=float, default=0.6, help="for each scenario and build (default: %(default)s)")
    parser.add_argument("--against", metavar="FOLDER", help="times the build in that folder in turn with this one")
    parser.add_argument("--json", metavar="FILE", nargs="?", const="", help="writes a file (default: bench.json in the build folder)")
    options = parser.parse_args()
    if options.json and not options.json.endswith(".json"):
        parser.error("the name of a file for --json ends with .json: %s does not" % options.json)
    return options


def main():
    options = parse_options()
    found = importlib.util.find_spec("zelvarine")
    if not found:
        sys.exit("zelvarine cannot be imported: `make bench` tells where it is")
    folder = os.path.dirname(os.path.abspath(found.origin))
    yardstick = os.path.join(folder, "libyardstick.so")
    builds = [Build(each, yardstick) for each in [folder] + ([options.against] if options.against else [])]
    columns = [each for each in COLUMNS if options.against or each not in ("before", "ratio")]
    figures = []
    for group, about, scenarios in builds[0].ask("scenarios"):
        chosen = [name for name in scenarios
                  if not options.only or any(part in "%s/%s" % (group, name) for part in options.only)]
        if not chosen:
            continue
        print("%s: %s" % (group, " ".join(about.split())))
        print(line("", [HEADINGS[each] for each in columns]))
        for name in chosen:
            for figure in summary(measured(builds, group, name, options.seconds)):
                print(line(" ".join(filter(None, (name, figure["figure"]))), [number(figure.get(each)) for each in columns]),
                      flush=True)
                figures.append(dict(group=group, scenario=name, **figure))
        print()
    if options.json is not None:
        path = options.json or os.path.join(folder, "bench.json")
        with open(path, "w") as file:
            json.dump({"build": folder, "against": options.against and os.path.abspath(options.against),
                       "python": platform.python_version(), "machine": platform.machine(), "figures": figures}, file, indent=1)
        print("written to %s" % path)


if __name__ == "__main__":
    main()
