"""Whatever scripts store in cameras, sprites, levels and targets, and whenever, a frame ends in peace."""

from contextlib import suppress

import numpy
import pytest
import zelvarine
from zelvarine import RaycastingRenderer, Texture

from reference import BACKGROUND, Scene, Sprite
from scenes import image, room
from world import World

pytestmark = pytest.mark.filterwarnings("ignore::pytest.PytestUnraisableExceptionWarning")
VALUES = (float("nan"), float("inf"), -float("inf"), 1e300, 1e-320, -5.0, 0.0, 2 ** 31 - 1, -2 ** 31, 2 ** 32 - 1, None)


@pytest.fixture
def world(tmp_path):
    white = image(2, 2, 0xFFFFFFFF)
    level, sprite = room(8, 8, [white], fog_density=5, ground_density=5), Sprite((5, 2.5), white, oscillate=True)
    return World(Scene(level, sprites=[sprite], flashlight=white), tmp_path)


def test_wild_values(world):
    entity, camera = world.renderer.entities[0], world.renderer.getCamera()
    for part in [camera, camera.pos, camera.dir, world.level, world.renderer] + list(entity.getComponents()):
        for name in dir(part):
            before = getattr(part, name)
            for value in VALUES if not callable(before) and not name.startswith("__") else ():
                with suppress(ArithmeticError, AttributeError, LookupError, TypeError, ValueError):
                    setattr(part, name, value)
                with suppress(ArithmeticError, AttributeError, TypeError):
                    world.draw()
                    world.renderer.getEntityAtScreenCoords(30, 30)
                with suppress(AttributeError, TypeError):
                    setattr(part, name, before)


class Target(Texture):
    """64 by 40 pixels, whatever it answers."""

    answer = 64, 40

    def getSize(self):
        return self.answer


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
    class Engine(zelvarine.Engine):
        def getTimeStep(self):
            world.renderer.__init__(target, world.level)
            return 0.1

    target, world.renderer._engine = Texture(*size), Engine()
    world.renderer.render()
    assert not numpy.asarray(target).any()     # the frame was one of another size


def test_the_constructor_keeps_its_order(world):
    renderer, target = world.renderer, Target(64, 40)
    target.answer, level = None, zelvarine.Level()
    with pytest.raises(TypeError):
        renderer.__init__(target, level)
    assert (renderer.getTarget(), renderer.level, renderer.entities) == (target, level, [])
    assert renderer.getCamera().pitch == 20
    with pytest.raises(AttributeError):
        RaycastingRenderer(None, level)
    with pytest.raises(AttributeError):
        RaycastingRenderer.__new__(RaycastingRenderer).render()
