"""The page of the sliders: what they hold is seen at once."""

import os

from zelvarine import (SLIDER_ORIENTATION_VERTICAL, SliderValueChangedEvent, Texture, UIAnchoredContainer, UIImage,
                       VALIGN_MIDDLE)

from shared.parts import aligned, column, fixed, heading, panel, row, slider, spaced, text
from shared.places import ASSETS

SWATCH = 120
PICTURE = 130


class Sliders:
    """Three sliders mix a color, one sets how much of a picture is there, and two set its size."""

    def __init__(self, theme, engine):
        self._color = Texture(SWATCH, SWATCH)
        self.channels = [slider(value, 0, 255, width=260) for value in (200, 120, 40)]
        self.alpha = slider(255, 0, 255, width=260)
        self.width = slider(PICTURE, 8, 2 * PICTURE, width=260)
        self.height = slider(PICTURE, 8, PICTURE, height=220, orientation=SLIDER_ORIENTATION_VERTICAL)
        self._numbers = {}
        self._picture = UIImage(Texture(os.path.join(ASSETS, "textures", "stained_glass.png")), PICTURE, PICTURE)
        behind = Texture(os.path.join(ASSETS, "textures", "bricks.png"))
        color = panel(heading(theme, "A color"), row(
            column(*[self._named(*item) for item in zip(("red", "green", "blue"), self.channels)]),
            spaced(UIImage(self._color), 0, 0, 0, 14)))
        pictures = fixed(UIAnchoredContainer(), 2 * PICTURE, PICTURE)
        pictures.addChild(UIImage(behind, 2 * PICTURE, PICTURE), 0, 0)
        pictures.addChild(self._picture, 0, 0)
        size = panel(heading(theme, "A picture"), row(
            column(self._named("alpha", self.alpha), self._named("width", self.width),
                   self._named("height", self.height)),
            spaced(pictures, 0, 0, 0, 14)))
        self.widget = column(color, size)
        self.apply()
        engine.subscribeEvent(SliderValueChangedEvent, self._on_change)

    def apply(self):
        """Brings what one sees in step with the sliders."""
        self._color.fill(tuple(channel.value for channel in self.channels))
        self._picture.alpha = self.alpha.value
        self._picture.width, self._picture.height = self.width.value, self.height.value
        for knob, number in self._numbers.items():
            number.text = str(knob.value)

    def _named(self, name, knob):
        number = self._numbers[knob] = text("", width=36)
        parts = [text(name, width=56), knob, spaced(number, 0, 0, 0, 8)]
        return row(*[aligned(part, vertical=VALIGN_MIDDLE) for part in parts])

    def _on_change(self, event):
        if event.target in self._numbers:
            self.apply()
