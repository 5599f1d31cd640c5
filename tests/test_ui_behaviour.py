"""Layout in numbers, answers to the mouse, scripts that override widgets, and misuse."""
import contextlib

import pytest
import zelvarine
from zelvarine import (SIZE_FIXED, SIZE_GROW, ButtonClickEvent, EngineException, MouseClickEvent, MouseWheelEvent, SliderValueChangedEvent,
                       Texture, UIAnchoredContainer, UIButton, UIImage, UIListContainer, UIPanel, UIRenderer, UIScrollPanel, UISlider,
                       UIText, UIWidget)

import helpers
from ui_reference import BACKGROUND, TILES, WIDGETS, FlatTheme, Stage, writeTheme

CLICK = MouseClickEvent(0, 0, 1)


@pytest.fixture
def ui(tmp_path):
    return Stage(tmp_path)


def sized(widget, width, height, margins=(0,), policy=SIZE_FIXED, **fields):
    widget.sizePolicyX = widget.sizePolicyY = policy
    widget.width, widget.height = width, height
    widget.setMargin(*margins)
    for name, value in fields.items():
        setattr(widget, name, value)
    return widget


def box(*arguments, **fields):
    return sized(UIWidget(), *arguments, **fields)


def record(engine, *eventTypes):
    events = []
    for eventType in eventTypes:
        engine.subscribeEvent(eventType, events.append)
    return events


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


class TestLayout:
    @pytest.mark.parametrize("method, prefix", [("setMargin", "margin"), ("setPadding", "padding")])
    def test_shorthand_of_edges(self, method, prefix):
        for widget in UIListContainer(), UIScrollPanel(UIWidget()):
            edges, setEdges = lambda: [getattr(widget, prefix + side) for side in ("Top", "Right", "Bottom", "Left")], getattr(widget, method)
            for values, expected in ((5,), [5, 5, 5, 5]), ((1, 2), [1, 2, 1, 2]), ((1, 2, 3), [1, 2, 3, 2]), ((1, 2.9, 3, 4), [1, 2, 3, 4]):
                setEdges(*values)
                assert edges() == expected
            for values in (), (1, 2, 3, 4, 5):
                with pytest.raises(ValueError) as failure:
                    setEdges(*values)
                assert str(failure.value) == "%s takes either 1, 2, 3 or 4 values. %d were given." % (method, len(values))
            with pytest.raises(TypeError):
                setEdges(7, 8, "9", 10)
            assert edges() == [7, 8, 3, 4]

    def test_places(self, ui):
        children = box(100, 7), box(31, 5, horizontalAlign=2), box(101, 5, horizontalAlign=2), box(20, 5, (0, 1), horizontalAlign=1)
        column, row = sized(UIListContainer(), 100, 9), sized(UIListContainer(), 9, 7, layout=0, paddingLeft=4)
        low, grown = box(5, 30, (2, 3), verticalAlign=2), box(0, 0, (3,), SIZE_GROW)
        for container, widgets in (column, children), (row, (grown, low)):
            for child in widgets:
                container.addChild(child)
        corner, middle = box(10, 8, (1, 3, 4, 2)), box(161, 11, (2, 0, 0, 1))
        for child, *anchor in (column, 0, 0), (row, 0, 0), (corner, 5, 6, 1, 3), (middle, 0, 0, 4, 4), (corner, 99, 99):
            ui.root.addChild(child, *anchor)  # at last one that is here already
        ui.frame()
        assert [(c._x, c._y) for c in (*children, grown, low, corner, middle)] == [
            (0, 0), (34, 7), (0, 12), (79, 17), (7, 3), (4 + 3 - 1 + 3 + 3, -11), (142, 102), (0, 56)]
        ui.root.removeChild(corner)
        ui.root.removeChild(corner)
        assert corner not in ui.root.getChildren() and corner.getParent() is ui.root
        ui.root.addChild(corner, 1, 1)
        ui.frame()
        assert (corner._x, corner._y) == (3, 2)

    def test_contents(self, ui):
        text, button, panel = UIText("a\n\nbb"), UIButton("ab"), UIScrollPanel(box(100, 300))
        panel.sizePolicyX = panel.sizePolicyY = zelvarine.SIZE_AUTO
        assert text.getRenderedTextSize() == (0, 0)
        for widget in text, button, panel:
            ui.root.addChild(widget, 10, 10)
        ui.frame()
        assert (text.width, text.height, text.color) == (30, 36, (10, 20, 30, 255))
        assert text.getRenderedTextSize() == (30, 12 + 7 + 12)  # an empty line is as high as the font's size
        label, = button.getChildren()
        assert (button.width, button.height, button.paddingTop, label._x, label._y) == (29, 20, 0, 14, 10)
        assert (panel.width, panel.height) == (50, 50)
        sized(button, 60, 41)
        ui.frame()
        assert (button.width, button.height, button.paddingTop, label._x, label._y) == (60, 41, 14, 30, 24)


