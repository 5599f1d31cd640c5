"""Answers to the mouse, scripts that override widgets, and misuse."""
import functools

import pytest
from zelvarine import (MOUSE_LEFT, ButtonClickEvent, EngineException, MouseClickEvent, MouseWheelEvent,
                       SliderValueChangedEvent, Texture, UIAnchoredContainer, UIButton, UIImage, UIListContainer,
                       UIPanel, UIRenderer, UIScrollPanel, UISlider, UIText, UIWidget)

import helpers
from ui_reference import BACKGROUND, WIDGETS, FlatTheme, Sketch, sized, ui, write_theme

CLICK, WHEEL = MouseClickEvent(0, 0, 1), MouseWheelEvent(0, 1)


def test_shorthand_of_edges():
    widget, sides = UIScrollPanel(UIWidget()), ("Top", "Right", "Bottom", "Left")
    for given, edges in ([5], [5] * 4), ([1, 2.9], [1, 2] * 2), ([1, 2, 3], [1, 2, 3, 2]), ([1, 2, 3, 4], [1, 2, 3, 4]):
        widget.setMargin(*given)
        widget.setPadding(*given)
        assert [getattr(widget, kind + side) for kind in ("margin", "padding") for side in sides] == edges * 2
    pytest.raises(ValueError, widget.setMargin).match("setMargin takes either 1, 2, 3 or 4 values. 0 were given.")
    pytest.raises(ValueError, widget.setPadding, 1, 2, 3, 4, 5).match("setPadding takes .* values. 5 were given.")


def test_a_drag_from_press_to_release(ui):
    class Recorder(UIWidget):
        onDragStart, onDrag, onDragEnd = [lambda self, *numbers, name=name: calls.append((name,) + numbers)
                                          for name in ("start", "drag", "end")]

    widget, calls = ui.add(Recorder(), 5, 6), []
    widget.isVisible = widget.isEnabled = False
    for x, y, inside in [(5, 8, False), (6, 6, False), (6, 7, True), (24, 15, True), (25, 8, False), (6, 16, False)]:
        ui.frame(x, y)
        assert widget.isHovered is widget.isInside(x, y) is inside
    for *place, pressed in (100, 100, 1), (10, 11, 1), (150, -7, 1), (8, 12, 1), (99, 98, 0), (99, 98, 0):
        ui.frame(*place, pressed=pressed)  # it is enough that the button is held
    assert calls == [("start", 10, 11), ("drag", 10, 11, 0, 0), ("drag", 150, -7, 140, -18), ("drag", 8, 12, -2, 1),
                     ("end", 99, 98)]


def test_clicks_go_to_the_topmost_that_takes_them(ui):
    clicks, lower, panel, button = [], ui.add(UIWidget()), ui.add(UIPanel(), 5, 0, 60, 60), UIButton("old")
    button.__init__("x")
    assert [label.text for label in button.getChildren()] == [button.text] == ["x"]
    for name, widget in ("lower", lower), ("panel", panel), ("button", button):
        widget.onClick = lambda event, name=name: clicks.append(name)
    panel.addChild(button)
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
    renderer, fired, button = UIRenderer(Texture(64, 48), 1, FlatTheme(write_theme(tmp_path))), [], UIButton("x")
    engine.ecs.addSystem(renderer)
    engine.ecs.removeSystem(renderer)
    assert engine._eventSubscribers[MouseClickEvent] == engine._eventSubscribers[MouseWheelEvent] == []
    engine.ecs.addSystem(renderer)
    engine.setWindowSize((128, 96))
    for event_type in SliderValueChangedEvent, ButtonClickEvent:
        engine.subscribeEvent(event_type, fired.append)
    button.onClick = fired.append
    renderer.widget.addChild(sized(UIScrollPanel(sized(button, 5, 300)), 30, 20), 2, 25)
    engine.update()
    for x, y in (60, 5), (14, 40):
        helpers.move_mouse(2 * x, 2 * y)
        engine.update()
        helpers.push_button(2 * x, 2 * y)
        helpers.push_wheel(0, -1)
        engine.update()
    called, click, scrolled = fired
    assert called is click and (click.target, click.x, click.y, click.button) == (button, 14, 40, MOUSE_LEFT)
    assert (scrolled.oldValue, scrolled.newValue) == (0, 50)


def test_values_of_sliders(ui):
    slider, half, fired = UISlider(150), UISlider(50, 50, 100), helpers.record(ui, SliderValueChangedEvent)
    slider.value = 120
    assert slider.value == 100 and fired == []  # no engine yet
    ui.add(slider, 0, 0, 60)
    for slider.value in (100, 101, -5, -7, 30.9, 95):
        pass
    for x in 55, 55, 30, 3:  # the buttons at the ends, and between them
        ui.frame(x, 2)
        slider._onClick(CLICK)
    assert [(e.target, e.oldValue, e.newValue) for e in fired] == [
        (slider, *change) for change in ((100, 0), (0, 30), (30, 95), (95, 100), (100, 90))]
    for half.percent, value in ((0.5, 75), (1e300, 100), (float("-inf"), 50), (0.999, 99)):
        assert half.value == value and half.percent == pytest.approx((value - 50) / 50)


@pytest.mark.parametrize("size, start, along, knob", [((150, 14), 9, 124, 7), ((13, 110), 8, 87, 8)])
def test_the_knob_follows_the_mouse(ui, size, start, along, knob):
    slider, turn = ui.add(UISlider(500, 0, 1000, size[0] < size[1]), 0, 0, *size), -1 if size[0] < size[1] else 1
    frame = lambda place, pressed=True: ui.frame(*(place, 2)[::turn], pressed=pressed)
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
    frame(start + 50)  # the next press is beside it again
    assert slider.value == int((40 - knob / 2) / along * 1000)


