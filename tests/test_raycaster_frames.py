"""Whole frames of the raycaster: word for word against the reference model, and stored hashes."""

import json
import os
import random

import pytest
import zelvarine
from zelvarine import Vector2

from reference import FLOOR, NO_TEXTURE
from scenes import Scene, camera, golden_scenes, image, put, random_scene, room, sprite
from world import World, frame_hash

WHITE = image(1, 1, 0xFFFFFFFF)
RED = image(2, 2, 0xFFFF0000)
HASHES = os.path.join(os.path.dirname(__file__), "golden_frames.json")
reports = pytest.mark.filterwarnings("ignore::pytest.PytestUnraisableExceptionWarning")


@reports
@pytest.mark.parametrize("seed", range(120))
def test_random_scene_over_several_frames(seed, tmp_path):
    world = World(random_scene(seed), tmp_path)
    rng = random.Random(seed)
    for _ in range(3):
        world.play()
        now = world.scene.camera
        world.aim(now._replace(pos=(now.pos[0] + rng.uniform(-1, 1), now.pos[1] + rng.uniform(-1, 1)),
                               dir=(now.dir[0] + rng.gauss(0, 1), now.dir[1]),
                               pitch=now.pitch + rng.randint(-9, 9)))


@pytest.mark.parametrize("name", sorted(golden_scenes()))
def test_stored_frame(name, tmp_path):
    """`python tests/renew_golden.py` renews the hashes, after a look at the pictures it makes."""
    world = World(golden_scenes()[name], tmp_path)
    world.draw()
    with open(HASHES) as file:
        assert frame_hash(world) == json.load(file)[name]


# ---- walls and flats

def test_mix_darkens_walls_and_ceilings_once_and_floors_twice(tmp_path):
    scene = Scene(room(6, 6, [WHITE]), camera((3, 3)))
    world = World(scene, tmp_path)
    frame, _ = world.play()
    seen = set(zip(frame.passes, frame.words))
    assert seen == {("wall", 0xFFFEFEFE), ("floor", 0xFFFDFDFD), ("ceiling", 0xFFFEFEFE)}


@pytest.mark.parametrize("x, expected", [(2.5, 0xFF102030), (2.6, 0xFF0F1F2E)])
def test_wall_in_solid_fog_keeps_the_fog_word(x, expected, tmp_path):
    level = room(7, 5, [image(1, 1, 0xFF101010)], fog_density=102, fog_color=0xFF102030)
    put(level, 5, 2, 0, 1)
    frame, _ = World(Scene(level, camera((x, 2.5), fov=0)), tmp_path).play()
    assert frame.get(0, 20) == expected


@pytest.mark.parametrize("distance, density, row, expected", [
    (2.0, 18, 70, 0xFFE4E4E4), (3.5, 14, 12, 0xFFFCFCFC)])
def test_ground_fog_on_walls_is_rounded_to_single_precision(distance, density, row, expected, tmp_path):
    level = room(9, 5, [WHITE], ground_density=density, ground_color=0xFF000000)
    view = camera((8 - distance, 2.5), fov=0, ratio=100 / 42 / distance)      # 84 rows of wall
    frame, _ = World(Scene(level, view, (1, 100)), tmp_path).play()
    assert frame.get(0, 8 + row) == expected


def test_bottom_row_is_floor_and_the_close_wall_shows_the_middle_of_its_texture(tmp_path):
    stripes = image(1, 9, lambda x, y: 0xFF000000 | y + 1)
    level = room(6, 6, [stripes])
    frame, _ = World(Scene(level, camera((4.75, 2.5), fov=10)), tmp_path).play()
    columns = [[frame.get(x, y) & 255 for y in range(40)] for x in range(64)]
    assert all(0 < min(column[:39]) and max(column[:39]) < 7 for column in columns)
    assert frame.passes[-64:] == ["fill"] * 64      # nearer than the wall, the floor point is behind it


@pytest.mark.parametrize("ratio, pitch", [(60.0, 0), (60.0, 19), (60.0, 20), (60.0, -20),
                                          (1.6, 25), (1.6, 400), (1.6, -400), (0.01, 3)])
