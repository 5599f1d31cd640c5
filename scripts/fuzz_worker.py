"""The working half of fuzz.py: makes lines of Python that treat the module badly, and runs them.

A line works on the slots of `O` and on nothing else that other lines have made, so that a run can be repeated from its
lines, and lines can be left out. What callbacks and overrides do is drawn from the numbers that the lines give them.
"""

import ast
import copy
import faulthandler
import gc
import itertools
import os
import random
import resource
import signal
import sys
import tempfile

import zelvarine as z
from fuzz_files import SAMPLES, use

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
O = [None] * 48  # what the lines make, keep and use again
KINDS = sorted(SAMPLES)
WORLD = """
for registry in z.Engine._eventSubscribers, z.Engine._tasks: registry.clear()
O[0] = z.Engine()
O[0].init("fuzz", (32, 24))
O[1] = z.Level()
O[2] = z.Texture(32, 24)
O[3] = z.RaycastingRenderer(O[2], O[1])
O[4] = z.MovementSystem(O[1])
O[5] = z.UITheme("theme.json")
O[6] = z.UIRenderer(O[2], False, O[5])
O[7] = z.Sprite(z.Texture(8, 8), 2, 2, [z.SpriteAnimation("walk", 2, False, 1.0, 0, 2)])
O[8] = z.Entity(1, z.PositionComponent(z.Vector2(15, 12)), z.SpriteComponent(O[7]), z.CollisionComponent())
O[9] = z.Entity(2, O[3].getCamera(), z.PositionComponent(z.Vector2(15, 15)), z.VelocityComponent(z.Vector2(0, -9)))
O[10] = z.UIListContainer()
O[11] = z.UIScrollPanel(z.UISlider(5))
O[6].widget.addChild(O[10], 0, 0)
O[10].addChild(O[11])
for system in O[3], O[4], O[6]: O[0].ecs.addSystem(system)
for entity in O[8], O[9]: O[0].ecs.addEntity(entity)
""".strip().splitlines()

NUMBERS = ["-1", "0", "255", "256", "65536", "2**31 - 1", "-2**31", "2**31", "2**63", "-2**70", "0.5", "-0.0", "1e300", "-1e300",
           "1e-310", "NAN", "INF", "-INF"]
WILD = NUMBERS + ["None", "True", "''", "'a\\0b'", "'\\ud800'", "'x' * 3000", "b'x'", "()", "(1, 2)", "(1, 2, 3)", "[None]", "{}",
                  "{'x': 'y'}", "object()", "object", "len", "looped()", "Exception()"]
WORDS = list(KINDS) + ["walk", "left", "x", "y", "position", "collision", "sprite", "id", "textures", "aileron", "fontColor", "missing"]
CALLABLE = ("__init__", "__del__", "__eq__", "__hash__", "__getattr__", "__iter__", "__float__", "__index__", "__bool__")
OPERATIONS = ["repr({0})", "hash({0})", "list(itertools.islice({0}, 9))", "memoryview({0})", "bytes({0})", "copy.copy({0})", "{0} + {1}",
              "{0} - {1}", "{0} * {1}", "{0} == {1}", "{0} < {1}", "{0}[{1}]", "{0}({1})", "len({0})", "float({0})", "{0}.none = {1}"]
ON_CONTAINERS = ["{0}.append({1})", "{0}.clear()", "{0}.pop()", "{0}[0] = {1}", "{0}[{1}] = {2}", "next(iter({0}))", "next({0})",
                 "{0}.insert(0, {1})", "{0}.release()", "{0}[0]"]
LEFT_OUT = {"run", "addTaskAfter"}  # they wait by design
NAN, INF = float("nan"), float("inf")


def names_in(annotation):
    return [node.id for node in ast.walk(annotation) if isinstance(node, ast.Name)] if annotation else []


