"""Scenes as plain data: seeded random ones for exact comparison, and a designed one to look at."""

import math
import random

from reference import CEILING, EAST, FLOOR, NORTH, NO_TEXTURE, SOUTH, WEST
from reference import Camera, Image, Level, Sprite, normalized, render

FACES = (NORTH, EAST, SOUTH, WEST)


class Scene:
    """Everything one frame depends on. `draw` plays a frame of it with the reference model."""

    def __init__(self, level, camera, size=(64, 40), sprites=(), flashlight=None, time_step=0.05):
        self.level, self.camera, self.size = level, camera, size
        self.sprites, self.flashlight, self.time_step = list(sprites), flashlight, time_step

    def draw(self):
        frame, columns = render(self.level, self.camera, self.size[0], self.size[1], self.sprites,
                                self.time_step, self.flashlight)
        self.camera = self.camera._replace(dir=normalized(self.camera.dir))
        return frame, columns


# ---- building blocks

def image(w, h, word):
    """An image from a word, or from a function of x and y."""
    at = word if callable(word) else lambda x, y: word
    return Image(w, h, [at(x, y) & 0xFFFFFFFF for y in range(h) for x in range(w)])


def room(width, height, textures=(), block=1, index=0, **changes):
    """A ring of walls around empty cells, without fog; every texture index the same."""
    cells = bytearray([0] + [index] * 6) * (width * height)
    for y in range(height):
        for x in range(width):
            if x in (0, width - 1) or y in (0, height - 1):
                cells[(y * width + x) * 7] = block
    return Level(width, height, cells, list(textures), None, 0, 0xFF000000, 0,
                 0xFFFFFFFF)._replace(**changes)


def put(level, x, y, byte, value):
    """Set one byte of a cell; byte 0 is the block."""
    level.cells[(y * level.width + x) * 7 + byte] = value


def camera(pos=(2.5, 2.5), dir=(1, 0), fov=60, pitch=0, ratio=1.6):
    return Camera(pos, dir, fov, pitch, ratio)


def sprite(pos, sheet, **changes):
    values = dict(facing=(1.0, 0.0), x_frames=1, y_frames=1, frame_count=1, directions=1,
                  oscillate=False, speed=0.0, start_frame=0, shadeless=False, additive=False,
                  z_offset=0.0, scale=1.0, percentage=0.0)
    values.update(changes)
    return Sprite(pos, sheet=sheet, **values)


# ---- random scenes

def noise(rng, w, h):
    return image(w, h, lambda x, y: rng.getrandbits(32))


def random_level(rng):
    width, height = rng.randint(6, 16), rng.randint(6, 16)
    textures = [noise(rng, rng.randint(1, 20), rng.randint(1, 20)) for _ in range(5)]
    flats = [0, 1, 2, 3, 4, 4, 5, NO_TEXTURE]       # 5 is beyond the table
    density = rng.choice([0.05, 0.15, 0.4])
    ring = rng.random() < 0.6
    cells = bytearray()
    for y in range(height):
        for x in range(width):
            solid = rng.random() < density
            if ring and (x in (0, width - 1) or y in (0, height - 1)):
                solid = rng.random() < 0.9
            cells.append(rng.choice([1, 1, 2, 3, 4, 5, 2, 3, 4, 5, 6, 200]) if solid else 0)
            cells += bytes([rng.choice(flats), rng.choice(flats)])
            cells += bytes(rng.choice([0, 1, 2, 3, 4, 4, 4, 5]) for _ in FACES)
    sky = noise(rng, rng.choice([1, 7, 90, 360]), rng.randint(1, 60))
    return Level(width, height, cells, textures, rng.choice([None, sky, sky]),
                 rng.choice([0, 3, 12, 51, 400]), 0xFF000000 | rng.getrandbits(24),
                 rng.choice([0, 0, -3, 9, 80]), 0xFF000000 | rng.getrandbits(24))


def random_camera(rng, level, height):
    pos = rng.uniform(0, level.width), rng.uniform(0, level.height)
    direction = rng.gauss(0, 2), rng.gauss(0, 2)
    kind = rng.random()
    if kind < 0.15:      # exactly on grid lines and along axes and diagonals
        pos = rng.randint(1, level.width - 1), rng.randrange(2, 2 * level.height) / 2
        direction = rng.choice([(1, 0), (0, -2), (-1, 0), (0, 1), (1, 1), (-3, 3), (0, 0)])
    elif kind < 0.22:    # outside the grid
        pos = rng.choice([(-0.5, 3.0), (level.width + 2.5, 1.5), (2.5, level.height), (3.0, -9.0)])
    return Camera((float(pos[0]), float(pos[1])), (float(direction[0]), float(direction[1])),
                  rng.choice([60, 61, 90, 1, 0, 120, 359, 500, -75]),
                  rng.choice([0, 0, 20, -7, rng.randint(-height, height)]),
                  rng.choice([1.6, 1.6, 1.0, 0.37, 4.21]))


