"""Subscribing and firing, and the input step: what SDL's events become."""
import ctypes

import pytest

import helpers
import zelvarine
from helpers import record
from zelvarine import Engine, Event, Joystick, JoystickAddedEvent, KeyEvent, MouseClickEvent, MouseWheelEvent

OwnEvent = type("OwnEvent", (Event,), {})


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
    engine, late = Engine(), []
    leaving = lambda event: (engine.unsubscribeEvent(OwnEvent, leaving), engine.subscribeEvent(OwnEvent, late.append))
    engine.subscribeEvent(OwnEvent, leaving)
    skipped = record(engine, OwnEvent)
    engine.fireEvent(OwnEvent())
    assert (len(late), skipped) == (1, [])


@pytest.mark.parametrize("scancode", [224, 225, 226, 228, 229, 230])  # Ctrl, Shift, Alt, on the left and on the right
def test_keys_and_modifiers(engine, scancode):
    engine.init("t", (8, 8), killWithEscapeKey=False)
    events, others = record(engine, KeyEvent), record(engine, KeyEvent)
    helpers.push_key(zelvarine.KEY_A)
    helpers.push_key(zelvarine.KEY_A, repeat=True)
    helpers.push_key(zelvarine.KEY_A, down=False)
    helpers.push_key(zelvarine.KEY_ESCAPE)
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
    engine.subscribeEvent(KeyEvent, int)  # raises without a line of Python
    rest, clicks, frames = record(engine, KeyEvent), record(engine, MouseClickEvent), []
    engine.addTask(lambda step, done: frames.append(len(clicks)))
    helpers.push_key(zelvarine.KEY_A)
    helpers.push_button(1, 1)
    with helpers.unraisable_reports() as reports:
        engine.update()
    engine.update()
    assert (rest, frames) == ([], [0, 1])
    for words in ("zelvarine.Engine._updateInput", "Traceback", "in test_handler_that_raises",
                  "TypeError: int() argument must be"):
        assert words in reports.getvalue()


@pytest.mark.parametrize("windowSize, click, expected", [
    ((128, 96), (100, 50), (50, 25)), ((128, 96), (-3, 99), (-1, 49)), ((100, 48), (99, 47), (63, 47)),
    ((32, 48), (2 ** 31 - 1, 5), (2 ** 31 - 1, 5))])
def test_mouse(engine, windowSize, click, expected):
    clicks, turns = ([record(engine, eventType) for _ in range(2)] for eventType in (MouseClickEvent, MouseWheelEvent))
    engine.setWindowSize(windowSize)
    helpers.push_button(3, 3, down=True)
    helpers.push_button(*click, button=zelvarine.MOUSE_RIGHT)
    helpers.push_wheel(-1, 2)
    helpers.push_motion(3, 0)
    helpers.push_motion(0, 4)
    engine.update()
    assert engine.getMouseDist() == (0, 4)  # the last motion of the frame, not the sum
    for (first,), (second,) in (clicks, turns):
        assert first is not second  # each handler has an event of its own
    assert [(e.x, e.y, e.button) for e, in clicks] == [expected + (zelvarine.MOUSE_RIGHT,)] * 2
    assert [(e.x, e.y) for e, in turns] == [(-1, 2)] * 2  # not scaled
    engine.update()
    assert engine.getMouseDist() == (0, 0)
    helpers.move_mouse(30, 20)
    assert engine.getMousePos() == (30 * 64 // windowSize[0], 20 * 48 // windowSize[1])


def test_joystick(engine, capsys):
    device, events = helpers.plug_in(axes=3, buttons=5), record(engine, JoystickAddedEvent)
    engine.update()
    joystick, = engine.joysticks
    assert [e.joystick for e in events] == [joystick] and joystick.name
    assert (joystick.axes, joystick.buttons) == (3, 5)
    device = ctypes.c_void_p(helpers.sdl.SDL_JoystickFromInstanceID(device))
    for raw, expected, pressed in (-32768, -1.0, True), (32767, 32767 / 32768, False), (0, 0.0, False):
        helpers.sdl.SDL_JoystickSetVirtualAxis(device, 1, ctypes.c_int16(raw))
        helpers.sdl.SDL_JoystickSetVirtualButton(device, 4, ctypes.c_uint8(pressed))
        engine.update()
        assert [joystick.getAxis(axis) for axis in range(3)] == [0.0, expected, 0.0]
        assert [joystick.isButtonPressed(button) for button in range(5)] == [False] * 4 + [pressed]
        for outside in (-1, 5, 2 ** 31 - 1, -2 ** 31):
            assert joystick.getAxis(outside) == 0.0 and joystick.isButtonPressed(outside) is False
    engine.joysticks.clear()
    helpers.unplug_all()
    helpers.plug_in(1, 1)
    helpers.unplug_all()  # before the event of the second one is seen
    engine.update()
    assert capsys.readouterr().out == "Joystick removed\n" * 2 and engine.joysticks == Engine._joysticks == [joystick]
    assert (joystick.axes, joystick.getAxis(0), joystick.isButtonPressed(0)) == (3, 0.0, False)
    helpers.plug_in(1, 1)
    helpers.plug_in(2, 2)
    engine.update()
    assert [j.axes for j in engine.joysticks] == [3, 2, 2]  # each event opens the device of the highest index
    assert str(Joystick("pad", 2, 10)) == "Joystick\n    name:    pad\n    axes:    2\n    buttons: 10\n"
