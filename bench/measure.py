"""Processor time, and what is asked of everything that is timed."""
import time

ENOUGH = 2.0  # milliseconds that the clock can tell well


class Scenario:
    """Something to be timed. `prepare()` sets it up and returns a function that does one round of it and returns the
    milliseconds of each figure, by name. What draws a frame tells its size, to be compared with the yardsticks."""

    def __init__(self, name, prepare, frame=None):
        self.name = name
        self.prepare = prepare
        self.frame = frame


def milliseconds(action, times=1):
    """Processor time of this process for one call, out of some in a row."""
    start = time.process_time()
    for _ in range(times):
        action()
    return (time.process_time() - start) * 1000 / times


class Timed:
    """An action that can be repeated: called with warm caches, and as often in a row as the clock needs."""

    def __init__(self, action):
        self._action = action
        self._times = 1
        while self.milliseconds() * self._times < ENOUGH:
            self._times *= 2

    def milliseconds(self):
        self._action()
        return milliseconds(self._action, self._times)


def one_figure(action, share=1):
    """A round of the only figure of a scenario: the time of an action, or the given share of it."""
    timed = Timed(action)
    return lambda: {"": timed.milliseconds() * share}
