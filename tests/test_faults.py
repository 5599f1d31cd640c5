"""One catalogue of faults for every native class: what scripts may do wrong must raise, and never more than that."""
import collections
import gc
import inspect
import itertools
import os
import pathlib
import subprocess
import sys
import types

import pytest

import zelvarine
from helpers import DEJAVU, needsFont
from ui_reference import write_theme

CLASSES = sorted((c for c in vars(zelvarine).values() if isinstance(c, type) and c.__module__ == "zelvarine"
                  and not c.__flags__ & (1 << 9)), key=lambda c: c.__name__)  # bit 9: made by a class statement
NAN = float("nan")
WILD = (None, 0, -1, 3, 2**31 - 1, -2**31, 2**31, 2**63, 1e300, -1e300, NAN, float("inf"), True, "", "a\0b", "\ud800", b"x",
        (), (1, 2), (1, 2, 3), [None], {}, {"x": "y"}, object(), object, len)
TONE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "data", "tone.ogg")
LEFT_OUT = {"run", "addTaskAfter"}  # they wait by design


def specimens():
    """An object of every class without its constructor, and one of a subclass that forgets to call it."""
    for cls in CLASSES:
        yield cls.__new__(cls)
        forgetful = type("Forgetful" + cls.__name__, (cls,), {"__init__": lambda self, *args, **kwargs: None})
        yield forgetful()


def complete():
    """Whole objects of the classes that arguments as wild as these do not make."""
    z = zelvarine
    theme = z.UITheme(write_theme(pathlib.Path.cwd()))
    vector, texture, engine, level = z.Vector2(1, 0), z.Texture(8, 4), z.Engine(), z.Level()
    walk = z.SpriteAnimation("walk", 2, False, 1.0, 0, 1)
    return [engine, z.Ecs(engine), level, z.MovementSystem(level), z.Camera(vector, vector, 60, 0),
            z.RaycastingRenderer(texture, level), z.Sprite(texture, 2, 1, [walk]), z.Font(DEJAVU, 9), z.Sound(TONE), z.Music(TONE),
            theme, z.UIRenderer(texture, True, theme), z.UIImage(texture), z.UIScrollPanel(z.UIWidget())]


def living():
    return collections.Counter(type(o).__name__ for o in gc.get_objects() if isinstance(o, tuple(CLASSES)))


def attempt(action, *args, **kwargs):
    try:
        return action(*args, **kwargs)
    except Exception:
        return None


def arguments(function, values):
    """Argument tuples for a function: each value for all of its parameters at once, then mixtures."""
    parameters = inspect.signature(function).parameters.values()
    count = sum(p.kind != p.VAR_POSITIONAL and p.name != "self" for p in parameters)
    for i, value in enumerate(values if count else values[:1]):
        yield (value,) * count
        yield tuple(itertools.islice(itertools.cycle(values), i, i + count))


def exercise(thing, values):
    """Calls everything that a script can reach, with everything that a script may hand over."""
    for name in dir(type(thing)):
        member = inspect.getattr_static(type(thing), name)
        if isinstance(member, types.GetSetDescriptorType):
            attempt(getattr, thing, name)
            for value in values:
                attempt(setattr, thing, name, value)
            attempt(delattr, thing, name)
            attempt(getattr, thing, name)
        elif isinstance(member, types.MethodDescriptorType) and name not in LEFT_OUT and not hasattr(object, name):
            for given in arguments(member, values):
                attempt(getattr(thing, name), *given)
    for action in (repr, str, hash, list, iter, memoryview, lambda t: t + t, lambda t: t - t, lambda t: t * 2, lambda t: t * t):
        attempt(action, thing)


def exercise_all():
    exercise_each()
    for registry in zelvarine.Engine._eventSubscribers, zelvarine.Engine._tasks:
        registry.clear()
    gc.collect()
    assert not living()


def exercise_each():
    things = list(specimens()) + complete()
    for cls in CLASSES:
        made = [attempt(cls, *given) for given in arguments(cls, WILD)]
        things += [thing for thing in made if thing is not None][:2]
    for thing in things:
        exercise(thing, WILD)
        exercise(thing, things[::7])
        for given in ((), (None,), WILD[:3], (2, 2)):
            attempt(thing.__init__, *given)


@needsFont
def test_nothing_that_a_script_does_ends_the_process_or_loses_an_object(tmp_path):
    path = os.pathsep.join(map(os.path.dirname, map(os.path.abspath, (__file__, zelvarine.__file__))))
    done = subprocess.run([sys.executable, "-c", "import test_faults; test_faults.exercise_all()"], cwd=str(tmp_path),
                          env=dict(os.environ, PYTHONPATH=path), stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, timeout=300)
    assert done.returncode == 0, done.stderr[-2000:].decode(errors="replace")


@pytest.mark.parametrize("cls", CLASSES, ids=lambda c: c.__name__)
def test_what_is_stored_is_seen_by_the_collector(cls):
    thing = cls.__new__(cls)
    for name, value in itertools.product(dir(cls), specimens()):
        if isinstance(inspect.getattr_static(cls, name), types.GetSetDescriptorType):
            attempt(setattr, thing, name, value)
            if attempt(getattr, thing, name) is value:
                held = gc.get_referents(thing)
                held += [item for container in held if isinstance(container, list) for item in container]
                assert any(referent is value for referent in held), name


def test_a_long_chain_of_owners_is_released():
    chain = zelvarine.Resource(None)
    for _ in range(200000):
        chain = zelvarine.Resource(chain)
    del chain


def test_releasing_a_value_may_call_back():
    class Nasty:
        def __init__(self, target):
            self.target = target

        def __del__(self):
            self.target._filename = None

    resource = zelvarine.Resource(None)
    for _ in range(3):
        resource._filename = Nasty(resource)
        resource._filename = 1
        del resource._filename
    assert resource.filename is None
