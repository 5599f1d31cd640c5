"""Entities, systems, the registry that keeps them in step, and the basic components."""

import pytest
import zelvarine
from zelvarine import (AbstractSystem, CollisionComponent, DummyComponent, Ecs, Entity, PositionComponent,
                       RotationComponent, SpriteComponent, Vector2, VelocityComponent, component)


class Position(PositionComponent):
    pass


@pytest.fixture
def names():
    """The table of component names, restored afterwards."""
    table = zelvarine._COMPONENTS
    before = dict(table)
    yield table
    table.clear()
    table.update(before)


# ---- entities

@pytest.mark.parametrize("bad", [True, 1.0, "1", None, type("Id", (int,), {})(3)])
def test_an_id_is_exactly_an_int(bad):
    with pytest.raises(ValueError, match="^Entity ID must be int$"):
        Entity(bad)
    assert (Entity(5).id, Entity().id, Entity(id=-7).id) == (5, -1, -7)


def test_one_component_of_each_exact_type():
    first, second, derived = PositionComponent(), PositionComponent(), Position()
    entity = Entity(-1, first, second, derived)
    assert list(entity.getComponents()) == [second, derived]
    entity.addComponent(first)
    assert entity.getComponent(PositionComponent) is second
    assert entity.getComponent(RotationComponent) is None
    entity.removeComponent(first)  # another instance of the type
    entity.removeComponentType(RotationComponent)
    assert list(entity.getComponents()) == [derived]


def test_components_are_a_live_view():
    entity = Entity()
    view = entity.getComponents()
    entity.addComponent("any object")
    assert list(view) == ["any object"]


# ---- the registry

def test_an_entity_gets_its_identity_as_id_and_keeps_it():
    ecs, entity, named = Ecs(None), Entity(), Entity(5)
    ecs.addEntity(entity)
    ecs.addEntity(named)
    ecs.addEntity(entity)
    assert (entity.id, named.id, ecs.getEntities()) == (id(entity), 5, [entity, named])
    ecs.removeEntity(entity)
    ecs.removeEntity(entity)
    assert (entity.id, entity._ecs, named._ecs) == (id(entity), None, ecs)
    assert (ecs.getEntityById(5), ecs.getEntityById(6)) == (named, None)
    ecs.removeAllEntities()
    assert ecs.getEntities() == [] and named._ecs is None


def test_getEntities_is_live_without_types_and_lazy_with_them():
    ecs, plain, placed = Ecs(None), Entity(1), Entity(2, PositionComponent())
    ecs.getEntities().append(plain)
    found = ecs.getEntities(PositionComponent)
    ecs.addEntity(placed)
    assert list(found) == [placed]
    assert list(found) == []
    assert list(ecs.getEntities(PositionComponent, RotationComponent)) == []


def test_membership_follows_entities_components_and_systems():
    ecs = Ecs(None)
    placed, all_of_them = AbstractSystem(PositionComponent), AbstractSystem()
    entity, other = Entity(1, PositionComponent()), Entity(2)
    ecs.addEntity(entity)
    ecs.addEntity(other)
    for system in (placed, all_of_them):
        ecs.addSystem(system)
    assert (placed.entities, all_of_them.entities) == ([entity], [entity, other])
    other.addComponent(PositionComponent())
    entity.removeComponentType(PositionComponent)
    assert (placed.entities, all_of_them.entities) == ([other], [entity, other])
    other.addComponent(RotationComponent())
    assert placed.entities == [other]
    members = placed.entities
    ecs.removeSystem(placed)
    assert members == [] and placed.entities is members and placed.getEcs() is None
    ecs.removeEntity(entity)
    assert all_of_them.entities == [other]


def test_a_system_added_twice_is_told_twice_but_listed_once():
    calls = []

    class System(AbstractSystem):
        def _setEcs(self, ecs):
            calls.append(("ecs", ecs))

        def _setEngine(self, engine):
            calls.append(("engine", engine))

        def _updateEntityMembership(self, entity):
            calls.append(("member", entity))

    ecs, entity, system = Ecs(None), Entity(), System()
    ecs.addEntity(entity)
    ecs.addSystem(system)
    ecs.addSystem(system)
    assert calls == [("ecs", ecs), ("engine", None), ("member", entity)] * 2
    assert ecs.getSystems() == [system]


def test_systems_see_an_entity_before_the_registry_lists_it():
    seen = []

    class System(AbstractSystem):
        def _interestedIn(self, entity):
            seen.append((entity.id, entity._ecs, list(ecs.getEntities())))
            return True

    ecs, entity = Ecs(None), Entity()
    ecs.addSystem(System())
    ecs.addEntity(entity)
    assert seen == [(id(entity), None, [])]


def test_update_walks_copies_and_stops_at_an_exception():
    calls = []

    class System(AbstractSystem):
        def _updateEntity(self, entity, timeStep):
            calls.append((entity, timeStep))
            ecs.removeEntity(entity)
            ecs.removeSystem(last)

    class Last(AbstractSystem):
        def update(self, timeStep):
            calls.append("last")
            ecs.addSystem(AbstractSystem())
            raise KeyError(timeStep)

    ecs, first, second = Ecs(None), Entity(1), Entity(2)
    system, last, skipped = System(), Last(), System()
    for part in (system, last, skipped):
        ecs.addSystem(part)
    ecs.addEntity(first)
    ecs.addEntity(second)
    with pytest.raises(KeyError):
        ecs.update(0.5)
    assert calls == [(first, 0.5), (second, 0.5), "last"]
    assert system.entities == [] and len(ecs.getSystems()) == 3


