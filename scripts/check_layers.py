#!/usr/bin/env python3
"""Checks the #includes in src/: a file uses its own layer or lower ones, and the plain core stays free of Python."""

import os
import re
import sys

SRC = os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(__file__))), "src")

# From the bottom up. The longest name that a path begins with tells its layer.
LAYERS = [
    ["binding"],
    ["sdl"],
    ["point", "numbers", "image", "geometryMath", "keys", "colorprint", "events"],
    ["resources"],
    ["resources/entity", "resources/components", "resources/level"],
    ["renderer", "raycaster", "collision"],
    ["gui", "ui"],
    ["zelvarine"],
]

# Functions on plain data, which do not reach Python.h.
PLAIN_CORE = [
    "point", "numbers", "image", "resources/level/grid", "collision/circles",
    "raycaster/ray", "raycaster/scene", "raycaster/blend",
    "raycaster/walls", "raycaster/flats", "raycaster/sky", "raycaster/sprites",
]


def main():
    includes = {path: included_by(path) for path in sorted(source_files())}
    faults = list(layer_faults(includes)) + list(core_faults(includes))
    for fault in faults:
        print(fault, file=sys.stderr)
    return 1 if faults else 0


def source_files():
    for folder, _, names in os.walk(SRC):
        for name in names:
            if name.endswith((".hpp", ".cpp")):
                yield os.path.relpath(os.path.join(folder, name), SRC).replace(os.sep, "/")


def included_by(path):
    """The project's own files that `path` includes."""
    with open(os.path.join(SRC, path), encoding="utf-8") as file:
        names = re.findall(r'^\s*#include "(.*)"', file.read(), re.MULTILINE)
    beside = os.path.dirname(path)
    return [os.path.join(beside, name) if os.path.exists(os.path.join(SRC, beside, name)) else name for name in names]


def concept(path):
    return os.path.splitext(path)[0]


def layer_of(path):
    """Position in LAYERS; None for a file that has no place there."""
    found, longest = None, ""
    for layer, names in enumerate(LAYERS):
        for name in names:
            if (concept(path) == name or path.startswith(name + "/")) and len(name) > len(longest):
                found, longest = layer, name
    return found


def layer_faults(includes):
    for path, included in includes.items():
        if layer_of(path) is None:
            yield "src/{}: belongs to no layer; give it one in scripts/check_layers.py".format(path)
            continue
        for other in included:
            if layer_of(other) is not None and layer_of(other) > layer_of(path):
                yield "src/{}: includes {}, which is of a higher layer".format(path, other)


def core_faults(includes):
    for name in PLAIN_CORE:
        files = [path for path in includes if concept(path) == name]
        if not files:
            yield "src/{}: is gone; take it off the plain core in scripts/check_layers.py".format(name)
        for path in files:
            way = way_to_python(includes, [path])
            if way:
                yield "src/{}: of the plain core, but reaches Python.h: {}".format(path, " > ".join(way))


def way_to_python(includes, way):
    if way[-1] == "binding/python.hpp":
        return way
    ways = (way_to_python(includes, way + [other]) for other in includes.get(way[-1], ()) if other not in way)
    return next((found for found in ways if found), None)


if __name__ == "__main__":
    sys.exit(main())
