"""Level files: reading, hostile content, writing, round trips, and the entities in between."""

import builtins
import json
import os
import random
import re
import sys

import pytest
import zelvarine
from zelvarine import (CollisionComponent, DummyComponent, Ecs, Entity, Level, PositionComponent,
                       SpriteComponent, Texture, Vector2, VelocityComponent, component)


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


def cells(level):
    return bytes(level.getTextureIndex(part, x, y)
                 for y in range(level.height) for x in range(level.width) for part in range(7))


def fog(level):
    return level.fogColor, level.fogDensity, level.groundFogColor, level.groundFogDensity


def reported(monkeypatch, capsys, action):
    """The action's result, and what it wrote to standard error, unraisable reports included."""
    if hasattr(sys, "unraisablehook"):  # pytest puts its own there
        monkeypatch.setattr(sys, "unraisablehook", sys.__unraisablehook__)
    return action(), capsys.readouterr().err


# ---- the pair of files

@pytest.mark.parametrize("length", [0, 7, 8, 14, 15, 10000])
def test_short_grids_are_filled_up_and_surplus_is_ignored(pair, length):
    content = bytes(i % 251 + 1 for i in range(length))
    level = pair.load(content)
    assert cells(level) == content[:14].ljust(14, b"\0")
    assert (level.filename, level.metadata, level._assetsPath) == (pair.name, {"width": 2, "height": 1}, str(pair.folder))
    assert (level.textures, level.sprites, level._entities) == ([], [], [])
    assert fog(level) == ((0, 0, 0), 5, (255, 255, 255), 0)


def test_fog_of_a_file(pair, monkeypatch, capsys):
    assert fog(pair.load(fogColor=[1, 2, 3], fogDensity=2.9, groundFogColor=[4, 5, 6], groundFogDensity=-1)) == ((1, 2, 3), 2, (4, 5, 6), -1)
    level, errors = reported(monkeypatch, capsys, lambda: pair.load(fogColor=[9, 9, 9], groundFogColor=[1], fogDensity=50))
    assert "zelvarine.Level._loadFogSettings" in errors
    assert fog(level) == ((9, 9, 9), 5, (255, 255, 255), 0)


@pytest.mark.parametrize("description, words", [
    ('{"width": 1, ', "Invalid JSON header: Expecting property name enclosed in double quotes"),
    ("", r"Invalid JSON header: Expecting value: line 1 column 1 \(char 0\)$"),
    ("null", "Invalid JSON header: None$"),
    ("[]", "The 'width' property is required$"),
    ({"width": 1.5}, "The 'height' property is required$"),
    ({"width": 2.0, "height": "1"}, "The 'width' property requires an int value$"),
    ({"width": True, "height": 1}, "The 'width' property requires an int value$"),
    ({"width": 1, "height": None}, "The 'height' property requires an int value$")])
def test_invalid_descriptions(pair, description, words):
    level = pair.load()
    with pytest.raises(zelvarine.LevelFormatException) as caught:
        level.__init__(pair.write(description))
    assert caught.value.filename == pair.name and re.match(words, caught.value.msg)
    assert level.metadata == {} and cells(level) == bytes(14)


@pytest.mark.parametrize("width, height", [(-1, 1), (1, -1), (-3, -3), (2**31, 1), (10**30, 1), (2**31 - 1, 2**31 - 1)])
def test_impossible_sizes(pair, width, height):
    with pytest.raises(OverflowError, match="^can.t convert negative value to size_t$" if width < 0 or height < 0 else None):
        pair.load(width=width, height=height)
    for width, height in ((0, 5), (5, 0), (17000, 17000)):
        with pytest.raises(IndexError):
            pair.load(width=width, height=height).getBlock(width, height - 1)


def test_missing_files(pair, monkeypatch):
    opened = []
    monkeypatch.setattr(builtins, "open", lambda name, *rest, real=open: opened.append(name) or real(name, *rest))
    with pytest.raises(FileNotFoundError):
        Level(pair.name)
    assert opened == [pair.name + ".json"]
    os.unlink(pair.write({"width": 1, "height": 1}))
    with pytest.raises(FileNotFoundError):
        Level(pair.name)
    with pytest.raises(TypeError):
        Level(pair.folder)


