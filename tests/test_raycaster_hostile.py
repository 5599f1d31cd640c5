"""Whatever a script stores in cameras, sprites, levels and targets, a frame ends in peace."""

import gc
import os
import subprocess
import sys

import pytest
import zelvarine

from scenes import Scene, camera, image, room, sprite
from world import World

WHITE, RED = image(1, 1, 0xFFFFFFFF), image(2, 2, 0xFFFF0000)
reports = pytest.mark.filterwarnings("ignore::pytest.PytestUnraisableExceptionWarning")
NAN, INF, MOST = float("nan"), float("inf"), 2 ** 31 - 1


def populated(tmp_path):
    level = room(8, 8, [WHITE], fog_density=5, ground_density=5, sky=image(3, 3, 0xFF808080))
    return World(Scene(level, camera(), sprites=[sprite((5, 2.5), RED, frame_count=2),
                                                 sprite((4, 3.5), RED, oscillate=True)],
                       flashlight=WHITE), tmp_path)


def survive(world):
    for _ in range(2):
        world.draw()
    for x in (-1, 0, 63, 64, MOST):
        for query in (world.renderer.getEntityAtScreenCoords, world.renderer.getWorldCellByScreenCoords,
                      world.renderer.getWorldPosByScreenCoords):
            try:
                query(x, 30)
            except (ArithmeticError, AttributeError, TypeError, ValueError):
                pass


@reports
@pytest.mark.parametrize("change", [
    dict(pos=(a, b)) for a in (NAN, INF, -INF, 1e300, -3.0, 2.0 ** 31) for b in (a, 2.5)] + [
    dict(dir=(a, b)) for a in (NAN, INF, 0.0, 1e300, 1e-320) for b in (a, 0.0)] + [
    dict(fov=value) for value in (MOST, -MOST - 1, 100000, -99999)] + [
    dict(pitch=value) for value in (MOST, -MOST - 1, 1000, -1000)] + [
    dict(ratio=value) for value in (0.0, -0.0, NAN, INF, -INF, -1.6, 1e-300, 1e300)], ids=str)
def test_hostile_camera(change, tmp_path):
    world = populated(tmp_path)
    world.aim(camera()._replace(**change))
    survive(world)


@reports
@pytest.mark.parametrize("name, values", [
    ("zOffset", (NAN, INF, -INF, 1e300, -1e300)), ("scale", (0.0, -1.0, NAN, INF, 1e300, 1e-300)),
    ("animationPercentage", (NAN, INF, -5.0, 1e300, -1e300)), ("_animationSpeed", (NAN, INF, -1e300)),
    ("_currentMinFrame", (-1, -MOST - 1, MOST)), ("_currentDirections", (0, -4, MOST)),
    ("_currentAnimation", (None,)), ("_sprite", (None,)), ("_blendMode", (7, 2 ** 32 - 1))])
def test_hostile_sprite_component(name, values, tmp_path):
    world = populated(tmp_path)
    for value in values:
        for entity in world.entities.values():
            setattr(entity.getComponent(zelvarine.SpriteComponent), name, value)
        survive(world)


@reports
@pytest.mark.parametrize("frames, directions, start", [
    (0, 1, 0), (1, 0, 0), (-3, 1, 0), (1, -2, 0), (MOST, MOST, MOST), (1, 1, -7), (9, 8, 5)])
def test_hostile_animation(frames, directions, start, tmp_path):
    world = populated(tmp_path)
    for oscillate in (True, False):
        animation = zelvarine.SpriteAnimation("x", frames, oscillate, 40.0, start, directions)
        for entity in world.entities.values():
            entity.getComponent(zelvarine.SpriteComponent).currentAnimation = animation
        survive(world)


@reports
def test_hostile_positions_and_members(tmp_path):
    world = populated(tmp_path)
    places = [e.getComponent(zelvarine.PositionComponent) for e in world.entities.values()]
    for x in (NAN, INF, -1e300, 2.5):
        for place in places:
            place.x = place.y = x
        survive(world)
    places[0]._pos = None
    survive(world)
    for members in ([None], [zelvarine.Entity()], [5, "x"], []):
        world.renderer._entities = members
        survive(world)


@reports
@pytest.mark.parametrize("density", [MOST, -MOST - 1, -1, 0])
def test_hostile_fog(density, tmp_path):
    world = populated(tmp_path)
    world.level.fogDensity = density
    survive(world)
    world.level.groundFogDensity = density
    world.level.fogColor = (999, 0, 0)
    survive(world)


@reports
def test_constructor_called_again_in_the_middle_of_a_frame(tmp_path):
    world = populated(tmp_path)

    class Shrinker(zelvarine.Engine):
        def getTimeStep(self):
            world.renderer.__init__(zelvarine.Texture(1, 1), world.level)
            return 0.1

    world.renderer._engine = Shrinker()
    survive(world)
    assert world.renderer.getTarget().getSize() == (1, 1)


class Liar(zelvarine.Texture):
    answer = None

    def getSize(self):
        return self.answer


@reports
@pytest.mark.parametrize("answer", [(1, 1), (640, 400), (-5, -5), (0, 0), (MOST, MOST), (), None, ("a", "b")])
def test_target_that_lies_about_its_size(answer, tmp_path):
    honest = populated(tmp_path)
    target = Liar.__new__(Liar)
    zelvarine.Texture.__init__(target, 64, 40)
    target.answer = (64, 40)
    renderer = zelvarine.RaycastingRenderer(target, honest.level)
    target.answer = answer
    try:
        renderer.render()
    except (TypeError, ValueError, MemoryError):
        pass


@reports
def test_levels_without_textures_and_renderers_without_a_level(tmp_path):
    world = World(Scene(room(6, 6, [], sky=WHITE), camera()), tmp_path)
    survive(world)
    world.level._textures = []
    gc.collect()
    survive(world)
    blank = zelvarine.RaycastingRenderer.__new__(zelvarine.RaycastingRenderer)
    for make in (lambda: blank, lambda: zelvarine.RaycastingRenderer(world.target, None),
                 lambda: zelvarine.RaycastingRenderer(None, world.level)):
        try:
            make().render()
        except (TypeError, ValueError, AttributeError, zelvarine.EngineException):
            pass


def test_textures_that_the_script_drops_stay_drawn(tmp_path):
    world = World(Scene(room(6, 6, [image(64, 64, 0xFF336699)]), camera()), tmp_path)
    world.level._textures = []
    gc.collect()
    world.play()


QUIT = """
import zelvarine
class Quitter(zelvarine.AbstractSystem):
    def update(self, timeStep):
        self.getEngine().quit()
engine = zelvarine.Engine()
engine.init("quit", (64, 40))
target = zelvarine.Texture(64, 40)
engine.ecs.addSystem(Quitter())
engine.ecs.addSystem(zelvarine.RaycastingRenderer(target, zelvarine.Level()))
try:
    engine.update()
except zelvarine.EngineException:
    pass
assert memoryview(target)[39, 63] != 0
"""


def test_quit_in_the_middle_of_a_frame():
    paths = os.pathsep.join(sys.path)
    subprocess.run([sys.executable, "-c", QUIT], check=True, env=dict(os.environ, PYTHONPATH=paths))
