"""How the player is. Fires burn and wardens push; rest heals."""

from zelvarine import PositionComponent, component

from .collisions import CollisionListener

HARMFUL = {"fire": 0.15, "warden": 0.1}  # flag of a body -> what it takes
PAUSE = 0.6  # seconds until something can hurt again
HEALING = 0.01  # in a second


@component("health")
class Health:
    """From 0 to 1. Being a component, it is saved and loaded with the level."""

    def __init__(self):
        self.value = 1.0


class HealthSystem(CollisionListener):
    """Who has no health left wakes up where the walk began."""

    def __init__(self, player):
        super().__init__(player)
        player.addComponent(Health())  # changes nothing where the level file brought one along
        self._health = player.getComponent(Health)
        self._position = player.getComponent(PositionComponent).pos
        self._start = self._position.copy()
        self._pause = 0.0

    @property
    def value(self):
        return self._health.value

    def update(self, timeStep):
        self._pause -= timeStep
        self._health.value = min(1.0, self._health.value + HEALING * timeStep)
        if self._health.value <= 0:
            self._position.set(self._start)
            self._health.value = 1.0

    def meet(self, other, flags):
        harm = max([HARMFUL.get(flag, 0.0) for flag in flags], default=0.0)
        if harm and self._pause <= 0:
            self._health.value -= harm
            self._pause = PAUSE
