"""Entities, systems, the registry that keeps them in step, and the basic components."""

import types

import pytest
import zelvarine as z
from zelvarine import AbstractSystem, Ecs, Entity, PositionComponent


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


def test_membership_follows_entities_components_and_systems():
    ecs, placed, everything = Ecs(None), AbstractSystem(PositionComponent), AbstractSystem()
    entity, other, members = Entity(1, PositionComponent()), Entity(2), placed.entities
    ecs.addEntity(entity), ecs.addSystem(everything), ecs.addEntity(other), ecs.addSystem(placed)
    assert (members, everything.entities) == ([entity], [entity, other])
    other.addComponent(PositionComponent())
    entity.removeComponentType(PositionComponent)
    assert (members, everything.entities) == ([other], [entity, other])
    ecs.removeSystem(placed)
    ecs.removeEntity(entity)
    assert (members, placed.getEcs(), everything.entities) == ([], None, [other]) and placed.entities is members


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
