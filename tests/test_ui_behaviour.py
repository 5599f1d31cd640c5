"""Answers to the mouse, scripts that override widgets, and misuse."""
import random

import pytest
import zelvarine
from zelvarine import (SIZE_FIXED, ButtonClickEvent, EngineException, MouseClickEvent, MouseWheelEvent,
                       SliderValueChangedEvent, Texture, UIAnchoredContainer, UIButton, UIImage, UIListContainer,
                       UIPanel, UIRenderer, UIScrollPanel, UISlider, UIText, UIWidget)

import helpers
from ui_reference import BACKGROUND, WIDGETS, FlatTheme, Sketch, Stage, write_theme

CLICK, WHEEL = MouseClickEvent(0, 0, 1), MouseWheelEvent(0, 1)


@pytest.fixture
def ui(tmp_path):
    return Stage(tmp_path)


def sized(widget, width=20, height=10):
    widget.sizePolicyX = widget.sizePolicyY = SIZE_FIXED
    widget.width, widget.height = width, height
    return widget


@pytest.mark.parametrize("method, prefix", [("setMargin", "margin"), ("setPadding", "padding")])
def test_shorthand_of_edges(method, prefix):
    widget = UIScrollPanel(UIWidget())
    for given, edges in ([5], [5] * 4), ([1, 2], [1, 2] * 2), ([1, 2, 3], [1, 2, 3, 2]), ([1, 2.9, 3, 4], [1, 2, 3, 4]):
        getattr(widget, method)(*given)
        assert [getattr(widget, prefix + side) for side in ("Top", "Right", "Bottom", "Left")] == edges
    for values in (), (1, 2, 3, 4, 5):
        with pytest.raises(ValueError) as failure:
            getattr(widget, method)(*values)
        assert str(failure.value) == "%s takes either 1, 2, 3 or 4 values. %d were given." % (method, len(values))


def test_a_drag_from_press_to_release(ui):
    class Recorder(UIWidget):
        onDragStart, onDrag, onDragEnd = [lambda self, *numbers, name=name: calls.append((name,) + numbers)
                                          for name in ("start", "drag", "end")]

    widget, calls = sized(Recorder()), []
    widget.isVisible = widget.isEnabled = False
    ui.root.addChild(widget, 5, 6)
    for x, y, inside in [(5, 8, False), (6, 6, False), (6, 7, True), (24, 15, True), (25, 8, False), (6, 16, False)]:
        ui.frame(x, y)
        assert widget.isHovered is widget.isInside(x, y) is inside
    for place in (100, 100), (10, 10), (150, -7), (8, 12):  # it is enough that the button is held
        ui.frame(*place, pressed=True)
    ui.frame(99, 98)
    ui.frame(99, 98)
    assert calls == [("start", 10, 10), ("drag", 10, 10, 0, 0), ("drag", 150, -7, 140, -17), ("drag", 8, 12, -2, 2),
                     ("end", 99, 98)]


def test_clicks_go_to_the_topmost_that_takes_them(ui):
    clicks, lower, panel, button = [], sized(UIWidget()), sized(UIPanel(), 60, 60), UIButton("old")
    button.__init__("x")
    assert [label.text for label in button.getChildren()] == [button.text] == ["x"]
    for name, widget in ("lower", lower), ("panel", panel), ("button", button):
        widget.onClick = lambda event, name=name: clicks.append(name)
    panel.addChild(button)
    ui.root.addChild(lower, 0, 0)
    ui.root.addChild(panel, 5, 0)
    ui.root.addChild(panel, 99, 99)  # it is here already, and stays
    for x, y, panel.isEnabled, button.isEnabled, handled in [
            (17, 9, True, True, ["button"]), (50, 50, True, True, ["panel"]), (17, 9, False, True, ["button"]),
            (17, 9, True, False, ["panel"]), (8, 5, False, True, ["lower"]), (50, 50, False, True, [])]:
        ui.frame(x, y)
        event = MouseClickEvent(x, y, 1)
        ui.renderer._onClick(event)
        assert (event.isAlreadyHandled, clicks) == (bool(handled), handled)
        clicks.clear()
    ui.frame(17, 9)
    assert button.isHovered and button._onClick(MouseClickEvent(50, 50, 1)) is False  # it was elsewhere
    for remove in lambda: ui.root.removeChild(panel), ui.root.removeAllChildren:
        remove()
        panel._x = 77
        ui.frame()
        assert panel._x == 77 and panel.getParent() is ui.root
        ui.root.addChild(panel, 5, 0)


