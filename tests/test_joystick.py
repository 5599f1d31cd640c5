"""Joysticks, played by SDL's virtual devices."""
import pytest

import helpers
from zelvarine import Engine, Event, Joystick, JoystickAddedEvent


@pytest.fixture
def device():
    with helpers.VirtualJoystick(axes=3, buttons=5) as device:
        yield device


def test_plugged_in_and_out(engine, device, capsys):
    events = []
    engine.subscribeEvent(JoystickAddedEvent, events.append)
    engine.update()
    joystick, = engine.joysticks
    assert [e.joystick for e in events] == [joystick] and isinstance(events[0], Event)
    assert (joystick.axes, joystick.buttons) == (3, 5) and joystick.name
    engine.joysticks.clear()
    device.unplug()
    engine.update()
    assert capsys.readouterr().out == "Joystick removed\n"
    assert engine.joysticks == Engine._joysticks == [joystick]
    assert (joystick.axes, joystick.getAxis(0), joystick.isButtonPressed(0)) == (3, 0.0, False)
    with helpers.VirtualJoystick(1, 1):
        pass  # unplugged before the event is seen
    engine.update()
    assert engine.joysticks == [joystick]


def test_axes_and_buttons(engine, device):
    engine.update()
    joystick, = engine.joysticks
    for raw, expected in {-32768: -1.0, 32767: 32767 / 32768, 0: 0.0}.items():
        device.setAxis(1, raw)
        engine.update()
        assert [joystick.getAxis(axis) for axis in range(3)] == [0.0, expected, 0.0]
    for pressed in (True, False):
        device.setButton(4, pressed)
        engine.update()
        assert [joystick.isButtonPressed(button) for button in range(5)] == [False] * 4 + [pressed]
    for outside in (-1, 3, 5, 2 ** 31 - 1, -2 ** 31):
        assert joystick.getAxis(outside) == 0.0 and joystick.isButtonPressed(outside) is False


def test_each_event_opens_the_device_of_the_highest_index(engine):
    with helpers.VirtualJoystick(1, 1), helpers.VirtualJoystick(2, 2):
        engine.update()
        assert [j.axes for j in engine.joysticks] == [2, 2]


def test_joystick_without_a_device():
    joystick = Joystick("pad", 2, 10)
    assert str(joystick) == "Joystick\n    name:    pad\n    axes:    2\n    buttons: 10\n"
    assert joystick.getAxis(0) == 0.0 and joystick.isButtonPressed(0) is False
