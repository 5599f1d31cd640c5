"""Builds the pages into a site: see `make docs`."""
import inspect
import os
import re

os.environ["SDL_VIDEODRIVER"] = os.environ["SDL_AUDIODRIVER"] = "dummy"  # before the import, which starts SDL

import zelvarine

project = "zelvarine"
html_title = "zelvarine"
html_theme = "furo"
html_show_copyright = html_copy_source = False
extensions = ["myst_parser", "sphinx.ext.autodoc"]
default_role = "literal"
add_module_names = False
autodoc_default_options = {"members": True, "show-inheritance": True, "private-members": True}

# Doc strings tell the types of parameters and results in lines of these forms.
PARAMETER = re.compile(r"^@param\((\w+)(?:=[^,]*)?, (.*)\)$", re.MULTILINE)
RESULT = re.compile(r"^@returns?\(((?:[^()]|\([^()]*\))*)\)( .*)?$", re.MULTILINE)


def type_signature(app, what, name, thing, options, signature, returned):
    text = inspect.getdoc(thing) or ""
    for parameter, kind in PARAMETER.findall(text):
        typed = "%s: %s" % (parameter, tuples(kind))
        signature = re.sub(r"\b%s\b(?=[,=)])" % parameter, typed, signature or "", 1)
    result = RESULT.search(text)
    return signature, tuples(result.group(1)) if result else returned


def tuples(kind):
    return re.sub(r"\(([^()]*)\)", r"tuple[\1]", kind)


def read_as_text(app, what, name, thing, options, lines):
    text = RESULT.sub(lambda result: "\nReturns" + result.group(2) if result.group(2) else "", "\n".join(lines))
    lines[:] = [plain(line) for line in PARAMETER.sub("", text).split("\n")]


def plain(line):
    """Nothing but backquotes has a meaning."""
    parts = line.split("`")
    parts[::2] = [re.sub(r"([_*])(?=\W|$)", r"\\\1", part) for part in parts[::2]]
    return "`".join(parts)


def skip_copies(app, what, name, thing, skip, options):
    """Fields that only repeat another one, and names that Sphinx would mangle."""
    return skip or name.startswith("__") or (inspect.getdoc(thing) or "").startswith("the same as ")


def check_completeness(app, environment):
    public = {name for name, thing in vars(zelvarine).items() if getattr(thing, "__module__", "") == "zelvarine"
              and (inspect.isclass(thing) or inspect.isroutine(thing)) and not name.startswith("_")}
    described = {name.split(".")[1] for name in environment.get_domain("py").objects}
    if public - described:
        raise SystemExit("reference.md lacks %s" % ", ".join(sorted(public - described)))


def setup(app):
    app.connect("autodoc-process-signature", type_signature)
    app.connect("autodoc-process-docstring", read_as_text)
    app.connect("autodoc-skip-member", skip_copies)
    app.connect("env-check-consistency", check_completeness)
