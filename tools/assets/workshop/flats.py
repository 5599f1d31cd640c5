"""The textures of floors and ceilings. Each function gives one 64x64 picture that repeats seamlessly."""

import numpy as np

from .materials import BRASS, CLAY, CREAM, EARTH, IRON, MOSS, OLD_WOOD, STONE, WOOD, boards, studs
from .relief import (SIZE, Blocks, Stones, blur, clouds, finish, hollows, light, neighbourhood, over, paint, positions,
                     smooth, wrapped)


def cobbles(rng):
    stones = Stones(rng, 6, 7, 0.6)
    grain = clouds(rng, 20, 20, 2)
    face = smooth(0.3, 1.2, stones.joint)
    dome = 1 - np.exp(-stones.joint / 1.8)
    height = blur(dome, 1.0) * 3.4 + (grain - 0.5) * 0.4
    lit = light(height, 0.6)
    tone = 0.36 + stones.choose(rng.rand(stones.count)) * 0.22 + (grain - 0.5) * 0.15
    rock = paint(tone * lit + (lit - 1) * 0.14 - hollows(height, 2.0) * 0.15, STONE)
    damp = smooth(0.5, 0.8, clouds(rng, 4, 4, 2)) * 0.6
    joint = over(paint(0.3 + grain * 0.4, EARTH), paint(0.2 + grain * 0.3, MOSS), damp)
    return finish(over(joint, rock, face))


def flagstones(rng):
    blocks = Blocks([(20, [0, 26, 44]), (14, [10, 34, 54]), (18, [4, 24, 48]), (12, [16, 40, 60])])
    border = blocks.border(2.0)
    grain = clouds(rng, 7, 7, 4)
    face = smooth(0.3, 1.4, border + (grain - 0.5) * 0.8)
    height = face * 1.2 + (grain - 0.5) * 1.4
    lit = light(height, 0.6)
    tone = 0.36 + blocks.choose(rng.rand(blocks.count)) * 0.16 + (grain - 0.5) * 0.2
    slab = paint(tone * lit + (lit - 1) * 0.1, ["25221f", "433e38", "68615a", "8d857a", "b0a797"])
    return finish(over(paint(0.35 + grain * 0.3, EARTH), slab, face))


def tiles(rng):
    """A chequer of cream and clay with small dark diamonds where corners meet."""
    blocks = Blocks([(16, [0, 16, 32, 48])] * 4)
    border = blocks.border(0.8)
    x, y = positions()
    diamond = 4.2 - (np.abs(wrapped(x * 4) / 4) + np.abs(wrapped(y * 4) / 4))
    border = np.where(diamond > 0, diamond, np.minimum(border, -diamond))
    glaze = clouds(rng, 8, 8, 3)
    face = smooth(0.15, 0.8, border)
    lit = light(face * 0.9 + smooth(0.5, 2.5, border) * 0.25 + (glaze - 0.5) * 0.3, 0.9)
    jitter = blocks.choose(rng.rand(blocks.count)) * 0.14 + (glaze - 0.5) * 0.16
    light_tile = ((np.floor(x / 16) + np.floor(y / 16)) % 2)[..., None] > 0.5
    colors = np.where(light_tile, paint((0.62 + jitter) * lit, CREAM), paint((0.5 + jitter) * lit, CLAY))
    colors = np.where(diamond[..., None] > 0, paint((0.32 + jitter) * lit, STONE), colors)
    return finish(over(paint(0.3 + glaze * 0.2, EARTH), colors, face))


def floorboards(rng):
    blocks = Blocks([(10.5, [5]), (11, [38]), (10.5, [20]), (10.5, [52]), (11, [12]), (10.5, [44])])
    colors = boards(rng, blocks, WOOD, along_y=False)
    joints = ((5, 5.2), (38, 16), (20, 26.7), (52, 37.2), (12, 48), (44, 58.7))
    nails = [(x + side, y + up) for x, y in joints for side in (-2.5, 2.5) for up in (-2.6, 2.6)]
    return finish(studs(colors, nails, 0.8, IRON))


def grass(rng):
    """Blades over dark earth, the later ones longer and lighter, and a few daisies."""
    x, y = positions()
    clump = clouds(rng, 4, 4, 2)
    colors = paint(0.16 + clump * 0.2, MOSS)
    for layer in range(4):
        for _ in range(260):
            px, py = rng.rand(2) * SIZE
            lean, length = (rng.rand() - 0.5) * 1.1, 3.0 + rng.rand() * 3.0
            near, dx, dy = neighbourhood(px, py, 7)
            up = -dy / length
            side = np.abs(dx - lean * length * up * np.abs(up) ** 0.6)
            blade = (up > 0) & (up < 1) & (side < 0.62 * (1 - up) + 0.12)
            tone = 0.12 + layer * 0.1 + up * 0.3 + clump[near] * 0.16
            colors[near] = np.where(blade[..., None], paint(tone, MOSS), colors[near])
    for _ in range(5):
        px, py = rng.rand(2) * SIZE
        distance = np.sqrt(wrapped(x - px) ** 2 + wrapped(y - py) ** 2)
        colors = over(colors, np.full_like(colors, 226.0), smooth(1.5, 1.0, distance))
        colors = over(colors, paint(0.7 + x * 0, BRASS), smooth(0.8, 0.4, distance))
    return finish(colors, 0.2)


