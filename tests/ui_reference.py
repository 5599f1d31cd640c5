"""A small model of the widgets: the same trees laid out and painted by plain Python.

Every piece of its theme has one colour, so that a picture is told by rectangles alone.
"""
import json

import numpy
import zelvarine
from zelvarine import Texture, UIRenderer, UITheme

NONE = (-1, -1, -1, -1)
FIELDS = ("_x", "_y", "width", "height")
MARGINS = ("marginTop", "marginRight", "marginBottom", "marginLeft")

_bar = {"left": 4, "middle": 8, "right": 5, "height": 20}
WIDGETS = {
    "button": {"normal": dict(_bar), "hover": dict(_bar)},
    "panel": {"leftWidth": 3, "middleWidth": 6, "rightWidth": 4, "topHeight": 5, "middleHeight": 7, "bottomHeight": 2},
    "slider": {
        "horizontalBackground": {"left": 3, "middle": 7, "right": 2, "height": 10},
        "verticalBackground": {"top": 3, "middle": 7, "bottom": 2, "width": 9},
        "horizontalButton": {"normal": {"width": 6, "height": 14}},
        "verticalButton": {"normal": {"width": 13, "height": 8}},
        **{name: {look: {"width": w, "height": h} for look in ("normal", "hover")}
           for name, w, h in (("leftButton", 9, 11), ("rightButton", 10, 8), ("topButton", 8, 6), ("bottomButton", 7, 12))},
    },
    "scrollPanel": {"sliderMargin": {"top": 2, "right": 3, "bottom": 4, "left": 9},
                    "clipPadding": {"top": 1, "right": 2, "bottom": 3, "left": 4}},
}
BACKGROUND = 0xFF204060
FONT_COLOR = (10, 20, 30, 255)


def word(color):
    r, g, b, a = (tuple(color) + (255,))[:4]
    return a << 24 | r << 16 | g << 8 | b


def sampled(i, sourceLength, length):
    """The source pixel under the centre of pixel `i` of a stretched length, in steps of 1/65536."""
    step = (sourceLength << 16) // length
    return step // 2 + i * step >> 16


def thirds(piece, *names):
    return [piece.get(name, 0) for name in names]


def columns(piece):
    return thirds(piece, "leftWidth", "middleWidth", "rightWidth") if "leftWidth" in piece else \
        thirds(piece, "left", "middle", "right") if "left" in piece else [piece["width"]]


def rows(piece):
    return thirds(piece, "topHeight", "middleHeight", "bottomHeight") if "topHeight" in piece else \
        thirds(piece, "top", "middle", "bottom") if "top" in piece else [piece["height"]]


def writeTheme(folder, retouch=lambda tiles: None):
    """Places the pieces in a tileset, a colour for each part of them, and gives the name of the theme file."""
    tiles, place = numpy.zeros((40, 400), "uint32"), 0
    tables = [WIDGETS["panel"]] + list(WIDGETS["button"].values())
    for table in WIDGETS["slider"].values():
        tables += list(table.values()) if "normal" in table else [table]
    for number, piece in enumerate(tables):
        piece.update(x=place, y=number % 5, colors=[])
        y = piece["y"]
        for j, height in enumerate(rows(piece)):
            x = place
            for i, width in enumerate(columns(piece)):
                piece["colors"].append(0xFF000000 | number << 16 | i * 90 << 8 | j * 90 + 20)
                tiles[y:y + height, x:x + width] = piece["colors"][-1]
                x += width
            y += height
        place = x
    retouch(tiles)
    texture = Texture(400, 40)
    numpy.asarray(texture)[:] = tiles
    texture.saveFile(str(folder / "tiles.png"))
    colors = {"background": "%X" % BACKGROUND, "fontColor": "%X" % word(FONT_COLOR)}
    theme = {"widgets": WIDGETS, "tileset": "tiles.png", "fonts": {}, "colors": colors}
    (folder / "theme.json").write_text(json.dumps(theme))
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
    """A renderer on a target, with an anchored root."""

    def __init__(self, folder, width=160, height=120, **options):
        self.themeFile = writeTheme(folder, **options)
        self.target, self.engine = Texture(width, height), Player()
        self.renderer = UIRenderer(self.target, True, FlatTheme(self.themeFile))
        self.engine.ecs.addSystem(self.renderer)
        self.root = self.renderer.widget
        self.pixels = numpy.asarray(self.target)

    def frame(self, x=-9, y=-9, pressed=False):
        self.engine.mouse, self.engine.pressed = (x, y), pressed
        self.renderer.render()


