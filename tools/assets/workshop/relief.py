"""Seamless reliefs: height fields that repeat in both directions, their light and their colors.

All fields are square arrays of SAMPLES x SAMPLES, DETAIL samples to a texel; positions and heights are in texels.
"""

import numpy as np

SIZE = 64
DETAIL = 4
SAMPLES = SIZE * DETAIL

# Light from the upper left, towards the viewer.
_LIGHT = np.array([-0.42, -0.62, 0.66])
# Keeps values that fall exactly between two bytes from depending on the last bit of a sine.
_ROUNDING = 0.49371


def positions():
    """x and y of every sample, in texels."""
    line = (np.arange(SAMPLES) + 0.5) / DETAIL
    return np.meshgrid(line, line)


def smooth(low, high, value):
    """0 below low, 1 above high, an S-curve between."""
    t = np.clip((value - low) / (high - low), 0.0, 1.0)
    return t * t * (3.0 - 2.0 * t)


def wrapped(distance):
    """The shorter way around, for a difference of two positions."""
    return distance - SIZE * np.floor(distance / SIZE + 0.5)


def neighbourhood(x, y, reach):
    """The samples around a point, as an index into fields, and their distances to it to the right and down."""
    steps = np.arange(-int(reach * DETAIL), int(reach * DETAIL) + 1)
    column, row = int(x * DETAIL), int(y * DETAIL)
    dx, dy = np.meshgrid((column + steps + 0.5) / DETAIL - x, (row + steps + 0.5) / DETAIL - y)
    return np.ix_((row + steps) % SAMPLES, (column + steps) % SAMPLES), dx, dy


def blur(field, radius):
    """Three box blurs, near enough to a Gaussian; radius in texels."""
    reach = max(1, int(radius * DETAIL / 2))
    for axis in (0, 1, 0, 1, 0, 1):
        field = sum(np.roll(field, shift, axis) for shift in range(-reach, reach + 1)) / (2 * reach + 1)
    return field


def clouds(rng, columns, rows, octaves=3):
    """Soft seamless blotches around 0.5, of so many bumps across and down."""
    total = np.zeros((SAMPLES, SAMPLES))
    weight = 1.0
    for _ in range(octaves):
        total += weight * _value_lattice(rng.rand(rows, columns))
        weight, columns, rows = weight / 2, columns * 2, rows * 2
    low, high = total.min(), total.max()
    return (total - low) / (high - low)


def _value_lattice(values):
    for axis in (0, 1):
        count = values.shape[axis]
        place = (np.arange(SAMPLES) + 0.5) / SAMPLES * count - 0.5
        cell = np.floor(place).astype(int)
        blend = smooth(0.0, 1.0, place - cell)
        blend = blend[:, None] if axis == 0 else blend
        first = np.take(values, cell % count, axis)
        second = np.take(values, (cell + 1) % count, axis)
        values = first * (1 - blend) + second * blend
    return values


class Blocks:
    """A masonry of rectangles. For every sample: which block it is in, where, and how far from its border."""

    def __init__(self, courses):
        """courses: for each course its height and the x positions of its vertical joints, from the top down."""
        x, y = positions()
        shape = (SAMPLES, SAMPLES)
        self.index = np.zeros(shape, int)
        self.x, self.y = np.zeros(shape), np.zeros(shape)
        self.width, self.height = np.zeros(shape), np.zeros(shape)
        top, self.count = 0.0, 0
        for height, joints in courses:
            inside_course = (y >= top) & (y < top + height)
            for left, right in zip(joints, joints[1:] + [joints[0] + SIZE]):
                inside = inside_course & ((x - left) % SIZE < right - left)
                self.index[inside] = self.count
                self.x[inside] = ((x - left) % SIZE)[inside]
                self.y[inside] = (y - top)[inside]
                self.width[inside], self.height[inside] = right - left, height
                self.count += 1
            top += height

    def border(self, corner=1.5):
        """Distance to the nearest border, with corners rounded."""
        half_w, half_h = self.width / 2, self.height / 2
        dx = np.abs(self.x - half_w) - (half_w - corner)
        dy = np.abs(self.y - half_h) - (half_h - corner)
        outside = np.sqrt(np.maximum(dx, 0) ** 2 + np.maximum(dy, 0) ** 2)
        return corner - (outside + np.minimum(np.maximum(dx, dy), 0))

    def choose(self, values):
        """One value for each block."""
        return np.asarray(values)[self.index]


