"""What several tests share, above all SDL beside the module, to play the part of the user and his devices."""
import contextlib
import ctypes
import io
import os
import pathlib
import struct
import subprocess
import sys
from unittest import mock

import pytest
import zelvarine

# Looked up through the module: this is the very SDL that it runs on.
sdl = ctypes.CDLL(zelvarine.__file__)
sdl.SDL_GetKeyboardState.restype = ctypes.POINTER(ctypes.c_uint8)
sdl.SDL_GetWindowTitle.restype = ctypes.c_char_p
sdl.SDL_JoystickFromInstanceID.restype = sdl.SDL_GetWindowFromID.restype = ctypes.c_void_p

DATA = pathlib.Path(__file__).resolve().parent / "data"
DEJAVU = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"
needs_font = pytest.mark.skipif(not os.path.exists(DEJAVU), reason="needs Debian's package fonts-dejavu-core")


def _push(format, *values):
    event = ctypes.create_string_buffer(struct.pack("=" + format, *values), 128)
    assert sdl.SDL_PushEvent(event) == 1


def push_quit():
    _push("I", 0x100)


def push_key(key, scancode=0, down=True, repeat=False):
    _push("IIIBBxxiiHxxI", 0x300 if down else 0x301, 0, 0, down, repeat, scancode, key, 0, 0)


def push_motion(xrel, yrel, x=0, y=0):
    _push("IIIIIiiii", 0x400, 0, 0, 0, 0, x, y, xrel, yrel)


def push_button(x, y, button=zelvarine.MOUSE_LEFT, down=False):
    _push("IIIIBBBxii", 0x401 if down else 0x402, 0, 0, 0, button, down, 1, x, y)


def push_wheel(x, y):
    _push("IIIIiiI", 0x403, 0, 0, 0, x, y, 0)


def newest_window():
    return ctypes.c_void_p(next(filter(None, map(sdl.SDL_GetWindowFromID, range(10000, 0, -1)))))


def move_mouse(x, y):
    """Moves the mouse over the newest window, as far as SDL is concerned."""
    sdl.SDL_WarpMouseInWindow(newest_window(), x, y)


def flush_events():
    sdl.SDL_PumpEvents()
    sdl.SDL_FlushEvents(0, 0xFFFF)


@contextlib.contextmanager
def unraisable_reports():
    """A file that holds what is reported of exceptions which could not be passed on."""
    hook = getattr(sys, "__unraisablehook__", None)  # pytest has put in its own; Python 3.7 has none
    reports = io.StringIO()
    with mock.patch.object(sys, "unraisablehook", hook, create=True), contextlib.redirect_stderr(reports):
        yield reports


def plug_in(axes, buttons):
    """A joystick that exists in SDL alone, until unplug_all(); returns what SDL knows it by."""
    index = sdl.SDL_JoystickAttachVirtual(1, axes, buttons, 0)  # 1: a game controller
    assert index >= 0
    return sdl.SDL_JoystickGetDeviceInstanceID(index)


def unplug_all():
    for index in reversed(range(sdl.SDL_NumJoysticks())):
        sdl.SDL_JoystickDetachVirtual(index)


def record(engine, eventType):
    """A list that all events of a type are added to."""
    events = []
    engine.subscribeEvent(eventType, events.append)
    return events


def add_system(engine, function):
    """Has a function called in the system step of every frame."""
    system = type("System", (zelvarine.AbstractSystem,), {})()
    system.update = function
    engine.ecs.addSystem(system)


def run_script(*command, error="", quiet=True, **environment):
    """Runs code, or a file, in a process of its own, which ends with the error given or none; returns its output."""
    path = [os.path.dirname(zelvarine.__file__), os.path.dirname(__file__)]
    environment = dict(os.environ, PYTHONPATH=os.pathsep.join(path), **environment)
    command = [sys.executable] + ["-c"] * (len(command) == 1) + list(command)
    done = subprocess.run(command, env=environment, timeout=300, universal_newlines=True,
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    assert error in done.stderr and bool(done.returncode) == bool(error), done.stderr[-2000:]
    assert error or not quiet or done.stderr == ""
    return done.stdout


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