def test_through_a_real_engine(engine, tmp_path):
    """SDL's events and mouse on a window of twice the picture's size."""
    renderer = UIRenderer(Texture(64, 48), 1, FlatTheme(write_theme(tmp_path)))
    engine.ecs.addSystem(renderer)
    engine.ecs.removeSystem(renderer)
    assert engine._eventSubscribers[MouseClickEvent] == engine._eventSubscribers[MouseWheelEvent] == []
    engine.ecs.addSystem(renderer)
    engine.setWindowSize((128, 96))
    button, fired = UIButton("x"), []
    panel = sized(UIScrollPanel(sized(UIWidget(), 5, 300)), 30, 20)
    button.onClick = fired.append
    for event_type in SliderValueChangedEvent, ButtonClickEvent:
        engine.subscribeEvent(event_type, fired.append)
    renderer.widget.addChild(button, 2, 0)
    renderer.widget.addChild(panel, 2, 25)
    engine.update()
    for x, y in (3, 5), (60, 5), (10, 35):
        helpers.moveMouse(2 * x, 2 * y)
        engine.update()
        helpers.pushButton(2 * x, 2 * y)
        helpers.pushWheel(0, -1)
        engine.update()
    called, click, scrolled = fired
    assert called is click and (click.target, click.x, click.y, click.button) == (button, 3, 5, zelvarine.MOUSE_LEFT)
    assert (scrolled.oldValue, scrolled.newValue) == (0, 50)


def test_values_of_sliders(ui):
    slider, half, fired = sized(UISlider(150), 60), UISlider(50, 50, 100), []
    ui.engine.subscribeEvent(SliderValueChangedEvent, fired.append)
    slider.value = 120
    assert slider.value == 100 and fired == []  # no engine yet
    ui.root.addChild(slider, 0, 0)
    for slider.value in (100, 101, -5, -7, 30.9, 95):
        pass
    for x in 55, 55, 30, 3:  # the buttons at the ends, and between them
        ui.frame(x, 2)
        slider._onClick(CLICK)
    assert [(e.target, e.oldValue, e.newValue) for e in fired] == [
        (slider, *change) for change in ((100, 0), (0, 30), (30, 95), (95, 100), (100, 90))]
    for half.percent, value in ((0.5, 75), (1e300, 100), (float("-inf"), 50), (0.999, 99)):
        assert half.value == value and half.percent == pytest.approx((value - 50) / 50)
    with pytest.raises(ValueError):
        half.percent = float("nan")


@pytest.mark.parametrize("vertical, start, along, knob", [(False, 9, 124, 7), (True, 8, 87, 8)])
def test_the_knob_follows_the_mouse(ui, vertical, start, along, knob):
    slider = sized(UISlider(500, 0, 1000, int(vertical)), *((13, 110) if vertical else (150, 14)))
    ui.root.addChild(slider, 0, 0)
    frame = lambda place, pressed=True: ui.frame(*((2, place) if vertical else (place, 2)), pressed=pressed)
    first = start + along // 2  # of the pixels that show the knob; those at its edges do not grab it
    for place in first, first + knob:
        frame(place)  # beside the knob: nothing is grabbed until the next press
        frame(start + 1)
        assert slider.value == 500
        frame(0, False)
    frame(first + 1)
    for place in start, start + 1, start + 30, start + along, 0, 159, start + 40:
        frame(place)
        assert slider.value == max(0, min(1000, int((place - start - knob / 2) / along * 1000)))  # its centre is there
    frame(start, False)
    frame(start + 50, False)
    assert slider.value == int((40 - knob / 2) / along * 1000)