# ---- assets

def test_assets_in_the_order_of_the_file(pair):
    brick, moss, sheet = pair.image("brick.png"), pair.image("moss.png", 2, 2), pair.image("sheet.png", 64, 32)
    level = pair.load(skytex=moss, textures=[brick, moss, brick], sprites=[
        {"texture": sheet},
        {"texture": brick, "xFrames": 4, "yFrames": 2,
         "animations": {"z": {"frames": 2}, "a": {"frames": 3, "oscillate": True, "speed": 2, "startFrame": 4, "directions": 8}}}])
    assert [texture.getSize() for texture in level.textures] == [(8, 4), (2, 2), (8, 4)]
    assert level.textures[0] is not level.textures[2] and level.getTexture(1, 0, 0) is level.textures[0]
    plain, cut = level.sprites
    assert (plain.width, plain.height, list(plain.animations)) == (64, 32, ["_"])
    assert (cut.width, cut.height, list(cut.animations)) == (2, 2, ["z", "a"])
    played = []
    for sheet, key in ((plain, "_"), (cut, "z"), (cut, "a")):
        shown = SpriteComponent(sheet)
        shown.currentAnimationKey = key
        played.append((shown._currentMinFrame, shown._currentMaxFrame, shown._currentDirections, shown._animationSpeed))
    assert played == [(0, 1, 1, 1.0), (0, 2, 1, 0.1), (4, 7, 8, 2.0)]


@pytest.mark.parametrize("description, error", [
    ({"textures": ["missing.png"]}, OSError), ({"textures": [5]}, TypeError), ({"textures": 5}, TypeError),
    ({"skytex": "a\0.png"}, ValueError), ({"sprites": [{}]}, KeyError), ({"sprites": [[]]}, TypeError),
    ({"sprites": [{"texture": "t.png", "xFrames": 0}]}, ZeroDivisionError),
    ({"sprites": [{"texture": "t.png", "yFrames": 2**40}]}, OverflowError),
    ({"sprites": [{"texture": "t.png", "animations": {"x": {}}}]}, KeyError),
    ({"sprites": [{"texture": "t.png", "animations": {"x": {"frames": "4"}}}]}, TypeError)])
def test_bad_assets(pair, description, error):
    pair.image("t.png")
    with pytest.raises(error):
        pair.load(**description)


def test_where_assets_are_looked_for(pair, monkeypatch):
    (pair.folder / "assets").mkdir()
    pair.image("near.png", 1, 1), pair.image("assets/near.png", 2, 2)
    assert [t.width for t in pair.load(textures=["near.png", str(pair.folder / "near.png")]).textures] == [1, 1]
    assert [t.width for t in Level(pair.name, str(pair.folder / "assets")).textures] == [2, 1]
    monkeypatch.chdir(pair.folder)
    level = Level(os.path.basename(pair.name))
    assert (level._assetsPath, level._convertPath("a/b"), level._convertPath("/a")) == ("", "a/b", "/a")
    level._assetsPath = None
    assert level._convertPath("a") == "a"


def test_a_game_may_replace_every_step(pair):
    pair.image("real.png", 3, 3)

    class Own(Level):
        steps = ()

        def _loadFromFile(self, filename):
            self.steps += ("file",)
            Level._loadFromFile(self, filename)

        def _loadMetadata(self, filename, header):
            Level._loadMetadata(self, filename, header)
            self.metadata["textures"] = ["any"]

        def _loadAssets(self):
            self.steps += ("assets",)
            Level._loadAssets(self)

        def _convertPath(self, path):
            return Level._convertPath(self, "real.png")

        def createComponent(self, componentName, component):
            return None if componentName == "comment" else Level.createComponent(self, componentName, component)

        def _loadFromDict(self, component, input):
            component.given = input

        def _dumpToDict(self, obj):
            return Level._dumpToDict(self, 7 if obj == 1 else obj)

    level = Own(pair.write({"width": 1, "height": 1, "entities": [{"comment": "not a dict", "own": {"a": 1}}]}))
    assert level.steps == ("file", "assets") and level.textures[0].width == 3
    level._updateEntityMetadata()
    assert level.metadata["entities"] == [{"id": -1, "own": {"given": {"a": 7}}}]


