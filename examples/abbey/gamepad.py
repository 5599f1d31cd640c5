"""The sticks of a gamepad."""

from zelvarine import JoystickAddedEvent

DEAD_ZONE = 0.15  # sticks at rest are seldom exactly at 0
ASIDE, FORWARD = 0, 1  # axes of the left stick


class Gamepad:
    """The gamepad that was plugged in last. Without one, its sticks are at rest."""

    def __init__(self, engine):
        self._joystick = None
        self._turning_axis = 2
        for joystick in engine.joysticks[-1:]:
            self._use(joystick)
        engine.subscribeEvent(JoystickAddedEvent, lambda event: self._use(event.joystick))

    @property
    def aside(self):
        return self._axis(ASIDE)

    @property
    def forward(self):
        return -self._axis(FORWARD)  # a stick that is pushed away gives negative values

    @property
    def turn(self):
        return self._axis(self._turning_axis)

    def _use(self, joystick):
        self._joystick = joystick
        # Gamepads with analog triggers have the left one between the sticks.
        self._turning_axis = 3 if joystick.axes >= 5 else 2
        print("gamepad: %s" % joystick.name)

    def _axis(self, axis):
        if self._joystick is None or axis >= self._joystick.axes:
            return 0.0
        value = self._joystick.getAxis(axis)
        return value if abs(value) > DEAD_ZONE else 0.0
