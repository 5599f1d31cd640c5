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
    "button": {look: {"x": 2, "y": y, "left": 4, "middle": 8, "right": 5, "height": 20}
               for look, y in (("normal", 1), ("hover", 22))},
    "panel": {"x": 20, "y": 3, "leftWidth": 3, "middleWidth": 6, "rightWidth": 4,
              "topHeight": 5, "middleHeight": 7, "bottomHeight": 2},
    "slider": {
        "horizontalBackground": {"x": 20, "y": 20, "left": 3, "middle": 7, "right": 2, "height": 10},
        "verticalBackground": {"x": 40, "y": 1, "top": 3, "middle": 7, "bottom": 2, "width": 9},
        **{name + "Button": {"normal": piece(x, y, width, height), "hover": piece(x + width, y, width, height)}
           for name, x, y, width, height in [("horizontal", 20, 31, 6, 14), ("vertical", 28, 31, 13, 8),
                                             ("left", 0, 45, 9, 11), ("right", 40, 14, 10, 8),
                                             ("top", 20, 46, 8, 6), ("bottom", 40, 40, 7, 12)]},
    },
    "scrollPanel": {"sliderMargin": {"top": 2, "right": 3, "bottom": 4, "left": 9},
                    "clipPadding": {"top": 1, "right": 2, "bottom": 3, "left": 4}},
}


def word(color):
    r, g, b, a = (tuple(color) + (255,))[:4]
    return a << 24 | r << 16 | g << 8 | b


def write_theme(folder):
    texture = Texture(*TILES.shape[::-1])
    numpy.asarray(texture)[:] = TILES
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
    """An engine without a window; being a class of Python, it takes what a test puts on it."""


class Stage:
    """A renderer on a target of 160 by 120, with an anchored root."""

    def __init__(self, folder):
        self.theme_file, self.target, self.engine = write_theme(folder), Texture(160, 120), Player()
        self.renderer = UIRenderer(self.target, True, FlatTheme(self.theme_file))
        self.engine.ecs.addSystem(self.renderer)
        self.root, self.pixels = self.renderer.widget, numpy.asarray(self.target)

    def frame(self, x=-9, y=-9, pressed=False):
        self.engine.getMousePos = lambda: (x, y)
        self.engine.isMouseButtonPressed = lambda button: pressed and button == zelvarine.MOUSE_LEFT
        self.renderer.render()


