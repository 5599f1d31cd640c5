#!/usr/bin/env python3
"""Makes everything that the demo game shows and plays: textures, sprites, sky, sounds, widgets and the level.

All of it is computed here and written to examples/assets/ (or the folder given as argument), the same each time.
Needs numpy, and nothing else that Python does not bring along.
"""

import functools
import os
import sys
import zlib

import numpy as np

from workshop import flats, hud, place, png, sky, sounds, sprites, tileset, walls


def seed(name):
    """Random numbers of its own for each asset, so that changing one leaves the others as they are."""
    return np.random.RandomState(zlib.crc32(name.encode()))


def texture_path(name):
    return "textures/%s.png" % name


def sprite_path(name):
    return "sprites/%s.png" % name


def draw_texture(name):
    draw = getattr(walls, name, None) or getattr(flats, name)
    return draw(seed(name))


def draw_sprite(name):
    draw = getattr(sprites, name)
    return draw(seed(name)) if name in ("tree", "shrub") else draw()


def pictures():
    """Path of each picture, and the function that draws it."""
    for name in place.TEXTURES:
        yield texture_path(name), functools.partial(draw_texture, name)
    for name in place.SPRITES:
        yield sprite_path(name), functools.partial(draw_sprite, name)
    yield "sky.png", lambda: sky.dusk(seed("sky"))
    yield "flashlight.png", sky.flashlight
    yield "widgets/tileset.png", tileset.tileset
    for draw in (hud.health, hud.health_frame, hud.counter_frame, hud.compass, hud.crosshair):
        yield "widgets/%s.png" % draw.__name__, draw


def recordings():
    """Path and samples of each sound."""
    yield "sounds/step1.wav", sounds.footstep(seed("step1"), 92.0)
    yield "sounds/step2.wav", sounds.footstep(seed("step2"), 78.0)
    yield "sounds/chime.wav", sounds.chime()
    yield "sounds/tune.wav", sounds.tune()


def data_files():
    """Path and bytes of the two files of the level, and of the widgets' theme."""
    yield "walk.lvl", place.cells()
    yield "walk.lvl.json", place.description(texture_path, sprite_path).encode("ascii")
    yield "widgets/theme.json", tileset.theme("tileset.png").encode("ascii")


def write_all(folder):
    for part in ("textures", "sprites", "sounds", "widgets"):
        os.makedirs(os.path.join(folder, part), exist_ok=True)
    for path, draw in pictures():
        png.save(os.path.join(folder, path), draw())
    for path, samples in recordings():
        sounds.save(os.path.join(folder, path), samples)
    for path, data in data_files():
        with open(os.path.join(folder, path), "wb") as file:
            file.write(data)


if __name__ == "__main__":
    root = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
    write_all(sys.argv[1] if len(sys.argv) > 1 else os.path.join(root, "examples", "assets"))
