"""The module itself: constants, exceptions, names, and its import."""
import re

import pytest

import helpers
import zelvarine
from zelvarine import EngineException, EngineSdlException, LevelFormatException


class TestConstants:
    def testKeys(self):
        keys = {name[4:]: value for name, value in vars(zelvarine).items() if name.startswith("KEY_")}
        assert len(keys) == 236
        assert keys["A"] == 97 and keys["UNKNOWN"] == 0 and keys["DELETE"] == 127 and keys["ESCAPE"] == 27
        assert keys["F1"] == 0x4000003A and keys["UP"] == 0x40000052 and keys["RCTRL"] == 0x400000E4
        for name in ("Z", "0", "SPACE", "F24", "PAGEUP", "SLEEP"):  # SDL knows these by the same name
            assert keys[name] == helpers.sdl.SDL_GetKeyFromName(name.encode()), name

    @pytest.mark.parametrize("family, members", [
        ("MOUSE_", "LEFT 1 MIDDLE 2 RIGHT 3"),
        ("BLENDMODE_", "BLEND 0 ADD 1"),
        ("TEXTURE_", "FLOOR 1 CEILING 2 NORTH 3 EAST 4 SOUTH 5 WEST 6"),
        ("BLOCK_", "EMPTY 0 SQUARE 1 TRIANGLE_NORTH_WEST 2 TRIANGLE_NORTH_EAST 3 TRIANGLE_SOUTH_EAST 4 TRIANGLE_SOUTH_WEST 5"),
        ("ALIGN_", "LEFT 0 RIGHT 1 CENTER 2"),
        ("VALIGN_", "TOP 0 BOTTOM 1 MIDDLE 2"),
        ("SIZE_", "AUTO 0 FIXED 1 GROW 2"),
        ("LIST_LAYOUT_", "HORIZONTAL 0 VERTICAL 1"),
        ("ANCHOR_", "LEFT 0 RIGHT 1 TOP 2 BOTTOM 3 CENTER 4"),
        ("SLIDER_ORIENTATION_", "HORIZONTAL 0 VERTICAL 1"),
        ("IMG_INIT_", "PNG 2"),
    ])
    def testFamilies(self, family, members):
        expected = {family + name: int(value) for name, value in re.findall(r"(\w+) (\d)", members)}
        assert {name: value for name, value in vars(zelvarine).items() if name.startswith(family)} == expected


def testNamesOfTheModule():
    import json, math, os, sys, threading, time
    assert zelvarine.__doc__ == "\nZelvarine is a game engine with a raycasting renderer and some simple UI\ncapabilities.\n"
    bound = (zelvarine.Timer, zelvarine.time, zelvarine.math, zelvarine._json, zelvarine.os, zelvarine._ospath, zelvarine._sys)
    assert bound == (threading.Timer, time, math, json, os, os.path, sys)


class TestExceptions:
    def testTexts(self):
        assert str(EngineException("x")) == 'EngineException("x")'
        assert str(EngineException((1, 2))) == 'EngineException("(1, 2)")'
        error = LevelFormatException("a.lvl", "bad")
        assert str(error) == "EngineException(Error while loading file 'a.lvl': \"bad\")"
        assert (error.filename, error.msg) == ("a.lvl", "bad")

    @pytest.mark.parametrize("pending", [b"", b"no \"luck\" \xff"])
    def testSdlErrorIsThatOfTheMoment(self, pending):
        helpers.sdl.SDL_SetError(b"%s", pending)
        error = EngineSdlException("x")
        helpers.sdl.SDL_SetError(b"later")
        assert error.error == pending and error.msg == "x"
        assert str(error) == 'EngineException<SDL Error>("x", "' + str(pending) + '")'

    def testAllAreEngineExceptions(self):
        assert issubclass(EngineSdlException, EngineException) and issubclass(LevelFormatException, EngineException)


@pytest.mark.parametrize("variable", ["SDL_VIDEODRIVER", "SDL_AUDIODRIVER"])
def testImportThatFailsCanBeTriedAgain(variable):
    result = helpers.runScript("""
import os
variable = {!r}
works, os.environ[variable] = os.environ[variable], "none such"
for attempt in range(3):
    try:
        import zelvarine
    except Exception as error:
        assert type(error).__name__ == "EngineSdlException" and error.msg == "Could not initialize the engine.", error
        assert error.error
    else:
        raise AssertionError("the import worked")
os.environ[variable] = works
import zelvarine
engine = zelvarine.Engine()
engine.init("t", (8, 8))
engine.update()
assert zelvarine.Engine.version == 0.1 and str(zelvarine.EngineSdlException("x"))
""".format(variable))
    assert (result.returncode, result.stderr) == (0, "")
