"""What widgets draw, pixel by pixel."""
import ctypes
import os
import random

import numpy
import pytest
import zelvarine
from zelvarine import (Font, Texture, UIAnchoredContainer, UIButton, UIImage, UIListContainer, UIPanel, UIRenderer, UIScrollPanel,
                       UISlider, UIText, UITheme, UIWidget)

import helpers
from ui_reference import (BACKGROUND, FIELDS, NONE, WIDGETS, Anchored, Button, FlatTheme, Label, List, Node, Painter, Panel,
                          Picture, Slider, Stage, sampled)

DEJAVU = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"
WIDTH, HEIGHT = 160, 120


@pytest.fixture
def ui(tmp_path):
    return Stage(tmp_path, WIDTH, HEIGHT)


def flat(width, height, color):
    texture = Texture(width, height)
    texture.fill(color)
    return texture


def randomNode(r, depth):
    """A tree of every kind of widget, all of them placed and sized at random."""
    number = r.randint
    children = [randomNode(r, depth - 1) for _ in range(number(0, 3))] if depth else []
    color = tuple(number(0, 255) for _ in "rgb")
    kinds = [
        lambda: Node(UIWidget(), width=number(-5, 40), height=number(-5, 40)),
        lambda: Picture(UIImage(flat(1, 1, color), number(-3, 60), number(-3, 60))),
        lambda: Label(UIText(r.choice(["", "a", "ab\nc", "a\n\nbcd"]), r.choice([None, color]))),
        lambda: Button(UIButton(r.choice(["", "go", "x\ny"])), width=number(0, 70), height=number(0, 40)),
        lambda: horizontal(Slider, UISlider(number(0, 9), 0, 9), False),
        lambda: horizontal(Slider, UISlider(number(0, 9), 0, 9, 1), True),
    ]
    horizontal = lambda kind, widget, vertical: kind(widget, vertical, width=number(0, 90), height=number(0, 90))
    padding = {"padding" + side: number(-4, 9) for side in ("Left", "Top", "Right", "Bottom")}
    if depth:
        anchored = [(child, number(-9, 60), number(-9, 60), number(0, 4), number(0, 4)) for child in children]
        kinds = [lambda: List(UIListContainer(), children, layout=number(0, 1), **padding),
                 lambda: Panel(UIPanel(), children, layout=number(0, 1), width=number(0, 90), height=number(0, 90), **padding),
                 lambda: Anchored(UIAnchoredContainer(), anchored, width=number(0, 90), height=number(0, 90))]
    node = r.choice(kinds)()
    widget, policies = node.widget, (0, 1, 1, 2)
    widget.sizePolicyX, widget.sizePolicyY = r.choice(policies), r.choice(policies)
    widget.horizontalAlign, widget.verticalAlign = number(0, 2), number(0, 2)
    widget.setMargin(*[number(-3, 8) for _ in range(4)])
    node.copy("sizePolicyX", "sizePolicyY", "horizontalAlign", "verticalAlign", "marginTop", "marginRight", "marginBottom", "marginLeft")
    return node


@pytest.mark.parametrize("seed", range(40))
def test_random_trees_match_the_model(ui, seed):
    node = randomNode(random.Random(seed), 4)
    ui.renderer.widget = node.widget
    for _ in range(2):  # a button centres its label by the sizes of the frame before
        node.measure()
        node.grow(WIDTH, HEIGHT)
        node.place()
        painter = Painter(WIDTH, HEIGHT)
        node.paint(painter)
        ui.frame()
        for n in node.everyone():
            assert [getattr(n.widget, field) for field in FIELDS] == [n.x, n.y, n.width, n.height], n.widget
        assert numpy.array_equal(ui.pixels, painter.pixels)


@pytest.mark.parametrize("clip", [NONE, (-1, 0, 100, 100), (0, 0, 0, 100), (0, 0, 60, 45), (38, 33, 9, 100), (200, 0, 9, 9)])
@pytest.mark.parametrize("make", [
    lambda: Picture(UIImage(flat(2, 2, (9, 8, 7)))),
    lambda: Label(UIText("abc\nde", (1, 2, 3))),
    lambda: Button(UIButton("abc")),
    lambda: Panel(UIPanel(), [Picture(UIImage(flat(1, 1, (5, 5, 5)), 9, 9))]),
    lambda: List(UIListContainer(), [Picture(UIImage(flat(1, 1, (5, 5, 5)), 30, 9)), Label(UIText("x", (7, 7, 7)))]),
    lambda: Slider(UISlider(40), False),
    lambda: Slider(UISlider(40, orientation=1), True)])
