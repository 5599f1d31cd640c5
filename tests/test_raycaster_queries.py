"""Ray queries and screen picking, against the reference model."""

import random

import pytest
from zelvarine import PositionComponent, Vector2

from reference import Camera, Scene, Sprite, pick_point, pick_sprite, trace
from scenes import World, image, random_scene, room

pytestmark = pytest.mark.filterwarnings("ignore::pytest.PytestUnraisableExceptionWarning")


@pytest.mark.parametrize("seed", range(100, 130))
def test_random_rays_and_picks(seed, tmp_path):
    rng = random.Random(seed)
    scene = random_scene(rng)
    world, level = World(scene, tmp_path), scene.level
    for _ in range(150):
        pos = rng.uniform(-1, level.width + 1), rng.uniform(-1, level.height + 1)
        direction = rng.gauss(0, 1), rng.gauss(0, 1)
        if rng.random() < 0.4:      # from grid lines, along axes and diagonals
            pos = tuple(int(p * 2) / 2 for p in pos)
            direction = rng.randint(-1, 1), rng.randint(-2, 2)
        ray, (hit, _) = Vector2(*direction), trace(level, pos, direction)
        point = world.renderer.castRay(Vector2(*pos), ray)
        assert (point and (point.x, point.y), (ray.x, ray.y)) == (hit and hit.pos, direction)
    world.play()
    middle = scene.height // 2 + scene.camera.pitch
    for _ in range(100):
        x, y = rng.randrange(scene.width), rng.choice([middle, rng.randint(-scene.height, 2 * scene.height)])
        assert world.renderer.getEntityAtScreenCoords(x, y) is world.entities.get(pick_sprite(scene, x, y))
        expected = pick_point(scene, x, y)
        assert world.renderer.getWorldPosByScreenCoords(x, y) == expected
        cell = world.renderer.getWorldCellByScreenCoords(x, y)
        assert cell == (expected and tuple(map(int, expected))) and {type(value) for value in cell or ()} <= {int}


def test_the_nearest_sprite_before_the_wall_is_picked(tmp_path):
    red = image(1, 1, 0xFFFF0000)
    far, near, hidden, touching = (Sprite((x, 2.5), red, scale=2.0, z_offset=1.0) for x in (8.0, 5.0, 11.5, 11.0))
    world = World(Scene(room(12, 9), Camera(fov=0), sprites=[near, hidden, touching, far]), tmp_path)

    def picked(*places):
        return [world.renderer.getEntityAtScreenCoords(*place) for place in places]

    first, second = world.entities[near], world.entities[far]
    assert picked((33, 20)) == [first]      # before the first frame every column is open
    world.play()
    # 10 pixels to each side, both bounds inclusive, whatever scale and offset are
    assert picked((21, 20), (41, 30), (33, 10)) == [first] * 3
    assert picked((20, 20), (41, 31), (33, 9), (-1, 20), (64, 20)) == [None] * 5
    first.getComponent(PositionComponent).x = 1.0
    assert picked((33, 20)) == [second]
    second.getComponent(PositionComponent).x = 11.5
    assert picked((33, 20)) == [world.entities[touching]]      # at the very wall: picked, yet not drawn


def test_a_flat_view_and_what_is_not_on_the_screen(tmp_path):
    world = World(Scene(room(9, 9), Camera((3.5, 2.5), fov=0), sprites=[Sprite((5, 2.5), image(1, 1, 0))]), tmp_path)
    cells = world.renderer.getWorldCellByScreenCoords, world.renderer.getWorldPosByScreenCoords
    assert [query(32, 20) for query in cells] == [None, None]      # there is no frame yet
    world.play()
    assert [query(x, 30) for query in cells for x in (-1, 64)] == [None] * 4
    world.renderer.getCamera().ratio = 0.0
    for query in cells:
        pytest.raises(ZeroDivisionError, query, -1, 3).match("^float division$")
    assert world.renderer.getEntityAtScreenCoords(32, 20) is None      # neither bound of its square is a number
