"""The pages that only show: each is a function from the theme to a widget."""

import os

from zelvarine import (ALIGN_CENTER, ALIGN_LEFT, ALIGN_RIGHT, ANCHOR_BOTTOM, ANCHOR_CENTER, ANCHOR_LEFT, ANCHOR_RIGHT,
                       ANCHOR_TOP, Texture, UIAnchoredContainer, UIImage, VALIGN_BOTTOM, VALIGN_MIDDLE, VALIGN_TOP)

from shared.parts import aligned, button, column, fixed, grown, heading, panel, row, spaced, text
from shared.places import ASSETS

VERSE = """Grey stone, cold hearth, and ivy on the stair;
the bell has long forgotten how to ring.

The wardens walk, though nobody is there
to wind the clocks, or hear the fires sing."""


def sizes(theme):
    """The three policies, and lists in lists."""
    policies = panel(
        heading(theme, "Sizes"),
        text("SIZE_AUTO: as large as the label"), button("auto"),
        text("SIZE_FIXED: 200 by 30"), button("fixed", width=200, height=30),
        text("SIZE_GROW: all the room there is"), grown(button("grow")),
        text("SIZE_GROW with margins of 40 at the sides"), spaced(grown(button("grow")), 2, 40), width=380)
    cells = [row(*[button("%s%d" % (letter, number)) for number in range(1, 5)]) for letter in "ABC"]
    nested = panel(heading(theme, "Lists in lists"), *cells)
    deeper = panel(heading(theme, "Panels in panels"),
                   panel(text("outer"), panel(text("inner"), panel(text("innermost"), button("a button")))))
    return row(policies, column(nested, deeper))


def alignment(theme):
    """Where children go across the direction of their list."""
    across = panel(heading(theme, "ALIGN in a column"), width=300)
    for align, label in ((ALIGN_LEFT, "left"), (ALIGN_CENTER, "centre"), (ALIGN_RIGHT, "right")):
        # A list adds its leading padding to all alignments; the margins balance that.
        margins = (2, 2 * 14 + 2, 2, 2) if align == ALIGN_RIGHT else (2,)
        across.addChild(aligned(spaced(button(label, width=120), *margins), align))
    down = row(width=272, height=150)
    for align, label in ((VALIGN_TOP, "top"), (VALIGN_MIDDLE, "middle"), (VALIGN_BOTTOM, "bottom")):
        down.addChild(aligned(button(label), vertical=align))
    texts = column(width=272)
    for align, words in ((ALIGN_LEFT, "A text at the left,"), (ALIGN_CENTER, "one in the middle,"),
                         (ALIGN_RIGHT, "and one at the right.")):
        texts.addChild(aligned(text(words), align))
    return row(column(across, panel(heading(theme, "Texts"), texts, width=300)),
               panel(heading(theme, "VALIGN in a row"), down))


def anchors(theme):
    """A container with something at each of its anchors."""
    places = UIAnchoredContainer()
    for anchor_y, above in ((ANCHOR_TOP, "top"), (ANCHOR_CENTER, "centre"), (ANCHOR_BOTTOM, "bottom")):
        for anchor_x, beside in ((ANCHOR_LEFT, "left"), (ANCHOR_CENTER, "centre"), (ANCHOR_RIGHT, "right")):
            places.addChild(button("%s %s" % (above, beside), width=140), 0, 0, anchor_x, anchor_y)
    for x, y, anchor_x, anchor_y in ((60, 60, ANCHOR_LEFT, ANCHOR_TOP), (60, 60, ANCHOR_RIGHT, ANCHOR_TOP),
                                     (60, 60, ANCHOR_LEFT, ANCHOR_BOTTOM), (60, 60, ANCHOR_RIGHT, ANCHOR_BOTTOM),
                                     (0, 80, ANCHOR_CENTER, ANCHOR_CENTER), (0, -80, ANCHOR_CENTER, ANCHOR_CENTER)):
        places.addChild(spaced(panel(text("%d, %d from there" % (x, y))), 0), x, y, anchor_x, anchor_y)
    return panel(heading(theme, "Anchors"), fixed(places, 692, 492))


def texts(theme):
    """Several lines, colors, and what happens to text that has too little room."""
    lines = panel(heading(theme, "Several lines"), text(VERSE, width=340))
    colors = panel(heading(theme, "Colors"))
    for color, words in (((230, 90, 70), "red"), ((120, 200, 120), "green"), ((120, 160, 240), "blue"),
                         ((255, 255, 255, 120), "white, half there"), (None, "the color of the theme")):
        colors.addChild(text(words, color))
    cut = panel(heading(theme, "Cut off at 120 pixels"), text("A text that does not fit its widget", width=120),
                width=320)
    alphabet = panel(heading(theme, "Letters beyond ASCII"), text("Ünïcödé, αβγ, Жук, «…»"),
                     width=320)
    return row(column(lines, cut), column(colors, alphabet))


def pictures(theme):
    """Pictures in their own size and stretched, and with more and less of them there."""
    sheet = Texture(os.path.join(ASSETS, "sprites", "tree.png"))
    stretched = row(*[spaced(UIImage(sheet, width, height), 4)
                      for width, height in ((None, None), (160, 160), (160, 60), (40, 160))])
    faded = row()
    for alpha in (255, 192, 128, 64, 16):
        picture = spaced(UIImage(sheet, 96, 96), 4)
        picture.alpha = alpha
        faded.addChild(column(picture, aligned(text("alpha %d" % alpha), ALIGN_CENTER)))
    return column(panel(heading(theme, "Stretched"), stretched), panel(heading(theme, "Transparent"), faded))