def carpet(rng):
    """Red wool with a gold lattice and small flowers."""
    x, y = positions()
    red = ["2c060c", "5a0f18", "8a1d24", "b03a36"]
    dx, dy = wrapped(x * 2) / 2, wrapped(y * 2) / 2
    lattice = np.abs(np.abs(dx) + np.abs(dy) - 16)
    weave = np.sin(x * np.pi * 2) * np.sin(y * np.pi * 2) * 0.05
    fold = clouds(rng, 3, 3, 2) * 0.1
    colors = paint(0.5 + fold + weave, red)
    cx, cy = wrapped((x + 16) * 2) / 2, wrapped(y * 2) / 2
    colors = over(colors, paint(0.28 + fold + weave, red), smooth(0.4, 0.0, np.abs(dx) + np.abs(dy) - 16))
    gold = smooth(1.5, 0.9, lattice)
    for fx, fy in ((dx, dy), (cx, cy)):
        radius, angle = np.sqrt(fx * fx + fy * fy), np.arctan2(fy, fx)
        gold = np.maximum(gold, smooth(0.7, 0.2, np.abs(radius - 5.2 - 1.6 * np.cos(angle * 4)) - 0.3))
        gold = np.maximum(gold, smooth(2.0, 1.4, radius))
    return finish(over(colors, paint(0.52 + fold + weave * 2, BRASS), gold * 0.9))


def tread_plate(rng):
    """Steel with raised lozenges that lie crosswise by turns."""
    x, y = positions()
    height, mark = np.zeros_like(x), np.zeros_like(x)
    for row in range(8):
        for column in range(8):
            dx, dy = wrapped(x - column * 8 - 4), wrapped(y - row * 8 - 4)
            turn = np.pi / 4 if (row + column) % 2 == 0 else -np.pi / 4
            along = dx * np.cos(turn) + dy * np.sin(turn)
            side = dy * np.cos(turn) - dx * np.sin(turn)
            bump = np.clip(1 - (along / 3.9) ** 2 - (side / 1.25) ** 2, 0, 1)
            height = height + np.sqrt(bump) * 1.1
            mark = np.maximum(mark, smooth(0.0, 0.4, bump))
    worn = clouds(rng, 5, 5, 4)
    lit = light(height, 0.9)
    tone = 0.34 + (worn - 0.5) * 0.2 + mark * 0.12 - hollows(height, 2.0) * 0.3
    return finish(paint(tone * lit + (lit - 1) * 0.12, IRON))


def coffers(rng):
    """A ceiling of square wooden coffers."""
    x, y = positions()
    dx, dy = np.abs(wrapped(x * 2) / 2), np.abs(wrapped(y * 2) / 2)
    inside = np.minimum(dx, dy)
    height = smooth(4.2, 3.4, inside) * 2.2 + smooth(6.8, 6.0, inside) * 1.4
    fibre = np.where(dx < dy, clouds(rng, 24, 3, 2), clouds(rng, 3, 24, 2))
    lit = light(height, 0.55)
    deep = smooth(4.0, 12.0, inside)
    tone = (0.44 - (fibre - 0.5) * 0.25) * (1 - 0.4 * deep)
    colors = paint(tone * lit + (lit - 1) * 0.1 - hollows(height, 4.0) * 0.1, WOOD)
    star = np.sqrt((16 - dx) ** 2 + (16 - dy) ** 2)
    angle = np.arctan2(16 - dy, 16 - dx)
    petals = smooth(0.6, 0.1, star - 2.2 - 1.6 * np.abs(np.cos(angle * 2)))
    colors = over(colors, paint(0.5 - (star - 3) * 0.05, BRASS), petals)
    return finish(studs(colors, [(0, 0), (32, 0), (0, 32), (32, 32)], 1.6, BRASS))


def vault(rng):
    """A groin vault: ribs on the diagonals, courses of stone that arch between them."""
    x, y = positions()
    dx, dy = np.abs(wrapped(x - 32)), np.abs(wrapped(y - 32))
    rib = np.abs(dx - dy) * np.sqrt(0.5)
    along, across = np.maximum(dx, dy), np.minimum(dx, dy)
    course = (along / 5.34) % 1
    joint = np.minimum(course, 1 - course) * 5.34
    cross = np.abs(((across + np.floor(along / 5.34) * 4.1) % 9) - 4.5)
    face = smooth(0.2, 1.0, np.minimum(joint, 4.5 - cross + 0.1))
    grain = clouds(rng, 12, 12, 3)
    on_rib = smooth(3.0, 2.5, rib)
    boss = np.sqrt(dx ** 2 + dy ** 2)
    height = np.where(on_rib > 0.5, np.sqrt(np.maximum(0, 9 - rib ** 2)) * 0.9, face * 0.7 + (grain - 0.5) * 0.5)
    height = np.where(boss < 6, np.sqrt(np.maximum(0, 36 - boss ** 2)) * 0.7, height)
    lit = light(height, 0.6)
    shade = smooth(3.0, 16.0, along - across) * 0.12
    tone = np.where(on_rib > 0.5, 0.6, 0.42 * (0.6 + 0.4 * face)) + (grain - 0.5) * 0.18 - shade
    ramp = ["2a2622", "4c4740", "756e63", "9b9384", "bcb4a2"]
    return finish(paint(tone * lit + (lit - 1) * 0.1 - hollows(height) * 0.1, ramp))


def rafters(rng):
    """Boards seen from below, with a heavy beam across."""
    blocks = Blocks([(64, [0, 16, 32, 48])])
    colors = boards(rng, blocks, OLD_WOOD)
    x, y = positions()
    distance = np.abs(wrapped(y - 32))
    beam = smooth(8.2, 7.8, distance)
    colors = colors * (1 - 0.5 * smooth(16.0, 7.0, distance))[..., None]
    lit = light(smooth(8.5, 6.0, distance) * 2.4, 0.6)
    fibre = clouds(rng, 4, 30, 3)
    wood = paint((0.46 - (fibre - 0.5) * 0.4) * lit + (lit - 1) * 0.12, WOOD)
    return finish(over(colors, wood, beam))
