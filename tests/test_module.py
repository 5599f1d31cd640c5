"""The module itself: constants, exceptions, names, and its import."""

import pytest

import helpers
import zelvarine
from zelvarine import EngineException, EngineSdlException, LevelFormatException


def testKeys():
    keys = {name[4:]: value for name, value in vars(zelvarine).items() if name.startswith("KEY_")}
    assert len(keys) == 236 and keys["UNKNOWN"] == 0 and keys["RCTRL"] == 0x400000E4
    # SDL finds most keys under the name of the constant as well.
    for name in ("A", "Z", "0", "ESCAPE", "DELETE", "SPACE", "RETURN", "F1", "F24", "UP", "PAGEUP", "HOME", "MUTE"):
        assert keys[name] == helpers.sdl.SDL_GetKeyFromName(name.encode()), name


@pytest.mark.parametrize("family, first, members", [
    ("MOUSE_", 1, "LEFT MIDDLE RIGHT"), ("BLENDMODE_", 0, "BLEND ADD"),
    ("TEXTURE_", 1, "FLOOR CEILING NORTH EAST SOUTH WEST"),
    ("BLOCK_", 0, "EMPTY SQUARE TRIANGLE_NORTH_WEST TRIANGLE_NORTH_EAST TRIANGLE_SOUTH_EAST TRIANGLE_SOUTH_WEST"),
    ("ALIGN_", 0, "LEFT RIGHT CENTER"), ("VALIGN_", 0, "TOP BOTTOM MIDDLE"), ("SIZE_", 0, "AUTO FIXED GROW"),
    ("LIST_LAYOUT_", 0, "HORIZONTAL VERTICAL"), ("ANCHOR_", 0, "LEFT RIGHT TOP BOTTOM CENTER"),
    ("SLIDER_ORIENTATION_", 0, "HORIZONTAL VERTICAL"), ("IMG_INIT_", 2, "PNG")])
def testFamiliesCountOn(family, first, members):
    expected = {family + name: first + i for i, name in enumerate(members.split())}
    assert {name: value for name, value in vars(zelvarine).items() if name.startswith(family)} == expected


def testExceptions():
    assert str(EngineException((1, 2))) == 'EngineException("(1, 2)")'
    error = LevelFormatException("a.lvl", "bad")
    assert str(error) == "EngineException(Error while loading file 'a.lvl': \"bad\")"
    for pending in b"", b"no \"luck\" \xff":
        helpers.sdl.SDL_SetError(b"%s", pending)
        error = EngineSdlException("x")
        helpers.sdl.SDL_SetError(b"later")
        assert (error.error, str(error)) == (pending, 'EngineException<SDL Error>("x", "' + str(pending) + '")')


def testImportThatFailsCanBeTriedAgain():
    result = helpers.runScript("""
import os
works, os.environ["SDL_AUDIODRIVER"] = os.environ["SDL_AUDIODRIVER"], "none such"
try:
    import zelvarine
except Exception as error:
    assert str(error).startswith('EngineException<SDL Error>("Could not initialize the engine.", "b'), error
os.environ["SDL_AUDIODRIVER"] = works
import zelvarine
zelvarine.Engine().init("t", (8, 8))
""")
    assert (result.returncode, result.stderr) == (0, "")
