"""Colors on the terminal."""
import pytest
import zelvarine


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