class TestMouse:
    def test_a_drag_from_press_to_release(self, ui):
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

    def test_clicks_go_to_the_topmost_that_takes_them(self, ui):
        clicks, lower, panel, button = [], Recorder(), sized(UIPanel(), 60, 60), UIButton("x")
        for name, widget in ("lower", lower), ("panel", panel), ("button", button):
            widget.onClick = lambda event, name=name: clicks.append(name)
        panel.addChild(button)
        ui.root.addChild(lower, 0, 0)
        ui.root.addChild(panel, 5, 0)
        for x, y, enabled, handled in [(17, 9, True, "button"), (50, 50, True, "panel"), (17, 9, False, "button"), (8, 5, False, "lower"),
                                       (50, 50, False, None)]:
            panel.isEnabled = enabled
            ui.frame(x, y)
            event = MouseClickEvent(x, y, 1)
            ui.renderer._onClick(event)
            assert (event.isAlreadyHandled, clicks) == (handled is not None, [handled] * (handled is not None))
            clicks.clear()

    def test_button_events(self, ui):
        button, fired, called = UIButton("x"), record(ui.engine, ButtonClickEvent, MouseClickEvent), []
        button.onClick = lambda event: called.append((event, list(fired)))
        ui.root.addChild(button, 10, 10)
        ui.frame(12, 12)
        assert button._onClick(MouseClickEvent(12, 15, 3)) is True
        event, = fired
        assert called == [(event, [])] and (event.target, event.x, event.y, event.button) == (button, 12, 15, 3)
        assert button._onClick(MouseClickEvent(90, 90, 1)) is False  # hovered, but the click is elsewhere
        button.isEnabled = False
        assert button._onClick(MouseClickEvent(12, 15, 1)) is False and len(fired) == 1

    def test_through_a_real_engine(self, engine, tmp_path):
        """SDL's events and mouse on a window of twice the picture's size."""
        renderer = UIRenderer(Texture(64, 48), 1, FlatTheme(writeTheme(tmp_path)))
        engine.ecs.addSystem(renderer)
        engine.ecs.removeSystem(renderer)
        assert engine._eventSubscribers[MouseClickEvent] == engine._eventSubscribers[MouseWheelEvent] == []
        engine.ecs.addSystem(renderer)
        engine.setWindowSize((128, 96))
        button, slider, fired = UIButton("x"), UISlider(95), record(engine, ButtonClickEvent, SliderValueChangedEvent)
        panel = sized(UIScrollPanel(box(5, 300)), 30, 20)
        for widget, y in (button, 0), (slider, 20), (panel, 30):
            renderer.widget.addChild(widget, 2, y)
        engine.update()
        end = slider.width + 1
        for x, y in (3, 5), (end, 22), (end, 22), (30, 22), (3, 22), (10, 35):
            helpers.moveMouse(2 * x, 2 * y)
            engine.update()
            helpers.pushButton(2 * x, 2 * y)
            engine.update()
        first, *steps = fired
        assert (first.target, first.x, first.y, steps[0].target) == (button, 3, 5, slider)
        assert [(e.oldValue, e.newValue) for e in steps] == [(95, 100), (100, 90)]
        helpers.pushWheel(0, -2)
        engine.update()
        assert panel.scrollPosY == 100
        quitter = Recorder()
        quitter.update = lambda *arguments: engine.quit()
        renderer.widget.addChild(quitter, 0, 0)
        with pytest.raises(EngineException):
            engine.update()
            engine.update()


