"""What menus consist of."""

from zelvarine import LIST_LAYOUT_HORIZONTAL, UIButton, UIListContainer, VALIGN_MIDDLE

from shared.parts import aligned, fixed, slider, spaced, text

WIDTH = 200
LABEL = 64  # width of what stands before a slider


class MenuButton(UIButton):
    """Looks hovered while it is chosen, wherever the mouse is."""

    is_chosen = False

    def __init__(self, label, press, width=WIDTH, frame=None):
        super().__init__(label)
        fixed(spaced(self, 2), width)
        self.press = press
        self.onClick = lambda event: press()
        self._frame = frame

    @property
    def isHovered(self):
        return self.is_chosen

    def isInside(self, mouseX, mouseY):
        """What is scrolled out of its frame cannot be reached."""
        return super().isInside(mouseX, mouseY) and (self._frame is None or self._frame.isInside(mouseX, mouseY))

    def change(self, direction):
        pass


class MenuSlider(UIListContainer):
    """A slider after a label, which shines while it is chosen."""

    def __init__(self, label, value, highest, theme):
        super().__init__()
        self.layout = LIST_LAYOUT_HORIZONTAL
        self._colors = {False: theme.getColor("fontColor"), True: theme.getColor("brass")}
        self._label = aligned(text(label, width=LABEL), vertical=VALIGN_MIDDLE)
        self._step = highest // 16
        self.slider = slider(value, 0, highest, width=WIDTH - LABEL)
        self.addChild(self._label)
        self.addChild(self.slider)

    @property
    def is_chosen(self):
        return self._label.color == self._colors[True]

    @is_chosen.setter
    def is_chosen(self, chosen):
        self._label.color = self._colors[chosen]

    def press(self):
        pass

    def change(self, direction):
        self.slider.value += direction * self._step
