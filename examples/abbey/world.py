"""A loaded level, and all that acts in it."""

from zelvarine import Level, MovementSystem, PositionComponent, RaycastingRenderer, RotationComponent

from .health import HealthSystem
from .treasure import Treasure
from .wardens import WardenSystem

PLAYER_ID = 1  # the id that the level file gives to the player
FIELD_OF_VIEW = 70  # degrees; with this, sprites stay at their place on the floor when the view turns
# Divides the picture's height by its width to the camera's ratio that makes walls as wide as they are high.
SQUARE_WALLS = 2.56


class World:
    """Made from a level file. It touches no engine by itself: so a saved game can be loaded aside, and takes the place
    of the world before it only when all of it is there."""

    def __init__(self, level_file, target, sounds, assets=None):
        self.level = Level(level_file, assets)
        self.player = next((entity for entity in self.level.getEntities() if entity.id == PLAYER_ID), None)
        if self.player is None:
            raise ValueError("%s has no entity with the id %d, which is the player's" % (level_file, PLAYER_ID))
        self.renderer = RaycastingRenderer(target, self.level)
        self.camera = self.renderer.getCamera()
        self.camera.fov = FIELD_OF_VIEW
        self.camera.pitch = 0
        self.camera.ratio = SQUARE_WALLS * target.height / target.width
        self._look_through(self.player)
        self.health = HealthSystem(self.player)
        self.treasure = Treasure(self.level, self.player, sounds)
        # In the order in which they act.
        self.systems = [self.treasure, self.health, WardenSystem(), MovementSystem(self.level)]

    def switch_lamp(self, mask):
        """Lights what the mask, a picture, lets through; None puts the lamp out."""
        self.renderer._setFlashlight(mask)

    def _look_through(self, entity):
        """Makes the camera's vectors the entity's own: who moves the entity moves the camera."""
        position = entity.getComponent(PositionComponent)
        rotation = entity.getComponent(RotationComponent)
        self.camera.pos.set(position.pos)
        self.camera.dir.set(rotation.dir)
        position.pos = self.camera.pos
        rotation.dir = self.camera.dir
