"""Level files: reading, hostile content, writing, round trips, and the entities in between."""

import builtins
import json

import pytest
import zelvarine
from helpers import cells, fog, playback, unraisableReports
from zelvarine import (CollisionComponent, Entity, Level, LevelFormatException, PositionComponent,
                       RotationComponent, SpriteComponent, Texture, Vector2, VelocityComponent)


class Pair:
    """A level's two files in a folder of their own."""

    def __init__(self, folder):
        self.folder, self.name = folder, str(folder / "höhle.lvl")

    def load(self, grid=b"", **description):
        return Level(self.write(json.dumps(dict(dict(width=2, height=1), **description)), grid))

    def write(self, *contents):
        for end, content in zip((".json", ""), contents):
            (self.folder / ("höhle.lvl" + end)).write_bytes(content if end == "" else content.encode())
        return self.name

    def read(self):
        return tuple((self.folder / ("höhle.lvl" + end)).read_bytes() for end in (".json", ""))

    def image(self, name, width=8, height=4):
        Texture(width, height).saveFile(str(self.folder / name))
        return name


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
    with unraisableReports() as reports:
        level = pair.load(fogColor=[9, 9, 9], groundFogColor=[1], fogDensity=50)
    assert "zelvarine.Level._loadFogSettings" in reports.getvalue() and level.fogColor == (9, 9, 9)


def test_invalid_descriptions(pair):
    level = pair.load(b"\1" * 14)
    for description, words in (
            ('{"width": 1, ', "Invalid JSON header: Expecting property name enclosed in double quotes"),
            ("[]", "The 'width' property is required"), ('{"width": 1.5}', "The 'height' property is required"),
            ('{"width": true, "height": "1"}', "The 'width' property requires an int value"),
            ('{"width": 1, "height": 2.0}', "The 'height' property requires an int value")):
        with pytest.raises(LevelFormatException, match=words) as caught:
            level.__init__(pair.write(description, b""))
        assert caught.value.filename == pair.name and level.metadata == {} and cells(level) == b"\1" * 14
    for width, words in (-1, "can't convert negative value to size_t"), (2 ** 15, "a grid of 32768 by 16384 cells is too large"):
        with pytest.raises(OverflowError, match=words):
            pair.load(width=width, height=2 ** 14)


def test_assets_in_the_order_of_the_file(pair):
    brick, moss, sheet = pair.image("brick.png"), pair.image("moss.png", 2, 2), pair.image("sheet.png", 64, 32)
    level = pair.load(skytex=moss, textures=[brick, moss, brick], sprites=[
        {"texture": sheet},
        {"texture": brick, "xFrames": 4, "yFrames": 2, "animations": {
            "z": {"frames": 2, "startFrame": 4, "directions": 8}, "a": {"frames": 3}}}])
    assert [texture.getSize() for texture in level.textures] == [(8, 4), (2, 2), (8, 4)]
    plain, cut = level.sprites
    assert (plain.width, list(plain.animations), cut.width, list(cut.animations)) == (64, ["_"], 2, ["z", "a"])
    assert [playback(SpriteComponent(sheet)) for sheet in level.sprites] == [(0, 1, 1, 1.0), (4, 6, 8, 0.1)]
    (pair.folder / "assets").mkdir()
    pair.image("assets/brick.png", 2, 2)
    pair.load(textures=[brick])
    assert Level(pair.name, str(pair.folder / "assets")).textures[0].width == 2
    for key, entries, error in ("sprites", [{"texture": moss}, {}], KeyError), ("textures", [moss, "missing.png"], IOError):
        level.metadata[key] = entries
        with pytest.raises(error):
            level._loadAssets()  # what came before joins the level
    assert (len(level.textures), len(level.sprites), level.textures[-1].width) == (7, 3, 2)


