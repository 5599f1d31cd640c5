"""Scenes as plain data: building blocks and random ones; and the same built with the module, to compare both."""

import json
import os

import numpy
import zelvarine
from zelvarine import Vector2

from reference import NO_TEXTURE, TIME_STEP, Camera, Image, Level, Scene, Sprite


def image(w, h, word):
    """An image from a word, or from a function of x and y."""
    at = word if callable(word) else lambda x, y: word
    return Image(w, h, [at(x, y) & 0xFFFFFFFF for y in range(h) for x in range(w)])


def room(width, height, textures=(), block=1, index=0, **changes):
    """A ring of walls around empty cells, without fog; every texture index the same."""
    level = Level(width, height, bytearray([0] + [index] * 6) * (width * height), list(textures), **changes)
    for x, y in [(x, y) for x in range(width) for y in range(height) if x in (0, width - 1) or y in (0, height - 1)]:
        put(level, x, y, 0, block)
    return level


def put(level, x, y, byte, value):
    """Set one byte of a cell; byte 0 is the block."""
    level.cells[(y * level.width + x) * 7 + byte] = value


def noise(rng, w, h):
    return image(w, h, lambda x, y: rng.getrandbits(32))


def random_level(rng):
    width, height = rng.randint(6, 16), rng.randint(6, 16)
    sizes = [(rng.randint(1, 20), rng.randint(1, 20)) for _ in range(5)]
    textures = [noise(rng, *size) for size in rng.choice([sizes, sizes[:1] * 5, [(8, 16)] * 5])]
    flats = [0, 1, 2, 3, 4, 4, 5, NO_TEXTURE]       # 5 is beyond the table
    density, ring, cells = rng.choice([0.05, 0.15, 0.4]), rng.random() < 0.6, bytearray()
    for y in range(height):
        for x in range(width):
            border = ring and (x in (0, width - 1) or y in (0, height - 1))
            solid = rng.random() < (0.9 if border else density)
            cells.append(rng.choice([1, 1, 2, 3, 4, 5, 2, 3, 4, 5, 6, 200]) if solid else 0)
            cells += bytes([rng.choice(flats), rng.choice(flats)] + [rng.choice([0, 1, 2, 3, 4, 4, 5]) for _ in "NESW"])
    sky = rng.choice([None, 1, 7, 90, 360])
    return with_fog(rng, Level(width, height, cells, textures, sky and noise(rng, sky, rng.randint(1, 60))))


def fog_color(rng):
    return rng.choice([0xFF000000 | rng.getrandbits(24)] * 12 + [-5, 0x100000000])     # the last are no pixels


def with_fog(rng, level):
    return level._replace(fog_density=rng.choice([0, 3, 12, 51, 400]), fog_color=fog_color(rng),
                          ground_density=rng.choice([0, 0, -3, 9, 80]), ground_color=fog_color(rng))


def random_camera(rng, level, height):
    pos = rng.uniform(0, level.width), rng.uniform(0, level.height)
    direction = rng.gauss(0, 2), rng.gauss(0, 2)
    kind = rng.random()
    if kind < 0.15:      # exactly on grid lines and along axes and diagonals
        pos = float(rng.randint(1, level.width - 1)), rng.randrange(2, 2 * level.height) / 2
        direction = rng.choice([(1, 0), (0, -2), (-1, 0), (0, 1), (1, 1), (-3, 3), (0, 0)])
    elif kind < 0.22:    # outside the grid
        pos = rng.choice([(-0.5, 3.0), (level.width + 2.5, 1.5), (2.5, float(level.height)), (3.0, -9.0)])
    return Camera(pos, direction, rng.choice([60, 61, 90, 1, 0, 120, 359, 500, -75]),
                  rng.choice([0, 0, 20, -7, 400, -400, rng.randint(-height, height)]),
                  rng.choice([1.6, 1.6, 1.0, 0.37, 4.21, 60.0, 0.01]))


def random_sprite(rng, level, eye, additive):
    x_frames, y_frames = rng.randint(1, 4), rng.randint(1, 3)
    sheet = noise(rng, x_frames * rng.randint(1, 9), y_frames * rng.randint(1, 9) + 1)
    directions = rng.randint(1, x_frames * y_frames)
    oscillate = rng.random() < 0.5      # only these turn round when they get below 0
    pos = rng.uniform(0, level.width), rng.uniform(0, level.height)
    if rng.random() < 0.15:
        pos = eye[0] + rng.gauss(0, 0.01), eye[1] + rng.gauss(0, 0.01)
    return Sprite(pos, sheet, facing=rng.choice([(1.0, 0.0), (rng.gauss(0, 1), rng.gauss(0, 1))]),
                  x_frames=x_frames, y_frames=y_frames, frame_count=rng.randint(1, x_frames * y_frames // directions),
                  directions=directions, start_frame=rng.choice([0, 0, 1, 11]), oscillate=oscillate, additive=additive,
                  speed=rng.choice([5.0, rng.uniform(-3 if oscillate else 0, 9)]), shadeless=rng.random() < 0.25,
                  percentage=rng.choice([0.0, 0.75, 0.3, 0.99, 3.0, -2.0]), scale=rng.choice([1.0, 0.5, 2.7, 0.01]),
                  z_offset=rng.choice([0.0, 0.4, -1.3, -40.0]))


def random_scene(rng):
    level, size = random_level(rng), rng.choice([(64, 40), (97, 61), (33, 50), (80, 27), (1, 1), (2, 3)])
    camera = random_camera(rng, level, size[1])
    sprites = [random_sprite(rng, level, camera.pos, rng.random() < 0.5) for _ in range(rng.choice([0, 3, 9]))]
    if sprites:
        sprites.append(Sprite(sprites[0].pos, sprites[-1].sheet))     # two at one distance
    light = noise(rng, rng.randint(1, 40), rng.randint(1, 40)) if rng.random() < 0.4 else None
    return Scene(level, camera, size, sprites, light)


class SteadyEngine(zelvarine.Engine):
    getTimeStep = lambda self: TIME_STEP


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
    """The module's objects for a scene; `play` draws a frame of both and compares everything, word for word."""

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

    def play(self):
        scene, camera = self.scene, self.renderer.getCamera()
        self.engine.ecs.update(TIME_STEP)
        scene.render()
        numpy.testing.assert_array_equal(numpy.asarray(self.target), numpy.array(scene.frame, dtype=numpy.uint32))
        assert (camera.dir.x, camera.dir.y) == scene.camera.dir
        assert self.renderer.entities == [self.entities[sprite] for sprite in scene.sprites]
        for sprite in scene.sprites:
            component = self.entities[sprite].getComponent(zelvarine.SpriteComponent)
            assert (sprite.dist, sprite.angle_to_cam, sprite.percentage, sprite.speed) == (
                component._dist, component._angleToCam, component._animationPercentage, component._animationSpeed)
