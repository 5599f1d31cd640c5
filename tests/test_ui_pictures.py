"""Where widgets stand and what they draw, pixel by pixel."""
import gc
import random

import numpy
import pytest
from zelvarine import (ANCHOR_BOTTOM, ANCHOR_CENTER, ANCHOR_RIGHT, SIZE_FIXED, SIZE_GROW, Font, Texture,
                       UIAnchoredContainer, UIButton, UIImage, UIListContainer, UIPanel, UIScrollPanel, UISlider,
                       UIText, UITheme, UIWidget)

import helpers
from ui_reference import BACKGROUND, FONT_COLOR, TILES, WIDGETS, FlatFont, Rect, Sketch, Stage, Surface, ui

pytestmark = pytest.mark.filterwarnings("ignore:.*_getPercent")  # of scroll bars with nothing to scroll
NO_CLIP = (-1,) * 4
SLIDER, SCROLL_BAR = (3 + 2 + 7 + 7 + 9 + 10, 10), (9, 3 + 2 + 8 + 8 + 6 + 12)  # their sizes


def random_widget(r, depth, made):
    """A tree of every kind of widget, all of them sized and aligned at random; userData tells what cannot be asked."""
    number, text, texture = r.randint, r.choice(["", "go", "x\ny", "ab\n\nc"]), Texture(13, 9)
    numpy.asarray(texture)[:] = [[r.getrandbits(32) for _ in range(13)] for _ in range(9)]
    width, height = 10 * len(text.replace("\n", "")), 12 * len(text.splitlines())
    w, content = r.choice([
        (UIListContainer(), None), (UIPanel(), None), (UIAnchoredContainer(), (0, 0)),
        (UIScrollPanel(UIWidget()), (50, 50))] if depth else [
        (UIWidget(), (0, 0)), (UIImage(texture), (0, 0)), (UIText(text), (width, height)),
        (UIButton(text), (width + 4 + 5, max(20, height))),
        (UISlider(number(0, 9), 0, 9), SLIDER), (UISlider(number(0, 9), 0, 9, 1), SCROLL_BAR)])
    for _ in range(1 if isinstance(w, UIScrollPanel) else number(0, 3) if depth else 0):
        child = random_widget(r, depth - 1, made)
        if isinstance(w, UIScrollPanel):
            w.content = child
        else:
            w.addChild(child, *child.userData["anchor"] if isinstance(w, UIAnchoredContainer) else ())
    w.userData = {"content": content, "anchor": (number(-9, 60), number(-9, 60), number(0, 4), number(0, 4))}
    for name, low, high in [("sizePolicyX", 0, 2), ("sizePolicyY", 0, 2), ("horizontalAlign", 0, 2), ("layout", 0, 1),
                            ("verticalAlign", 0, 2), ("width", -3, 99), ("height", -3, 99), ("alpha", -99, 400)]:
        if hasattr(w, name) and (name != "layout" or depth):
            setattr(w, name, number(low, high))
    w.setMargin(*[number(-3, 8) for _ in range(4)])
    if depth and not isinstance(w, UIAnchoredContainer):
        w.setPadding(*[number(-4, 9) for _ in range(4)])
    made.append(w)
    return w


children = lambda w: getattr(w, "getChildren", list)()
edges = lambda w, kind, axis: [getattr(w, kind + side, 0) for side in (("Left", "Right"), ("Top", "Bottom"))[axis]]
size = lambda w, axis: (w.width, w.height)[axis]


def measured(w, axis):
    """The size of a widget before it grows."""
    if (w.sizePolicyX, w.sizePolicyY)[axis] == SIZE_FIXED:
        return size(w, axis)
    if w.userData["content"]:
        return w.userData["content"][axis]
    outer = [0] + [measured(child, axis) + sum(edges(child, "margin", axis)) for child in children(w)]
    return (sum if w.layout == axis else max)(outer) + sum(edges(w, "padding", axis))


