"""Sprite sheets, their animations, and the component that plays them."""

import pytest
import zelvarine
from helpers import playback
from zelvarine import Sprite, SpriteAnimation, SpriteComponent, Texture


def animation(name="walk", frames=4, speed=0.5, start=2, directions=8):
    return SpriteAnimation(name, frames, False, speed, start, directions)


def sprite(*animations):
    return Sprite(Texture(100, 64), 3, 2, list(animations or [animation()]))


class Holder:
    """What dict forms need of a level."""

    def __init__(self, *sprites):
        self._sprites = list(sprites)


def test_a_sheet_is_cut_into_whole_frames():
    sheet, first, other, second = Texture(100, 64), animation("a"), animation("b"), animation("a")
    cut = Sprite(sheet, 3, 2, [first, other, second])
    assert (cut.texture, cut.width, cut.height) == (sheet, 33, 32)
    assert list(cut.animations.items()) == [("a", second), ("b", other)]
    before = cut.animations
    for xFrames, yFrames, animations, error in ((0, 1, [], ZeroDivisionError), (1, 0, [], ZeroDivisionError),
                                                (-1, 1, [], ValueError), (1, 1, None, TypeError)):
        with pytest.raises(error):
            cut.__init__(Texture(4, 4), xFrames, yFrames, animations)
    assert (cut.texture, cut.width, cut.height, cut.animations) == (sheet, 33, 32, before)


def test_new_components():
    empty = SpriteComponent()
    assert (empty.sprite, empty.currentAnimation, empty.blendMode) == (None, None, "alpha")
    assert (empty.shadeless, empty.zOffset, empty.scale) == (False, 0.0, 1.0)
    walk = animation("walk")
    shown = SpriteComponent(sprite(walk, animation("run")), 1, 0.5, 2, blendMode=zelvarine.BLENDMODE_ADD)
    assert (shown.currentAnimation, shown.currentAnimationKey, shown.blendMode) == (walk, "walk", "add")
    assert playback(shown) == (2, 6, 8, 0.5)
    with pytest.raises(StopIteration):
        SpriteComponent(Sprite(Texture(4, 4), 1, 1, []))


def test_the_same_animation_again_keeps_its_state_and_another_one_brings_its_own():
    walk, run = animation("walk"), animation("run", frames=2, speed=3, start=0, directions=1)
    shown = SpriteComponent(sprite(walk, run))
    shown._animationSpeed, shown.animationPercentage = -0.5, 0.75
    shown.currentAnimation = walk
    assert shown._animationSpeed == -0.5
    shown.currentAnimationKey = "run"
    assert (playback(shown), shown.animationPercentage) == ((0, 2, 1, 3.0), 0.75)
    shown.currentAnimation = None
    assert playback(shown) == (0, 0, 1, 0.0)


def test_names_that_are_not_there():
    shown = SpriteComponent(sprite())
    playing = shown.currentAnimation
    shown.sprite = sprite(animation("fly"))
    with pytest.raises(KeyError):
        shown.currentAnimationKey = "walk"
    with pytest.raises(StopIteration):
        shown.currentAnimationKey
    shown.sprite = None
    with pytest.raises(TypeError, match="'NoneType' object is not subscriptable"):
        shown.currentAnimationKey = "walk"
    assert shown.currentAnimation is playing


def test_dict_form_there_and_back():
    level = Holder(sprite(), sprite(animation("walk"), animation("run")))
    full = {"sprite": 1, "shadeless": True, "zOffset": -0.5, "scale": 2.0, "blendMode": "add",
            "currentAnimation": "run", "animationPercentage": 0.25}
    shown = SpriteComponent()
    shown.loadFromDict(level, full)
    assert list(shown.dumpToDict(level).items()) == list(full.items())
    shown.blendMode = "blend"
    assert (shown.blendMode, shown.dumpToDict(level)["blendMode"]) == ("alpha", "blend")
    shown.loadFromDict(level, {"sprite": 0})
    before = {"sprite": 0, "shadeless": False, "zOffset": 0.0, "scale": 1.0, "blendMode": "blend",
              "currentAnimation": "walk", "animationPercentage": 0.0}
    assert shown.dumpToDict(level) == before
    for change, error in (({"sprite": 7}, IndexError), ({"currentAnimation": "fly"}, KeyError),
                          ({"animationPercentage": None}, TypeError)):
        with pytest.raises(error):
            shown.loadFromDict(level, dict({"sprite": 1, "shadeless": True}, **change))
    assert shown.dumpToDict(level) == before
    with pytest.raises(ValueError):
        shown.dumpToDict(Holder(sprite()))
