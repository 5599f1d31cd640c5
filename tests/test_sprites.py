"""Images from files, sprite sheets, their animations, and the component that plays them."""

import hashlib
import types

import helpers
import pytest
from helpers import DATA
from zelvarine import BLENDMODE_ADD, Sprite, SpriteAnimation, SpriteComponent, Texture


def animation(name="walk", frames=4, speed=0.5, start=2, directions=8):
    return SpriteAnimation(name, frames, False, speed, start, directions)


def sprite(*animations):
    return Sprite(Texture(100, 64), 3, 2, list(animations or [animation()]))


def test_image_files_whole_and_damaged(tmp_path):
    path, texture = tmp_path / "image", Texture(2, 1)
    memoryview(texture)[0, 0], memoryview(texture)[0, 1] = 0xFFFF0000, 0xFF0000FF
    assert hashlib.sha1(texture).digest() == hashlib.sha1(bytes(texture)).digest()
    texture.saveFile(str(path))
    for whole in path, DATA / "pixels.xpm", DATA / "pixels.tga":
        assert bytes(Texture(str(whole))) == bytes(texture), whole
    damaged = [path.read_bytes()[:size] for size in range(path.stat().st_size)]
    assert not helpers.run_script("""
import zelvarine
for content in {!r}:
    open({!r}, "wb").write(content)
    try:
        zelvarine.Texture({!r})
        print("loaded", content)
    except IOError:
        pass
""".format(damaged + [file.read_bytes() for file in (DATA / "damaged").iterdir()], str(path), str(path)))


def test_a_sheet_is_cut_into_whole_frames():
    first, other, second = animation("a"), animation("b"), animation("a")
    cut, sheet = sprite(first, other, second), Texture(4, 4)
    assert (cut.width, cut.height, list(cut.animations.items())) == (33, 32, [("a", second), ("b", other)])
    pytest.raises(TypeError, cut.__init__, sheet, 2, 1, [other, None])
    assert (cut.texture, cut.width, cut.height, cut.animations) == (sheet, 2, 4, {"b": other})


def test_components_and_what_they_play():
    walk, run = animation("walk"), animation("run", frames=2, speed=3, start=0, directions=1)
    shown = SpriteComponent(sprite(walk, run), 1, 0.5, 2, blendMode=BLENDMODE_ADD)
    assert (shown.currentAnimation, shown.currentAnimationKey, shown.blendMode) == (walk, "walk", "add")
    assert helpers.playback(shown) == (2, 6, 8, 0.5)
    shown._animationSpeed, shown.animationPercentage = -0.5, 0.75
    shown.currentAnimation = walk  # the same again keeps its state
    assert shown._animationSpeed == -0.5
    shown.currentAnimationKey = "run"
    assert (helpers.playback(shown), shown.animationPercentage) == ((0, 2, 1, 3.0), 0.75)
    pytest.raises(StopIteration, SpriteComponent, Sprite(Texture(4, 4), 1, 1, []))


def test_dict_form_there_and_back():
    level = types.SimpleNamespace(_sprites=[sprite(), sprite(animation("walk"), animation("run"))])
    full = {"sprite": 1, "shadeless": True, "zOffset": -0.5, "scale": 2.0, "blendMode": "add",
            "currentAnimation": "run", "animationPercentage": 0.25}
    plain = zip(full, (0, False, 0.0, 1.0, "blend", "walk", 0.0))
    shown = SpriteComponent()
    for given, dumped in (full, full.items()), ({"sprite": 0}, plain):
        shown.loadFromDict(level, given)
        assert list(shown.dumpToDict(level).items()) == list(dumped)
    pytest.raises(KeyError, shown.loadFromDict, level, dict(full, currentAnimation="fly"))  # up to the bad key
    assert (shown.sprite, shown.blendMode, shown.animationPercentage) == (level._sprites[1], "add", 0.0)


def test_dicts_go_through_the_properties_of_a_game():
    own, put = type("Own", (SpriteComponent,), {}), property(lambda self: 7, lambda self, value: calls.append(value))
    own.currentAnimation = own.currentAnimationKey = own.animationPercentage = put
    calls, shown, only = [], own(), animation()
    level = types.SimpleNamespace(_sprites=[sprite(only)])
    for given in {}, {"currentAnimation": "x", "animationPercentage": "y"}:
        shown.loadFromDict(level, dict(given, sprite=0))
    dumped = shown.dumpToDict(level)
    assert calls == [only, 0.0, "x", "y"] and dumped["currentAnimation"] == dumped["animationPercentage"] == 7
