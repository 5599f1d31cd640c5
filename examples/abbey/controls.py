"""Keyboard, mouse and gamepad, turned into where the player walks and looks."""

from zelvarine import (AbstractSystem, KEY_A, KEY_D, KEY_DOWN, KEY_LEFT, KEY_LSHIFT, KEY_RIGHT, KEY_RSHIFT, KEY_S,
                       KEY_UP, KEY_W, RotationComponent, Vector2, VelocityComponent)

from .gamepad import Gamepad

WALK, RUN = 2.4, 4.2  # cells in a second
TURN = 140.0  # degrees in a second, with the arrow keys or the gamepad
MOUSE_TURN = 0.18  # degrees for a step of the mouse


class Controls(AbstractSystem):
    def __init__(self, engine):
        super().__init__()
        self._gamepad = Gamepad(engine)

    def follow(self, world):
        self._camera = world.camera
        self._steepest = world.renderer.getTarget().height // 4
        self._velocity = world.player.getComponent(VelocityComponent).velocity
        self._facing = world.player.getComponent(RotationComponent).dir

    def update(self, timeStep):
        self._look(timeStep)
        self._walk()

    def _look(self, timeStep):
        turn = (self._keys([KEY_LEFT], [KEY_RIGHT]) + self._gamepad.turn) * TURN * timeStep
        if self.getEngine().isMouseCaptured():
            right, down = self.getEngine().getMouseDist()
            turn += right * MOUSE_TURN
            pitch = self._camera.pitch - down
            self._camera.pitch = max(-self._steepest, min(self._steepest, pitch))
        self._facing.rotate(turn)

    def _walk(self):
        forward = self._keys([KEY_S, KEY_DOWN], [KEY_W, KEY_UP]) + self._gamepad.forward
        aside = self._keys([KEY_A], [KEY_D]) + self._gamepad.aside
        ahead = self._facing
        way = Vector2(ahead.x * forward - ahead.y * aside, ahead.y * forward + ahead.x * aside)
        if way.length > 1:
            way.normalize()  # so that walking slantwise is not faster
        way.scale(RUN if self._keys([], [KEY_LSHIFT, KEY_RSHIFT]) else WALK)
        self._velocity.set(way)

    def _keys(self, lower, higher):
        """-1, 0 or 1, by which of two groups of keys is held."""
        held = [any(self.getEngine().isKeyPressed(key) for key in keys) for keys in (lower, higher)]
        return held[1] - held[0]
