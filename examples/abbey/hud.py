"""The display over the view: health, gems, compass and crosshair."""

import os

from zelvarine import (ANCHOR_CENTER, ANCHOR_RIGHT, AbstractSystem, RotationComponent, Texture, UIAnchoredContainer,
                       UIImage)

from shared.parts import text
from shared.places import ASSETS

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
        counter = UIImage(_load("widgets", "counter_frame.png"))
        gem = UIImage(_cut(_load("sprites", "gem.png"), GEM_VIEWS)[0], 24, 24)
        self._gems = text("")
        self._crosshair = UIImage(_load("widgets", "crosshair.png"))
        self.widget = UIAnchoredContainer()
        for child, x, y in ((frame, 0, 0), (self._bar, RIM, RIM), (counter, 0, 24), (gem, 7, 27),
                            (self._gems, 36, 31)):
            self.widget.addChild(child, MARGIN + x, MARGIN + y)
        self.widget.addChild(self._compass, MARGIN, MARGIN, ANCHOR_RIGHT)
        self.widget.addChild(self._crosshair, 0, 0, ANCHOR_CENTER, ANCHOR_CENTER)

    def follow(self, world):
        self._health = world.health
        self._treasure = world.treasure
        self._facing = world.player.getComponent(RotationComponent).dir

    def update(self, timeStep):
        self._bar.width = int(round(self._longest_bar * max(0.0, self._health.value)))
        self._gems.text = "%d of %d" % (self._treasure.found, self._treasure.total)
        east_of_north = self._facing.getDegrees() + 90
        self._compass.texture = self._compass_views[int(round(east_of_north / 360 * DIRECTIONS)) % DIRECTIONS]
        self._crosshair.isVisible = self.getEngine().isMouseCaptured()


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
