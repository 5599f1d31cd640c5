"""Whatever a script stores in cameras, sprites, levels and targets, a frame ends in peace."""

import gc
from contextlib import suppress

import pytest
import zelvarine
from zelvarine import PositionComponent, RaycastingRenderer, SpriteAnimation, SpriteComponent, Texture

from reference import Scene, Sprite
from scenes import image, room
from world import World

pytestmark = pytest.mark.filterwarnings("ignore::pytest.PytestUnraisableExceptionWarning")
REFUSALS = ArithmeticError, AttributeError, MemoryError, TypeError, ValueError
MOST, LEAST = 2 ** 31 - 1, -2 ** 31
INTEGERS = (MOST, LEAST, -1, 0, 100000, -99999)
NUMBERS = (float("nan"), float("inf"), -float("inf"), 1e300, -1e300, 1e-320, 0.0, -0.0, -5.0, 2.0 ** 31)
SHAPES = [(0, 1, 0), (1, 0, 0), (-3, 1, 0), (1, -2, 0), (MOST, MOST, MOST), (1, 1, -7), (9, 8, 5)]
ANIMATIONS = [SpriteAnimation("x", frames, oscillate, 40.0, start, directions)
              for frames, directions, start in SHAPES for oscillate in (True, False)]


@pytest.fixture
def world(tmp_path):
    white, red = image(1, 1, 0xFFFFFFFF), image(2, 2, 0xFFFF0000)
    level = room(8, 8, [white], sky=image(3, 3, 0xFF808080), fog_density=5, ground_density=5)
    sprites = [Sprite((5, 2.5), red, frame_count=2), Sprite((4, 3.5), red, oscillate=True)]
    return World(Scene(level, sprites=sprites, flashlight=white), tmp_path)


def survive(world):
    world.draw(), world.draw()
    for x in (-1, 0, 63, 64, MOST):
        for query in ("getEntityAtScreenCoords", "getWorldCellByScreenCoords", "getWorldPosByScreenCoords"):
            with suppress(*REFUSALS):
                getattr(world.renderer, query)(x, 30)


@pytest.mark.parametrize("part, names, values", [
    ("camera", ("ratio",), NUMBERS), ("camera", ("fov", "pitch"), INTEGERS), ("eye", ("x", "y"), NUMBERS),
    ("view", ("x", "y"), NUMBERS), ("place", ("x", "y"), NUMBERS), ("place", ("_pos",), [None]),
    ("component", ("zOffset",), NUMBERS), ("component", ("scale",), NUMBERS),
    ("component", ("animationPercentage", "_animationSpeed"), NUMBERS), ("component", ("_currentMinFrame",), INTEGERS),
    ("component", ("_currentDirections",), INTEGERS), ("component", ("_currentAnimation", "_sprite"), [None]),
    ("component", ("_blendMode",), [7, 2 ** 32 - 1]), ("component", ("currentAnimation",), ANIMATIONS),
    ("level", ("fogDensity", "groundFogDensity"), INTEGERS), ("level", ("fogColor",), [(999, 0, 0)]),
    ("level", ("_textures",), [[]]), ("renderer", ("_entities",), [[None], [zelvarine.Entity()], [5, "x"], []])])
def test_wild_values(part, names, values, world):
    entities, camera = list(world.entities.values()), world.renderer.getCamera()
    objects = dict(camera=[camera], eye=[camera.pos], view=[camera.dir], level=[world.level], renderer=[world.renderer],
                   place=[entity.getComponent(PositionComponent) for entity in entities],
                   component=[entity.getComponent(SpriteComponent) for entity in entities])[part]
    for value in values:
        for name in names:      # the first alone, then together with the next
            for one in objects:
                with suppress(*REFUSALS):
                    setattr(one, name, value)
            survive(world)


@pytest.mark.parametrize("answer", [(1, 1), (640, 400), (-5, -5), (0, 0), (MOST, MOST), (), None, ("a", "b")])
def test_target_that_lies_about_its_size(answer, world):
    class Liar(Texture):
        size = 64, 40

        def getSize(self):
            return self.size

    target = Liar(64, 40)
    renderer = RaycastingRenderer(target, world.level)
    target.size = answer
    with suppress(*REFUSALS):
        renderer.render()


def test_what_is_missing(world):
    RaycastingRenderer(world.target, None).render()
    with pytest.raises(AttributeError):
        RaycastingRenderer.__new__(RaycastingRenderer).render()
    with pytest.raises(AttributeError):
        RaycastingRenderer(None, world.level)


def test_textures_that_the_script_drops_stay_drawn(world):
    world.level._textures = []
    gc.collect()
    world.play()


def test_constructor_called_again_in_the_middle_of_a_frame(world):
    class Shrinker(zelvarine.Engine):
        def getTimeStep(self):
            world.renderer.__init__(Texture(1, 1), world.level)
            return 0.1

    world.renderer._engine = Shrinker()
    survive(world)
    assert world.renderer.getTarget().getSize() == (1, 1)