def test_entities_of_a_file_and_in_both_lists(pair, capsys):
    pair.image("t.png")
    level = pair.load(sprites=[{"texture": "t.png"}], entities=[
        {"position": {"x": 1, "y": 2}, "tür": {"a": [1, None], "_b": 2}},
        {"id": "12", "sprite": {"sprite": 0}, "collision": {}, "tür": {}}])
    assert capsys.readouterr().out == "unknown component type 'tür'\n"
    assert [type(part).__name__ for part in level._entities[1].getComponents()][2] == "_Component_tür"
    level._updateEntityMetadata()
    first, second = level.metadata["entities"]
    assert first == {"id": -1, "position": {"x": 1.0, "y": 2.0}, "tür": {"a": [1, None]}} and second["id"] == 12
    added = level.addEntityFromJson({"id": 3})
    level.removeEntityFromJson(level._entities[0])
    assert level.metadata["entities"] == [second, {"id": 3}] and level._entities[1] is added
    for entities, error in ([], IndexError), ([1, 2], ValueError):
        level.metadata["entities"] = entities
        with pytest.raises(error):
            level.removeEntityFromJson(added)
        assert len(level._entities) == 1 and len(entities) in (0, 2)  # leaves the level first
    for bad in {"position": {"x": 1}}, {"sprite": {"sprite": 0}}, {"id": "x"}, None:
        with unraisableReports() as reports:
            level = pair.load(entities=[{"id": 1}, bad, {"id": 3}])
        assert "zelvarine.Level._loadEntities" in reports.getvalue()
        assert [entity.id for entity in level.getEntities()] == [1]


def test_there_and_back(pair, capsys):
    pair.image("t.png", 6, 6)
    grid, vector = bytes(range(2 * 3 * 7)), Vector2(-1.5, 1e300)
    level = pair.load(grid, width=2, height=3, textures=["t.png"] * 3, own=["aß漢🎲\"\n", {"x ": None}], sprites=[
        {"texture": "t.png"}, {"texture": "t.png", "xFrames": 3, "animations": {"b": {"frames": 2}, "a": {"frames": 3}}}])
    shown = SpriteComponent(level.sprites[1], True, 0.1, 0.2, 1)
    shown.currentAnimationKey = "a"
    level.addEntity(Entity(2 ** 62, shown, PositionComponent(vector), RotationComponent(vector),
                           VelocityComponent(vector, vector, 0.3), CollisionComponent(0.4, True, ["ä"], [1, "_"]),
                           level.createComponent("unbekannt", {"x": [0.5, "b"]})))
    capsys.readouterr()
    level.saveFile(pair.name)
    assert capsys.readouterr().out == "wrote file {0}.json\nwrote file {0}\n".format(pair.name)
    assert pair.read() == (json.dumps(level.metadata, sort_keys=True, indent=4).encode(), grid)
    again = Level(pair.name)
    assert (again.metadata, cells(again), len(again.textures), len(again.sprites)) == (level.metadata, grid, 3, 2)
    again._updateEntityMetadata()
    assert again.metadata == level.metadata


def test_failures_and_what_is_left(pair, monkeypatch):
    level, opened = pair.load(b"\1" * 14), []
    before = pair.read()
    circle = level.createComponent("circle", {})
    circle.self = circle
    for component, error in (object(), KeyError), (circle, RecursionError):
        level._entities = [Entity(1), Entity(2, component)]
        with pytest.raises(error):
            level.saveFile(pair.name)
        assert pair.read() == before and level.metadata["entities"] == [{"id": 1}]
    level._entities = []
    level._loadMetadata("", '{"width": 2, "height": 9}')  # the grid stays
    with pytest.raises(ValueError):
        level.saveFile(pair.name)
    assert pair.read() == before
    level._loadMetadata("", before[0].decode())
    level.metadata["bad"] = {1, 2}
    monkeypatch.setattr(builtins, "open", lambda *given, open=open: opened.append(open(*given)) or opened[-1])
    with pytest.raises(TypeError):
        level.saveFile(pair.name)
    with pytest.raises(LevelFormatException):
        Level(pair.name)
    monkeypatch.undo()
    assert pair.read() == (b"", before[1]) and [file.closed for file in opened] == [True] * 2