def test_scrolling(ui):
    panel = sized(UIScrollPanel(sized(UIWidget(), 250, 300)), 100, 80)
    ui.root.addChild(panel, 0, 0)
    ui.frame(15, 15)
    panel.scrollPosX, panel.scrollPosY = 1000, 30
    assert (panel.scrollPosX, panel.scrollPosY) == (250 - 100 + 20, 0)  # the other one waits for the next update
    for x, panel.isEnabled, y, moved, position in [
            (15, True, 1, True, 0), (15, True, 1, False, 0), (15, True, -1, True, 50), (15, True, -9, True, 240),
            (15, True, -1, False, 240), (15, False, 1, False, 240), (150, True, 1, False, 240), (15, True, 2, True, 140)]:
        ui.frame(x, 15)
        assert panel._onScroll(MouseWheelEvent(0, y)) is moved
        ui.frame(x, 15)
        assert panel.scrollPosY == position
    panel.content = sized(UIScrollPanel(sized(UIWidget(), 5, 300)), 50, 300)
    ui.frame(15, 15)
    assert panel._onScroll(MouseWheelEvent(0, -1)) is True and ui.root._onScroll(WHEEL) is True
    assert UIListContainer()._onScroll(WHEEL) is None and panel.getChildren() == [panel.content]


def test_scripts_override_and_change_the_tree(ui):
    class Everywhere(UIWidget):
        _pointInRect = lambda self, *numbers: calls.append(numbers) or "yes"
        _setParent = lambda self, parent: (super()._setParent(parent), calls.append(parent))
        render = lambda self, *clip: (super().render(*clip), calls.append(clip))
        onClick = lambda self, event: calls.append(event)

    class Fickle(UIWidget):
        def update(self, *arguments):
            ui.root.removeAllChildren()
            ui.root.addChild(UIText("new"), 0, 0)

        _onClick = update

    calls = []
    ui.root.addChild(sized(Everywhere()), 5, 6)
    ui.frame(100, 90)
    ui.renderer._onClick(CLICK)
    assert calls == [ui.root, (100, 90, 5, 6, 20, 10), (-1, -1, -1, -1), CLICK]
    for walk in ui.frame, lambda: ui.renderer._onClick(CLICK):
        ui.root.removeAllChildren()
        for _ in range(3):
            ui.root.addChild(Fickle(), 0, 0)
        walk()
        assert [type(child) for child in ui.root.getChildren()] == [UIText]


def test_roots_and_background(ui):
    root, leaf, over = UIListContainer(), UIText("x"), UIRenderer(ui.target, 0, None)
    root.addChild(leaf)
    assert type(ui.root) is UIAnchoredContainer and ui.root.getRenderer() is ui.renderer and leaf.getRenderer() is None
    ui.renderer.widget = root
    assert ui.root.getRenderer() is None and leaf.getRenderer() is root.getRenderer() is ui.renderer
    with pytest.raises(TypeError):
        ui.renderer.widget = None
    assert ui.renderer.getSize() == (160, 120) and ui.renderer.widget is root
    root.isVisible = False
    ui.engine.ecs.addSystem(over)
    for render, word in (ui.frame, BACKGROUND), (over.render, 0xFF010203):
        ui.target.fill((1, 2, 3))
        render()
        assert (ui.pixels == word).all()


@pytest.mark.parametrize("make", [UIListContainer, UIPanel, UIAnchoredContainer, lambda: UIButton("x"),
                                  lambda: UIScrollPanel(UIWidget())])
def test_children_that_refuse(ui, make):
    class Refusing(UIWidget):
        def _setParent(self, parent):
            raise LookupError

    def add(child):
        if isinstance(container, UIScrollPanel):
            container.content = child
        else:
            container.addChild(child, *(0, 0) if isinstance(container, UIAnchoredContainer) else ())

    container, refusing = make(), Refusing()
    for child, error, stays in [(refusing, LookupError, True), (None, AttributeError, False),
                                ("child", TypeError, False), (container, RecursionError, True)]:
        with pytest.raises(error):
            add(child)
        assert (child in container.getChildren()) == stays
    container.removeChild(container)
    container.removeChild(container)
    assert container not in container.getChildren() and container.getParent() is None
    ui.renderer.widget = sized(container)
    container.getChildren().append(container)
    for walk, *given in (ui.frame,), (container.update, 0, 0, 0), (container._onClick, CLICK), (container._onScroll, WHEEL):
        with pytest.raises(RecursionError):
            walk(*given)


def black(ui, left, top, right, bottom):
    """Whether the target is black there and nowhere else."""
    return (ui.pixels[top:bottom, left:right] == 0xFF000000).all() and (
        (ui.pixels == 0xFF000000).sum() == (right - left) * (bottom - top))


