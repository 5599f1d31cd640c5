"""The look of the widgets, carved stone with brass trim: the picture of their pieces, and where each piece lies in it.

What a widget stretches or repeats is the same in each column (or row) of the piece, so that no seam shows.
"""

import json

import numpy as np

from .materials import BRASS
from .relief import over, paint, smooth, to_bytes

WIDTH, HEIGHT = 256, 96

BUTTON = dict(left=16, middle=8, right=16, height=30)
PANEL = dict(leftWidth=16, middleWidth=8, rightWidth=16, topHeight=16, middleHeight=8, bottomHeight=16)
BAR = 20  # how thick a slider is, and the side of its buttons
BAR_CAP, BAR_MIDDLE = 8, 8
KNOB = 14  # length of a slider's knob, along its bar

OUTLINE = (18, 16, 20)
STONE = ["2b2a30", "45444a", "615f63", "7d7a78"]
WARM_STONE = ["3a3130", "5c4d46", "806c5c", "a08a70"]
GROOVE = ["121116", "1d1b22", "26242c"]
PANEL_FILL = (30, 28, 36)
PANEL_ALPHA = 236

ARROWS = {"left": (-1, 0), "right": (1, 0), "top": (0, -1), "bottom": (0, 1)}


def layout():
    """The "widgets" object of the theme file."""
    button = dict(x=1, y=1, width=BAR, height=BAR)
    slider = {
        "horizontalBackground": dict(x=128, y=0, left=BAR_CAP, middle=BAR_MIDDLE, right=BAR_CAP, height=BAR),
        "verticalBackground": dict(x=160, y=0, top=BAR_CAP, middle=BAR_MIDDLE, bottom=BAR_CAP, width=BAR),
        "horizontalButton": {"normal": dict(x=192, y=0, width=KNOB, height=BAR)},
        "verticalButton": {"normal": dict(x=216, y=0, width=BAR, height=KNOB)},
    }
    for column, arrow in enumerate(ARROWS):
        slider[arrow + "Button"] = {state: dict(button, x=column * 48 + step * 24, y=48)
                                    for step, state in enumerate(("normal", "hover"))}
    return {
        "button": {"normal": dict(BUTTON, x=0, y=0), "hover": dict(BUTTON, x=44, y=0)},
        "panel": dict(PANEL, x=86, y=0),
        "slider": slider,
        "scrollPanel": {
            "sliderMargin": dict(top=7, right=7, bottom=7, left=7),
            # The content ends before the scroll bar.
            "clipPadding": dict(top=7, right=BAR + 10, bottom=7, left=7),
        },
    }


def theme(tileset_path):
    """The text of the theme file. The fonts are names of files: where they are depends on the machine."""
    return json.dumps(dict(
        tileset=tileset_path,
        fonts={"aileron": dict(file="DejaVuSans.ttf", size=14), "title": dict(file="DejaVuSerif-Bold.ttf", size=38)},
        colors={"fontColor": "FFF0E6CA", "background": "FF26232D", "brass": "FFE6C25A", "dim": "FFA49C90"},
        widgets=layout()), indent=1) + "\n"


def tileset():
    pixels = np.zeros((HEIGHT, WIDTH, 4), np.uint8)
    widgets = layout()
    for state, hovered in (("normal", False), ("hover", True)):
        place = widgets["button"][state]
        _put(pixels, place, _button(place["left"] + place["middle"] + place["right"], place["height"], hovered))
        for name, direction in ARROWS.items():
            place = widgets["slider"][name + "Button"][state]
            _put(pixels, place, _arrow_button(direction, hovered))
    _put(pixels, widgets["panel"], _panel())
    bar = _bar(2 * BAR_CAP + BAR_MIDDLE)
    _put(pixels, widgets["slider"]["horizontalBackground"], bar)
    _put(pixels, widgets["slider"]["verticalBackground"], _turned(bar))
    knob = _knob()
    _put(pixels, widgets["slider"]["horizontalButton"]["normal"], knob)
    _put(pixels, widgets["slider"]["verticalButton"]["normal"], _turned(knob))
    return pixels


class _Plate:
    """A rectangle with its corners cut off: for every pixel how deep inside it lies, and which side is the nearest."""

    def __init__(self, width, height, cut=2):
        self.y, self.x = np.mgrid[0:height, 0:width]
        sides = np.array([self.y, self.x, height - 1 - self.y, width - 1 - self.x])
        corner = np.min([sides[0] + sides[1], sides[0] + sides[3], sides[2] + sides[1], sides[2] + sides[3]], axis=0)
        self.depth = np.minimum(sides.min(axis=0), corner - cut)
        self.lit = np.minimum(sides[0], sides[1]) <= np.minimum(sides[2], sides[3])
        self.height = height

    def bevel(self, ramp, light, shade):
        """Colors of an edge that is lit from the top left."""
        return paint(np.where(self.lit, light, shade), ramp)

    def face(self, ramp, top, bottom):
        """Colors from the top down to the bottom."""
        return paint(top + (bottom - top) * self.y / (self.height - 1), ramp)


