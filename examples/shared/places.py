"""Where things lie on the disk."""

import os
import sys
import tempfile

EXAMPLES = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
ASSETS = os.path.join(EXAMPLES, "assets")
THEME = os.path.join(ASSETS, "widgets", "theme.json")
LEVEL = os.path.join(ASSETS, "walk.lvl")


def picture_folder(name):
    """The folder for saved pictures: in the build folder, or in that for temporary files where there is no build."""
    build = os.path.join(os.path.dirname(EXAMPLES), "build")
    return os.path.join(build if os.path.isdir(build) else tempfile.gettempdir(), name)


def data_folder(name):
    """The folder for what a program keeps for its user, like saved games. It may not be there yet."""
    home = os.path.expanduser("~")
    if sys.platform == "win32":
        base = os.environ.get("APPDATA") or os.path.join(home, "AppData", "Roaming")
    elif sys.platform == "darwin":
        base = os.path.join(home, "Library", "Application Support")
    else:
        base = os.environ.get("XDG_DATA_HOME", "")
        if not os.path.isabs(base):  # not set, or not to be heeded
            base = os.path.join(home, ".local", "share")
    return os.path.join(base, name)
