"""Images from files, sprite sheets, their animations, and the component that plays them."""

import base64
import hashlib
import struct
import types

import helpers
import pytest
import zelvarine
from helpers import playback
from zelvarine import Sprite, SpriteAnimation, SpriteComponent, Texture

XPM = '/* XPM */\nstatic char *t[] = {\n"2 1 2 1",\n"a c #FF0000",\n"b c #0000FF",\n"a%s"};\n'
CUT_PNG = base64.b64decode("iVBORw0KGgoAAAANSUhEUgAAABAAAAAQCAYAAAAf8/9hAAAAAHRSTlM2uXDM")


def animation(name="walk", frames=4, speed=0.5, start=2, directions=8):
    return SpriteAnimation(name, frames, False, speed, start, directions)


def sprite(*animations):
    return Sprite(Texture(100, 64), 3, 2, list(animations or [animation()]))


def test_image_files_whole_and_damaged(tmp_path):
    path, texture = str(tmp_path / "image"), Texture(2, 1)
    memoryview(texture)[0, 0], memoryview(texture)[0, 1] = 0xFFFF0000, 0xFF0000FF
    assert hashlib.sha1(texture).digest() == hashlib.sha1(bytes(texture)).digest()
    texture.saveFile(path)
    with open(path, "rb") as file:
        png = file.read()
    tga = bytes((0, 0, 2) + (0,) * 9 + (2, 0, 1, 0, 24, 32, 0, 0, 255, 255, 0, 0))
    for name, content in ("", png), (".png", (XPM % "b").encode()), (".tga", tga):
        (tmp_path / ("image" + name)).write_bytes(content)
        assert bytes(Texture(path + name)) == bytes(texture), content
    tooLarge = struct.pack("<2sIIIIiiHH24x", b"BM", 54, 0, 54, 40, 2 ** 29 + 8, 4, 1, 16)
    damaged = [tooLarge] + [png[:size] for size in range(len(png))] + [CUT_PNG] + [(XPM % end).encode() for end in ("", "?")]
    done = helpers.runScript("""
import zelvarine
for content in {!r}:
    open({!r}, "wb").write(content)
    try:
        zelvarine.Texture({!r})
        print("loaded", content)
    except IOError:
        pass
""".format(damaged, path, path))
    assert (done.returncode, done.stdout) == (0, "")


def test_a_sheet_is_cut_into_whole_frames():
    first, other, second = animation("a"), animation("b"), animation("a")
    cut, sheet = sprite(first, other, second), Texture(4, 4)
    assert (cut.width, cut.height, list(cut.animations.items())) == (33, 32, [("a", second), ("b", other)])
    with pytest.raises(TypeError):
        cut.__init__(sheet, 2, 1, [other, None])
    assert (cut.texture, cut.width, cut.height, cut.animations) == (sheet, 2, 4, {"b": other})
    with pytest.raises(TypeError, match="'NoneType' object is not iterable"):
        cut.__init__(sheet, 1, 1, None)


def test_components_and_what_they_play():
    walk, run = animation("walk"), animation("run", frames=2, speed=3, start=0, directions=1)
    shown = SpriteComponent(sprite(walk, run), 1, 0.5, 2, blendMode=zelvarine.BLENDMODE_ADD)
    assert (shown.currentAnimation, shown.currentAnimationKey, shown.blendMode) == (walk, "walk", "add")
    assert playback(shown) == (2, 6, 8, 0.5)
    shown._animationSpeed, shown.animationPercentage = -0.5, 0.75
    shown.currentAnimation = walk  # the same again keeps its state
    assert shown._animationSpeed == -0.5
    shown.currentAnimationKey = "run"
    assert (playback(shown), shown.animationPercentage) == ((0, 2, 1, 3.0), 0.75)
    empty = Sprite(Texture(4, 4), 1, 1, [])
    with pytest.raises(StopIteration):
        shown.__init__(empty, False, 9)
    assert (shown.sprite, shown.zOffset) == (empty, 9.0)
    with pytest.raises(TypeError, match="'NoneType' object is not subscriptable"):
        SpriteComponent().currentAnimationKey = "walk"


def test_dict_form_there_and_back():
    level = types.SimpleNamespace(_sprites=[sprite(), sprite(animation("walk"), animation("run"))])
    full = {"sprite": 1, "shadeless": True, "zOffset": -0.5, "scale": 2.0, "blendMode": "add",
            "currentAnimation": "run", "animationPercentage": 0.25}
    plain = {"sprite": 0, "shadeless": False, "zOffset": 0.0, "scale": 1.0, "blendMode": "blend",
             "currentAnimation": "walk", "animationPercentage": 0.0}
    shown = SpriteComponent()
    for given, dumped in (full, full), ({"sprite": 0}, plain):
        shown.loadFromDict(level, given)
        assert list(shown.dumpToDict(level).items()) == list(dumped.items())
    for key, bad, error in (("sprite", 7, IndexError), ("scale", "", TypeError), ("currentAnimation", "fly", KeyError)):
        shown.loadFromDict(level, {"sprite": 0})
        with pytest.raises(error):
            shown.loadFromDict(level, dict(full, **{key: bad}))
        reached = list(full).index(key)  # key by key, up to the bad one
        assert shown._sprite is level._sprites[reached > 0] and shown._zOffset == (-0.5 if reached > 2 else 0.0)
        assert (shown._blendMode, shown._animationPercentage) == (reached > 4, 0.0)


def test_dicts_go_through_the_properties_of_a_game():
    calls = []

    class Own(SpriteComponent):
        currentAnimation = property(lambda self: None, lambda self, value: calls.append(value))
        currentAnimationKey = property(lambda self: "key", lambda self, value: calls.append(value))
        animationPercentage = property(lambda self: 7, lambda self, value: calls.append(value))

    shown, only = Own(), animation()
    level = types.SimpleNamespace(_sprites=[sprite(only)])
    for given in {}, {"currentAnimation": "x", "animationPercentage": "y"}:
        shown.loadFromDict(level, dict(given, sprite=0))
    dumped = shown.dumpToDict(level)
    assert calls == [only, 0.0, "x", "y"] and (dumped["currentAnimation"], dumped["animationPercentage"]) == ("key", 7)
