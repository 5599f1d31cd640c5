"""Level files: reading, hostile content, writing, round trips, and the entities in between."""

import builtins
import json
import pathlib

import pytest
import zelvarine as z
from helpers import cells, fog, playback, unraisable_reports
from zelvarine import Entity, Level, LevelFormatException, SpriteComponent, Texture, Vector2

GRID, DESCRIPTION = pathlib.Path("maps/höhle.lvl"), pathlib.Path("maps/höhle.lvl.json")
NAME = str(GRID)


@pytest.fixture(autouse=True)
def folder(tmp_path, monkeypatch):
    monkeypatch.chdir(tmp_path)
    GRID.parent.mkdir()


def load(grid=b"", **description):
    """A level from its pair of files."""
    DESCRIPTION.write_text(json.dumps(dict(dict(width=2, height=1), **description)))
    GRID.write_bytes(grid)
    return Level(NAME)


def files():
    return DESCRIPTION.read_bytes(), GRID.read_bytes()


def image(name, width=8, height=4):
    Texture(width, height).saveFile("maps/" + name)
    return name


def test_grid_and_fog_of_a_file():
    for content in b"\1" * 8, b"\2" * 10000:  # short grids are filled up, surplus is ignored
        level = load(content)
        assert cells(level) == content[:14].ljust(14, b"\0") and level.metadata == {"width": 2, "height": 1}
        assert fog(level) == ((0, 0, 0), 5, (255, 255, 255), 0)
    level = load(fogColor=[1, 2, 3], fogDensity=2.9, groundFogColor=[4, 5, 6], groundFogDensity=-1)
    assert fog(level) == ((1, 2, 3), 2, (4, 5, 6), -1)
    with unraisable_reports() as reports:
        level = load(fogColor=[9, 9, 9], groundFogColor=[1], fogDensity=50)
    assert "zelvarine.Level._loadFogSettings" in reports.getvalue() and level.fogColor == (9, 9, 9)


def test_invalid_descriptions():
    level = load(b"\1" * 14)
    for description, words in (
            ('{"width": 1, ', "Invalid JSON header: Expecting property name enclosed in double quotes"),
            ("[]", "The 'width' property is required"), ('{"width": 1.5}', "The 'height' property is required"),
            ('{"width": true, "height": "1"}', "The 'width' property requires an int value"),
            ('{"width": 1, "height": 2.0}', "The 'height' property requires an int value")):
        DESCRIPTION.write_text(description)
        with pytest.raises(LevelFormatException, match=words) as caught:
            level.__init__(NAME)
        assert caught.value.filename == NAME and level.metadata == {} and cells(level) == b"\1" * 14
    for width, words in (-1, "can't convert negative value"), (2 ** 15, "a grid of 32768 by 16384 cells is too large"):
        pytest.raises(OverflowError, load, width=width, height=2 ** 14).match(words)


def test_assets_in_the_order_of_the_file():
    brick, moss, sheet = image("brick.png"), image("moss.png", 2, 2), image("sheet.png", 64, 32)
    level = load(textures=[brick, moss, brick], sprites=[
        {"texture": sheet},
        {"texture": brick, "xFrames": 4, "yFrames": 2, "animations": {
            "z": {"frames": 2, "startFrame": 4, "directions": 8}, "a": {"frames": 3}}}])
    assert [(sprite.width, sprite.height, list(sprite.animations), playback(SpriteComponent(sprite)))
            for sprite in level.sprites] == [(64, 32, ["_"], (0, 1, 1, 1.0)), (2, 2, ["z", "a"], (4, 6, 8, 0.1))]
    load(textures=[brick])
    Texture(2, 2).saveFile(brick)
    assert Level(NAME, ".").textures[0].width == 2
    for key, assets, error in ("sprites", [{"texture": moss}, {}], KeyError), ("textures", [moss, "no.png"], IOError):
        level.metadata[key] = assets
        pytest.raises(error, level._loadAssets)  # what came before joins the level
    assert [texture.width for texture in level.textures] == [8, 2, 8] * 2 + [2] and len(level.sprites) == 3


