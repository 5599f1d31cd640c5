"""What the game tells the player, at the lower edge of the picture."""

import textwrap

from zelvarine import ALIGN_CENTER, ANCHOR_BOTTOM, ANCHOR_CENTER, AbstractSystem, UIAnchoredContainer

from shared.parts import aligned, column, panel, spaced, text

# Seconds to notice a message, and to read one letter.
NOTICE, READ = 1.5, 0.05
MARGIN = 6
LETTER = 8  # pixels, about
SIDES = 40  # what a panel needs beside its text


class Messages(AbstractSystem):
    """Shows one thing at a time, the newest, and takes it away when there was time to read it."""

    def __init__(self, width):
        super().__init__()
        self.widget = UIAnchoredContainer()
        self._letters = (width - SIDES) // LETTER
        self._time_left = 0.0

    def say(self, words):
        lines = [aligned(text(line), ALIGN_CENTER) for line in textwrap.wrap(words, self._letters)]
        self.show(column(*lines), NOTICE + READ * len(words))

    def show(self, content, seconds):
        self.widget.removeAllChildren()
        self.widget.addChild(spaced(panel(content), 0), 0, MARGIN, ANCHOR_CENTER, ANCHOR_BOTTOM)
        self._time_left = seconds

    def update(self, timeStep):
        self._time_left -= timeStep
        if self._time_left <= 0:
            self.widget.removeAllChildren()
