"""Bodies that move."""
import random

import zelvarine as z
from measure import Scenario, milliseconds

COUNT = 1000
STEPS = 4


def movement():
    """One step of 1,000 moving bodies in an empty hall"""
    yield Scenario("apart", lambda: bodies(0.01))
    yield Scenario("in a crowd", lambda: bodies(0.3))
    yield Scenario("in a crowd, with a handler", lambda: bodies(0.3, lambda event: None))


def bodies(radius, handler=None):
    chance = random.Random(1)
    engine = z.Engine()
    engine.ecs.addSystem(z.MovementSystem(z.Level()))
    starts = []
    for _ in range(COUNT):
        position = z.Vector2(chance.uniform(1.5, 28.5), chance.uniform(1.5, 28.5))
        velocity = z.Vector2(chance.uniform(-1, 1), chance.uniform(-1, 1))
        engine.ecs.addEntity(z.Entity(
            -1, z.PositionComponent(position), z.VelocityComponent(velocity), z.CollisionComponent(radius)))
        starts.append((position, position.copy()))

    def one_round():
        for position, start in starts:  # a crowd that has pushed itself apart is less work
            position.set(start)
        if handler:
            engine.subscribeEvent(z.CollisionEvent, handler)
        time = milliseconds(lambda: engine.ecs.update(0.001), STEPS)
        if handler:
            engine.unsubscribeEvent(z.CollisionEvent, handler)
        return {"": time}

    return one_round