def read_stubs():
    """For each class its methods, and for each attribute or parameter the names in its annotation."""
    with open(os.path.join(ROOT, "stubs", "zelvarine-stubs", "__init__.pyi"), encoding="utf-8") as file:
        tree = ast.parse(file.read())
    members = {}
    for holder in [tree] + [node for node in tree.body if isinstance(node, ast.ClassDef)]:
        found = members[getattr(holder, "name", "")] = {}
        for node in holder.body:
            if isinstance(node, ast.FunctionDef) and node.name not in LEFT_OUT:
                attribute = any(getattr(decorator, "id", "") == "property" for decorator in node.decorator_list)
                parameters = [argument for argument in node.args.args if argument.arg != "self"]
                found[node.name] = [] if attribute else [names_in(argument.annotation) for argument in parameters]
                found[node.name] = tuple(found[node.name]) if not attribute else names_in(node.returns)
            elif isinstance(node, ast.AnnAssign):
                found[node.target.id] = names_in(node.annotation)
    return members


MEMBERS = read_stubs()
CLASSES = [name for name in MEMBERS if isinstance(getattr(z, name, None), type) and issubclass(getattr(z, name), object)]


def members_of(thing):
    """What the stubs tell about an object: attribute to names, or method to a tuple of names for each parameter."""
    if thing is z:
        return MEMBERS[""]
    found = {}
    for cls in reversed(type(thing).__mro__):
        found.update(MEMBERS.get(cls.__name__, {}) if cls.__module__ == "zelvarine" else {})
    return found


def looped():
    """A tree that contains itself."""
    tree = {"x": 1, "components": []}
    tree["components"].append(tree)
    tree["tree"] = tree
    return tree


def hook(number):
    """A function that misbehaves in a way of its own for each number: it may raise, return junk, or play with all there is."""
    rng = random.Random(number)

    def called(*args, **kwargs):
        if hook.budget <= 0:
            return None
        hook.budget -= 1
        for thing in args:
            keep(free_slot(rng), thing)
        for _ in range(rng.choice((0, 0, 1, 3))):
            do(line(rng))
        if rng.random() < 0.2:
            raise rng.choice((ValueError, KeyError, RecursionError, AttributeError, StopIteration))("hook")
        return eval(value(rng, [])) if rng.random() < 0.4 else None
    return called


def sub(name, number):
    """A subclass of one of the module's classes that overrides some of its methods and attributes with hooks."""
    rng = random.Random(number)
    members = {}
    for member, kind in sorted(members_of(getattr(z, name).__new__(getattr(z, name))).items()) + [(each, ()) for each in CALLABLE]:
        if rng.random() < 0.15:
            members[member] = hook(rng.random()) if isinstance(kind, tuple) else property(hook(rng.random()))
    return type("Sub", (getattr(z, name),), members)


def value(rng, names, depth=2):
    """An expression that suits an annotation with these names, most of the time."""
    pick = rng.random()
    if not names or pick < 0.15:
        return rng.choice(WILD) if rng.random() < 0.4 else "O[%d]" % rng.randrange(len(O))
    name = rng.choice(names)
    if {"List", "Sequence", "Tuple"} & set(names):
        inner = [each for each in names if each not in ("List", "Sequence", "Tuple", "Optional")]
        return "[%s]" % ", ".join(value(rng, inner, depth - 1) for _ in range(rng.randrange(4)))
    if name in ("_Int", "_Float", "int", "float"):
        return str(rng.randrange(40)) if pick < 0.7 else rng.choice(NUMBERS) if pick < 0.9 else "%.3f" % rng.uniform(-60, 60)
    if name in ("str", "bool"):
        return repr(rng.choice(WORDS)) if name == "str" else rng.choice(("True", "False"))
    if name == "_Color":
        return "(%s)" % ", ".join(str(rng.choice((0, 80, 255, 255, 256, -1))) for _ in range(rng.choice((3, 3, 4, 5))))
    if name == "_Dict":
        return "{%s}" % ", ".join("%r: %s" % (rng.choice(WORDS), rng.choice(WILD)) for _ in range(rng.randrange(4)))
    if name == "Callable":
        return "hook(%d)" % rng.randrange(10**6)
    if name in ("type", "Type"):
        return "z." + rng.choice(CLASSES)
    if name in CLASSES:
        cls = getattr(z, name)
        suited = [index for index, thing in enumerate(O) if issubclass(type(thing), cls)]
        return "O[%d]" % rng.choice(suited) if suited and pick < 0.8 or depth == 0 and suited else new(rng, name, depth - 1)
    return rng.choice(WILD)


