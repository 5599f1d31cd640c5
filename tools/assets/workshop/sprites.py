"""The sprite sheets of the demo."""

import numpy as np

from .materials import IRON, MOSS, OLD_WOOD, STONE, WOOD
from .relief import paint, smooth
from .solids import FRAME, Stage, sheet, turn, with_alpha

COPPER = ["2a0f0a", "66291a", "a8542c", "d98a4a", "ffd394", "fff4d8"]
STEEL = ["16191f", "343b45", "5f6b77", "96a4ae", "d5e0e4", "ffffff"]
GOLD = ["3a2408", "7a5416", "b98a2c", "e6c25a", "fff0ac", "ffffff"]
LAMP = ["1c5a70", "3fb4c8", "a8f4f4", "ffffff"]
LEATHER = ["1a0f0a", "3a2115", "5c3822", "7f5436"]
GEM = ["4a0a3c", "8f1a6a", "d23a8c", "ff8ab8", "ffe0ee", "ffffff"]
FLAME = ["5a0a04", "b02408", "ee6a10", "ffb428", "ffe978", "ffffe0"]

DIRECTIONS = 8
WALK_STEPS = 6


def automaton():
    """A clockwork warden on its round: for each step of its walk the 8 views, counted against the sense of rotation."""
    frames = []
    for step in range(WALK_STEPS):
        for direction in range(DIRECTIONS):
            frames.append(_automaton(step / WALK_STEPS, -direction * 360.0 / DIRECTIONS))
    return sheet(frames, DIRECTIONS)


def _automaton(phase, viewer):
    stage = Stage(viewer)
    cycle = phase * 2 * np.pi
    bob = 0.012 * np.cos(cycle * 2)
    sway = np.array([0.0, 0.012 * np.sin(cycle), bob])
    for side in (-1, 1):
        swing = np.sin(cycle) * side
        lift = max(0.0, np.cos(cycle) * side) * 0.06
        hip = np.array([0.0, 0.085 * side, 0.30]) + sway
        foot = np.array([0.13 * swing, 0.09 * side, 0.045 + lift])
        knee = (hip + foot) / 2 + np.array([0.05, 0.0, 0.0])
        stage.limb(hip, knee, 0.042, STEEL, tone=0.5, shine=0.4)
        stage.limb(knee, foot, 0.036, STEEL, tone=0.45, shine=0.4)
        stage.ellipsoid(knee, np.full(3, 0.05), COPPER, shine=0.4)
        stage.ellipsoid(foot + [0.03, 0, -0.005], np.array([0.095, 0.06, 0.042]), COPPER, tone=0.45, shine=0.3)
        shoulder = np.array([0.0, 0.225 * side, 0.575]) + sway
        elbow = shoulder + [-0.06 * swing - 0.02, 0.045 * side, -0.13]
        hand = elbow + [0.09 - 0.05 * swing, -0.01 * side, -0.11]
        stage.ellipsoid(shoulder, np.full(3, 0.078), COPPER, shine=0.5)
        stage.limb(shoulder, elbow, 0.038, STEEL, tone=0.5, shine=0.4)
        stage.limb(elbow, hand, 0.042, STEEL, tone=0.5, shine=0.4)
        stage.ellipsoid(hand, np.full(3, 0.054), COPPER, tone=0.45, shine=0.4)
    stage.ellipsoid(sway + [0, 0, 0.47], np.array([0.165, 0.205, 0.205]), COPPER, tone=0.48, shine=0.6)
    stage.ellipsoid(sway + [0, 0, 0.43], np.array([0.178, 0.214, 0.028]), STEEL, tone=0.45, shine=0.3)
    stage.ellipsoid(sway + [0.145, 0, 0.535], np.array([0.03, 0.085, 0.085]), GOLD, turn("y", -22), tone=0.5, shine=0.5)
    stage.ellipsoid(sway + [0.162, 0, 0.538], np.array([0.025, 0.06, 0.06]), LAMP, turn("y", -22), glow=0.9)
    head = sway + np.array([0.015, 0, 0.765])
    stage.limb(sway + [0, 0, 0.64], head, 0.06, STEEL, tone=0.4)
    stage.ellipsoid(head, np.array([0.135, 0.135, 0.125]), COPPER, tone=0.5, shine=0.7)
    stage.ellipsoid(head + [0.0, 0, -0.045], np.array([0.142, 0.142, 0.028]), STEEL, tone=0.45, shine=0.3)
    for side in (-1, 1):
        stage.ellipsoid(head + [0.108, 0.055 * side, 0.022], np.full(3, 0.041), LEATHER, tone=0.3)
        stage.ellipsoid(head + [0.128, 0.056 * side, 0.024], np.full(3, 0.032), LAMP, glow=1.0)
        stage.ellipsoid(head + [0.0, 0.137 * side, 0.0], np.array([0.035, 0.02, 0.035]), GOLD, shine=0.4)
    stage.limb(head + [-0.03, 0, 0.11], head + [-0.03, 0, 0.14], 0.02, GOLD, shine=0.4)
    stage.ellipsoid(head + [-0.03, 0, 0.152], np.full(3, 0.028), LAMP, glow=0.8)
    _winding_key(stage, sway + [-0.16, 0, 0.50], phase)
    return stage.frame()


