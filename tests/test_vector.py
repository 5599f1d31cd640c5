"""The two-dimensional vector."""
import math
from fractions import Fraction

import pytest

from zelvarine import Vector2

NAN, INF, THIRD = float("nan"), float("inf"), Fraction(1, 3)
V, EAST, SOUTH, STEEP = Vector2(3, 4), Vector2(1, 0), Vector2(0, 3), Vector2(0.1, 0.7)
COS, SIN = math.cos(33 * 0.017453292519943295), math.sin(33 * 0.017453292519943295)
Own = type("Own", (Vector2,), {"angleTo": lambda self, other: math.pi / 2})


def test_one_value_under_two_names():
    v = Vector2(y=True, x=Fraction(1, 2))
    assert (v.x, v.y) == (0.5, 1.0) and type(v.y) is float
    v._x, v.y = 3, -4
    assert (v.x, v._y, v.length) == (3.0, -4.0, 5.0)


@pytest.mark.parametrize("v, operation, arguments, expected", [
    (V, "set", [Own(7, 8)], (7, 8)), (V, "add", [STEEP], (3.1, 4.7)), (V, "sub", [STEEP], (2.9, 3.3)),
    (V, "scale", [True], (3, 4)), (V, "scale", [THIRD], (3.0 * THIRD, 4.0 * THIRD)), (V, "negate", [], (-3, -4)),
    (V, "normalize", [], (0.6, 0.8)), (Vector2(0, 0), "normalize", [], (0, 0)),
    (V, "rotate", [33], (COS * 3 - SIN * 4, COS * 4 + SIN * 3)),
    (V, "copy", [], "Vector2(3.000000, 4.000000)"), (V, "__add__", [STEEP], "Vector2(3.100000, 4.700000)"),
    (V, "__sub__", [STEEP], "Vector2(2.900000, 3.300000)"), (V, "__mul__", [2], "Vector2(6.000000, 8.000000)"),
    (V, "__mul__", [SOUTH], 12.0), (EAST, "getDegrees", [], 0.0), (SOUTH, "getDegrees", [], 90.0),
    (Vector2(-1, -0.0), "getDegrees", [], -180.0), (STEEP, "getDegrees", [], math.atan2(0.7, 0.1) * 57.29577951308232),
    (EAST, "angleTo", [SOUTH], math.pi / 2), (SOUTH * -1, "angleTo", [EAST], math.pi / 2),
    (V, "angleTo", [EAST], math.acos(3 / 5)), (EAST, "angleToInDegrees", [EAST * -2], 180.0),
    (STEEP, "angleTo", [STEEP], 0.0), (STEEP, "angleTo", [STEEP * -1], math.pi),    # beyond 1 by rounding
    (EAST, "angleTo", [Vector2(NAN, 0)], NAN), (Own(1, 0), "angleToInDegrees", [EAST], 90.0),
    (Own(1e300, 0), "__repr__", [], "Vector2({:f}, 0.000000)".format(1e300)),
    (Vector2(NAN, -INF), "__repr__", [], "Vector2(nan, -inf)"),
    (Vector2(-0.0, 2e-7), "__str__", [], "Vector2(-0.000000, 0.000000)")])
def test_operations(v, operation, arguments, expected):
    v, before = type(v)(v.x, v.y), (v.x, v.y)
    result, changes = getattr(v, operation)(*arguments), isinstance(expected, tuple)
    assert str(result) == str(None if changes else expected)
    assert str((v.x, v.y)) == str(tuple(map(float, expected)) if changes else before)