def new(rng, name, depth):
    """An expression for a new object of a class."""
    cls = "z." + name if rng.random() < 0.7 else "sub(%r, %d)" % (name, rng.randrange(10**6))
    if rng.random() < 0.08 or depth < 0:
        return "object.__new__(%s)" % cls if rng.random() < 0.1 else "(lambda c: c.__new__(c))(%s)" % cls
    return "%s(%s)" % (cls, arguments(rng, MEMBERS[name].get("__init__", ()), depth))


def arguments(rng, parameters, depth=2):
    count = len(parameters) + (rng.choice((-1, 0, 1)) if rng.random() < 0.1 else 0)
    return ", ".join(value(rng, names, depth) for names in itertools.islice(itertools.chain(parameters, [[], []]), max(count, 0)))


def line(rng):
    """One line of Python; which one depends on the random numbers and on what the slots hold."""
    pick, kept = rng.random(), "keep(%d, %%s)" % free_slot(rng)
    if pick < 0.15:
        return kept % (new(rng, rng.choice(CLASSES), 2))
    if pick < 0.18:
        return kept % (rng.choice(("[]", "looped()", "hook(%d)" % rng.randrange(10**6))))
    if pick < 0.22:
        return rng.choice(("O[0].update()", "O[0].ecs.update(0.01)", "O[3].render()", "O[6].render()"))
    if pick < 0.223:
        return "gc.collect()"
    slot = rng.randrange(len(O) + 1)
    thing, source = (z, "z") if slot == len(O) else (O[slot], "O[%d]" % slot)
    members = members_of(thing)
    if not members or pick < 0.28:
        if thing is None:
            return kept % (new(rng, rng.choice(CLASSES), 2))
        operation = rng.choice(OPERATIONS if members else ON_CONTAINERS).format(source, value(rng, []), value(rng, []))
        return operation if " = " in operation else kept % (operation)
    name = rng.choice(sorted(members))
    kind, source = members[name], "%s.%s" % (source, name)
    if isinstance(kind, tuple):
        return kept % ("%s(%s)" % (source, arguments(rng, kind)))
    if thing is z or pick < 0.4:
        return kept % (source)
    return "%s = %s" % (source, value(rng, kind)) if pick < 0.97 else "del " + source


def free_slot(rng):
    return rng.randrange(12, len(O))  # those before hold the world


def keep(slot, thing):
    """Puts what is worth attacking into a slot: objects of the module, containers, iterators and the like."""
    if not isinstance(thing, (type(None), int, float, str, bytes)):
        O[slot] = thing


def do(source):
    """Runs a line, whatever it raises."""
    try:
        exec(source, globals())
    except Exception:
        pass


def file_line(rng):
    return "use(%r, %d)" % (rng.choice(KINDS), rng.randrange(10**9))


def lines_of(mode, seed, count):
    rng = random.Random("%s %d" % (mode, seed))
    if mode == "files":
        return (file_line(rng) for _ in range(count))
    return (text for number in range(count) for text in (WORLD if number % 500 == 0 else []) + [line(rng)])


def main(log, mode, seed="0", count="0"):
    faulthandler.enable()
    faulthandler.register(signal.SIGTERM, chain=True)
    if "libasan" not in os.environ.get("LD_PRELOAD", ""):
        resource.setrlimit(resource.RLIMIT_AS, (3 << 30, 3 << 30))
    sys.stdout = open(os.devnull, "w")
    if mode == "repeat":
        with open(log) as file:
            source = file.read().splitlines()
        record = open(os.devnull, "wb")
    else:
        source, record = lines_of(mode, int(seed), int(count)), open(log, "wb", buffering=0)
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        for name in KINDS:
            with open(name, "wb") as file:
                file.write(SAMPLES[name])
        for text in source:
            record.write(text.encode() + b"\n")
            hook.budget = 40
            do(text)
        for index in range(len(O)):
            O[index] = None
        gc.collect()
    os._exit(0)  # what threads and libraries do at the end of a process is no concern of the module


if __name__ == "__main__":
    main(*sys.argv[1:])