def test_entities_of_a_file_and_in_both_lists(capsys):
    level = load(sprites=[{"texture": image("t.png")}], entities=[
        {"position": {"x": 1, "y": 2}, "tür": {"a": [1, None], "_b": 2}},
        {"id": "12", "sprite": {"sprite": 0}, "collision": {}, "tür": {}}])
    assert capsys.readouterr().out == "unknown component type 'tür'\n"
    assert [type(part).__name__ for part in level._entities[1].getComponents()][2] == "_Component_tür"
    level._updateEntityMetadata()
    first, second = level.metadata["entities"]
    assert first == {"id": -1, "position": {"x": 1.0, "y": 2.0}, "tür": {"a": [1, None]}} and second["id"] == 12
    added = level.addEntityFromJson({"id": 3})
    level.removeEntityFromJson(*level.getEntities(z.PositionComponent))
    assert level.metadata["entities"] == [second, {"id": 3}] and level._entities[1] is added
    level.metadata["entities"] = []
    pytest.raises(IndexError, level.removeEntityFromJson, added)
    assert len(level._entities) == 1  # leaves the level first
    for bad in {"position": {"x": 1}}, {"sprite": {"sprite": 0}}, {"id": "x"}, None:
        with unraisable_reports() as reports:
            level = load(entities=[{"id": 1}, bad, {"id": 3}])
        assert "zelvarine.Level._loadEntities" in reports.getvalue()
        assert [entity.id for entity in level.getEntities()] == [1]


def test_there_and_back(capsys):
    sheet, grid, vector = image("t.png", 6, 6), bytes(range(2 * 3 * 7)), Vector2(-1.5, 1e300)
    level = load(grid, height=3, textures=[sheet] * 3, own=["aß漢🎲\"\n", {"x ": None}], sprites=[
        {"texture": sheet}, {"texture": sheet, "xFrames": 3, "animations": {"b": {"frames": 2}, "a": {"frames": 3}}}])
    shown = SpriteComponent(level.sprites[1], True, 0.1, 0.2, 1)
    shown.currentAnimationKey = "a"
    level.addEntity(Entity(2 ** 62, shown, z.PositionComponent(vector), z.RotationComponent(vector),
                           z.VelocityComponent(vector, vector, 0.3), z.CollisionComponent(0.4, True, ["ä"], [1, "_"]),
                           level.createComponent("unbekannt", {"x": [0.5, "b"]})))
    level.saveFile(NAME)
    assert capsys.readouterr().out.endswith("\nwrote file {0}.json\nwrote file {0}\n".format(NAME))
    assert files() == (json.dumps(level.metadata, sort_keys=True, indent=4).encode(), grid)
    again, ecs = Level(NAME), z.Ecs(None)
    assert (again.metadata, cells(again), len(again.textures), len(again.sprites)) == (level.metadata, grid, 3, 2)
    level.syncEntitiesToEcs(ecs), again.syncEntitiesToEcs(ecs), again.syncEntitiesFromEcs(ecs)
    again._updateEntityMetadata()
    assert again.metadata == level.metadata


def test_failures_and_what_is_left(monkeypatch):
    level, before, opened = load(b"\1" * 14), files(), []
    circle, number = level.createComponent("circle", {}), level.createComponent("complex", {"value": 1j})
    circle.self = circle
    monkeypatch.setattr(builtins, "open", lambda *given, open=open: opened.append(open(*given)) or opened[-1])
    for height, component, error, dumped, left in (
            (1, object(), KeyError, 1, before), (1, circle, RecursionError, 1, before),
            (9, circle, ValueError, 0, before), (1, number, TypeError, 2, (b"", before[1]))):
        level._loadMetadata("", '{"width": 2, "height": %d}' % height)  # the grid stays
        level._entities = [Entity(1), Entity(2, component)]
        pytest.raises(error, level.saveFile, NAME)
        assert files() == left and len(level.metadata.get("entities", "")) == dumped
    pytest.raises(LevelFormatException, Level, NAME)
    assert [file.closed for file in opened] == [True] * 2