def test_walls_without_height_and_horizons_beyond_the_target(ratio, pitch, tmp_path):
    level = room(9, 9, [image(3, 3, lambda x, y: 0xFF000000 | x * 999 + y * 77)], fog_density=2,
                 ground_density=3, sky=image(8, 8, lambda x, y: 0xFF004000 | x << 4 | y))
    light = image(5, 3, 0xFF400000)
    scene = Scene(level, camera((4.5, 4.2), (1, 2), ratio=ratio, pitch=pitch), flashlight=light)
    World(scene, tmp_path).play()


def test_missing_textures_show_what_lies_behind(tmp_path):
    level = room(7, 7, [WHITE], index=1, sky=image(1, 1, 0xFF123456))
    put(level, 4, 3, FLOOR, 0)
    put(level, 5, 3, FLOOR, NO_TEXTURE)
    frame, _ = World(Scene(level, camera((3.1, 3.5))), tmp_path).play()
    assert set(frame.passes) == {"sky", "floor"}


def test_a_wall_that_touches_the_eye_is_no_wall(tmp_path):
    level = room(6, 6, [WHITE], index=NO_TEXTURE)
    frame, columns = World(Scene(level, camera((1.0, 2.5), (-1, 0), fov=0)), tmp_path).play()
    assert all(column.hit is None for column in columns)
    assert set(frame.words) == {0xFF00B464}


@pytest.mark.parametrize("fov, left, middle", [(60, 330, 0), (61, 330, 0), (-60, 30, 0), (720, 0, 0)])
def test_sky_columns(fov, left, middle, tmp_path):
    level = room(6, 6, [], block=0, index=NO_TEXTURE,
                 sky=image(360, 8, lambda x, y: 0xFF000000 | y << 16 | x))
    frame, _ = World(Scene(level, camera(fov=fov), (60, 40)), tmp_path).play()
    assert [frame.get(x, 20) for x in (0, 30)] == [0xFF040000 | left, 0xFF040000 | middle]


@pytest.mark.parametrize("distance", [0.5, 1.0, 3.0, 7.0, 32.0])
def test_flashlight_falls_off_and_ends_with_its_mask(distance, tmp_path):
    level = room(40, 5, [image(1, 1, 0x80202020)])
    for mask in (image(1, 1, 0xFFFFFFFF), image(9, 60, lambda x, y: x * 0x100020 + y)):
        scene = Scene(level, camera((39 - distance, 2.5), fov=0), flashlight=mask)
        frame, _ = World(scene, tmp_path).play()
        assert ("flashlight" in frame.passes) == (distance <= 32)


def test_level_and_flashlight_changes_show_in_the_next_frame(tmp_path):
    world = World(Scene(room(6, 6, [WHITE]), camera(), flashlight=WHITE), tmp_path)
    world.play()
    world.renderer._setFlashlight(None)
    world.scene.flashlight = None
    world.level.fogDensity, world.level.fogColor = 40, (1, 2, 3)
    world.level.groundFogDensity, world.level.groundFogColor = 30, (9, 99, 200)
    world.level.setBlock(2, 4, 2)
    put(world.scene.level, 4, 2, 0, 2)
    world.scene.level = world.scene.level._replace(
        fog_density=40, fog_color=0xFF010203, ground_density=30, ground_color=0xFF0963C8)
    world.play()


# ---- sprites

OPEN = dict(block=0, index=NO_TEXTURE)


