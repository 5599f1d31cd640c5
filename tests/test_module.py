"""The module itself: constants, exceptions, terminal colors, and its import."""
import zlib

import pytest

import helpers
import zelvarine
from zelvarine import EngineException, EngineSdlException, LevelFormatException


def test_constants():
    """All names and numbers at once: 236 keys of SDL_keycode.h, 3 mouse buttons, and 33 of the engine."""
    found = sorted((name, value) for name, value in vars(zelvarine).items() if name.isupper() and type(value) is int)
    assert len(found) == 272 and zlib.crc32(repr(found).encode()) == 0x1F0AF8B4, found


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
    printed = helpers.run_script("""
import os
try:
    import zelvarine
except Exception as error:
    print(error)
os.environ["SDL_AUDIODRIVER"] = "dummy"
import zelvarine
zelvarine.Engine().init("t", (8, 8))""", SDL_AUDIODRIVER="none such")
    assert printed.startswith('EngineException<SDL Error>("Could not initialize the engine.", "b')


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
