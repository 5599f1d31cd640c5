"""README.md and the pages in docs: what they tell to do works, and their tables of keys are complete."""
import os
import pathlib
import re
import sys

import pytest
import zelvarine
from helpers import DEJAVU, run_script
from ui_reference import WIDGETS

ROOT = pathlib.Path(__file__).resolve().parent.parent
PAGES = [ROOT / "README.md"] + sorted((ROOT / "docs").glob("*.md"))
UNMET = {"theme-file": not os.path.exists(DEJAVU) and "Debian's package fonts-dejavu-core",
         "errors": sys.version_info < (3, 8) and "sys.unraisablehook"}


@pytest.mark.parametrize("page", [page for page in PAGES if "```py" in page.read_text(encoding="utf-8")],
                         ids=lambda page: page.stem)
def test_following_a_page(page):
    if UNMET.get(page.stem):
        pytest.skip("needs " + UNMET[page.stem])
    run_script(str(ROOT / "scripts" / "follow_page.py"), str(page))


def in_tables(page):
    text = (ROOT / "docs" / page).read_text(encoding="utf-8")
    return {key for row in re.findall(r"^\|.*", text, re.MULTILINE) for key in re.findall(r'`"(\w+)"`', row)}


def in_sources(pattern, *files):
    return {key for name in files for path in (ROOT / "src").glob(name) for key in re.findall(pattern, path.read_text())}


def test_tables_list_what_the_loaders_read():
    looked_up = r'\b(?:item|itemOr|hasItem|flagsOf)\([^";]*"(\w+)"(?!_name)'
    names = {name for name, value in zelvarine._COMPONENTS.items()
             if isinstance(name, str) and value in vars(zelvarine).values()}
    assert in_tables("level-files.md") == names | in_sources(
        looked_up, "resources/level/*.cpp", "resources/entity/*component*.cpp")
    by_name = in_sources(r'(?:"get(?:Font|\w*Color)"_name,[^";]*|fontName = )"(\w+)"', "gui/*.cpp", "ui/*.cpp")
    pieces = set(re.findall(r"'(\w+)'", repr(WIDGETS)))  # with these, and no others, the tests draw all widgets
    assert in_tables("theme-file.md") == in_sources(looked_up, "gui/uitheme.cpp") | by_name | pieces
