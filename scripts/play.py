#!/usr/bin/env python3
"""Plays a script for a few frames, without a screen and without sound."""
import os
import runpy
import sys

os.environ.setdefault("SDL_VIDEODRIVER", "dummy")
os.environ.setdefault("SDL_AUDIODRIVER", "dummy")
import zelvarine


class ShortEngine(zelvarine.Engine):
    """An engine that the user stops after a few frames."""

    def run(self, maxFps=60):
        for _ in range(20):
            if self.isRunning():
                self.update()


zelvarine.Engine = ShortEngine


def play(script):
    sys.path.insert(0, os.path.dirname(os.path.abspath(script)))
    runpy.run_path(script, run_name="__main__")


if __name__ == "__main__":
    play(sys.argv[1])
