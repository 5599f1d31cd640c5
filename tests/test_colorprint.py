"""Colors on the terminal."""

import pytest
import zelvarine


def test_each_color_and_its_background(capsys):
    for position, name in enumerate(["RED", "GREEN", "YELLOW", "BLUE", "MAGENTA", "CYAN", "WHITE"]):
        for suffix, first in ("", 31), ("_BG", 41):
            color = getattr(zelvarine, "TERMINAL_" + name + suffix)
            with color as entered:
                print("text")
            assert entered is color and type(color) is zelvarine.TerminalColor
            assert capsys.readouterr().out == "\x1b[{}mtext\n\x1b[0m".format(first + position)


def test_an_exception_passes_after_the_reset(capsys):
    with pytest.raises(KeyError):
        with zelvarine.TerminalColor("\x1b[1m"):
            raise KeyError
    zelvarine.clearTerminal()
    assert capsys.readouterr().out == "\x1b[1m\x1b[0m\x1b[2J\n"
