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
myst_heading_anchors = 2
suppress_warnings = ["myst.xref_missing"]
exclude_patterns = ["pictures"]
default_role = "literal"
add_module_names = False
autodoc_member_order = "bysource"
autodoc_default_options = {"members": True, "show-inheritance": True, "private-members": True}

PARAMETER = re.compile(r"@param\((\w+)(?:=[^,]*)?, (.*)\)$")
RESULT = re.compile(r"@returns?\((.*?)\)( .*)?$")


def field_lists(app, what, name, thing, options, lines):
    """Turns the lines @param(name, type) and @return(type) of doc strings into Sphinx's fields."""
    text = []
    for line in lines:
        parameter, result = PARAMETER.match(line), RESULT.match(line)
        if parameter:
            text.append(":param %s: %s" % parameter.groups())
        elif result:
            text.append(":returns: %s%s" % (result.group(1), "," + result.group(2) if result.group(2) else ""))
        else:
            text.append(line)
    # Doc strings are plain text but for their `code`.
    lines[:] = ["`".join(part if i % 2 else re.sub(r"([_*])(?=\W|$)", r"\\\1", part)
                         for i, part in enumerate(line.split("`"))) for line in text]


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
    app.connect("autodoc-process-docstring", field_lists)
    app.connect("autodoc-skip-member", skip_copies)
    app.connect("env-check-consistency", lambda app, environment: check_completeness(app, environment))
