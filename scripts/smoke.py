#!/usr/bin/env python3
"""Tries an installed wheel: plays the demo without a window or sound, and tells where its libraries are from.

What a Linux wheel may expect of a system is loaded first. Each library that comes after it has to be the wheel's own.
"""

import contextlib
import ctypes
import io
import os
import re
import runpy
import sys
import sysconfig
import tempfile

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
# Of those that wheels named manylinux may expect, the ones that SDL's companions use.
EXPECTED = ["libpthread.so.0", "libdl.so.2", "librt.so.1", "libstdc++.so.6", "libz.so.1", "libexpat.so.1",
            "libglib-2.0.so.0", "libgobject-2.0.so.0", "libX11.so.6", "libXext.so.6", "libXrender.so.1"]
OPTIONAL = ["libudev.so.1"]  # tells SDL of joysticks that come and go


def main():
    for name in EXPECTED + OPTIONAL:
        try:
            ctypes.CDLL(name)
        except OSError:
            print("not on this system: " + name)
    before = libraries()
    play_demo()
    play_compressed_music()
    loaded = libraries() - before
    own = {path for path in loaded if path.startswith(folder("platlib"))}
    strangers = sorted(path for path in loaded - own if not path.startswith(folder("stdlib")))
    if strangers or not any("libSDL2_mixer" in path for path in own):
        sys.exit("{} libraries are the wheel's own, but not these: {}".format(len(own), strangers))
    print("the demo plays with {} libraries of the wheel and none of others".format(len(own)))


def folder(name):
    return sysconfig.get_path(name) + os.sep


def libraries():
    """The paths of the shared libraries in this process."""
    with open("/proc/self/maps", encoding="utf-8") as file:
        return set(re.findall(r" (/\S+\.so\S*)$", file.read(), re.MULTILINE))


def play_demo():
    sys.path.insert(0, os.path.join(ROOT, "examples"))
    with tempfile.TemporaryDirectory() as pictures:
        sys.argv = ["walk.py", "--headless", "--size", "320x200", "--pictures", pictures]
        with contextlib.redirect_stdout(io.StringIO()):
            runpy.run_path(os.path.join(ROOT, "examples", "walk.py"), run_name="__main__")


def play_compressed_music():
    import zelvarine  # not before the demo has chosen SDL's drivers

    zelvarine.Music(os.path.join(ROOT, "tests", "data", "tone.ogg")).play()


if __name__ == "__main__":
    main()
