"""Entities, systems, the registry that keeps them in step, and the basic components."""

import random
import time
import types

import pytest
import zelvarine as z
from zelvarine import AbstractSystem, Ecs, Entity, PositionComponent, SpriteComponent


def test_one_component_of_each_exact_type():
    first, second, derived = PositionComponent(), PositionComponent(), type("Derived", (PositionComponent,), {})()
    entity = Entity(-1, first, second, derived)
    view = entity.getComponents()
    assert list(view) == [second, derived]
    assert entity.getComponent(PositionComponent) is second and entity.getComponent(z.RotationComponent) is None
    entity.removeComponent(first)  # another instance of the type
    entity.removeComponentType(z.RotationComponent)
    entity.addComponent("any object")
    entity.addComponent("a second one")
    assert list(view) == [derived, "any object"]


def test_components_are_a_dict_to_scripts():
    rng, entity, plain, kinds = random.Random(1), Entity(), {}, [type("Kind", (), {}) for _ in range(6)]
    for kind in rng.choices(kinds, k=3000):
        action, component = rng.random(), kind()
        if action < 0.02:
            entity, plain[kind] = Entity(-1, *plain.values(), component), component
        elif action < 0.6:
            entity.addComponent(component), plain.setdefault(kind, component)
        else:
            entity.removeComponentType(kind), plain.pop(kind, None)
        assert entity.getComponent(kind) is plain.get(kind)
        assert rng.random() < 0.99 or list(entity._components.items()) == list(plain.items())


def test_ids_are_given_kept_and_found():
    ecs, entity, named, placed = Ecs(None), Entity(), Entity(id=-7), Entity(-7, PositionComponent())
    for change in ecs.addEntity, ecs.addEntity, ecs.removeEntity, ecs.removeEntity:
        change(entity)
    ecs.addEntity(named)
    assert (entity.id, entity._ecs, named._ecs) == (id(entity), None, ecs)
    found = ecs.getEntities(PositionComponent)  # lazy
    ecs.getEntities().extend([types.SimpleNamespace(id="player", _components={}), placed])  # live
    assert (list(found), list(found), ecs.getEntities()[::2]) == ([placed], [], [named, placed])
    for asked, index in (-7, 0), (-7.0, 0), ("player", 1):
        assert ecs.getEntityById(asked) is ecs.getEntities()[index]
    assert ecs.getEntityById(2 ** 70) is ecs.getEntityById(None) is None
    ecs.removeAllEntities()
    assert ecs.getEntities() == [] and named._ecs is None
    for bad in (True, 1.0, None, type("Id", (int,), {})(3)):
        pytest.raises(ValueError, Entity, bad).match("^Entity ID must be int$")


def test_membership_follows_entities_components_and_systems_without_a_search():
    ecs, placed, everything, start = Ecs(None), AbstractSystem(PositionComponent), AbstractSystem(), time.process_time()
    entity, other, crowd = Entity(1, PositionComponent()), Entity(2), [Entity() for _ in range(30000)]
    ecs.addEntity(entity), ecs.addSystem(everything), ecs.addEntity(other), ecs.addSystem(placed)
    [(ecs.addEntity(each), each.addComponent(PositionComponent()), ecs.getEntityById(each.id)) for each in crowd]
    assert (placed.entities, everything.entities) == ([entity] + crowd, [entity, other] + crowd)
    members = placed.entities
    ecs.removeSystem(placed), [ecs.removeEntity(each) for each in crowd[::-1] + [entity]]
    assert placed.entities is members == [] and everything.entities == [other] and time.process_time() - start < 3


