"""Level files: reading, hostile content, writing, round trips, and the entities in between."""

import json
import random

import pytest
import zelvarine
from helpers import cells, fog, playback, unraisableReports
from zelvarine import (CollisionComponent, Ecs, Entity, Level, LevelFormatException, PositionComponent,
                       RotationComponent, SpriteComponent, Texture, Vector2, VelocityComponent)


class Pair:
    """A level's two files in a folder of their own."""

    def __init__(self, folder):
        self.folder, self.name = folder, str(folder / "höhle.lvl")

    def write(self, description, grid=b""):
        with open(self.name + ".json", "w") as file:
            file.write(description if isinstance(description, str) else json.dumps(description))
        with open(self.name, "wb") as file:
            file.write(grid)
        return self.name

    def image(self, name, width=8, height=4):
        Texture(width, height).saveFile(str(self.folder / name))
        return name

    def load(self, grid=b"", **description):
        return Level(self.write(dict({"width": 2, "height": 1}, **description), grid))

    def read(self):
        with open(self.name + ".json") as description, open(self.name, "rb") as grid:
            return description.read(), grid.read()


@pytest.fixture
def pair(tmp_path, monkeypatch):
    monkeypatch.setattr(zelvarine, "_COMPONENTS", dict(zelvarine._COMPONENTS))
    return Pair(tmp_path)


def test_grid_and_fog_of_a_file(pair):
    for content in b"\1" * 8, b"\2" * 10000:  # short grids are filled up, surplus is ignored
        level = pair.load(content)
        assert cells(level) == content[:14].ljust(14, b"\0") and level.metadata == {"width": 2, "height": 1}
        assert fog(level) == ((0, 0, 0), 5, (255, 255, 255), 0)
    level = pair.load(fogColor=[1, 2, 3], fogDensity=2.9, groundFogColor=[4, 5, 6], groundFogDensity=-1)
    assert fog(level) == ((1, 2, 3), 2, (4, 5, 6), -1)
    level.fogColor, level.groundFogDensity = (value for value in (7, True, 9)), 3.9
    assert fog(level) == ((7, 1, 9), 2, (4, 5, 6), 3) and level.metadata["fogColor"] == [1, 2, 3]
    with unraisableReports() as reports:
        level = pair.load(fogColor=[9, 9, 9], groundFogColor=[1], fogDensity=50)
    assert "zelvarine.Level._loadFogSettings" in reports.getvalue() and level.fogColor == (9, 9, 9)


@pytest.mark.parametrize("description, error, words", [
    ('{"width": 1, ', LevelFormatException, "Invalid JSON header: Expecting property name enclosed in double quotes"),
    ("[]", LevelFormatException, "The 'width' property is required"),
    ({"width": 1.5}, LevelFormatException, "The 'height' property is required"),
    ({"width": True, "height": "1"}, LevelFormatException, "The 'width' property requires an int value"),
    ({"width": 1, "height": 2.0}, LevelFormatException, "The 'height' property requires an int value"),
    ({"width": -1, "height": 1}, OverflowError, "can't convert negative value to size_t"),
    ({"width": 2**31 - 1, "height": 2**31 - 1}, OverflowError, "a grid of")])
def test_invalid_descriptions(pair, description, error, words):
    level = pair.load(b"\1" * 14)
    with pytest.raises(error, match=words) as caught:
        level.__init__(pair.write(description))
    if error is LevelFormatException:
        assert caught.value.filename == pair.name and level.metadata == {} and cells(level) == b"\1" * 14


def test_assets_in_the_order_of_the_file(pair):
    brick, moss, sheet = pair.image("brick.png"), pair.image("moss.png", 2, 2), pair.image("sheet.png", 64, 32)
    level = pair.load(skytex=moss, textures=[brick, moss, brick], sprites=[
        {"texture": sheet},
        {"texture": brick, "xFrames": 4, "yFrames": 2, "animations": {
            "z": {"frames": 2, "startFrame": 4, "directions": 8}, "a": {"frames": 3}}}])
    assert [texture.getSize() for texture in level.textures] == [(8, 4), (2, 2), (8, 4)]
    assert level.getTexture(1, 0, 0) is level.textures[0]
    plain, cut = level.sprites
    assert (plain.width, list(plain.animations), cut.width, list(cut.animations)) == (64, ["_"], 2, ["z", "a"])
    assert [playback(SpriteComponent(sheet)) for sheet in level.sprites] == [(0, 1, 1, 1.0), (4, 6, 8, 0.1)]
    (pair.folder / "assets").mkdir()
    pair.image("assets/brick.png", 2, 2)
    pair.load(textures=[brick])
    assert Level(pair.name, str(pair.folder / "assets")).textures[0].width == 2


