"""Ray queries and screen picking, against the reference model and worked examples."""

import random

import pytest
import zelvarine
from zelvarine import Vector2

from reference import cast_ray, pick_point, pick_sprite
from scenes import Scene, camera, image, put, random_scene, room, sprite
from world import World

RED = image(1, 1, 0xFFFF0000)
reports = pytest.mark.filterwarnings("ignore::pytest.PytestUnraisableExceptionWarning")


def cast(world, pos, direction):
    point = world.renderer.castRay(Vector2(*pos), Vector2(*direction))
    return None if point is None else (point.x, point.y)


@pytest.mark.parametrize("seed", range(20))
def test_random_rays(seed, tmp_path):
    rng = random.Random(seed)
    world = World(random_scene(seed), tmp_path)
    level = world.scene.level
    for _ in range(200):
        pos = rng.uniform(-1, level.width + 1), rng.uniform(-1, level.height + 1)
        direction = rng.gauss(0, 1), rng.gauss(0, 1)
        if rng.random() < 0.4:      # from grid lines, along axes and diagonals
            pos = tuple(int(p * 2) / 2 for p in pos)
            direction = rng.randint(-1, 1), rng.randint(-2, 2)
        assert cast(world, pos, direction) == cast_ray(level, pos, direction), (pos, direction)


@reports
@pytest.mark.parametrize("seed", range(40))
def test_random_picks(seed, tmp_path):
    rng = random.Random(seed)
    scene = random_scene(seed)
    world = World(scene, tmp_path)
    (w, h), (_, columns) = scene.size, world.play()
    for _ in range(100):
        x, y = rng.randrange(w), rng.randint(-h, 2 * h)
        found = pick_sprite(scene.camera, w, h, columns, scene.sprites, x, y)
        assert world.renderer.getEntityAtScreenCoords(x, y) is world.entities.get(found)
        expected = pick_point(scene.camera, h, columns, x, y)
        if expected is not None:
            assert world.renderer.getWorldPosByScreenCoords(x, y) == expected
            cell = world.renderer.getWorldCellByScreenCoords(x, y)
            assert cell == tuple(int(value) for value in expected)
            assert all(type(value) is int for value in cell)


@pytest.mark.parametrize("block, pos, direction, expected", [
    (1, (2.5, 2.5), (1, 0), (5.0, 2.5)), (1, (7.5, 2.5), (-3, 0), (6.0, 2.5)),
    (2, (5.25, 0.5), (0, 1), (5.25, 2.0)),       # flat through a solid edge
    (2, (5.25, 6.5), (0, -1), (5.25, 2.75)),     # the diagonal through an open one
    (4, (2.5, 2.25), (1, 0), (5.0, 2.25)), (4, (7.5, 2.25), (-1, 0), (5.25, 2.25)),
    (3, (5.25, 2.5), (1, 0), (5.5, 2.5)),        # from the open half of the ray's own cell
    (3, (5.75, 2.5), (1, 0), (8.0, 2.5)),        # from the solid half, away from the diagonal
    (5, (4.5, 2.25), (1, 0), (5.75, 2.25)),
    (5, (4.5, 2.9), (1, -1), (6.4, 1.0)),        # in and out again through the open half
    (99, (2.5, 2.5), (1, 0), (5.0, 2.5))])
def test_blocks(block, pos, direction, expected, tmp_path):
    level = room(9, 9)
    put(level, 5, 2, 0, block)
    assert cast(World(Scene(level, camera()), tmp_path), pos, direction) == pytest.approx(expected)


def test_cast_ray_leaves_its_vectors_alone_and_ends_at_the_edge(tmp_path):
    world = World(Scene(room(9, 9, block=0), camera()), tmp_path)
    pos, direction = Vector2(2.5, 2.5), Vector2(3, 0)
    assert world.renderer.castRay(pos, direction) is None
    assert (pos.x, pos.y, direction.x, direction.y) == (2.5, 2.5, 3.0, 0.0)
    nan, inf = float("nan"), float("inf")
    for x in (-0.5, 9.0, nan, inf, -inf, 1e300):
        assert world.renderer.castRay(Vector2(x, 2.5), Vector2(1, 1)) is None
        world.renderer.castRay(Vector2(2.5, 2.5), Vector2(x, nan))


def test_the_nearest_sprite_before_the_wall_is_picked(tmp_path):
    level = room(12, 9)
    far, near, hidden = (sprite((x, 2.6), RED) for x in (8.0, 5.0, 11.5))
    world = World(Scene(level, camera(), sprites=[near, hidden, far]), tmp_path)
    world.play()
    pick = world.renderer.getEntityAtScreenCoords
    assert pick(33, 20) is world.entities[near]
    assert pick(24, 20) is world.entities[near] and pick(23, 20) is None   # 10 pixels to each side,
    assert pick(44, 30) is world.entities[near] and pick(44, 31) is None   # both bounds inclusive
    world.entities[near].getComponent(zelvarine.PositionComponent).x = 1.0
    assert pick(33, 20) is world.entities[far]
    world.entities[far].getComponent(zelvarine.PositionComponent).x = 11.5
    assert pick(33, 20) is None


def test_scale_and_offset_do_not_change_the_picked_square(tmp_path):
    one = sprite((5, 2.5), RED, scale=2.0, z_offset=1.0)
    world = World(Scene(room(12, 9), camera(), sprites=[one]), tmp_path)
    world.play()
    pick = world.renderer.getEntityAtScreenCoords
    assert [pick(32, y) is not None for y in (9, 10, 30, 31)] == [False, True, True, False]


def test_cells_of_wall_floor_and_ceiling(tmp_path):
    world = World(Scene(room(9, 9), camera((3.5, 2.5), fov=0)), tmp_path)
    world.play()
    cell = world.renderer.getWorldCellByScreenCoords
    assert [cell(32, y) for y in (14, 15, 25, 26)] == [(2, 7, 2), (6, 8, 2), (6, 8, 2), (1, 7, 2)]
    assert world.renderer.getWorldPosByScreenCoords(32, 30) == (1, 6.0, pytest.approx(2.5))
    world.renderer.getCamera().ratio = 0.0
    for query in (cell, world.renderer.getWorldPosByScreenCoords):
        with pytest.raises(ZeroDivisionError, match="^float division$"):
            query(3, 3)
        with pytest.raises(TypeError):
            query("a", 3)


def test_before_the_first_frame_every_column_is_open(tmp_path):
    world = World(Scene(room(9, 9), camera(), sprites=[sprite((5, 2.5), RED)]), tmp_path)
    assert world.renderer.getEntityAtScreenCoords(32, 20) is world.entities[world.scene.sprites[0]]
    for x in (-1, 0, 64):
        world.renderer.getWorldCellByScreenCoords(x, 5)
        world.renderer.getWorldPosByScreenCoords(x, 20)
