"""How widgets answer the mouse, scripts that override them, and misuse."""
import contextlib
import gc

import pytest
import zelvarine
from zelvarine import (SIZE_FIXED, ButtonClickEvent, Engine, EngineException, MouseClickEvent, MouseWheelEvent, SliderValueChangedEvent,
                       Texture, UIAnchoredContainer, UIButton, UIImage, UIListContainer, UIPanel, UIRenderer, UIScrollPanel, UISlider,
                       UIText, UIWidget)

import helpers
from ui_reference import BACKGROUND, FlatTheme, Stage, writeTheme


@pytest.fixture
def ui(tmp_path):
    return Stage(tmp_path)


def sized(widget, width, height):
    widget.sizePolicyX = widget.sizePolicyY = SIZE_FIXED
    widget.width, widget.height = width, height
    return widget


def record(engine, *eventTypes):
    events = []
    for eventType in eventTypes:
        engine.subscribeEvent(eventType, events.append)
    return events


class Recorder(UIWidget):
    """A widget of 20 by 10 that notes its drags."""

    def __init__(self):
        super().__init__()
        sized(self, 20, 10)
        self.calls = []

    def onDragStart(self, *arguments):
        self.calls.append(("start",) + arguments)

    def onDrag(self, *arguments):
        self.calls.append(("drag",) + arguments)

    def onDragEnd(self, *arguments):
        self.calls.append(("end",) + arguments)

    def drain(self):
        calls, self.calls = self.calls, []
        return calls


class TestMouse:
    def test_edges_are_outside(self, ui):
        widget = Recorder()
        ui.root.addChild(widget, 5, 6)
        for x, y, inside in [(5, 8, False), (6, 6, False), (6, 7, True), (24, 15, True), (25, 8, False), (6, 16, False), (5.5, 6.5, True)]:
            ui.frame(int(x), int(y))
            assert widget.isInside(x, y) is inside
            assert widget.isHovered is widget.isInside(int(x), int(y))

    def test_a_drag_from_press_to_release(self, ui):
        widget = Recorder()
        widget.isVisible = widget.isEnabled = False
        ui.root.addChild(widget, 5, 6)
        ui.frame(100, 100, True)
        assert widget.drain() == []
        ui.frame(10, 10, True)  # it is enough that the button is held
        assert widget.drain() == [("start", 10, 10), ("drag", 10, 10, 0, 0)]
        ui.frame(150, -7, True)
        ui.frame(8, 12, True)
        assert widget.drain() == [("drag", 150, -7, 140, -17), ("drag", 8, 12, -2, 2)]
        ui.frame(99, 98)
        ui.frame(99, 98)
        assert widget.drain() == [("end", 99, 98)]

    def test_clicks_reach_the_topmost_widget_that_takes_them(self, ui):
        taken, lower, upper = [], Recorder(), Recorder()
        lower.onClick = lambda event: taken.append("lower")
        ui.root.addChild(lower, 0, 0)
        ui.root.addChild(upper, 10, 0)
        ui.frame(12, 5)

        def click():
            event = MouseClickEvent(999, 999, 1)  # what counts is the hover of the last frame
            ui.renderer._onClick(event)
            return event.isAlreadyHandled, taken[:]

        assert click() == (True, [])
        upper.isEnabled = False
        assert click() == (True, ["lower"])
        ui.frame(99, 99)
        assert click() == (False, ["lower"])

    def test_a_panel_takes_what_its_children_leave(self, ui):
        clicks, panel, button = [], sized(UIPanel(), 60, 60), UIButton("x")
        panel.onClick, button.onClick = lambda e: clicks.append("panel"), lambda e: clicks.append("button")
        panel.addChild(button)
        ui.root.addChild(panel, 0, 0)
        for x, y, enabled, result in [(12, 12, True, True), (50, 50, True, True), (12, 12, False, True), (50, 50, False, False)]:
            panel.isEnabled = enabled
            ui.frame(x, y)
            assert panel._onClick(MouseClickEvent(x, y, 1)) is result
        assert clicks == ["button", "panel", "button"]

    def test_button_events(self, ui):
        button, fired, called = UIButton("x"), record(ui.engine, ButtonClickEvent, MouseClickEvent), []
        button.onClick = lambda event: called.append((event, list(fired)))
        assert button._onClick(MouseClickEvent(0, 0, 1)) is False
        ui.root.addChild(button, 10, 10)
        ui.frame(12, 12)
        assert button._onClick(MouseClickEvent(12, 15, 3)) is True
        event, = fired
        assert called == [(event, [])] and type(event) is ButtonClickEvent
        assert (event.target, event.x, event.y, event.button) == (button, 12, 15, 3)
        assert button._onClick(MouseClickEvent(90, 90, 1)) is False  # hovered, but the click is elsewhere
        button.isEnabled = False
        assert button._onClick(MouseClickEvent(12, 15, 1)) is False and len(fired) == 1

    def test_through_a_real_engine(self, engine, tmp_path):
        """SDL's events and mouse on a window of twice the picture's size."""
        target = Texture(64, 48)
        renderer = UIRenderer(target, 1, FlatTheme(writeTheme(tmp_path)))
        engine.ecs.addSystem(renderer)
        engine.ecs.removeSystem(renderer)
        assert engine._eventSubscribers[MouseClickEvent] == engine._eventSubscribers[MouseWheelEvent] == []
        engine.ecs.addSystem(renderer)
        engine.setWindowSize((128, 96))
        button, slider, fired = UIButton("x"), UISlider(20), record(engine, ButtonClickEvent, SliderValueChangedEvent)
        panel = sized(UIScrollPanel(sized(UIWidget(), 5, 300)), 30, 20)
        for widget, y in (button, 0), (slider, 20), (panel, 30):
            renderer.widget.addChild(widget, 2, y)
        engine.update()
        for x, y in (3, 5), (slider.width, 22), (3, 60):
            helpers.moveMouse(2 * x, 2 * y)
            engine.update()
            helpers.pushButton(2 * x, 2 * y)
            engine.update()
        assert [(type(e), e.target) for e in fired] == [(ButtonClickEvent, button), (SliderValueChangedEvent, slider)]
        assert (fired[0].x, fired[0].y, fired[1].oldValue, fired[1].newValue) == (3, 5, 20, 30)
        helpers.moveMouse(20, 70)
        engine.update()
        helpers.pushWheel(0, -2)
        engine.update()
        assert panel.scrollPosY == 100
        engine.quit()


