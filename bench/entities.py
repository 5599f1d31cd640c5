"""Entities that come, change and go."""
import random

import zelvarine as z
from measure import Scenario, milliseconds

COUNTS = 1000, 10000, 16000
CHOSEN = 100


def entities():
    """An Ecs with movement and one more system. A toggle removes a component and adds it again; lookups are by id"""
    for count in COUNTS:
        yield Scenario("{:,}".format(count), lambda count=count: population(count))


def repeated(action):
    action()
    return milliseconds(action, 3)


def population(count):
    chance = random.Random(1)
    chosen = chance.sample(range(1, count + 1), CHOSEN)
    level = z.Level()

    def one_round():
        ecs = z.Engine().ecs
        ecs.addSystem(z.MovementSystem(level))
        ecs.addSystem(z.AbstractSystem(z.DummyComponent))
        crowd = [z.Entity(id, z.PositionComponent(z.Vector2(15, 15)), z.VelocityComponent(z.Vector2(1, 0)),
                          z.DummyComponent()) for id in range(1, count + 1)]

        def add():
            for entity in crowd:
                ecs.addEntity(entity)

        def toggle():
            for id in chosen:
                crowd[id - 1].removeComponentType(z.DummyComponent)
                crowd[id - 1].addComponent(z.DummyComponent())

        def look_up():
            for id in chosen:
                ecs.getEntityById(id)

        return {"add all": milliseconds(add), "step": repeated(lambda: ecs.update(0.001)),
                "100 toggles": repeated(toggle), "100 lookups": repeated(look_up),
                "remove all": milliseconds(ecs.removeAllEntities)}

    return one_round