class TestSliders:
    def test_values(self, ui):
        slider, half, fired = UISlider(150), UISlider(50, 50, 100), record(ui.engine, SliderValueChangedEvent)
        slider.value = 120
        assert slider.value == 100 and fired == []  # no engine yet
        ui.root.addChild(slider, 0, 0)
        for value in (100, 101, -5, -7, 30.9):
            slider.value = value
        assert [(e.oldValue, e.newValue) for e in fired] == [(100, 0), (0, 30)]
        for percent, value in ((0.5, 75), (1e300, 100), (float("-inf"), 50), (0.999, 99)):
            half.percent = percent
            assert half.value == value and half.percent == pytest.approx((value - 50) / 50)
        with pytest.raises(ValueError):
            half.percent = float("nan")
        slider.__init__(3, 3, 3)
        with helpers.unraisableReports() as reports:
            assert slider.percent == 0.0
        assert "ZeroDivisionError: float division" in reports.getvalue()

    @pytest.mark.parametrize("vertical, start, along", [(False, 9, 150 - 9 - 10 - 6), (True, 8, 110 - 8 - 7 - 8)])
    def test_the_knob_follows_the_mouse(self, ui, vertical, start, along):
        slider, knob = sized(UISlider(50, orientation=int(vertical)), *((13, 110) if vertical else (150, 14))), 8 if vertical else 6
        fired = record(ui.engine, SliderValueChangedEvent)
        ui.root.addChild(slider, 0, 0)
        frame = lambda position, pressed=True: ui.frame(*((2, position) if vertical else (position, 2)), pressed=pressed)
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

    def test_scrolling(self, ui):
        panel, scroll = sized(UIScrollPanel(box(50, 300)), 100, 80), lambda y: panel._onScroll(MouseWheelEvent(0, y))
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
        panel.content = taker = sized(UIScrollPanel(box(5, 300)), 50, 300)
        ui.frame(15, 15)
        ui.frame(15, 15)
        assert scroll(-1) is True and ui.root._onScroll(MouseWheelEvent(0, 0)) is None
        for bad, error in ((None, AttributeError), (5, TypeError), (panel, RecursionError)):
            with pytest.raises(error):
                panel.content = bad
        assert panel.getChildren() == [taker] and panel.content is taker
        panel.removeAllChildren()
        with pytest.raises(IndexError):
            panel.content


class TestOverrides:
    def test_methods_are_looked_up_by_name(self, ui):
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
        widget.isInside = lambda x, y: widget.calls.append((x, y))
        ui.frame(7, 8)
        assert widget.drain() == [(7, 8), (-1, -1, -1, -1)] and widget.isHovered is False

    def test_attributes_and_text(self, ui):
        class Text(UIText):
            setText = lambda self, text: super().setText(text.upper())
            getText = lambda self: "<%s>" % super().getText()

        class Hovered(UIButton):
            isHovered = property(lambda self: True)

        text, button, face = Text("abc"), Hovered("x"), WIDGETS["button"]["hover"]
        assert text.text == "<ABC>" and (setattr(text, "text", "d"), text.text)[1] == "<D>"
        ui.root.addChild(button, 0, 0)
        ui.frame(99, 99)
        assert ui.pixels[3, 1] == TILES[face["y"] + 3, face["x"] + 1]

    def test_handlers_that_change_the_tree(self, ui):
        class Fickle(Recorder):
            def update(self, *arguments):
                ui.root.removeAllChildren()
                ui.root.addChild(UIText("new"), 0, 0)

            _onClick = update

        for walk in ui.frame, lambda: ui.renderer._onClick(CLICK):
            for _ in range(3):
                ui.root.addChild(Fickle(), 0, 0)
            walk()
            assert [type(child) for child in ui.root.getChildren()] == [UIText]
            ui.root.removeAllChildren()


