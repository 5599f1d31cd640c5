"""Where widgets stand and what they draw, pixel by pixel."""
import random

import numpy
import pytest
from zelvarine import (Font, Texture, UIAnchoredContainer, UIButton, UIImage, UIListContainer, UIPanel,
                       UIRenderer, UIScrollPanel, UISlider, UIText, UIWidget)

import helpers
from ui_reference import (BACKGROUND, Anchored, Button, FlatTheme, Label, List, Node, Painter, Panel, Picture, Slider,
                          Stage)


@pytest.fixture
def ui(tmp_path):
    return Stage(tmp_path)


def noise(alphas=(255,)):
    r, texture = random.Random(1), Texture(13, 9)
    numpy.asarray(texture)[:] = [[r.choice(alphas) << 24 | r.getrandbits(24) for _ in range(13)] for _ in range(9)]
    return texture


def random_node(r, depth):
    """A tree of every kind of widget, all of them sized and aligned at random."""
    number = r.randint
    if depth:
        children = [random_node(r, depth - 1) for _ in range(number(0, 3))]
        anchored = [(child, number(-9, 60), number(-9, 60), number(0, 4), number(0, 4)) for child in children]
        kind = r.choice([lambda: List(UIListContainer(), children), lambda: Panel(UIPanel(), children),
                         lambda: Anchored(UIAnchoredContainer(), anchored)])
    else:
        kind = r.choice([
            lambda: Node(UIWidget()), lambda: Picture(UIImage(noise())),
            lambda: Label(UIText(r.choice(["", "a", "ab\nc", "a\n\nbcd"]), r.choice([None, (200, 30, 99)]))),
            lambda: Button(UIButton(r.choice(["", "go", "x\ny"]))),
            lambda: Slider(UISlider(number(0, 9), 0, 9), False), lambda: Slider(UISlider(number(0, 9), 0, 9, 1), True)])
    node = kind()
    w = node.widget
    w.sizePolicyX, w.sizePolicyY, w.horizontalAlign, w.verticalAlign = [number(0, 2) for _ in range(4)]
    w.width, w.height = node.size = [number(-3, 99), number(-3, 99)]
    w.setMargin(*[number(-3, 8) for _ in range(4)])
    if isinstance(w, UIListContainer):
        w.layout = number(0, 1)
        w.setPadding(*[number(-4, 9) for _ in range(4)])
    return node


@pytest.mark.parametrize("seed", range(40))
def test_random_trees_match_the_model(ui, seed):
    node = random_node(random.Random(seed), seed % 5)
    ui.renderer.widget = node.widget
    for _ in range(2):  # a button centres its label by the sizes of the frame before
        node.measure()
        node.grow((160, 120))
        node.place()
        painter = Painter()
        node.paint(painter)
        ui.frame()
        for n in node.everyone():
            assert [n._x, n._y, n.width, n.height] == n.corner + n.size, n.widget
        assert numpy.array_equal(ui.pixels, painter.pixels)
    for clip in (-1, 0, 100, 100), (0, 0, 0, 100), (0, 0, 60, 45), (38, 33, 9, 100), (200, 0, 9, 9):
        for n in node.everyone():
            painter = Painter()
            n.paint(painter, clip)
            ui.target.fill((0x20, 0x40, 0x60))
            n.widget.render(*clip)
            assert numpy.array_equal(ui.pixels, painter.pixels), n.widget


@pytest.mark.parametrize("alphas, alpha", [((255,), 128), ((0, 1, 77, 255), 255), ((77, 255), 128)])
def test_pictures_blend(ui, alphas, alpha):
    image, painter = UIImage(noise(alphas), 50, 29), Painter()
    image._x, image._y, image.alpha = 5, 7, alpha
    ui.renderer.widget = image
    ui.target.fill((0x20, 0x40, 0x60))
    Picture(image).draw(painter, painter.all)
    image.render()
    shown, source = [p[7:36, 5:55, None].copy().view("uint8").astype(float) for p in (ui.pixels, painter.pixels)]
    behind, share = numpy.array([0x60, 0x40, 0x20, 0xFF]), source[..., 3:] / 255 * alpha / 255
    assert abs(shown - behind - (source - behind) * share)[..., :3].max() < 3  # versions of SDL round differently


@helpers.needsFont
def test_shown_text_follows_text_color_and_font(ui):
    class Theme(FlatTheme):
        getFont = staticmethod(lambda name: font)

    font, text = Font(helpers.DEJAVU, 14), UIText("AVA\n\nWörld")
    renderer = UIRenderer(ui.target, True, Theme(ui.theme_file))
    ui.engine.ecs.addSystem(renderer)

    def frame(shown):
        renderer.widget.removeAllChildren()
        renderer.widget.addChild(shown, 3, 4)
        renderer.render()
        return ui.pixels.copy()

    for change in (lambda: None, lambda: setattr(text, "text", "other"), lambda: setattr(text, "color", [200, 99, 50]),
                   lambda: text.color.__setitem__(0, 20), lambda: font.__init__(helpers.DEJAVU, 22)):
        change()
        picture, lines = frame(text), text.text.splitlines()
        width, height = map(sum, zip(*map(font.getRenderedTextSize, lines)))
        assert (text.width, text.height) == (width, height) and (picture != BACKGROUND).any()
        assert numpy.array_equal(picture, frame(UIImage(font.renderLines(lines, text.color))))


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
    slider.corner, slider.size = [20 + 90 - 9 - 3, 15 + 2], [9, 70 - 2 - 4]
    for outer in (20, 15, 90, 70), (60, 40, 45, 30), (60, 40, 6, 30):  # of the last one the clip padding leaves nothing
        ui.target.fill((0x20, 0x40, 0x60))
        panel.render(*outer)
        painter, (x, y, w, h) = Painter(), outer
        if w > 4 + 2:
            painter.nine_patch(20, 15, 90, 70, painter.all)
            for i, picture in enumerate(content.children):
                picture.corner = [5, -75 + 30 * i]
                picture.paint(painter, (x + 4, y + 1, w - 4 - 2, h - 1 - 3))
            slider.paint(painter, outer)
        assert numpy.array_equal(ui.pixels, painter.pixels)


@pytest.mark.parametrize("seed", range(30))
def test_hostile_numbers_stay_in_32_bits(ui, seed):
    r, low, high = random.Random(seed), -2 ** 31, 2 ** 31 - 1
    wild = lambda count: [r.choice((low, high, -3, 0, 7)) for _ in range(count)]
    leaves = [Node(w) for w in (UISlider(high, low, high), UIScrollPanel(UIImage(None, high, high)))]
    tree = Anchored(UIAnchoredContainer(), [(leaf, *wild(2), 4, 1) for leaf in leaves + [random_node(r, seed % 4)]])
    ui.renderer.widget = tree.widget
    for w in [n.widget for n in tree.everyone()]:
        w.width, w.height, w._x, w._y = wild(4)
        w.setMargin(*wild(4))
        w.update(*wild(2), True)
        for clip in wild(4), (high,) * 4, (2 ** 40, 0, 2 ** 62, 9):
            w.render(*clip)
        ui.frame(*wild(2), True)