@pytest.mark.parametrize("seed", range(6))
def test_lists_follow_the_plain_rule_whoever_changes_them(seed):
    rng, ecs, all, shown = random.Random(seed), Ecs(None), [], []  # the last two are what the lists should be
    system, kept = z.RaycastingRenderer(z.Texture(1, 1), z.Level()), seed % 2 and ecs.getEntities()
    own = type("Own", (Entity,), {"__eq__": lambda self, other: self.id == other.id} if seed > 3 else {})
    entities = [(own if i + seed > 30 else Entity)(i % 25, PositionComponent(z.Vector2(i, i))) for i in range(30)]
    ecs.addSystem(system)
    for _ in range(9000):
        entity, number, action, changes = rng.choice(entities), max(-1, rng.randrange(-9, 30)), rng.random(), []
        is_shown, joins = SpriteComponent in entity._components, action < 0.4
        if action < 0.5:
            (ecs.addEntity if joins else ecs.removeEntity)(entity)
            changes = [(shown, is_shown and joins), (all, joins)] if (entity in all) != joins else []
        elif action < 0.9:
            (entity.removeComponent if is_shown else entity.addComponent)(SpriteComponent())
            changes = [(shown, not is_shown)] if entity._ecs else []
        elif action < 0.92 and seed < 4:
            entity._id, _ = number, system.getEntityAtScreenCoords(0, 0)  # sorts the list
            shown.sort(key=lambda each: -each.getComponent(SpriteComponent)._dist)
        elif action < 0.925:
            for live, plain in (kept or ecs.getEntities(), all), (system.entities, shown):
                assert [*map(id, live)] == [*map(id, plain)]
                live[1:3] = plain[1:3] = [entity, *plain[1:2]] if plain is all else plain[2:0:-1]
        [(plain.append if wanted else plain.remove)(entity) for plain, wanted in changes if (entity in plain) != wanted]
        assert ecs.getEntityById(number) is next((each for each in all if each.id == number), None)


def test_what_systems_are_told_and_when():
    calls = []

    class System(AbstractSystem):
        _setEcs = _setEngine = lambda self, value: calls.append(value)

        def _interestedIn(self, entity):
            return not calls.append((entity.id, entity._ecs, list(ecs.getEntities())))

        def _updateEntity(self, entity, timeStep):  # walks copies
            calls.append(entity)
            ecs.removeEntity(entity)
            ecs.removeSystem(last)
            ecs.addSystem(System())

    last = type("Last", (AbstractSystem,), {"update": lambda self, timeStep: calls.append(timeStep)})()
    ecs, entity, system = Ecs(None), Entity(), System()
    ecs.addSystem(system), ecs.addSystem(last), ecs.addEntity(entity), ecs.addSystem(system)
    assert ecs.getSystems() == [system, last]
    ecs.update(0.5)
    assert calls == [ecs, None, (id(entity), None, []),  # as the entity joins
                     ecs, None, (id(entity), ecs, [entity]), entity, ecs, None, 0.5] and len(ecs.getSystems()) == 2


def test_basic_components_and_their_dicts():
    velocity, rotation = z.VelocityComponent(), z.RotationComponent()
    assert (velocity.x, velocity.friction, rotation.dir.x, rotation.dir.y) == (0, 2, 1, 0)
    velocity.loadFromDict(None, {"x": 1, "y": 2})
    pytest.raises(KeyError, velocity.loadFromDict, None, {"x": 5, "y": 6, "friction": 7, "impulse": {"x": 1}})
    assert velocity.impulse.x == 1.0
    for impulse, dumped in ((3, 0), {}), ((0, 3), {}), ((3, 4), {"impulse": {"x": 3.0, "y": 4.0}}):
        velocity.impulse = z.Vector2(*impulse)
        assert velocity.dumpToDict(None) == dict({"x": 5.0, "y": 6.0, "friction": 7.0}, **dumped)
    first, second = z.CollisionComponent(), z.CollisionComponent(1)
    assert first.hasFlags is second.hasFlags and first.hasFlags is not first.ignoreFlags
    pytest.raises(TypeError, second.loadFromDict, None, {"radius": 2, "hasFlags": "ghost"})
    assert second.radius == 2.0
    second.loadFromDict(None, {"hasFlags": []})
    assert second.dumpToDict(None) == {"radius": 0.25, "isOnlyTrigger": False, "hasFlags": [], "ignoreFlags": []}
    assert second.hasFlags is not first.hasFlags
