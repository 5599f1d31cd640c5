"""The gems. In the level they are triggers: bodies that one walks through, and that tell when one does."""

from zelvarine import CollisionComponent, component

from .collisions import CollisionListener, flags

GEM = "gem"


@component("purse")
class Purse:
    """What the player has found. Being a component, it is saved and loaded with the level."""

    def __init__(self):
        self.gems = 0


class Treasure(CollisionListener):
    """Puts the gems that the player walks through into the purse."""

    def __init__(self, level, player, sounds):
        super().__init__(player)
        self._sounds = sounds
        player.addComponent(Purse())  # changes nothing where the level file brought one along
        self._purse = player.getComponent(Purse)
        self.total = self.found + sum(GEM in flags(entity) for entity in level.getEntities(CollisionComponent))

    @property
    def found(self):
        return self._purse.gems

    def meet(self, other, flags):
        if GEM in flags:
            self.getEcs().removeEntity(other)
            self._purse.gems += 1
            self._sounds.play("chime")
