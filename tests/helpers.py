"""What several tests share, above all SDL beside the module, to play the part of the user and his devices."""
import contextlib
import ctypes
import io
import os
import struct
import subprocess
import sys
from unittest import mock

import pytest
import zelvarine

# Looked up through the module: this is the very SDL that it runs on.
sdl = ctypes.CDLL(zelvarine.__file__)
sdl.SDL_GetKeyboardState.restype = ctypes.POINTER(ctypes.c_uint8)
sdl.SDL_GetKeyName.restype = sdl.SDL_GetWindowTitle.restype = ctypes.c_char_p
for function in ("SDL_JoystickFromInstanceID", "SDL_GetWindowFromID"):
    getattr(sdl, function).restype = ctypes.c_void_p

DEJAVU = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"
needsFont = pytest.mark.skipif(not os.path.exists(DEJAVU), reason="needs Debian's package fonts-dejavu-core")


def _push(format, *values):
    event = ctypes.create_string_buffer(struct.pack("=" + format, *values), 128)
    assert sdl.SDL_PushEvent(event) == 1


def pushQuit():
    _push("I", 0x100)


def pushKey(key, scancode=0, down=True, repeat=False):
    _push("IIIBBxxiiHxxI", 0x300 if down else 0x301, 0, 0, down, repeat, scancode, key, 0, 0)


def pushMotion(xrel, yrel, x=0, y=0):
    _push("IIIIIiiii", 0x400, 0, 0, 0, 0, x, y, xrel, yrel)


def pushButton(x, y, button=zelvarine.MOUSE_LEFT, down=False):
    _push("IIIIBBBxii", 0x401 if down else 0x402, 0, 0, 0, button, down, 1, x, y)


def pushWheel(x, y):
    _push("IIIIiiI", 0x403, 0, 0, 0, x, y, 0)


def newestWindow():
    return ctypes.c_void_p(next(filter(None, map(sdl.SDL_GetWindowFromID, range(10000, 0, -1)))))


def moveMouse(x, y):
    """Moves the mouse over the newest window, as far as SDL is concerned."""
    sdl.SDL_WarpMouseInWindow(newestWindow(), x, y)


def flushEvents():
    sdl.SDL_PumpEvents()
    sdl.SDL_FlushEvents(0, 0xFFFF)


@contextlib.contextmanager
def unraisableReports():
    """A file that holds what is reported of exceptions which could not be passed on."""
    hook = getattr(sys, "__unraisablehook__", None)  # pytest has put in its own; Python 3.7 has none
    reports = io.StringIO()
    with mock.patch.object(sys, "unraisablehook", hook, create=True), contextlib.redirect_stderr(reports):
        yield reports


class VirtualJoystick:
    """A device that exists in SDL alone; a context manager that unplugs it at the end."""

    def __init__(self, axes, buttons):
        gameController = 1
        index = sdl.SDL_JoystickAttachVirtual(gameController, axes, buttons, 0)
        assert index >= 0
        self._id = sdl.SDL_JoystickGetDeviceInstanceID(index)

    def __enter__(self):
        return self

    def __exit__(self, *error):
        self.unplug()

    def _device(self):
        """The device as the engine opened it."""
        return ctypes.c_void_p(sdl.SDL_JoystickFromInstanceID(self._id))

    def setAxis(self, axis, value):
        assert sdl.SDL_JoystickSetVirtualAxis(self._device(), axis, ctypes.c_int16(value)) == 0

    def setButton(self, button, pressed):
        assert sdl.SDL_JoystickSetVirtualButton(self._device(), button, ctypes.c_uint8(pressed)) == 0

    def unplug(self):
        for index in range(sdl.SDL_NumJoysticks()):
            if sdl.SDL_JoystickGetDeviceInstanceID(index) == self._id:
                sdl.SDL_JoystickDetachVirtual(index)


def runScript(code, timeout=60, **environment):
    """Runs code in a process of its own and returns the process; stdout and stderr are text."""
    path = [os.path.dirname(zelvarine.__file__), os.path.dirname(__file__)]
    environment = dict(os.environ, PYTHONPATH=os.pathsep.join(path), **environment)
    return subprocess.run([sys.executable, "-c", code], env=environment, timeout=timeout,
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE, universal_newlines=True)


def cells(level):
    """The grid of a level as its file holds it."""
    return bytes(level.getTextureIndex(part, x, y)
                 for y in range(level.height) for x in range(level.width) for part in range(7))


def fog(level):
    return level.fogColor, level.fogDensity, level.groundFogColor, level.groundFogDensity


def playback(component):
    """What a sprite component has from its animation."""
    return (component._currentMinFrame, component._currentMaxFrame, component._currentDirections,
            component._animationSpeed)
