"""Menus that one can use with the keyboard or with the mouse."""

from zelvarine import (ANCHOR_CENTER, KEY_DOWN, KEY_ESCAPE, KEY_KP_ENTER, KEY_LEFT, KEY_RETURN, KEY_RIGHT, KEY_UP,
                       UIAnchoredContainer)

from shared.parts import panel, spaced

from .shortcuts import Shortcuts

# Frames until the mouse is back where it was before the walk caught it: that is no movement of the player's.
SETTLING = 5


class Menu(Shortcuts):
    """A column of entries (see entries.py), one of which is chosen: by the keys Up and Down, or by the mouse when it
    moves. Return presses it, Left and Right change its value, and Escape goes back."""

    def __init__(self, back, below_middle=0):
        super().__init__({KEY_RETURN: self._press, KEY_KP_ENTER: self._press, KEY_ESCAPE: back},
                         {KEY_UP: lambda: self._move(-1), KEY_DOWN: lambda: self._move(1),
                          KEY_LEFT: lambda: self._change(-1), KEY_RIGHT: lambda: self._change(1)})
        self.entries = []
        self._chosen = 0
        self._mouse = None
        self._frames = 0
        self.panel = panel()
        self.widget = UIAnchoredContainer()
        self.widget.addChild(spaced(self.panel, 0), 0, below_middle, ANCHOR_CENTER, ANCHOR_CENTER)

    def add(self, entry, container=None):
        """Adds an entry to the panel, or to a container that lies in it."""
        (container or self.panel).addChild(entry)
        self.entries.append(entry)
        self.choose(self.entries[0])
        return entry

    def choose(self, entry):
        self._chosen = self.entries.index(entry)
        for other in self.entries:
            other.is_chosen = other is entry

    def reveal(self, entry):
        """For menus that do not show all their entries at once: called when a key has chosen one."""

    def update(self, timeStep):
        super().update(timeStep)
        self._frames += 1
        mouse = self.getEngine().getMousePos()
        if mouse != self._mouse and self._frames > SETTLING:
            for entry in self.entries:
                if entry.isInside(*mouse):
                    self.choose(entry)
        self._mouse = mouse

    def _setEngine(self, engine):
        super()._setEngine(engine)
        self._frames, self._mouse = 0, None

    def _press(self):
        self.entries[self._chosen].press()

    def _change(self, direction):
        self.entries[self._chosen].change(direction)

    def _move(self, step):
        entry = self.entries[(self._chosen + step) % len(self.entries)]
        self.choose(entry)
        self.reveal(entry)
