"""Entities, systems, the registry that keeps them in step, and the basic components."""

import types

import pytest
from zelvarine import (AbstractSystem, CollisionComponent, Ecs, Entity, PositionComponent, RotationComponent, Vector2,
                       VelocityComponent)


def test_one_component_of_each_exact_type():
    first, second, derived = PositionComponent(), PositionComponent(), type("Derived", (PositionComponent,), {})()
    entity = Entity(-1, first, second, derived)
    view = entity.getComponents()
    assert list(view) == [second, derived]
    assert entity.getComponent(PositionComponent) is second and entity.getComponent(RotationComponent) is None
    entity.removeComponent(first)  # another instance of the type
    entity.removeComponentType(RotationComponent)
    entity.addComponent("any object")
    entity.addComponent("a second one")
    assert list(view) == [derived, "any object"]


def test_ids_are_given_kept_and_found():
    ecs, entity, named, placed = Ecs(None), Entity(), Entity(id=-7), Entity(5, PositionComponent())
    player, nan = types.SimpleNamespace(id="player", _components={}), float("nan")
    for added in (entity, named, entity, player):
        ecs.addEntity(added)
    assert (entity.id, named.id, ecs.getEntities()) == (id(entity), -7, [entity, named, player])
    for _ in range(2):
        ecs.removeEntity(entity)
    assert (entity.id, entity._ecs, named._ecs) == (id(entity), None, ecs)
    found = ecs.getEntities(PositionComponent)  # lazy
    ecs.getEntities().extend([placed, types.SimpleNamespace(id=nan, _components={}), Entity(5)])  # live
    assert (list(found), list(found)) == ([placed], [])
    asked = {5: placed, 5.0: placed, "player": player, 5.5: None, 6: None, 2 ** 70: None, None: None, nan: None}
    assert {id: ecs.getEntityById(id) for id in asked} == asked
    ecs.removeAllEntities()
    assert ecs.getEntities() == [] and named._ecs is None
    for bad in (True, 1.0, None, type("Id", (int,), {})(3)):
        with pytest.raises(ValueError, match="^Entity ID must be int$"):
            Entity(bad)


def test_membership_follows_entities_components_and_systems():
    ecs, placed, everything = Ecs(None), AbstractSystem(PositionComponent), AbstractSystem()
    entity, other = Entity(1, PositionComponent()), Entity(2)
    for add, added in (ecs.addEntity, entity), (ecs.addEntity, other), (ecs.addSystem, placed), (ecs.addSystem, everything):
        add(added)
    assert (placed.entities, everything.entities) == ([entity], [entity, other])
    other.addComponent(PositionComponent())
    entity.removeComponentType(PositionComponent)
    assert (placed.entities, everything.entities) == ([other], [entity, other])
    members = placed.entities
    ecs.removeSystem(placed)
    ecs.removeEntity(entity)
    assert (members, placed.getEcs(), everything.entities) == ([], None, [other]) and placed.entities is members


def test_what_systems_are_told_and_when():
    calls = []

    class System(AbstractSystem):
        _setEcs = _setEngine = lambda self, value: calls.append(value)

        def _interestedIn(self, entity):
            calls.append((entity.id, entity._ecs, list(ecs.getEntities())))
            return True

        def _updateEntity(self, entity, timeStep):  # walks copies
            calls.append(entity)
            ecs.removeEntity(entity)
            ecs.removeSystem(last)
            ecs.addSystem(System())

    ecs, entity, system, last = Ecs(None), Entity(), System(), types.SimpleNamespace(
        _setEcs=id, _setEngine=id, _updateEntityMembership=id, _removeEntity=id, _entities=[], update=lambda step: calls.append(step))
    ecs.addSystem(system)
    ecs.addSystem(last)
    ecs.addEntity(entity)
    assert calls == [ecs, None, (id(entity), None, [])]
    ecs.addSystem(system)
    assert calls[3:] == [ecs, None, (id(entity), ecs, [entity])] and ecs.getSystems() == [system, last]
    ecs.update(0.5)
    assert calls[6:] == [entity, ecs, None, 0.5] and len(ecs.getSystems()) == 2


def test_basic_components_and_their_dicts():
    velocity, rotation = VelocityComponent(), RotationComponent()
    assert (velocity.x, velocity.friction, rotation.dir.x, rotation.dir.y) == (0, 2, 1, 0)
    first, second = CollisionComponent(), CollisionComponent(1)
    assert first.hasFlags is second.hasFlags and first.hasFlags is not first.ignoreFlags
    velocity.loadFromDict(None, {"x": 1, "y": 2})
    with pytest.raises(KeyError):
        velocity.loadFromDict(None, {"x": 5, "y": 5, "friction": 5, "impulse": {"x": 1}})
    for impulse, dumped in ((3, 0), {}), ((0, 3), {}), ((3, 4), {"impulse": {"x": 3.0, "y": 4.0}}):
        velocity.impulse = Vector2(*impulse)
        assert velocity.dumpToDict(None) == dict({"x": 1.0, "y": 2.0, "friction": 2.0}, **dumped)
    with pytest.raises(TypeError):
        second.loadFromDict(None, {"radius": 2, "hasFlags": "ghost"})
    assert second.radius == 1.0
    second.loadFromDict(None, {"hasFlags": []})
    assert second.dumpToDict(None) == {"radius": 0.25, "isOnlyTrigger": False, "hasFlags": [], "ignoreFlags": []}
    assert second.hasFlags is not first.hasFlags
