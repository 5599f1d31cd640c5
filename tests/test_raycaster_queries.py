"""Ray queries and screen picking, against the reference model and worked examples."""

import random

import pytest
from zelvarine import PositionComponent, Vector2

from reference import Camera, Scene, Sprite, pick_point, pick_sprite, trace
from scenes import image, put, random_scene, room
from world import World

RED = image(1, 1, 0xFFFF0000)
pytestmark = pytest.mark.filterwarnings("ignore::pytest.PytestUnraisableExceptionWarning")


def cast(world, pos, direction):
    ray = Vector2(*direction)
    point = world.renderer.castRay(Vector2(*pos), ray)
    assert (ray.x, ray.y) == direction
    return None if point is None else (point.x, point.y)


@pytest.mark.parametrize("seed", range(100, 130))
def test_random_rays_and_picks(seed, tmp_path):
    rng = random.Random(seed)
    scene = random_scene(rng)
    world, level = World(scene, tmp_path), scene.level
    for _ in range(100):
        pos = rng.uniform(-1, level.width + 1), rng.uniform(-1, level.height + 1)
        direction = rng.gauss(0, 1), rng.gauss(0, 1)
        if rng.random() < 0.4:      # from grid lines, along axes and diagonals
            pos = tuple(int(p * 2) / 2 for p in pos)
            direction = rng.randint(-1, 1), rng.randint(-2, 2)
        hit, _ = trace(level, pos, direction)
        assert cast(world, pos, direction) == (hit and hit.pos), (pos, direction)
    world.play()
    for _ in range(100):
        x, y = rng.randrange(scene.width), rng.randint(-scene.height, 2 * scene.height)
        assert world.renderer.getEntityAtScreenCoords(x, y) is world.entities.get(pick_sprite(scene, x, y))
        expected = pick_point(scene, x, y)
        if expected is not None:
            assert world.renderer.getWorldPosByScreenCoords(x, y) == expected
            cell = world.renderer.getWorldCellByScreenCoords(x, y)
            assert cell == tuple(map(int, expected)) and {type(value) for value in cell} == {int}


@pytest.mark.parametrize("block, pos, direction, expected", [
    (99, (2.5, 2.5), (1, 0), (5.0, 2.5)), (1, (7.5, 2.5), (-3, 0), (6.0, 2.5)),
    # flat through a solid edge, the diagonal through an open one
    (2, (5.25, 0.5), (0, 1), (5.25, 2.0)), (2, (5.25, 6.5), (0, -1), (5.25, 2.75)),
    (4, (2.5, 2.25), (1, 0), (5.0, 2.25)), (4, (7.5, 2.25), (-1, 0), (5.25, 2.25)),
    (3, (5.25, 2.5), (1, 0), (5.5, 2.5)),        # from the open half of the ray's own cell
    (3, (5.75, 2.5), (1, 0), (8.0, 2.5)),        # from the solid half, away from the diagonal
    (5, (4.5, 2.25), (1, 0), (5.75, 2.25)),
    (5, (4.5, 2.9), (1, -1), (6.4, 1.0)),        # in and out again through the open half
    (0, (9.0, 2.5), (-1, 0), None), (0, (float("nan"), 2.5), (1, 1), None), (0, (1e300, 2.5), (1, 1), None)])
def test_blocks(block, pos, direction, expected, tmp_path):
    level = room(9, 9)
    put(level, 5, 2, 0, block)
    world = World(Scene(level), tmp_path)
    assert cast(world, pos, direction) == (expected and pytest.approx(expected))
    for x in (float("inf"), 1e300, 1e-320):
        world.renderer.castRay(Vector2(2.5, 2.5), Vector2(x, float("nan")))


def test_the_nearest_sprite_before_the_wall_is_picked(tmp_path):
    far, near, hidden = (Sprite((x, 2.6), RED, scale=2.0, z_offset=1.0) for x in (8.0, 5.0, 11.5))
    world = World(Scene(room(12, 9), sprites=[near, hidden, far]), tmp_path)

    def picked(*places):
        return [world.renderer.getEntityAtScreenCoords(*place) for place in places]

    first, second = world.entities[near], world.entities[far]
    assert picked((33, 20)) == [first]      # before the first frame every column is open
    world.play()
    # 10 pixels to each side, both bounds inclusive, whatever scale and offset are
    assert picked((24, 20), (44, 30), (33, 10)) == [first] * 3
    assert picked((23, 20), (44, 31), (33, 9), (-1, 20), (64, 20)) == [None] * 5
    first.getComponent(PositionComponent).x = 1.0
    assert picked((33, 20)) == [second]
    second.getComponent(PositionComponent).x = 11.5
    assert picked((33, 20)) == [None]


def test_cells_of_wall_floor_and_ceiling(tmp_path):
    world = World(Scene(room(9, 9), Camera((3.5, 2.5), fov=0)), tmp_path)
    world.play()
    cell, pos = world.renderer.getWorldCellByScreenCoords, world.renderer.getWorldPosByScreenCoords
    assert [cell(32, y) for y in (14, 15, 25, 26)] == [(2, 7, 2), (6, 8, 2), (6, 8, 2), (1, 7, 2)]
    assert pos(32, 30) == (1, 6.0, pytest.approx(2.5)) and cell(-1, 20) is pos(64, 20) is None
    world.renderer.getCamera().ratio = 0.0
    with pytest.raises(ZeroDivisionError, match="^float division$"):
        cell(3, 3)
