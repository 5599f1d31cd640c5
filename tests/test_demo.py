"""The demo game and the gallery of widgets, played by their scripts."""

import pathlib
import re

import zelvarine
from helpers import run_script

EXAMPLES = pathlib.Path(__file__).resolve().parent.parent / "examples"


def pictures(folder):
    return {path.stem[3:]: bytes(zelvarine.Texture(str(path))) for path in folder.glob("[0-9]*.png")}


def colors(picture):
    return {picture[i:i + 3] for i in range(0, len(picture), 4)}


def test_scripted_walk(tmp_path):
    text = run_script(str(EXAMPLES / "walk.py"), "--headless", "--size", "320x200", "--pictures", str(tmp_path),
                     "--save", str(tmp_path / "saved.lvl"))
    found = int(re.search(r"(\d+) of 11 gems", text).group(1))
    assert found >= 5
    seen = pictures(tmp_path)
    restored = zip(seen.pop("back-at-the-gate"), seen["gate"])
    assert sum(abs(a - b) for a, b in restored) < 10 * 320 * 200 * 3  # fires flicker in the meantime
    assert len(set(seen.values())) == len(seen) >= 11
    assert all(len(picture) == 320 * 200 * 4 and len(colors(picture)) > 500 for picture in seen.values())
    chimes, left, right = map(int, re.findall(r"(?:chime|step1|step2) (\d+) times", text))
    assert chimes == found + 1  # one gem was found twice: the saved game has it still
    assert left > 50 and right in (left, left - 1)
    for words in "An old tree", "A hedge", "Grass", "The evening sky", "A clockwork warden":
        assert re.search("^.*%s.*[.!]$" % words, text, re.MULTILINE), words
    assert "music at 56 of 128" in text and re.search(r"list of games moved by [1-9]\d* and [1-9]", text)
    assert zelvarine.Texture(str(tmp_path / "screenshot-1.png")).getSize() == (320, 200)


def test_keys_and_messages(tmp_path, monkeypatch):
    monkeypatch.chdir(EXAMPLES)
    run_script("""if True:
        from abbey import controls, files, game
        from shared import places, puppet, themes
        engine, held, mine = puppet.PuppetEngine(), set(), files.Files(places.LEVEL, %r, "")
        engine.isKeyPressed = held.__contains__
        abbey = game.Game(engine, themes.load_theme(), mine, (320, 200))
        abbey.start(controls.Controls(engine))
        up, enter, escape, f5 = 0x40000052, 13, 27, 0x4000003E
        walks = lambda *keys: engine.press(*keys) or abbey.hud in engine.ecs.getSystems()
        shown = abbey.messages.widget.getChildren
        assert not walks(escape) and not shown() and walks(up, enter) and shown()
        assert walks(f5) and not abbey.messages.update(9) and not shown()
        assert not held.add(escape) and not walks(escape, escape)  # it is held, and repeats
        assert [files.label(path) for path in mine.saved()] == ["quick save"] and mine.levels() == [places.LEVEL]
    """ % str(tmp_path / "quick-save.lvl"))


def test_folder_for_saved_games(monkeypatch):
    monkeypatch.syspath_prepend(str(EXAMPLES))
    from shared import places
    for platform, value, base in (("linux", "/data", "/data"), ("linux", "data", "/me/.local/share"),
                                  ("darwin", "/data", "/me/Library/Application Support"), ("win32", "/data", "/data")):
        monkeypatch.setattr("sys.platform", platform)
        monkeypatch.setattr("os.environ", {"HOME": "/me", "XDG_DATA_HOME": value, "APPDATA": value})
        assert places.data_folder("abbey") == base + "/abbey"


def test_gallery_answers_the_mouse(tmp_path):
    text = run_script(str(EXAMPLES / "widgets.py"), "--headless", "--pictures", str(tmp_path))
    red, green, blue, alpha, width, height = map(int, re.search(
        r"color (\d+), (\d+), (\d+), alpha (\d+), picture (\d+) by (\d+)", text).groups())
    assert red < 30 and 80 < green < 110 and blue > 230 and 140 < alpha < 170 and width > 180 and height == 110
    assert re.search(r"scrolled to \d{4}, 100 and 150, and pressed", text)
    seen = pictures(tmp_path)
    assert len(set(seen.values())) == len(seen) == 9
    assert bytes([blue, green, red]) in colors(seen["sliders-moved"])  # the mixed color, in the order of its word
