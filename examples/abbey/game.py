"""The game: what belongs to it for as long as it runs, and what the player can do apart from walking."""

import os

from zelvarine import (Engine, FullscreenEvent, KEY_F, KEY_F11, KEY_F12, KEY_F5, KEY_F9, KEY_M, KeyEvent,
                       LevelFormatException, MOUSE_LEFT, MouseClickEvent, Texture)

from . import picking
from .controls import Controls
from .places import ASSETS
from .sounds import Footsteps, Sounds
from .title import TitleBar
from .tour import Tour
from .world import World


class Game:
    def __init__(self, level_file, size, save_file, picture_folder):
        self.engine = Engine()
        self.engine.init("zelvarine", size, resizeable=True)
        self.target = Texture(*size)
        self.sounds = Sounds()
        self.save_file = save_file
        self.picture_folder = picture_folder
        self.world = World(level_file, self.target, self.sounds)
        self._guides = []
        self._overlays = []
        self._lamp = Texture(os.path.join(ASSETS, "flashlight.png"))
        self._lamp_is_on = False
        self._screenshots = 0
        self._actions = {
            KEY_F: lambda: self.switch_lamp(not self._lamp_is_on),
            KEY_M: lambda: self.engine.captureMouse(not self.engine.isMouseCaptured()),
            KEY_F5: self.save,
            KEY_F9: self.load,
            KEY_F11: self.engine.toggleFullscreen,
            KEY_F12: self.take_screenshot,
        }
        self.engine.subscribeEvent(KeyEvent, self._on_key)
        self.engine.subscribeEvent(MouseClickEvent, self._on_click)
        self.engine.subscribeEvent(FullscreenEvent, lambda event: print("fullscreen" if event.newValue else "window"))

    def play(self, max_fps):
        """You walk, until Escape is pressed or the window closed."""
        self._start(Controls(self.engine), TitleBar())
        self.engine.captureMouse(True)
        self.engine.run(max_fps)
        self.engine.quit()

    def show_around(self, max_frames=None):
        """The scripted walk, as fast as it goes. Gives the tour, which can tell about it."""
        tour = Tour(self)
        self._start(tour)
        while self.engine.isRunning() and not tour.is_over(max_frames):
            tour.take_step()
        self.engine.quit()
        return tour

    def switch_lamp(self, on):
        self._lamp_is_on = on
        self.world.switch_lamp(self._lamp if on else None)

    def save(self):
        self.world.level.syncEntitiesFromEcs(self.engine.ecs)
        try:
            os.makedirs(os.path.dirname(os.path.abspath(self.save_file)), exist_ok=True)
            self.world.level.saveFile(self.save_file)
        except OSError as error:
            print("not saved: %s" % error)

    def load(self):
        """Goes on where the game was saved. If that fails, everything stays as it is."""
        try:
            world = World(self.save_file, self.target, self.sounds, ASSETS)
        except (OSError, LevelFormatException, LookupError, TypeError, ValueError) as error:
            print("not loaded: %s" % error)
            return
        self._enter(world)
        print("loaded file %s" % self.save_file)

    def take_screenshot(self):
        self._screenshots += 1
        path = self.picture_path("screenshot-%d.png" % self._screenshots)
        self.engine.saveScreenshot(path)
        print("screenshot in %s" % path)

    def picture_path(self, name):
        os.makedirs(self.picture_folder, exist_ok=True)
        return os.path.join(self.picture_folder, name)

    def _start(self, guide, *overlays):
        """The guide is a system that decides where the player wants to go, the overlays are what comes last in a
        frame."""
        self._guides = [guide, Footsteps(self.sounds)]
        self._overlays = list(overlays)
        self._enter(self.world)
        self.sounds.play_tune()

    def _enter(self, world):
        """Makes a world the one that is seen and walked in."""
        ecs = self.engine.ecs
        for system in list(ecs.getSystems()):
            ecs.removeSystem(system)
        world.level.syncEntitiesToEcs(ecs)
        for follower in self._guides + self._overlays:
            follower.follow(world)
        for system in self._guides + world.systems + self._overlays:
            ecs.addSystem(system)
        self.world = world
        self.switch_lamp(self._lamp_is_on)

    def _on_key(self, event):
        action = self._actions.get(event.key)
        if action is not None:
            action()

    def _on_click(self, event):
        """Tells what is under the mouse, or in the middle of the picture while the mouse turns the view."""
        if event.button == MOUSE_LEFT:
            x, y = event.x, event.y
            if self.engine.isMouseCaptured():
                x, y = self.target.width // 2, self.target.height // 2
            print(picking.describe(self.world.renderer, x, y))
