"""Pictures of the head-up display: the health bar, the counter's frame, the compass and the crosshair."""

import numpy as np

from .materials import BRASS
from .relief import over, paint, smooth, to_bytes

BAR_WIDTH, BAR_HEIGHT = 160, 18
RIM = 4  # how thick the health bar's frame is
BLOOD = ["3a0808", "7c1414", "b82a22", "e0564a"]
OUTLINE = (18, 16, 20)

COUNTER_WIDTH, COUNTER_HEIGHT = 96, 30

COMPASS = 56  # diameter
DIRECTIONS = 32
FINER = 4  # samples to a pixel, across and down

ARM, GAP = 8, 3  # of the crosshair: how far it reaches, and how much is left open around what one looks at
IVORY = (244, 236, 214)


def health_frame():
    return _frame(BAR_WIDTH, BAR_HEIGHT, 150)


def counter_frame():
    """What lies behind it is darkened so much that figures can be read before any sky."""
    return _frame(COUNTER_WIDTH, COUNTER_HEIGHT, 190)


def health():
    """One column of what fills the health bar."""
    rows = BAR_HEIGHT - 2 * RIM
    tone = 0.85 - np.abs((np.arange(rows) + 0.5) / rows - 0.3)
    return to_bytes(paint(tone, BLOOD))[:, None, :]


def compass():
    """A sheet with the compass for each direction that one looks in, clockwise from north, side by side."""
    return np.hstack([_dial(2 * np.pi * direction / DIRECTIONS) for direction in range(DIRECTIONS)])


def crosshair():
    """Four strokes, dark at their rims, so that they show before anything."""
    line = np.abs(np.arange(2 * ARM) - (ARM - 0.5))
    x, y = np.meshgrid(line, line)
    across, along = np.minimum(x, y), np.maximum(x, y)
    stroke = (across < 1) & (along > GAP) & (along < ARM - 1)
    rim = (across < 2) & (along > GAP - 1)
    colors = over(np.zeros(x.shape + (3,)) + OUTLINE, IVORY, stroke)
    return np.dstack([to_bytes(colors), np.where(stroke, 230, np.where(rim, 150, 0))]).astype(np.uint8)


def _frame(width, height, darkness):
    """A rim of brass around something dark that lets the view through."""
    y, x = np.mgrid[0:height, 0:width]
    depth = np.min([y, x, height - 1 - y, width - 1 - x], axis=0)
    lit = np.minimum(y, x) <= np.minimum(height - 1 - y, width - 1 - x)
    colors = over(np.zeros((height, width, 3)), OUTLINE, depth < height)
    colors = over(colors, paint(np.where(lit, 0.85, 0.4), BRASS), (depth == 1) | (depth == 2))
    alpha = np.where(depth < RIM, 255, darkness)
    alpha[np.ix_([0, -1], [0, -1])] = 0
    return np.dstack([to_bytes(colors), alpha]).astype(np.uint8)


def _dial(heading):
    """The compass of someone who looks that many radians east of north: north is turned as far to the left."""
    heading += 0.0013  # so that no edge falls on a sample, where the last bit of a sine would decide
    line = (np.arange(COMPASS * FINER) + 0.5) / FINER - COMPASS / 2.0
    x, y = np.meshgrid(line, line)
    distance = np.sqrt(x * x + y * y)
    radius = COMPASS / 2.0 - 0.5
    lit = 0.5 - (x + y) / (radius * 2.6)
    colors = np.zeros(x.shape + (3,)) + (34, 31, 40)
    # Of a world that is turned against the view: what is ahead has the coordinates of the heading.
    east = np.cos(heading) * x - np.sin(heading) * y
    south = np.sin(heading) * x + np.cos(heading) * y
    for along, across, length in ((south, east, 8), (east, south, 8)):
        mark = (np.abs(across) < 0.8) & (np.abs(along) > radius - 4 - length / 2.0) & (np.abs(along) < radius - 4)
        colors = over(colors, (150, 142, 128), mark)
    for color, side in (((214, 64, 48), -south), ((222, 214, 196), south)):
        half = np.abs(east) < 4.5 * (1 - side / (radius - 9))
        shade = np.where(east < 0, 1.0, 0.72)[..., None]
        colors = over(colors, np.array(color) * shade, half & (side >= 0) & (side < radius - 9))
    colors = over(colors, paint(lit, BRASS), smooth(2.6, 2.2, distance))
    colors = over(colors, OUTLINE, smooth(radius - 4.2, radius - 3.6, distance))
    colors = over(colors, paint(lit, BRASS), smooth(radius - 3.6, radius - 3.2, distance))
    colors = over(colors, OUTLINE, smooth(radius - 1.0, radius - 0.6, distance))
    inside = smooth(radius + 0.3, radius - 0.1, distance)
    alpha = inside * np.where(distance < radius - 4, 215, 255)
    return to_bytes(_coarse(np.dstack([colors, alpha])))


def _coarse(samples):
    return samples.reshape(COMPASS, FINER, COMPASS, FINER, 4).mean(axis=(1, 3))
