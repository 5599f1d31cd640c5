"""Where widgets stand and what they draw, pixel by pixel."""
import random

import numpy
import pytest
from zelvarine import (ANCHOR_BOTTOM, ANCHOR_CENTER, ANCHOR_RIGHT, SIZE_FIXED, SIZE_GROW, AbstractUIContainer, Font,
                       Texture, UIAnchoredContainer, UIButton, UIImage, UIListContainer, UIPanel, UIRenderer,
                       UIScrollPanel, UISlider, UIText, UIWidget)

import helpers
from ui_reference import BACKGROUND, FONT_COLOR, WIDGETS, FlatFont, FlatTheme, Sketch, Stage, Surface

NO_CLIP = (-1,) * 4
SLIDER, SCROLL_BAR = (3 + 2 + 7 + 7 + 9 + 10, 10), (9, 3 + 2 + 8 + 8 + 6 + 12)  # their sizes


@pytest.fixture
def ui(tmp_path):
    return Stage(tmp_path)


def random_leaf(r):
    """A widget without children, and the size of its content."""
    text, texture = r.choice(["", "go", "x\ny", "ab\n\nc"]), Texture(13, 9)
    numpy.asarray(texture)[:] = [[r.getrandbits(32) for _ in range(13)] for _ in range(9)]
    width, height = 10 * len(text.replace("\n", "")), 12 * len(text.splitlines())
    return r.choice([
        (UIWidget(), (0, 0)), (UIImage(texture), (0, 0)), (UIText(text), (width, height)),
        (UIButton(text), (width + 4 + 5, max(20, height))),
        (UISlider(r.randint(0, 9), 0, 9), SLIDER), (UISlider(r.randint(0, 9), 0, 9, 1), SCROLL_BAR)])


def random_widget(r, depth, made):
    """A tree of every kind of widget, all of them sized and aligned at random; userData tells what cannot be asked."""
    number, kind = r.randint, r.choice([UIListContainer, UIPanel, UIAnchoredContainer, UIScrollPanel])
    if not depth:
        w, content = random_leaf(r)
    else:
        w = kind(random_widget(r, depth - 1, made)) if kind is UIScrollPanel else kind()
        content = (50, 50) if kind is UIScrollPanel else (0, 0)
        for child in [random_widget(r, depth - 1, made) for _ in range(0 if kind is UIScrollPanel else number(0, 3))]:
            w.addChild(child, *child.userData["anchor"] if kind is UIAnchoredContainer else ())
    w.userData = {"content": content, "anchor": (number(-9, 60), number(-9, 60), number(0, 4), number(0, 4))}
    for name, low, high in [("sizePolicyX", 0, 2), ("sizePolicyY", 0, 2), ("horizontalAlign", 0, 2), ("layout", 0, 1),
                            ("verticalAlign", 0, 2), ("width", -3, 99), ("height", -3, 99), ("alpha", -99, 400)]:
        if hasattr(w, name) and not (name == "layout" and isinstance(w, UIButton)):
            setattr(w, name, number(low, high))
    w.setMargin(*[number(-3, 8) for _ in range(4)])
    if depth and kind is not UIAnchoredContainer:
        w.setPadding(*[number(-4, 9) for _ in range(4)])
    made.append(w)
    return w


def children(w):
    return w.getChildren() if isinstance(w, AbstractUIContainer) else []


def edges(w, kind, axis):
    return [getattr(w, kind + side, 0) for side in (("Left", "Right"), ("Top", "Bottom"))[axis]]


def size(w, axis):
    return (w.width, w.height)[axis]


def measured(w, axis):
    """The size of a widget before it grows."""
    if (w.sizePolicyX, w.sizePolicyY)[axis] == SIZE_FIXED:
        return size(w, axis)
    if type(w) not in (UIListContainer, UIPanel):
        return w.userData["content"][axis]
    outer = [0] + [measured(child, axis) + sum(edges(child, "margin", axis)) for child in children(w)]
    return (sum if w.layout == axis else max)(outer) + sum(edges(w, "padding", axis))


def check_layout(w, axis, room):
    grows = (w.sizePolicyX, w.sizePolicyY)[axis] == SIZE_GROW
    assert size(w, axis) == (room - sum(edges(w, "margin", axis)) if grows else measured(w, axis)), w
    offset, padding = 0, edges(w, "padding", axis)
    inner = size(w, axis) - sum(padding) - (SCROLL_BAR[0] if isinstance(w, UIScrollPanel) and axis == 0 else 0)
    for child in children(w):
        (before, after), gap = edges(child, "margin", axis), size(w, axis) - size(child, axis)
        if isinstance(w, UIListContainer):
            align = (child.horizontalAlign, child.verticalAlign)[axis]
            place = padding[0] + (offset + before if w.layout == axis else (before, gap - after, int(gap / 2))[align])
            offset += before + size(child, axis) + after
        elif isinstance(w, UIScrollPanel):
            place = padding[0] + before - (w.scrollPosX, w.scrollPosY)[axis]
        else:
            distance, anchor = child.userData["anchor"][axis::2]
            place = {(ANCHOR_RIGHT, ANCHOR_BOTTOM)[axis]: gap - distance - after,
                     ANCHOR_CENTER: int(gap / 2 + before + distance - after)}.get(anchor, distance + before)
        assert (child._x - w._x, child._y - w._y)[axis] == place, (w, child)
        if isinstance(w, UIButton):
            assert w.paddingTop == int((w.height - child.height) / 2)
        else:
            check_layout(child, axis, inner)