def test_roots_and_background(ui):
    old, root, child, leaf = ui.root, UIListContainer(), UIAnchoredContainer(), UIText("x")
    child.addChild(leaf, 0, 0)
    root.addChild(child)
    assert type(old) is UIAnchoredContainer and old.getRenderer() is ui.renderer and leaf.getRenderer() is None
    ui.renderer.widget = root
    assert old.getRenderer() is None and leaf.getRenderer() is root.getRenderer() is ui.renderer
    for bad in (None, "root"):
        with pytest.raises(TypeError):
            ui.renderer.widget = bad
    assert ui.renderer.getSize() == (160, 120) and ui.renderer.widget is root
    ui.engine.ecs.addEntity(zelvarine.Entity())
    assert ui.renderer.entities == []
    over = UIRenderer(ui.target, 0, None)
    with pytest.raises(AttributeError):
        over.render()  # no engine
    ui.engine.ecs.addSystem(over)
    for render, word in (ui.frame, BACKGROUND), (over.render, 0xFF010203):
        ui.target.fill((1, 2, 3))
        root.isVisible = False
        render()
        assert (ui.pixels == word).all()


class TestMisuse:
    @pytest.mark.parametrize("make", [UIListContainer, UIPanel, UIAnchoredContainer, lambda: UIButton("x")])
    def test_bad_children(self, ui, make):
        container = make()
        before, place = list(container.getChildren()), (0, 0) if isinstance(container, UIAnchoredContainer) else ()
        for bad, error in ((None, AttributeError), ("child", TypeError), (container, RecursionError)):
            with pytest.raises(error):
                container.addChild(bad, *place)
            assert container.getChildren() == before
        ui.renderer.widget = sized(container, 9, 9)
        for bad, error in ((5, TypeError), (None, TypeError), (container, RecursionError)):
            container.getChildren()[:] = [bad]
            for walk in ui.frame, container.render, lambda: container.update(0, 0, 0), lambda: container._onClick(CLICK):
                with pytest.raises(error):
                    walk()

    def test_a_visible_widget_needs_a_renderer(self):
        for widget in UIWidget(), UIListContainer(), UIPanel(), UIText("x"), UIImage(Texture(1, 1)), UISlider(3), UIButton("x"):
            widget.width = widget.height = 9
            with pytest.raises(EngineException) as failure:
                widget.render()
            assert failure.value.msg == "Can not render a widget that is not attached to a UIRenderer object!"
            widget.isVisible = False
            widget.render()
        assert UIScrollPanel(UIWidget()).render() is None

    def test_a_clip_that_is_no_number_hides_the_widget(self, ui):
        ui.root.addChild(UIButton("x"), 0, 0)
        ui.frame()
        ui.target.fill((2, 2, 2))
        with helpers.unraisableReports() as reports:
            ui.root.render(0, 0, "wide", 5)
        assert "TypeError" in reports.getvalue() and (ui.pixels == 0xFF020202).all()

    def test_failures_of_theme_and_text(self, ui):
        text, button = UIText("kept", (1, 2, 3)), ui.renderer.theme.widgets["button"]["normal"]
        for bad in (lambda: UIText(5), lambda: UIButton(None), lambda: setattr(text, "text", b"bytes")):
            with pytest.raises(TypeError):
                bad()
        assert text.text == "kept"
        plain = UIRenderer(ui.target, 0, zelvarine.UITheme(ui.themeFile))
        plain.widget.addChild(text, 0, 0)
        ui.engine.ecs.addSystem(plain)
        with pytest.raises(KeyError):
            plain.render()  # no font of that name
        ui.root.addChild(UIButton("x"), 0, 0)
        ui.frame()
        button["middle"] = 0
        with pytest.raises(ZeroDivisionError):
            ui.frame()
        del button["middle"]
        with pytest.raises(KeyError):
            ui.frame()

    def test_objects_that_were_never_constructed(self, ui):
        errors = contextlib.suppress(AttributeError, EngineException, LookupError, TypeError, ValueError, RuntimeError, OSError)
        for kind in [value for name, value in vars(zelvarine).items() if name.lstrip("_").startswith("UI")]:
            fresh = kind.__new__(kind)
            for name in [name for name in dir(kind) if not name.startswith("__") and callable(getattr(kind, name))]:
                for arguments in (), (None,), (1, 2, True), (1, 2, 3, 4), (fresh,), (CLICK,):
                    with errors, helpers.unraisableReports():
                        getattr(fresh, name)(*arguments)
            with errors:
                ui.renderer.widget = fresh
                ui.frame(5, 5, True)
