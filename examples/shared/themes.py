"""The look of the widgets."""

import json
import os
import tempfile

from zelvarine import UITheme

from . import places
from .fonts import Fonts


def load_theme(font_file=None):
    """The theme of the examples, with the given font or with those that this machine has. May raise FontNotFound.

    A theme file tells where its fonts are, which is different on every machine. So the one of the examples gives their
    names only, and what is loaded is a copy that tells the places.
    """
    with open(places.THEME) as file:
        theme = json.load(file)
    theme["tileset"] = os.path.join(os.path.dirname(places.THEME), theme["tileset"])
    find = Fonts().find if font_file is None else lambda name: os.path.abspath(font_file)
    for font in theme["fonts"].values():
        font["file"] = find(font["file"])
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, "theme.json")
        with open(path, "w") as file:
            json.dump(theme, file)
        return UITheme(path)
