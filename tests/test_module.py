"""The module itself: constants, exceptions, names, and its import."""
import pytest

import helpers
import zelvarine
from zelvarine import EngineException, EngineSdlException, LevelFormatException


SIGNS = dict(zip("EXCLAIM QUOTEDBL HASH PERCENT DOLLAR AMPERSAND QUOTE LEFTPAREN RIGHTPAREN ASTERISK MULTIPLY PLUS COMMA MINUS "
                 "PERIOD SLASH DIVIDE COLON SEMICOLON LESS EQUALS GREATER QUESTION AT LEFTBRACKET BACKSLASH RIGHTBRACKET CARET "
                 "UNDERSCORE BACKQUOTE LEFTBRACE RIGHTBRACE VERTICALBAR".split(), "!\"#%$&'()**+,-.//:;<=>?@[\\]^_`{}|"))
NAMES = dict(UNKNOWN="", RETURN2="return", NUMLOCKCLEAR="numlock", MODE="modeswitch", CLEARAGAIN="clear/again", KP_POWER="keypad^",
             KP_EQUALSAS400="keypad=(as400)", KP_PLUSMINUS="keypad+/-", KP_EXCLAM="keypad!", KP_DBLAMPERSAND="keypad&&",
             KP_DBLVERTICALBAR="keypad||")
NAMES.update({side[0] + key: (side + key).lower() for side in ("LEFT", "RIGHT") for key in ("CTRL", "SHIFT", "ALT", "GUI")})


def test_keys_are_those_of_sdl():
    keys = {name[4:]: value for name, value in vars(zelvarine).items() if name.startswith("KEY_")}
    assert len(keys) == len(set(keys.values())) == 236 and keys["RETURN"] == 13
    for name, value in keys.items():
        keypad, word = ("keypad", name[3:]) if name.startswith("KP_") else ("", name)
        expected = NAMES.get(name, keypad + SIGNS.get(word, word.replace("_", "").lower()))
        assert helpers.sdl.SDL_GetKeyName(value).decode().replace(" ", "").lower() == expected


@pytest.mark.parametrize("family, first, members", [
    ("MOUSE_", 1, "LEFT MIDDLE RIGHT"), ("BLENDMODE_", 0, "BLEND ADD"),
    ("TEXTURE_", 1, "FLOOR CEILING NORTH EAST SOUTH WEST"),
    ("BLOCK_", 0, "EMPTY SQUARE TRIANGLE_NORTH_WEST TRIANGLE_NORTH_EAST TRIANGLE_SOUTH_EAST TRIANGLE_SOUTH_WEST"),
    ("ALIGN_", 0, "LEFT RIGHT CENTER"), ("VALIGN_", 0, "TOP BOTTOM MIDDLE"), ("SIZE_", 0, "AUTO FIXED GROW"),
    ("LIST_LAYOUT_", 0, "HORIZONTAL VERTICAL"), ("ANCHOR_", 0, "LEFT RIGHT TOP BOTTOM CENTER"),
    ("SLIDER_ORIENTATION_", 0, "HORIZONTAL VERTICAL"), ("IMG_INIT_", 2, "PNG")])
def test_families_count_on(family, first, members):
    expected = {family + name: first + i for i, name in enumerate(members.split())}
    assert {name: value for name, value in vars(zelvarine).items() if name.startswith(family)} == expected


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
