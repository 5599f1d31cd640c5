"""The gems. In the level they are triggers: bodies that one walks through, and that tell when one does."""

from zelvarine import AbstractSystem, CollisionComponent, CollisionEvent, component

FLAG = "gem"


@component("purse")
class Purse:
    """What the player has found. Being a component, it is saved and loaded with the level."""

    def __init__(self):
        self.gems = 0


class Treasure(AbstractSystem):
    """Puts the gems that the player walks through into the purse."""

    def __init__(self, level, player, sounds):
        super().__init__()
        self._player = player
        self._sounds = sounds
        player.addComponent(Purse())  # changes nothing where the level file brought one along
        self._purse = player.getComponent(Purse)
        self.total = self.found + sum(_is_gem(entity) for entity in level.getEntities(CollisionComponent))

    @property
    def found(self):
        return self._purse.gems

    def _setEngine(self, engine):
        """Listens to the engine that the system joins, and no longer to the one that it leaves."""
        if self.getEngine() is not None:
            self.getEngine().unsubscribeEvent(CollisionEvent, self._on_collision)
        super()._setEngine(engine)
        if engine is not None:
            engine.subscribeEvent(CollisionEvent, self._on_collision)

    def _on_collision(self, event):
        if event.entity1 is self._player and event.entity2 is not None and _is_gem(event.entity2):
            self.getEcs().removeEntity(event.entity2)
            self._purse.gems += 1
            self._sounds.play("chime")


def _is_gem(entity):
    return FLAG in entity.getComponent(CollisionComponent).hasFlags
