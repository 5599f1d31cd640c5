"""The files of one run of the game."""

import glob
import itertools
import os


class Files:
    """The level, the other levels, and the saved games.

    The key for saving always writes the same file, the quick save; the menu gives each game a number of its own.
    """

    def __init__(self, level, quick_save, pictures):
        self.level = os.path.abspath(level)
        self.quick_save = os.path.abspath(quick_save)
        self._pictures = pictures

    def levels(self):
        """The level that the game began with, and the others beside it."""
        others = set(_find(os.path.dirname(self.level), "*.lvl")) - set(self.saved()) - {self.level}
        return [self.level] + sorted(others)

    def saved(self):
        """The saved games, the newest first."""
        folder, name = os.path.split(self.quick_save)
        found = set(_find(folder, "game-*.lvl") + _find(folder, name))
        return sorted(found, key=os.path.getmtime, reverse=True)

    def next_save(self):
        return _first_free(os.path.dirname(self.quick_save), "game-%d.lvl")

    def next_screenshot(self):
        return _first_free(self.pictures(), "screenshot-%d.png")

    def pictures(self):
        """The folder for pictures, which is there from now on."""
        os.makedirs(self._pictures, exist_ok=True)
        return self._pictures


def label(path):
    """A file as the player knows it, like "game 2"."""
    return os.path.splitext(os.path.basename(path))[0].replace("-", " ")


def _find(folder, pattern):
    return glob.glob(os.path.join(glob.escape(folder), pattern))


def _first_free(folder, pattern):
    """The path with the lowest number that no file has yet."""
    paths = (os.path.join(folder, pattern % number) for number in itertools.count(1))
    return next(path for path in paths if not os.path.exists(path))
