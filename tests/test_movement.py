"""Movement with collisions, and rays against bodies."""
import math
import random
from types import SimpleNamespace

import pytest

from reference import Level as Grid, length, normalized, single, trace
from zelvarine import (CollisionComponent, CollisionEvent, Ecs, Engine, Entity, Level, MovementSystem,
                       PositionComponent, Vector2, VelocityComponent)

S = 0.707107
DIRECTIONS = [(0, -1), (1, 0), (0, 1), (-1, 0), (S, S), (-S, -S), (-S, S), (S, -S)]


class World:
    """A movement system in a walled room of 30 by 30 cells; `events` tells who ran into what."""

    def __init__(self, cls=MovementSystem, engine=Engine):
        self.engine, self.level, self.events = engine(), Level(), []
        self.system = cls(self.level)
        self.engine.ecs.addSystem(self.system)
        self.engine.subscribeEvent(CollisionEvent, lambda event: self.events.append((event.entity1, event.entity2)))

    def add(self, pos, velocity=None, radius=None, impulse=(0, 0), friction=2.0, trigger=False, flags=(), ignored=(),
            cls=Entity):
        entity = cls(-1, PositionComponent(Vector2(*pos)))
        if velocity is not None:
            entity.addComponent(VelocityComponent(Vector2(*velocity), Vector2(*impulse), friction))
        if radius is not None:
            entity.addComponent(CollisionComponent(radius, trigger, list(flags), list(ignored)))
        self.engine.ecs.addEntity(entity)
        return entity

    def step(self, time_step=1.0):
        """One update; returns its events."""
        self.events.clear()
        self.engine.ecs.update(time_step)
        return list(self.events)

    def react(self, number, action):
        """Lets one of the events, counted from 1, run an action."""
        self.engine.subscribeEvent(CollisionEvent, lambda event: action() if len(self.events) == number else None)


def at(entity):
    pos = entity.getComponent(PositionComponent).pos
    return pos.x, pos.y


def pair(rng, digits, low, high):
    """With few digits circles touch exactly, and points lie on each other."""
    return tuple(round(rng.uniform(low, high) * digits) / digits for _ in "xy")


def random_body(rng, digits):
    """The arguments of `add`; the body may be outside of the level."""
    flags, ignored = [[flag for flag in "abc" if rng.random() < 0.2] for _ in range(2)]
    low, high = rng.choice([(1, 29), (1, 29), (8, 14), (-3, 33)])
    return dict(pos=pair(rng, digits, low, high), velocity=pair(rng, digits, -1, 1) if rng.random() < 0.8 else None,
                impulse=rng.choice([pair(rng, digits, -2, 2), (0.0, 0.0), (0.0001, 0.0), (0.00011, 0.0)]),
                friction=rng.choice([0.0, rng.uniform(-3, 3)]), trigger=rng.random() < 0.2, flags=flags,
                radius=rng.choice((None, 0.0, -math.inf, 2.5) + 10 * pair(rng, digits, 0.2, 1.4)), ignored=ignored)


def braked(impulse, loss):
    speed = length(*impulse)
    if speed <= 0.0001:
        return 0.0, 0.0
    brake = impulse[0] / speed * loss, impulse[1] / speed * loss
    return (0.0, 0.0) if length(*brake) > speed else (impulse[0] - brake[0], impulse[1] - brake[1])


def move(grid, bodies, body, time_step):
    """One step of one body; returns what it runs into, None for walls."""
    body.impulse = braked(body.impulse, time_step * abs(body.friction))
    movement = [(v + i) * time_step for v, i in zip(body.velocity, body.impulse)]
    target = [p + m for p, m in zip(body.pos, movement)]
    found = []
    for other in bodies if body.radius is not None else ():
        if other is body or set(body.ignored) & set(other.flags):
            continue
        diff = other.pos[0] - target[0], other.pos[1] - target[1]
        gap = length(*diff) - (other.radius + body.radius)
        if gap < 0:
            found.append(other)
            if not other.trigger:
                target = [p + (m + d * gap) for p, m, d in zip(body.pos, movement, normalized(diff))]
    for direction in DIRECTIONS if body.radius is not None else ():
        hit, ray = trace(grid, body.pos, direction)
        if hit is not None and hit.dist < body.radius:
            found.append(None)
            target = [t + -r * (body.radius - hit.dist) for t, r in zip(target, ray)]
    body.pos = tuple(target)
    return found