# ---- entities

def test_entities_and_unknown_components_of_a_file(pair, capsys):
    pair.image("t.png")
    level = pair.load(sprites=[{"texture": "t.png"}], entities=[
        {"position": {"x": 1, "y": 2}, "tür": {"a": [1, None], "_b": 2}},
        {"id": "12", "sprite": {"sprite": 0}, "collision": {}, "rotation": {"x": 0, "y": 1}, "tür": {}}])
    assert capsys.readouterr().out == "unknown component type 'tür'\n"
    (position, door), second = level.getEntities()[0].getComponents(), level.getEntities()[1]
    assert (position.y, door.__dict__, isinstance(door, DummyComponent)) == (2.0, {"a": [1, None], "_b": 2}, True)
    assert [type(c).__name__ for c in second.getComponents()] == ["SpriteComponent", "CollisionComponent", "RotationComponent", "_Component_tür"]
    level._updateEntityMetadata()
    first, second = level.metadata["entities"]
    assert first == {"id": -1, "position": {"x": 1.0, "y": 2.0}, "tür": {"a": [1, None]}}
    assert (second["id"], second["tür"]) == (12, {})


@pytest.mark.parametrize("bad", [{"position": {"x": 1}}, {"position": 5}, {"sprite": {"sprite": 0}}, {"id": "x"},
                                 {"id": 2**70}, {"unknown": 5}, {"nul\0": {}}, None, [1], "text"])
def test_a_bad_entity_ends_the_list_and_not_the_level(pair, monkeypatch, capsys, bad):
    level, errors = reported(monkeypatch, capsys, lambda: pair.load(entities=[{"id": 1}, bad, {"id": 3}]))
    assert "zelvarine.Level._loadEntities" in errors
    assert [entity.id for entity in level.getEntities()] == [1]


def test_entities_by_their_dicts(pair):
    level = pair.load(entities=[{"id": 1}])
    added = level.addEntityFromJson({"id": 3})
    assert level.metadata["entities"] == [{"id": 1}, {"id": 3}] and level._entities[1] is added
    with pytest.raises(ValueError):
        level.removeEntityFromJson(Entity(3))
    level.removeEntityFromJson(level._entities[0])
    assert level.metadata["entities"] == [{"id": 3}] and level._entities == [added]
    level.metadata["entities"].clear()
    with pytest.raises(IndexError):
        level.removeEntityFromJson(added)
    with pytest.raises(KeyError):
        level.addEntityFromJson({"position": {}})
    assert level.metadata["entities"] == [{"position": {}}] and level._entities == [added]
    del level.metadata["entities"]
    with pytest.raises(KeyError):
        level.addEntityFromJson({"id": 3})
    assert level._entities == [added]


def test_entities_are_shared_with_the_registry(pair):
    level, ecs, old = pair.load(entities=[{"id": 1}, {"id": 2}]), Ecs(None), Entity(9)
    ecs.addEntity(old)
    level.syncEntitiesToEcs(ecs)
    assert ecs.getEntities() == level._entities and old._ecs is None
    ecs.addEntity(old)
    level.syncEntitiesFromEcs(ecs)
    assert [entity.id for entity in level.getEntities()] == [1, 2, 9]
    old.addComponent(PositionComponent())
    assert level.getEntities(PositionComponent) == [old] and level.getEntities(PositionComponent, SpriteComponent) == []
    level.removeEntity(old)
    with pytest.raises(ValueError):
        level.removeEntity(old)
    level.syncEntitiesFromEcs(Ecs(None))
    assert level._entities == []


# ---- saving

def test_an_empty_level_on_disk(pair, capsys):
    level = Level()
    capsys.readouterr()
    level.setBlock(3, 1, 2)
    level.fogDensity = 9
    level.saveFile(pair.name)
    assert capsys.readouterr().out == "wrote file {0}.json\nwrote file {0}\n".format(pair.name)
    description, grid = pair.read()
    assert description == ('{\n    "entities": [],\n    "fogColor": [\n        0,\n        0,\n        0\n    ],\n'
                           '    "fogDensity": 5,\n    "height": 30,\n    "width": 30\n}')
    assert grid == cells(level) and len(grid) == 6300
    again = Level(pair.name)
    assert (cells(again), again.textures, again.getTexture(1, 1, 1)) == (grid, [], None)


