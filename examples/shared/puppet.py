"""A keyboard and a mouse that a script holds, to play where nobody sits at the screen."""

from zelvarine import Engine, KeyEvent, MOUSE_LEFT, MouseClickEvent, MouseWheelEvent


class PuppetEngine(Engine):
    """An engine whose keys and mouse do what the methods below tell. Each of them runs the frames that it needs."""

    def __init__(self):
        super().__init__()
        self._mouse = (-1, -1)
        self._held = False

    def getMousePos(self):
        return self._mouse

    def isMouseButtonPressed(self, button):
        return self._held and button == MOUSE_LEFT

    def press(self, *keys):
        for key in keys:
            self.fireEvent(KeyEvent(key, False, False, False))
            self.update()

    def move(self, x, y):
        self._mouse = (x, y)
        self.update()

    def drag(self, x, y, to_x, to_y, steps=8):
        self.move(x, y)
        self._held = True
        self.update()
        for step in range(1, steps + 1):
            self.move(x + (to_x - x) * step // steps, y + (to_y - y) * step // steps)
        self._release()

    def click(self, x, y):
        self.drag(x, y, x, y, steps=1)

    def click_on(self, widget):
        self.click(*middle(widget))

    def turn_wheel(self, x, y, steps):
        """Positive steps turn towards the top."""
        self.move(x, y)
        self.fireEvent(MouseWheelEvent(0, steps))
        self.update()
        self.update()  # a scroll panel moves its content in the frame after the one that tells it to

    def _release(self):
        self._held = False
        self.fireEvent(MouseClickEvent(self._mouse[0], self._mouse[1], MOUSE_LEFT))
        self.update()


def middle(widget):
    return widget._x + widget.width // 2, widget._y + widget.height // 2
