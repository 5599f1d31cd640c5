"""A plain scene built with the real module, and the comparison of both word for word."""

import json
import os

import numpy
import zelvarine
from zelvarine import Vector2

from reference import TIME_STEP


class SteadyEngine(zelvarine.Engine):
    def getTimeStep(self):
        return TIME_STEP


def texture(image):
    """A `Texture` with the words of a plain image."""
    result = zelvarine.Texture(image.w, image.h)
    numpy.asarray(result)[:] = numpy.array(image.words, dtype=numpy.uint32).reshape(image.h, image.w)
    return result


def level(plain, folder):
    """Writes a plain level's files and loads them; its fog comes later."""
    images = {"{}.png".format(number): image for number, image in enumerate(plain.textures)}
    description = dict(width=plain.width, height=plain.height, textures=list(images))
    if plain.sky is not None:
        description["skytex"], images["sky.png"] = "sky.png", plain.sky
    for name, image in images.items():
        texture(image).saveFile(os.path.join(str(folder), name))
    path = os.path.join(str(folder), "scene.lvl")
    with open(path, "wb") as grid, open(path + ".json", "w") as header:
        grid.write(plain.cells)
        json.dump(description, header)
    return zelvarine.Level(path)


def rgb(number):
    """What a level makes the number of; the red of one beyond 32 bits is more than a byte."""
    return number >> 16, number >> 8 & 255, number & 255


def entity(sprite):
    blend = zelvarine.BLENDMODE_ADD if sprite.additive else zelvarine.BLENDMODE_BLEND
    animation = zelvarine.SpriteAnimation("walk", sprite.frame_count, sprite.oscillate, sprite.speed,
                                          sprite.start_frame, sprite.directions)
    sheet = zelvarine.Sprite(texture(sprite.sheet), sprite.x_frames, sprite.y_frames, [animation])
    component = zelvarine.SpriteComponent(sheet, sprite.shadeless, sprite.z_offset, sprite.scale, blend)
    component.animationPercentage = sprite.percentage
    result = zelvarine.Entity(-1, zelvarine.PositionComponent(Vector2(*sprite.pos)), component)
    if sprite.facing != (1.0, 0.0):     # what an entity without a rotation looks like
        result.addComponent(zelvarine.RotationComponent(Vector2(*sprite.facing)))
    return result


class World:
    """The module's objects for a scene; `play` draws a frame of both and compares everything."""

    def __init__(self, scene, folder):
        self.scene = scene
        self.target = zelvarine.Texture(scene.width, scene.height)
        self.level = level(scene.level, folder)
        self.renderer = zelvarine.RaycastingRenderer(self.target, self.level)
        self.engine = SteadyEngine()
        self.engine.ecs.addSystem(self.renderer)
        self.entities = {sprite: entity(sprite) for sprite in scene.sprites}
        for sprite in scene.sprites:
            self.engine.ecs.addEntity(self.entities[sprite])
        self.adopt()

    def adopt(self):
        """Gives the module the scene's camera, fog and flashlight."""
        scene, camera, level = self.scene, self.renderer.getCamera(), self.level
        (camera.pos.x, camera.pos.y), (camera.dir.x, camera.dir.y), *numbers = scene.camera
        camera.fov, camera.pitch, camera.ratio = numbers
        level.fogDensity, level.groundFogDensity = scene.level.fog_density, scene.level.ground_density
        level.fogColor, level.groundFogColor = rgb(scene.level.fog_color), rgb(scene.level.ground_color)
        self.renderer._setFlashlight(scene.flashlight and texture(scene.flashlight))

    def draw(self):
        """One frame of the module alone."""
        self.engine.ecs.update(TIME_STEP)

    def play(self):
        scene, camera = self.scene, self.renderer.getCamera()
        self.draw()
        scene.render()
        numpy.testing.assert_array_equal(numpy.asarray(self.target), numpy.array(scene.frame, dtype=numpy.uint32))
        assert (camera.dir.x, camera.dir.y) == scene.camera.dir
        assert self.renderer.entities == [self.entities[sprite] for sprite in scene.sprites]
        for sprite in scene.sprites:
            component = self.entities[sprite].getComponent(zelvarine.SpriteComponent)
            assert (sprite.dist, sprite.angle_to_cam, sprite.percentage, sprite.speed) == (
                component._dist, component._angleToCam, component._animationPercentage, component._animationSpeed)
