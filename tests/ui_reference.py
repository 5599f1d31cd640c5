"""A small model of the widgets: the same trees laid out and painted by plain Python."""
import json

import numpy
import zelvarine
from zelvarine import SIZE_FIXED, SIZE_GROW, Texture, UIRenderer, UITheme

BACKGROUND, FONT_COLOR = 0xFF204060, (10, 20, 30, 255)
TILES = numpy.random.RandomState(1).randint(0, 1 << 24, (60, 60)).astype("uint32") | 0xFF000000


def piece(x, y, width, height):
    return {"x": x, "y": y, "width": width, "height": height}


WIDGETS = {
    "button": {look: {"x": 2, "y": y, "left": 4, "middle": 8, "right": 5, "height": 20} for look, y in (("normal", 1), ("hover", 22))},
    "panel": {"x": 20, "y": 3, "leftWidth": 3, "middleWidth": 6, "rightWidth": 4, "topHeight": 5, "middleHeight": 7, "bottomHeight": 2},
    "slider": {
        "horizontalBackground": {"x": 20, "y": 20, "left": 3, "middle": 7, "right": 2, "height": 10},
        "verticalBackground": {"x": 40, "y": 1, "top": 3, "middle": 7, "bottom": 2, "width": 9},
        "horizontalButton": {"normal": piece(20, 31, 6, 14)},
        "verticalButton": {"normal": piece(28, 31, 13, 8)},
        "leftButton": {"normal": piece(0, 45, 9, 11), "hover": piece(9, 45, 9, 11)},
        "rightButton": {"normal": piece(40, 14, 10, 8), "hover": piece(50, 14, 10, 8)},
        "topButton": {"normal": piece(20, 46, 8, 6), "hover": piece(28, 46, 8, 6)},
        "bottomButton": {"normal": piece(40, 40, 7, 12), "hover": piece(47, 40, 7, 12)},
    },
    "scrollPanel": {"sliderMargin": {"top": 2, "right": 3, "bottom": 4, "left": 9},
                    "clipPadding": {"top": 1, "right": 2, "bottom": 3, "left": 4}},
}


def word(color):
    r, g, b, a = (tuple(color) + (255,))[:4]
    return a << 24 | r << 16 | g << 8 | b


def writeTheme(folder):
    texture = Texture(*TILES.shape[::-1])
    numpy.asarray(texture)[:] = TILES
    texture.saveFile(str(folder / "tiles.png"))
    colors = {"background": "%X" % BACKGROUND, "fontColor": "%X" % word(FONT_COLOR)}
    (folder / "theme.json").write_text(json.dumps({"widgets": WIDGETS, "tileset": "tiles.png", "fonts": {}, "colors": colors}))
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
    def getFont(self, name):
        return {"aileron": FlatFont()}[name]


class Player(zelvarine.Engine):
    """An engine without a window, whose mouse is where the test says."""
    mouse, pressed = (-9, -9), False

    def getMousePos(self):
        return self.mouse

    def isMouseButtonPressed(self, button):
        return self.pressed and button == zelvarine.MOUSE_LEFT


class Stage:
    """A renderer on a target of 160 by 120, with an anchored root."""

    def __init__(self, folder):
        self.themeFile, self.target, self.engine = writeTheme(folder), Texture(160, 120), Player()
        self.renderer = UIRenderer(self.target, True, FlatTheme(self.themeFile))
        self.engine.ecs.addSystem(self.renderer)
        self.root, self.pixels = self.renderer.widget, numpy.asarray(self.target)

    def frame(self, x=-9, y=-9, pressed=False):
        self.engine.mouse, self.engine.pressed = (x, y), pressed
        self.renderer.render()