def test_scrolling(ui):
    panel = ui.add(UIScrollPanel(sized(UIWidget(), 250, 300)), 0, 0, 100, 80)
    ui.frame(15, 15)
    panel.scrollPosX, panel.scrollPosY = 1000, 30
    assert (panel.scrollPosX, panel.scrollPosY) == (250 - 100 + 20, 0)  # the other one waits for the next update
    for x, panel.isEnabled, y, moved, position in [
            (15, 1, 1, True, 0), (15, 1, 1, False, 0), (15, 1, -1, True, 50), (15, 1, -9, True, 240),
            (15, 1, -1, False, 240), (15, 0, 1, False, 240), (150, 1, 1, False, 240), (15, 1, 2, True, 140)]:
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
            ui.add(UIText("new"))

        _onClick = update

    calls = []
    ui.add(Everywhere(), 5, 6)
    ui.frame(100, 90)
    ui.renderer._onClick(CLICK)
    assert calls == [ui.root, (100, 90, 5, 6, 20, 10), (-1, -1, -1, -1), CLICK]
    for walk in ui.frame, lambda: ui.renderer._onClick(CLICK):
        ui.root.removeAllChildren()
        for _ in range(3):
            ui.add(Fickle())
        walk()
        assert [type(child) for child in ui.root.getChildren()] == [UIText]


def test_roots_and_background(ui):
    root, leaf, over = UIListContainer(), UIText("x"), UIRenderer(ui.target, 0, None)
    root.addChild(leaf)
    assert type(ui.root) is UIAnchoredContainer and ui.root.getRenderer() is ui.renderer and leaf.getRenderer() is None
    ui.renderer.widget = root
    assert ui.root.getRenderer() is None and leaf.getRenderer() is root.getRenderer() is ui.renderer
    pytest.raises(TypeError, setattr, ui.renderer, "widget", None)
    assert ui.renderer.getSize() == (160, 120) and ui.renderer.widget is root
    root.isVisible = False
    ui.ecs.addSystem(over)
    for render, word in (ui.frame, BACKGROUND), (over.render, 0xFF010203):
        ui.target.fill((1, 2, 3))
        render()
        assert (ui.pixels == word).all()


add = lambda w, child: w.addChild(child)


@pytest.mark.parametrize("make, add", [
    (UIListContainer, add), (UIPanel, add), (lambda: UIButton("x"), add),
    (UIAnchoredContainer, lambda w, child: w.addChild(child, 0, 0)),
    (lambda: UIScrollPanel(UIWidget()), lambda w, child: setattr(w, "content", child))])
def test_children_that_refuse(ui, make, add):
    class Refusing(UIWidget):
        _setParent = lambda self, parent: {}[parent]

    w = make()
    for child, error, stays in [(Refusing(), KeyError, True), (None, AttributeError, False),
                                ("child", TypeError, False), (w, RecursionError, True)]:
        pytest.raises(error, add, w, child)
        assert (child in w.getChildren()) == stays
    w.removeChild(w)
    w.removeChild(w)
    assert w not in w.getChildren() and w.getParent() is None
    ui.renderer.widget = sized(w)
    w.getChildren().append(w)
    for walk, *given in (ui.frame,), (w.update, 0, 0, 0), (w._onClick, CLICK), (w._onScroll, WHEEL):
        pytest.raises(RecursionError, walk, *given)


@pytest.mark.parametrize("make, missing, steps", [
    (lambda: UIButton(""), "button normal middle", lambda s: s.blit((2, 1, 4, 20), (5, 6, 4, 20))),
    (UIPanel, "panel x", lambda s: None),
    (lambda: UISlider(1), "slider leftButton", lambda s: s.bar(WIDGETS["slider"]["horizontalBackground"], 5, 6, 40))])
def test_what_is_drawn_before_a_failure(ui, make, missing, steps):
    widget, sketch, (*keys, last) = ui.add(make(), 5, 6, 40, 30), Sketch(), missing.split()
    ui.frame()
    ui.target.fill((0x20, 0x40, 0x60))
    del functools.reduce(dict.get, keys, ui.theme.widgets)[last]
    pytest.raises(KeyError, widget.render)
    steps(sketch)
    assert (ui.pixels == sketch.pixels).all()
    ui.target.fill((0, 0, 0))
    sketch.pixels[6:36, 5:45] = 0xFF000000
    assert (ui.pixels == sketch.pixels).all()  # the step that ends the cut was not reached


def test_failures_of_theme_clip_and_texture(ui):
    class Endless(Texture):
        height = property(lambda self: 2 ** 40)

    image, endless, button = UIImage(Texture(3, 4)), Endless(7, 7), ui.add(UIButton("x"))
    pytest.raises(EngineException, sized(UIText("x")).render).match("render a widget that is not attached to a UI")
    pytest.raises(OverflowError, setattr, image, "texture", endless)
    assert (image.texture, image.width, image.height) == (endless, 7, 4)
    for image.alpha, kept in (300, 255), (-5, 0), (128, 128):
        assert image.alpha == kept
    ui.frame()
    ui.target.fill((0, 0, 0))
    with helpers.unraisable_reports() as reports:
        ui.root.render(0, 0, "wide", 5)
    assert "TypeError" in reports.getvalue() and (ui.pixels == 0xFF000000).all()
    ui.theme.widgets["button"]["normal"]["middle"] = 0
    pytest.raises(ZeroDivisionError, button.render)
