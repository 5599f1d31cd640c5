"""A plain scene built with the real module, and the comparison of both word for word."""

import hashlib
import json
import os

import numpy
import zelvarine
from zelvarine import Vector2


class SteadyEngine(zelvarine.Engine):
    """An engine whose frames all last the same time."""

    timeStep = 0.0

    def getTimeStep(self):
        return self.timeStep


def texture(image):
    """A `Texture` with the words of a plain image."""
    result = zelvarine.Texture(image.w, image.h)
    numpy.asarray(result)[:] = numpy.array(image.words, dtype=numpy.uint32).reshape(image.h, image.w)
    return result


def level(plain, folder):
    """Writes a plain level's files and loads them."""
    def save(name, image):
        texture(image).saveFile(os.path.join(str(folder), name))
        return name

    def rgb(word):
        return [word >> 16 & 255, word >> 8 & 255, word & 255]

    description = {
        "width": plain.width, "height": plain.height,
        "textures": [save("{}.png".format(i), t) for i, t in enumerate(plain.textures)],
        "fogDensity": plain.fog_density, "fogColor": rgb(plain.fog_color),
        "groundFogDensity": plain.ground_density, "groundFogColor": rgb(plain.ground_color)}
    if plain.sky is not None:
        description["skytex"] = save("sky.png", plain.sky)
    path = os.path.join(str(folder), "scene.lvl")
    with open(path, "wb") as grid, open(path + ".json", "w") as header:
        grid.write(plain.cells)
        json.dump(description, header)
    return zelvarine.Level(path)


def entity(sprite):
    animation = zelvarine.SpriteAnimation("walk", sprite.frame_count, sprite.oscillate, sprite.speed,
                                          sprite.start_frame, sprite.directions)
    sheet = zelvarine.Sprite(texture(sprite.sheet), sprite.x_frames, sprite.y_frames, [animation])
    component = zelvarine.SpriteComponent(
        sheet, sprite.shadeless, sprite.z_offset, sprite.scale,
        zelvarine.BLENDMODE_ADD if sprite.additive else zelvarine.BLENDMODE_BLEND)
    component.animationPercentage = sprite.percentage
    result = zelvarine.Entity(-1, zelvarine.PositionComponent(Vector2(*sprite.pos)), component)
    if sprite.facing != (1.0, 0.0):
        result.addComponent(zelvarine.RotationComponent(Vector2(*sprite.facing)))
    return result


class World:
    """The module's objects for a scene; `play` draws a frame of both and compares everything."""

    def __init__(self, scene, folder):
        self.scene = scene
        self.target = zelvarine.Texture(*scene.size)
        self.level = level(scene.level, folder)
        self.renderer = zelvarine.RaycastingRenderer(self.target, self.level)
        self.engine = SteadyEngine()
        self.engine.timeStep = scene.time_step
        self.engine.ecs.addSystem(self.renderer)
        self.entities = {sprite: entity(sprite) for sprite in scene.sprites}
        for sprite in scene.sprites:
            self.engine.ecs.addEntity(self.entities[sprite])
        if scene.flashlight is not None:
            self.renderer._setFlashlight(texture(scene.flashlight))
        self.aim(scene.camera)

    def aim(self, camera):
        """Points the cameras of both sides."""
        own = self.renderer.getCamera()
        own.pos.x, own.pos.y = camera.pos
        own.dir.x, own.dir.y = camera.dir
        own.fov, own.pitch, own.ratio = camera.fov, camera.pitch, camera.ratio
        self.scene.camera = camera

    def draw(self):
        """One frame of the module alone: its words, row by row."""
        self.engine.ecs.update(self.engine.timeStep)
        return numpy.asarray(self.target).ravel().copy()

    def play(self):
        frame, columns = self.scene.draw()
        words = self.draw()
        assert_same_words(frame, words)
        own = self.renderer.getCamera()
        assert (own.dir.x, own.dir.y) == self.scene.camera.dir
        assert self.renderer.entities == [self.entities[s] for s in self.scene.sprites]
        for sprite in self.scene.sprites:
            component = self.entities[sprite].getComponent(zelvarine.SpriteComponent)
            assert (sprite.dist, sprite.angle_to_cam, sprite.percentage, sprite.speed) == (
                component._dist, component._angleToCam,
                component._animationPercentage, component._animationSpeed)
        return frame, columns


def frame_hash(world):
    """Hash of the words in the target, the same on every machine."""
    return hashlib.sha256(numpy.asarray(world.target).astype("<u4").tobytes()).hexdigest()


def assert_same_words(frame, words):
    wrong = numpy.flatnonzero(words != numpy.array(frame.words, dtype=numpy.uint32))
    lines = ["{} at ({}, {}): expected {:08X}, got {:08X}".format(
        frame.passes[i], i % frame.width, i // frame.width, frame.words[i], int(words[i]))
        for i in wrong[:8]]
    assert not lines, "{} of {} words differ\n{}".format(len(wrong), len(words), "\n".join(lines))