def _winding_key(stage, root, phase):
    tip = root + [-0.09, 0, 0.02]
    stage.limb(root, tip, 0.022, GOLD, shine=0.4)
    around = turn("x", phase * 180.0)
    for side in (-1, 1):
        stage.ellipsoid(tip + around @ [0, 0.085 * side, 0], np.array([0.018, 0.07, 0.055]), GOLD, around, shine=0.5)


GEM_STEPS = 8


def gem():
    """A cut stone that turns in the air; six-sided, so a sixth of a turn closes the circle."""
    frames = []
    for step in range(GEM_STEPS):
        angle = step * 60.0 / GEM_STEPS
        bob = 0.02 * np.sin(step / GEM_STEPS * 2 * np.pi)
        stage = Stage(tilt=14)
        normals, distances = [], []
        for side in range(6):
            around = turn("z", angle + side * 60)
            for steep, distance in ((-46, 0.2), (36, 0.185)):
                normals.append(around @ turn("y", steep) @ [1.0, 0, 0])
                distances.append(distance)
        normals.append(np.array([0.0, 0.0, 1.0]))
        distances.append(0.17)
        stage.crystal(np.array([0.0, 0.0, 0.44 + bob]), normals, distances, GEM, tone=0.5, shine=0.5)
        picture = stage.frame("3a0830")
        if step in (2, 3):
            _star(picture, 25, 25, 3 if step == 2 else 4)
        frames.append(picture)
    return sheet(frames, GEM_STEPS)


def _star(picture, x, y, reach):
    for distance in range(-reach, reach + 1):
        brightness = 255 - abs(distance) * 20
        for px, py in ((x + distance, y), (x, y + distance)):
            picture[py, px] = (255, brightness, 255, 255)


FLAME_STEPS = 6


def brazier():
    """A fire in an iron bowl; played forth and back."""
    stage = Stage(tilt=14)
    for side in range(3):
        around = turn("z", side * 120 + 30)
        stage.limb(around @ [0.07, 0, 0.36], around @ [0.2, 0, 0.02], 0.022, IRON, tone=0.55, shine=0.3)
    stage.ellipsoid(np.array([0, 0, 0.2]), np.array([0.105, 0.105, 0.016]), IRON, tone=0.5)
    stage.ellipsoid(np.array([0, 0, 0.39]), np.array([0.2, 0.2, 0.085]), IRON, tone=0.5, shine=0.4)
    stage.ellipsoid(np.array([0, 0, 0.445]), np.array([0.215, 0.215, 0.03]), COPPER, tone=0.4, shine=0.4)
    stage.ellipsoid(np.array([0, 0, 0.455]), np.array([0.18, 0.18, 0.028]), FLAME, glow=0.6)
    bowl = stage.frame()
    return sheet([_burn(bowl, step / (FLAME_STEPS - 1)) for step in range(FLAME_STEPS)], FLAME_STEPS)


def _burn(bowl, phase):
    line = (np.arange(FRAME * 4) + 0.5) / 4
    x, y = np.meshgrid(line, line)
    up = (36.0 + 1.6 * np.sqrt(np.maximum(0, 1 - ((x - 32) / 11.5) ** 2)) - y) / 33.0
    heat = np.zeros_like(x)
    tongues = ((0.0, 1.0, 7.6, 0.3), (-5.6, 0.62, 4.6, 1.9), (5.4, 0.7, 4.8, 3.6), (-2.4, 0.82, 4.4, 5.0))
    for offset, tall, wide, lag in tongues:
        wave = phase * np.pi + lag
        height = tall * (0.86 + 0.14 * np.sin(wave * 1.5))
        t = np.clip(up / height, 0, 1)
        middle = 32 + offset * (1 - t * 0.6) + np.sin(t * 4.2 - wave) * 3.4 * t
        width = wide * np.sqrt(t + 0.15) * (1 - t) * 2.1 + 0.01
        tongue = np.clip(1 - np.abs(x - middle) / width, 0, 1) * (1 - t * 0.7)
        heat = np.maximum(heat, tongue * (up > 0) * (up < height))
    heat = heat.reshape(FRAME, 4, FRAME, 4).mean(axis=(1, 3))
    bands = np.floor(np.clip(heat * 1.15 + 0.1, 0, 1) * 6.999) / 6
    alpha = np.where(heat > 0.1, 255.0, 0.0)
    flame = with_alpha(paint(bands, FLAME), alpha)
    return np.where(flame[..., 3:] > 0, flame, bowl)


