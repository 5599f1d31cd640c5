"""Where widgets stand and what they draw, pixel by pixel."""
import ctypes
import os
import random

import numpy
import pytest
import zelvarine
from zelvarine import (SIZE_FIXED, Font, Texture, UIAnchoredContainer, UIButton, UIImage, UIListContainer, UIPanel, UIRenderer,
                       UIScrollPanel, UISlider, UIText, UIWidget)

import helpers
from ui_reference import BACKGROUND, Anchored, Button, FlatTheme, Label, List, Node, Painter, Panel, Picture, Slider, Stage

DEJAVU = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"


@pytest.fixture
def ui(tmp_path):
    return Stage(tmp_path)


def noise(alphas=(255,)):
    r, texture = random.Random(1), Texture(13, 9)
    numpy.asarray(texture)[:] = [[r.choice(alphas) << 24 | r.getrandbits(24) for _ in range(13)] for _ in range(9)]
    return texture


def randomNode(r, depth):
    """A tree of every kind of widget, all of them sized and aligned at random."""
    number, color = r.randint, (r.randint(0, 255), r.randint(0, 255), 99)
    if depth:
        children = [randomNode(r, depth - 1) for _ in range(number(0, 3))]
        anchored = [(child, number(-9, 60), number(-9, 60), number(0, 4), number(0, 4)) for child in children]
        node = r.choice([lambda: List(UIListContainer(), children), lambda: Panel(UIPanel(), children),
                         lambda: Anchored(UIAnchoredContainer(), anchored)])()
    else:
        node = r.choice([
            lambda: Node(UIWidget()),
            lambda: Picture(UIImage(noise())),
            lambda: Label(UIText(r.choice(["", "a", "ab\nc", "a\n\nbcd"]), r.choice([None, color]))),
            lambda: Button(UIButton(r.choice(["", "go", "x\ny"]))),
            lambda: Slider(UISlider(number(0, 9), 0, 9), False),
            lambda: Slider(UISlider(number(0, 9), 0, 9, 1), True)])()
    w = node.widget
    w.sizePolicyX, w.sizePolicyY, w.horizontalAlign, w.verticalAlign = [number(0, 2) for _ in range(4)]
    w.width, w.height = node.width, node.height = number(-3, 99), number(-3, 99)
    w.setMargin(*[number(-3, 8) for _ in range(4)])
    if isinstance(w, UIListContainer):
        w.layout = number(0, 1)
        w.setPadding(*[number(-4, 9) for _ in range(4)])
    return node


@pytest.mark.parametrize("seed", range(40))
def test_random_trees_match_the_model(ui, seed):
    node = randomNode(random.Random(seed), seed % 5)
    ui.renderer.widget = node.widget
    for _ in range(2):  # a button centres its label by the sizes of the frame before
        node.measure()
        node.grow(160, 120)
        node.place()
        painter = Painter()
        node.paint(painter)
        ui.frame()
        for n in node.everyone():
            assert Node(n.widget).rect() == n.rect(), n.widget
        assert numpy.array_equal(ui.pixels, painter.pixels)
    for clip in (-1, 0, 100, 100), (0, 0, 0, 100), (0, 0, 60, 45), (38, 33, 9, 100), (200, 0, 9, 9):
        for n in node.everyone():
            painter = Painter()
            n.paint(painter, clip)
            ui.target.fill((0x20, 0x40, 0x60))
            n.widget.render(*clip)
            assert numpy.array_equal(ui.pixels, painter.pixels), n.widget


@pytest.mark.parametrize("size, alphas, alpha", [
    ((26, 9), (255,), 255), ((1, 1), (255,), 255), ((7, 40), (255,), 255), ((50, 29), (0, 1, 77, 255), 255), ((30, 5), (77, 255), 128)])
def test_pictures_stretch_like_those_of_sdl(ui, size, alphas, alpha):
    source, expected, create = noise(alphas), Texture(160, 120), helpers.sdl.SDL_CreateRGBSurfaceFrom
    image = ui.renderer.widget = UIImage(source, *size)
    image._x, image._y, image.alpha = 5, 7, alpha
    for target in ui.target, expected:
        target.fill((40, 90, 160, 200))
    image.render()
    create.restype = ctypes.c_void_p
    surfaces = [ctypes.c_void_p(create(ctypes.c_void_p(numpy.asarray(t).ctypes.data), t.width, t.height, 32, 4 * t.width,
                                       0xFF0000, 0xFF00, 0xFF, 0xFF000000)) for t in (source, expected)]
    helpers.sdl.SDL_SetSurfaceAlphaMod(surfaces[0], alpha)
    helpers.sdl.SDL_UpperBlitScaled(surfaces[0], None, surfaces[1], (ctypes.c_int * 4)(5, 7, *size))
    shown, expected = [numpy.asarray(t).view("uint8").astype(int) for t in (ui.target, expected)]
    assert abs(shown - expected).max() <= (alphas != (255,))  # versions of SDL round blends differently


