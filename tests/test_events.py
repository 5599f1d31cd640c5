"""Subscribing and firing, and the input step: what SDL's events become."""
import pytest

import helpers
import zelvarine
from zelvarine import Engine, Event, KeyEvent, MouseClickEvent, MouseWheelEvent


class OwnEvent(Event):
    pass


def record(engine, eventType):
    """A list that all events of a type are added to."""
    events = []
    engine.subscribeEvent(eventType, events.append)
    return events


def test_handlers_of_the_exact_type_are_called_in_order():
    engine, calls = Engine(), []
    first, second = lambda event: calls.append((1, event)), lambda event: calls.append((2, event))
    for handler in (first, second, first):
        engine.subscribeEvent(OwnEvent, handler)
    base, event = record(engine, Event), OwnEvent()
    engine.fireEvent(event)
    assert calls == [(1, event), (2, event), (1, event)] and base == [] and event.isAlreadyHandled is False
    engine.fireEvent(event, evtType=Event)
    assert len(calls) == 3 and base == [event]
    for eventType, handler in ((OwnEvent, first), (OwnEvent, print), (KeyEvent, first)):
        engine.unsubscribeEvent(eventType, handler)
    assert Engine._eventSubscribers == {OwnEvent: [second, first], Event: [base.append]}


def test_the_list_of_handlers_is_walked_live():
    engine, calls = Engine(), []

    def leaving(event):
        calls.append("leaving")
        engine.unsubscribeEvent(OwnEvent, leaving)
        engine.subscribeEvent(OwnEvent, lambda event: calls.append("late"))

    engine.subscribeEvent(OwnEvent, leaving)
    engine.subscribeEvent(OwnEvent, lambda event: calls.append("skipped"))
    engine.fireEvent(OwnEvent())
    assert calls == ["leaving", "late"]


@pytest.mark.parametrize("scancode", [224, 225, 226, 228, 229, 230])  # Ctrl, Shift, Alt, on the left and on the right
def test_keys_and_modifiers(engine, scancode):
    engine.init("t", (8, 8), killWithEscapeKey=False)
    events, others = record(engine, KeyEvent), record(engine, KeyEvent)
    helpers.pushKey(zelvarine.KEY_A)
    helpers.pushKey(zelvarine.KEY_A, repeat=True)
    helpers.pushKey(zelvarine.KEY_A, down=False)
    helpers.pushKey(zelvarine.KEY_ESCAPE)
    held = helpers.sdl.SDL_GetKeyboardState(None)
    held[scancode] = 1
    engine.update()
    pressed = engine.isKeyPressed(zelvarine.KEY_LCTRL)
    held[scancode] = 0
    assert pressed == (scancode == 224)
    assert [e.key for e in events] == [zelvarine.KEY_A, zelvarine.KEY_A, zelvarine.KEY_ESCAPE] and engine.isRunning()
    event = events[0]
    assert event is others[0]  # one event for all handlers
    assert [event.isCtrlPressed, event.isShiftPressed, event.isAltPressed] == [scancode % 4 == i for i in range(3)]
    assert engine.getKeyName(zelvarine.KEY_ESCAPE) == "Escape"


def test_handler_that_raises(engine):
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
    engine.subscribeEvent(MouseClickEvent, int)  # raises without a line of Python
    helpers.pushButton(1, 1)
    with helpers.unraisableReports() as reports:
        engine.update()
    assert "Traceback" in reports.getvalue() and "in test_handler_that_raises" in reports.getvalue()
    assert "TypeError: int() argument must be" in reports.getvalue()


@pytest.mark.parametrize("windowSize, click, expected", [
    ((128, 96), (100, 50), (50, 25)), ((128, 96), (-3, 99), (-1, 49)), ((100, 48), (99, 47), (63, 47)),
    ((32, 48), (2 ** 31 - 1, 5), (2 ** 31 - 1, 5)),
])
def test_mouse(engine, windowSize, click, expected):
    clicks, turns = ([record(engine, eventType) for _ in range(2)] for eventType in (MouseClickEvent, MouseWheelEvent))
    engine.setWindowSize(windowSize)
    helpers.pushButton(3, 3, down=True)
    helpers.pushButton(*click, button=zelvarine.MOUSE_RIGHT)
    helpers.pushWheel(-1, 2)
    helpers.pushMotion(3, 0)
    helpers.pushMotion(0, 4)
    engine.update()
    assert engine.getMouseDist() == (0, 4)  # the last motion of the frame, not the sum
    for (first,), (second,) in (clicks, turns):
        assert first is not second  # each handler has an event of its own
    assert [(e.x, e.y, e.button) for e, in clicks] == [expected + (zelvarine.MOUSE_RIGHT,)] * 2
    assert [(e.x, e.y) for e, in turns] == [(-1, 2)] * 2  # not scaled
    engine.update()
    assert engine.getMouseDist() == (0, 0)
    helpers.moveMouse(30, 20)
    assert engine.getMousePos() == (30 * 64 // windowSize[0], 20 * 48 // windowSize[1])