def test_a_game_may_replace_every_step(pair):
    called = []

    def replaced(name):
        def method(self, *arguments):
            called.append(name)
            return getattr(Level, name)(self, *arguments)
        return method

    reading = ["_loadFromFile", "_loadMetadata", "_loadAssets", "_convertPath", "createComponent", "_loadFromDict"]
    writing = ["saveFile", "_updateEntityMetadata", "_dumpToDict", "_dumpToDict"]
    syncing = ["syncEntitiesFromEcs", "removeAllEntities", "addEntity"]
    Own = type("Own", (Level,), {name: replaced(name) for name in reading + writing + syncing})
    pair.load(textures=[pair.image("t.png")], entities=[{"own": {"a": 1}}])
    level = Own(pair.name)
    level.saveFile(pair.name)
    ecs = Ecs(None)
    ecs.addEntity(Entity(5))
    level.syncEntitiesFromEcs(ecs)
    assert called == reading + writing + syncing and level.getEntities() == ecs.getEntities()


def test_entities_and_unknown_components_of_a_file(pair, capsys):
    pair.image("t.png")
    level = pair.load(sprites=[{"texture": "t.png"}], entities=[
        {"position": {"x": 1, "y": 2}, "tür": {"a": [1, None], "_b": 2}},
        {"id": "12", "sprite": {"sprite": 0}, "collision": {}, "tür": {}}])
    assert capsys.readouterr().out == "unknown component type 'tür'\n"
    names = [type(part).__name__ for part in level.getEntities()[1].getComponents()]
    assert names == ["SpriteComponent", "CollisionComponent", "_Component_tür"]
    level._updateEntityMetadata()
    first, second = level.metadata["entities"]
    assert first == {"id": -1, "position": {"x": 1.0, "y": 2.0}, "tür": {"a": [1, None]}}
    assert (second["id"], second["tür"]) == (12, {})


@pytest.mark.parametrize("bad", [{"position": {"x": 1}}, {"sprite": {"sprite": 0}}, {"id": "x"}, None])
def test_a_bad_entity_ends_the_list_and_not_the_level(pair, bad):
    with unraisableReports() as reports:
        level = pair.load(entities=[{"id": 1}, bad, {"id": 3}])
    assert "zelvarine.Level._loadEntities" in reports.getvalue()
    assert [entity.id for entity in level.getEntities()] == [1]
    level.metadata["entities"] = [{"id": 1}]
    added = level.addEntityFromJson({"id": 3})
    assert level.metadata["entities"] == [{"id": 1}, {"id": 3}] and level._entities[1] is added
    level.removeEntityFromJson(added)
    assert level.metadata["entities"] == [{"id": 1}] and len(level._entities) == 1


def test_an_empty_level_on_disk(pair, capsys):
    level = Level()
    capsys.readouterr()
    level.saveFile(pair.name)
    assert capsys.readouterr().out == "wrote file {0}.json\nwrote file {0}\n".format(pair.name)
    description, grid = pair.read()
    assert description == ('{\n    "entities": [],\n    "fogColor": [\n        0,\n        0,\n        0\n    ],\n'
                           '    "fogDensity": 5,\n    "height": 30,\n    "width": 30\n}')
    assert grid == cells(level) and Level(pair.name).textures == []


@pytest.mark.parametrize("seed", range(10))
def test_random_levels_there_and_back(pair, seed):
    chance = random.Random(seed)

    def word():
        return "".join(chance.choice("aß漢🎲\\\"\n_ ") for _ in range(chance.randrange(6)))

    pair.image("t.png", 6, 6)
    vector = Vector2(chance.choice([-1.5, 1e300]), chance.random())
    width, height = chance.randrange(1, 9), chance.randrange(1, 9)
    grid = bytes(chance.randrange(256) for _ in range(width * height * 7))
    animations = {word() + str(i): {"frames": i + 1, "directions": i} for i in range(3)}
    level = pair.load(grid, width=width, height=height, textures=["t.png"] * 3, own=[word(), {"x" + word(): None}],
                      sprites=[{"texture": "t.png"}, {"texture": "t.png", "xFrames": 3, "animations": animations}])
    for id in (-1, 2**62)[:chance.randrange(3)]:
        shown = SpriteComponent(level.sprites[1], True, chance.random(), chance.random(), chance.randrange(2))
        shown.currentAnimationKey = chance.choice(list(animations))
        level.addEntity(Entity(
            id, shown, PositionComponent(vector), RotationComponent(vector),
            VelocityComponent(vector, vector, chance.random()),
            CollisionComponent(chance.random(), True, [word()], [word(), chance.randrange(9)]),
            level.createComponent("unbekannt" + word(), {"x" + word(): [chance.random(), word()]})))
    level.saveFile(pair.name)
    first = pair.read()
    assert first[1] == grid and json.loads(first[0]) == level.metadata
    again = Level(pair.name)
    assert (again.metadata, cells(again), len(again.textures), len(again.sprites)) == (level.metadata, grid, 3, 2)
    again.saveFile(pair.name)
    assert pair.read() == first


def test_failures_and_what_is_left(pair):
    level = pair.load(b"\1" * 14)
    before = pair.read()
    level._entities = [Entity(1), Entity(2, object())]
    with pytest.raises(KeyError):
        level.saveFile(pair.name)
    assert pair.read() == before and level.metadata["entities"] == [{"id": 1}]
    level._entities = []
    level.metadata["bad"] = {1, 2}
    with pytest.raises(TypeError):
        level.saveFile(pair.name)
    assert pair.read() == ("", before[1])
