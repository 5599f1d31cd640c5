"""The wall textures. Each function gives one 64x64 picture that repeats seamlessly."""

import numpy as np

from .materials import (ASHLAR, BRASS, BRICK, IRON, MORTAR, MOSS, OLD_WOOD, PLASTER, RUST, STONE, WOOD, ashlar, boards,
                        studs)
from .relief import SIZE, Blocks, clouds, finish, hollows, light, neighbourhood, over, paint, positions, smooth, wrapped


def bricks(rng):
    courses = [(8, [0, 16, 32, 48]), (8, [8, 24, 40, 56])] * 4
    blocks = Blocks(courses)
    border = blocks.border(1.2)
    wear = clouds(rng, 16, 16, 3)
    face = smooth(0.5, 1.9, border + (wear - 0.5) * 0.7)
    height = face * 1.5 + (wear - 0.5) * 0.5
    burn = blocks.choose(rng.rand(blocks.count))
    tone = 0.34 + burn * 0.3 + (wear - 0.5) * 0.2
    lit = light(height, 0.8)
    brick = paint(tone * lit + (lit - 1) * 0.15, BRICK)
    mortar = paint(0.45 + (wear - 0.5) * 0.5 - hollows(height) * 0.25, MORTAR)
    return finish(over(mortar, brick, face))


def stone(rng):
    height, tone = ashlar(rng, Blocks(ASHLAR))
    lit = light(height, 0.75)
    return finish(paint(tone * lit + (lit - 1) * 0.1 - hollows(height) * 0.22, STONE))


def mossy_stone(rng):
    blocks = Blocks(ASHLAR)
    height, tone = ashlar(rng, blocks)
    damp = clouds(rng, 4, 3, 4)
    ledge = smooth(7.0, 0.0, blocks.y) * 0.32 + smooth(2.0, 0.2, blocks.border()) * 0.18
    cover = damp + ledge
    moss = smooth(0.66, 0.8, cover)
    tufts = clouds(rng, 26, 26, 2)
    thick = height + moss * (0.5 + tufts * 1.6)
    lit = light(thick, 0.7)
    shade = hollows(thick) * 0.22
    rock = paint(tone * lit * (1 - 0.25 * smooth(0.5, 0.7, cover)) + (lit - 1) * 0.1 - shade, STONE)
    green = paint(0.22 + tufts * 0.5 * lit + (lit - 1) * 0.2 - shade * 0.5, MOSS)
    return finish(over(rock, green, moss))


def planks(rng):
    blocks = Blocks([(64, [0, 13, 27, 38, 52])])
    colors = boards(rng, blocks, WOOD)
    middles = (6.5, 20, 32.5, 45, 58)
    nails = [(x + side, y) for x in middles for y in (5, 59) for side in (-3, 3)]
    x, y = positions()
    for edge in (5, 59):
        colors = colors * (1 - 0.12 * smooth(4.4, 3.6, np.abs(y - edge)))[..., None]
    return finish(studs(colors, nails, 0.9, IRON))


def timber_frame(rng):
    x, y = positions()
    wear = clouds(rng, 6, 6, 4)
    plaster_height = (wear - 0.5) * 1.2
    upright = 5.5 - np.abs(wrapped(x))
    sill = 4.5 - np.abs(wrapped(y))
    along = (x - y) * np.sqrt(0.5)
    brace = 3.6 - np.abs(along)
    brace = np.where((np.abs(wrapped(x)) < 5.5) | (np.abs(wrapped(y)) < 4.5), -1.0, brace)
    inside = np.maximum(np.maximum(upright, sill), brace)
    beam = smooth(-0.1, 0.5, inside)
    height = np.where(beam > 0.5, smooth(0.0, 1.6, inside) * 1.6 + 0.8, plaster_height * 0.4)
    lit = light(height, 0.6)
    near = smooth(5.0, 0.0, -inside)
    plaster = paint(0.68 + (wear - 0.5) * 0.35 - near * 0.22 + (lit - 1) * 0.4, PLASTER)
    direction = np.where(upright >= np.maximum(sill, brace), x, np.where(sill >= brace, y, along))
    fibre = clouds(rng, 14, 14, 2)
    grain = np.sin(direction * 2.6 + fibre * 3.5) * 0.5 + 0.5
    wood = paint((0.36 + fibre * 0.15 - grain * 0.14) * lit + (lit - 1) * 0.12, OLD_WOOD)
    colors = over(plaster, wood, beam)
    return finish(studs(colors, [(0, -0.2), (0, 32)], 1.3, OLD_WOOD))


