"""What the module refuses, and in which words: one table for all of it."""
import re

import pytest

import zelvarine as z

REFUSALS = [
    (TypeError, "add() takes at most 1 positional argument (2 given)", "v.add(v, v)"),
    (TypeError, "copy() takes no arguments (1 given)", "v.copy(1)"),
    (TypeError, "__init__() missing required argument 'y' (pos 2)", "z.Vector2(1)"),
    (TypeError, "__init__() got multiple values for argument 'x'", "z.Vector2(1, 2, x=5)"),
    (TypeError, "__init__() got an unexpected keyword argument 'z'", "z.Vector2(1, 2, z=3)"),
    (TypeError, "an integer is required, not str", "engine.isKeyPressed('a')"),
    (TypeError, "__int__ returned non-int (type str)",
     "engine.isKeyPressed(type('', (), dict(__int__=lambda self: ''))())"),
    (OverflowError, "value too large to convert to int",
     "engine.isKeyPressed(2 ** 31)", "engine.isKeyPressed(type('', (), dict(__index__=lambda self: 2 ** 31))())"),
    (OverflowError, "value too small to convert to int", "engine.isKeyPressed(-2 ** 31 - 1)"),
    (OverflowError, "too large to convert to float", "v.scale(10 ** 400)"),
    (OverflowError, "can't convert negative value to uint32_t", "z.SpriteComponent(None, False, 0, 1, -1)"),
    (ValueError, "cannot convert float NaN to integer", "engine.isKeyPressed(NAN)"),
    (ValueError, "audioChannels must be at most 65536", "engine.init('a', (8, 8), audioChannels=65537)"),
    (ValueError, "the percent of a slider must not be NaN", "slider.percent = NAN"),
    (ValueError, "must not be negative, got -1 by 5", "z.Texture(-1, 5)"),
    (ZeroDivisionError, "float division", "engine.run(0)", "v.angleTo(z.Vector2(0, 0))"),
    (ZeroDivisionError, "at least one column and one row", "z.Sprite(texture, 0, 1, [])"),
    (ValueError, "embedded null", "engine.setWindowTitle('a\\0b')", "z.Texture('a\\0b')", "z.Music('a\\0b')"),
    (UnicodeEncodeError, "surrogates not allowed", "engine.setWindowTitle('\\ud800')"),
    (TypeError, "expected str, got NoneType", "z.SpriteAnimation(None, 1, False, 1, 0, 1)"),
    (AttributeError, "no attribute 'encode'", "engine.setWindowTitle(None)", "texture.saveFile(None)"),
    (TypeError, "expected zelvarine.Vector2, got NoneType", "v.set(None)", "z.Camera(v, None, 60, 0)"),
    (TypeError, "expected zelvarine.UIWidget, got int", "z.UIListContainer().addChild(5)"),
    (TypeError, "unsupported operand", "v - 2", "v * type('Own', (z.Vector2,), {})(1, 2)"),
    (TypeError, "can't multiply sequence by non-int of type 'float'", "v * '2'"),
    (TypeError, "complex", "v.scale(1j)"),
    (TypeError, "'int' has no len()", "engine._eventSubscribers[int] = map(len, [1]); engine.fireEvent(3)"),
    (TypeError, "component type must be a class", "z.component('a')(5)"),
    (TypeError, "not supported between instances of 'str' and 'int'", "engine.addTaskAfter('x', print)"),
    (TypeError, "color must be a tuple of 3 (rgb) or 4 (rgba) integers", "texture.fill((1, 2))"),
    (ValueError, "too many values to unpack (expected 2)", "engine.setWindowPos((1, 2, 3))"),
    (z.EngineException, "The engine is not initialized, yet.Call init method first.", "engine.update()"),
    (IndexError, "cell (30, 0) is outside of the level of 30 by 30 cells", "level.getBlock(30, 0)"),
    (IndexError, "cell (29, 30)", "level.setBlock(z.BLOCK_SQUARE, 29, 30)"),
    (IndexError, "a cell has no byte 7", "level.getTextureIndex(7, 0, 0)"),
    (AttributeError, "not writable", "v.length = 1"),
    (AttributeError, "this attribute cannot be deleted", "del v.x"),
    (TypeError, "zelvarine.Vector2", "z.Vector2.other = 1")]
NAMES = dict(z=z, NAN=float("nan"), v=z.Vector2(3, 4), texture=z.Texture(4, 3), engine=z.Engine(), level=z.Level(),
             slider=z.UISlider(1))


@pytest.mark.parametrize("error, message, statement", [row[:2] + (each,) for row in REFUSALS for each in row[2:]])
def test_refusal(error, message, statement):
    with pytest.raises(error, match=re.escape(message)) as raised:
        exec(statement, NAMES)
    assert raised.type is error and str(NAMES["v"]) == "Vector2(3.000000, 4.000000)"