def draw_slider(sketch, w, mouse):
    """Draws a slider but for its knob, and gives that."""
    vertical = w.userData["content"] == SCROLL_BAR
    names, along = (("vertical", "top", "bottom"), "height") if vertical else (("horizontal", "left", "right"), "width")
    knob, first, last = [WIDGETS["slider"][name + "Button"] for name in names]
    place = lambda offset: (w._x, w._y + offset) if vertical else (w._x + offset, w._y)
    bar = sketch.vertical_bar if vertical else sketch.horizontal_bar
    bar(WIDGETS["slider"][names[0] + "Background"], w._x, w._y, size(w, vertical))
    for button, (x, y) in (first, place(0)), (last, place(size(w, vertical) - last["normal"][along])):
        is_over = w._pointInRect(*mouse, x, y, button["normal"]["width"], button["normal"]["height"])
        sketch.piece(button["hover" if is_over else "normal"], x, y)
    start, end, length = first["normal"]["width"], last["normal"]["width"], knob["normal"][along]
    track = numpy.float32(size(w, vertical) - start - end - length)
    return (knob["normal"],) + place(start + int(numpy.float32(w.percent) * track))


def draw(sketch, w, clip, mouse):
    """What a widget draws where it stands, told to SDL."""
    x, y, left, top, right, bottom = w._x, w._y, w._x, w._y, w._x + w.width, w._y + w.height
    if min(clip) >= 0:
        left, top = max(left, clip[0]), max(top, clip[1])
        right, bottom = min(right, clip[0] + clip[2]), min(bottom, clip[1] + clip[3])
    seen, kind, knob = (left, top, right - left, bottom - top), type(w), ()
    if kind in (UIWidget, UIListContainer, UIAnchoredContainer):
        return [draw(sketch, child, clip, mouse) for child in children(w)]
    if kind is UIScrollPanel:
        clip = (left + 4, top + 1, right - left - 4 - 2, bottom - top - 1 - 3)
    if min((clip if kind is UIScrollPanel else seen)[2:]) <= 0:
        return
    if kind is not UIScrollPanel:
        sketch.clip(*seen)
    if kind is UIImage:
        sketch.blit((0, 0, 13, 9), (x, y, w.width, w.height), Surface(w.texture, w.alpha), stretch=True)
    elif kind is UIText and w.text:
        page = Surface(FlatFont().renderLines(w.text.splitlines(), FONT_COLOR))
        sketch.blit((0, 0) + page.pixels.shape[::-1], (x, y, 0, 0), page)
    elif kind is UIButton:
        sketch.horizontal_bar(WIDGETS["button"]["hover" if w.isHovered else "normal"], x, y, w.width)
    elif kind is UISlider:
        knob = draw_slider(sketch, w, mouse)
    elif kind in (UIPanel, UIScrollPanel):
        sketch.panel(x, y, w.width, w.height)
    for child in children(w):
        draw(sketch, child, NO_CLIP if kind is UIPanel else clip, mouse)
    if kind is UIScrollPanel:
        bar = UISlider(w.scrollPosY, 0, max(0, children(w)[0].height - w.height + sum(edges(w, "padding", 1))), 1)
        bar.userData, bar.width, bar.height = {"content": SCROLL_BAR}, SCROLL_BAR[0], w.height - 2 - 4
        bar._x, bar._y = x + w.width - bar.width - 3, y + 2
        return draw(sketch, bar, seen, mouse)
    sketch.clip()
    if knob:
        sketch.piece(*knob)


@pytest.mark.filterwarnings("ignore:.*_getPercent")  # of scroll bars with nothing to scroll
@pytest.mark.parametrize("seed", range(40))
def test_random_trees(ui, seed):
    r = random.Random(seed)
    made, mouse = [], (r.randint(0, 60), r.randint(0, 40))
    root = ui.renderer.widget = random_widget(r, seed % 4, made)
    for _ in range(3):  # a button centres its label by the sizes of the frame before
        ui.frame(*mouse)
        for w in made:
            if isinstance(w, UIScrollPanel):
                w.scrollPosX = w.scrollPosY = r.randint(0, 60)
    ui.frame(*mouse)
    ui.frame(*mouse)
    for axis in 0, 1:
        check_layout(root, axis, (160, 120)[axis])
    for clip in NO_CLIP, (-1, 0, 100, 100), (0, 0, 0, 100), (0, 0, 60, 45), (38, 33, 9, 100), (200, 0, 9, 9):
        for w in made:
            sketch = Sketch()
            draw(sketch, w, clip, mouse)
            ui.target.fill((0x20, 0x40, 0x60))
            w.render(*clip)
            assert (ui.pixels == sketch.pixels).all(), (w, clip)


@helpers.needsFont
def test_shown_text_follows_text_color_and_font(ui):
    class Theme(FlatTheme):
        getFont = staticmethod(lambda name: font)

    def frame(shown):
        renderer.widget.removeAllChildren()
        renderer.widget.addChild(shown, 3, 4)
        renderer.render()
        return ui.pixels.copy()

    font, text = Font(helpers.DEJAVU, 14), UIText("AVA\n\nWörld", [200, 99, 50, 255])
    renderer = UIRenderer(ui.target, True, Theme(ui.theme_file))
    ui.engine.ecs.addSystem(renderer)
    for change in (lambda: None, lambda: setattr(text, "text", "other"), lambda: text.color.__setitem__(0, 20),
                   lambda: text.color.__setitem__(3, 90), lambda: font.__init__(helpers.DEJAVU, 22)):
        change()
        picture, lines = frame(text), text.text.splitlines()
        width, height = map(sum, zip(*map(font.getRenderedTextSize, lines)))
        assert (text.width, text.height) == (width, height) and (picture != BACKGROUND).any()
        assert text.getRenderedTextSize()[1] == sum(font.getRenderedTextSize(s)[1] if s else font.size for s in lines)
        assert (picture == frame(UIImage(font.renderLines(lines, text.color)))).all()
