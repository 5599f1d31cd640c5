"""Where things lie on the disk."""

import os
import tempfile

EXAMPLES = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
ASSETS = os.path.join(EXAMPLES, "assets")
THEME = os.path.join(ASSETS, "widgets", "theme.json")
LEVEL = os.path.join(ASSETS, "walk.lvl")


def picture_folder(name):
    """The folder for saved pictures: in the build folder, or in that for temporary files where there is no build."""
    build = os.path.join(os.path.dirname(EXAMPLES), "build")
    return os.path.join(build if os.path.isdir(build) else tempfile.gettempdir(), name)


def saved_game():
    return os.path.join(tempfile.gettempdir(), "zelvarine-walk.lvl")