@pytest.mark.skipif(not os.path.exists(DEJAVU), reason="needs the font of Debian's package fonts-dejavu-core")
def test_shown_text_follows_text_colour_and_font(ui):
    class Theme(FlatTheme):
        getFont = staticmethod(lambda name: font)

    font, text = Font(DEJAVU, 14), UIText("AVA\n\nWörld")
    renderer = UIRenderer(ui.target, True, Theme(ui.themeFile))
    ui.engine.ecs.addSystem(renderer)
    renderer.widget.addChild(text, 3, 4)

    def frame(shown):
        renderer.widget.removeAllChildren()
        renderer.widget.addChild(shown, 3, 4)
        renderer.render()
        return ui.pixels.copy()

    def check():
        picture, lines = frame(text), text.text.splitlines()
        width, height = map(sum, zip(*map(font.getRenderedTextSize, lines)))
        assert (text.width, text.height) == (width, height) and (picture != BACKGROUND).any()
        assert numpy.array_equal(picture, frame(UIImage(font.renderLines(lines, text.color))))

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
    content = List(UIListContainer(), [Picture(UIImage(noise(), 200, 30)) for i in range(9)])
    panel, slider = UIScrollPanel(content.widget), Slider(UISlider(100, 0, 9 * 30 - 70 + 20, 1), True)
    panel.width, panel.height = 90, 70
    ui.root.addChild(panel, 20, 15)
    ui.frame()
    panel.scrollPosY, panel.scrollPosX = 100, 1000
    assert (panel.scrollPosX, panel.scrollPosY) == (200 - 90 + 20, 0)  # the other one waits for the next update
    panel.scrollPosX = 25
    ui.frame()
    ui.frame()
    assert (panel.scrollPosY, content.widget._x, content.widget._y) == (100, 30 - 25, 25 - 100)
    slider.x, slider.y, slider.width, slider.height = 20 + 90 - 9 - 3, 15 + 2, 9, 70 - 2 - 4
    for outer in (20, 15, 90, 70), (60, 40, 45, 30):
        ui.target.fill((0x20, 0x40, 0x60))
        panel.render(*outer)
        painter, (x, y, w, h) = Painter(), outer
        painter.ninePatch(20, 15, 90, 70, painter.all)
        for i, picture in enumerate(content.children):
            picture.x, picture.y = 5, -75 + 30 * i
            picture.paint(painter, (x + 4, y + 1, w - 4 - 2, h - 1 - 3))
        slider.paint(painter, outer)
        assert numpy.array_equal(ui.pixels, painter.pixels)
    ui.target.fill((0x20, 0x40, 0x60))
    panel.render(60, 40, 6, 30)  # the clip padding leaves nothing
    assert (ui.pixels == BACKGROUND).all()


def test_hostile_numbers_stay_in_32_bits(ui):
    low, high = -2 ** 31, 2 ** 31 - 1
    kinds = (lambda: UIText("x"), lambda: UIButton("x"), UIPanel, lambda: UISlider(high, low, high), UIAnchoredContainer,
             lambda: UISlider(low, low, high, 1), lambda: UIImage(Texture(3, 3)), lambda: UIScrollPanel(UIImage(None, high, high)))
    for x, y, width, height, margin in [(low, low, high, high, 0), (high, high, high, high, low), (0, low, high, 5, high),
                                        (low, 0, 3, low, 7), (-2, -3, high, high, high)]:
        for w in [kind() for kind in kinds]:
            across, down = List(UIListContainer(), [Node(w)] * 2), List(UIListContainer(), [Node(w)] * 2)
            across.widget.layout = 0
            ui.root.addChild(w, low, high, zelvarine.ANCHOR_CENTER, zelvarine.ANCHOR_RIGHT)
            for root in across.widget, down.widget, ui.root, w:
                w.sizePolicyX, w.sizePolicyY, w.width, w.height, w._x, w._y = SIZE_FIXED, SIZE_FIXED, width, height, x, y
                w.setMargin(margin)
                ui.renderer.widget = root
                ui.frame()
                for clip in (0, 0, high, high), (high, high, high, high), (2 ** 40, 0, 2 ** 62, 9):
                    w.render(*clip)
                for mouse in (high, low, True), (low, high, True), (0, 0, False):
                    w.update(*mouse)
            ui.root.removeAllChildren()