@pytest.mark.parametrize("make", [UIPanel, lambda: UIButton("")])
def test_children_that_draw_by_themselves_are_cut(ui, make):
    class Artist(UIWidget):
        render = lambda self, *clip: ui.target.fill((0, 0, 0))

    container = sized(make(), 30, 25)
    container.addChild(Artist())
    ui.root.addChild(container, 7, 9)
    ui.frame()
    for clip, right, bottom in ((), 37, 34), ((0, 0, 20, 20), 20, 20), ((2, 2, 2 ** 31 - 1, 2 ** 31 - 1), 37, 34):
        ui.target.fill((9, 9, 9))  # all of it: nothing is cut behind a widget
        container.render(*clip)
        assert black(ui, 7, 9, right, bottom)


@pytest.mark.parametrize("make, missing, steps", [
    (lambda: UIButton(""), ("button", "normal", "middle"), lambda s: s.blit((2, 1, 4, 20), (5, 6, 0, 0))),
    (lambda: UIButton(""), ("button", "normal", "left"), lambda s: None), (UIPanel, ("panel", "x"), lambda s: None),
    (lambda: UISlider(1), ("slider", "leftButton"),
     lambda s: s.horizontal_bar(WIDGETS["slider"]["horizontalBackground"], 5, 6, 40))])
def test_what_is_drawn_before_a_failure(ui, make, missing, steps):
    widget, table, sketch = sized(make(), 40, 30), ui.renderer.theme.widgets, Sketch()
    ui.root.addChild(widget, 5, 6)
    ui.frame()
    ui.target.fill((0x20, 0x40, 0x60))
    for key in missing[:-1]:
        table = table[key]
    del table[missing[-1]]
    with pytest.raises(KeyError):
        widget.render()
    steps(sketch)
    assert (ui.pixels == sketch.pixels).all()
    ui.target.fill((0, 0, 0))
    assert black(ui, 5, 6, 45, 36)  # the step that ends the cut was not reached


def test_failures_of_theme_clip_and_texture(ui):
    class Endless(Texture):
        height = property(lambda self: 2 ** 40)

    text, button, image, endless = sized(UIText("x")), UIButton("x"), UIImage(Texture(3, 4)), Endless(7, 7)
    with pytest.raises(EngineException) as failure:
        text.render()
    assert failure.value.msg == "Can not render a widget that is not attached to a UIRenderer object!"
    with pytest.raises(OverflowError):
        image.texture = endless
    assert (image.texture, image.width, image.height) == (endless, 7, 4)
    for image.alpha, kept in (300, 255), (-5, 0), (128, 128):
        assert image.alpha == kept
    ui.root.addChild(button, 0, 0)
    ui.frame()
    ui.target.fill((0, 0, 0))
    with helpers.unraisableReports() as reports:
        ui.root.render(0, 0, "wide", 5)
    assert "TypeError" in reports.getvalue() and black(ui, 0, 0, 160, 120)
    ui.renderer.theme.widgets["button"]["normal"]["middle"] = 0
    with pytest.raises(ZeroDivisionError):
        button.render()


@pytest.mark.parametrize("seed", range(30))
def test_hostile_numbers_stay_in_32_bits(ui, seed):
    r, low, high = random.Random(seed), -2 ** 31, 2 ** 31 - 1
    wild = lambda count: [r.choice((low, high, -3, 0, 7)) for _ in range(count)]
    widgets = [UISlider(high, low, high), UIScrollPanel(UIImage(None, high, high)), UIButton("x"), UIPanel(),
               UIImage(Texture(7, 2 ** 16)), UIText("x")]
    for w in widgets:
        ui.root.addChild(w, *wild(2), anchorTypeX=4, anchorTypeY=1)
    for key in "x", "y", "left", "right", "height":
        ui.renderer.theme.widgets["button"]["normal"][key], = wild(1)
    for w in widgets:
        w.width, w.height, w._x, w._y = wild(4)
        w.setMargin(*wild(4))
        w.update(*wild(2), True)
        for clip in wild(4), (high,) * 4, (2 ** 40, 0, 2 ** 62, 9), (0, 0, 160, 120):
            w.render(*clip)
        ui.frame(*wild(2), pressed=True)
