"""Subscribing and firing, and the input step: what SDL's events become."""
import pytest

import helpers
import zelvarine
from zelvarine import Engine, Event, FullscreenEvent, KeyEvent, MouseClickEvent, MouseWheelEvent


class OwnEvent(Event):
    pass


def record(engine, eventType):
    """A list that all events of a type are added to."""
    events = []
    engine.subscribeEvent(eventType, events.append)
    return events


class TestClasses:
    @pytest.mark.parametrize("eventType, names, values", [
        (KeyEvent, "key isCtrlPressed isAltPressed isShiftPressed", (97, True, False, True)),
        (MouseClickEvent, "x y button", (1, -2, 3)),
        (MouseWheelEvent, "x y", (-1, 2)),
        (FullscreenEvent, "oldValue newValue", (False, True)),
    ])
    def testFields(self, eventType, names, values):
        names = names.split()
        event = eventType(**dict(zip(names, values)))
        assert isinstance(event, Event) and event.isAlreadyHandled is False
        assert tuple(getattr(event, name) for name in names) == values
        for name in names:
            with pytest.raises(AttributeError):
                setattr(event, name, values[0])
        event.isAlreadyHandled = 1
        assert event.isAlreadyHandled is True


class TestFiring:
    def testOrderAndRepetition(self):
        engine, calls = Engine(), []
        first, second = lambda event: calls.append(1), lambda event: calls.append(2)
        for handler in (first, second, first):
            engine.subscribeEvent(OwnEvent, handler)
        engine.fireEvent(OwnEvent())
        engine.unsubscribeEvent(OwnEvent, first)
        engine.unsubscribeEvent(OwnEvent, print)
        engine.unsubscribeEvent(KeyEvent, first)
        engine.fireEvent(OwnEvent())
        assert calls == [1, 2, 1, 2, 1] and Engine._eventSubscribers == {OwnEvent: [second, first]}

    def testExactType(self):
        engine = Engine()
        base, own = record(engine, Event), record(engine, OwnEvent)
        event = OwnEvent()
        engine.fireEvent(event)
        engine.fireEvent(event, Event)
        engine.fireEvent(event, evtType=KeyEvent)
        assert base == own == [event]

    def testTheListIsWalkedLive(self):
        engine, calls = Engine(), []

        def leaving(event):
            calls.append("leaving")
            engine.unsubscribeEvent(OwnEvent, leaving)
            engine.subscribeEvent(OwnEvent, lambda event: calls.append("late"))

        engine.subscribeEvent(OwnEvent, leaving)
        engine.subscribeEvent(OwnEvent, lambda event: calls.append("skipped"))
        engine.fireEvent(OwnEvent())
        assert calls == ["leaving", "late"]

    def testHandlerThatFiresForever(self):
        engine = Engine()
        engine.subscribeEvent(OwnEvent, engine.fireEvent)
        with pytest.raises(RecursionError):
            engine.fireEvent(OwnEvent())


