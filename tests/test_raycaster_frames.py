"""Whole frames of the raycaster, word for word against the reference model."""

import random

import numpy
import pytest
import zelvarine
from zelvarine import RaycastingRenderer, Texture

from reference import BACKGROUND, Camera, Scene, Sprite
from scenes import World, image, put, random_camera, random_scene, room, with_fog

pytestmark = pytest.mark.filterwarnings("ignore::pytest.PytestUnraisableExceptionWarning")


@pytest.mark.parametrize("seed", range(90))
def test_random_scene_over_several_frames(seed, tmp_path):
    rng = random.Random(seed)
    world = World(random_scene(rng), tmp_path)
    scene, kernels = world.scene, world.renderer._getKernels()
    world.renderer._setKernels(kernels[seed % len(kernels)])
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


@pytest.fixture
def world(tmp_path):
    white = image(2, 2, 0xFFFFFFFF)
    return World(Scene(room(8, 8, [white]), sprites=[Sprite((5, 2.5), white)]), tmp_path)


class Target(Texture):
    """64 by 40 pixels, whatever it answers."""
    getSize = lambda self: self.answer


@pytest.mark.parametrize("first, then, columns", [
    ((64, 40), (640, 400), 64), ((640, 400), (640, 400), 64), ((1, 1), (64, 40), 1), ((-5, -5), (64, 40), 0)])
def test_a_target_that_lies_about_its_size(first, then, columns, world):
    target = Target(64, 40)
    target.answer = first
    renderer = RaycastingRenderer(target, world.level)
    target.answer = then
    renderer.render()
    drawn = (numpy.asarray(target) != BACKGROUND).any(axis=0)
    assert drawn[:columns].all() and not drawn[columns:].any()


@pytest.mark.parametrize("size", [(63, 40), (64, 39)])
def test_a_constructor_in_the_middle_of_a_frame(size, world):
    target, restart = Texture(*size), lambda self: world.renderer.__init__(target, world.level) or 0.1
    world.renderer._engine = type("Engine", (zelvarine.Engine,), {"getTimeStep": restart})()
    world.renderer.render()
    assert not numpy.asarray(target).any()     # the frame was one of another size


def test_the_constructor_keeps_its_order(world):
    renderer, target, level = world.renderer, Target(64, 40), zelvarine.Level()
    target.answer = None
    pytest.raises(TypeError, renderer.__init__, target, level)
    assert (renderer.getTarget(), renderer.level, renderer.entities) == (target, level, [])
    pytest.raises(AttributeError, RaycastingRenderer, None, level)
    pytest.raises(AttributeError, RaycastingRenderer.__new__(RaycastingRenderer).render)
