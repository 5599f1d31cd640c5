"""What all native classes share: how they take arguments, are told about, hold their references, and end."""
import ctypes
import gc
import inspect
import itertools
import sys

import pytest

import helpers
import zelvarine as z

CLASSES = sorted((c for c in vars(z).values() if isinstance(c, type) and c.__module__ == "zelvarine"
                  and not c.__flags__ & (1 << 9)), key=lambda c: c.__name__)  # bit 9: made by a class statement


def test_arguments_outlive_the_dict_that_they_came_from():
    class Emptying:
        def __float__(self):
            keywords.clear()
            self.others = [float(i) for i in range(200)]  # they take the memory of what is gone
            return 1.0

    keywords = {"x": Emptying(), "y": float("12.25")}
    call = ctypes.pythonapi.PyObject_Call  # hands over the dict itself, as f(**d) does before Python 3.9
    call.restype, call.argtypes = ctypes.py_object, [ctypes.py_object] * 3
    v = call(z.Vector2, (), keywords)
    assert (v.x, v.y) == (1.0, 12.25)


def test_unrelated_classes_do_not_mix():
    for a, b in itertools.combinations(CLASSES, 2):
        if not issubclass(a, b) and not issubclass(b, a):
            pytest.raises(TypeError, type, "Both", (a, b), {})


@pytest.mark.parametrize("cls", [z.Engine, z.Vector2, z.KeyEvent])
def test_a_class_outlives_its_instances_and_no_more(cls):
    own = type("Own", (cls,), {})
    before = sys.getrefcount(own)
    for _ in range(3):
        own.__new__(own)
    gc.collect()
    assert sys.getrefcount(own) == before


@pytest.mark.parametrize("recursion", [
    "engine.subscribeEvent(z.Event, engine.fireEvent); engine.fireEvent(z.Event())",
    "system.update = engine.ecs.update; engine.ecs.addSystem(system); engine.ecs.update(1)"])
def test_endless_recursion_of_native_code(recursion):
    helpers.run_script("import zelvarine as z\nengine = z.Engine()\n"
                      "system = type('Own', (z.AbstractSystem,), {})()\n" + recursion, error="\nRecursionError")


def test_constructors_fill_all_fields_anew():
    event = z.ButtonClickEvent(None, 1, 2, 3)
    event.isAlreadyHandled = True
    event.__init__(None, 4.9, -5.9, True)
    assert (event.isAlreadyHandled, event.target, event.x, event.y, event.button) == (False, None, 4, -5, 1)


@pytest.mark.parametrize("member, signature, end", [
    (z.Camera, "(pos, dir, fov, pitch, ratio=1.6)", ""),
    (z.Engine.init, "(self, /, title, size, fullscreen=False, show=True, resizeable=False, windowid=-1, icon=None, "
     "captureMouse=False, audioChannels=32, killWithEscapeKey=True)", "\n@param(killWithEscapeKey=True, bool)"),
    (z.UIWidget.getParent, "(self, /)", "\n@return(AbstractUIContainer or None)")])
def test_documentation(member, signature, end):
    assert str(inspect.signature(member)) == signature
    assert member.__doc__.endswith(end), member.__doc__