class Painter:
    def __init__(self, width, height, color=BACKGROUND):
        self.pixels = numpy.full((height, width), color, "uint32")

    def fill(self, x, y, width, height, color, clip):
        x0, y0, x1, y1 = max(x, clip[0], 0), max(y, clip[1], 0), min(x + width, clip[0] + clip[2]), min(y + height, clip[1] + clip[3])
        if x0 < x1 and y0 < y1:
            self.pixels[y0:y1, x0:x1] = color

    def all(self):
        return (0, 0) + self.pixels.shape[::-1]

    def bar(self, piece, x, y, length, vertical, clip):
        """Caps and tiles; the squeezed last tile has the colour of the others."""
        first, middle, last = rows(piece) if vertical else columns(piece)
        thickness = piece["width" if vertical else "height"]
        tiled = max(0, length - first - last)
        for start, size, color in zip((0, first, length - last), (first, tiled, last), piece["colors"]):
            self.fill(*((x, y + start, thickness, size) if vertical else (x + start, y, size, thickness)), color, clip)

    def ninePatch(self, piece, x, y, width, height, clip):
        across, down = columns(piece), rows(piece)
        across[1], down[1] = width - across[0] - across[2], height - down[0] - down[2]
        for i, color in enumerate(piece["colors"]):
            self.fill(x + sum(across[:i % 3]), y + sum(down[:i // 3]), across[i % 3], down[i // 3], color, clip)

    def piece(self, piece, x, y, clip):
        self.fill(x, y, piece["width"], piece["height"], piece["colors"][0], clip)


class Node:
    """One widget; it lays itself out like the widget with the same fields."""
    policy = (zelvarine.SIZE_AUTO, zelvarine.SIZE_AUTO)

    def __init__(self, widget, children=(), **fields):
        self.widget, self.children = widget, list(children)
        for name, value in fields.items():
            setattr(widget, name, value)
        self.x = self.y = 0
        self.copy("width", "height", "sizePolicyX", "sizePolicyY", "horizontalAlign", "verticalAlign", *MARGINS)

    def copy(self, *names):
        for name in names:
            setattr(self, name, getattr(self.widget, name))

    def everyone(self):
        return [self] + [node for child in self.children for node in child.everyone()]

    def outer(self):
        return self.width + self.marginLeft + self.marginRight, self.height + self.marginTop + self.marginBottom

    def setSize(self, width, height):
        self.width = self.width if self.sizePolicyX == zelvarine.SIZE_FIXED else width
        self.height = self.height if self.sizePolicyY == zelvarine.SIZE_FIXED else height

    def measure(self):
        for child in self.children:
            child.measure()
        self.setSize(*self.content())

    def content(self):
        return 0, 0

    def room(self):
        return self.width, self.height

    def grow(self, width, height):
        if self.sizePolicyX == zelvarine.SIZE_GROW:
            self.width = width - self.marginLeft - self.marginRight
        if self.sizePolicyY == zelvarine.SIZE_GROW:
            self.height = height - self.marginTop - self.marginBottom
        for child in self.children:
            child.grow(*self.room())

    def place(self):
        for child in self.children:
            child.place()

    def clipped(self, clip):
        own = (self.x, self.y, self.width, self.height)
        if min(clip) < 0:
            return own
        x, y = max(clip[0], own[0]), max(clip[1], own[1])
        return x, y, min(clip[0] + clip[2], own[0] + own[2]) - x, min(clip[1] + clip[3], own[1] + own[3]) - y

    def paint(self, painter, clip=NONE):
        visible = self.clipped(clip)
        if visible[2] > 0 and visible[3] > 0:
            self.draw(painter, visible)
        self.paintChildren(painter, clip)

    def paintChildren(self, painter, clip):
        for child in self.children:
            child.paint(painter, clip)

    def draw(self, painter, clip):
        pass


class Picture(Node):
    def draw(self, painter, clip):
        painter.fill(self.x, self.y, self.width, self.height, int(numpy.asarray(self.widget.texture)[0, 0]), clip)


class Label(Node):
    def content(self):
        lines = self.widget.text.splitlines()
        return sum(10 * len(line) for line in lines), 12 * len(lines)

    def draw(self, painter, clip):
        lines = self.widget.text.splitlines()
        painter.fill(self.x, self.y, 10 * max(map(len, lines), default=0), 12 * len(lines), word(self.widget.color), clip)


class List(Node):
    def __init__(self, widget, children=(), **fields):
        super().__init__(widget, children, **fields)
        for child in children:
            widget.addChild(child.widget)
        self.copy("paddingTop", "paddingRight", "paddingBottom", "paddingLeft", "layout")

    def content(self):
        widths, heights = zip((0, 0), *[child.outer() for child in self.children])
        across, down = (sum, max) if self.layout == zelvarine.LIST_LAYOUT_HORIZONTAL else (max, sum)
        return across(widths) + self.paddingLeft + self.paddingRight, down(heights) + self.paddingTop + self.paddingBottom

    def room(self):
        return self.width - self.paddingLeft - self.paddingRight, self.height - self.paddingTop - self.paddingBottom

    def place(self):
        left, top = self.x + self.paddingLeft, self.y + self.paddingTop
        offset = 0
        for c in self.children:
            c.x, c.y = left + c.marginLeft, top + c.marginTop
            if self.layout == zelvarine.LIST_LAYOUT_HORIZONTAL:
                c.x += offset
                if c.verticalAlign == zelvarine.VALIGN_BOTTOM:
                    c.y = top + self.height - c.height - c.marginBottom
                if c.verticalAlign == zelvarine.VALIGN_MIDDLE:
                    c.y = top + int((self.height - c.height) / 2)
                offset += c.outer()[0]
            else:
                c.y += offset
                if c.horizontalAlign == zelvarine.ALIGN_RIGHT:
                    c.x = left + self.width - c.width - c.marginRight
                if c.horizontalAlign == zelvarine.ALIGN_CENTER:
                    c.x = left + int((self.width - c.width) / 2)
                offset += c.outer()[1]
        super().place()


class Panel(List):
    def paint(self, painter, clip=NONE):
        visible = self.clipped(clip)
        if visible[2] > 0 and visible[3] > 0:
            painter.ninePatch(WIDGETS["panel"], self.x, self.y, self.width, self.height, visible)
            self.paintChildren(painter, NONE)


class Button(List):
    def __init__(self, widget, **fields):
        label = Label.__new__(Label)
        super().__init__(widget, **fields)
        Label.__init__(label, widget.getChildren()[0])
        self.children = [label]

    def measure(self):
        label, face = self.children[0], WIDGETS["button"]["normal"]
        minHeight, self.paddingTop = max(face["height"], label.height), int((self.height - label.height) / 2)
        super().measure()
        self.setSize(self.width + face["left"] + face["right"], minHeight)

    def paint(self, painter, clip=NONE):
        visible = self.clipped(clip)
        if visible[2] > 0 and visible[3] > 0:
            painter.bar(WIDGETS["button"]["hover" if self.widget.isHovered else "normal"], self.x, self.y, self.width, False, visible)
            self.paintChildren(painter, clip)


class Anchored(Node):
    def __init__(self, widget, anchored=(), **fields):
        super().__init__(widget, [child for child, *_ in anchored], **fields)
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
    def __init__(self, widget, vertical, **fields):
        super().__init__(widget, **fields)
        self.vertical, self.pieces = vertical, WIDGETS["slider"]
        self.bar = self.pieces["verticalBackground" if vertical else "horizontalBackground"]
        self.knob = self.pieces["verticalButton" if vertical else "horizontalButton"]["normal"]
        self.ends = [self.pieces[n] for n in (("topButton", "bottomButton") if vertical else ("leftButton", "rightButton"))]

    def content(self):
        along, lengths = ("height", rows) if self.vertical else ("width", columns)
        first, _, last = lengths(self.bar)
        length = first + last + 2 * self.knob[along] + sum(end["normal"][along] for end in self.ends)
        return (self.bar["width"], length) if self.vertical else (length, self.bar["height"])

    def draw(self, painter, clip, hovered=(False, False)):
        first, second = [end["hover" if hover else "normal"] for end, hover in zip(self.ends, hovered)]
        length = self.height if self.vertical else self.width
        painter.bar(self.bar, self.x, self.y, length, self.vertical, clip)
        painter.piece(first, self.x, self.y, clip)
        end = (0, self.height - second["height"]) if self.vertical else (self.width - second["width"], 0)
        painter.piece(second, self.x + end[0], self.y + end[1], clip)
        track = length - sum(e["normal"]["width"] for e in self.ends) - self.knob["height" if self.vertical else "width"]
        offset = self.ends[0]["normal"]["width"] + int(numpy.float32(self.widget.percent) * numpy.float32(track))
        x, y = (self.x, self.y + offset) if self.vertical else (self.x + offset, self.y)
        painter.piece(self.knob, x, y, painter.all())
