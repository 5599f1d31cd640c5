"""Short ways to make widgets."""

from zelvarine import (LIST_LAYOUT_HORIZONTAL, SIZE_FIXED, SIZE_GROW, UIButton, UIListContainer, UIPanel, UISlider,
                       UIText)

FRAME = 14  # the padding of a panel, so that its content keeps clear of its rim


def text(words, color=None, width=None, height=None):
    """A text. One of several lines is measured as wide as all of its lines together, so give it a width."""
    widget = UIText(words, color)
    return fixed(widget, width, height)


def heading(theme, words):
    widget = UIText(words, theme.getColor("brass"))
    widget.setMargin(0, 0, 6, 0)
    return widget


def button(label, on_click=None, width=None, height=None):
    widget = UIButton(label)
    widget.onClick = on_click
    widget.setMargin(2)
    return fixed(widget, width, height)


def slider(value, low, high, width=None, height=None, **options):
    widget = UISlider(value, low, high, **options)
    widget.setMargin(2)
    return fixed(widget, width, height)


def panel(*children, width=None, height=None):
    widget = UIPanel()
    widget.setPadding(FRAME)
    widget.setMargin(0, 6, 6, 0)
    return fixed(_fill(widget, children), width, height)


def column(*children, width=None, height=None):
    return fixed(_fill(UIListContainer(), children), width, height)


def row(*children, width=None, height=None):
    widget = UIListContainer()
    widget.layout = LIST_LAYOUT_HORIZONTAL
    return fixed(_fill(widget, children), width, height)


def fixed(widget, width=None, height=None):
    """Gives a widget a size of its own where one is told."""
    if width is not None:
        widget.sizePolicyX, widget.width = SIZE_FIXED, width
    if height is not None:
        widget.sizePolicyY, widget.height = SIZE_FIXED, height
    return widget


def grown(widget, x=True, y=False):
    """Lets a widget take all the room that there is."""
    if x:
        widget.sizePolicyX = SIZE_GROW
    if y:
        widget.sizePolicyY = SIZE_GROW
    return widget


def spaced(widget, *margins):
    widget.setMargin(*margins)
    return widget


def aligned(widget, horizontal=None, vertical=None):
    """Says where in a list a widget goes, across the list's direction."""
    if horizontal is not None:
        widget.horizontalAlign = horizontal
    if vertical is not None:
        widget.verticalAlign = vertical
    return widget


def _fill(container, children):
    for child in children:
        container.addChild(child)
    return container
