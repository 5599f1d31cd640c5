"""Levels in memory: the grid of cells, textures, fog, the printed map."""

import pytest
from helpers import cells, fog
from zelvarine import BLOCK_SQUARE, BLOCK_TRIANGLE_NORTH_EAST, TEXTURE_CEILING, TEXTURE_FLOOR, TEXTURE_WEST
from zelvarine import Level, Texture

ROOM = {"width": 30, "height": 30, "fogColor": [0, 0, 0], "fogDensity": 5}


@pytest.fixture
def level(capsys):
    made = Level()
    capsys.readouterr()
    return made


def test_an_empty_level_is_a_room_with_a_checker(level):
    assert (level.filename, level._assetsPath, level.metadata, level.getSize()) == ("???", None, ROOM, (30, 30))
    ring = bytearray(6300)
    for i in range(30):
        for x, y in ((i, 0), (i, 29), (0, i), (29, i)):
            ring[(y * 30 + x) * 7] = BLOCK_SQUARE
    assert cells(level) == ring and fog(level) == ((0, 0, 0), 5, (255, 255, 255), 0)
    pixels = memoryview(level.getTexture(TEXTURE_FLOOR, 1, 1))
    assert (pixels.shape, pixels[0, 0], pixels[0, 63]) == ((64, 64), 0xFF333333, 0xFFAAAAAA)


def test_one_byte_of_one_cell_changes(level):
    expected = bytearray(cells(level))
    level.setBlock(BLOCK_TRIANGLE_NORTH_EAST, x=3, y=4)
    level.setTextureIndex(300, cardinalDirection=TEXTURE_CEILING, x=3, y=4)
    level.setTextureIndex(-1, TEXTURE_WEST, 3, 4)
    start = (4 * 30 + 3) * 7
    expected[start], expected[start + 2], expected[start + 6] = 3, 44, 255
    assert cells(level) == expected and level.getBlock(3, 4) == 3
    assert level.getTexture(0, 3, 4) is None
    level.textures.extend([Texture(1, 1)] * 3)
    assert level.getTexture(0, 3, 4) is level.textures[3]
    for where in (0, 30, 0), (0, 0, 30), (0, -1, 0), (0, 0, -1), (7, 0, 0), (-1, 1, 1):
        with pytest.raises(IndexError):
            level.getTexture(*where)


def test_fog_changes_the_level_and_not_its_metadata(level):
    level.fogColor, level.groundFogColor = [1, 2, 300], (value for value in (4, True, 6))
    level.fogDensity, level.groundFogDensity = 7.9, -3
    for bad, error in ((1, 2), ValueError), ((1, 2, 3, 4), ValueError), ((1, 2, 3.0), TypeError):
        with pytest.raises(error):
            level.fogColor = bad
    assert fog(level) == ((1, 3, 44), 7, (4, 1, 6), -3) and level.metadata == ROOM


def test_printed_maps(capsys):
    level = Level()
    lines = capsys.readouterr().out.split("\n")
    assert lines[:3] == ["INIT EMPTY LEVEL", "    " + "".join("%d " % x for x in range(30)), "  0 " + "■ " * 30]
    for block in range(6):
        level.setBlock(block, 5 + block, 1)
    level.printLevel()
    assert capsys.readouterr().out.split("\n")[:3:2] == [
        "    " + "0 1 2 3 4 5 6 7 8 9 " * 3, "  1 ■ □ □ □ □ □ ■ ◤ ◥ ◣ ◢ " + "□ " * 18 + "■ "]
