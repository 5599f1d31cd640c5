"""Whether there is a screen, and what to do without one."""

import os
import sys


def exists():
    if not sys.platform.startswith("linux"):
        return True
    return bool(os.environ.get("DISPLAY") or os.environ.get("WAYLAND_DISPLAY"))


def choose_drivers(headless, silent):
    """Call this before zelvarine is imported: the import opens the screen and the audio device."""
    if headless:
        os.environ["SDL_VIDEODRIVER"] = "dummy"
    if headless or silent:
        os.environ["SDL_AUDIODRIVER"] = "dummy"