def random_sprite(rng, level, additive):
    x_frames, y_frames = rng.randint(1, 4), rng.randint(1, 3)
    sheet = noise(rng, x_frames * rng.randint(1, 9), y_frames * rng.randint(1, 9) + 1)
    frames = x_frames * y_frames
    directions = rng.randint(1, frames)
    oscillate = rng.random() < 0.5      # only these turn round when they get below 0
    return Sprite((rng.uniform(0, level.width), rng.uniform(0, level.height)),
                  rng.choice([(1.0, 0.0), (rng.gauss(0, 1), rng.gauss(0, 1))]), sheet,
                  x_frames, y_frames, rng.randint(1, frames // directions), directions,
                  oscillate, rng.uniform(-3 if oscillate else 0, 9), 0,
                  rng.random() < 0.25, additive, rng.choice([0.0, 0.4, -1.3]),
                  rng.choice([1.0, 0.5, 2.7]), rng.choice([0.0, 0.3, 0.99]))


def random_scene(seed):
    rng = random.Random(seed)
    size = rng.choice([(64, 40), (97, 61), (33, 50), (80, 27), (1, 1), (2, 3)])
    level = random_level(rng)
    sprites = [random_sprite(rng, level, rng.random() < 0.5) for _ in range(rng.choice([0, 3, 9]))]
    if sprites:
        sprites += [sprite(sprites[0].pos, sprites[-1].sheet)]     # two at one distance
    light = noise(rng, rng.randint(1, 40), rng.randint(1, 40)) if rng.random() < 0.4 else None
    return Scene(level, random_camera(rng, level, size[1]), size, sprites, light)


# ---- a scene that looks like one

def shade(word, factor):
    parts = [min(int((word >> shift & 255) * factor), 255) << shift for shift in (0, 8, 16)]
    return 0xFF000000 | sum(parts)


def grain(x, y, strength):
    return 1 + strength * (((x * 73 + y * 151 + x * y * 7) % 17) / 8 - 1)


def bricks(x, y):
    row = y // 16
    mortar = y % 16 == 0 or (x + 16 * (row % 2)) % 32 == 0
    return shade(0xB0A898 if mortar else 0xA04830 + 0x0A0404 * (row % 3), grain(x, y, 0.12))


def planks(x, y):
    return shade(0x8A6034, (0.5 if x % 16 == 0 else 1) * (1 + 0.15 * math.sin(y / 5 + x // 16)))


def tiles(x, y):
    light = (x // 32 + y // 32) % 2
    return shade(0x909890 if light else 0x586058, 0.7 if 0 in (x % 32, y % 32) else grain(x, y, .06))


def clouds(x, y):
    cloud = math.sin(x / 23 + math.sin(y / 9)) + math.sin(x * math.pi / 90 + y / 13)
    return shade(0x6090E0, 0.6 + y / 250) if cloud < 0.6 else shade(0xD8E0F0, 0.7 + y / 400)


def ghost(view_colours):
    """A sheet of 32 by 32 frames: a round body, its eyes where the view looks."""
    def at(x, y):
        view, fx, fy = x // 32, x % 32 - 15.5, y % 32 - 15.5
        inside = 1 - (fx * fx + fy * fy) / 230
        eye = view == 0 and abs(abs(fx) - 5) < 2 and abs(fy + 4) < 3
        colour = 0xFFFFFF if eye else shade(view_colours[view], 0.4 + 0.6 * max(inside, 0))
        return (colour & 0xFFFFFF) | (0xFF000000 if inside > 0 else 0)
    return image(32 * len(view_colours), 32, at)


def glow(x, y):
    strength = max(0, 255 - int(((x - 15.5) ** 2 + (y - 15.5) ** 2)))
    return strength << 24 | 0xFFB040


# Digits are block values; the triangles 2 to 5 are solid in the north-west, north-east, south-west
# and south-east. A comma is a cell without ceiling.
HALL = """
################
#..........3...#
#..5114....1...#
#..1111..5.....#
#..3112..1..1..#
#........1.....#
#.1......2...###
#............1,,
#...54...1...1,,
#...32.......,,,
################
"""


def hall():
    """A hall with pillars and chamfered blocks, and in its corner a court under the open sky."""
    rows = HALL.split()
    textures = [image(64, 64, bricks), image(64, 64, planks), image(64, 64, tiles)]
    level = room(16, len(rows), textures, sky=image(360, 160, clouds))
    for y, row in enumerate(rows):
        for x, sign in enumerate(row):
            block = 1 if sign == "#" else int(sign) if sign.isdigit() else 0
            wall = 1 if sign in "2345" else 0
            ceiling = NO_TEXTURE if sign == "," else 1
            for byte, value in enumerate([block, 2, ceiling] + [wall] * 4):
                put(level, x, y, byte, value)
    return level


def golden_scenes():
    """Name to scene, 320 by 200, for the stored hashes."""
    views = ghost([0xE05050, 0x50C050, 0x5070E0, 0xE0C040])
    light = image(64, 64, lambda x, y: 0x010101 * max(0, 180 - ((x - 32) ** 2 + (y - 20) ** 2) // 4))
    crowd = [sprite((4.6, 6.6), views, x_frames=4, directions=4, facing=(-1.0, 0.3)),
             sprite((3.6, 5.9), views, x_frames=4, directions=4, facing=(0.0, 1.0), scale=0.6,
                    z_offset=0.4),
             sprite((7.5, 5.3), views, x_frames=4, directions=4, facing=(0.5, -1.0)),
             sprite((4.3, 7.2), image(32, 32, glow), additive=True, shadeless=True, z_offset=-0.3)]
    looking = dict(size=(320, 200))
    west, east = camera((1.3, 5.4), (1, 0.35), 80, 5), camera((12.6, 7.6), (-1, -0.12), 75, -12)
    mist = dict(fog_density=14, fog_color=0xFF8090A0, ground_density=25, ground_color=0xFFD0E0D8)
    return {
        "hall": Scene(hall(), west, **looking),
        "open corner": Scene(hall(), camera((10.6, 9.3), (1, -0.2), 80, 18), **looking),
        "mist": Scene(hall()._replace(**mist), east, sprites=crowd, **looking),
        "flashlight": Scene(hall()._replace(fog_density=30), west, flashlight=light, **looking),
        "crowd": Scene(hall(), west._replace(pitch=-20), sprites=crowd, **looking),
    }
