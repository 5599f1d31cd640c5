"""Whole frames of the raycaster: word for word against the reference model, and worked examples."""

import hashlib
import random

import numpy
import pytest
import zelvarine

from reference import NO_TEXTURE, Camera, Scene, Sprite
from scenes import image, put, random_camera, random_scene, room, with_fog
from world import World

pytestmark = pytest.mark.filterwarnings("ignore::pytest.PytestUnraisableExceptionWarning")


# Digests of the first frames of some seeds. Should the rules change, the failing test tells the new ones.
GOLDEN = {1: "d4740b8234aee100ccffb16b17f0f112d89ae8ffa11142a6e2f3439f4ea8ae98",
          6: "f8856f106140a43303e17560eaddf4b86c824ccbe3aef62338bad6a817fdfb56",
          22: "2b448614a58b263cddee300f3affdf3308380ca4e252f7cdcb726bf81ad233ce"}


@pytest.mark.parametrize("seed", range(80))
def test_random_scene_over_several_frames(seed, tmp_path):
    rng = random.Random(seed)
    world = World(random_scene(rng), tmp_path)
    scene = world.scene
    world.play()
    if seed in GOLDEN:
        assert hashlib.sha256(numpy.asarray(world.target).astype("<u4").tobytes()).hexdigest() == GOLDEN[seed]
    for flashlight in (image(1, 1, 0xFF808080), None):
        x, y, block = rng.randrange(scene.level.width), rng.randrange(scene.level.height), rng.randrange(6)
        world.level.setBlock(block, x, y)
        put(scene.level, x, y, 0, block)
        scene.level, scene.flashlight = with_fog(rng, scene.level), flashlight
        scene.camera = random_camera(rng, scene.level, scene.height)
        world.adopt()
        world.play()


# ---- worked examples, for what model and module might both get wrong

WHITE, BLACK = image(1, 1, 0xFFFFFFFF), 0xFF000000


def fog_example(x):
    level = room(6, 5, [image(1, 1, 0xFF101010)], fog_density=102, fog_color=0xFF102030)
    return Scene(level, Camera((x, 2.5), fov=0))


def ground_fog_example(distance, density):
    """84 rows of wall in a picture of 100."""
    level = room(9, 5, [WHITE], ground_density=density, ground_color=BLACK)
    return Scene(level, Camera((8 - distance, 2.5), fov=0, ratio=100 / 42 / distance), (1, 100))


def sky_example(fov):
    sky = image(360, 8, lambda x, y: 0xFF000000 | y << 16 | x)
    return Scene(room(6, 6, block=0, index=NO_TEXTURE, sky=sky), Camera(fov=fov), (60, 40))


def sprites_example(*words, **changes):
    """Sprites at the same place, in the open and in solid fog, with a word for the first of their four frames."""
    level = room(9, 9, block=0, index=NO_TEXTURE, fog_density=200, ground_density=200, ground_color=BLACK)
    sheets = [image(4, 1, lambda x, y: word + 16 * x) for word in words]
    return Scene(level, sprites=[Sprite((5, 2.5), sheet, x_frames=4, **changes) for sheet in sheets])


@pytest.mark.parametrize("scene, pixels", [
    (Scene(room(6, 6, [WHITE]), Camera((3, 3))), {(32, 20): 0xFFFEFEFE, (32, 39): 0xFFFDFDFD, (32, 0): 0xFFFEFEFE}),
    (fog_example(2.5), {(0, 20): 0xFF102030}), (fog_example(2.6), {(0, 20): 0xFF0F1F2E}),
    (ground_fog_example(2.0, 18), {(0, 78): 0xFFE4E4E4}), (ground_fog_example(3.5, 14), {(0, 20): 0xFFFCFCFC}),
    (sky_example(61), {(0, 20): 0xFF04014A, (30, 20): 0xFF040000}), (sky_example(1500), {(0, 20): 0xFF04014A}),
    (sprites_example(0xFFFF0000, shadeless=True), {(20, 20): 0xFF00B464, (21, 20): 0xFFFE0000}),
    (sprites_example(0x00FFFF00), {(32, 20): 0xFF00B363}),
    (sprites_example(0x00FFFF00, additive=True), {(32, 20): 0xFF00B464}),
    (sprites_example(0xFFFF0000, 0xFF000080, shadeless=True), {(32, 20): 0xFF00007F}),
    (sprites_example(0xFF000010, directions=4, shadeless=True, facing=(-1, 0.1)), {(32, 20): 0xFF00000F}),
    (sprites_example(0xFF000010, directions=4, shadeless=True, facing=(-0.1, 1)), {(32, 20): 0xFF00003F}),
    (sprites_example(0xFF000010, directions=4, shadeless=True, facing=(0.1, -1)), {(32, 20): 0xFF00001F}),
], ids="mix solid-fog below-solid ground-fog single-precision sky sky-all-round shadeless clear clear-light "
       "same-distance front left right".split())
def test_worked_examples(scene, pixels, tmp_path):
    World(scene, tmp_path).play()
    assert {(x, y): scene.frame[y][x] for x, y in pixels} == pixels


@pytest.mark.parametrize("oscillate, positions", [
    (True, [0.5, 0.75, 0.75, 0.5, 0.25, 0.0, 0.0, 0.25]), (False, [0.5, 0.75, 0.0, 0.25, 0.5, 0.75])])
def test_animations_advance_even_behind_the_camera(oscillate, positions, tmp_path):
    one = Sprite((1.0, 2.5), WHITE, frame_count=4, oscillate=oscillate, speed=5.0, percentage=0.25)
    world = World(Scene(room(9, 9), sprites=[one]), tmp_path)
    for expected in positions:
        world.play()
        assert world.entities[one].getComponent(zelvarine.SpriteComponent).animationPercentage == expected