def _plate(width, height, face_ramp, brightness, sunk=False):
    """Outline, brass rim, dark joint, bevelled face."""
    shape = _Plate(width, height)
    colors = shape.face(face_ramp, 0.72 * brightness, 0.38 * brightness)
    light, shade = (0.2, 0.75) if sunk else (0.95 * brightness, 0.12)
    colors = over(colors, shape.bevel(face_ramp, light, shade), shape.depth == 3)
    colors = over(colors, OUTLINE, shape.depth == 2)
    colors = over(colors, shape.bevel(BRASS, 0.78 * brightness, 0.4 * brightness), shape.depth == 1)
    colors = over(colors, OUTLINE, shape.depth <= 0)
    return shape, colors


def _button(width, height, hovered):
    shape, colors = _plate(width, height, WARM_STONE if hovered else STONE, 1.2 if hovered else 1.0)
    for x in (7.5, width - 8.5):
        colors = _stud(colors, shape, x, (height - 1) / 2.0, 2.6)
    return _piece(colors, shape.depth >= 0, 255)


def _panel():
    width = PANEL["leftWidth"] + PANEL["middleWidth"] + PANEL["rightWidth"]
    shape, colors = _plate(width, width, STONE, 1.0)
    colors = over(colors, paint(np.full(shape.depth.shape, 0.5), STONE), shape.depth == 4)
    colors = over(colors, shape.bevel(STONE, 0.2, 0.7), shape.depth == 5)
    colors = over(colors, OUTLINE, shape.depth == 6)
    for x in (4.5, width - 5.5):
        for y in (4.5, width - 5.5):
            colors = _stud(colors, shape, x, y, 3.2)
    inside = (shape.depth > 6) & ~_disc(shape, 4.5, width)
    colors = over(colors, PANEL_FILL, inside)
    return _piece(colors, shape.depth >= 0, np.where(inside, PANEL_ALPHA, 255))


def _disc(shape, margin, width):
    """Where the studs in the corners of a panel are."""
    dx = np.minimum(shape.x - margin, width - 1 - margin - shape.x)
    dy = np.minimum(shape.y - margin, width - 1 - margin - shape.y)
    return dx * dx + dy * dy < 3.8 ** 2


def _bar(width):
    """A channel that is cut into a stone rail."""
    shape = _Plate(width, BAR)
    colors = paint(np.full(shape.depth.shape, 0.45), STONE)
    colors = over(colors, shape.bevel(STONE, 0.8, 0.15), shape.depth == 1)
    channel = (shape.y >= 6) & (shape.y < BAR - 6)
    colors = over(colors, paint((shape.y - 6) / (BAR - 13.0), GROOVE), channel)
    colors = over(colors, OUTLINE, (shape.y == 5) | (shape.depth <= 0))
    colors = over(colors, paint(np.full(shape.depth.shape, 0.9), STONE), (shape.y == BAR - 6) & (shape.depth > 0))
    return _piece(colors, shape.depth >= 0, 255)


def _arrow_button(direction, hovered):
    shape, colors = _plate(BAR, BAR, WARM_STONE if hovered else STONE, 1.2 if hovered else 1.0)
    dx, dy = direction
    middle = (BAR - 1) / 2.0
    along = (shape.x - middle) * dx + (shape.y - middle) * dy
    across = np.abs((shape.x - middle) * dy + (shape.y - middle) * dx)
    for shift, color in ((1, OUTLINE), (0, paint(np.full(shape.depth.shape, 0.95 if hovered else 0.7), BRASS))):
        arrow = (along >= -2 - shift) & (across <= 2.5 - along + shift)
        colors = over(colors, color, arrow & (across <= 4.5 + shift))
    return _piece(colors, shape.depth >= 0, 255)


def _knob():
    """The knob of a horizontal slider: brass with three grooves."""
    shape = _Plate(KNOB, BAR, 2)
    colors = shape.face(BRASS, 0.75, 0.42)
    colors = over(colors, shape.bevel(BRASS, 0.95, 0.2), shape.depth == 1)
    for x in (KNOB // 2 - 3, KNOB // 2, KNOB // 2 + 3):
        rows = (shape.y >= 6) & (shape.y < BAR - 6)
        colors = over(colors, paint(np.full(shape.depth.shape, 0.15), BRASS), (shape.x == x - 1) & rows)
        colors = over(colors, paint(np.full(shape.depth.shape, 0.9), BRASS), (shape.x == x) & rows)
    colors = over(colors, OUTLINE, shape.depth <= 0)
    return _piece(colors, shape.depth >= 0, 255)


def _stud(colors, shape, x, y, radius):
    """A round brass head."""
    dx, dy = shape.x - x, shape.y - y
    distance = np.sqrt(dx * dx + dy * dy)
    colors = over(colors, OUTLINE, smooth(radius + 1.3, radius + 0.3, distance))
    return over(colors, paint(0.55 - (dx + dy) / (radius * 3.2), BRASS), smooth(radius + 0.4, radius - 0.4, distance))


def _piece(colors, inside, alpha):
    return np.dstack([to_bytes(colors), np.where(inside, alpha, 0).astype(np.uint8)])


def _turned(piece):
    """The same for the other direction; the diagonal stays, and so does the light from the top left."""
    return piece.transpose(1, 0, 2)


def _put(pixels, place, piece):
    height, width = piece.shape[:2]
    pixels[place["y"]:place["y"] + height, place["x"]:place["x"] + width] = piece
