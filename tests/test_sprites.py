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


def test_frames_are_whole_and_leftover_pixels_belong_to_none():
    sheet = Texture(100, 64)
    cut = Sprite(sheet, 3, 2, [])
    assert (cut.texture, cut.width, cut.height, cut.animations) == (sheet, 33, 32, {})


def test_a_later_animation_takes_the_place_of_an_earlier_one_of_its_name():
    first, other, second = animation("a"), animation("b"), animation("a")
    assert list(sprite(first, other, second).animations.items()) == [("a", second), ("b", other)]


@pytest.mark.parametrize("arguments, error", [
    ((Texture(4, 4), 0, 1, []), ZeroDivisionError),
    ((Texture(4, 4), 1, 0, []), ZeroDivisionError),
    ((Texture(4, 4), -1, 1, []), ValueError),
    ((Texture(4, 4), 1, 1, None), TypeError),
    ((Texture(4, 4), 1, 1, [None]), TypeError),
    ((Texture(4, 4), 1, 1, ["walk"]), TypeError),
    ((None, 1, 1, []), AttributeError),
    ((Texture.__new__(Texture), 1, 1, []), RuntimeError),
])
def test_a_bad_sheet_is_refused_and_leaves_the_sprite_as_it_was(arguments, error):
    cut = sprite()
    before = cut.texture, cut.width, cut.height, cut.animations
    with pytest.raises(error):
        cut.__init__(*arguments)
    assert (cut.texture, cut.width, cut.height, cut.animations) == before


def test_an_animation_needs_a_name():
    for name in (None, 5, b"walk"):
        with pytest.raises(TypeError):
            SpriteAnimation(name, 1, False, 1, 0, 1)


def test_defaults():
    empty = SpriteComponent()
    assert (empty.sprite, empty.currentAnimation, empty.shadeless) == (None, None, False)
    assert (empty.zOffset, empty.scale, empty.blendMode, empty._blendMode) == (0.0, 1.0, "alpha", 0)
    assert (empty._dist, empty._angleToCam, empty.animationPercentage) == (0.0, 0.0, 0.0)


def test_a_new_component_plays_the_first_animation():
    walk = animation("walk")
    shown = SpriteComponent(sprite(walk, animation("run")), 1, 0.5, 2, blendMode=zelvarine.BLENDMODE_ADD)
    assert (shown.currentAnimation, shown.currentAnimationKey) == (walk, "walk")
    assert (shown._currentMinFrame, shown._currentMaxFrame, shown._currentDirections) == (2, 6, 8)
    assert (shown._animationSpeed, shown.shadeless, shown.zOffset, shown.scale) == (0.5, True, 0.5, 2.0)
    assert shown.blendMode == "add"
    with pytest.raises(StopIteration):
        SpriteComponent(Sprite(Texture(4, 4), 1, 1, []))


def test_the_same_animation_again_keeps_its_state_and_another_one_brings_its_own():
    walk, run = animation("walk"), animation("run", frames=2, speed=3, start=0, directions=1)
    shown = SpriteComponent(sprite(walk, run))
    shown._animationSpeed, shown.animationPercentage = -0.5, 0.75
    shown.currentAnimation = walk
    assert shown._animationSpeed == -0.5
    shown.currentAnimationKey = "run"
    assert (shown._animationSpeed, shown._currentMinFrame, shown._currentMaxFrame, shown._currentDirections) == (3, 0, 2, 1)
    assert shown.animationPercentage == 0.75
    shown.currentAnimation = walk
    assert shown._animationSpeed == 0.5


def test_no_animation_leaves_nothing_to_show():
    shown = SpriteComponent(sprite())
    shown.currentAnimation = None
    assert shown.currentAnimation is None
    assert (shown._currentMinFrame, shown._currentMaxFrame, shown._currentDirections, shown._animationSpeed) == (0, 0, 1, 0.0)


def test_names_that_are_not_there():
    shown = SpriteComponent(sprite())
    playing = shown.currentAnimation
    with pytest.raises(KeyError):
        shown.currentAnimationKey = "fly"
    assert shown.currentAnimation is playing
    shown.sprite = sprite(animation("fly"))
    assert shown.currentAnimation is playing
    with pytest.raises(StopIteration):
        shown.currentAnimationKey
    shown.sprite = None
    with pytest.raises(TypeError, match="'NoneType' object is not subscriptable"):
        shown.currentAnimationKey = "walk"
    with pytest.raises(AttributeError):
        shown.currentAnimationKey


def test_border_numbers_of_an_animation_are_safe():
    largest = SpriteAnimation("x", 2**31 - 1, True, float("nan"), 2**31 - 1, 0)
    shown = SpriteComponent(sprite(largest))
    assert (shown._currentMinFrame, shown._currentMaxFrame, shown._currentDirections) == (2**31 - 1, -2, 0)
    with pytest.raises(OverflowError):
        SpriteAnimation("x", 2**31, True, 1, 0, 1)


@pytest.mark.parametrize("word, reads, dumps", [("add", "add", "add"), ("blend", "alpha", "blend"), ("alpha", "alpha", "blend"), (None, "alpha", "blend")])
def test_words_of_the_blend_mode(word, reads, dumps):
    shared = sprite()
    shown = SpriteComponent(shared)
    shown.blendMode = word
    assert shown.blendMode == reads
    assert shown.dumpToDict(Holder(shared))["blendMode"] == dumps


def test_dict_form_there_and_back():
    level = Holder(sprite(), sprite(animation("walk"), animation("run")))
    full = {"sprite": 1, "shadeless": True, "zOffset": -0.5, "scale": 2.0, "blendMode": "add",
            "currentAnimation": "run", "animationPercentage": 0.25}
    shown = SpriteComponent()
    shown.loadFromDict(level, full)
    assert list(shown.dumpToDict(level).items()) == list(full.items())
    shown.loadFromDict(level, {"sprite": 0})
    assert shown.dumpToDict(level) == {"sprite": 0, "shadeless": False, "zOffset": 0.0, "scale": 1.0, "blendMode": "blend",
                                       "currentAnimation": "walk", "animationPercentage": 0.0}
    with pytest.raises(ValueError):
        shown.dumpToDict(Holder(sprite()))


@pytest.mark.parametrize("change, error", [
    ({"sprite": 7}, IndexError), ({"sprite": None}, TypeError), ({"currentAnimation": "fly"}, KeyError),
    ({"scale": "big"}, TypeError), ({"animationPercentage": None}, TypeError)])
def test_a_bad_dict_leaves_the_component_as_it_was(change, error):
    level = Holder(sprite(), sprite(animation("run")))
    shown = SpriteComponent(level._sprites[0], zOffset=3)
    before = shown.dumpToDict(level)
    with pytest.raises(error):
        shown.loadFromDict(level, dict({"sprite": 1, "shadeless": True}, **change))
    with pytest.raises(KeyError):
        shown.loadFromDict(level, {})
    assert shown.dumpToDict(level) == before


def test_a_script_sees_every_change_of_animation():
    class Watched(SpriteComponent):
        seen = ()

        @property
        def currentAnimation(self):
            return self._currentAnimation

        @currentAnimation.setter
        def currentAnimation(self, value):
            self.seen += (value,)
            self._currentAnimation = value

    walk, run = animation("walk"), animation("run")
    shown = Watched(sprite(walk, run))
    shown.currentAnimationKey = "run"
    assert shown.seen == (walk, run)