GLOW_STEPS = 4


def halo():
    """Light in the air around a lamp or fire, to be added to the picture; it breathes."""
    line = np.arange(FRAME) - (FRAME - 1) / 2
    x, y = np.meshgrid(line, line)
    distance = np.sqrt(x * x + y * y) / (FRAME / 2)
    frames = []
    for step in range(GLOW_STEPS):
        size = 0.86 + 0.14 * step / (GLOW_STEPS - 1)
        falloff = np.clip(1 - distance / size, 0, 1)
        color = paint(falloff, ["ff7a1e", "ffa84a", "ffdca0"])
        frames.append(with_alpha(color, 150 * falloff ** 2.2))
    return sheet(frames, GLOW_STEPS)


def wisp():
    """A ball of cold light with a bright heart and a ring of rays, to be added to the picture."""
    line = np.arange(FRAME) - (FRAME - 1) / 2
    x, y = np.meshgrid(line, line)
    distance = np.sqrt(x * x + y * y) / (FRAME / 2)
    angle = np.arctan2(y, x)
    frames = []
    for step in range(GLOW_STEPS):
        grow = step / (GLOW_STEPS - 1)
        rays = (0.5 + 0.5 * np.cos(angle * 8 + grow * 0.5)) * np.clip(1 - distance, 0, 1) ** 2 * (0.2 + 0.15 * grow)
        aura = np.clip(1 - distance, 0, 1) ** 2 * 0.5
        heart = smooth(0.3 + 0.04 * grow, 0.12, distance)
        power = np.clip(aura + rays + heart, 0, 1)
        frames.append(with_alpha(paint(power, ["2a5aff", "4ac0ff", "c8f8ff", "ffffff"]), 255 * power))
    return sheet(frames, GLOW_STEPS)


def _lathe(profile, ramp, tone, pattern=None, shine=0.0):
    """A turned body from (height, radius) pairs, seen from the side; frame units, height from the bottom."""
    line = (np.arange(FRAME * 4) + 0.5) / 4
    x, y = np.meshgrid(line - 32, 64 - line)
    heights, radii = np.array(profile, float).T
    radius = np.interp(y, heights, radii)
    slope = np.gradient(np.interp(64 - line, heights, radii), line)[:, None]
    inside = (np.abs(x) < radius) & (y > heights[0]) & (y < heights[-1])
    across = np.clip(x / np.maximum(radius, 1e-9), -1, 1)
    facing = np.sqrt(1 - across ** 2)
    lit = np.clip(-0.5 * across + 0.62 * slope * 0.6 + 0.62 * facing, 0, 2)
    glint = np.exp(-((across + 0.42) / 0.16) ** 2) * shine
    value = tone * (0.3 + 1.1 * lit) + glint
    if pattern is not None:
        value = value * pattern(np.arcsin(across), y)
    return paint(value, ramp), inside, y


def _settle(color, inside):
    """Scales a 256 x 256 drawing down to a frame with hard edges and an outline."""
    weight = inside.astype(float).reshape(FRAME, 4, FRAME, 4).mean(axis=(1, 3))
    small = (color * inside[..., None]).reshape(FRAME, 4, FRAME, 4, 3).mean(axis=(1, 3))
    small = small / np.maximum(weight, 1e-9)[..., None]
    solid = weight >= 0.5
    padded = np.pad(solid, 1, "constant")
    inner = padded[:-2, 1:-1] & padded[2:, 1:-1] & padded[1:-1, :-2] & padded[1:-1, 2:]
    small = np.where((solid & ~inner)[..., None], small * 0.5, small)
    return with_alpha(small, np.where(solid, 255, 0))


