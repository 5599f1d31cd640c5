"""What drawing a frame is compared with: writing every pixel once."""
import ctypes

from measure import Timed


class Yardsticks:
    """`write` goes past the caches with non-temporal stores, and is the limit of what memory takes; `fill` is
    SDL_FillRect. A frame that the caches hold is filled faster than it is written past them."""

    def __init__(self, library):
        self._library = ctypes.CDLL(library)
        self._library.newFrame.restype = ctypes.c_void_p
        self._frame = None

    def prepare(self, width, height):
        """Makes a frame of a size, and returns the function that does one round."""
        library = self._library
        if self._frame is not None:
            library.freeFrame(self._frame)
        self._frame = frame = ctypes.c_void_p(library.newFrame(width, height))
        write, fill = Timed(lambda: library.write(frame)), Timed(lambda: library.fill(frame))
        return lambda: {"write": write.milliseconds(), "fill": fill.milliseconds()}