def test_clip_of_render(ui, make, clip):
    node = make()
    node.widget._x, node.widget._y, node.widget.width, node.widget.height = node.x, node.y, node.width, node.height = 30, 25, 47, 38
    node.widget.sizePolicyX = node.widget.sizePolicyY = node.sizePolicyX = node.sizePolicyY = zelvarine.SIZE_FIXED
    ui.renderer.widget = node.widget
    node.measure(), node.grow(0, 0), node.place()
    ui.frame()
    ui.target.fill((0, 0, 0, 0))
    node.widget.render(*clip)
    painter = Painter(WIDTH, HEIGHT, 0)
    node.paint(painter, clip)
    assert numpy.array_equal(ui.pixels, painter.pixels)


@pytest.mark.parametrize("width", [3, 8, 9, 10, 17, 24, 25, 32, 33])
def test_tiles_and_the_squeezed_rest_of_a_bar(tmp_path, width):
    """With a colour for each column of the middle piece, the rest shows the columns under the centres of its pixels."""
    piece, middle = WIDGETS["button"]["normal"], [0xFF000001 + i for i in range(8)]

    def retouch(tiles):
        x = piece["x"] + piece["left"]
        tiles[piece["y"]:piece["y"] + piece["height"], x:x + 8] = middle

    ui, button = Stage(tmp_path, retouch=retouch), UIButton("")
    button.sizePolicyX, button.width = zelvarine.SIZE_FIXED, width
    ui.root.addChild(button, 1, 0)
    ui.frame()
    count, rest = divmod(max(0, width - 9), 8)
    row = [piece["colors"][0]] * 4 + middle * count + [middle[sampled(i, 8, rest)] for i in range(rest)] + [0] * 5
    end = 1 + width - 5  # where the right cap begins, also if that is over the left one
    row = [BACKGROUND] + row
    row[max(end, 0):max(end, 0) + 5] = [piece["colors"][2]] * 5
    assert list(ui.pixels[0, 1:1 + width]) == row[1:1 + width] and ui.pixels[0, 1 + width] == BACKGROUND


