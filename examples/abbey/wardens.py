"""The clockwork wardens on their rounds."""

from zelvarine import AbstractSystem, PositionComponent, RotationComponent, SpriteComponent, VelocityComponent

STUCK = 0.3  # seconds without getting ahead, until a warden tries another way


class WardenSystem(AbstractSystem):
    """Lets everyone with a sprite who walks look where he goes, and turn to the right where he can go no further."""

    def __init__(self):
        super().__init__(PositionComponent, VelocityComponent, RotationComponent, SpriteComponent)
        self._rounds = {}  # entity id -> where it was last seen getting ahead, and how long ago

    def _updateEntity(self, entity, timeStep):
        position = entity.getComponent(PositionComponent).pos
        velocity = entity.getComponent(VelocityComponent).velocity
        place, waited = self._rounds.get(entity.id, (position.copy(), 0.0))
        waited += timeStep
        if waited >= STUCK:
            if (position - place).length < velocity.length * waited / 2:
                velocity.rotate(90)
            place, waited = position.copy(), 0.0
        self._rounds[entity.id] = place, waited
        facing = entity.getComponent(RotationComponent).dir
        facing.set(velocity)
        facing.normalize()
