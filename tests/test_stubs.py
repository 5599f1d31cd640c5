"""The type stubs say what the module has: names, parameters, defaults, bases, what can be written."""
import ast
import inspect
import os
import re

import pytest

import zelvarine

STUB = os.path.join(os.path.dirname(__file__), "..", "stubs", "zelvarine-stubs", "__init__.pyi")
HEAP_TYPE = 1 << 9  # a class made by Python code


def declarations(nodes):
    """What a body of the stub declares, by name; of overloads, and of a property with a setter, the last."""
    found = {}
    for node in nodes:
        if isinstance(node, (ast.Import, ast.ImportFrom)):
            found.update((alias.name, node) for alias in node.names if alias.asname)  # "as": passed on to scripts
        elif isinstance(node, (ast.FunctionDef, ast.ClassDef)):
            found[node.name] = node
        elif isinstance(node, ast.AnnAssign):
            found[node.target.id] = node
    return found


with open(STUB) as file:
    stub = declarations(ast.parse(file.read()).body)
classes = {name: cls for name, cls in vars(zelvarine).items() if isinstance(cls, type) and cls.__module__ == "zelvarine"}


def stubParameters(node):
    args = node.args
    defaults = ["="] * (len(args.args) - len(args.defaults)) + [repr(ast.literal_eval(value)) for value in args.defaults]
    return [(arg.arg, default) for arg, default in zip(args.args, defaults)] + ([("*" + args.vararg.arg, "=")] if args.vararg else [])


def parameters(function):
    return [("*" * (p.kind == p.VAR_POSITIONAL) + p.name, "=" if p.default is p.empty else repr(p.default))
            for p in inspect.signature(function).parameters.values()]


def typesDiffer(node, function):
    """Parameters whose plain types in the doc string and in the stub differ."""
    said = dict(re.findall(r"@param\((\w+)(?:=[^,]*)?, (int|float|str|bool)\)", function.__doc__ or ""))
    said.update(("return", kind) for kind in re.findall(r"@return\((int|float|str|bool)\)", function.__doc__ or ""))
    annotations = dict([(arg.arg, arg.annotation) for arg in node.args.args], **{"return": node.returns})
    return [name for name, kind in said.items() if not re.search("id='_?%s'" % kind, ast.dump(annotations[name]), re.IGNORECASE)]


def isWritable(cls, name):
    try:
        vars(cls)[name].__set__(cls.__new__(cls), object())
    except AttributeError as error:
        return "not writable" not in str(error)
    except TypeError:  # a value of the wrong type
        pass
    return True


def test_names_of_the_module():
    ours = {name for name in vars(zelvarine) if not name.startswith("_")} | {"_COMPONENTS"}
    theirs = {name for name in stub if not name.startswith("_")} | {"_COMPONENTS"}
    assert (sorted(ours - theirs), sorted(theirs - ours)) == ([], [])
    for name, node in stub.items():
        if isinstance(node, ast.AnnAssign) and isinstance(node.annotation, ast.Name):
            assert type(getattr(zelvarine, name)).__name__ == node.annotation.id, name
        elif isinstance(node, ast.FunctionDef):
            function = getattr(zelvarine, name)
            assert (stubParameters(node), typesDiffer(node, function)) == (parameters(function), []), name


@pytest.mark.parametrize("name", sorted(classes))
def test_class(name):
    cls, node = classes[name], stub[name]
    assert ([base.id for base in node.bases] or ["object"]) == [base.__name__ for base in cls.__bases__]
    declared, native = declarations(node.body), not cls.__flags__ & HEAP_TYPE
    if native:
        ours, theirs = ({n for n in names if not n.startswith("__") or n == "__init__"} for names in (vars(cls), declared))
        assert (sorted(ours - theirs), sorted(theirs - ours)) == ([], [])
    for member, declaration in declared.items():
        what = "{}.{}".format(name, member)
        decorators = {getattr(d, "id", None) or d.attr for d in getattr(declaration, "decorator_list", ())}
        if isinstance(declaration, ast.AnnAssign):
            isOfClass = getattr(getattr(declaration.annotation, "value", None), "id", None) == "ClassVar"
            assert not native or inspect.isdatadescriptor(vars(cls)[member]) != isOfClass, what
            assert not native or isOfClass or isWritable(cls, member), what
        elif decorators & {"property", "setter"}:
            assert isWritable(cls, member) == ("setter" in decorators), what
        elif member == "__init__":
            assert stubParameters(declaration)[1:] == parameters(cls), what
        elif not member.startswith("__"):
            function = vars(cls)[member]
            assert (stubParameters(declaration), typesDiffer(declaration, function)) == (parameters(function), []), what