def meeting(center, radius, start, end):
    """Where the ray from `start` through `end` first meets the circle, in single precision where the rules say so."""
    dx, dy = single(end[0] - start[0]), single(end[1] - start[1])
    x, y = start[0] - center[0], start[1] - center[1]
    a, b = single(single(dx * dx) + single(dy * dy)), single(2 * (dx * x + dy * y))
    det = single(single(b * b) - 4.0 * a * single(x * x + y * y - single(radius * radius)))
    if a <= 1e-7 or det < 0:
        return None
    t1, t2 = single((-b + math.sqrt(det)) / (2 * a)), single((-b - math.sqrt(det)) / (2 * a))
    t = t1 if t2 < 0 else t2
    return (start[0] + single(dx * t), start[1] + single(dy * t)) if t > 0 else None


def traced(bodies, start, direction, reach):
    """The bodies that a ray meets, each with its distance, nearest first."""
    unit, limit, found = normalized(direction), single(reach), []
    for body in bodies:
        end = start[0] + unit[0] * limit, start[1] + unit[1] * limit
        hit = meeting(body.pos, single(body.radius), start, end)
        dist = hit and length(hit[0] - start[0], hit[1] - start[1])
        if hit and 0 < dist < limit:
            found.append((body, dist))
    return sorted(found, key=lambda pair: pair[1]), unit


