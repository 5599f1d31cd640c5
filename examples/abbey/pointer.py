"""Asking what one sees."""

from zelvarine import MOUSE_LEFT, MouseClickEvent

from .listening import Listener
from .picking import name_at
from .words import describe


class Pointer(Listener):
    """Tells what is under the mouse when it is clicked, or under the crosshair while the mouse turns the view."""

    def __init__(self, tell):
        super().__init__(MouseClickEvent)
        self._tell = tell

    def follow(self, world):
        self._renderer = world.renderer

    def hear(self, event):
        if event.button == MOUSE_LEFT:
            self._tell(describe(name_at(self._renderer, *self._place(event))))

    def _place(self, event):
        if self.getEngine().isMouseCaptured():
            width, height = self._renderer.getTarget().getSize()
            return width // 2, height // 2
        return event.x, event.y