class TestKeys:
    @pytest.mark.parametrize("held, expected", [
        ([], (False, False, False)), ([helpers.LEFT_CTRL], (True, False, False)), ([helpers.RIGHT_CTRL], (True, False, False)),
        ([helpers.LEFT_ALT, helpers.LEFT_SHIFT], (False, True, True)),
    ])
    def testModifiers(self, engine, held, expected):
        events, others = record(engine, KeyEvent), record(engine, KeyEvent)
        with helpers.heldKeys(*held):
            helpers.pushKey(zelvarine.KEY_A)
            helpers.pushKey(zelvarine.KEY_A, repeat=True)
            helpers.pushKey(zelvarine.KEY_A, down=False)
            engine.update()
        assert [e.key for e in events] == [zelvarine.KEY_A] * 2 and events[0] is others[0]
        assert (events[0].isCtrlPressed, events[0].isAltPressed, events[0].isShiftPressed) == expected

    @pytest.mark.parametrize("kills", [True, False])
    def testEscape(self, kills):
        engine = Engine()
        engine.init("t", (8, 8), killWithEscapeKey=kills)
        events = record(engine, KeyEvent)
        helpers.pushKey(zelvarine.KEY_ESCAPE)
        engine.update()
        assert len(events) == 1 and engine.isRunning() is not kills

    def testHandlerThatRaises(self, engine):
        """Ends the input of this frame; the events behind it come in the next one."""
        engine.subscribeEvent(KeyEvent, lambda event: 1 / 0)
        rest, clicks, frames = record(engine, KeyEvent), record(engine, MouseClickEvent), []
        engine.addTask(lambda step, done: frames.append(1))
        helpers.pushKey(zelvarine.KEY_A)
        helpers.pushButton(1, 1)
        with helpers.unraisableReports() as reports:
            engine.update()
        assert (rest, clicks, frames) == ([], [], [1])
        assert "zelvarine.Engine._updateInput" in reports.getvalue() and "ZeroDivisionError" in reports.getvalue()
        engine.update()
        assert len(clicks) == 1

    def testFiredThroughAnOverride(self):
        own, fired = type("Own", (Engine,), {"fireEvent": lambda self, evt: fired.append(type(evt))})(), []
        own.init("t", (8, 8))
        helpers.pushKey(zelvarine.KEY_A)
        own.update()
        own.toggleFullscreen()
        assert fired == [KeyEvent, FullscreenEvent]

    def testNamesAndState(self):
        engine = Engine()
        for key in (zelvarine.KEY_A, zelvarine.KEY_F1, zelvarine.KEY_LCTRL, -1, 2 ** 31 - 1, 0):
            assert engine.getKeyName(key) == helpers.sdl.SDL_GetKeyName(key).decode("utf-8")
        assert engine.getKeyName(zelvarine.KEY_UNKNOWN) == ""
        with helpers.heldKeys(helpers.LEFT_CTRL):
            state = engine.isKeyPressed(zelvarine.KEY_LCTRL)
            assert (type(state), state) == (int, 1)
        assert [engine.isKeyPressed(key) for key in (zelvarine.KEY_LCTRL, -1, 2 ** 31 - 1)] == [0, 0, 0]


class TestMouse:
    def testClickIsTheRelease(self, engine):
        first, second = record(engine, MouseClickEvent), record(engine, MouseClickEvent)
        helpers.pushButton(5, 6, zelvarine.MOUSE_RIGHT, down=True)
        helpers.pushButton(5, 6, zelvarine.MOUSE_RIGHT)
        engine.update()
        assert [(e.x, e.y, e.button) for e in first + second] == [(5, 6, zelvarine.MOUSE_RIGHT)] * 2
        assert first[0] is not second[0]  # each handler has an event of its own

    @pytest.mark.parametrize("windowSize, click, expected", [
        ((128, 96), (100, 50), (50, 25)), ((128, 96), (-3, 99), (-1, 49)), ((100, 48), (99, 47), (63, 47)),
        ((32, 48), (2 ** 31 - 1, 5), (2 ** 31 - 1, 5)),
    ])
    def testPositionsAreThoseOfThePicture(self, engine, windowSize, click, expected):
        events = record(engine, MouseClickEvent)
        engine.setWindowSize(windowSize)
        helpers.pushButton(*click)
        engine.update()
        assert [(e.x, e.y) for e in events] == [expected]

    def testPolling(self, engine):
        engine.setWindowSize((128, 96))
        helpers.moveMouse(100, 50)
        assert engine.getMousePos() == (50, 25)
        for button in (zelvarine.MOUSE_LEFT, 0, -1, 9, 33, 2 ** 31 - 1):
            assert engine.isMouseButtonPressed(button) is False

    def testMotionOfTheFrame(self, engine):
        helpers.pushMotion(3, 0)
        helpers.pushMotion(0, 4)
        engine.update()
        assert engine.getMouseDist() == (0, 4)  # the last motion, not the sum
        engine.update()
        assert engine.getMouseDist() == (0, 0)

    def testWheel(self, engine):
        first, second = record(engine, MouseWheelEvent), record(engine, MouseWheelEvent)
        helpers.pushWheel(-1, 2)
        engine.update()
        assert [(e.x, e.y) for e in first + second] == [(-1, 2)] * 2 and first[0] is not second[0]
