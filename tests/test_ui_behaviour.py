"""Answers to the mouse, scripts that override widgets, and misuse."""
import pytest
import zelvarine
from zelvarine import (SIZE_FIXED, ButtonClickEvent, EngineException, MouseClickEvent, MouseWheelEvent,
                       SliderValueChangedEvent, Texture, UIAnchoredContainer, UIButton, UIListContainer, UIPanel,
                       UIRenderer, UIScrollPanel, UISlider, UIText, UIWidget)

import helpers
from ui_reference import BACKGROUND, FlatTheme, Stage, write_theme

CLICK = MouseClickEvent(0, 0, 1)


@pytest.fixture
def ui(tmp_path):
    return Stage(tmp_path)


def sized(widget, width, height):
    widget.sizePolicyX = widget.sizePolicyY = SIZE_FIXED
    widget.width, widget.height = width, height
    return widget


class Recorder(UIWidget):
    """A widget of 20 by 10 that notes its drags."""

    def __init__(self):
        super().__init__()
        self.calls = []
        sized(self, 20, 10)
        for name in ("onDragStart", "onDrag", "onDragEnd"):
            setattr(self, name, lambda *arguments, name=name: self.calls.append((name,) + arguments))

    def drain(self):
        calls, self.calls = self.calls, []
        return calls


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


def test_children_of_an_anchored_container(ui):
    text = UIText("a\n\nbb")
    ui.root.addChild(text, 0, 0)
    ui.root.addChild(text, 9, 9)  # it is here already, and stays
    ui.frame()
    assert text.getRenderedTextSize() == (30, 12 + 7 + 12)  # an empty line is as high as the font's size
    assert (text._x, text._y, text.color) == (0, 0, (10, 20, 30, 255))
    for _ in range(2):
        ui.root.removeChild(text)
        assert ui.root.getChildren() == [] and text.getParent() is ui.root


def test_a_drag_from_press_to_release(ui):
    widget = Recorder()
    widget.isVisible = widget.isEnabled = False
    ui.root.addChild(widget, 5, 6)
    for x, y, inside in [(5, 8, False), (6, 6, False), (6, 7, True), (24, 15, True), (25, 8, False), (6, 16, False)]:
        ui.frame(x, y)
        assert widget.isHovered is widget.isInside(x, y) is inside and widget.calls == []
    ui.frame(100, 100, True)
    ui.frame(10, 10, True)  # it is enough that the button is held
    assert widget.drain() == [("onDragStart", 10, 10), ("onDrag", 10, 10, 0, 0)]
    ui.frame(150, -7, True)
    ui.frame(8, 12, True)
    assert widget.drain() == [("onDrag", 150, -7, 140, -17), ("onDrag", 8, 12, -2, 2)]
    ui.frame(99, 98)
    ui.frame(99, 98)
    assert widget.drain() == [("onDragEnd", 99, 98)]


def test_clicks_go_to_the_topmost_that_takes_them(ui):
    clicks, lower, panel, button = [], Recorder(), sized(UIPanel(), 60, 60), UIButton("x")
    for name, widget in ("lower", lower), ("panel", panel), ("button", button):
        widget.onClick = lambda event, name=name: clicks.append(name)
    panel.addChild(button)
    ui.root.addChild(lower, 0, 0)
    ui.root.addChild(panel, 5, 0)
    for x, y, enabled, handled in [(17, 9, True, ["button"]), (50, 50, True, ["panel"]), (17, 9, False, ["button"]),
                                   (8, 5, False, ["lower"]), (50, 50, False, [])]:
        panel.isEnabled = enabled
        ui.frame(x, y)
        event = MouseClickEvent(x, y, 1)
        ui.renderer._onClick(event)
        assert (event.isAlreadyHandled, clicks) == (bool(handled), handled)
        clicks.clear()


