"""What the module refuses, and in which words: one table for all of it."""
import re

import pytest

import zelvarine as z

REFUSALS = [
    # How a call is written
    ("v.add(v, v)", TypeError, "add() takes at most 1 positional argument (2 given)"),
    ("v.copy(1)", TypeError, "copy() takes no arguments (1 given)"),
    ("z.Vector2(1, 2, x=5)", TypeError, "__init__() got multiple values for argument 'x'"),
    ("z.Vector2(1, 2, z=3)", TypeError, "__init__() got an unexpected keyword argument 'z'"),
    # Numbers
    ("engine.isKeyPressed('a')", TypeError, "an integer is required, not str"),
    ("engine.isKeyPressed(2 ** 31)", OverflowError, "value too large to convert to int"),
    ("engine.isKeyPressed(-2 ** 31 - 1)", OverflowError, "value too small to convert to int"),
    ("engine.isKeyPressed(NAN)", ValueError, "cannot convert float NaN to integer"),
    ("engine.update()", z.EngineException, "The engine is not initialized, yet.Call init method first."),
    ("engine.run(0)", ZeroDivisionError, "float division by zero"),
    ("engine.init('a', (8, 8), audioChannels=65537)", ValueError, "audioChannels must be at most 65536"),
    ("slider.percent = NAN", ValueError, "the percent of a slider must not be NaN"),
    ("z.Sprite(texture, 0, 1, [])", ZeroDivisionError, "at least one column and one row"),
    ("z.Texture(-1, 5)", ValueError, "must not be negative, got -1 by 5"),
    ("texture.fill((1, 2))", TypeError, "color must be a tuple of 3 (rgb) or 4 (rgba) integers"),
    # Text
    ("engine.setWindowTitle('a\\0b')", ValueError, "embedded null character"),
    ("engine.setWindowTitle('\\ud800')", UnicodeEncodeError, "surrogates not allowed"),
    ("engine.setWindowTitle(None)", TypeError, "expected str, got NoneType"),
    ("z.Texture('a\\0b')", ValueError, "embedded null"),
    ("z.Music('a\\0b')", ValueError, "embedded null"),
    # Objects
    ("v.set(None)", TypeError, "expected zelvarine.Vector2, got NoneType"),
    ("v.angleTo(2)", TypeError, "expected zelvarine.Vector2, got int"),
    ("v - 2", TypeError, "unsupported operand"),
    ("v * type('Own', (z.Vector2,), {})(1, 2)", TypeError, "unsupported operand"),
    ("v * '2'", TypeError, "can't multiply sequence by non-int of type 'float'"),
    ("v.scale(1j)", TypeError, ""),
    ("v.scale(10 ** 400)", OverflowError, "too large to convert to float"),
    ("v.angleTo(z.Vector2(0, 0))", ZeroDivisionError, "float division"),
    ("z.Camera(v, None, 60, 0)", TypeError, "expected zelvarine.Vector2, got NoneType"),
    ("z.MovementSystem(5)", TypeError, "expected zelvarine.Level, got int"),
    ("z.SpriteAnimation(None, 1, False, 1, 0, 1)", TypeError, "expected str, got NoneType"),
    ("z.component('a')(5)", TypeError, "component type must be a class"),
    ("z.UIListContainer().addChild(5)", TypeError, "expected zelvarine.UIWidget, got int"),
    ("engine.addTaskAfter('x', print)", TypeError, "not supported between instances of 'str' and 'int'"),
    ("engine.setWindowPos((1, 2, 3))", ValueError, "too many values to unpack (expected 2)"),
    # Cells
    ("level.getBlock(30, 0)", IndexError, "cell (30, 0) is outside of the level of 30 by 30 cells"),
    ("level.setBlock(z.BLOCK_SQUARE, 29, 30)", IndexError, "cell (29, 30)"),
    ("level.getTextureIndex(7, 0, 0)", IndexError, "a cell has no byte 7"),
    # Attributes
    ("v.length = 1", AttributeError, "not writable"),
    ("del v.x", AttributeError, "this attribute cannot be deleted"),
    ("z.Vector2.other = 1", TypeError, "zelvarine.Vector2"),
]


@pytest.fixture(scope="module")
def names():
    texture, engine = z.Texture(4, 3), z.Engine()
    return dict(z=z, NAN=float("nan"), v=z.Vector2(3, 4), texture=texture, engine=engine, level=z.Level(), slider=z.UISlider(1))


@pytest.mark.parametrize("statement, error, message", REFUSALS, ids=[row[0] for row in REFUSALS])
def test_refusal(names, statement, error, message):
    with pytest.raises(error, match=re.escape(message)) as raised:
        exec(statement, names)
    assert raised.type is error or error is OSError
    assert str(names["v"]) == "Vector2(3.000000, 4.000000)"
