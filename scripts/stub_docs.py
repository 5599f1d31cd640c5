#!/usr/bin/env python3
"""Writes the doc strings of the module into its type stub, where editors find them; --check only compares."""

import argparse
import ast
import inspect
import os
import re
import sys
import types

import zelvarine

STUB = os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(__file__))), "stubs", "zelvarine-stubs", "__init__.pyi")
# What Python makes by itself, like __add__, has a doc string of Python's.
OF_THE_MODULE = (type, types.ModuleType, types.FunctionType, types.BuiltinFunctionType, types.MethodDescriptorType,
                 types.GetSetDescriptorType)
NO_BODY = re.compile(r":\s+\.\.\.")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--check", action="store_true", help="write nothing; fail where the stub differs")
    options = parser.parse_args()
    with open(STUB, encoding="utf-8") as file:
        before = file.read()
    after = with_docs(before)
    if before == after:
        return 0
    if options.check:
        print("The doc strings in the stub are not those of the module: `make stub-docs` writes them.", file=sys.stderr)
        return 1
    with open(STUB, "w", encoding="utf-8") as file:
        file.write(after)
    return 0


def with_docs(stub):
    lines = stub.splitlines()
    body = ast.parse(stub).body
    changes = [change(body, first_line(body[0]) - 1, quoted(zelvarine, ""))]
    changes += changes_in(lines, body, zelvarine)
    for first, last, text in sorted(changes, reverse=True):
        lines[first:last] = text
    return "\n".join(lines) + "\n"


def changes_in(lines, body, owner):
    """Triples (first, last, text), for lines[first:last] = text: the doc strings of what `owner` has."""
    for position, node in enumerate(body):
        indent = " " * node.col_offset
        if isinstance(node, (ast.ClassDef, ast.FunctionDef)):
            member = vars(owner).get(node.name)
            doc = quoted(member, indent + "    ")
            head = (node.body[0].lineno if isinstance(node, ast.FunctionDef) else node.lineno) - 1
            if doc and NO_BODY.search(lines[head]):
                yield head, head + 1, [NO_BODY.sub(":", lines[head])] + doc
            else:
                yield change(node.body, head + 1, doc)
            if isinstance(node, ast.ClassDef):
                yield from changes_in(lines, node.body, member)
        elif isinstance(node, ast.AnnAssign) and isinstance(owner, type):
            yield change(body[position + 1:], node.end_lineno, quoted(vars(owner).get(node.target.id), indent))


def change(body, otherwise, doc):
    """Puts a doc string in the place of the one that `body` begins with, or before line `otherwise` if it has none."""
    if body and isinstance(body[0], ast.Expr) and isinstance(getattr(body[0].value, "value", None), str):
        nothing = [" " * body[0].col_offset + "..."] if len(body) == 1 else []
        return body[0].lineno - 1, body[0].end_lineno, doc or nothing
    return otherwise, otherwise, doc


def first_line(node):
    return min([node.lineno] + [decorator.lineno for decorator in getattr(node, "decorator_list", ())])


def quoted(member, indent):
    """The lines of a doc string, none where the module says nothing."""
    doc = inspect.cleandoc(member.__doc__ or "") if isinstance(member, OF_THE_MODULE) else ""
    if not doc:
        return []
    text = doc.replace("\\", "\\\\").replace('"""', '\\"\\"\\"')
    end = "\n" if "\n" in text or text.endswith('"') else ""
    return [indent * bool(line) + line for line in ('"""' + text + end + '"""').splitlines()]


if __name__ == "__main__":
    sys.exit(main())