class Painter:
    def __init__(self):
        self.pixels, self.all = numpy.full((120, 160), BACKGROUND, "uint32"), (0, 0, 160, 120)

    def stretch(self, source, x, y, width, height, clip):
        """Each pixel shows the source pixel under its centre, in steps of 1/65536 of a source pixel."""
        across, down = [numpy.arange(max(size, 0)) for size in (width, height)]
        if len(across) and len(down):
            step_x, step_y = (source.shape[1] << 16) // width, (source.shape[0] << 16) // height
            picture = source[(step_y // 2 + down * step_y >> 16)[:, None], step_x // 2 + across * step_x >> 16]
            x0, y0 = max(x, clip[0], 0), max(y, clip[1], 0)
            x1, y1 = max(x0, min(x + width, clip[0] + clip[2], 160)), max(y0, min(y + height, clip[1] + clip[3], 120))
            self.pixels[y0:y1, x0:x1] = picture[y0 - y:y1 - y, x0 - x:x1 - x]

    def piece(self, part, x, y, clip, size=None):
        pixels = TILES[part["y"]:part["y"] + part["height"], part["x"]:part["x"] + part["width"]]
        self.stretch(pixels, x, y, *(size or (part["width"], part["height"])), clip)

    def bar(self, table, x, y, length, vertical, clip):
        keys = ("top", "middle", "bottom", "y", "height") if vertical else ("left", "middle", "right", "x", "width")
        first, middle, last = [table[key] for key in keys[:3]]
        count, rest = divmod(max(0, length - first - last), middle)
        tiles = [(first, middle, first + k * middle, middle) for k in range(count)]
        squeezed = (first, middle, first + count * middle, rest)
        for source, size, offset, shown in [(0, first, 0, first), *tiles, squeezed,
                                            (first + middle, last, length - last, last)]:
            part = dict(table, **{keys[3]: table[keys[3]] + source, keys[4]: size})
            if vertical:
                self.piece(part, x, y + offset, clip, (part["width"], shown))
            else:
                self.piece(part, x + offset, y, clip, (shown, part["height"]))

    def nine_patch(self, x, y, width, height, clip):
        panel = WIDGETS["panel"]
        across, down = [[panel[key] for key in keys] for keys in (
            ("leftWidth", "middleWidth", "rightWidth"), ("topHeight", "middleHeight", "bottomHeight"))]
        wide = across[0], width - across[0] - across[2], across[2]
        high = down[0], height - down[0] - down[2], down[2]
        for i, j in [(i, j) for j in range(3) for i in range(3)]:
            part = TILES[panel["y"] + sum(down[:j]):, panel["x"] + sum(across[:i]):][:down[j], :across[i]]
            self.stretch(part, x + sum(wide[:i]), y + sum(high[:j]), wide[i], high[j], clip)


class Node:
    """One widget, laid out and painted from what the script gave it; all but the results is read from the widget.

    Of pairs, the first is across and the second is down."""
    hides_children = False

    def __init__(self, widget, children=()):
        self.widget, self.children = widget, list(children)
        self.corner, self.size = [widget._x, widget._y], [widget.width, widget.height]

    def __getattr__(self, name):
        return getattr(self.widget, name)

    def everyone(self):
        return [self] + [node for child in self.children for node in child.everyone()]

    def edges(self, kind, axis):
        return [getattr(self, kind + side) for side in (("Left", "Right"), ("Top", "Bottom"))[axis]]

    def outer(self, axis):
        return self.size[axis] + sum(self.edges("margin", axis))

    def measure(self):
        for child in self.children:
            child.measure()
        self.resize(self.content(), lambda policy: policy != SIZE_FIXED)

    def resize(self, size, applies):
        policies = self.sizePolicyX, self.sizePolicyY
        self.size = [new if applies(policy) else old for new, old, policy in zip(size, self.size, policies)]

    def content(self):
        return 0, 0

    def grow(self, room):
        size = [room[axis] - sum(self.edges("margin", axis)) for axis in (0, 1)]
        self.resize(size, lambda policy: policy == SIZE_GROW)
        for child in self.children:
            child.grow(self.room())

    def room(self):
        return self.size

    def place(self):
        for child in self.children:
            child.place()

    def paint(self, painter, clip=(-1, -1, -1, -1)):
        (x, y), (width, height) = self.corner, self.size
        if min(clip) >= 0:
            right, bottom = min(clip[0] + clip[2], x + width), min(clip[1] + clip[3], y + height)
            x, y = max(clip[0], x), max(clip[1], y)
            width, height = right - x, bottom - y
        is_shown = width > 0 and height > 0
        if is_shown:
            self.draw(painter, (x, y, width, height))
        for child in self.children if is_shown or not self.hides_children else []:
            child.paint(painter, (-1, -1, -1, -1) if isinstance(self, Panel) else clip)

    def draw(self, painter, clip):
        pass


class Picture(Node):
    def draw(self, painter, clip):
        painter.stretch(numpy.asarray(self.texture), *self.corner, *self.size, clip)


class Label(Node):
    def content(self):
        return sum(10 * len(line) for line in self.text.splitlines()), 12 * len(self.text.splitlines())

    def draw(self, painter, clip):
        lines = self.text.splitlines()
        block = numpy.array([[word(self.color)]], "uint32")
        painter.stretch(block, *self.corner, 10 * max(map(len, lines), default=0), 12 * len(lines), clip)


class List(Node):
    def __init__(self, widget, children):
        super().__init__(widget, children)
        for child in children:
            widget.addChild(child.widget)

    def content(self):
        total = (sum, max) if self.layout == zelvarine.LIST_LAYOUT_HORIZONTAL else (max, sum)
        return [total[axis]([0] + [child.outer(axis) for child in self.children]) + sum(self.edges("padding", axis))
                for axis in (0, 1)]

    def room(self):
        return [self.size[axis] - sum(self.edges("padding", axis)) for axis in (0, 1)]

    def place(self):
        along, offset = int(self.layout != zelvarine.LIST_LAYOUT_HORIZONTAL), 0
        for c in self.children:
            for axis, align in enumerate((c.horizontalAlign, c.verticalAlign)):
                (before, after), gap = c.edges("margin", axis), self.size[axis] - c.size[axis]
                shift = offset + before if axis == along else (before, gap - after, int(gap / 2))[align]
                c.corner[axis] = self.corner[axis] + self.edges("padding", axis)[0] + shift
            offset += c.outer(along)
        super().place()


class Panel(List):
    hides_children = True

    def draw(self, painter, clip):
        painter.nine_patch(*self.corner, *self.size, clip)


class Button(List):
    hides_children = True

    def __init__(self, widget):
        super().__init__(widget, [])
        self.children = [Label(widget.getChildren()[0])]

    def measure(self):
        label, face = self.children[0], WIDGETS["button"]["normal"]
        height, self.paddingTop = max(face["height"], label.size[1]), int((self.size[1] - label.size[1]) / 2)
        super().measure()
        self.resize((self.size[0] + face["left"] + face["right"], height), lambda policy: policy != SIZE_FIXED)

    def draw(self, painter, clip):
        painter.bar(WIDGETS["button"]["hover" if self.isHovered else "normal"], *self.corner, self.size[0], False, clip)


class Anchored(Node):
    def __init__(self, widget, anchored):
        super().__init__(widget, [child for child, *_ in anchored])
        self.anchors = [anchor for _, *anchor in anchored]
        for child, *anchor in anchored:
            widget.addChild(child.widget, *anchor)

    def place(self):
        for c, anchors in zip(self.children, self.anchors):
            for axis, far in enumerate((zelvarine.ANCHOR_RIGHT, zelvarine.ANCHOR_BOTTOM)):
                (before, after), offset, anchor = c.edges("margin", axis), anchors[axis], anchors[axis + 2]
                size, shift = self.size[axis], offset + before
                if anchor == far:
                    shift = size - offset - after - c.size[axis]
                if anchor == zelvarine.ANCHOR_CENTER:
                    shift = int(size / 2 + before + offset - after - c.size[axis] / 2)
                c.corner[axis] = self.corner[axis] + shift
        super().place()


class Slider(Node):
    def __init__(self, widget, vertical):
        super().__init__(widget)
        names = ("verticalBackground", "verticalButton", "topButton", "bottomButton") if vertical else \
            ("horizontalBackground", "horizontalButton", "leftButton", "rightButton")
        self.bar, *pieces = [WIDGETS["slider"][name] for name in names]
        self.knob, self.first, self.last = [piece["normal"] for piece in pieces]
        self.vertical, self.along = vertical, "height" if vertical else "width"

    def content(self):
        length = sum(self.bar[key] for key in (("top", "bottom") if self.vertical else ("left", "right")))
        length += sum(piece[self.along] for piece in (self.knob, self.knob, self.first, self.last))
        return (self.bar["width"], length) if self.vertical else (length, self.bar["height"])

    def draw(self, painter, clip):
        length, (x, y) = self.size[self.vertical], self.corner
        track = length - self.first["width"] - self.last["width"] - self.knob[self.along]
        painter.bar(self.bar, x, y, length, self.vertical, clip)
        moved = self.first["width"] + int(numpy.float32(self.percent) * numpy.float32(track))
        for piece, offset, shown in ((self.first, 0, clip), (self.last, length - self.last[self.along], clip),
                                     (self.knob, moved, painter.all)):
            painter.piece(piece, *((x, y + offset) if self.vertical else (x + offset, y)), shown)
