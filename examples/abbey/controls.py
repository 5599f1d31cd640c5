"""Keyboard and mouse, turned into where the player walks and looks."""

from zelvarine import (AbstractSystem, KEY_A, KEY_D, KEY_DOWN, KEY_LEFT, KEY_LSHIFT, KEY_RIGHT, KEY_S, KEY_UP, KEY_W,
                       RotationComponent, Vector2, VelocityComponent)

WALK, RUN = 2.4, 4.2  # cells in a second
TURN = 140.0  # degrees in a second, with the arrow keys
MOUSE_TURN = 0.18  # degrees for a step of the mouse


class Controls(AbstractSystem):
    def __init__(self, engine, player, camera, height):
        super().__init__()
        self.engine = engine
        self.camera = camera
        self.steepest = height // 4
        self.velocity = player.getComponent(VelocityComponent).velocity
        self.facing = player.getComponent(RotationComponent).dir

    def update(self, timeStep):
        self._look(timeStep)
        self._walk()

    def _look(self, timeStep):
        turn = self._axis([KEY_LEFT], [KEY_RIGHT]) * TURN * timeStep
        if self.engine.isMouseCaptured():
            right, down = self.engine.getMouseDist()
            turn += right * MOUSE_TURN
            pitch = self.camera.pitch - down
            self.camera.pitch = max(-self.steepest, min(self.steepest, pitch))
        self.facing.rotate(turn)

    def _walk(self):
        forward = self._axis([KEY_S, KEY_DOWN], [KEY_W, KEY_UP])
        aside = self._axis([KEY_A], [KEY_D])
        way = Vector2(self.facing.x * forward - self.facing.y * aside, self.facing.y * forward + self.facing.x * aside)
        way.normalize()  # so that walking slantwise is not faster
        way.scale(RUN if self.engine.isKeyPressed(KEY_LSHIFT) else WALK)
        self.velocity.set(way)

    def _axis(self, lower, higher):
        """-1, 0 or 1, by which of two groups of keys is held."""
        held = [any(self.engine.isKeyPressed(key) for key in keys) for keys in (lower, higher)]
        return held[1] - held[0]
