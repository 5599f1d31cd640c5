"""The sky around the demo's open court, and the mask of its flashlight."""

import numpy as np

from .relief import over, paint, smooth, to_bytes

WIDTH, HEIGHT = 1440, 400
HORIZON = HEIGHT // 2  # the middle row lies on the horizon
SUN, MOON = (735.0, 152.0), (95.0, 112.0)  # column and row; 4 columns to a degree, column 0 is east and 720 west


def dusk(rng):
    """A full circle of evening: sun in the west, moon in the east, hills all around."""
    x, y = np.meshgrid(np.arange(WIDTH) + 0.5, np.arange(HEIGHT) + 0.5)
    height = np.clip((HORIZON - y) / HORIZON, 0, 1)
    to_sun = _around(x - SUN[0]) / (WIDTH / 2)
    warmth = np.exp(-(to_sun / 0.42) ** 2)
    west = paint(height ** 0.62, ["ffd27a", "ff9a52", "d8586a", "7a3f86", "3a2a6c", "1c1a48", "120f30"])
    east = paint(height ** 0.7, ["a08098", "7c6590", "4f4a80", "302f66", "1e1f4a", "141536", "0d0d26"])
    colors = over(east, west, warmth)
    colors = _stars(rng, colors, height, warmth)
    colors = _moon(colors, x, y)
    halo = np.exp(-((_around(x - SUN[0]) / 80) ** 2 + ((y - SUN[1]) / 50) ** 2))
    colors = colors + halo[..., None] * np.array([70, 46, 10])
    disc = np.sqrt(_around(x - SUN[0]) ** 2 + (y - SUN[1]) ** 2)
    sun = smooth(17.5, 15.5, disc)
    colors = over(colors, paint(smooth(135, 170, y), ["fffbd8", "ffdc84"]), sun)
    colors = _clouds(rng, colors, y, warmth, 1 - 0.75 * sun)
    colors = _hills(rng, colors, x, y, warmth)
    return to_bytes(colors)


def _around(distance):
    return (distance + WIDTH / 2) % WIDTH - WIDTH / 2


def _noise(rng, columns, rows, octaves=4):
    """Soft blotches from 0 to 1 that join at the left and right edge."""
    total, weight, weights = np.zeros((HEIGHT, WIDTH)), 1.0, 0.0
    for _ in range(octaves):
        values = rng.rand(rows + 2, columns)
        px = (np.arange(WIDTH) + 0.5) / WIDTH * columns
        py = (np.arange(HEIGHT) + 0.5) / HEIGHT * rows
        ix, iy = px.astype(int), py.astype(int)
        fx, fy = smooth(0, 1, px - ix), smooth(0, 1, py - iy)[:, None]
        upper = values[iy][:, ix % columns] * (1 - fx) + values[iy][:, (ix + 1) % columns] * fx
        lower = values[iy + 1][:, ix % columns] * (1 - fx) + values[iy + 1][:, (ix + 1) % columns] * fx
        total += weight * (upper * (1 - fy) + lower * fy)
        weights += weight
        weight, columns, rows = weight / 2, columns * 2, rows * 2
    return total / weights


def _stars(rng, colors, height, warmth):
    for _ in range(420):
        sx, sy = rng.randint(WIDTH), rng.randint(int(HORIZON * 0.8))
        power = rng.rand() ** 3 * (height[sy, sx] ** 1.2) * (1 - 0.8 * warmth[sy, sx])
        colors[sy, sx] += power * np.array([230, 225, 255])
        if power > 0.55:
            for px, py in ((sx - 1, sy), ((sx + 1) % WIDTH, sy), (sx, sy - 1), (sx, sy + 1)):
                colors[py, px] += power * 70
    return colors


def _moon(colors, x, y):
    dx, dy = _around(x - MOON[0]), y - MOON[1]
    distance = np.sqrt(dx * dx + dy * dy)
    colors = colors + (np.exp(-(distance / 34) ** 2) * 46)[..., None] * np.array([0.9, 0.95, 1.1])
    shadow = np.sqrt((dx + 7) ** 2 + (dy + 4) ** 2)
    crescent = smooth(15.8, 14.6, distance) * smooth(12.6, 14.4, shadow)
    return over(colors, np.full_like(colors, 238.0) + [4, 0, -18], crescent)


def _clouds(rng, colors, y, warmth, thickness):
    density = 0.6 * _noise(rng, 9, 24, 5) + 0.4 * _noise(rng, 5, 7, 2)
    low = np.exp(-((y - 165) / 26) ** 2) * 0.1 + np.exp(-((y - 95) / 34) ** 2) * 0.05
    body = smooth(0.55, 0.7, density + low) * smooth(10.0, 60.0, y)
    below = np.roll(density, -5, 0) - density
    lining = np.clip(0.5 + below * 7.0, 0, 1)
    lit = paint(lining, ["ffe2a0", "ff9c6c", "b0547c", "5c3a72"])
    dim = paint(lining, ["a890b0", "6c5f90", "433f70", "2a2850"])
    return over(colors, over(dim, lit, warmth), body * thickness * 0.85)


def _hills(rng, colors, x, y, warmth):
    ranges = ((46.0, (3, 7, 11, 19), "53446e", "a0566a"), (27.0, (5, 9, 16, 31), "332c50", "5e3450"),
              (12.0, (8, 13, 27, 44), "1d1a30", "2e1c30"))
    angle = x[0] / WIDTH * 2 * np.pi
    for rise, waves, cold, warm in ranges:
        line = sum(np.sin(angle * wave + rng.rand() * 6.283) / (i + 1.2) for i, wave in enumerate(waves))
        top = HORIZON - rise * (0.62 + 0.36 * line)
        if rise < 20:
            top = top - _trees(rng)
        shape = smooth(-0.6, 0.6, y - top)
        color = over(paint(y * 0, [cold, cold]), paint(y * 0, [warm, warm]), warmth)
        haze = smooth(0, 40, y - top) * 0.25
        colors = over(colors, color * (1 + haze[..., None]), shape)
    return colors


def _trees(rng):
    """A row of small pointed and round crowns."""
    tops, columns = np.zeros(WIDTH), np.arange(WIDTH)
    for _ in range(240):
        middle, tall, wide = rng.rand() * WIDTH, 2.0 + rng.rand() * 5.0, 2.0 + rng.rand() * 3.0
        place = np.abs(_around(columns - middle)) / wide
        crown = np.maximum(1 - place, 0) if rng.rand() < 0.6 else np.sqrt(np.maximum(1 - place ** 2, 0)) * 0.7
        tops = np.maximum(tops, crown * tall)
    return tops


def flashlight():
    """Brightness of the lamp across the screen, and down a wall: its rows are read faster the nearer the wall is."""
    across, down = np.meshgrid((np.arange(256) + 0.5) / 128 - 1, np.arange(2048) + 0.5)
    bell = np.exp(-(across / 0.36) ** 2)
    ring = np.exp(-((np.abs(across) - 0.5) / 0.09) ** 2) * 0.22
    power = (bell * 0.65 + ring) * smooth(0.0, 80.0, down)
    return to_bytes(power[..., None] * np.array([255, 236, 196]))