@pytest.mark.parametrize("seed, digits", [(0, 1), (1, 2), (2, 2), (3, 1e9), (4, 1e9)])
def test_a_crowd_moves_as_the_rules_say(seed, digits):
    rng, world = random.Random(seed), World()
    for place in range(900):
        if rng.random() < 0.15:
            world.level.setBlock(int(rng.random() * 6), place // 30, place % 30)  # the walls around get holes, too
    world.level.setBlock(5, 22, 26)  # its hypotenuse may be nearer than where a ray from the first body enters the cell
    parts = [(part, x, y) for y in range(30) for x in range(30) for part in range(7)]
    grid = Grid(30, 30, [world.level.getTextureIndex(*part) for part in parts])
    crowd = [random_body(rng, digits) for _ in range(60)]
    crowd[0].update(pos=(23.5 + 1e-14, 26 + 1e-14), velocity=(0.0, 0.0), radius=1.0)
    entities = [world.add(**body) for body in crowd] + [None]
    crowd = [SimpleNamespace(**body) for body in crowd]
    bodies = [body for body in crowd if body.radius is not None]
    for _ in range(250):
        start, direction, reach = pair(rng, digits, 0, 30), pair(rng, digits, -1, 1), pair(rng, digits, -3, 40)[0]
        expected, unit = traced(bodies, start, direction, reach)
        ray = Vector2(*direction)
        found = world.system.collisionBodySystem.traceEntities(Vector2(*start), ray, reach)
        assert found == [(entities[crowd.index(body)], dist) for body, dist in expected] and (ray.x, ray.y) == unit
    for _ in range(40):
        time_step = rng.choice([0.5, rng.uniform(0.01, 0.3)])
        expected = [(entities[i], entities[crowd.index(found) if found else -1]) for i, body in enumerate(crowd)
                    if body.velocity for found in move(grid, bodies, body, time_step)]
        assert world.step(time_step) == expected
        for entity, body in zip(entities, crowd):
            assert at(entity) == body.pos
            if body.velocity:
                impulse = entity.getComponent(VelocityComponent).impulse
                assert (impulse.x, impulse.y) == body.impulse


def enlarge(body):
    body._components[CollisionComponent] = CollisionComponent(1.0)


def test_handlers_change_bodies():
    world = World()
    first, second = [world.add((5, 5), radius=0.5, trigger=True) for _ in range(2)]
    mover, last = world.add((5, 5), velocity=(0, 0), radius=0.25), world.add((6.3, 5), radius=0.5)
    other, obstacle = world.add((20, 20), velocity=(1, 0), radius=0.5), world.add((22, 20), radius=0.1)
    world.add((20.5, 20)).addComponent(other.getComponent(CollisionComponent))     # who shares it is one body with him

    def change():
        world.engine.ecs.removeEntity(second)
        enlarge(obstacle)
        world.system._updateEntity(other, 1.0)  # has looked at the bodies when the next lines change them
        enlarge(last)
        mover.getComponent(PositionComponent).x, mover.getComponent(CollisionComponent).radius = 4.5, 0.5

    world.react(1, change)
    assert world.step() == [(mover, first), (other, obstacle), (mover, last), (other, obstacle)]
    assert at(mover) == pytest.approx((4.3, 5))     # from where it is now, away from the body as it is now
    assert at(other) == (20.5, 20)


def test_code_of_scripts_between_two_movers_changes_bodies():
    def meddling(cls, name):
        """A class with a method that enlarges the body in the end."""
        method = lambda self, *args: (getattr(cls, name)(self, *args), enlarge(body))[0]
        return type("Own", (cls,), {name: method})

    watched, flag = dict(cls=meddling(Entity, "getComponent")), meddling(object, "__eq__")()
    for script in (dict(system=meddling(MovementSystem, "_updateEntity")), dict(vector=meddling(Vector2, "add")),
                   watched, dict(watched, radius=0.1), dict(watched, radius=0.1, velocity=None),
                   dict(radius=0.1, ignored=[flag])):
        world, vector = World(script.pop("system", MovementSystem)), script.pop("vector", Vector2)
        body = world.add((10, 10), radius=0.5, flags=["a"])
        world.add((10, 8.75), velocity=(0, 0), radius=0.25)
        world.add((20, 20), **dict(dict(velocity=(0, 0)), **script))._components[PositionComponent].pos = vector(20, 20)
        second = world.add((10, 11.2), velocity=(0, 0), radius=0.25)
        assert world.step() == [(second, body)]


def test_bodies_that_share_a_vector_move_together():
    world = World()
    leader, twin, mover = [world.add(*b) for b in (((5, 5), (3, 0), 0.1), ((0, 0), None, 0.5), ((8.4, 5), (0, 0), 0.1))]
    twin.getComponent(PositionComponent).pos = leader.getComponent(PositionComponent).pos
    assert world.step() == [(mover, twin)]


@pytest.mark.parametrize("place", ["class", "object"])
def test_without_subscribers_a_script_still_hears_of_events_in_its_own_ways(place):
    tell = lambda *arguments: told.append(arguments[-1].entity2)
    for way in {}, {"fireEvent": tell}, {"_eventSubscribers": {CollisionEvent: [tell]}}:
        told, world = [], World(engine=type("Own", (Engine,), way if place == "class" else {}))
        vars(world.engine).update(way if place == "object" else {})
        Engine._eventSubscribers.clear()
        first, second = [world.add((5, 5), velocity=(0, 0), radius=0.1) for _ in range(2)]
        world.step()
        assert told == ([second, first] if way else [])


def test_the_bodies_come_along():
    engine, registry, system = Engine(), Ecs(None), MovementSystem(None)
    both = [system, system.collisionBodySystem]
    engine.ecs.addSystem(system)
    assert engine.ecs.getSystems() == both and both[1].getEcs() is engine.ecs and both[1].getEngine() is engine
    registry.addSystem(system)
    assert (engine.ecs.getSystems(), registry.getSystems()) == ([system], both)
    registry.removeSystem(system)
    assert registry.getSystems() == [] == [one for one in both if one.getEcs()] and both[1].getEngine() is None
