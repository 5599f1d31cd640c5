#!/usr/bin/env python3
"""Checks the #includes in src/: a file uses its own layer or lower ones, and folders called core are free of Python."""

import os
import re
import sys

SRC = os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(__file__))), "src")

# From the bottom up. The longest name that a path begins with tells its layer.
LAYERS = [
    ["core"],
    ["binding"],
    ["sdl"],
    ["geometryMath", "keys", "colorprint", "events"],
    ["resources"],
    ["resources/entity", "resources/components", "resources/level"],
    ["renderer", "raycaster", "collision"],
    ["gui"],
    ["ui"],
    ["zelvarine"],
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
    """The project's own files that `path` includes, all named from src/."""
    with open(os.path.join(SRC, path), encoding="utf-8") as file:
        return re.findall(r'^\s*#include "(.*)"', file.read(), re.MULTILINE)


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
            if other not in includes:
                yield "src/{}: includes {}, which is no path from src/".format(path, other)
            elif layer_of(other) is not None and layer_of(other) > layer_of(path):
                yield "src/{}: includes {}, which is of a higher layer".format(path, other)


def core_faults(includes):
    """What lives in a folder called core works on plain data."""
    for path in includes:
        way = "core" in path.split("/")[:-1] and way_to_python(includes, [path])
        if way:
            yield "src/{}: of the plain core, but reaches Python.h: {}".format(path, " > ".join(way))


def way_to_python(includes, way):
    if way[-1] == "binding/python.hpp":
        return way
    ways = (way_to_python(includes, way + [other]) for other in includes.get(way[-1], ()) if other not in way)
    return next((found for found in ways if found), None)


if __name__ == "__main__":
    sys.exit(main())
