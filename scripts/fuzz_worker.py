"""The working half of fuzz.py: makes lines of Python that treat the module badly, writes them down and runs them.

A line works on the slots of `O` and on nothing else that other lines have made, so that lines can be repeated and left
out. What callbacks and overrides do is drawn from the numbers that the lines give them.
"""

import ast
import copy
import faulthandler
import gc
import itertools
import os
import random
import resource
import sys
import tempfile

import zelvarine as z
from fuzz_files import ROOT, SAMPLES, use

O = [None] * 48  # what the lines make, keep and use again; the first hold the world
WORLD = """
write_samples()
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
O[9] = z.Entity(2, z.PositionComponent(z.Vector2(15, 15)), z.VelocityComponent(z.Vector2(0, -9)), z.CollisionComponent())
O[10] = z.UIListContainer()
O[11] = z.UIScrollPanel(z.UISlider(5))
O[6].widget.addChild(O[10], 0, 0)
O[10].addChild(O[11])
for system in O[3], O[4], O[6]: O[0].ecs.addSystem(system)
for entity in O[8], O[9]: O[0].ecs.addEntity(entity)
""".strip().splitlines()
FRAMES = ["O[0].update()", "O[0].ecs.update(0.01)", "O[3].render()", "O[6].render()"]
NAN, INF = float("nan"), float("inf")
NUMBERS = ["-1", "0", "255", "256", "65536", "2**31 - 1", "-2**31", "2**31", "2**63", "-2**70", "0.5", "-0.0", "1e300", "-1e300",
           "1e-310", "NAN", "INF", "-INF"]
WILD = NUMBERS + ["None", "True", "''", "'a\\0b'", "'\\ud800'", "'x' * 3000", "b'x'", "()", "(1, 2)", "(1, 2, 3)", "[None]", "{}",
                  "object()", "object", "len", "looped()", "Exception()"]
WORDS = sorted(SAMPLES) + ["walk", "left", "x", "y", "position", "radius", "sprite", "id", "textures", "fontColor", "aileron"]
PLAIN = {"Texture": "z.Texture(8, 6)", "Level": "z.Level()", "Font": "z.Font('ttf', 9)", "Sound": "z.Sound('wav')",
         "Music": "z.Music('ogg')", "UITheme": "z.UITheme('theme.json')"}
ON_OBJECTS = ["repr({0})", "hash({0})", "list(itertools.islice({0}, 9))", "memoryview({0})", "bytes({0})", "copy.copy({0})", "{0} + {1}",
              "{0} - {1}", "{0} * {1}", "{0} == {1}", "{0} < {1}", "{0}[{1}]", "{0}({1})", "len({0})", "float({0})", "{0}.none = {1}"]
ON_OTHERS = ["{0}.append({1})", "{0}.insert(0, {1})", "{0}.clear()", "{0}.pop()", "{0}[0] = {1}", "{0}[{1}] = {2}", "{0}[0]",
             "next(iter({0}))", "next({0})", "{0}.release()"]
CALLED_BY_PYTHON = ["__init__", "__del__", "__eq__", "__hash__", "__getattr__", "__iter__", "__float__", "__index__", "__bool__"]
LEFT_OUT = ["run", "addTaskAfter"]  # they wait by design


def names_in(annotation):
    return [node.id for node in ast.walk(annotation) if isinstance(node, ast.Name)] if annotation else []


def read_stubs():
    """For each class its attributes and methods: a list of the names in an attribute's annotation, a tuple of such lists."""
    with open(os.path.join(ROOT, "stubs", "zelvarine-stubs", "__init__.pyi"), encoding="utf-8") as file:
        tree = ast.parse(file.read())
    members = {}
    for holder in [tree] + [node for node in tree.body if isinstance(node, ast.ClassDef)]:
        found = members[getattr(holder, "name", "")] = {}
        for node in holder.body:
            if isinstance(node, ast.AnnAssign):
                found[node.target.id] = names_in(node.annotation)
            elif isinstance(node, ast.FunctionDef) and "property" in [getattr(each, "id", "") for each in node.decorator_list]:
                found[node.name] = names_in(node.returns)
            elif isinstance(node, ast.FunctionDef) and node.name not in LEFT_OUT:
                parameters = [each for each in node.args.args if each.arg != "self"] + [node.args.vararg] * 2
                found[node.name] = tuple(names_in(each.annotation) for each in parameters if each)
    return members


MEMBERS = read_stubs()
CLASSES = [name for name in MEMBERS if isinstance(getattr(z, name, None), type)]


def members_of(thing):
    bases = reversed(type(thing).__mro__)
    return MEMBERS[""] if thing is z else {name: kind for base in bases if base.__module__ == "zelvarine"
                                           for name, kind in MEMBERS.get(base.__name__, {}).items()}


def looped():
    """A tree that contains itself."""
    tree = {"x": 1, "components": []}
    tree["components"].append(tree)
    tree["tree"] = tree
    return tree


def hook(number):
    """A function that misbehaves, in a way of its own for each number: it plays with all there is, raises, returns junk."""
    rng = random.Random(number)

    def called(*args, **kwargs):
        hook.budget -= 1
        if hook.budget < 0:
            return None
        for thing in args:
            keep(free_slot(rng), thing)
        for _ in range(rng.choice((0, 0, 1, 3))):
            do(line(rng))
        if rng.random() < 0.2:
            raise rng.choice((ValueError, KeyError, RecursionError, AttributeError, StopIteration))("hook")
        return eval(value(rng, [])) if rng.random() < 0.4 else None
    return called


