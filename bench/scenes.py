"""The demo level, with switches for what a frame is made of."""
import functools
import os

import zelvarine as z
from shared import places

DIRECTIONS = 8  # from which a scene is seen, all around
FIELD_OF_VIEW = 60  # degrees, the camera's default
IN_VIEW = 36
RING = IN_VIEW * 360 // FIELD_OF_VIEW
NO_TEXTURE = 255


class DemoLevel(z.Level):
    def __init__(self, sky=True):
        self.sky = sky
        super().__init__(places.LEVEL)

    def _loadAssets(self):
        if not self.sky:
            del self.metadata["skytex"]
        super()._loadAssets()


class Scene:
    """A level with a renderer, seen from the place where the player starts."""

    def __init__(self, size, sky=True, walls=True, flats=True, fogs=True, flashlight=True, sprites=True, engine=None):
        self.level = DemoLevel(sky)
        self.target = z.Texture(*size)
        self.renderer = z.RaycastingRenderer(self.target, self.level)
        self.ecs = (engine or z.Engine()).ecs
        start = next(entity for entity in self.level.getEntities() if entity.id == 1)
        self.camera = self.renderer.getCamera()
        self.camera.pos.set(start.getComponent(z.PositionComponent).pos)
        self.views = [z.Vector2(0, 1) for _ in range(DIRECTIONS)]
        for i, view in enumerate(self.views):
            view.rotate(i * 360 / DIRECTIONS)
        self.ring = self._sprites_around()
        if sprites:
            self.level.syncEntitiesToEcs(self.ecs)
            for entity in self.ring:
                self.ecs.addEntity(entity)
        if flashlight:
            self.renderer._setFlashlight(z.Texture(os.path.join(places.ASSETS, "flashlight.png")))
        if not fogs:
            self.level.fogDensity = self.level.groundFogDensity = 0
        self._switch_cells(walls, flats)
        self.ecs.addSystem(self.renderer)

    def turn(self):
        """A frame in each direction."""
        for view in self.views:
            self.camera.dir.set(view)
            self.renderer.render()

    def _sprites_around(self):
        """As many sprites as put IN_VIEW of them into every view, all of them in front of the walls, large ones far
        away and small ones near. Every fourth is added as light, every third is shadeless."""
        ring = []
        for i in range(RING):
            view = z.Vector2(0, 1)
            view.rotate((i + 0.5) * 360 / RING)
            wall = self.renderer.castRay(self.camera.pos, view)
            distance = (wall - self.camera.pos).length * (0.3 + 0.1 * (i * 5 % 7))
            look = z.SpriteComponent(self.level.sprites[i % len(self.level.sprites)], i % 3 == 0,
                                     0.12 * distance * (i * 3 % 5 - 2), 0.1 * distance,
                                     z.BLENDMODE_ADD if i % 4 == 0 else z.BLENDMODE_BLEND)
            ring.append(z.Entity(-1, z.PositionComponent(self.camera.pos + view * distance), look))
        return ring

    def _switch_cells(self, walls, flats):
        level = self.level
        for x in range(level.width):
            for y in range(level.height):
                if not walls:
                    level.setBlock(z.BLOCK_EMPTY, x, y)
                    if flats:  # everywhere, also where a wall was and where the sky is
                        level.setTextureIndex((x + y) % 4, z.TEXTURE_FLOOR, x, y)
                        level.setTextureIndex((x * y) % 4, z.TEXTURE_CEILING, x, y)
                if not flats:
                    level.setTextureIndex(NO_TEXTURE, z.TEXTURE_FLOOR, x, y)
                    level.setTextureIndex(NO_TEXTURE, z.TEXTURE_CEILING, x, y)


@functools.lru_cache(maxsize=None)
def sprites_in_view():
    """In the view that has the fewest, how many sprites around the camera would each change the picture by itself."""
    scene = Scene((320, 200), sprites=False)

    def picture(view):
        scene.camera.dir.set(view)
        scene.renderer.render()
        return bytes(scene.target)

    without = [picture(view) for view in scene.views]
    seen = [0] * len(scene.views)
    for entity in scene.ring:
        scene.ecs.addEntity(entity)
        for i, view in enumerate(scene.views):
            offset = entity.getComponent(z.PositionComponent).pos - scene.camera.pos
            if abs(offset.angleToInDegrees(view)) < FIELD_OF_VIEW and picture(view) != without[i]:
                seen[i] += 1
        scene.ecs.removeEntity(entity)
    return min(seen)
