"""Levels in memory: the grid of cells, textures, fog, the printed map."""

import sys

import pytest
import zelvarine
from zelvarine import BLOCK_SQUARE, BLOCK_TRIANGLE_NORTH_EAST, TEXTURE_CEILING, TEXTURE_FLOOR, TEXTURE_WEST, Level, Texture

ROOM = {"width": 30, "height": 30, "fogColor": [0, 0, 0], "fogDensity": 5}


@pytest.fixture
def level(capsys):
    made = Level()
    capsys.readouterr()
    return made


def grid(level):
    return bytes(level.getTextureIndex(part, x, y)
                 for y in range(level.height) for x in range(level.width) for part in range(7))


def test_an_empty_level_is_a_room_with_a_checker(level):
    assert (level.filename, level._assetsPath, level.metadata, level.getSize()) == ("???", None, ROOM, (30, 30))
    ring = bytearray(6300)
    for i in range(30):
        for x, y in ((i, 0), (i, 29), (0, i), (29, i)):
            ring[(y * 30 + x) * 7] = BLOCK_SQUARE
    assert grid(level) == ring
    checker, = level.textures
    assert level.getTexture(TEXTURE_FLOOR, 1, 1) is checker
    pixels = memoryview(checker)
    assert (checker.getSize(), pixels[0, 0], pixels[0, 63], pixels[63, 63]) == ((64, 64), 0xFF333333, 0xFFAAAAAA, 0xFF333333)


def test_one_byte_of_one_cell_changes(level):
    expected = bytearray(grid(level))
    level.setBlock(BLOCK_TRIANGLE_NORTH_EAST, x=3, y=4)
    level.setTextureIndex(300, cardinalDirection=TEXTURE_CEILING, x=3, y=4)
    level.setTextureIndex(-1, TEXTURE_WEST, 3, 4)
    level.setBlock(7.9, 29, 29)
    start = (4 * 30 + 3) * 7
    expected[start], expected[start + TEXTURE_CEILING], expected[start + TEXTURE_WEST], expected[899 * 7] = 3, 44, 255, 7
    assert grid(level) == expected and level.getBlock(3, 4) == 3
    assert level.getTexture(0, 3, 4) is None
    level.textures.extend([Texture(1, 1)] * 3)
    assert level.getTexture(0, 3, 4) is level.textures[3]


@pytest.mark.parametrize("part, x, y, error", [
    (1, 30, 0, IndexError), (1, 0, 30, IndexError), (1, -1, 0, IndexError), (1, 0, -1, IndexError), (7, 0, 0, IndexError),
    (-1, 1, 1, IndexError), (2**31 - 1, 2**31 - 1, 2**31 - 1, IndexError), (1, 2**31, 0, OverflowError)])
def test_no_operation_leaves_the_grid(level, part, x, y, error):
    before = grid(level)
    operations = [level.getTextureIndex, level.getTexture, lambda *where: level.setTextureIndex(1, *where)]
    if part == 1:
        operations += [lambda part, *where: level.getBlock(*where), lambda part, *where: level.setBlock(1, *where)]
    for operation in operations:
        with pytest.raises(error):
            operation(part, x, y)
    assert grid(level) == before


def test_fog_changes_the_level_and_not_its_metadata(level):
    assert (level.fogColor, level.fogDensity, level.groundFogColor, level.groundFogDensity) == ((0, 0, 0), 5, (255, 255, 255), 0)
    level.fogColor = [1, 2, 3]
    level.groundFogColor = (value for value in (4, True, 6))
    level.fogDensity, level.groundFogDensity = 7.9, -3
    for bad, error in (((1, 2), ValueError), ((1, 2, 3, 4), ValueError), ((1, 2.0, 3), TypeError), (None, TypeError)):
        with pytest.raises(error):
            level.fogColor = bad
    assert (level.fogColor, level.fogDensity, level.groundFogColor, level.groundFogDensity) == ((1, 2, 3), 7, (4, 1, 6), -3)
    assert level.metadata == ROOM
    # components out of range run into their neighbours
    for given, reads in (((0, 300, 2), (1, 44, 2)), ((0, 0, -1), (255, 255, 255)), ((2**80, 1, 2), (0, 1, 2))):
        level.fogColor = given
        assert level.fogColor == reads


def test_printed_maps(capsys):
    level = Level()
    lines = capsys.readouterr().out.split("\n")
    assert lines[:3] == ["INIT EMPTY LEVEL", "    " + "".join("%d " % x for x in range(30)), "  0 " + "■ " * 30]
    assert lines[30] == " 28 ■ " + "□ " * 28 + "■ " and lines[32:] == [""]
    for block in range(6):
        level.setBlock(block, 5 + block, 1)
    level.printLevel()
    lines = capsys.readouterr().out.split("\n")
    assert lines[0] == "    " + "0 1 2 3 4 5 6 7 8 9 " * 3
    assert lines[2] == "  1 ■ □ □ □ □ □ ■ ◤ ◥ ◣ ◢ " + "□ " * 18 + "■ "
    level.setBlock(6, 1, 1)
    with pytest.raises(IndexError):
        level.printLevel()


def test_an_error_inside_is_reported_and_the_level_stays_usable(monkeypatch, capsys):
    monkeypatch.setattr(zelvarine, "ASCII_CELLS", [])
    if hasattr(sys, "unraisablehook"):
        monkeypatch.setattr(sys, "unraisablehook", sys.__unraisablehook__)
    level = Level()
    assert "zelvarine.Level._initializeEmpty" in capsys.readouterr().err
    assert (level.getBlock(0, 0), level.getBlock(1, 1), level.getSize()) == (BLOCK_SQUARE, 0, (30, 30))


def test_metadata_alone_does_not_change_the_grid(level, tmp_path):
    level._loadMetadata("name", '{"width": 2, "height": 100, "own": 1}')
    assert (level.width, level.height, level.metadata) == (2, 100, {"width": 2, "height": 100, "own": 1})
    assert level.getBlock(29, 29) == BLOCK_SQUARE
    with pytest.raises(IndexError):
        level.getBlock(0, 99)
    level.printLevel()
    with pytest.raises(ValueError):
        level.saveFile(str(tmp_path / "a.lvl"))
    assert not list(tmp_path.iterdir())


def test_starting_a_level_twice_or_never(level, tmp_path):
    level.setBlock(4, 1, 1)
    with pytest.raises(FileNotFoundError):
        level.__init__(str(tmp_path / "none.lvl"))
    assert level.getBlock(1, 1) == 4
    level.__init__()
    assert (level.getBlock(1, 1), level.metadata) == (0, ROOM)
    unborn = Level.__new__(Level)
    assert (unborn.width, unborn.metadata, unborn.textures) == (0, {}, [])
    unborn.printLevel()
    with pytest.raises(IndexError):
        unborn.getBlock(0, 0)
