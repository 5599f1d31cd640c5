"""The files of one run of the game."""

import glob
import os


class Files:
    def __init__(self, level, saved, pictures):
        self.level = level
        self.saved = saved
        self._pictures = pictures

    def levels(self):
        """The level files beside the level, and what was saved."""
        folders = [os.path.dirname(path) or os.curdir for path in (self.level, self.saved)]
        found = {path for folder in folders for path in glob.glob(os.path.join(folder, "*.lvl"))}
        return sorted(found, key=lambda path: (path != self.level, os.path.basename(path)))

    def next_saved(self):
        """A name that no saved game has yet."""
        start, ending = os.path.splitext(self.saved)
        number = 2
        while os.path.exists("%s-%d%s" % (start, number, ending)):
            number += 1
        return "%s-%d%s" % (start, number, ending)

    def picture(self, name):
        os.makedirs(self._pictures, exist_ok=True)
        return os.path.join(self._pictures, name)
