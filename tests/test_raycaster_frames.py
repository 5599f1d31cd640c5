"""Whole frames of the raycaster, word for word against the reference model."""

import random

import pytest

from reference import Camera, Scene
from scenes import image, put, random_camera, random_scene, room, with_fog
from world import World

pytestmark = pytest.mark.filterwarnings("ignore::pytest.PytestUnraisableExceptionWarning")


@pytest.mark.parametrize("seed", range(90))
def test_random_scene_over_several_frames(seed, tmp_path):
    rng = random.Random(seed)
    world = World(random_scene(rng), tmp_path)
    scene = world.scene
    world.play()
    for flashlight in (image(1, 1, 0xFF808080), None):
        x, y, block = rng.randrange(scene.level.width), rng.randrange(scene.level.height), rng.randrange(6)
        world.level.setBlock(block, x, y)
        put(scene.level, x, y, 0, block)
        scene.level, scene.flashlight = with_fog(rng, scene.level), flashlight
        scene.camera = random_camera(rng, scene.level, scene.height)
        world.adopt()
        world.play()


def test_a_view_without_a_direction_meets_a_wall_beyond_the_edge(tmp_path):
    level = room(6, 6, [image(8, 1, lambda x, y: 0xFF000000 + 30 * x)])
    for x, block in ((2, 4), (3, 0)):
        put(level, x, 0, 0, block)
    scene = Scene(level, Camera((4.0, 1.5), (0, 0)))
    World(scene, tmp_path).play()
    assert scene.columns[0][0].pos == (2, -0.5)
