"""Listening to what the player runs into."""

from zelvarine import AbstractSystem, CollisionComponent, CollisionEvent


class CollisionListener(AbstractSystem):
    """The base of systems that want to know whom the player meets. Derived classes have a method meet(other, flags)."""

    def __init__(self, player):
        super().__init__()
        self.player = player

    def _setEngine(self, engine):
        """Listens to the engine that the system joins, and no longer to the one that it leaves."""
        if self.getEngine() is not None:
            self.getEngine().unsubscribeEvent(CollisionEvent, self._on_collision)
        super()._setEngine(engine)
        if engine is not None:
            engine.subscribeEvent(CollisionEvent, self._on_collision)

    def _on_collision(self, event):
        pair = [event.entity1, event.entity2]
        if self.player in pair and None not in pair:
            pair.remove(self.player)
            self.meet(pair[0], flags(pair[0]))


def flags(entity):
    return entity.getComponent(CollisionComponent).hasFlags