def test_through_a_real_engine(engine, tmp_path):
    """SDL's events and mouse on a window of twice the picture's size."""
    renderer = UIRenderer(Texture(64, 48), 1, FlatTheme(write_theme(tmp_path)))
    engine.ecs.addSystem(renderer)
    engine.ecs.removeSystem(renderer)
    assert engine._eventSubscribers[MouseClickEvent] == engine._eventSubscribers[MouseWheelEvent] == []
    engine.ecs.addSystem(renderer)
    engine.setWindowSize((128, 96))
    button, slider = UIButton("x"), UISlider(95)
    panel, fired = sized(UIScrollPanel(sized(UIWidget(), 5, 300)), 30, 20), []
    button.onClick = lambda event: fired.append("called")
    for event_type in SliderValueChangedEvent, ButtonClickEvent:
        engine.subscribeEvent(event_type, fired.append)
    for widget, y in (button, 0), (slider, 20), (panel, 30):
        renderer.widget.addChild(widget, 2, y)
    engine.update()
    end = slider.width + 1
    for x, y in (3, 5), (end, 22), (end, 22), (30, 22), (3, 22), (10, 35):
        helpers.moveMouse(2 * x, 2 * y)
        engine.update()
        helpers.pushButton(2 * x, 2 * y)
        engine.update()
    called, click, *steps = fired
    assert (called, click.target, click.x, click.y, click.button) == ("called", button, 3, 5, zelvarine.MOUSE_LEFT)
    assert [(e.oldValue, e.newValue) for e in steps] == [(95, 100), (100, 90)]
    helpers.pushWheel(0, -2)
    engine.update()
    assert panel.scrollPosY == 100


def test_values_of_sliders(ui):
    slider, half, fired = UISlider(150), UISlider(50, 50, 100), []
    ui.engine.subscribeEvent(SliderValueChangedEvent, fired.append)
    slider.value = 120
    assert slider.value == 100 and fired == []  # no engine yet
    ui.root.addChild(slider, 0, 0)
    for value in (100, 101, -5, -7, 30.9):
        slider.value = value
    assert [(e.oldValue, e.newValue) for e in fired] == [(100, 0), (0, 30)]
    for percent, value in ((0.5, 75), (1e300, 100), (float("-inf"), 50), (0.999, 99)):
        half.percent = percent
        assert half.value == value and half.percent == pytest.approx((value - 50) / 50)


