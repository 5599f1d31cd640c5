"""Movement with collisions, and rays against bodies."""
import gc
import hashlib
import math
import random
import struct

import pytest

from reference import Level as Grid
from reference import length, normalized, single, trace
from zelvarine import (CollisionBodySystem, CollisionComponent, CollisionEvent, Ecs, Engine, Entity, Level,
                       MovementSystem, PositionComponent, Vector2, VelocityComponent)

NAN, INF = float("nan"), float("inf")
S = 0.707107
DIRECTIONS = [(0, -1), (1, 0), (0, 1), (-1, 0), (S, S), (-S, -S), (-S, S), (S, -S)]


class World:
    """A movement system in a walled room of 30 by 30 cells; `events` tells who ran into what."""

    def __init__(self, cls=MovementSystem):
        self.engine, self.level, self.events = Engine(), Level(), []
        self.system = cls(self.level)
        self.engine.ecs.addSystem(self.system)
        self.engine.subscribeEvent(CollisionEvent, lambda event: self.events.append((event.entity1, event.entity2)))

    def add(self, x, y, velocity=None, radius=None, impulse=(0, 0), friction=2.0, cls=Entity, **collision):
        entity = cls(-1, PositionComponent(Vector2(x, y)))
        if velocity is not None:
            entity.addComponent(VelocityComponent(Vector2(*velocity), Vector2(*impulse), friction))
        if radius is not None:
            entity.addComponent(CollisionComponent(radius, **collision))
        self.engine.ecs.addEntity(entity)
        return entity

    def step(self, timeStep=1.0):
        """One update; returns its events."""
        self.events.clear()
        self.engine.ecs.update(timeStep)
        return list(self.events)

    def react(self, number, action):
        """Lets one of the events, counted from 1, run an action."""
        self.engine.subscribeEvent(CollisionEvent, lambda event: action() if len(self.events) == number else None)


@pytest.fixture
def world():
    return World()


def at(entity):
    pos = entity.getComponent(PositionComponent).pos
    return pos.x, pos.y


# ---- the rules once more, on plain numbers

class Body:
    def __init__(self, rng):
        self.pos = rng.uniform(1, 29), rng.uniform(1, 29)
        self.velocity = (rng.uniform(-1, 1), rng.uniform(-1, 1)) if rng.random() < 0.8 else None
        self.impulse = (rng.uniform(-2, 2), rng.uniform(-2, 2)) if rng.random() < 0.5 else (0.0, 0.0)
        self.friction = rng.uniform(-3, 3)
        self.radius = rng.uniform(0.1, 1.2) if rng.random() < 0.9 else None
        self.collision = dict(isOnlyTrigger=rng.random() < 0.2)
        for flags in ("hasFlags", "ignoreFlags"):
            self.collision[flags] = [flag for flag in "abc" if rng.random() < 0.2]


def braked(impulse, loss):
    speed = length(*impulse)
    if speed <= 0.0001:
        return 0.0, 0.0
    brake = impulse[0] / speed * loss, impulse[1] / speed * loss
    return (0.0, 0.0) if length(*brake) > speed else (impulse[0] - brake[0], impulse[1] - brake[1])


def move(grid, body, bodies, timeStep):
    """One step of one body; returns what it runs into, None for walls."""
    body.impulse = braked(body.impulse, timeStep * abs(body.friction))
    movement = [(v + i) * timeStep for v, i in zip(body.velocity, body.impulse)]
    target = [p + m for p, m in zip(body.pos, movement)]
    found = []
    for other in bodies if body in bodies else ():
        if other is body or set(body.collision["ignoreFlags"]) & set(other.collision["hasFlags"]):
            continue
        diff = other.pos[0] - target[0], other.pos[1] - target[1]
        gap = length(*diff) - (other.radius + body.radius)
        if gap < 0:
            found.append(other)
            if not other.collision["isOnlyTrigger"]:
                target = [p + (m + d * gap) for p, m, d in zip(body.pos, movement, normalized(diff))]
    for direction in DIRECTIONS if body in bodies else ():
        hit, ray = trace(grid, body.pos, direction)
        if hit is not None and hit.dist < body.radius:
            found.append(None)
            target = [t + -r * (body.radius - hit.dist) for t, r in zip(target, ray)]
    body.pos = tuple(target)
    return found