class Painter:
    def __init__(self):
        self.pixels, self.all = numpy.full((120, 160), BACKGROUND, "uint32"), (0, 0, 160, 120)

    def stretch(self, source, x, y, width, height, clip):
        """Each pixel shows the source pixel under its centre, in steps of 1/65536 of a source pixel."""
        across, down = [numpy.arange(max(size, 0)) for size in (width, height)]
        if len(across) and len(down):
            stepX, stepY = (source.shape[1] << 16) // width, (source.shape[0] << 16) // height
            picture = source[(stepY // 2 + down * stepY >> 16)[:, None], stepX // 2 + across * stepX >> 16]
            x0, y0 = max(x, clip[0], 0), max(y, clip[1], 0)
            x1, y1 = max(x0, min(x + width, clip[0] + clip[2], 160)), max(y0, min(y + height, clip[1] + clip[3], 120))
            self.pixels[y0:y1, x0:x1] = picture[y0 - y:y1 - y, x0 - x:x1 - x]

    def piece(self, piece, x, y, clip):
        part = TILES[piece["y"]:piece["y"] + piece["height"], piece["x"]:piece["x"] + piece["width"]]
        self.stretch(part, x, y, piece["width"], piece["height"], clip)

    def bar(self, table, x, y, length, vertical, clip):
        """The vertical bar is the horizontal one of the turned tileset on the turned picture."""
        (x, y), start = (y, x) if vertical else (x, y), table["y" if vertical else "x"]
        first, middle, last = [table[key] for key in (("top", "middle", "bottom") if vertical else ("left", "middle", "right"))]
        thickness, across = (table["width"], table["x"]) if vertical else (table["height"], table["y"])
        count, rest = divmod(max(0, length - first - last), middle)
        tiles = [(start + first, middle, first + k * middle, middle) for k in range(count)]
        squeezed = (start + first, middle, first + count * middle, rest)
        for source, size, place, shown in [(start, first, 0, first), *tiles, squeezed, (start + first + middle, last, length - last, last)]:
            part = (TILES.T if vertical else TILES)[across:across + thickness, source:source + size]
            self.stretch(part.T, y, x + place, thickness, shown, clip) if vertical else self.stretch(part, x + place, y, shown, thickness, clip)

    def ninePatch(self, x, y, width, height, clip):
        panel = WIDGETS["panel"]
        across, down = [[panel[key] for key in keys] for keys in (
            ("leftWidth", "middleWidth", "rightWidth"), ("topHeight", "middleHeight", "bottomHeight"))]
        wide, high = (across[0], width - across[0] - across[2], across[2]), (down[0], height - down[0] - down[2], down[2])
        for i, j in [(i, j) for j in range(3) for i in range(3)]:
            part = TILES[panel["y"] + sum(down[:j]):, panel["x"] + sum(across[:i]):][:down[j], :across[i]]
            self.stretch(part, x + sum(wide[:i]), y + sum(high[:j]), wide[i], high[j], clip)


class Node:
    """One widget, laid out and painted from what the script gave it; all but the results is read from the widget."""

    def __init__(self, widget, children=()):
        self.widget, self.children = widget, list(children)
        self.x, self.y, self.width, self.height = widget._x, widget._y, widget.width, widget.height

    def __getattr__(self, name):
        return getattr(self.widget, name)

    def everyone(self):
        return [self] + [node for child in self.children for node in child.everyone()]

    def rect(self):
        return self.x, self.y, self.width, self.height

    def outer(self):
        return self.width + self.marginLeft + self.marginRight, self.height + self.marginTop + self.marginBottom

    def measure(self):
        for child in self.children:
            child.measure()
        self.setSize(*self.content())

    def setSize(self, width, height):
        self.width = self.width if self.sizePolicyX == SIZE_FIXED else width
        self.height = self.height if self.sizePolicyY == SIZE_FIXED else height

    def content(self):
        return 0, 0

    def grow(self, width, height):
        self.width = width - self.marginLeft - self.marginRight if self.sizePolicyX == SIZE_GROW else self.width
        self.height = height - self.marginTop - self.marginBottom if self.sizePolicyY == SIZE_GROW else self.height
        for child in self.children:
            child.grow(*self.room())

    def room(self):
        return self.width, self.height

    def place(self):
        for child in self.children:
            child.place()

    def paint(self, painter, clip=(-1, -1, -1, -1)):
        x, y, width, height = self.rect()
        if min(clip) >= 0:
            x, y = max(clip[0], x), max(clip[1], y)
            width, height = min(clip[0] + clip[2], self.x + width) - x, min(clip[1] + clip[3], self.y + height) - y
        isShown = width > 0 and height > 0
        if isShown:
            self.draw(painter, (x, y, width, height))
        for child in self.children if isShown or not self.hidesChildren else []:
            child.paint(painter, (-1, -1, -1, -1) if isinstance(self, Panel) else clip)

    hidesChildren = False

    def draw(self, painter, clip):
        pass


class Picture(Node):
    def draw(self, painter, clip):
        painter.stretch(numpy.asarray(self.texture), *self.rect(), clip)


class Label(Node):
    def content(self):
        return sum(10 * len(line) for line in self.text.splitlines()), 12 * len(self.text.splitlines())

    def draw(self, painter, clip):
        lines = self.text.splitlines()
        block = numpy.array([[word(self.color)]], "uint32")
        painter.stretch(block, self.x, self.y, 10 * max(map(len, lines), default=0), 12 * len(lines), clip)


class List(Node):
    def __init__(self, widget, children):
        super().__init__(widget, children)
        for child in children:
            widget.addChild(child.widget)

    def content(self):
        widths, heights = zip((0, 0), *[child.outer() for child in self.children])
        across, down = (sum, max) if self.layout == zelvarine.LIST_LAYOUT_HORIZONTAL else (max, sum)
        return across(widths) + self.paddingLeft + self.paddingRight, down(heights) + self.paddingTop + self.paddingBottom

    def room(self):
        return self.width - self.paddingLeft - self.paddingRight, self.height - self.paddingTop - self.paddingBottom

    def place(self):
        left, top, offset = self.x + self.paddingLeft, self.y + self.paddingTop, 0
        for c in self.children:
            if self.layout == zelvarine.LIST_LAYOUT_HORIZONTAL:
                c.x, gap = left + offset + c.marginLeft, self.height - c.height
                c.y = top + (c.marginTop, gap - c.marginBottom, int(gap / 2))[c.verticalAlign]
                offset += c.outer()[0]
            else:
                c.y, gap = top + offset + c.marginTop, self.width - c.width
                c.x = left + (c.marginLeft, gap - c.marginRight, int(gap / 2))[c.horizontalAlign]
                offset += c.outer()[1]
        super().place()


class Panel(List):
    hidesChildren = True

    def draw(self, painter, clip):
        painter.ninePatch(*self.rect(), clip)


class Button(List):
    hidesChildren = True

    def __init__(self, widget):
        super().__init__(widget, [])
        self.children = [Label(widget.getChildren()[0])]

    def measure(self):
        label, face = self.children[0], WIDGETS["button"]["normal"]
        minHeight, self.paddingTop = max(face["height"], label.height), int((self.height - label.height) / 2)
        super().measure()
        self.setSize(self.width + face["left"] + face["right"], minHeight)

    def draw(self, painter, clip):
        painter.bar(WIDGETS["button"]["hover" if self.isHovered else "normal"], self.x, self.y, self.width, False, clip)


class Anchored(Node):
    def __init__(self, widget, anchored):
        super().__init__(widget, [child for child, *_ in anchored])
        self.anchors = [anchor for _, *anchor in anchored]
        for child, *anchor in anchored:
            widget.addChild(child.widget, *anchor)

    def place(self):
        for c, (x, y, anchorX, anchorY) in zip(self.children, self.anchors):
            c.x, c.y = self.x + x + c.marginLeft, self.y + y + c.marginTop
            if anchorX == zelvarine.ANCHOR_RIGHT:
                c.x = self.x + self.width - x - c.marginRight - c.width
            if anchorX == zelvarine.ANCHOR_CENTER:
                c.x = self.x + int(self.width / 2 + c.marginLeft + x - c.marginRight - c.width / 2)
            if anchorY == zelvarine.ANCHOR_BOTTOM:
                c.y = self.y + self.height - y - c.marginBottom - c.height
            if anchorY == zelvarine.ANCHOR_CENTER:
                c.y = self.y + int(self.height / 2 + c.marginTop + y - c.marginBottom - c.height / 2)
        super().place()


class Slider(Node):
    def __init__(self, widget, vertical):
        super().__init__(widget)
        names = ("verticalBackground", "verticalButton", "topButton", "bottomButton") if vertical else \
            ("horizontalBackground", "horizontalButton", "leftButton", "rightButton")
        self.bar, knob, *self.ends = [WIDGETS["slider"][name] for name in names]
        self.vertical, self.knob = vertical, knob["normal"]

    def content(self):
        along, first, last = ("height", "top", "bottom") if self.vertical else ("width", "left", "right")
        length = self.bar[first] + self.bar[last] + 2 * self.knob[along] + sum(end["normal"][along] for end in self.ends)
        return (self.bar["width"], length) if self.vertical else (length, self.bar["height"])

    def draw(self, painter, clip):
        first, second = [end["normal"] for end in self.ends]
        length = self.height if self.vertical else self.width
        track = length - first["width"] - second["width"] - self.knob["height" if self.vertical else "width"]
        offset = first["width"] + int(numpy.float32(self.percent) * numpy.float32(track))
        moved = lambda by: (self.x, self.y + by) if self.vertical else (self.x + by, self.y)
        painter.bar(self.bar, self.x, self.y, length, self.vertical, clip)
        painter.piece(first, self.x, self.y, clip)
        painter.piece(second, *moved(length - second["height" if self.vertical else "width"]), clip)
        painter.piece(self.knob, *moved(offset), painter.all)
