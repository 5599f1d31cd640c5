"""The display over the view: health, gems, compass, and a line of text."""

import os

from zelvarine import (ANCHOR_BOTTOM, ANCHOR_CENTER, ANCHOR_RIGHT, AbstractSystem, RotationComponent,
                       Texture, UIAnchoredContainer, UIImage)

from shared.parts import panel, spaced, text
from shared.places import ASSETS

KEYS = "Esc: menu   F: lamp   M: mouse   F5: save   F9: load"
READING_TIME = 4.0  # seconds for which a message stays
MARGIN = 14
RIM = 4  # of the health bar's frame
DIRECTIONS, GEM_VIEWS = 32, 8  # pictures in the sheets


class Hud(AbstractSystem):
    def __init__(self):
        super().__init__()
        self._compass_views = _cut(_load("widgets", "compass.png"), DIRECTIONS)
        self._compass = UIImage(self._compass_views[0])
        frame = UIImage(_load("widgets", "health_frame.png"))
        self._longest_bar = frame.width - 2 * RIM
        self._bar = UIImage(_load("widgets", "health.png"), self._longest_bar)
        gem = UIImage(_cut(_load("sprites", "gem.png"), GEM_VIEWS)[0], 24, 24)
        self._gems = text("")
        self._line = text(KEYS)
        self._message_time = 0.0
        self.widget = UIAnchoredContainer()
        for child, x, y in ((frame, 0, 0), (self._bar, RIM, RIM), (gem, 0, 24), (self._gems, 28, 27)):
            self.widget.addChild(child, MARGIN + x, MARGIN + y)
        self.widget.addChild(self._compass, MARGIN, MARGIN, ANCHOR_RIGHT)
        self.widget.addChild(spaced(panel(self._line), 0), 0, 6, ANCHOR_CENTER, ANCHOR_BOTTOM)

    def follow(self, world):
        self._health = world.health
        self._treasure = world.treasure
        self._facing = world.player.getComponent(RotationComponent).dir

    def say(self, words):
        self._line.text = words
        self._message_time = READING_TIME

    def update(self, timeStep):
        self._message_time -= timeStep
        if self._message_time <= 0:
            self._line.text = KEYS
        self._bar.width = int(round(self._longest_bar * max(0.0, self._health.value)))
        self._gems.text = "%d of %d" % (self._treasure.found, self._treasure.total)
        east_of_north = self._facing.getDegrees() + 90
        self._compass.texture = self._compass_views[int(round(east_of_north / 360 * DIRECTIONS)) % DIRECTIONS]


def _load(*path):
    return Texture(os.path.join(ASSETS, *path))


def _cut(sheet, columns):
    """The pictures of a sheet that lie side by side, as textures of their own."""
    width, height = sheet.width // columns, sheet.height
    pixels = memoryview(sheet).cast("B")
    pictures = []
    for column in range(columns):
        picture = Texture(width, height)
        part = memoryview(picture).cast("B")
        for y in range(height):
            start = (y * sheet.width + column * width) * 4
            part[y * width * 4:(y + 1) * width * 4] = pixels[start:start + width * 4]
        pictures.append(picture)
    return pictures