# The digest of all positions of the first run. Should the rules change, the failing test tells the new one.
GOLDEN = "09136c470baac923da731b0bbc2f5841e4702df961552927465041858948f112"


@pytest.mark.parametrize("seed", range(3))
def test_a_crowd_moves_as_the_rules_say(seed, world):
    rng = random.Random(seed)
    for place in range(900):
        if rng.random() < 0.15:
            world.level.setBlock(int(rng.random() * 6), place // 30, place % 30)  # the walls around get holes, too
    parts = [(part, x, y) for y in range(30) for x in range(30) for part in range(7)]
    grid = Grid(30, 30, [world.level.getTextureIndex(*part) for part in parts])
    crowd = [Body(rng) for _ in range(50)]
    bodies = [body for body in crowd if body.radius is not None]
    entities = {body: world.add(*body.pos, velocity=body.velocity, impulse=body.impulse, friction=body.friction,
                                radius=body.radius, **body.collision) for body in crowd}
    entities[None] = None
    digest = hashlib.sha256()
    for _ in range(40):
        timeStep = rng.uniform(0.01, 0.3)
        expected = [(entities[body], entities[found]) for body in crowd if body.velocity
                    for found in move(grid, body, bodies, timeStep)]
        assert world.step(timeStep) == expected
        for body in crowd:
            assert at(entities[body]) == body.pos
            if body.velocity:
                impulse = entities[body].getComponent(VelocityComponent).impulse
                assert (impulse.x, impulse.y) == body.impulse
            digest.update(struct.pack("<2d", *body.pos))
    assert seed != 0 or digest.hexdigest() == GOLDEN


# ---- worked examples

@pytest.mark.parametrize("other, mover, met, expected", [
    # impulses decay before they move; what is left of a small one is nothing
    (None, dict(x=3, velocity=(2, 1), impulse=(1, 0), friction=-0.5), 0, (5.5, 6)),
    (None, dict(x=3, velocity=(2, 1), impulse=(0.0001, 0), friction=0.0), 0, (5, 6)),
    (None, dict(x=3, velocity=(2, 1), impulse=(0.4, 0), friction=0.5), 0, (5, 6)),
    (None, dict(x=3, velocity=(2, 1), impulse=(NAN, 0)), 0, (5, 6)),
    # bodies push the target away
    (dict(radius=1), dict(x=3, velocity=(0.5, 0), radius=1), 1, (3, 5)),
    (dict(radius=1), dict(x=2, velocity=(1, 0), radius=1), 0, (3, 5)),      # they only touch
    (dict(radius=1), dict(x=4.5, velocity=(0.5, 0), radius=1), 1, (5, 5)),  # no direction to go
    (dict(radius=1), dict(x=5, velocity=(0.5, 0), radius=0.25), 1, (6.25, 5)),
    (dict(radius=1, isOnlyTrigger=True), dict(x=4, velocity=(0.5, 0), radius=1), 1, (4.5, 5)),
    (dict(radius=1, hasFlags=["a", "b"]), dict(x=4, velocity=(0.5, 0), radius=1, ignoreFlags=["b", "c"]), 0, (4.5, 5)),
    (dict(radius=1, ignoreFlags=["a"]), dict(x=3, velocity=(0.5, 0), radius=1, hasFlags=["a"]), 1, (3, 5)),
    (dict(radius=1), dict(x=4, velocity=(0.5, 0)), 0, (4.5, 5)),
    # walls push against the ray, not along the normal, diagonal rays, too
    (None, dict(x=28.7, velocity=(0.1, 0.2), radius=0.4), 1, (28.7, 5.2)),
    (None, dict(x=28.7, velocity=(0, 0.25), radius=0.5), 3, (28.5 - 2 * S * (0.5 - 0.3 * math.sqrt(2)), 5.25))])
def test_one_step(world, other, mover, met, expected):
    body, mover = other and world.add(5, 5, **other), world.add(y=5, **mover)
    assert world.step() == [(mover, body)] * met
    assert at(mover) == pytest.approx(expected)


# ---- scripts in the middle of a step

def enlarge(body):
    body._components[CollisionComponent] = CollisionComponent(1.0)


def test_handlers_change_bodies(world):
    first, second = [world.add(5, 5, radius=0.5, isOnlyTrigger=True) for _ in range(2)]
    mover, last = world.add(5, 5, velocity=(0, 0), radius=0.5), world.add(5.25, 5, radius=0.5)
    other, obstacle = world.add(20, 20, velocity=(1, 0), radius=0.5), world.add(22, 20, radius=0.1)

    def change():
        world.engine.ecs.removeEntity(second)
        enlarge(obstacle)
        world.system._updateEntity(other, 1.0)  # has looked at the bodies when the next lines change them
        enlarge(last)
        mover.getComponent(PositionComponent).x, mover.getComponent(CollisionComponent).radius = 4.5, 0.25

    world.react(1, change)
    assert world.step() == [(mover, first), (other, obstacle), (mover, last), (other, obstacle)]
    assert (at(mover), at(other)) == ((3.5, 5), (20.5, 20))  # from where it is now, away from the body as it is now


@pytest.mark.parametrize("name, value", [("_level", None), ("_level", Level.__new__(Level)), ("_engine", None)])
def test_handlers_change_the_system(world, name, value):
    mover = world.add(1.25, 1.25, velocity=(0, 0), radius=0.5)
    world.react(2, lambda: setattr(world.system, name, value))
    assert world.step() == [(mover, None)] * 2  # of five rays that meet walls


def test_an_engine_may_go_while_it_reports(world):
    class Fleeting(Engine):
        def fireEvent(self, event, eventType=None):
            world.system._engine = None
            gc.collect()
            seen.append((event.entity1, event.entity2, self.isRunning()))

    seen, mover, world.system._engine = [], world.add(1.3, 5.5, velocity=(0, 0), radius=0.4), Fleeting()
    world.step()
    assert seen == [(mover, None, False)]


def test_code_of_scripts_between_two_movers_changes_bodies():
    class System(MovementSystem):
        def _updateEntity(self, entity, timeStep):
            MovementSystem._updateEntity(self, entity, timeStep)
            enlarge(body)

    class Vector(Vector2):
        def add(self, other):
            enlarge(body)

    class Swelling(Entity):
        radius = 0.0

        def getComponent(self, componentType):
            if componentType is not CollisionComponent:
                return Entity.getComponent(self, componentType)
            self.radius += 0.5
            return CollisionComponent(self.radius)

    for system, vector, cls in (
            (System, Vector2, Entity), (MovementSystem, Vector, Entity), (MovementSystem, Vector2, Swelling)):
        world = World(system)
        body = world.add(10, 10, radius=0.5, cls=cls)
        world.add(10, 8.75, velocity=(0, 0), radius=0.25)
        world.add(0, 0, velocity=(0, 0)).getComponent(PositionComponent).pos = vector(0, 0)
        second = world.add(10, 11.2, velocity=(0, 0), radius=0.25)
        assert world.step() == [(second, body)]


def test_the_bodies_come_along():
    engine, registry, system = Engine(), Ecs(None), MovementSystem(None)
    both = [system, system.collisionBodySystem]
    engine.ecs.addSystem(system)
    assert engine.ecs.getSystems() == both and both[1].getEcs() is engine.ecs and both[1].getEngine() is engine
    registry.addSystem(system)
    assert (engine.ecs.getSystems(), registry.getSystems()) == ([system], both)
    registry.removeSystem(system)
    assert registry.getSystems() == [] == [one for one in both if one.getEcs()] and both[1].getEngine() is None


# ---- rays against bodies

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


def test_rays_meet_bodies_as_the_rules_say(world):
    rng = random.Random(0)
    bodies = [((rng.uniform(-9, 40), rng.uniform(-9, 40)), rng.uniform(0, 3)) for _ in range(60)]
    entities = [world.add(*center, radius=radius) for center, radius in bodies]
    for _ in range(200):
        start, direction = (rng.uniform(0, 30), rng.uniform(0, 30)), (rng.uniform(-1, 1), rng.uniform(-1, 1))
        reach, unit, expected = rng.uniform(0, 40), normalized(direction), []
        limit = single(reach)
        for entity, (center, radius) in zip(entities, bodies):
            hit = meeting(center, single(radius), start, (start[0] + unit[0] * limit, start[1] + unit[1] * limit))
            dist = hit and length(hit[0] - start[0], hit[1] - start[1])
            if hit and 0 < dist < limit:
                expected.append((entity, dist))
        ray = Vector2(*direction)
        found = world.system.collisionBodySystem.traceEntities(Vector2(*start), ray, reach)
        assert found == sorted(expected, key=lambda pair: pair[1]) and (ray.x, ray.y) == unit


@pytest.mark.parametrize("center, reach, dist", [
    ((5, 0), 10, 4), ((5, 0), 4, None), ((-5, 0), 10, None), ((0.5, 0), 10, 1.5), ((5, 1), 10, 5), ((-5, 1), 10, None),
    ((5, 0), 0, None), ((5, 0), -10, None), ((NAN, 0), 10, None), ((5, 0), NAN, None), ((5, 0), INF, None)])
def test_a_ray_along_the_axis(world, center, reach, dist):
    pair = [world.add(*center, radius=1) for _ in range(2)]
    found = world.system._cbs.traceEntities(Vector2(0, 0), Vector2(5, 0), maxDist=reach)
    assert found == ([] if dist is None else [(entity, dist) for entity in pair])


# ---- wild values

@pytest.mark.parametrize("value", [NAN, INF, -INF, 1e308, -1e308, 2.0 ** 31, 30.0, -0.5, 0.0, -0.0, 5e-324])
def test_wild_numbers_end_in_peace(world, value):
    world.add(value, 5, velocity=(1, 1), radius=0.5)
    world.add(5, 5, velocity=(value, -1), radius=1)
    world.add(1.2, 1.2, velocity=(0, 0), radius=value, impulse=(value, 1), friction=value)
    calm = world.add(20, 20, velocity=(1, 0))
    for timeStep in (0.5, 0.5, value, 0.5):
        world.step(timeStep)
    assert at(calm) == pytest.approx((21.5 + value, 20.0 + 0 * value), nan_ok=True)
    world.system._cbs.traceEntities(Vector2(value, 5), Vector2(1, value), value)


def test_what_is_missing_raises_or_does_not_matter(world):
    mover, vector = world.add(1.2, 5, velocity=(1, 0), radius=0.25), Vector2(1, 0)
    missing = MovementSystem.__new__(MovementSystem)
    for system in (missing, CollisionBodySystem.__new__(CollisionBodySystem)):
        system.update(1.0)
        Ecs(None).addSystem(system)
    MovementSystem(None)._updateEntity(mover, 1)
    assert at(mover) == (2.2, 5)
    lacking = Entity(-1, PositionComponent(), VelocityComponent.__new__(VelocityComponent))
    for system, entity in ((missing, mover), (world.system, lacking), (world.system, None), (world.system, 5)):
        with pytest.raises(AttributeError):
            system._updateEntity(entity, 1)
    for wrong in ((None, vector, 1), (vector, None, 1), (vector, vector, "1")):
        with pytest.raises(TypeError):
            world.system._cbs.traceEntities(*wrong)
    world.system._cbs._entities.append("no entity")
    with pytest.raises(AttributeError):
        world.step()