def drawn(frame):
    """The positions that a sprite wrote."""
    return {(i % frame.width, i // frame.width)
            for i, name in enumerate(frame.passes) if name.startswith("sprite")}


def test_shadeless_sprite_ignores_fog_and_needs_no_wall_behind(tmp_path):
    level = room(9, 9, fog_density=200, ground_density=200, **OPEN)
    frame, _ = World(Scene(level, camera(), sprites=[sprite((5, 2.5), RED, shadeless=True)]),
                     tmp_path).play()
    assert len(drawn(frame)) == 400 and {frame.get(*at) for at in drawn(frame)} == {0xFFFE0000}


@pytest.mark.parametrize("additive, expected", [(True, 0xFF00B464), (False, 0xFF00B363)])
def test_transparent_sprite_pixels(additive, expected, tmp_path):
    clear = sprite((5, 2.5), image(1, 1, 0x00FFFFFF), additive=additive)
    frame, _ = World(Scene(room(9, 9, **OPEN), camera(), sprites=[clear]), tmp_path).play()
    assert {frame.get(*at) for at in drawn(frame)} == {expected}


def test_of_two_sprites_at_one_distance_the_later_is_in_front(tmp_path):
    pair = [sprite((5, 2.5), image(1, 1, word), shadeless=True) for word in (0xFF0000FF, 0xFFFF0000)]
    for pictured in (pair, pair[::-1]):
        last = pictured[-1].sheet.words[0] & 0xFEFE00FE | 0xFF000000
        frame, _ = World(Scene(room(9, 9, **OPEN), camera(), sprites=pictured), tmp_path).play()
        assert {frame.get(*at) for at in drawn(frame)} == {last}


@pytest.mark.parametrize("changes", [
    dict(pos=(3.2, 1.6)), dict(pos=(3.2, 3.4)), dict(pos=(2.55, 2.5)), dict(pos=(2.500001, 2.5)),
    dict(pos=(2.5 + 1e-12, 3.5)), dict(pos=(4, 2.5), scale=2.0), dict(pos=(4, 2.5), scale=0.01),
    dict(pos=(4, 2.5), z_offset=1.5), dict(pos=(4, 2.5), z_offset=-40.0),
    dict(pos=(4, 2.5), start_frame=11), dict(pos=(4, 2.5), percentage=3.0)])
def test_clipped_scaled_and_shifted_sprites(changes, tmp_path):
    sheet = image(12, 9, lambda x, y: 0xC0000000 | x << 18 | y << 4)
    one = sprite(sheet=sheet, x_frames=3, y_frames=3, frame_count=4, **changes)
    level = room(9, 9, [WHITE], fog_density=9, ground_density=30)
    World(Scene(level, camera(), sprites=[one]), tmp_path).play()


def test_sprite_behind_the_corner_is_cut_by_columns(tmp_path):
    level = room(9, 9, [WHITE])
    put(level, 4, 2, 0, 1)
    sheet = image(64, 1, lambda x, y: 0xFF000000 | x << 2)
    frame, columns = World(Scene(level, camera((2.5, 3.2)), (97, 61), sprites=[
        sprite((5.5, 3.1), sheet, shadeless=True, scale=2.0)]), tmp_path).play()
    covered = sorted({x for x, _ in drawn(frame)})
    assert covered and columns[covered[0] - 1].hit.dist < 3 < columns[covered[0]].hit.dist
    assert frame.get(covered[0], 30) & 255 > 20      # not the first column of the sheet


@pytest.mark.parametrize("angle, view", [(0, 0), (80, 3), (90, 3), (180, 2), (-90, 1), (40, 0)])
def test_views_count_against_the_positive_rotation(angle, view, tmp_path):
    sheet = image(4, 1, lambda x, y: 0xFF000010 * (x + 1) | 0xFF000000)
    facing = Vector2(-1, 0)
    facing.rotate(-angle)
    one = sprite((5, 2.5), sheet, x_frames=4, directions=4, shadeless=True,
                 facing=(facing.x, facing.y))
    frame, _ = World(Scene(room(9, 9, **OPEN), camera(), sprites=[one]), tmp_path).play()
    assert {frame.get(*at) & 255 for at in drawn(frame)} == {16 * (view + 1) - 1}


@pytest.mark.parametrize("oscillate, positions", [
    (True, [0.5, 0.75, 0.75, 0.5, 0.25, 0.0, 0.0, 0.25]), (False, [0.5, 0.75, 0.0, 0.25, 0.5, 0.75])])
def test_animations_advance_even_behind_the_camera(oscillate, positions, tmp_path):
    one = sprite((1.0, 2.5), RED, frame_count=4, oscillate=oscillate, speed=5.0, percentage=0.25)
    world = World(Scene(room(9, 9, **OPEN), camera(), sprites=[one], time_step=0.05), tmp_path)
    seen = []
    for _ in positions:
        assert not drawn(world.play()[0])
        seen.append(world.entities[one].getComponent(zelvarine.SpriteComponent).animationPercentage)
    assert seen == positions


@reports
def test_a_sprite_too_far_to_have_a_size_ends_the_pass(tmp_path):
    near, far = sprite((5, 2.5), RED), sprite((80.0, 2.5), RED)
    frame, _ = World(Scene(room(9, 9, **OPEN), camera(), sprites=[near, far]), tmp_path).play()
    assert not drawn(frame)