class TestImage:
    def shown(self, ui, source, size, alpha=255, clip=NONE, at=(5, 7)):
        image = UIImage(source, *size)
        image.alpha = alpha
        ui.root.addChild(image, *at)
        ui.frame()
        ui.target.fill((40, 90, 160, 200))
        image.render(*clip)
        ui.root.removeAllChildren()
        return ui.pixels.copy()

    def noise(self, alphas=(255,)):
        r = random.Random(1)
        texture = Texture(13, 9)
        numpy.asarray(texture)[:] = [[r.choice(alphas) << 24 | r.getrandbits(24) for _ in range(13)] for _ in range(9)]
        return texture

    @pytest.mark.parametrize("size", [(13, 9), (26, 9), (1, 1), (7, 40), (50, 3), (37, 29)])
    def test_opaque_pictures_stretch_like_those_of_sdl(self, ui, size):
        source = self.noise()
        surface = lambda t: helpers.sdl.SDL_CreateRGBSurfaceFrom(
            ctypes.c_void_p(numpy.asarray(t).ctypes.data), t.width, t.height, 32, 4 * t.width, 0xFF0000, 0xFF00, 0xFF, 0xFF000000)
        helpers.sdl.SDL_CreateRGBSurfaceFrom.restype = ctypes.c_void_p
        expected = flat(WIDTH, HEIGHT, (40, 90, 160, 200))
        helpers.sdl.SDL_UpperBlitScaled(*[ctypes.c_void_p(p) for p in (surface(source), None, surface(expected))],
                                        (ctypes.c_int * 4)(5, 7, *size))
        assert numpy.array_equal(self.shown(ui, source, size), numpy.asarray(expected))

    @pytest.mark.parametrize("alpha", [255, 128, 1, 0])
    def test_translucent_pictures_blend(self, ui, alpha):
        source = self.noise((0, 1, 77, 254, 255))
        expected = numpy.full((HEIGHT, WIDTH), 0xC8285AA0, "uint32")
        for y in range(20):
            for x in range(30):
                above = int(numpy.asarray(source)[sampled(y, 9, 20), sampled(x, 13, 30)])
                a = (above >> 24) * alpha // 255
                channels = [((above >> s & 255) * a // 255 + (255 - a) * (0xC8285AA0 >> s & 255) // 255) << s for s in (16, 8, 0)]
                expected[7 + y, 5 + x] = sum(channels) + (a + (255 - a) * 0xC8 // 255 << 24)
        assert numpy.array_equal(self.shown(ui, source, (30, 20), alpha), expected)

    @pytest.mark.parametrize("at", [(5, 7), (-20, -11), (140, 100)])
    def test_a_cut_picture_is_scaled_as_if_it_were_whole(self, ui, at):
        source = self.noise((90, 255))
        whole = self.shown(ui, source, (61, 45), at=at)
        for clip in (9, 10, 30, 1), (12, 0, 1, 99), (20, 20, 17, 13):
            x, y, w, h = clip
            cut = self.shown(ui, source, (61, 45), clip=clip, at=at)
            assert numpy.array_equal(cut[y:y + h, x:x + w], whole[y:y + h, x:x + w])
            cut[y:y + h, x:x + w] = 0xC8285AA0
            assert (cut == 0xC8285AA0).all()

    def test_sizes_and_alpha(self, ui):
        texture = Texture(30, 20)
        image = UIImage(texture, 64)
        assert (image.width, image.height, image.sizePolicyX, image.alpha) == (64, 20, zelvarine.SIZE_FIXED, 255)
        image.texture = Texture(3, 4)
        assert (image.width, image.height) == (3, 4)
        for value, kept in ((300, 255), (-5, 0), (7.9, 7)):
            image.alpha = value
            assert image.alpha == kept
        for bad in (lambda: UIImage(None, 3), lambda: setattr(image, "texture", None)):
            with pytest.raises(AttributeError):
                bad()
        assert image.texture.width == 3
        empty = UIImage(None, 9, 9)
        ui.root.addChild(empty, 0, 0)
        ui.frame()
        assert (ui.pixels == BACKGROUND).all()


@pytest.mark.skipif(not os.path.exists(DEJAVU), reason="needs the font of Debian's package fonts-dejavu-core")
class TestRealText:
    def test_the_picture_follows_text_colour_and_font(self, ui):
        class Theme(FlatTheme):
            def getFont(self, name):
                return font

        font = Font(DEJAVU, 14)
        renderer = UIRenderer(ui.target, True, Theme(ui.themeFile))
        ui.engine.ecs.addSystem(renderer)
        text = UIText("AVA\n\nWörld")
        renderer.widget.addChild(text, 3, 4)

        def check():
            renderer.render()
            lines = text.text.splitlines()
            sizes = [font.getRenderedTextSize(line) for line in lines]
            assert (text.width, text.height) == tuple(map(sum, zip(*sizes)))
            painted = Texture(WIDTH, HEIGHT)
            painted.fill((0x20, 0x40, 0x60))
            other = UIImage(font.renderLines(lines, text.color))
            shown = ui.pixels.copy()
            renderer.widget.removeAllChildren()
            renderer.widget.addChild(other, 3, 4)
            renderer.render()
            clipped = ui.pixels[4:4 + text.height]
            assert numpy.array_equal(shown[4:4 + text.height], clipped) and (shown != BACKGROUND).any()
            renderer.widget.removeAllChildren()
            renderer.widget.addChild(text, 3, 4)

        check()
        check()
        text.text = "other"
        check()
        text.color = [200, 100, 50]
        check()
        text.color[0] = 20
        check()
        font.__init__(DEJAVU, 22)
        check()
        font = Font(DEJAVU, 9)
        check()


def test_a_scroll_panel_cuts_its_content_alone(ui):
    content = List(UIListContainer(), [Picture(UIImage(flat(1, 1, (i, 0, 0)), 200, 30)) for i in range(9)])
    panel = UIScrollPanel(content.widget)
    panel.width, panel.height = 90, 70
    ui.root.addChild(panel, 20, 15)
    ui.frame()
    assert (content.widget._x, content.widget._y) == (30, 25)
    panel.scrollPosY, panel.scrollPosX = 100, 1000
    assert (panel.scrollPosX, panel.scrollPosY) == (200 - 90 + 20, 0)
    panel.scrollPosX = 25
    ui.frame()
    assert panel.scrollPosY == 100
    ui.frame()
    assert (content.widget._x, content.widget._y) == (30 - 25, 25 - 100)
    slider = Slider(UISlider(100, 0, 9 * 30 - 70 + 20, 1), True)
    slider.x, slider.y, slider.width, slider.height = 20 + 90 - 9 - 3, 15 + 2, 9, 70 - 2 - 4

    def paint(outer):
        painter = Painter(WIDTH, HEIGHT)
        painter.ninePatch(WIDGETS["panel"], 20, 15, 90, 70, painter.all())
        x, y, w, h = outer
        for i, picture in enumerate(content.children):
            clip = (x + 4, y + 1, w - 4 - 2, h - 1 - 3)
            picture.x, picture.y = 5, -75 + 30 * i
            picture.paint(painter, clip)
        slider.paint(painter, outer)
        return painter.pixels

    assert numpy.array_equal(ui.pixels, paint((20, 15, 90, 70)))
    ui.target.fill((0x20, 0x40, 0x60))
    panel.render(60, 40, 45, 30)
    assert numpy.array_equal(ui.pixels, paint((60, 40, 45, 30)))
    ui.target.fill((0x20, 0x40, 0x60))
    panel.render(60, 40, 6, 30)  # the clip padding leaves nothing
    assert (ui.pixels == BACKGROUND).all()
