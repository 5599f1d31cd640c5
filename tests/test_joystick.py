"""Joysticks, played by SDL's virtual devices."""
import pytest

import helpers
from zelvarine import Engine, Event, Joystick, JoystickAddedEvent


@pytest.fixture
def device():
    with helpers.VirtualJoystick(axes=3, buttons=5) as device:
        yield device


def testPluggedIn(engine, device):
    events = []
    engine.subscribeEvent(JoystickAddedEvent, events.append)
    engine.update()
    joystick, = engine.joysticks
    assert [e.joystick for e in events] == [joystick] and isinstance(events[0], Event)
    assert (joystick.axes, joystick.buttons) == (3, 5) and isinstance(joystick.name, str) and joystick.name
    engine.joysticks.clear()
    assert engine.joysticks == Engine._joysticks == [joystick]


def testAxesAndButtons(engine, device):
    engine.update()
    joystick, = engine.joysticks
    values = {-32768: -1.0, 32767: 32767 / 32768, 16384: 0.5, 0: 0.0}
    for raw, expected in values.items():
        device.setAxis(1, raw)
        engine.update()
        assert [joystick.getAxis(axis) for axis in range(3)] == [0.0, expected, 0.0]
    for pressed in (True, False):
        device.setButton(4, pressed)
        engine.update()
        assert [joystick.isButtonPressed(button) for button in range(5)] == [False] * 4 + [pressed]
    for outside in (-1, 3, 5, 2 ** 31 - 1, -2 ** 31):
        assert joystick.getAxis(outside) == 0.0 and joystick.isButtonPressed(outside) is False


def testTwoDevicesAtTheStart(engine):
    """Each event opens the device of the highest index."""
    with helpers.VirtualJoystick(1, 1), helpers.VirtualJoystick(2, 2):
        engine.update()
        assert [j.axes for j in engine.joysticks] == [2, 2]


def testUnplugged(engine, device, capsys):
    engine.update()
    joystick, = engine.joysticks
    device.setAxis(0, 16384)
    engine.update()
    device.unplug()
    engine.update()
    assert capsys.readouterr().out == "Joystick removed\n"
    assert engine.joysticks == [joystick] and joystick.axes == 3
    assert isinstance(joystick.getAxis(0), float) and joystick.isButtonPressed(0) is False


def testGoneBeforeTheEventIsSeen(engine, device, capsys):
    device.unplug()
    engine.update()
    assert engine.joysticks == [] and capsys.readouterr().out == "Joystick removed\n"


def testWithoutDevice():
    joystick = Joystick("pad", 2, 10)
    assert str(joystick) == "Joystick\n    name:    pad\n    axes:    2\n    buttons: 10\n"
    assert joystick.getAxis(0) == 0.0 and joystick.isButtonPressed(0) is False
    assert "name:    None" in str(Joystick.__new__(Joystick))


def testAfterQuit():
    result = helpers.runScript("""
import helpers, zelvarine
engine = zelvarine.Engine()
engine.init("t", (8, 8))
device = helpers.VirtualJoystick(2, 2)
engine.update()
joystick, = engine.joysticks
device.setAxis(0, 16384), engine.update()
assert joystick.getAxis(0) == 0.5
engine.quit()
assert joystick.getAxis(0) == 0.0 and not joystick.isButtonPressed(0) and joystick.axes == 2
engine.init("t", (8, 8))
with helpers.VirtualJoystick(3, 3) as device:
    engine.update()
    assert joystick.getAxis(0) == 0.0 and [j.axes for j in engine.joysticks] == [2, 3]
""")
    assert (result.returncode, result.stderr) == (0, "")
