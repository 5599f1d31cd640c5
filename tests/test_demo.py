"""The demo game: its assets are what their script makes, and its scripted walk goes all the way."""

import importlib
import json
import os
import re
import subprocess
import sys

import pytest

import zelvarine

EXAMPLES = os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(__file__))), "examples")
ASSETS = os.path.join(EXAMPLES, "assets")


# Half of the time that it takes to draw everything.
EXPENSIVE = ["sprites/automaton.png", "textures/bookshelf.png", "sky.png"]


def test_committed_assets_are_what_the_script_makes(monkeypatch, tmp_path):
    pytest.importorskip("numpy")
    monkeypatch.syspath_prepend(EXAMPLES)
    make_assets = importlib.import_module("make_assets")
    for path, draw in make_assets.pictures():
        committed = make_assets.png.load(os.path.join(ASSETS, path))
        if path not in EXPENSIVE:
            pixels = draw()
            assert committed.shape == pixels.shape and (committed == pixels).all(), path
    for path, samples in make_assets.recordings():
        make_assets.sounds.save(str(tmp_path / "sound.wav"), samples)
        with open(os.path.join(ASSETS, path), "rb") as committed:
            assert committed.read() == (tmp_path / "sound.wav").read_bytes(), path
    for path, data in make_assets.data_files():
        with open(os.path.join(ASSETS, path), "rb") as committed:
            assert committed.read() == data, path


def run(example, *options):
    command = [sys.executable, os.path.join(EXAMPLES, example)] + list(options)
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, universal_newlines=True, timeout=300)


def pixels(path):
    content = bytes(memoryview(zelvarine.Texture(str(path))))
    return [content[i:i + 3] for i in range(0, len(content), 4)]


def test_scripted_walk(tmp_path):
    done = run("walk.py", "--headless", "--size", "320x200", "--pictures", str(tmp_path),
               "--save", str(tmp_path / "saved.lvl"))
    assert (done.returncode, done.stderr) == (0, "")
    text = done.stdout
    frames, found = (int(re.search(r"(\d+) " + what, text).group(1)) for what in ("frames of 320x200", "of 11 gems"))
    assert frames > 300 and found >= 5
    contents = {path.stem[3:]: pixels(path) for path in tmp_path.glob("[0-9]*.png")}
    assert len(contents) >= 12
    restored = contents.pop("back-at-the-gate")
    # Fires flicker in the meantime.
    differences = [abs(a - b) for pair in zip(restored, contents["gate"]) for a, b in zip(*pair)]
    assert sum(differences) < 10 * len(differences)
    assert len(set(map(tuple, contents.values()))) == len(contents)
    assert all(len(content) == 320 * 200 and len(set(content)) > 500 for content in contents.values())
    chimes, left, right = map(int, re.findall(r"(?:chime|step1|step2) (\d+) times", text))
    assert chimes == found + 1  # one gem was found twice: the saved game has it still
    assert left > 50 and right in (left, left - 1)
    for words in r"tree \d+ before the ", r"^east face of cell \(14, 18\)$", r"^floor of cell \(16, 1\d\) at ", "^sky$":
        assert re.search(words, text, re.MULTILINE), words
    assert "music at 64 of 128" in text and re.search(r"list of levels moved by [1-9]", text)
    with open(str(tmp_path / "saved.lvl.json")) as file:
        player = [entity for entity in json.load(file)["entities"] if entity["id"] == 1][0]
    assert player["purse"]["gems"] >= 1 and abs(player["position"]["x"] - 18.6) < 0.2
    assert zelvarine.Texture(str(tmp_path / "screenshot-1.png")).getSize() == (320, 200)


def test_gallery_answers_the_mouse(tmp_path):
    done = run("widgets.py", "--headless", "--pictures", str(tmp_path))
    assert (done.returncode, done.stderr) == (0, "")
    red, green, blue, alpha, width, height = map(int, re.search(
        r"color (\d+), (\d+), (\d+), alpha (\d+), picture (\d+) by (\d+)", done.stdout).groups())
    assert red < 30 and 80 < green < 110 and blue > 230 and 140 < alpha < 170 and width > 180 and height == 110
    assert re.search(r"scrolled to \d{4}, 100 and 150, and pressed", done.stdout)
    assert len({tuple(pixels(path)) for path in tmp_path.glob("*.png")}) == 9
    # The mixed color is to be seen; the bytes of a pixel are in the order of its word.
    assert bytes([blue, green, red]) in pixels(tmp_path / "08-sliders-moved.png")
