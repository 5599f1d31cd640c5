"""The page of the scroll panels."""

from zelvarine import UIScrollPanel, VALIGN_MIDDLE

from shared.parts import FRAME, aligned, button, column, fixed, heading, row, spaced, text

from .pages import VERSE

WIDE = 380


class Scrolling:
    """A long list, a text, and a field of buttons that moves sideways, too."""

    def __init__(self, theme):
        self.list = _scroll_panel(column(*[_line(number) for number in range(1, 101)]), 330, 500)
        self.text = _scroll_panel(text("\n\n".join([VERSE] * 4), width=WIDE - 50), WIDE, 200)
        self.field = _scroll_panel(column(*[_numbers(line) for line in range(4)]), WIDE, 106)
        arrows = row(button("to the left", lambda event: self.shift(-100)),
                     button("to the right", lambda event: self.shift(100)))
        self.widget = row(
            column(heading(theme, "A hundred rows"), self.list),
            spaced(column(heading(theme, "A text"), self.text, spaced(heading(theme, "Sideways, too"), 14, 0, 6, 0),
                          self.field, arrows), 0, 0, 0, 16))

    def shift(self, pixels):
        self.field.scrollPosX += pixels


def _scroll_panel(content, width, height):
    """The content has to be higher than the panel: for a scroll bar without a range, an error is reported."""
    widget = fixed(UIScrollPanel(content), width, height)
    widget.setPadding(FRAME)
    return widget


def _numbers(line):
    return row(*[button(str(number), width=60) for number in range(20 * line + 1, 20 * line + 21)])


def _line(number):
    name = text("row %d" % number, width=80)

    def on_click(event):
        name.text = "pressed"

    parts = [name, button("press", on_click, width=90), text("of 100", width=70)]
    return row(*[aligned(part, vertical=VALIGN_MIDDLE) for part in parts])
