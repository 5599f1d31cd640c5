"""Finds out what is drawn at a pixel of the picture."""

import math
import os

from zelvarine import PositionComponent, SpriteComponent

NEAR = 0.08  # how far, in shares of its size, one may click beside a sprite


def name_at(renderer, x, y):
    """The name of what the last frame shows there: that of the file with its picture, without folder and ending."""
    entity = _entity_at(renderer, x, y)
    texture = entity.getComponent(SpriteComponent).sprite.texture if entity else _texture_at(renderer, x, y)
    return os.path.splitext(os.path.basename(texture.filename))[0] if texture else "sky"


def _texture_at(renderer, x, y):
    face, column, row = renderer.getWorldCellByScreenCoords(x, y)
    level = renderer.level
    is_inside = 0 <= column < level.width and 0 <= row < level.height
    return level.getTexture(face, column, row) if is_inside else None


def _entity_at(renderer, x, y):
    """The nearest entity whose sprite is drawn over the pixel, or None.

    RaycastingRenderer.getEntityAtScreenCoords is quicker, and takes every sprite for a square as high as a wall: then
    the wall around a small gem would be taken for the gem.
    """
    camera = renderer.getCamera()
    width, height = renderer.getTarget().getSize()
    wall = _distance_of_wall(renderer, x)
    for entity in reversed(renderer.entities):  # the frame has sorted them, far ones first
        away = entity.getComponent(PositionComponent).pos - camera.pos
        depth = camera.dir * away
        if not 0 < depth < wall:
            continue
        sprite = entity.getComponent(SpriteComponent)
        aside = camera.dir.x * away.y - camera.dir.y * away.x
        half_wall = height / camera.ratio / depth
        middle_x = width / 2 + 0.75 * width * aside / depth
        middle_y = height / 2 + camera.pitch + half_wall * sprite.zOffset
        size = 2 * half_wall * sprite.scale
        column, row = (x - middle_x) / size + 0.5, (y - middle_y) / size + 0.5
        if any(_is_solid(sprite.sprite, column + beside, row) for beside in (-NEAR, 0, NEAR)):
            return entity
    return None


def _is_solid(sprite, column, row):
    """Whether a sprite lets little through at a place, in shares of its size. All views are much like the first."""
    if not (0 <= column < 1 and 0 <= row < 1):
        return False
    pixel = memoryview(sprite.texture)[int(row * sprite.height), int(column * sprite.width)]
    return pixel >> 24 > 127


def _distance_of_wall(renderer, x):
    """How far the wall is in a column of the picture."""
    camera = renderer.getCamera()
    ray = camera.dir.copy()
    ray.rotate(camera.fov * (x / renderer.getTarget().width - 0.5))
    hit = renderer.castRay(camera.pos, ray)
    return (hit - camera.pos).length if hit else math.inf
