"""The keys on the screen."""

from shared.parts import column, row, spaced, text

from .keys import KEYS

ROOM_FOR_THREE = 500  # pixels; on narrower pictures there are two columns
GAP = 20


def key_table(theme, width):
    columns = 3 if width >= ROOM_FOR_THREE else 2
    length = -(-len(KEYS) // columns)
    table = row()
    for start in range(0, len(KEYS), length):
        part = KEYS[start:start + length]
        table.addChild(spaced(column(*[text(key, theme.getColor("brass")) for key, _ in part]), 0, GAP // 2, 0, 0))
        table.addChild(spaced(column(*[text(meaning) for _, meaning in part]), 0, GAP, 0, 0))
    spaced(table.getChildren()[-1], 0)
    return table