class TestSlider:
    def test_values(self, ui):
        slider, fired = UISlider(150), record(ui.engine, SliderValueChangedEvent)
        slider.value = 120
        assert slider.value == 100 and fired == []  # no engine yet
        ui.root.addChild(slider, 0, 0)
        for value in (100, 101, -5, -7, 30.9):
            slider.value = value
        assert [(e.oldValue, e.newValue) for e in fired] == [(100, 0), (0, 30)]
        assert slider.percent == pytest.approx(0.3)
        half = UISlider(50, 50, 100)
        assert half.percent == 0
        half.percent = 0.5
        assert (half.value, half.percent) == (75, 0.5)
        for percent, value in ((1e300, 100), (float("-inf"), 50), (0.999, 99)):
            half.percent = percent
            assert half.value == value
        with pytest.raises(ValueError):
            half.percent = float("nan")

    @pytest.mark.parametrize("vertical, start, along", [(False, 9, 150 - 9 - 10 - 6), (True, 8, 110 - 8 - 7 - 8)])
    def test_the_knob_follows_the_mouse(self, ui, vertical, start, along):
        slider, knob = UISlider(50, orientation=int(vertical)), 8 if vertical else 6
        sized(slider, *((13, 110) if vertical else (150, 14)))
        fired = record(ui.engine, SliderValueChangedEvent)
        ui.root.addChild(slider, 0, 0)

        def frame(position, pressed=True):
            ui.frame(*((2, position) if vertical else (position, 2)), pressed=pressed)

        frame(start + 1, False)
        frame(start + 1)  # beside the knob: nothing is grabbed until the next press
        frame(start + along // 2 + 2)
        assert slider.value == 50
        frame(0, False)
        frame(start + along // 2 + 2)
        for share, value in ((0, 0), (100, 100), (300, 100), (300, 100), (-9, 0), (25, 25)):
            frame(start + knob // 2 + -(-along * share // 100))
            assert slider.value == value
        frame(start, False)
        frame(start + 40, False)
        assert slider.value == 25 and [e.newValue for e in fired[-4:]] == [0, 100, 0, 25]

    def test_buttons_step_by_ten(self, ui):
        slider, fired = UISlider(95), record(ui.engine, SliderValueChangedEvent)
        ui.root.addChild(slider, 0, 0)
        for x, value in ((slider.width, 95), (30, 95), (30, 95)):
            ui.frame(x, 5)
            slider._onClick(MouseClickEvent(x, 5, 1))
        ui.frame(slider.width - 1, 5)
        for _ in range(2):
            assert slider._onClick(MouseClickEvent(0, 0, 1)) is True
        ui.frame(1, 5)
        slider._onClick(MouseClickEvent(0, 0, 1))
        assert [(e.oldValue, e.newValue) for e in fired] == [(95, 100), (100, 90)]

    def test_equal_bounds_are_reported(self, ui):
        slider = UISlider(3, 3, 3)
        with helpers.unraisableReports() as reports:
            assert slider.percent == 0.0
        assert "ZeroDivisionError: float division" in reports.getvalue() and "zelvarine.UISlider._getPercent" in reports.getvalue()
        slider.percent = 0.7
        assert slider.value == 3


def test_scrolling(ui):
    panel, content = UIScrollPanel(sized(UIWidget(), 50, 300)), None
    sized(panel, 100, 80)
    ui.root.addChild(panel, 0, 0)
    scroll = lambda y: panel._onScroll(MouseWheelEvent(0, y))
    ui.frame(150, 5)
    assert scroll(-1) is False  # not over the panel
    ui.frame(5, 5)
    assert [(scroll(y), ui.frame(5, 5), panel.scrollPosY)[::2] for y in (1, -1, -9, -1, 2)] == [
        (False, 0), (True, 50), (True, 240), (False, 240), (True, 140)]
    panel.isEnabled = False
    assert scroll(1) is False
    panel.content = taker = sized(UIScrollPanel(sized(UIWidget(), 5, 300)), 50, 300)
    ui.frame(15, 15)
    ui.frame(15, 15)
    assert scroll(-1) is True and ui.root._onScroll(MouseWheelEvent(0, 0)) is None
    assert panel.getChildren() == [taker] and panel.content is taker
    for bad, error in ((None, AttributeError), (5, TypeError)):
        with pytest.raises(error):
            panel.content = bad
    assert panel.content is taker
    panel.removeAllChildren()
    with pytest.raises(IndexError):
        panel.content


class TestOverrides:
    def test_methods_are_looked_up_by_name(self, ui):
        class Everywhere(Recorder):
            def _pointInRect(self, *numbers):
                self.calls.append(numbers)
                return "yes"

            def _setParent(self, parent):
                super()._setParent(parent)
                self.calls.append(parent)

            def render(self, *clip):
                super().render(*clip)
                self.calls.append(clip)

            def onClick(self, event):
                self.calls.append(event)

        widget, event = Everywhere(), MouseClickEvent(1, 2, 3)
        ui.root.addChild(widget, 5, 6)
        ui.frame(100, 90, True)
        ui.renderer._onClick(event)
        assert widget.drain() == [ui.root, (100, 90, 5, 6, 20, 10), ("start", 100, 90), ("drag", 100, 90, 0, 0), (-1, -1, -1, -1), event]
        widget.isInside, widget.onDragEnd = lambda x, y: widget.calls.append((x, y)), lambda x, y: widget.calls.append("own end")
        ui.frame(7, 8)
        assert widget.drain() == [(7, 8), "own end", (-1, -1, -1, -1)] and widget.isHovered is False

    def test_attributes_and_text(self, ui):
        class Text(UIText):
            def setText(self, text):
                super().setText(text.upper())

            def getText(self):
                return "<%s>" % super().getText()

        class Hovered(UIButton):
            isHovered = property(lambda self: True)

            def isInside(self, x, y):
                return True

        text, button = Text("abc"), Hovered("x")
        assert text.text == "<ABC>" and (setattr(text, "text", "d"), text.text)[1] == "<D>"
        ui.root.addChild(button, 0, 0)
        ui.frame(99, 99)
        assert hex(ui.pixels[3, 1])[:6] == "0xff02" and button._onClick(MouseClickEvent(99, 99, 1)) is True

    def test_handlers_that_change_the_tree(self, ui):
        class Fickle(Recorder):
            def update(self, *arguments):
                ui.root.removeAllChildren()
                ui.root.addChild(UIText("new"), 0, 0)
                gc.collect()

            _onClick = update

        for walk in (ui.frame, lambda: ui.renderer._onClick(MouseClickEvent(0, 0, 0))):
            ui.root.removeAllChildren()
            for _ in range(3):
                ui.root.addChild(Fickle(), 0, 0)
            walk()
            assert [type(child) for child in ui.root.getChildren()] == [UIText]


class TestRenderer:
    def test_roots(self, ui):
        old, root = ui.root, UIListContainer()
        child, leaf = UIAnchoredContainer(), UIText("x")
        child.addChild(leaf, 0, 0)
        root.addChild(child)
        assert type(old) is UIAnchoredContainer and old.getRenderer() is ui.renderer and leaf.getRenderer() is None
        ui.renderer.widget = root
        assert old.getRenderer() is None and leaf.getRenderer() is child.getRenderer() is ui.renderer.widget.getRenderer() is ui.renderer
        for bad in (None, "root"):
            with pytest.raises(TypeError):
                ui.renderer.widget = bad
        assert ui.renderer.getSize() == (160, 120) and ui.renderer.widget is root

    def test_background(self, ui):
        ui.engine.ecs.addEntity(zelvarine.Entity())
        assert ui.renderer.entities == []
        over = UIRenderer(ui.target, 0, None)
        ui.target.fill((1, 2, 3))
        with pytest.raises(AttributeError):
            over.render()  # no engine
        ui.engine.ecs.addSystem(over)
        over.render()
        assert (ui.pixels == 0xFF010203).all()
        ui.frame()
        assert (ui.pixels == BACKGROUND).all()


class TestMisuse:
    @pytest.mark.parametrize("make", [UIListContainer, UIPanel, UIAnchoredContainer, lambda: UIButton("x")])
    def test_bad_children(self, ui, make):
        container, event = make(), MouseClickEvent(0, 0, 0)
        before, place = list(container.getChildren()), (0, 0) if isinstance(container, UIAnchoredContainer) else ()
        for bad, error in ((None, AttributeError), ("child", TypeError), (container, RecursionError)):
            with pytest.raises(error):
                container.addChild(bad, *place)
            assert container.getChildren() == before
        ui.renderer.widget = sized(container, 9, 9)
        walks = ui.frame, container.render, lambda: container.update(0, 0, 0), lambda: container._onClick(event)
        for bad, error in ((5, TypeError), (None, TypeError), (container, RecursionError)):
            container.getChildren()[:] = [bad]
            for walk in walks:
                with pytest.raises(error):
                    walk()

    def test_a_visible_widget_needs_a_renderer(self):
        message = 'EngineException("Can not render a widget that is not attached to a UIRenderer object!")'
        for widget in (UIWidget(), UIListContainer(), UIPanel(), UIText("x"), UIImage(Texture(1, 1)), UISlider(3), UIButton("x")):
            widget.width = widget.height = 9
            with pytest.raises(EngineException) as failure:
                widget.render()
            assert str(failure.value) == message
            widget.isVisible = False
            widget.render()
        assert UIScrollPanel(UIWidget()).render() is None

    def test_a_clip_that_is_no_number_hides_the_widget(self, ui):
        image = UIImage(Texture(9, 9))
        image.texture.fill((1, 1, 1))
        ui.root.addChild(image, 0, 0)
        ui.frame()
        ui.target.fill((2, 2, 2))
        with helpers.unraisableReports() as reports:
            ui.root.render(0, 0, "wide", 5)
        assert "zelvarine.UIWidget._getClippedRect" in reports.getvalue() and (ui.pixels == 0xFF020202).all()

    def test_failures_of_theme_and_text(self, ui, tmp_path):
        with pytest.raises(TypeError):
            UIText(5)
        text = UIText("kept", (1, 2, 3))
        for bad in (None, b"bytes"):
            with pytest.raises(TypeError):
                text.text = bad
        assert text.text == "kept"
        button = ui.renderer.theme.widgets["button"]["normal"]
        ui.root.addChild(UIButton("x"), 0, 0)
        ui.frame()
        button["middle"] = 0
        with pytest.raises(ZeroDivisionError):
            ui.frame()
        del button["middle"]
        with pytest.raises(KeyError):
            ui.frame()
        plain = UIRenderer(ui.target, 0, zelvarine.UITheme(ui.themeFile))
        plain.widget.addChild(UIText("x"), 0, 0)
        ui.engine.ecs.addSystem(plain)
        with pytest.raises(KeyError):
            plain.render()  # no font of that name

    def test_handlers_may_quit(self, engine, tmp_path):
        class Quitter(Recorder):
            def update(self, *arguments):
                engine.quit()

        renderer = UIRenderer(Texture(64, 48), 1, FlatTheme(writeTheme(tmp_path)))
        renderer.widget.addChild(Quitter(), 0, 0)
        renderer.widget.addChild(UIButton("x"), 0, 0)
        engine.ecs.addSystem(renderer)
        with pytest.raises(EngineException):
            engine.update()
            engine.update()

    def test_objects_that_were_never_constructed(self, ui):
        kinds = [t for n, t in vars(zelvarine).items() if isinstance(t, type) and n.lstrip("_").startswith("UI") or n.endswith("Event")]
        for kind in kinds:
            fresh = kind.__new__(kind)
            for name in dir(kind):
                if name.startswith("__") or not callable(getattr(kind, name)):
                    continue
                value = getattr(fresh, name)
                for arguments in (), (None,), (1, 2, True), (1, 2, 3, 4), (fresh,), (MouseClickEvent(1, 2, 3),), ("x",):
                    with contextlib.suppress(AttributeError, EngineException, LookupError, TypeError, ValueError, RuntimeError, OSError):
                        value(*arguments)
            if issubclass(kind, UIWidget):
                with contextlib.suppress(AttributeError, IndexError):
                    ui.renderer.widget = kind.__new__(kind)
                    ui.frame(5, 5, True)
