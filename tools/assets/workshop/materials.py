"""What the textures are made of: ramps of colors from dark to light, masonry, boards, and metal studs."""

import numpy as np

from .relief import SIZE, clouds, light, neighbourhood, over, paint, positions, smooth, wrapped

MORTAR = ["3a3430", "6b6156", "968a78"]
BRICK = ["3d1712", "6e2b1e", "9a4430", "b9603f", "d08a60"]
STONE = ["26262c", "45464d", "6b6b6e", "918f8b", "b8b3a8"]
MOSS = ["1a2812", "2f4a1c", "4d6f2a", "769440", "a5b866"]
WOOD = ["24140c", "452817", "6b4124", "8f5d36", "b58351"]
OLD_WOOD = ["1d1712", "3a2d23", "5c4937", "7d6850", "9f8a6d"]
PLASTER = ["6f6452", "a89a7f", "cdc0a2", "e4dabf", "f4eed8"]
IRON = ["15181c", "2c3238", "4a535b", "6f7a82", "9daab0"]
RUST = ["2a130a", "5a2a14", "8a4820", "b06a34"]
BRASS = ["3a2408", "7a5416", "b98a2c", "e6c25a", "fff0ac"]
CLAY = ["40180f", "702f1c", "9c4d2d", "bd7044"]
CREAM = ["6a5f4c", "a2957a", "cabd9c", "e6dcc0"]
EARTH = ["1c1712", "362c20", "54452f", "736046"]

ASHLAR = [(16, [4, 36]), (16, [20, 44]), (16, [0, 24, 48]), (16, [14, 50])]


def ashlar(rng, blocks):
    """Dressed stone: chiselled faces inside smooth margins."""
    border = blocks.border(1.5)
    grain = clouds(rng, 10, 10, 4)
    face = smooth(0.3, 1.6, border)
    pillow = smooth(2.0, 4.5, border)
    x, y = positions()
    chisel = np.sin((x * 0.6 + y) * 2.1 + blocks.index * 1.7 + grain * 5) * 0.16 * pillow
    height = face * 1.3 + pillow * 0.5 + chisel + (grain - 0.5) * 0.8
    tone = 0.4 + blocks.choose(rng.rand(blocks.count)) * 0.2 + (grain - 0.5) * 0.22
    return height, tone * (0.55 + 0.45 * face)


def _grain(rng, blocks, along_y=True, turns=5.0):
    """Fibres that run along planks, with a wave and a few knots; and how dark they are, 0 to 1."""
    x, y = positions()
    across, along = (blocks.x, y) if along_y else (blocks.y, x)
    shift = blocks.choose(rng.rand(blocks.count) * 50)
    sway = clouds(rng, 4, 2, 2) if along_y else clouds(rng, 2, 4, 2)
    bent = across + (sway - 0.5) * 5
    ring = np.zeros_like(x)
    for _ in range(3):
        kx, ky = rng.rand(2) * SIZE
        dx, dy = wrapped(x - kx), wrapped(y - ky)
        stretch = (dx, dy / 2.6) if along_y else (dx / 2.6, dy)
        ring = ring + np.exp(-(stretch[0] ** 2 + stretch[1] ** 2) / 5.0)
    lines = np.sin(bent * turns / 3 + shift + ring * 9) * 0.5 + 0.5
    fine = clouds(rng, 40, 3, 2) if along_y else clouds(rng, 3, 40, 2)
    return lines * 0.55 + fine * 0.45, smooth(0.45, 0.95, ring)


def boards(rng, blocks, ramp, along_y=True):
    """Sawn wood, a board to each block."""
    grain, knot = _grain(rng, blocks, along_y)
    border = blocks.border(0.6)
    face = smooth(0.1, 1.0, border)
    height = face * 1.4 + smooth(0.8, 3.0, border) * 0.35 - grain * 0.28
    tone = 0.42 + blocks.choose(rng.rand(blocks.count)) * 0.22 - grain * 0.2 - knot * 0.25
    lit = light(height, 0.7)
    return paint((tone * lit + (lit - 1) * 0.12) * (0.35 + 0.65 * face), ramp)


def studs(colors, places, radius, ramp):
    """Sets round metal heads, with a highlight and a small shadow, into the colors."""
    for x, y in places:
        near, dx, dy = neighbourhood(x, y, radius + 2)
        distance = np.sqrt(dx * dx + dy * dy)
        shadow = np.sqrt((dx - 0.7) ** 2 + (dy - 0.9) ** 2)
        shaded = colors[near] * (1 - 0.5 * smooth(radius + 0.7, radius - 0.6, shadow))[..., None]
        tone = 0.5 - (dx * 0.5 + dy * 0.7) / (radius * 2.0)
        colors[near] = over(shaded, paint(tone, ramp), smooth(radius + 0.2, radius - 0.3, distance))
    return colors
