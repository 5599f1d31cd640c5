"""Colours on the terminal."""

import pytest
import zelvarine

RESET = "\x1b[0m"


@pytest.mark.parametrize("position, name", enumerate(["RED", "GREEN", "YELLOW", "BLUE", "MAGENTA", "CYAN", "WHITE"]))
def test_each_colour_and_its_background(capsys, position, name):
    for suffix, first in ("", 31), ("_BG", 41):
        colour = getattr(zelvarine, "TERMINAL_" + name + suffix)
        for _ in range(2):
            with colour as entered:
                print("text")
            assert entered is colour and type(colour) is zelvarine.TerminalColor
            assert capsys.readouterr().out == "\x1b[{}mtext\n{}".format(first + position, RESET)


def test_an_exception_passes_after_the_reset(capsys):
    with pytest.raises(KeyError):
        with zelvarine.TerminalColor("\x1b[1m"):
            raise KeyError
    assert capsys.readouterr().out == "\x1b[1m" + RESET


def test_clearing_ends_the_line(capsys):
    zelvarine.clearTerminal()
    assert capsys.readouterr().out == "\x1b[2J\n"
