"""A theme and a renderer to test widgets with, and SDL itself to sketch the pictures that they should draw."""
import ctypes
import json

import numpy
import pytest
from zelvarine import MOUSE_LEFT, SIZE_FIXED, Engine, Texture, UIRenderer, UITheme

from helpers import sdl

BACKGROUND, FONT_COLOR = 0xFF204060, (10, 20, 30, 255)
TILES = numpy.random.RandomState(1).randint(0, 1 << 24, (60, 60)).astype("uint32") | 0xFF000000

WIDGETS = {
    "button": {look: {"x": 2, "y": y, "left": 4, "middle": 8, "right": 5, "height": 20}
               for look, y in (("normal", 1), ("hover", 22))},
    "panel": {"x": 20, "y": 3, "leftWidth": 3, "middleWidth": 6, "rightWidth": 4,
              "topHeight": 5, "middleHeight": 7, "bottomHeight": 2},
    "slider": {
        "horizontalBackground": {"x": 20, "y": 20, "left": 3, "middle": 7, "right": 2, "height": 10},
        "verticalBackground": {"x": 40, "y": 1, "top": 3, "middle": 7, "bottom": 2, "width": 9},
        **{name + "Button": {look: {"x": x, "y": y, "width": width, "height": height}
                             for look, x in (("normal", x), ("hover", x + width))}
           for name, x, y, width, height in [
            ("horizontal", 20, 31, 7, 14), ("vertical", 28, 31, 13, 8), ("left", 0, 45, 9, 11),
            ("right", 40, 14, 10, 8), ("top", 20, 46, 8, 6), ("bottom", 40, 40, 7, 12)]},
    },
    "scrollPanel": {"sliderMargin": {"top": 2, "right": 3, "bottom": 4, "left": 9},
                    "clipPadding": {"top": 1, "right": 2, "bottom": 3, "left": 4}},
}


def write_theme(folder, tiles=TILES, **keys):
    """Writes a theme file, complete but for the keys given as None, and gives its name."""
    texture = Texture(*tiles.shape[::-1])
    numpy.asarray(texture)[:] = tiles
    texture.saveFile(str(folder / "tiles.png"))
    colors = {"background": "%X" % BACKGROUND, "fontColor": "FF0A141E"}
    theme = dict({"widgets": WIDGETS, "tileset": "tiles.png", "fonts": {}, "colors": colors}, **keys)
    (folder / "theme.json").write_text(json.dumps({key: value for key, value in theme.items() if value is not None}))
    return str(folder / "theme.json")


class FlatFont:
    """Every character is a block of 10 by 12."""
    size = 7

    def getRenderedTextSize(self, text):
        return 10 * len(text), 12

    def renderLines(self, lines, color):
        texture = Texture(10 * max(map(len, lines), default=0), 12 * len(lines))
        texture.fill(color)
        return texture


class FlatTheme(UITheme):
    getFont = lambda self, name: {"aileron": FlatFont()}[name]


def sized(widget, width=20, height=10):
    widget.sizePolicyX = widget.sizePolicyY = SIZE_FIXED
    widget.width, widget.height = width, height
    return widget


class Stage(Engine):
    """An engine without a window, and a renderer on a target of 160 by 120 with an anchored root."""

    def __init__(self, folder, theme=FlatTheme, tiles=TILES, **keys):
        super().__init__()
        self.target = Texture(160, 120)
        self.renderer = UIRenderer(self.target, True, theme(write_theme(folder, tiles, **keys)))
        self.ecs.addSystem(self.renderer)
        self.root, self.theme, self.pixels = self.renderer.widget, self.renderer.theme, numpy.asarray(self.target)

    def add(self, widget, x=0, y=0, *size):
        """Puts a widget into the root, of a fixed size, and gives it."""
        self.root.addChild(sized(widget, *size), x, y)
        return widget

    def frame(self, x=-9, y=-9, pressed=False):
        self.getMousePos = lambda: (x, y)
        self.isMouseButtonPressed = lambda button: bool(pressed) and button == MOUSE_LEFT
        self.renderer.render()


@pytest.fixture
def ui(tmp_path):
    return Stage(tmp_path)


Rect = ctypes.c_int * 4
sdl.SDL_CreateRGBSurfaceWithFormatFrom.restype = ctypes.c_void_p


class Surface:
    """An SDL surface on the pixels of an array or of a texture."""

    def __init__(self, pixels, alpha=255):
        self.pixels, argb = numpy.ascontiguousarray(pixels), 0x16362004
        (height, width), start = self.pixels.shape, ctypes.c_void_p(self.pixels.ctypes.data)
        surface = sdl.SDL_CreateRGBSurfaceWithFormatFrom(start, width, height, 32, 4 * width, argb)
        self.handle = ctypes.c_void_p(surface)
        sdl.SDL_SetSurfaceAlphaMod(self.handle, ctypes.c_uint8(alpha))

    def __del__(self):
        sdl.SDL_FreeSurface(self.handle)


class Sketch(Surface):
    """What a target of 160 by 120 should show."""
    tiles = Surface(TILES)

    def __init__(self):
        super().__init__(numpy.full((120, 160), BACKGROUND, "uint32"))

    def clip(self, *rect):
        sdl.SDL_SetClipRect(self.handle, Rect(*rect) if rect else None)

    def blit(self, part, place, source=tiles):
        """Blits one rectangle onto another, as plain lists of x, y, w and h."""
        sdl.SDL_UpperBlitScaled(source.handle, Rect(*part), self.handle, Rect(*place))

    def grid(self, table, x, y, columns, rows):
        """Blits pieces. Spans tell where and how long they are in the tiles, then where and how long here."""
        for top, tall, down, height in rows:
            for left, wide, across, width in columns:
                self.blit((table["x"] + left, table["y"] + top, wide, tall), (x + across, y + down, width, height))

    def piece(self, table, x, y):
        self.grid(table, x, y, whole(table["width"]), whole(table["height"]))

    def bar(self, table, x, y, length, vertical=False):
        along, across = [(("left", "middle", "right"), "height"), (("top", "middle", "bottom"), "width")][vertical]
        spans = tiled(*[table[name] for name in along], length), whole(table[across])
        self.grid(table, x, y, *spans[::-1] if vertical else spans)

    def panel(self, x, y, width, height):
        table = WIDGETS["panel"]
        self.grid(table, x, y, stretched(table["leftWidth"], table["middleWidth"], table["rightWidth"], width),
                  stretched(table["topHeight"], table["middleHeight"], table["bottomHeight"], height))


def whole(length):
    return [(0, length, 0, length)]


def stretched(first, middle, last, length):
    return whole(first) + [(first, middle, first, length - first - last), (first + middle, last, length - last, last)]


def tiled(first, middle, last, length):
    count, rest = divmod(max(0, length - first - last), middle)
    tiles = [(first, middle, first + k * middle, middle) for k in range(count)]
    squeezed = [(first, middle, first + count * middle, rest)] * (rest > 0)
    return whole(first) + tiles + squeezed + [(first + middle, last, length - last, last)]
