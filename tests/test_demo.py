"""The demo game: its assets are what their script makes, and its scripted walk goes all the way."""

import importlib
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


def test_committed_assets_are_what_the_script_makes(make_assets, tmp_path):
    for path, pixels in make_assets.pictures():
        committed = make_assets.png.load(os.path.join(ASSETS, path))
        assert committed.shape == pixels.shape and (committed == pixels).all(), path
    for path, samples in make_assets.recordings():
        make_assets.sounds.save(str(tmp_path / "sound.wav"), samples)
        with wave.open(os.path.join(ASSETS, path)) as committed, wave.open(str(tmp_path / "sound.wav")) as made:
            assert committed.getparams() == made.getparams(), path
            assert committed.readframes(10 ** 9) == made.readframes(10 ** 9), path
    for path, data in make_assets.level_files():
        assert read(path) == data, path


def run_walk(*options):
    command = [sys.executable, os.path.join(EXAMPLES, "walk.py")] + list(options)
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, universal_newlines=True, timeout=300)


def test_scripted_walk_goes_round_and_saves_pictures(tmp_path):
    done = run_walk("--headless", "--size", "160x100", "--pictures", str(tmp_path))
    assert (done.returncode, done.stderr) == (0, "")
    frames, found = (int(re.search(r"(\d+) " + what, done.stdout).group(1)) for what in ("frames of 160x100", "of 11 gems"))
    assert frames > 300 and found >= 5
    pictures = sorted(tmp_path.iterdir())
    assert len(pictures) >= 12
    contents = [bytes(memoryview(zelvarine.Texture(str(picture)))) for picture in pictures]
    assert len(set(contents)) == len(pictures)
    for picture, content in zip(pictures, contents):
        colors = {content[i:i + 3] for i in range(0, len(content), 4)}
        assert len(content) == 160 * 100 * 4 and len(colors) > 500, picture


def test_help_and_bad_options_need_no_screen():
    assert "--headless" in run_walk("--help").stdout
    assert run_walk("--size", "9x9").returncode == 2
