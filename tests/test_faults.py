"""One catalogue of faults for every native class: what scripts may do wrong must raise, and never more than that."""
import gc
import inspect
import itertools
import types

import pytest

import helpers
import zelvarine
from test_class_layer import CLASSES

WILD = [None, 0, -1, 3, 2**31 - 1, -2**31, 2**63, 1e300, float("nan"), float("inf"), True, "", "a\0b", "\ud800", b"x",
        (), (1, 2), (1, 2, 3), [None], {}, {"x": "y"}, object(), object, len]
LEFT_OUT = {"run", "addTaskAfter"}  # they wait by design


def specimens():
    """An object of every class without its constructor, and one of a subclass that forgets to call it."""
    for cls in CLASSES:
        yield cls.__new__(cls)
        yield type("Forgetful" + cls.__name__, (cls,), {"__init__": lambda self, *args, **kwargs: None})()


def attempt(action, *args):
    try:
        return action(*args)
    except Exception:
        return None


def attempts(action, values):
    """Calls with each value for all of the parameters at once, and with mixtures; returns what came of it."""
    count = max(len(inspect.signature(action).parameters), 1)
    mixtures = [(values[i:] + values)[:count] for i in range(len(values))]
    return [attempt(action, *given) for given in mixtures + [[value] * count for value in values]]


def exercise(thing, values):
    """Calls everything that a script can reach, with everything that a script may hand over."""
    for name in dir(type(thing)):
        member = inspect.getattr_static(type(thing), name)
        if isinstance(member, types.GetSetDescriptorType):
            for action, *given in [(setattr, value) for value in values] + [(delattr,)]:
                attempt(action, thing, name, *given)
                attempt(getattr, thing, name)
        elif isinstance(member, types.MethodDescriptorType) and name not in LEFT_OUT and not hasattr(object, name):
            attempts(getattr(thing, name), values)
    for action in (repr, str, hash, list, iter, memoryview, lambda t: t + t, lambda t: t - t, lambda t: t * 2):
        attempt(action, thing)


def exercise_all():
    things = list(specimens())
    things += [thing for cls in CLASSES for thing in [made for made in attempts(cls, WILD) if made is not None][:2]]
    zelvarine.UIAnchoredContainer().addChild(zelvarine.UIWidget(), 0, 0)  # each holds the other
    for thing in things:
        exercise(thing, WILD)
        exercise(thing, things[::7])
        attempts(thing.__init__, WILD[:3]) if type(thing) in CLASSES else thing.__init__()


def test_nothing_that_a_script_does_ends_the_process_or_loses_an_object(tmp_path):
    helpers.run_script("""
import gc, os, test_faults, zelvarine
os.chdir(%r)
test_faults.exercise_all()
zelvarine.Engine._eventSubscribers.clear(), zelvarine.Engine._tasks.clear(), gc.collect()
assert not [thing for thing in gc.get_objects() if isinstance(thing, tuple(test_faults.CLASSES))]
""" % str(tmp_path), quiet=False)


@pytest.mark.parametrize("cls", CLASSES, ids=lambda c: c.__name__)
def test_what_is_stored_is_seen_by_the_collector(cls):
    thing = cls.__new__(cls)
    for name, value in itertools.product(dir(cls), specimens()):
        if isinstance(inspect.getattr_static(cls, name), types.GetSetDescriptorType):
            attempt(setattr, thing, name, value)
            if attempt(getattr, thing, name) is value:
                held = gc.get_referents(thing, *[each for each in gc.get_referents(thing) if isinstance(each, list)])
                assert any(referent is value for referent in held), name


def test_releasing_a_value():
    class Nasty:
        def __del__(self):
            seen.append(resource._filename)
            resource._filename = None

    seen = []
    resource = zelvarine.Resource(None)
    for _ in range(200000):  # a chain of owners deeper than the stack
        resource = zelvarine.Resource(resource)
    resource._filename = Nasty()
    resource._filename = 1
    del resource._filename
    assert resource.filename is None and seen == [1]  # the new value is there before the old one goes
