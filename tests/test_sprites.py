"""Sprite sheets, their animations, and the component that plays them."""

import types

import pytest
import zelvarine
from helpers import playback
from zelvarine import Sprite, SpriteAnimation, SpriteComponent, Texture


def animation(name="walk", frames=4, speed=0.5, start=2, directions=8):
    return SpriteAnimation(name, frames, False, speed, start, directions)


def sprite(*animations):
    return Sprite(Texture(100, 64), 3, 2, list(animations or [animation()]))


def test_a_sheet_is_cut_into_whole_frames():
    first, other, second = animation("a"), animation("b"), animation("a")
    cut = sprite(first, other, second)
    assert (cut.width, cut.height, list(cut.animations.items())) == (33, 32, [("a", second), ("b", other)])
    for xFrames, yFrames in (0, 1), (1, 0):
        with pytest.raises(ZeroDivisionError):
            cut.__init__(Texture(4, 4), xFrames, yFrames, [])
    assert cut.texture.width == 100


def test_components_and_what_they_play():
    empty = SpriteComponent()
    assert (empty.sprite, empty.currentAnimation, empty.blendMode) == (None, None, "alpha")
    assert (empty.shadeless, empty.zOffset, empty.scale) == (False, 0.0, 1.0)
    walk, run = animation("walk"), animation("run", frames=2, speed=3, start=0, directions=1)
    shown = SpriteComponent(sprite(walk, run), 1, 0.5, 2, blendMode=zelvarine.BLENDMODE_ADD)
    assert (shown.currentAnimation, shown.currentAnimationKey, shown.blendMode) == (walk, "walk", "add")
    assert playback(shown) == (2, 6, 8, 0.5)
    shown._animationSpeed, shown.animationPercentage = -0.5, 0.75
    shown.currentAnimation = walk  # the same again keeps its state
    assert shown._animationSpeed == -0.5
    shown.currentAnimationKey = "run"
    assert (playback(shown), shown.animationPercentage) == ((0, 2, 1, 3.0), 0.75)
    shown.currentAnimation = None
    assert playback(shown) == (0, 0, 1, 0.0)
    with pytest.raises(StopIteration):
        SpriteComponent(Sprite(Texture(4, 4), 1, 1, []))


def test_dict_form_there_and_back():
    level = types.SimpleNamespace(_sprites=[sprite(), sprite(animation("walk"), animation("run"))])
    full = {"sprite": 1, "shadeless": True, "zOffset": -0.5, "scale": 2.0, "blendMode": "add",
            "currentAnimation": "run", "animationPercentage": 0.25}
    shown = SpriteComponent()
    shown.loadFromDict(level, full)
    assert list(shown.dumpToDict(level).items()) == list(full.items())
    shown.loadFromDict(level, {"sprite": 0})
    before = {"sprite": 0, "shadeless": False, "zOffset": 0.0, "scale": 1.0, "blendMode": "blend",
              "currentAnimation": "walk", "animationPercentage": 0.0}
    for change, error in (({"sprite": 7}, IndexError), ({"currentAnimation": "fly"}, KeyError),
                          ({"animationPercentage": None}, TypeError)):
        with pytest.raises(error):
            shown.loadFromDict(level, dict({"sprite": 1, "shadeless": True}, **change))
    assert shown.dumpToDict(level) == before
