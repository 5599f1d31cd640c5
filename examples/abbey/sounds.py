"""What there is to hear: the tune, the player's steps and single sounds."""

import collections
import os

from zelvarine import AbstractSystem, EngineException, Music, PositionComponent, Sound

from shared.places import ASSETS

STRIDE = 0.8  # cells from one footfall to the next
NAMES = ("step1", "step2", "chime")


class Sounds:
    def __init__(self):
        self._sounds = {name: Sound(_path(name)) for name in NAMES}
        self._tune = Music(_path("tune"))
        self.played = collections.Counter()

    def play(self, name):
        self.played[name] += 1
        try:
            self._sounds[name].play()
        except EngineException:
            pass  # every channel is busy: nobody would hear one more sound

    def play_tune(self):
        self._tune.loop(0)  # 0: without end


class Footsteps(AbstractSystem):
    """Lets one foot after the other sound while the player moves."""

    def __init__(self, sounds):
        super().__init__()
        self._sounds = sounds
        self._feet = ["step1", "step2"]

    def follow(self, world):
        self._position = world.player.getComponent(PositionComponent).pos
        self._last = self._position.copy()
        self._walked = 0.0

    def update(self, timeStep):
        self._walked += (self._position - self._last).length
        self._last.set(self._position)
        if self._walked >= STRIDE:
            self._walked %= STRIDE
            self._sounds.play(self._feet[0])
            self._feet.reverse()


def _path(name):
    return os.path.join(ASSETS, "sounds", name + ".wav")
