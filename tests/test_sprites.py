"""Sprite sheets, their animations, and the component that plays them."""

import pytest
import zelvarine
from zelvarine import Sprite, SpriteAnimation, SpriteComponent, Texture


def animation(name="walk", frames=4, oscillate=False, speed=0.5, start=2, directions=8):
    return SpriteAnimation(name, frames, oscillate, speed, start, directions)


def sprite(*animations):
    return Sprite(Texture(100, 64), 3, 2, list(animations or [animation()]))


class Holder:
    """What dict forms need of a level."""

    def __init__(self, *sprites):
        self._sprites = list(sprites)


def numbers(shown):
    return shown._currentMinFrame, shown._currentMaxFrame, shown._currentDirections, shown._animationSpeed


def test_a_sheet_is_cut_into_whole_frames():
    sheet, first, other, second = Texture(100, 64), animation("a"), animation("b"), animation("a")
    cut = Sprite(sheet, 3, 2, [first, other, second])
    assert (cut.texture, cut.width, cut.height) == (sheet, 33, 32)
    assert list(cut.animations.items()) == [("a", second), ("b", other)]


@pytest.mark.parametrize("arguments, error", [
    ((Texture(4, 4), 0, 1, []), ZeroDivisionError), ((Texture(4, 4), 1, 0, []), ZeroDivisionError),
    ((Texture(4, 4), -1, 1, []), ValueError), ((Texture(4, 4), 1, 1, None), TypeError),
    ((Texture(4, 4), 1, 1, [None]), TypeError), ((None, 1, 1, []), AttributeError),
    ((Texture.__new__(Texture), 1, 1, []), RuntimeError)])
def test_a_bad_sheet_is_refused_and_leaves_the_sprite_as_it_was(arguments, error):
    cut = sprite()
    before = cut.texture, cut.width, cut.height, cut.animations
    with pytest.raises(error):
        cut.__init__(*arguments)
    assert (cut.texture, cut.width, cut.height, cut.animations) == before


def test_new_components():
    empty = SpriteComponent()
    assert (empty.sprite, empty.currentAnimation, empty.zOffset, empty.scale, empty.blendMode) == (None, None, 0.0, 1.0, "alpha")
    walk = animation("walk")
    shown = SpriteComponent(sprite(walk, animation("run")), 1, 0.5, 2, blendMode=zelvarine.BLENDMODE_ADD)
    assert (shown.currentAnimation, shown.currentAnimationKey, shown.blendMode) == (walk, "walk", "add")
    assert numbers(shown) == (2, 6, 8, 0.5)
    with pytest.raises(StopIteration):
        SpriteComponent(Sprite(Texture(4, 4), 1, 1, []))


def test_the_same_animation_again_keeps_its_state_and_another_one_brings_its_own():
    walk, run = animation("walk"), animation("run", frames=2, speed=3, start=0, directions=1)
    shown = SpriteComponent(sprite(walk, run))
    shown._animationSpeed, shown.animationPercentage = -0.5, 0.75
    shown.currentAnimation = walk
    assert shown._animationSpeed == -0.5
    shown.currentAnimationKey = "run"
    assert (numbers(shown), shown.animationPercentage) == ((0, 2, 1, 3.0), 0.75)
    shown.currentAnimation = None
    assert numbers(shown) == (0, 0, 1, 0.0)
    shown.currentAnimation = SpriteAnimation("x", 2**31 - 1, True, float("nan"), 2**31 - 1, 0)
    assert numbers(shown)[:3] == (2**31 - 1, -2, 0)


def test_names_that_are_not_there():
    shown = SpriteComponent(sprite())
    playing = shown.currentAnimation
    with pytest.raises(KeyError):
        shown.currentAnimationKey = "fly"
    shown.sprite = sprite(animation("fly"))
    with pytest.raises(StopIteration):
        shown.currentAnimationKey
    shown.sprite = None
    with pytest.raises(TypeError, match="'NoneType' object is not subscriptable"):
        shown.currentAnimationKey = "walk"
    with pytest.raises(AttributeError):
        shown.currentAnimationKey
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
    assert shown.dumpToDict(level) == {"sprite": 0, "shadeless": False, "zOffset": 0.0, "scale": 1.0, "blendMode": "blend",
                                       "currentAnimation": "walk", "animationPercentage": 0.0}
    with pytest.raises(ValueError):
        shown.dumpToDict(Holder(sprite()))


@pytest.mark.parametrize("change, error", [
    ({"sprite": 7}, IndexError), ({"currentAnimation": "fly"}, KeyError), ({"animationPercentage": None}, TypeError)])
def test_a_bad_dict_leaves_the_component_as_it_was(change, error):
    level = Holder(sprite(), sprite(animation("run")))
    shown = SpriteComponent(level._sprites[0], zOffset=3)
    before = shown.dumpToDict(level)
    with pytest.raises(error):
        shown.loadFromDict(level, dict({"sprite": 1, "shadeless": True}, **change))
    with pytest.raises(KeyError):
        shown.loadFromDict(level, {})
    assert shown.dumpToDict(level) == before
