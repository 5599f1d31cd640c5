"""Levels in memory: the grid of cells, textures, fog, the printed map."""

import pytest
from helpers import cells, fog
from scenes import room
from zelvarine import BLOCK_TRIANGLE_NORTH_EAST, TEXTURE_CEILING, TEXTURE_FLOOR, TEXTURE_WEST, Level


def test_an_empty_level_is_a_room_with_a_checker_and_fog():
    level = Level()
    assert (level.filename, level._assetsPath, level.getSize()) == ("???", None, (30, 30))
    assert cells(level) == room(30, 30).cells and fog(level) == ((0, 0, 0), 5, (255, 255, 255), 0)
    pixels = memoryview(level.getTexture(TEXTURE_FLOOR, 1, 1))
    assert (pixels.shape, pixels[0, 0], pixels[0, 63], pixels[63, 63]) == ((64, 64), 0xFF333333, 0xFFAAAAAA, 0xFF333333)
    level.fogColor, level.groundFogColor = [1, 2, 300], (value for value in (4, True, 6))
    level.fogDensity, level.groundFogDensity = 7.9, -3
    pytest.raises(TypeError, setattr, level, "fogColor", (1, 2, 3.0))
    assert fog(level) == ((1, 3, 44), 7, (4, 1, 6), -3)
    assert level.metadata == {"width": 30, "height": 30, "fogColor": [0, 0, 0], "fogDensity": 5}


def test_one_byte_of_one_cell_changes():
    level = Level()
    expected = bytearray(cells(level))
    level.setBlock(BLOCK_TRIANGLE_NORTH_EAST, x=3, y=4)
    level.setTextureIndex(300, cardinalDirection=TEXTURE_CEILING, x=3, y=4)
    level.setTextureIndex(-1, TEXTURE_WEST, 3, 4)
    start = (4 * 30 + 3) * 7
    expected[start], expected[start + 2], expected[start + 6] = 3, 44, 255
    assert cells(level) == expected
    assert level.getTexture(0, 0, 0) is None  # number 1
    level.textures.append("second")
    assert level.getTexture(0, 0, 0) == "second"


def test_printed_maps(capsys):
    level = Level()
    lines = capsys.readouterr().out.split("\n")
    assert lines[:3] == ["INIT EMPTY LEVEL", "    " + "".join("%d " % x for x in range(30)), "  0 " + "■ " * 30]
    for block in range(6):
        level.setBlock(block, 5 + block, 1)
    level.printLevel()
    assert capsys.readouterr().out.split("\n")[:3:2] == [
        "    " + "0 1 2 3 4 5 6 7 8 9 " * 3, "  1 ■ □ □ □ □ □ ■ ◤ ◥ ◣ ◢ " + "□ " * 18 + "■ "]