def panelling(rng):
    """Plaster above, wooden panels and a rail below."""
    x, y = positions()
    wear = clouds(rng, 5, 5, 4)
    damask_x, damask_y = wrapped(x * 4) / 4, (y % 12) - 6
    ornament = smooth(0.9, 0.2, np.abs(np.abs(damask_x) * 0.9 + np.abs(damask_y) * 0.8 - 3.6))
    ornament += smooth(1.7, 1.1, np.abs(damask_x) + np.abs(damask_y))
    upper = paint(0.5 + (wear - 0.5) * 0.18 + np.clip(ornament, 0, 1) * 0.16, ["3b1d28", "5d2b37", "7d3f48", "a0605c"])
    rail_distance = np.abs(y - 31)
    rail = smooth(3.2, 2.6, rail_distance)
    foot = smooth(57.5, 58.2, y)
    panel_x, panel_y = np.abs((x % 32) - 16), np.abs(y - 46)
    frame = np.maximum(panel_x - 11.5, panel_y - 8)
    height = smooth(0.0, 1.2, frame) * 1.4 + smooth(-1.5, -4.5, frame) * 1.3
    height = height + rail * (1.2 + np.sqrt(np.maximum(0, 9 - rail_distance ** 2)) * 0.6) + foot * 1.4
    fibre, fine = clouds(rng, 20, 3, 3), clouds(rng, 3, 20, 3)
    grain = np.where((rail > 0.5) | (foot > 0.5), fine, fibre)
    lit = light(height, 0.6)
    wood = paint((0.45 - (grain - 0.5) * 0.3) * lit + (lit - 1) * 0.15 - hollows(height) * 0.15, WOOD)
    colors = over(upper, wood, smooth(27.6, 28.2, y))
    cornice = smooth(5.2, 4.6, y)
    cornice_lit = light(np.sin(np.clip(y, 0, 5) / 5 * np.pi) * 1.6, 0.8)
    colors = over(colors, paint(0.45 * cornice_lit + (cornice_lit - 1) * 0.1, WOOD), cornice)
    shadow = smooth(9.0, 5.0, y) * (1 - cornice) * 0.35 + smooth(37.0, 34.0, y) * smooth(34.0, 34.4, y) * 0.3
    return finish(colors * (1 - shadow)[..., None])


def metal(rng):
    blocks = Blocks([(32, [0, 32]), (32, [16, 48])])
    border = blocks.border(1.0)
    brushed = clouds(rng, 2, 48, 2)
    stain = clouds(rng, 7, 2, 4)
    face = smooth(0.1, 0.9, border)
    height = face * 1.2 + smooth(0.8, 2.0, border) * 0.5
    lit = light(height, 0.9)
    sheen = 0.1 * np.cos(blocks.y / 32 * np.pi)
    tone = 0.46 + (brushed - 0.5) * 0.1 + sheen + blocks.choose([0.0, 0.06, 0.05, -0.03])
    colors = paint((tone * lit + (lit - 1) * 0.15) * (0.3 + 0.7 * face), IRON)
    drip = smooth(0.55, 0.85, stain + smooth(18.0, 0.0, blocks.y) * 0.25) * 0.55
    colors = over(colors, paint(0.45 * lit + (brushed - 0.5) * 0.3, RUST), drip * face)
    rivets = [(left + dx, top + dy) for left, top in ((0, 0), (32, 0), (16, 32), (48, 32))
              for dx in (4, 16, 28) for dy in (4, 28)]
    rivets += [(left + dx, top + 16) for left, top in ((0, 0), (32, 0), (16, 32), (48, 32)) for dx in (4, 28)]
    return finish(studs(colors, rivets, 1.7, IRON))