def sub(name, number):
    """A subclass that overrides some methods and attributes with hooks."""
    rng, cls = random.Random(number), getattr(z, name)
    candidates = sorted(members_of(cls.__new__(cls)).items()) + [(each, ()) for each in CALLED_BY_PYTHON]
    return type("Sub", (cls,), {member: hook(rng.random()) if isinstance(kind, tuple) else property(hook(rng.random()))
                                for member, kind in candidates if rng.random() < 0.15})


def value(rng, names, depth=2):
    """An expression that suits an annotation with these names, most of the time."""
    pick = rng.random()
    if not names or pick < 0.07:
        return rng.choice(WILD) if rng.random() < 0.4 else "O[%d]" % rng.randrange(len(O))
    name = rng.choice(names)
    if {"List", "Sequence", "Tuple"} & set(names):
        inner = [each for each in names if each not in ("List", "Sequence", "Tuple", "Optional")]
        return "[%s]" % ", ".join(value(rng, inner, depth - 1) for _ in range(rng.randrange(4)))
    if name in ("_Int", "_Float", "int", "float"):
        return str(rng.randrange(40)) if pick < 0.8 else rng.choice(NUMBERS) if pick < 0.9 else "%.3f" % rng.uniform(-60, 60)
    if name == "_Color":
        return "(%s)" % ", ".join(str(rng.choice((0, 80, 255, 255, 256, -1))) for _ in range(rng.choice((3, 3, 4, 5))))
    if name == "_Dict":
        return "dict.fromkeys(%r, %s)" % (rng.sample(WORDS, rng.randrange(len(WORDS))), rng.choice(["1", "'x'"] + WILD))
    if name in CLASSES:
        suited = [index for index, thing in enumerate(O) if issubclass(type(thing), getattr(z, name))]
        return "O[%d]" % rng.choice(suited) if suited and pick < 0.8 else new(rng, name, depth - 1)
    plain = {"str": repr(rng.choice(WORDS)), "bool": rng.choice(("True", "False")), "Callable": "hook(%d)" % rng.randrange(10**6)}
    return plain.get(name) or (name in ("type", "Type") and "z." + rng.choice(CLASSES)) or rng.choice(WILD)


def new(rng, name, depth=2):
    """An expression for a new object of a class."""
    if name in PLAIN and rng.random() < 0.4:
        return PLAIN[name]
    cls = "z." + name if rng.random() < 0.7 else "sub(%r, %d)" % (name, rng.randrange(10**6))
    if rng.random() < 0.08 or depth < 0:
        return "(lambda cls: cls.__new__(cls))(%s)" % cls
    return "%s(%s)" % (cls, arguments(rng, MEMBERS[name].get("__init__", ()), depth))


def arguments(rng, parameters, depth=2):
    count = len(parameters) + (rng.choice((-1, 1)) if rng.random() < 0.07 else 0)
    return ", ".join(value(rng, names, depth) for names in (parameters + ([],))[:max(count, 0)])


def line(rng):
    """One line of Python; which one depends on the random numbers and on what the slots hold."""
    pick, kept = rng.random(), "keep(%d, %%s)" % free_slot(rng)
    slot = rng.randrange(len(O) + 1)
    thing, source = (z, "z") if slot == len(O) else (O[slot], "O[%d]" % slot)
    members = members_of(thing)
    if pick < 0.15 or thing is None:
        return kept % new(rng, rng.choice(CLASSES))
    if pick < 0.22:
        return rng.choice(FRAMES) if pick > 0.18 else kept % rng.choice(("[]", "looped()", "hook(%d)" % rng.randrange(10**6)))
    if pick < 0.223:
        return "gc.collect()"
    if not members or pick < 0.28:
        operation = rng.choice(ON_OBJECTS if members else ON_OTHERS).format(source, value(rng, []), value(rng, []))
        return operation if " = " in operation else kept % operation
    name = rng.choice(sorted(members))
    kind, source = members[name], "%s.%s" % (source, name)
    if isinstance(kind, tuple):
        return kept % ("%s(%s)" % (source, arguments(rng, kind)))
    if thing is z or pick < 0.4:
        return kept % source
    return "%s = %s" % (source, value(rng, kind)) if pick < 0.97 else "del " + source


def free_slot(rng):
    return rng.randrange(12, len(O))


def keep(slot, thing):
    """Puts what is worth attacking into a slot."""
    if not isinstance(thing, (type(None), int, float, str, bytes)):
        O[slot] = thing


def do(source):
    """Runs a line, whatever it raises."""
    try:
        exec(source, globals())
    except Exception:
        pass


def write_samples():
    for name, data in SAMPLES.items():
        with open(name, "wb") as file:
            file.write(data)


def lines_of(mode, seed, count):
    rng = random.Random("%s %d" % (mode, seed))
    for number in range(count):
        if mode == "files":
            yield "use(%r, %d)" % (rng.choice(sorted(SAMPLES)), rng.randrange(10**9))
            continue
        for text in WORLD if number % 500 == 0 else []:
            yield text
        yield line(rng)


def main(log, mode, seed="0", count="0"):
    faulthandler.enable()
    if "libasan" not in os.environ.get("LD_PRELOAD", ""):
        resource.setrlimit(resource.RLIMIT_AS, (2 << 30, 2 << 30))
    if mode == "repeat":
        with open(log, encoding="utf-8") as file:
            lines, log = file.read().splitlines(), os.devnull
    else:
        lines = lines_of(mode, int(seed), int(count))
    with open(log, "wb", buffering=0) as record, tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        for text in lines:
            record.write(text.encode() + b"\n")
            hook.budget = 40
            do(text)
        O.clear()
        gc.collect()
    os._exit(0)  # what threads and libraries do at the end of a process is no concern of the module


if __name__ == "__main__":
    main(*sys.argv[1:])
