"""The theme file of the widgets."""
import os

import pytest
from helpers import DEJAVU, needs_font
from ui_reference import WIDGETS, write_theme
from zelvarine import UITheme


@pytest.mark.parametrize("value, word, channels", [
    ("FF102030", 0xFF102030, (16, 32, 48, 255)), ("0XFf102030", 0xFF102030, (16, 32, 48, 255)),
    (102030, 0x102030, (16, 32, 48, 0)), ("123456789A", 0x123456789A, (0x56, 0x78, 0x9A, 0x34))])
def test_colors_as_words_and_as_channels(tmp_path, value, word, channels):
    theme = UITheme(write_theme(tmp_path, colors={"fontColor": value}))
    assert theme.getIntColor("fontColor") == getattr(theme, "__convertHex")(value) == word
    assert theme.getColor("fontColor") == getattr(theme, "__convertColor")(word) == channels
    assert theme._convertRgbaToIntColor(channels) == word & 0xFFFFFFFF
    assert theme._convertRgbaToIntColor([1, 2, 3]) == 0xFF010203
    pytest.raises(ValueError, theme._convertRgbaToIntColor, (1, 2, 3, 4, 5))
    for look_up in theme.getFont, theme.getColor, theme.getIntColor:
        pytest.raises(KeyError, look_up, "missing")


@needs_font
def test_files_are_relative_to_the_theme_file(tmp_path, monkeypatch):
    os.symlink(DEJAVU, str(tmp_path / "near.ttf"))
    fonts = {"near": {"file": "near.ttf", "size": 9}, "far": {"file": DEJAVU, "size": 20}}
    name = write_theme(tmp_path, fonts=fonts, tileset=str(tmp_path / "tiles.png"))
    near, far = map(UITheme(name).getFont, ("near", "far"))
    assert (near.filename, near.size, far.filename, far.size) == (str(tmp_path / "near.ttf"), 9, DEJAVU, 20)
    monkeypatch.chdir(str(tmp_path))
    UITheme(os.path.basename(write_theme(tmp_path)))  # its folder has no name


@pytest.mark.parametrize("keys, error", [
    ({"widgets": None}, KeyError), ({"widgets": []}, TypeError), ({"tileset": None}, KeyError),
    ({"tileset": "missing.png"}, IOError), ({"fonts": None}, KeyError), ({"fonts": {"a": {"file": DEJAVU}}}, KeyError),
    ({"colors": None}, KeyError), ({"colors": {"good": "12", "bad": "red"}}, ValueError)])
def test_what_a_theme_has_read_before_a_failure(tmp_path, keys, error):
    theme = UITheme.__new__(UITheme)
    pytest.raises(error, theme.__init__, write_theme(tmp_path, **keys))
    assert theme.widgets == ({} if "widgets" in keys else WIDGETS)
    if error is ValueError:
        assert theme.getIntColor("good") == 0x12