# ---- basic components

def test_defaults():
    position, velocity, rotation, collision = PositionComponent(), VelocityComponent(), RotationComponent(), CollisionComponent()
    assert (position.x, position.y, velocity.x, velocity.y, velocity.friction) == (0, 0, 0, 0, 2.0)
    assert (velocity.impulse.x, velocity.impulse.y, rotation.dir.x, rotation.dir.y) == (0, 0, 1, 0)
    assert (collision.radius, collision.isOnlyTrigger, collision.hasFlags, collision.ignoreFlags) == (0.25, False, [], [])


def test_arguments_are_kept_and_default_lists_shared():
    pos, flags = Vector2(1, 2), ["ghost"]
    assert PositionComponent(pos).pos is pos
    assert CollisionComponent(hasFlags=flags).hasFlags is flags
    first, second = CollisionComponent(), CollisionComponent(1)
    assert first.hasFlags is second.hasFlags and first.ignoreFlags is second.ignoreFlags
    assert first.hasFlags is not first.ignoreFlags


def test_fields_refuse_other_types_and_deleted_vectors_raise():
    position, collision = PositionComponent(), CollisionComponent()
    for target, name in ((position, "pos"), (position, "_pos"), (collision, "hasFlags"), (collision, "_ignoreFlags")):
        with pytest.raises(TypeError):
            setattr(target, name, (1, 2))
        setattr(target, name, None)
    with pytest.raises(AttributeError):
        position.x
    with pytest.raises(AttributeError):
        PositionComponent.__new__(PositionComponent).loadFromDict(None, {"x": 1, "y": 2})
    collision.isOnlyTrigger = [0]
    assert (collision.isOnlyTrigger, collision._isOnlyTrigger) == (True, 1)


@pytest.mark.parametrize("cls, full", [
    (PositionComponent, {"x": 1.5, "y": -2.0}),
    (RotationComponent, {"x": 0.0, "y": 1.0}),
    (VelocityComponent, {"x": 1.0, "y": 2.0, "friction": 0.5, "impulse": {"x": 3.0, "y": 4.0}}),
    (CollisionComponent, {"radius": 2.0, "isOnlyTrigger": True, "hasFlags": ["a"], "ignoreFlags": ["b"]})])
def test_dict_forms_there_and_back(cls, full):
    loaded = cls()
    loaded.loadFromDict(None, full)
    assert list(loaded.dumpToDict(None).items()) == list(full.items())


def test_missing_keys():
    moving = VelocityComponent(friction=3)
    moving.loadFromDict(None, {"x": 1, "y": 2})
    assert moving.dumpToDict(None) == {"x": 1.0, "y": 2.0, "friction": 3.0}
    moving.impulse = Vector2(3, 0)
    assert "impulse" not in moving.dumpToDict(None)
    collision = CollisionComponent(1, True, ["a"], ["b"])
    collision.loadFromDict(None, {"hasFlags": []})
    assert collision.dumpToDict(None) == {"radius": 0.25, "isOnlyTrigger": False, "hasFlags": [], "ignoreFlags": []}
    for cls in (PositionComponent, RotationComponent, VelocityComponent):
        with pytest.raises(KeyError):
            cls().loadFromDict(None, {})


def test_a_bad_dict_changes_nothing():
    moving, collision = VelocityComponent(), CollisionComponent(1)
    with pytest.raises(KeyError):
        moving.loadFromDict(None, {"x": 1, "y": 2, "friction": 5, "impulse": {"x": 1}})
    with pytest.raises(TypeError):
        collision.loadFromDict(None, {"radius": 2, "hasFlags": "ghost"})
    assert (moving.x, moving.friction, collision.radius) == (0.0, 2.0, 1.0)


# ---- the table of names

def test_the_table_at_start():
    classes = [SpriteComponent, PositionComponent, RotationComponent, CollisionComponent, VelocityComponent]
    words = ["sprite", "position", "rotation", "collision", "velocity"]
    assert list(zelvarine._COMPONENTS.items())[:10] == list(zip(words + classes, classes + words))


def test_registering_a_class(names):
    class Old:
        pass

    class New:
        pass

    assert component("inventory")(Old) is Old
    component("inventory")(New)
    assert (names["inventory"], names[New], names[Old]) == (New, "inventory", "inventory")


@pytest.mark.parametrize("name, cls, words", [
    (5, Position, "component name must be a string"),
    (5, "no class", "component name must be a string"),
    (type("Name", (str,), {})("x"), Position, "component name must be a string"),
    ("x", "no class", "component type must be a class"),
    ("x", type("Meta", (type,), {})("Made", (), {}), "component type must be a class")])
def test_registering_refuses(names, name, cls, words):
    before = dict(names)
    decorator = component(name)
    with pytest.raises(TypeError, match="^" + words + "$"):
        decorator(cls)
    assert names == before


def test_the_stand_in_for_unknown_components():
    assert DummyComponent.__doc__ == "This component type is used for component types\n    in a level that can't be mapped.\n    "
    assert DummyComponent.__bases__ == (object,) and DummyComponent().__dict__ == {}
