"""Says what is at a pixel of the picture."""

import os

from zelvarine import (SpriteComponent, TEXTURE_CEILING, TEXTURE_EAST, TEXTURE_FLOOR, TEXTURE_NORTH, TEXTURE_SOUTH,
                       TEXTURE_WEST)

FACES = {TEXTURE_FLOOR: "floor", TEXTURE_CEILING: "ceiling", TEXTURE_NORTH: "north face", TEXTURE_EAST: "east face",
         TEXTURE_SOUTH: "south face", TEXTURE_WEST: "west face"}


def describe(renderer, x, y):
    """What the last frame shows at a pixel, in words: the face and its cell, and the entity before it, if any."""
    face, column, row = renderer.getWorldCellByScreenCoords(x, y)
    words = "%s of cell (%d, %d)" % (FACES.get(face, "nothing"), column, row)
    if face in (TEXTURE_FLOOR, TEXTURE_CEILING):
        words += " at (%.2f, %.2f)" % renderer.getWorldPosByScreenCoords(x, y)[1:]
        if not _is_covered(renderer.level, face, column, row):
            words = "sky" if face == TEXTURE_CEILING else "nothing"
    entity = renderer.getEntityAtScreenCoords(x, y)
    return words if entity is None else "%s %d before the %s" % (_name(entity), entity.id, words)


def _is_covered(level, face, column, row):
    return (0 <= column < level.width and 0 <= row < level.height
            and level.getTexture(face, column, row) is not None)


def _name(entity):
    """The name of the file with its picture, without folder and ending."""
    sheet = entity.getComponent(SpriteComponent).sprite.texture.filename
    return os.path.splitext(os.path.basename(sheet))[0]
