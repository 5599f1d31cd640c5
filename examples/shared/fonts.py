"""Finds TrueType fonts on this machine."""

import os
import subprocess

ENDINGS = (".ttf", ".otf", ".ttc")
# Taken in this order where the wanted font is missing; after them, any font.
SUBSTITUTES = ("DejaVuSans.ttf", "LiberationSans-Regular.ttf", "NotoSans-Regular.ttf", "FreeSans.ttf", "Ubuntu-R.ttf",
               "segoeui.ttf", "arial.ttf", "Arial.ttf", "Verdana.ttf", "Helvetica.ttc")


class FontNotFound(Exception):
    pass


class Fonts:
    def __init__(self):
        self._paths = {}  # file name in small letters -> path
        for path in sorted(_in_folders() + _known_to_fontconfig(), reverse=True):
            if path.lower().endswith(ENDINGS):
                self._paths[os.path.basename(path).lower()] = path

    def find(self, name):
        """The path of the font file of that name, or of another font."""
        for candidate in (name,) + SUBSTITUTES + tuple(sorted(self._paths)):
            if candidate.lower() in self._paths:
                return self._paths[candidate.lower()]
        raise FontNotFound("There is no TrueType font in %s. Install one (on Debian: apt install fonts-dejavu-core) "
                           "or tell where one is with --font FILE." % ", ".join(_folders()))


def _folders():
    home = os.path.expanduser("~")
    windows = os.environ.get("WINDIR", r"C:\Windows")
    return ["/usr/share/fonts", "/usr/local/share/fonts", os.path.join(home, ".local", "share", "fonts"),
            os.path.join(home, ".fonts"), "/System/Library/Fonts", "/Library/Fonts",
            os.path.join(home, "Library", "Fonts"), os.path.join(windows, "Fonts")]


def _in_folders():
    return [os.path.join(folder, name) for top in _folders() for folder, _, names in os.walk(top) for name in names]


def _known_to_fontconfig():
    """What the fontconfig tools list, on systems that have them."""
    try:
        listing = subprocess.check_output(["fc-list", "--format=%{file}\n"], stderr=subprocess.DEVNULL, timeout=20)
    except (OSError, subprocess.SubprocessError):
        return []
    return [os.fsdecode(line) for line in listing.splitlines()]