def test_failures_and_what_is_left(pair):
    level = pair.load(b"\1" * 14)
    before = pair.read()
    for entity, error in ((Entity(2, object()), KeyError), (Entity(2, DummyComponent()), AttributeError)):
        level._entities = [Entity(1), entity]
        with pytest.raises(error):
            level.saveFile(pair.name)
        assert pair.read() == before and level.metadata["entities"] == [{"id": 1}]
    level._entities = []
    with pytest.raises(FileNotFoundError):
        level.saveFile(str(pair.folder / "none" / "a.lvl"))
    level.metadata["bad"] = {1, 2}
    with pytest.raises(TypeError):
        level.saveFile(pair.name)
    assert pair.read() == ("", before[1])


def test_plain_values_of_any_object(pair):
    class Item:
        def __init__(self, **values):
            self.__dict__.update(values)

    level = pair.load()
    item = Item(words=("a", "bc"), _secret=1, inner=Item(_x=1, y={"k": {2}, "_l": 1}), view={"a": 1}.keys(), none=None)
    assert level._dumpToDict(item) == {"words": ["a", "bc"], "inner": {"y": {"k": [2]}}, "view": ["a"], "none": None}
    with pytest.raises(AttributeError):
        level._dumpToDict({1: 2})
    item.circle = [item]
    with pytest.raises(RecursionError):
        level._dumpToDict(item)
    stand_in = DummyComponent()
    stand_in.typeName, stand_in.a = "mine", 1
    level.addEntity(Entity(4, stand_in))
    level._updateEntityMetadata()
    assert level.metadata["entities"] == [{"id": 4, "mine": {"typeName": "mine", "a": 1}}]


@pytest.mark.parametrize("seed", range(20))
def test_random_levels_there_and_back(pair, seed):
    chance = random.Random(seed)

    @component("büchse")
    class Box:
        def loadFromDict(self, level, input):
            self.content = input["content"]

        def dumpToDict(self, level):
            return {"content": self.content}

    def number():
        return chance.choice([0.0, -1.5, 1e300, chance.random()])

    def word():
        return "".join(chance.choice("aß漢🎲\\\"\n_ ") for _ in range(chance.randrange(6)))

    pair.image("t.png", 6, 6)
    width, height = chance.randrange(1, 9), chance.randrange(1, 9)
    grid = bytes(chance.randrange(256) for _ in range(width * height * 7))
    animations = {word() + str(i): {"frames": i + 1, "directions": i} for i in range(3)}
    level = pair.load(grid, width=width, height=height, textures=["t.png"] * 3, own=[word(), {"x" + word(): None}],
                      sprites=[{"texture": "t.png"}, {"texture": "t.png", "xFrames": 3, "animations": animations}])
    for _ in range(chance.randrange(8)):
        entity = Entity(chance.choice([-1, 0, 2**62]), PositionComponent(Vector2(number(), number())),
                        level.createComponent("unbekannt" + word(), {"x" + word(): [number(), word()]}),
                        level.createComponent("büchse", {"content": word()}))
        if chance.random() < 0.5:
            entity.addComponent(VelocityComponent(Vector2(number(), number()), Vector2(1.0, number() or 2.0)))
            entity.addComponent(CollisionComponent(number(), True, [word()], [word(), chance.randrange(9)]))
        if chance.random() < 0.5:
            shown = SpriteComponent(level.sprites[1], True, number(), number(), chance.randrange(2))
            shown.currentAnimationKey = chance.choice(list(animations))
            entity.addComponent(shown)
        level.addEntity(entity)
    level.saveFile(pair.name)
    first = pair.read()
    assert first[1] == grid and json.loads(first[0]) == level.metadata
    again = Level(pair.name)
    assert (again.metadata, cells(again), len(again.textures), len(again.sprites)) == (level.metadata, grid, 3, 2)
    again.saveFile(pair.name)
    assert pair.read() == first