def barrel():
    def staves(angle, _):
        place = (angle / 0.42) % 1
        return (0.62 + 0.38 * smooth(0.0, 0.12, np.minimum(place, 1 - place))) * (0.92 + 0.16 * ((angle // 0.42) % 2))
    profile = [(1, 17), (8, 20), (22, 22.5), (30, 22.5), (44, 20), (51, 17.5)]
    color, inside, y = _lathe(profile, WOOD, 0.52, staves)
    hoops, _, _ = _lathe(profile, IRON, 0.5, shine=0.3)
    hoop = np.zeros(y.shape, bool)
    for low in (4, 16, 33, 45):
        hoop |= (y > low) & (y < low + 3.4)
        shade = (y > low - 1.2) & (y <= low)
        color = np.where(shade[..., None], color * 0.6, color)
    color = np.where(hoop[..., None], hoops, color)
    line = (np.arange(FRAME * 4) + 0.5) / 4
    px, py = np.meshgrid(line - 32, 64 - line)
    lid = np.sqrt((px / 17.5) ** 2 + ((py - 51) / 4.2) ** 2)
    boards = paint(0.5 + 0.12 * (np.floor(px / 6) % 2), WOOD)
    color = np.where((lid < 1)[..., None], paint(0.62 - px / 90, WOOD), color)
    color = np.where((lid < 0.84)[..., None], boards * 0.8, color)
    return _settle(color, inside | (lid < 1))


def column():
    """A fluted column of stone from floor to ceiling."""
    def flutes(angle, y):
        groove = 0.76 + 0.24 * np.abs(np.cos(angle * 5))
        return np.where((y > 9) & (y < 54), groove, 1.0)
    profile = [(0, 15), (4, 15), (4.1, 13.5), (6, 14), (7.5, 13), (8, 11.5), (10, 10.8), (52, 9.6), (54, 10.4),
               (55, 12), (57, 12.6), (58, 11.6), (60, 14.5), (60.1, 16), (64, 16)]
    color, inside, y = _lathe(profile, STONE, 0.62, flutes)
    for low in (4, 8, 54.5, 59.6):
        color = np.where(((y > low) & (y < low + 0.8))[..., None], color * 0.55, color)
    return _settle(color, inside)


def _foliage(rng, color, inside, clusters, leaves, size):
    """Leaves in round clusters, dark ones inside and below, light ones above."""
    line = (np.arange(FRAME * 4) + 0.5) / 4
    x, y = np.meshgrid(line, line)
    for cx, cy, radius in clusters:
        disc = np.sqrt((x - cx) ** 2 + (y - cy) ** 2) < radius * 0.95
        color[disc] = paint(0.08 - (y[disc] - cy) / radius * 0.05, MOSS)
        inside |= disc
    for layer in range(4):
        for cx, cy, radius in clusters:
            for _ in range(leaves):
                angle, away = rng.rand() * 2 * np.pi, np.sqrt(rng.rand()) * radius * (1.0 - 0.1 * layer)
                px, py = cx + np.cos(angle) * away - layer * 0.5, cy + np.sin(angle) * away - layer * 0.7
                tilt, length = rng.rand() * np.pi, size * (0.8 + rng.rand() * 0.5)
                window = (slice(max(0, int((py - 5) * 4)), int((py + 5) * 4)),
                          slice(max(0, int((px - 5) * 4)), int((px + 5) * 4)))
                dx, dy = x[window] - px, y[window] - py
                along = (dx * np.cos(tilt) + dy * np.sin(tilt)) / length
                side = (dy * np.cos(tilt) - dx * np.sin(tilt)) / (length * 0.5)
                leaf = along ** 2 + side ** 2 < 1
                tone = 0.08 + layer * 0.15 - (py - cy) / radius * 0.16 - (px - cx) / radius * 0.1 - dy * 0.05
                color[window] = np.where(leaf[..., None], paint(tone, MOSS), color[window])
                inside[window] |= leaf


def tree(rng):
    def bark(angle, y):
        return 0.75 + 0.25 * np.sin(angle * 7 + np.sin(y * 0.7) * 1.2)
    color, inside, _ = _lathe([(0, 7.5), (2, 5.2), (8, 3.8), (24, 3.0), (34, 2.0)], OLD_WOOD, 0.55, bark)
    color, inside = color.copy(), inside.copy()
    clusters = [(32, 14, 10), (20, 22, 9.5), (44, 22, 9.5), (32, 27, 10), (25, 13, 8), (40, 13, 8), (15, 28, 6),
                (49, 28, 6)]
    _foliage(rng, color, inside, clusters, 26, 2.0)
    return _settle(color, inside)


def shrub(rng):
    """A clipped bush in a clay pot."""
    color, inside, y = _lathe([(1, 9), (16, 13), (16.1, 14.5), (20, 14.5)],
                              ["40180f", "702f1c", "9c4d2d", "cd8050", "eab080"], 0.5, shine=0.15)
    color, inside = np.where(((y > 15) & (y < 16))[..., None], color * 0.6, color), inside.copy()
    _foliage(rng, color, inside, [(32, 32, 12.5), (24, 37, 8), (40, 37, 8), (32, 19, 9)], 40, 1.7)
    return _settle(color, inside)
