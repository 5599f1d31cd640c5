"""The module itself: constants, exceptions, terminal colors, and its import."""
import zlib

import pytest

import helpers
import zelvarine
from zelvarine import EngineException, EngineSdlException, LevelFormatException


def test_keys_are_those_of_sdl():
    keys = {name: value for name, value in vars(zelvarine).items() if name.startswith("KEY_")}
    assert zlib.crc32(repr(sorted(keys.items())).encode()) == 0xC7108031  # all 236 of SDL_keycode.h
    assert (keys["KEY_A"], keys["KEY_RETURN"], keys["KEY_F12"]) == (97, 13, 1 << 30 | 69)


@pytest.mark.parametrize("family", [
    "MOUSE 1 LEFT MIDDLE RIGHT", "BLENDMODE 0 BLEND ADD", "TEXTURE 1 FLOOR CEILING NORTH EAST SOUTH WEST",
    "BLOCK 0 EMPTY SQUARE TRIANGLE_NORTH_WEST TRIANGLE_NORTH_EAST TRIANGLE_SOUTH_EAST TRIANGLE_SOUTH_WEST",
    "ALIGN 0 LEFT RIGHT CENTER", "VALIGN 0 TOP BOTTOM MIDDLE", "SIZE 0 AUTO FIXED GROW", "IMG_INIT 2 PNG",
    "LIST_LAYOUT 0 HORIZONTAL VERTICAL", "ANCHOR 0 LEFT RIGHT TOP BOTTOM CENTER",
    "SLIDER_ORIENTATION 0 HORIZONTAL VERTICAL",
])
def test_families_count_on(family):
    prefix, first, *members = family.split()
    expected = {prefix + "_" + name: int(first) + i for i, name in enumerate(members)}
    assert {name: value for name, value in vars(zelvarine).items() if name.startswith(prefix + "_")} == expected


def test_exceptions():
    assert str(EngineException((1, 2))) == 'EngineException("(1, 2)")'
    error = LevelFormatException("a.lvl", "bad")
    assert str(error) == "EngineException(Error while loading file 'a.lvl': \"bad\")"
    for pending in b"", b"no \"luck\" \xff":
        helpers.sdl.SDL_SetError(b"%s", pending)
        error = EngineSdlException("x")
        helpers.sdl.SDL_SetError(b"later")
        assert (error.error, str(error)) == (pending, 'EngineException<SDL Error>("x", "' + str(pending) + '")')


def test_import_that_fails_can_be_tried_again():
    result = helpers.runScript("""
import os
try:
    import zelvarine
except Exception as error:
    print(error)
os.environ["SDL_AUDIODRIVER"] = "dummy"
import zelvarine
zelvarine.Engine().init("t", (8, 8))""", SDL_AUDIODRIVER="none such")
    assert result.stdout.startswith('EngineException<SDL Error>("Could not initialize the engine.", "b')
    assert (result.returncode, result.stderr) == (0, "")


def test_each_color_and_its_background(capsys):
    for position, name in enumerate(["RED", "GREEN", "YELLOW", "BLUE", "MAGENTA", "CYAN", "WHITE"]):
        for suffix, first in ("", 31), ("_BG", 41):
            color = getattr(zelvarine, "TERMINAL_" + name + suffix)
            with pytest.raises(KeyError):
                with color as entered:
                    print("text")
                    raise KeyError  # passes after the reset
            assert entered is color and type(color) is zelvarine.TerminalColor
            assert capsys.readouterr().out == "\x1b[{}mtext\n\x1b[0m".format(first + position)
    zelvarine.clearTerminal()
    assert capsys.readouterr().out == "\x1b[2J\n"