@pytest.mark.parametrize("vertical, start, along, knob", [(False, 9, 125, 6), (True, 8, 87, 8)])
def test_the_knob_follows_the_mouse(ui, vertical, start, along, knob):
    slider = sized(UISlider(50, orientation=int(vertical)), *((13, 110) if vertical else (150, 14)))
    ui.root.addChild(slider, 0, 0)
    frame = lambda place, pressed=True: ui.frame(*((2, place) if vertical else (place, 2)), pressed=pressed)
    frame(start + 1)  # beside the knob: nothing is grabbed until the next press
    frame(start + along // 2 + 2)
    assert slider.value == 50
    frame(0, False)
    frame(start + along // 2 + 2)
    for share, value in ((0, 0), (100, 100), (300, 100), (-9, 0), (25, 25)):
        frame(start + knob // 2 + -(-along * share // 100))
        assert slider.value == value
    frame(start, False)
    frame(start + 40, False)
    assert slider.value == 25


def test_scrolling(ui):
    panel = sized(UIScrollPanel(sized(UIWidget(), 50, 300)), 100, 80)
    scroll = lambda y: panel._onScroll(MouseWheelEvent(0, y))
    ui.root.addChild(panel, 0, 0)
    ui.frame(150, 5)
    assert scroll(-1) is False  # not over the panel
    ui.frame(15, 15)
    for y, moved, position in (1, False, 0), (-1, True, 50), (-9, True, 240), (-1, False, 240), (2, True, 140):
        assert scroll(y) is moved
        ui.frame(15, 15)
        assert panel.scrollPosY == position
    panel.isEnabled = False
    assert scroll(1) is False
    panel.content = taker = sized(UIScrollPanel(sized(UIWidget(), 5, 300)), 50, 300)
    ui.frame(15, 15)
    ui.frame(15, 15)
    assert scroll(-1) is True
    with pytest.raises(RecursionError):
        panel.content = panel
    assert panel.getChildren() == [taker] and panel.content is taker


def test_overridden_methods_are_looked_up_by_name(ui):
    class Everywhere(Recorder):
        _pointInRect = lambda self, *numbers: self.calls.append(numbers) or "yes"
        _setParent = lambda self, parent: (super()._setParent(parent), self.calls.append(parent))
        render = lambda self, *clip: (super().render(*clip), self.calls.append(clip))
        onClick = lambda self, event: self.calls.append(event)

    widget = Everywhere()
    ui.root.addChild(widget, 5, 6)
    ui.frame(100, 90)
    ui.renderer._onClick(CLICK)
    assert widget.drain() == [ui.root, (100, 90, 5, 6, 20, 10), (-1, -1, -1, -1), CLICK]


def test_handlers_that_change_the_tree(ui):
    class Fickle(Recorder):
        def update(self, *arguments):
            ui.root.removeAllChildren()
            ui.root.addChild(UIText("new"), 0, 0)

        _onClick = update

    for walk in ui.frame, lambda: ui.renderer._onClick(CLICK):
        ui.root.removeAllChildren()
        for _ in range(3):
            ui.root.addChild(Fickle(), 0, 0)
        walk()
        assert [type(child) for child in ui.root.getChildren()] == [UIText]


def test_roots_and_background(ui):
    old, root, leaf = ui.root, UIListContainer(), UIText("x")
    root.addChild(leaf)
    assert type(old) is UIAnchoredContainer and old.getRenderer() is ui.renderer and leaf.getRenderer() is None
    ui.renderer.widget = root
    assert old.getRenderer() is None and leaf.getRenderer() is root.getRenderer() is ui.renderer
    with pytest.raises(TypeError):
        ui.renderer.widget = None
    assert ui.renderer.getSize() == (160, 120) and ui.renderer.widget is root
    over = UIRenderer(ui.target, 0, None)
    ui.engine.ecs.addSystem(over)
    for render, word in (ui.frame, BACKGROUND), (over.render, 0xFF010203):
        ui.target.fill((1, 2, 3))
        root.isVisible = False
        render()
        assert (ui.pixels == word).all()


@pytest.mark.parametrize("make", [UIListContainer, UIPanel, UIAnchoredContainer, lambda: UIButton("x")])
def test_bad_children(ui, make):
    container = make()
    before, place = list(container.getChildren()), (0, 0) if isinstance(container, UIAnchoredContainer) else ()
    for bad, error in ((None, AttributeError), ("child", TypeError), (container, RecursionError)):
        with pytest.raises(error):
            container.addChild(bad, *place)
        assert container.getChildren() == before
    ui.renderer.widget = sized(container, 9, 9)
    container.getChildren()[:] = [container]
    for walk in ui.frame, container.render, lambda: container._onClick(CLICK):
        with pytest.raises(RecursionError):
            walk()


def test_failures_of_theme_and_clip(ui):
    text, plain = UIText("x"), UIRenderer(ui.target, 0, zelvarine.UITheme(ui.theme_file))
    text.width = text.height = 9
    with pytest.raises(EngineException) as failure:
        text.render()
    assert failure.value.msg == "Can not render a widget that is not attached to a UIRenderer object!"
    plain.widget.addChild(text, 0, 0)
    ui.engine.ecs.addSystem(plain)
    with pytest.raises(KeyError):
        plain.render()  # no font of that name
    ui.root.addChild(UIButton("x"), 0, 0)
    ui.frame()
    ui.target.fill((2, 2, 2))
    with helpers.unraisableReports() as reports:
        ui.root.render(0, 0, "wide", 5)
    assert "TypeError" in reports.getvalue() and (ui.pixels == 0xFF020202).all()
    ui.renderer.theme.widgets["button"]["normal"]["middle"] = 0
    with pytest.raises(ZeroDivisionError):
        ui.frame()