def check_layout(w, axis, room):
    grows = (w.sizePolicyX, w.sizePolicyY)[axis] == SIZE_GROW
    assert size(w, axis) == (room - sum(edges(w, "margin", axis)) if grows else measured(w, axis)), w
    if isinstance(w, UIButton):
        assert w.paddingTop == int((w.height - children(w)[0].height) / 2)
        return
    start, end = edges(w, "padding", axis)
    inner, offset = size(w, axis) - start - end, 0
    for child in children(w):
        (before, after), gap = edges(child, "margin", axis), size(w, axis) - size(child, axis)
        if isinstance(w, UIListContainer):
            align = (child.horizontalAlign, child.verticalAlign)[axis]
            place = start + (offset + before if w.layout == axis else (before, gap - after, int(gap / 2))[align])
            offset += before + size(child, axis) + after
        elif isinstance(w, UIScrollPanel):
            inner -= (SCROLL_BAR[0], 0)[axis]
            place = start + before - (w.scrollPosX, w.scrollPosY)[axis]
        else:
            distance, anchor = child.userData["anchor"][axis::2]
            place = {(ANCHOR_RIGHT, ANCHOR_BOTTOM)[axis]: gap - distance - after,
                     ANCHOR_CENTER: int(gap / 2 + before + distance - after)}.get(anchor, distance + before)
        assert (child._x - w._x, child._y - w._y)[axis] == place, (w, child)
        check_layout(child, axis, inner)


def draw_slider(sketch, w, mouse):
    vertical = w.userData["content"] == SCROLL_BAR
    bar, along, *names = [("horizontal", "width", "left", "right"), ("vertical", "height", "top", "bottom")][vertical]
    knob, first, last = [WIDGETS["slider"][name + "Button"] for name in (bar, *names)]
    place = lambda offset: (w._x, w._y + offset) if vertical else (w._x + offset, w._y)
    sketch.bar(WIDGETS["slider"][bar + "Background"], w._x, w._y, size(w, vertical), vertical)
    for button, corner in (first, place(0)), (last, place(size(w, vertical) - last["normal"][along])):
        is_over = w._pointInRect(*mouse, *corner, button["normal"]["width"], button["normal"]["height"])
        sketch.piece(button["hover" if is_over else "normal"], *corner)
    sketch.clip()  # the knob is not cut
    start, end, length = first["normal"]["width"], last["normal"]["width"], knob["normal"][along]
    track = numpy.float32(size(w, vertical) - start - end - length)
    sketch.piece(knob["normal"], *place(start + int(numpy.float32(w.percent) * track)))


def draw(sketch, w, clip, mouse):
    """What a widget draws where it stands, told to SDL."""
    x, y, kind, seen = w._x, w._y, type(w), Rect(w._x, w._y, w.width, w.height)
    if min(clip) >= 0:
        helpers.sdl.SDL_IntersectRect(seen, Rect(*clip), seen)
    inner = seen[0] + 4, seen[1] + 1, seen[2] - 4 - 2, seen[3] - 1 - 3
    if kind in (UIWidget, UIListContainer, UIAnchoredContainer):
        return [draw(sketch, child, clip, mouse) for child in children(w)]
    if min((inner if kind is UIScrollPanel else seen)[2:]) <= 0:
        return
    if kind is UIScrollPanel:
        sketch.panel(x, y, w.width, w.height)
        draw(sketch, w.content, inner, mouse)
        bar = UISlider(w.scrollPosY, 0, max(0, w.content.height - w.height + sum(edges(w, "padding", 1))), 1)
        bar.userData, bar.width, bar.height = {"content": SCROLL_BAR}, SCROLL_BAR[0], w.height - 2 - 4
        bar._x, bar._y = x + w.width - bar.width - 3, y + 2
        return draw(sketch, bar, seen, mouse)
    sketch.clip(*seen)
    if kind is UIImage:
        sketch.blit((0, 0, 13, 9), (x, y, w.width, w.height), Surface(w.texture, w.alpha))
    elif kind is UIText and w.text:
        page = Surface(FlatFont().renderLines(w.text.splitlines(), FONT_COLOR))
        sketch.blit((0, 0) + page.pixels.shape[::-1], (x, y) + page.pixels.shape[::-1], page)
    elif kind is UIButton:
        sketch.bar(WIDGETS["button"]["hover" if w.isHovered else "normal"], x, y, w.width)
    elif kind is UISlider:
        draw_slider(sketch, w, mouse)
    elif kind is UIPanel:
        sketch.panel(x, y, w.width, w.height)
    for child in children(w):
        draw(sketch, child, NO_CLIP if kind is UIPanel else clip, mouse)
    sketch.clip()


