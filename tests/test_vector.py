"""The two-dimensional vector."""
import math
from fractions import Fraction

import pytest

from zelvarine import Vector2

NAN, INF = float("nan"), float("inf")


class Own(Vector2):
    """A vector class of a script."""

    def angleTo(self, other):
        return math.pi / 2


def xy(v):
    return v.x, v.y


def test_one_value_under_two_names():
    v = Vector2(y=True, x=Fraction(1, 2))
    assert xy(v) == (0.5, 1.0) and type(v.y) is float
    v._x, v.y = 3, -4
    assert (v.x, v._y, v.length) == (3.0, -4.0, 5.0)
    for name, value, error in (("length", 1.0, AttributeError), ("x", "1", TypeError), ("_y", None, TypeError)):
        with pytest.raises(error):
            setattr(v, name, value)
    with pytest.raises(AttributeError):
        del v.x
    assert xy(v) == (3.0, -4.0)


def test_arguments_outlive_the_dict_that_they_came_from():
    class Emptying:
        def __float__(self):
            keywords.clear()
            return 1.0

    keywords = {"x": Emptying(), "y": float("12.25")}
    assert xy(Vector2(**keywords)) == (1.0, 12.25)


@pytest.mark.parametrize("operation, arguments, expected", [
    ("set", (Own(7, 8),), (7, 8)), ("add", (Vector2(0.5, -1),), (3.5, 3)), ("sub", (Vector2(0.5, -1),), (2.5, 5)),
    ("scale", (True,), (3, 4)), ("scale", (Fraction(1, 3),), (3.0 * Fraction(1, 3), 4.0 * Fraction(1, 3))),
    ("negate", (), (-3, -4)), ("normalize", (), (0.6, 0.8)), ("rotate", (90,), pytest.approx((-4, 3))),
    ("rotate", (33,), (math.cos(33 * 0.017453292519943295) * 3 - math.sin(33 * 0.017453292519943295) * 4,
                       math.cos(33 * 0.017453292519943295) * 4 + math.sin(33 * 0.017453292519943295) * 3))])
def test_operations_that_change_the_vector(operation, arguments, expected):
    v = Vector2(3, 4)
    assert getattr(v, operation)(*arguments) is None
    assert xy(v) == expected


def test_operations_that_leave_the_vector_alone():
    v, w, zero = Vector2(3, 4), Vector2(0.5, -1), Vector2(0, 0)
    assert (xy(v + w), xy(v - w), v * w, xy(v * 2), xy(v.copy())) == ((3.5, 3), (2.5, 5), -2.5, (6, 8), (3, 4))
    assert type(v * w) is float and type(Own(1, 2) + w) is Vector2 and Own(1, 2) * w == -1.5
    assert xy(v) == (3, 4) and v.copy() is not v
    zero.normalize()
    assert xy(zero) == (0, 0)


@pytest.mark.parametrize("operand", [None, "2", [2], 1j, 10 ** 400, Own(1, 2), 2])
def test_bad_operands_change_nothing(operand):
    v = Vector2(3, 4)
    isVector, isNumber = isinstance(operand, Vector2), operand == 2
    for operation in () if isVector else (v.set, v.add, v.sub, v.angleTo, lambda o: v + o, lambda o: v - o, lambda o: o - v):
        with pytest.raises(TypeError):
            operation(operand)
    for operation in () if isNumber else (v.scale, lambda o: v * o):  # the dot product is for the class itself
        with pytest.raises(OverflowError if operand == 10 ** 400 else TypeError):
            operation(operand)
    with pytest.raises(TypeError):
        v.__init__(1)
    assert xy(v) == (3, 4)


@pytest.mark.parametrize("x, y, degrees", [(1, 0, 0), (0, 1, 90), (-1, 0, 180), (-1, -0.0, -180), (1, -1, -45)])
def test_direction_in_degrees(x, y, degrees):
    assert Vector2(x, y).getDegrees() == math.atan2(y, x) * 57.29577951308232 == pytest.approx(degrees)


def test_angle_between_vectors():
    east, zero, v, w = Vector2(1, 0), Vector2(0, 0), Vector2(1, 3), Vector2(5, -7)
    assert east.angleTo(Vector2(0, -3)) == east.angleTo(Vector2(0, 3)) == math.pi / 2
    assert east.angleToInDegrees(Vector2(-2, 0)) == math.pi * 57.29577951308232
    assert v.angleTo(w) == math.acos((v * w) / (v.length * w.length))
    assert Own(1, 0).angleToInDegrees(east) == pytest.approx(90)
    steep = Vector2(0.1, 0.7)
    assert steep * steep / (steep.length * steep.length) > 1  # by rounding
    assert steep.angleTo(steep) == 0.0 and steep.angleTo(steep * -1) == math.pi
    assert math.isnan(east.angleTo(Vector2(NAN, 0))) and math.isnan(Vector2(INF, 0).angleTo(east))
    for a, b in ((east, zero), (zero, east)):
        with pytest.raises(ZeroDivisionError):
            a.angleTo(b)


@pytest.mark.parametrize("v, text", [
    (Vector2(1, 2.5), "Vector2(1.000000, 2.500000)"), (Vector2(-0.0, 2e-7), "Vector2(-0.000000, 0.000000)"),
    (Vector2(NAN, -INF), "Vector2(nan, -inf)"), (Own(1e300, 0), "Vector2({:f}, 0.000000)".format(1e300))])
def test_text(v, text):
    assert str(v) == repr(v) == text
