"""What the module refuses, and in which words: one table for all of it."""
import re

import pytest

import zelvarine as z

REFUSALS = [
    # How a call is written
    ("v.add(v, v)", TypeError, "add() takes at most 1 positional argument (2 given)"),
    ("v.add()", TypeError, "add() missing required argument 'other' (pos 1)"),
    ("v.add(v, other=v)", TypeError, "add() got multiple values for argument 'other'"),
    ("v.copy(1)", TypeError, "copy() takes no arguments (1 given)"),
    ("z.Vector2(1, 2, x=5)", TypeError, "__init__() got multiple values for argument 'x'"),
    ("z.Vector2(1, 2, z=3)", TypeError, "__init__() got an unexpected keyword argument 'z'"),
    ("z.clearTerminal(1)", TypeError, "takes no arguments (1 given)"),
    # Numbers
    ("z.Vector2('1', 2)", TypeError, "must be real number, not str"),
    ("engine.isKeyPressed('a')", TypeError, "an integer is required, not str"),
    ("engine.isKeyPressed(2 ** 31)", OverflowError, "value too large to convert to int"),
    ("engine.isKeyPressed(-2 ** 31 - 1)", OverflowError, "value too small to convert to int"),
    ("engine.isKeyPressed(NAN)", ValueError, "cannot convert float NaN to integer"),
    ("engine.run(0)", ZeroDivisionError, "float division by zero"),
    ("engine.init('a', (8, 8), audioChannels=65537)", ValueError, "audioChannels must be at most 65536"),
    ("slider.percent = NAN", ValueError, "the percent of a slider must not be NaN"),
    ("z.Sprite(texture, 0, 1, [])", ZeroDivisionError, "at least one column and one row"),
    ("z.Texture(-1, 5)", ValueError, "must not be negative, got -1 by 5"),
    ("texture.fill((1, 2, 3, -1))", OverflowError, "can't convert negative value"),
    ("texture.fill((1, 2))", TypeError, "color must be a tuple of 3 (rgb) or 4 (rgba) integers"),
    # Text
    ("engine.setWindowTitle('a\\0b')", ValueError, "embedded null character"),
    ("engine.setWindowTitle('\\ud800')", UnicodeEncodeError, "surrogates not allowed"),
    ("engine.setWindowTitle(None)", TypeError, "expected str, got NoneType"),
    ("z.Texture('a\\0b')", ValueError, "embedded null"),
    ("z.Font('a\\0b', 9)", ValueError, "embedded null"),
    ("z.Music('a\\0b')", ValueError, "embedded null"),
    ("z.Texture('missing.png')", OSError, "missing.png"),
    # Objects
    ("v.set(None)", TypeError, "expected zelvarine.Vector2, got NoneType"),
    ("z.Camera(v, None, 60, 0)", TypeError, "expected zelvarine.Vector2, got NoneType"),
    ("z.MovementSystem(5)", TypeError, "expected zelvarine.Level, got int"),
    ("z.SpriteAnimation(None, 1, False, 1, 0, 1)", TypeError, "expected str, got NoneType"),
    ("z.Sprite(texture, 1, 1, [5])", TypeError, "expected zelvarine.SpriteAnimation, got int"),
    ("z.component('a')(5)", TypeError, "component type must be a class"),
    ("z.component(5)(int)", TypeError, "component name must be a string"),
    ("z.UIListContainer().addChild(5)", TypeError, "expected zelvarine.UIWidget, got int"),
    ("engine.addTaskAfter('x', print)", TypeError, "not supported between instances of 'str' and 'int'"),
    ("2 * v", TypeError, "unsupported operand"),
    ("engine.setWindowPos((1, 2, 3))", ValueError, "too many values to unpack (expected 2)"),
    # Cells
    ("level.getBlock(30, 0)", IndexError, "cell (30, 0) is outside of the level of 30 by 30 cells"),
    ("level.getBlock(0, -1)", IndexError, "cell (0, -1)"),
    ("level.setBlock(z.BLOCK_SQUARE, 29, 30)", IndexError, "cell (29, 30)"),
    ("level.getTextureIndex(7, 0, 0)", IndexError, "a cell has no byte 7"),
    ("level.setTextureIndex(0, -1, 1, 1)", IndexError, "a cell has no byte -1"),
    # Attributes
    ("v.x = '1'", TypeError, "must be real number"),
    ("v.length = 1", AttributeError, "not writable"),
    ("del v.x", AttributeError, "this attribute cannot be deleted"),
    ("del slider.percent", AttributeError, "this attribute cannot be deleted"),
    ("v.other = 1", AttributeError, "no attribute 'other'"),
    ("z.Vector2.other = 1", TypeError, "other"),
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
