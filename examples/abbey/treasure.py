"""The gems. In the level they are triggers: bodies that one walks through, and that tell when one does."""

from zelvarine import CollisionComponent, CollisionEvent

FLAG = "gem"


class Treasure:
    def __init__(self, engine, player):
        self._engine = engine
        self._player = player
        self.total = sum(_is_gem(entity) for entity in engine.ecs.getEntities(CollisionComponent))
        self.found = 0
        engine.subscribeEvent(CollisionEvent, self._on_collision)

    def _on_collision(self, event):
        if event.entity1 is self._player and event.entity2 is not None and _is_gem(event.entity2):
            self._engine.ecs.removeEntity(event.entity2)
            self.found += 1


def _is_gem(entity):
    return FLAG in entity.getComponent(CollisionComponent).hasFlags
