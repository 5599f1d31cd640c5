"""The demo game: its assets are what their script makes, and its scripted walk goes all the way."""

import importlib
import json
import os
import re
import subprocess
import sys
import wave

import pytest

import zelvarine

EXAMPLES = os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(__file__))), "examples")
ASSETS = os.path.join(EXAMPLES, "assets")


def read(path):
    with open(os.path.join(ASSETS, path), "rb") as file:
        return file.read()


@pytest.fixture
def make_assets(monkeypatch):
    pytest.importorskip("numpy")
    monkeypatch.syspath_prepend(EXAMPLES)
    return importlib.import_module("make_assets")


# Half of the time that it takes to draw everything.
EXPENSIVE = ["sprites/automaton.png", "textures/bookshelf.png", "sky.png"]


def test_committed_assets_are_what_the_script_makes(make_assets, tmp_path):
    for path, draw in make_assets.pictures():
        committed = make_assets.png.load(os.path.join(ASSETS, path))
        if path not in EXPENSIVE:
            pixels = draw()
            assert committed.shape == pixels.shape and (committed == pixels).all(), path
    for path, samples in make_assets.recordings():
        make_assets.sounds.save(str(tmp_path / "sound.wav"), samples)
        with wave.open(os.path.join(ASSETS, path)) as committed, wave.open(str(tmp_path / "sound.wav")) as made:
            assert committed.getparams() == made.getparams(), path
            assert committed.readframes(10 ** 9) == made.readframes(10 ** 9), path
    for path, data in make_assets.data_files():
        assert read(path) == data, path


def run(example, *options):
    command = [sys.executable, os.path.join(EXAMPLES, example)] + list(options)
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, universal_newlines=True, timeout=300)


@pytest.fixture(scope="module")
def tour(tmp_path_factory):
    """What the scripted walk prints, and the folder that it leaves."""
    folder = tmp_path_factory.mktemp("walk")
    done = run("walk.py", "--headless", "--size", "320x200", "--pictures", str(folder),
               "--save", str(folder / "saved.lvl"))
    assert (done.returncode, done.stderr) == (0, "")
    return done.stdout, folder


def pixels(path):
    content = bytes(memoryview(zelvarine.Texture(str(path))))
    return [content[i:i + 3] for i in range(0, len(content), 4)]


def test_scripted_walk_goes_round_and_saves_pictures(tour):
    text, folder = tour
    frames, found = (int(re.search(r"(\d+) " + what, text).group(1)) for what in ("frames of 320x200", "of 11 gems"))
    assert frames > 300 and found >= 5
    pictures = sorted(folder.glob("[0-9]*.png"))
    assert len(pictures) >= 12
    contents = {path.stem[3:]: pixels(path) for path in pictures}
    restored = contents.pop("back-at-the-gate")
    # Fires flicker in the meantime.
    differences = [abs(a - b) for pair in zip(restored, contents["gate"]) for a, b in zip(*pair)]
    assert sum(differences) < 10 * len(differences)
    assert len(set(map(tuple, contents.values()))) == len(contents)
    assert all(len(content) == 320 * 200 and len(set(content)) > 500 for content in contents.values())


def test_scripted_walk_plays_sounds_picks_and_saves(tour):
    text, folder = tour
    chimes, left, right = (int(re.search(sound + r" (\d+) times", text).group(1))
                           for sound in ("chime", "step1", "step2"))
    found = int(re.search(r"(\d+) of 11 gems", text).group(1))
    assert chimes == found + 1  # one gem was found twice: the saved game has it still
    assert left > 50 and right in (left, left - 1)
    for words in (r"tree \d+ before the ", r"^east face of cell \(14, 18\)$", r"^floor of cell \(16, 1\d\) at ",
                  "^sky$"):
        assert re.search(words, text, re.MULTILINE), words
    assert "music at 64 of 128" in text and re.search(r"list of levels moved by [1-9]", text)
    with open(str(folder / "saved.lvl.json")) as file:
        player = [entity for entity in json.load(file)["entities"] if entity["id"] == 1][0]
    assert player["purse"]["gems"] >= 1 and abs(player["position"]["x"] - 18.6) < 0.2
    assert zelvarine.Texture(str(folder / "screenshot-1.png")).getSize() == (320, 200)
    assert text.index("fullscreen") < text.index("screenshot-2.png") < text.index("window")


def test_gallery_answers_the_mouse(tmp_path):
    done = run("widgets.py", "--headless", "--pictures", str(tmp_path))
    assert (done.returncode, done.stderr) == (0, "")
    red, green, blue, alpha, width, height = map(int, re.search(
        r"colour (\d+), (\d+), (\d+), alpha (\d+), picture (\d+) by (\d+)", done.stdout).groups())
    assert red < 30 and 80 < green < 110 and blue > 230 and 140 < alpha < 170 and width > 180 and height == 110
    positions = re.search(r"scrolled to (\d+), (\d+) and (\d+), and pressed", done.stdout).groups()
    assert int(positions[0]) > 1000 and positions[1:] == ("100", "150")
    pictures = sorted(tmp_path.glob("*.png"))
    contents = {tuple(pixels(path)) for path in pictures}
    assert len(contents) == len(pictures) == 9
    # The mixed colour is to be seen; the bytes of a pixel are in the order of its word.
    assert bytes([blue, green, red]) in pixels(tmp_path / "08-sliders-moved.png")


def test_missing_font(tmp_path):
    done = run("widgets.py", "--headless", "--font", str(tmp_path / "no.ttf"))
    assert done.returncode == 1 and "no.ttf" in done.stderr and "Traceback" not in done.stderr


class Stick(zelvarine.Joystick):
    """A gamepad whose sticks are where a script puts them."""

    def __init__(self, **axes):
        super().__init__("stick", 6, 10)
        self.values = {int(axis[1:]): value for axis, value in axes.items()}

    def getAxis(self, axis):
        return self.values.get(axis, 0.0)


@pytest.mark.parametrize("stick, forward, aside, turn", [
    (Stick(a0=0.5, a1=-1.0), 1.0, 0.5, 0.0),
    (Stick(a0=0.1, a1=-0.1, a3=0.75), 0.0, 0.0, 0.75),
    (Stick(a2=-1.0), 0.0, 0.0, 0.0),  # the trigger at rest
])
def test_gamepad(monkeypatch, stick, forward, aside, turn):
    monkeypatch.syspath_prepend(EXAMPLES)
    engine = zelvarine.Engine()
    gamepad = importlib.import_module("abbey.gamepad").Gamepad(engine)
    assert (gamepad.forward, gamepad.aside, gamepad.turn) == (0.0, 0.0, 0.0)
    engine.fireEvent(zelvarine.JoystickAddedEvent(stick))
    assert (gamepad.forward, gamepad.aside, gamepad.turn) == (forward, aside, turn)


def test_missing_level(tmp_path):
    done = run("walk.py", "--headless", "--level", str(tmp_path / "no.lvl"))
    assert done.returncode == 1 and "no.lvl" in done.stderr and "Traceback" not in done.stderr


def test_help_and_bad_options_need_no_screen():
    assert "--headless" in run("walk.py", "--help").stdout
    assert run("walk.py", "--size", "9x9").returncode == 2