def bookshelf(rng):
    x, y = positions()
    shelf_top = np.floor(y / 21.34) * 21.34
    inside_y = y - shelf_top
    spines = [["3a0f12", "7c2226", "b5483c"], ["10233a", "24507c", "4d86b0"], ["12301c", "2c6238", "5e9a58"],
              ["2e1c0e", "6a4522", "a67a42"], ["2b1433", "5c316a", "8f5f9a"], ["3b3424", "80744e", "bfb287"]]
    colors = paint(0.12 + x * 0, OLD_WOOD)
    for shelf in range(3):
        left = 3.0
        while left < 60.0:
            width = min(3.0 + rng.rand() * 3.2, 61.0 - left)
            tall = 12.5 + rng.rand() * 4.5
            ramp = spines[rng.randint(len(spines))]
            gold = rng.rand()
            if width > 2.0 and rng.rand() > 0.06:
                across = (x - left) / width
                base = 18.9
                book = ((across >= 0) & (across < 1) & (inside_y < base) & (inside_y > base - tall)
                        & (np.abs(y - shelf * 21.34 - 10.7) < 10.7))
                tone = 0.95 - np.abs(across - 0.35) * 1.3 - smooth(8.0, 2.0, inside_y) * 0.25
                bands = sum(smooth(0.7, 0.3, np.abs(inside_y - base + up)) for up in (3, tall - 3))
                spine = over(paint(tone, ramp), paint(tone * 0.9, BRASS), np.clip(bands, 0, 1) * (gold > 0.45))
                colors = np.where(book[..., None], spine, colors)
            left += width
    board = smooth(18.7, 19.0, inside_y)
    side = smooth(3.2, 2.8, np.minimum(x, SIZE - x))
    height = np.maximum(board * smooth(0.0, 0.8, np.minimum(inside_y - 18.8, 21.4 - inside_y)), side) * 1.2
    fibre = np.where(side > 0.5, clouds(rng, 30, 3, 2), clouds(rng, 3, 30, 2))
    lit = light(height, 0.8)
    wood = paint((0.42 - (fibre - 0.5) * 0.3) * lit + (lit - 1) * 0.1, WOOD)
    return finish(over(colors, wood, np.maximum(board, side)))


def stained_glass(rng):
    """A lancet window of colored glass in a dressed wall."""
    wall_height, wall_tone = ashlar(rng, Blocks(ASHLAR))
    x, y = positions()
    dx, arch = np.abs(x - 32), 26.0
    side = np.sqrt((dx + 14) ** 2 + np.minimum(y - arch, 0) ** 2) - 28
    opening = np.where(y < arch, side, dx - 14)
    opening = np.maximum(opening, y - 58)
    frame = smooth(4.6, 4.2, opening)
    height = np.where(opening < 4.4, np.sin(np.clip(opening / 4.4, 0, 1) * np.pi) * 2.2, wall_height)
    lit = light(height, 0.6)
    colors = paint(np.where(frame > 0.5, 0.62, wall_tone) * lit + (lit - 1) * 0.1, STONE)
    rose = np.sqrt((x - 32) ** 2 + (y - 23) ** 2)
    angle = np.arctan2(y - 23.0, x - 32.0)
    petal = np.floor((angle / np.pi + 1) * 4)
    lattice = np.floor((x - 32 + y) / 7) + np.floor((x - 32 - y) / 7) * 3
    palette = np.array([[232, 92, 58], [246, 190, 70], [66, 132, 206], [92, 178, 120], [168, 92, 190], [112, 190, 222]])
    pick = np.where(rose < 3, 1, np.where(rose < 9, petal % 2 * 2, (lattice % 4 + 2))).astype(int) % len(palette)
    glow = 1.08 - (np.abs(y - 30) / 60) + (clouds(rng, 12, 12, 2) - 0.5) * 0.25
    glass = palette[pick] * glow[..., None]
    lead_lattice = np.minimum(np.abs(((x - 32 + y) / 7) % 1 - 0.5), np.abs(((x - 32 - y) / 7) % 1 - 0.5))
    spokes = smooth(0.93, 0.97, np.abs(np.cos(angle * 4))) * (rose > 3)
    lead = np.where(rose < 9, spokes, smooth(0.42, 0.46, lead_lattice))
    rings = smooth(1.0, 0.5, np.abs(rose - 9.3)) + smooth(0.8, 0.4, np.abs(rose - 3.2))
    mullion = smooth(1.2, 0.8, np.abs(y - 44)) + smooth(1.0, 0.6, dx) * (rose > 9)
    glass = over(glass, np.full_like(glass, 24.0), np.clip(np.maximum(lead, rings + mullion), 0, 1))
    reveal = smooth(0.2, -2.5, opening)
    glass = glass * (0.55 + 0.45 * reveal)[..., None]
    return finish(over(colors, glass, smooth(0.3, -0.3, opening)))


