"""Listening to what the player runs into."""

from zelvarine import CollisionComponent, CollisionEvent

from .listening import Listener


class CollisionListener(Listener):
    """The base of systems that want to know whom the player meets. Derived classes have a method meet(other, flags)."""

    def __init__(self, player):
        super().__init__(CollisionEvent)
        self.player = player

    def meet(self, other, flags):
        raise NotImplementedError

    def hear(self, event):
        pair = [event.entity1, event.entity2]
        if self.player in pair and None not in pair:
            pair.remove(self.player)
            self.meet(pair[0], flags(pair[0]))


def flags(entity):
    return entity.getComponent(CollisionComponent).hasFlags
