"""The way of the scripted walk."""

import math
from typing import NamedTuple, Tuple

from zelvarine import KEY_ESCAPE, KEY_F11, KEY_F12, KEY_F5, KEY_F9, KEY_M

PACE = 0.18  # cells in a frame
TURN = 5.0  # degrees in a frame, where the walk stands still


class Stop(NamedTuple):
    """Where to be and where to look: degrees from east over south. Between two stops the walk goes straight.

    At a stop, a picture may be taken, and then keys be pressed and the mouse be clicked: the places for that are shares
    of the picture's width and height, and count while the mouse is free.
    """

    x: float
    y: float
    degrees: float
    picture: str = ""
    lamp: bool = False
    keys: Tuple[int, ...] = ()
    clicks: Tuple[Tuple[float, float], ...] = ()


MIDDLE = (0.5, 0.5)

STOPS = [
    Stop(16.0, 21.2, -90),
    Stop(16.0, 20.6, -90, "court", clicks=(MIDDLE,)), Stop(16.0, 20.0, -90, "tree", keys=(KEY_M,)),
    Stop(16.0, 19.8, -90, clicks=((0.02, 0.5), (0.5, 0.8), (0.2, 0.1))),
    Stop(16.0, 18.0, -80, keys=(KEY_M,)), Stop(14.6, 16.0, -60), Stop(15.6, 14.4, -80), Stop(15.5, 13.0, -90),
    Stop(15.5, 8.6, -90, "chapel"), Stop(14.2, 6.0, -80), Stop(14.2, 3.6, -52, "window"), Stop(17.4, 6.0, 0),
    Stop(20.4, 6.1, 25), Stop(21.5, 7.5, 0), Stop(24.8, 7.5, 0), Stop(27.5, 8.1, -90, "furnace"), Stop(25.0, 6.4, -120),
    Stop(24.8, 2.9, -34, clicks=(MIDDLE,)), Stop(24.8, 2.8, -34, "wardens"), Stop(25.0, 6.4, 45), Stop(27.5, 8.5, 90),
    Stop(27.5, 10.6, 95, "passage"), Stop(29.2, 13.0, 90, keys=(KEY_ESCAPE,)), Stop(29.2, 16.0, 110, "cellar"),
    Stop(27.3, 19.0, 195, "flashlight", True), Stop(28.5, 21.5, 90), Stop(28.5, 23.5, 180),
    Stop(18.6, 23.6, 170, "gate", keys=(KEY_F5, KEY_F12)), Stop(17.8, 23.5, 170), Stop(17.9, 23.5, 160, "burnt"),
    Stop(18.2, 24.2, 100), Stop(17.5, 24.6, 80), Stop(17.6, 27.5, 0, "garden"),
    Stop(16.0, 27.5, 190, "glow"), Stop(13.8, 27.5, 190, keys=(KEY_F9,)), Stop(18.6, 23.6, 170, "back at the gate"),
    Stop(17.5, 24.6, 80), Stop(16.0, 27.5, 190, keys=(KEY_F11,)), Stop(11.5, 27.5, 180, keys=(KEY_F12, KEY_F11)),
    Stop(9.0, 27.6, 205, "stable", True), Stop(6.2, 27.5, 190), Stop(5.2, 26.0, -90), Stop(4.5, 23.5, -90),
    Stop(4.5, 21.2, -90, "hall"), Stop(6.0, 19.5, 0), Stop(9.5, 19.5, 0), Stop(12.4, 19.3, 190, "sunset"),
    Stop(10.4, 18.6, -90), Stop(10.4, 12.5, -90), Stop(8.5, 12.5, -180), Stop(4.5, 12.3, -90), Stop(4.5, 9.5, -90),
    Stop(4.5, 8.0, -90, "library"), Stop(4.5, 2.4, -90),
]


def way(stops):
    """Where to be and look in each frame: on the way from stop to stop, and at last at it, where the picture is."""
    last = saved = stops[0]
    for stop in stops[1:]:
        distance = math.hypot(stop.x - last.x, stop.y - last.y)
        turn = (stop.degrees - last.degrees + 180.0) % 360.0 - 180.0
        count = max(1, int(math.ceil(max(distance / PACE, abs(turn) / TURN))))
        for frame in range(1, count):
            share = frame / count
            swing = share * share * (3 - 2 * share)
            x, y = last.x + (stop.x - last.x) * share, last.y + (stop.y - last.y) * share
            yield Stop(x, y, last.degrees + turn * swing, lamp=stop.lamp)
        yield stop
        saved = stop if KEY_F5 in stop.keys else saved
        last = saved if KEY_F9 in stop.keys else stop
