"""The game: loads the level, sets the systems up in the order in which they act, and runs them."""

import os

from zelvarine import (Engine, KEY_F, KEY_M, KeyEvent, Level, MovementSystem, PositionComponent, RaycastingRenderer,
                       RotationComponent, Texture)

from .controls import Controls
from .title import TitleBar
from .tour import Tour
from .treasure import Treasure
from .wardens import WardenSystem

LAMP = os.path.join(os.path.dirname(__file__), "..", "assets", "flashlight.png")
PLAYER_ID = 1  # the id that the level file gives to the player
FIELD_OF_VIEW = 70  # degrees; with this, sprites stay at their place on the floor when the view turns
# Divides the picture's height by its width to the camera's ratio that makes walls as wide as they are high.
SQUARE_WALLS = 2.56


class Game:
    def __init__(self, level_file, size):
        self.engine = Engine()
        self.engine.init("zelvarine", size, resizeable=True)
        self.level = Level(level_file)
        self.target = Texture(*size)
        self.renderer = RaycastingRenderer(self.target, self.level)
        self.camera = self.renderer.getCamera()
        self.camera.fov = FIELD_OF_VIEW
        self.camera.pitch = 0
        self.camera.ratio = SQUARE_WALLS * size[1] / size[0]
        self.lamp = Texture(LAMP)
        self.lamp_is_on = False
        self.level.syncEntitiesToEcs(self.engine.ecs)
        self.player = self.engine.ecs.getEntityById(PLAYER_ID)
        if self.player is None:
            raise SystemExit("%s has no entity with the id %d, which is the player's" % (level_file, PLAYER_ID))
        self._look_through(self.player)
        self.treasure = Treasure(self.engine, self.player)

    def play(self, max_fps):
        """You walk, until Escape is pressed or the window closed."""
        self._add_systems(Controls(self.engine, self.player, self.camera, self.target.height))
        self.engine.ecs.addSystem(TitleBar(self.treasure))
        self.engine.subscribeEvent(KeyEvent, self.on_key)
        self.engine.captureMouse(True)
        self.engine.run(max_fps)
        self.engine.quit()

    def show_around(self, picture_folder, max_frames=None):
        """The scripted walk, as fast as it goes. Gives the tour, which can tell about it."""
        tour = Tour(self, picture_folder)
        self._add_systems(tour)
        while self.engine.isRunning() and not tour.is_over(max_frames):
            tour.take_step()
        self.engine.quit()
        return tour

    def switch_lamp(self, on):
        self.lamp_is_on = on
        self.renderer._setFlashlight(self.lamp if on else None)

    def on_key(self, event):
        if event.key == KEY_F:
            self.switch_lamp(not self.lamp_is_on)
        elif event.key == KEY_M:
            self.engine.captureMouse(not self.engine.isMouseCaptured())

    def _look_through(self, entity):
        """Makes the camera's vectors the entity's own: who moves the entity moves the camera."""
        position = entity.getComponent(PositionComponent)
        rotation = entity.getComponent(RotationComponent)
        self.camera.pos.set(position.pos)
        self.camera.dir.set(rotation.dir)
        position.pos = self.camera.pos
        rotation.dir = self.camera.dir

    def _add_systems(self, guide):
        """The guide decides where the player wants to go. The picture is drawn when everybody has moved."""
        for system in (guide, WardenSystem(), MovementSystem(self.level), self.renderer):
            self.engine.ecs.addSystem(system)