@pytest.mark.parametrize("seed", range(60))
def test_random_trees(ui, seed):
    r, made = random.Random(seed), []
    root, mouse = random_widget(r, seed % 4, made), (r.randint(0, 60), r.randint(0, 40))
    ui.renderer.widget = root
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
            ui.pixels[:] = 0  # shows through where a clip was left behind
            ui.target.fill((0x20, 0x40, 0x60))
            w.render(*clip)
            assert (ui.pixels == sketch.pixels).all(), (w, clip)
    check_hostile_numbers(ui, made, r)


def check_hostile_numbers(ui, made, r):
    """Whatever comes of them fits into 32 bits."""
    low, high, ui.renderer.widget = -2 ** 31, 2 ** 31 - 1, ui.root
    wild = lambda count: r.choices((low, high, -3, 0, 7), k=count)
    extremes = [UISlider(high, low, high), UIImage(None, high, high), UIImage(Texture(7, 2 ** 16))]
    ui.theme.widgets["button"]["normal"].update(zip(("x", "y", "left", "right", "height"), wild(5)))
    for w in [made[-1]] + extremes:
        ui.add(w, *wild(4))
    for w in made + extremes:
        w.width, w.height, w._x, w._y = wild(4)
        w.setMargin(*wild(4))
        w.update(*wild(2), True)
        for clip in wild(4), (high,) * 4, (2 ** 40, 0, 2 ** 62, 9):
            w.render(*clip)
    ui.frame(*wild(2), pressed=True)


@helpers.needs_font
@pytest.mark.parametrize("seed", range(40))
def test_pictures_that_are_repeated(tmp_path, seed):
    """With a theme of a script's own class they never are: the script may have a say in all that is drawn."""
    r, alpha, font, stages = random.Random(seed), (255, 128, TILES)[seed % 3], {"file": helpers.DEJAVU, "size": 9}, []
    for theme in UITheme, type("Anew", (UITheme,), {}):
        stage, made = Stage(tmp_path, theme, TILES & (alpha << 24 | 0xFFFFFF), fonts={"aileron": font}), []
        made += [random_widget(random.Random(seed), seed % 4, made), UIButton("12"), UISlider(3)]
        [stage.root.addChild(w, 5 * i, 9) for i, w in enumerate(made[-3:])]
        stages.append((stage, made, [each for each in gc.get_referents(stage.theme) if isinstance(each, Texture)], []))
    for _ in range(60):
        change, number, place = r.randint(0, 15), r.randint(0, 40), r.random()
        for stage, made, (source,), views in stages:
            w, table, (label,) = made[int(place * len(made))], stage.theme.widgets, made[-2].getChildren()
            {0: lambda: table["button"]["normal"].update(x=number), 1: lambda: table["panel"].update(topHeight=number),
             2: lambda: table["slider"]["topButton"]["normal"].update(y=number), 3: lambda: w.setMargin(number % 9),
             4: lambda: label.setMargin(number % 3), 5: lambda: label.setText(str(number)),
             6: lambda: source.fill([number] * 4), 7: lambda: number > 30 and views.append(numpy.asarray(source)),
             8: lambda: [view.fill(number) for view in views]}.get(change, int)()
            stage.frame(seed, int(2 * place))
            stage.target.fill((number, 0, 0)) if change > 9 else w.render(*(0, 0, 60, 45)[:number])
            w.render()
        assert (stages[0][0].pixels == stages[1][0].pixels).all(), change


@helpers.needs_font
def test_shown_text_follows_text_color_and_font(ui):
    def frame(shown):
        ui.root.removeAllChildren()
        ui.root.addChild(shown, 3, 4)
        ui.frame()
        return ui.pixels.copy()

    font, text = Font(helpers.DEJAVU, 14), UIText("AVA\n\nWörld", [200, 99, 50, 255])
    ui.theme.getFont = lambda name: font
    for change in (lambda: None, lambda: setattr(text, "text", "other"), lambda: text.color.__setitem__(0, 20),
                   lambda: text.color.__setitem__(3, 90), lambda: font.__init__(helpers.DEJAVU, 22)):
        change()
        picture, lines = frame(text), text.text.splitlines()
        assert text.getRenderedTextSize()[1] == sum(font.getRenderedTextSize(s)[1] if s else font.size for s in lines)
        assert (picture == frame(UIImage(font.renderLines(lines, text.color)))).all() and (picture != BACKGROUND).any()
