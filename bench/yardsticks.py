"""What drawing a frame is compared with: writing every pixel once."""
import ctypes
import functools
import os

from measure import Scenario, Timed

SIZES = (160, 120), (320, 200), (640, 480), (1280, 720), (1920, 1080)
_library = ctypes.CDLL(os.environ["YARDSTICK"])
_library.newFrame.restype = ctypes.c_void_p


def yardsticks():
    """A frame written past the caches with non-temporal stores, and filled by SDL_FillRect"""
    for size in SIZES:
        yield Scenario("%dx%d" % size, lambda size=size: beside(size))


@functools.lru_cache(maxsize=None)
def beside(size):
    """The function that does one round, for a frame of a size."""
    frame = ctypes.c_void_p(_library.newFrame(*size))
    write, fill = Timed(lambda: _library.write(frame)), Timed(lambda: _library.fill(frame))
    return lambda: {"write": write.milliseconds(), "fill": fill.milliseconds()}