def door(rng):
    """An oak door with iron bands in a stone frame."""
    wall_height, wall_tone = ashlar(rng, Blocks([(16, [0, 10, 54]), (16, [0, 8, 56])] * 2))
    x, y = positions()
    dx = np.abs(x - 32)
    opening = np.maximum(dx - 22, 7 - y)
    lit = light(wall_height, 0.6)
    colors = paint(wall_tone * 1.1 * lit - smooth(3.0, 0.0, opening) * 0.12, STONE)
    leaf = boards(rng, Blocks([(64, [10, 21, 32, 43, 54])]), OLD_WOOD)
    shade = 1 - smooth(5.0, 0.0, -opening) * 0.5
    colors = over(colors, leaf * shade[..., None], smooth(0.2, -0.2, opening))
    for middle in (19.0, 47.0):
        band = smooth(2.6, 2.2, np.abs(y - middle)) * smooth(21.4, 21.0, dx)
        band_lit = light(smooth(2.7, 1.6, np.abs(y - middle)) * 1.2, 0.9)
        colors = colors * (1 - 0.35 * smooth(4.0, 2.4, np.abs(y - middle - 1)) * smooth(22.0, 21.0, dx))[..., None]
        colors = over(colors, paint(0.42 * band_lit + (band_lit - 1) * 0.2, IRON), band)
        colors = studs(colors, [(px, middle) for px in (14, 23, 32, 41, 50)], 1.1, IRON)
    ring = np.abs(np.sqrt((x - 46) ** 2 + (y - 36) ** 2) - 3.2)
    colors = over(colors, paint(0.7 - (x - 46 + y - 36) * 0.06, BRASS), smooth(1.1, 0.7, ring))
    return finish(studs(colors, [(46, 32.6)], 1.5, BRASS))


def furnace(rng):
    """A brick arch with coals behind a grate."""
    wall_height, wall_tone = ashlar(rng, Blocks(ASHLAR))
    x, y = positions()
    lit = light(wall_height, 0.7)
    colors = paint(wall_tone * 0.7 * lit, STONE)
    dx, spring = np.abs(x - 32), 30.0
    radius = np.where(y < spring, np.sqrt(dx ** 2 + (y - spring) ** 2), dx)
    around = np.where(y < spring, np.arctan2(dx, spring - y) * 20, 31.4 + y - spring)
    voussoir = np.abs(((around + 2.6) % 5.2) - 2.6)
    arch = smooth(15.6, 16.0, radius) * smooth(24.4, 24.0, radius)
    brick_height = np.minimum(voussoir, np.minimum(radius - 16, 24 - radius))
    brick_lit = light(smooth(0.2, 1.2, brick_height) * 1.5, 0.7)
    soot = smooth(26.0, 14.0, radius) * 0.2
    face = paint((0.5 + 0.15 * np.sin(np.floor((around + 2.6) / 5.2) * 2.3)) * brick_lit - soot, BRICK)
    colors = over(colors, over(paint(0.3 + x * 0, MORTAR), face, smooth(0.1, 0.7, brick_height)), arch)
    heat = smooth(14.0, 60.0, y) * 0.8 + (clouds(rng, 8, 8, 3) - 0.5) * 0.5 + smooth(16.0, 4.0, dx) * 0.2
    fire = paint(heat, ["180404", "5a0c04", "b83208", "f08a1c", "ffd862", "fff6c0"])
    inside = smooth(16.2, 15.8, radius) * smooth(59.2, 58.8, y)
    colors = over(colors, fire, inside)
    bars = smooth(1.3, 0.9, np.abs((dx + 2.6) % 5.2 - 2.6)) * smooth(30.0, 30.4, y)
    bars = np.maximum(bars, smooth(1.5, 1.1, np.abs(y - 30)))
    sill = smooth(58.8, 59.2, y) * smooth(24.2, 23.8, dx)
    bar_lit = light(np.maximum(bars * inside, sill) * 1.2, 0.8)
    return finish(over(colors, paint(0.3 * bar_lit, IRON), np.maximum(bars * inside, sill)))


def hedge(rng):
    """Clipped box: thousands of small leaves, the upper ones in the light."""
    colors = paint(0.1 + clouds(rng, 6, 6, 2) * 0.1, MOSS)
    bulge = clouds(rng, 3, 3, 2)
    for layer in range(5):
        for _ in range(150):
            px, py = rng.rand(2) * SIZE
            turn, length, wide = rng.rand() * np.pi, 2.0 + rng.rand() * 1.2, 1.0 + rng.rand() * 0.5
            near, dx, dy = neighbourhood(px, py, 4)
            along = (dx * np.cos(turn) + dy * np.sin(turn)) / length
            side = (dy * np.cos(turn) - dx * np.sin(turn)) / wide
            leaf = along ** 2 + side ** 2 < 1 - 0.4 * along
            tone = 0.12 + layer * 0.13 + bulge[near] * 0.2 - (dy + dx * 0.5) * 0.07
            tone = tone - smooth(0.25, 0.0, np.abs(side)) * 0.1
            colors[near] = np.where(leaf[..., None], paint(tone, MOSS), colors[near])
    return finish(colors, 0.2)
