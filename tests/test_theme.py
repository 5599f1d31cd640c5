"""The theme file of the widgets."""

import json
import os

import pytest
from zelvarine import Texture, UITheme

DEJAVU = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"


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
    ("FF102030", 0xFF102030, (16, 32, 48, 255)),
    ("0XFf102030", 0xFF102030, (16, 32, 48, 255)),
    (102030, 0x102030, (16, 32, 48, 0)),
    ("123456789A", 0x123456789A, (0x56, 0x78, 0x9A, 0x34))])
def test_colours_as_words_and_as_channels(write_theme, value, word, channels):
    theme = UITheme(write_theme(colors={"fontColor": value}))
    assert theme.getIntColor("fontColor") == getattr(theme, "__convertHex")(value) == word
    assert theme.getColor("fontColor") == getattr(theme, "__convertColor")(word) == channels


def test_words_from_channels(write_theme):
    convert = UITheme(write_theme())._convertRgbaToIntColor
    assert convert((1, 2, 3)) == 0xFF010203
    assert convert([1, 2, 3, 4]) == 0x04010203
    for bad, error in ((1, 2), ValueError), ((1, 2, 3, 4, 5), ValueError), (("r", 2, 3), TypeError), (5, TypeError):
        with pytest.raises(error):
            convert(bad)


def test_files_are_relative_to_the_theme_file(write_theme, monkeypatch, tmp_path):
    theme = write_theme()
    monkeypatch.chdir(tmp_path)
    UITheme("theme.json")
    monkeypatch.chdir("/")
    UITheme(os.path.relpath(theme))
    UITheme(write_theme(tileset=str(tmp_path / "tiles.png")))


@pytest.mark.skipif(not os.path.exists(DEJAVU), reason="needs the font of Debian's package fonts-dejavu-core")
def test_fonts_by_name(write_theme, tmp_path):
    os.symlink(DEJAVU, str(tmp_path / "near.ttf"))
    theme = UITheme(write_theme(fonts={"near": {"file": "near.ttf", "size": 9}, "far": {"file": DEJAVU, "size": 20}}))
    fonts = [theme.getFont(name) for name in ("near", "far")]
    assert [(f.filename, f.size) for f in fonts] == [(str(tmp_path / "near.ttf"), 9), (DEJAVU, 20)]


@pytest.mark.parametrize("keys, error", [
    ({"widgets": None}, KeyError),
    ({"tileset": None}, KeyError),
    ({"fonts": None}, KeyError),
    ({"colors": None}, KeyError),
    ({"fonts": {"a": {"file": DEJAVU}}}, KeyError),
    ({"fonts": {"a": {"size": 3}}}, KeyError),
    ({"fonts": {"a": {"file": "tiles.png", "size": 3}}}, IOError),
    ({"widgets": []}, TypeError),
    ({"tileset": "missing.png"}, IOError),
    ({"tileset": 5}, TypeError),
    ({"colors": {"a": "red"}}, ValueError),
    ({"colors": {"a": None}}, ValueError)])
def test_failures_leave_the_theme_as_it_was(write_theme, keys, error):
    theme = UITheme(write_theme(widgets={"kept": {"x": [1]}}, colors={"kept": "12"}))
    with pytest.raises(error):
        theme.__init__(write_theme(**keys))
    assert theme.widgets == {"kept": {"x": [1]}} and theme.getIntColor("kept") == 0x12


def test_names_that_a_theme_lacks(write_theme):
    for theme in UITheme(write_theme()), UITheme.__new__(UITheme):
        for look_up in theme.getFont, theme.getColor, theme.getIntColor:
            with pytest.raises(KeyError):
                look_up("missing")


def test_files_that_are_no_themes(tmp_path):
    with pytest.raises(FileNotFoundError):
        UITheme(str(tmp_path / "missing.json"))
    (tmp_path / "broken.json").write_text("{")
    with pytest.raises(ValueError):
        UITheme(str(tmp_path / "broken.json"))
