"""The theme file of the widgets."""

import json
import os

import pytest
from helpers import DEJAVU, needsFont
from zelvarine import Texture, UITheme


@pytest.fixture
def write_theme(tmp_path):
    """Writes a theme file, complete but for the keys given as None, and gives its name."""
    Texture(4, 4).saveFile(str(tmp_path / "tiles.png"))

    def write(**keys):
        content = {"widgets": {}, "tileset": "tiles.png", "fonts": {}, "colors": {}}
        content.update(keys)
        path = tmp_path / "theme.json"
        path.write_text(json.dumps({key: value for key, value in content.items() if value is not None}))
        return str(path)

    return write


@pytest.mark.parametrize("value, word, channels", [
    ("FF102030", 0xFF102030, (16, 32, 48, 255)), ("0XFf102030", 0xFF102030, (16, 32, 48, 255)),
    (102030, 0x102030, (16, 32, 48, 0)), ("123456789A", 0x123456789A, (0x56, 0x78, 0x9A, 0x34))])
def test_colors_as_words_and_as_channels(write_theme, value, word, channels):
    theme = UITheme(write_theme(colors={"fontColor": value}))
    assert theme.getIntColor("fontColor") == getattr(theme, "__convertHex")(value) == word
    assert theme.getColor("fontColor") == getattr(theme, "__convertColor")(word) == channels
    assert theme._convertRgbaToIntColor(channels) == word & 0xFFFFFFFF
    assert theme._convertRgbaToIntColor([1, 2, 3]) == 0xFF010203
    with pytest.raises(ValueError):
        theme._convertRgbaToIntColor((1, 2, 3, 4, 5))


def test_files_are_relative_to_the_theme_file(write_theme, monkeypatch, tmp_path):
    theme = write_theme()
    for folder in str(tmp_path), "/":
        monkeypatch.chdir(folder)
        UITheme(os.path.relpath(theme))
    UITheme(write_theme(tileset=str(tmp_path / "tiles.png")))


@needsFont
def test_fonts_by_name(write_theme, tmp_path):
    os.symlink(DEJAVU, str(tmp_path / "near.ttf"))
    theme = UITheme(write_theme(fonts={"near": {"file": "near.ttf", "size": 9}, "far": {"file": DEJAVU, "size": 20}}))
    fonts = [theme.getFont(name) for name in ("near", "far")]
    assert [(f.filename, f.size) for f in fonts] == [(str(tmp_path / "near.ttf"), 9), (DEJAVU, 20)]


@pytest.mark.parametrize("keys, error", [
    ({"widgets": None}, KeyError), ({"tileset": None}, KeyError), ({"fonts": None}, KeyError),
    ({"colors": None}, KeyError), ({"fonts": {"a": {"file": DEJAVU}}}, KeyError), ({"widgets": []}, TypeError),
    ({"tileset": "missing.png"}, IOError), ({"colors": {"a": "red"}}, ValueError)])
def test_failures_leave_the_theme_as_it_was(write_theme, keys, error):
    theme = UITheme(write_theme(widgets={"kept": {"x": [1]}}, colors={"kept": "12"}))
    with pytest.raises(error):
        theme.__init__(write_theme(**keys))
    assert theme.widgets == {"kept": {"x": [1]}} and theme.getIntColor("kept") == 0x12
    for look_up in theme.getFont, theme.getColor, theme.getIntColor:
        with pytest.raises(KeyError):
            look_up("missing")