class Stones:
    """Round stones around jittered points of a grid: distance to the joint, and a number for each stone."""

    def __init__(self, rng, columns, rows, jitter=0.75):
        x, y = positions()
        column, row = np.meshgrid(np.arange(columns), np.arange(rows))
        shift = np.where(row % 2 == 0, 0.25, -0.25)
        px = (column + 0.5 + shift + (rng.rand(rows, columns) - 0.5) * jitter) * SIZE / columns
        py = (row + 0.5 + (rng.rand(rows, columns) - 0.5) * jitter) * SIZE / rows
        px, py = px.ravel(), py.ravel()
        dx = wrapped(x[..., None] - px)
        dy = wrapped(y[..., None] - py)
        distance = np.sqrt(dx * dx + dy * dy)
        order = np.argsort(distance, axis=2)
        near, second = order[..., 0], order[..., 1]
        self.count = columns * rows
        self.index = near
        between = np.sqrt(wrapped(px[near] - px[second]) ** 2 + wrapped(py[near] - py[second]) ** 2)
        first, other = (np.take_along_axis(distance, pick[..., None], 2)[..., 0] for pick in (near, second))
        self.joint = (other ** 2 - first ** 2) / (2 * between)

    def choose(self, values):
        return np.asarray(values)[self.index]


def light(height, strength=1.0):
    """Brightness of a lit relief: 1 where it is flat."""
    slope_x = (np.roll(height, -1, 1) - np.roll(height, 1, 1)) * (DETAIL / 2 * strength)
    slope_y = (np.roll(height, -1, 0) - np.roll(height, 1, 0)) * (DETAIL / 2 * strength)
    toward = _LIGHT[2] - slope_x * _LIGHT[0] - slope_y * _LIGHT[1]
    return np.maximum(toward, 0) / np.sqrt(1 + slope_x ** 2 + slope_y ** 2) / _LIGHT[2]


def hollows(height, radius=3.0):
    """How deep a sample lies below its surroundings: where dirt and shade gather."""
    return np.maximum(blur(height, radius) - height, 0)


def paint(tone, ramp):
    """Colors of a tone from 0 to 1 on a ramp of "rrggbb" colors, dark to light."""
    colors = np.array([[int(color[i:i + 2], 16) for i in (0, 2, 4)] for color in ramp], float)
    place = np.clip(tone, 0.0, 1.0) * (len(colors) - 1)
    low = np.minimum(place.astype(int), len(colors) - 2)
    blend = (place - low)[..., None]
    return colors[low] * (1 - blend) + colors[low + 1] * blend


def over(base, top, amount):
    """Lays one colored field over another where amount is 1."""
    amount = np.asarray(amount)[..., None]
    return base * (1 - amount) + top * amount


def to_bytes(colors):
    return np.floor(np.clip(colors, 0, 255) + _ROUNDING).astype(np.uint8)


def finish(colors, sharpen=0.35):
    """Scales a colored field down to the texture's pixels and crispens it a little."""
    small = colors.reshape(SIZE, DETAIL, SIZE, DETAIL, 3).mean(axis=(1, 3))
    around = sum(np.roll(np.roll(small, dy, 0), dx, 1) for dy in (-1, 0, 1) for dx in (-1, 0, 1)) / 9
    return to_bytes(small + (small - around) * sharpen)
