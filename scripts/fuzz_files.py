"""Damaged files for fuzz.py: `use(kind, number)` damages a small file as the number tells, loads it and uses it."""

import glob
import io
import json
import os
import random
import re
import struct
import wave
import zlib

import zelvarine as z

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
LEVEL = {
    "width": 6, "height": 5, "textures": ["png"], "skytex": "png", "fogDensity": 9, "fogColor": [1, 2, 3],
    "sprites": [{"texture": "png", "xFrames": 2, "yFrames": 2, "animations": {
        "walk": {"frames": 2, "oscillate": True, "speed": 1.0, "startFrame": 0, "directions": 2}, "stand": {"frames": 1}}}],
    "entities": [{"id": 1, "position": {"x": 2.5, "y": 2.5}, "velocity": {"x": 1, "y": 0, "friction": 1.0},
                  "rotation": {"x": 1, "y": 0}, "collision": {"radius": 0.3, "hasFlags": ["fire"]}, "other": {"x": 1},
                  "sprite": {"sprite": 0, "scale": 1.0, "zOffset": 0.3, "shadeless": True, "currentAnimation": "stand"}},
                 {"position": {"x": 3.5, "y": 1.5}, "sprite": {"sprite": 0}}]}
JUNK = ["null", "true", "0", "-1", "255", "2147483648", "-1e300", "NaN", '""', '"\\u0000"', '"%s"' % ("x" * 300), "[]", "[[]]", "{}"]
WORDS = [b"\xff\xff\xff\xff", b"\x7f\xff\xff\xff", b"\xff\xff\xff\x7f", b"\0\0\0\1", b"\1\0\0\0", b"\0\0\0\0"]


def png(color_type, extra, row):
    chunks = [(b"IHDR", struct.pack(">IIBBBBB", 8, 8, 8, color_type, 0, 0, 0))] + extra
    chunks += [(b"IDAT", zlib.compress(row * 8)), (b"IEND", b"")]
    return mended(b"\x89PNG\r\n\x1a\n" + b"".join(struct.pack(">I", len(data)) + name + data + bytes(4) for name, data in chunks))


def mended(data):
    """A PNG file with the checksums of its chunks put right, so that the rest of it is looked at."""
    result, start = bytearray(data), 8
    while start + 12 <= len(data):
        end = start + 8 + struct.unpack(">I", data[start:start + 4])[0]
        result[end:end + 4] = struct.pack(">I", zlib.crc32(data[start + 4:end]))[:len(data[end:end + 4])]
        start = end + 4
    return bytes(result)


def wav():
    file = io.BytesIO()
    with wave.open(file, "wb") as sound:
        sound.setparams((2, 2, 22050, 0, "NONE", ""))
        sound.writeframes(bytes(range(256)) * 4)
    return file.getvalue()


def contents(*path):
    with open(os.path.join(ROOT, *path), "rb") as file:
        return file.read()


def samples():
    font = min(glob.glob("/usr/share/fonts/truetype/*/*.ttf"), key=os.path.getsize)
    theme = json.loads(contents("examples", "assets", "widgets", "theme.json").decode())
    theme["tileset"] = os.path.join(ROOT, "examples", "assets", "widgets", "tileset.png")
    for each in theme["fonts"].values():
        each["file"] = font
    return {
        "png": png(6, [], b"\0" + bytes(range(32))),
        "palette": png(3, [(b"PLTE", bytes(range(48))), (b"tRNS", b"\0\x80")], b"\1" + bytes(range(8))),
        "bmp": b"BM" + struct.pack("<IIIIiiHHIIiiII", 86, 0, 54, 40, 4, 2, 1, 32, 0, 32, 0, 0, 0, 0) + bytes(range(32)),
        "gif": b"GIF89a\3\0\3\0\x91\0\0" + bytes(range(12)) + b",\0\0\0\0\3\0\3\0\0\2\4\x84\x8f\x19\x05\0;",
        "wav": wav(),
        "aiff": b"FORM\0\0\1\x2eAIFFCOMM\0\0\0\x12\0\1\0\0\0\x80\0\x10\x40\x0d\xac\x44" + bytes(6) + b"SSND\0\0\1\x08" + bytes(264),
        "ogg": contents("tests", "data", "tone.ogg"), "ttf": contents(font), "lvl": bytes([1, 0, 1, 0, 0, 0, 0] * 30),
        "lvl.json": json.dumps(LEVEL).encode(), "theme.json": json.dumps(theme).encode()}


def damaged(kind, rng):
    if kind.endswith(".json") and rng.random() < 0.8:
        parts = re.split(r'("[^"]*"|[\d.]+|true|\[[^\[]*?\])', SAMPLES[kind].decode())
        for _ in range(rng.choice((1, 1, 2, 4))):
            parts[rng.randrange(1, len(parts), 2)] = rng.choice(JUNK)
        return "".join(parts).encode()
    data = bytearray(SAMPLES[kind])
    for _ in range(rng.choice((1, 1, 2, 5))):
        start = rng.randrange(rng.choice((32, 128, len(data) + 1)))  # headers are where damage does most
        end = start + rng.choice((1, 2, 4, 16, 300))
        way = rng.randrange(5)
        if way == 0:
            del data[start + rng.randrange(40):]
        elif way == 1:
            data[start:start] = data[start:end]
        elif way == 2:
            del data[start:end]
        elif way == 3:
            data[start:start + 4] = rng.choice(WORDS)
        else:
            data[start:start + 1] = bytes([rng.randrange(256)])
    return mended(data) if kind in ("png", "palette") and rng.random() < 0.8 else bytes(data)


def use(kind, number):
    rng = random.Random(number)
    level = ("lvl", "lvl.json") if kind.startswith("lvl") else ()
    for name in ("png", kind) + level:
        with open(name, "wb") as file:
            file.write(damaged(kind, rng) if name == kind else SAMPLES[name])
    USES[kind](level[0] if level else kind, rng)


def show(path, rng):
    ENGINE.setWindowIcon(path)
    texture = z.Texture(path)
    texture.saveFile("saved.png")
    RENDERER._setFlashlight(texture)
    RENDERER.render()


def play(path, rng):
    attempt(lambda: z.Sound(path).loop(1))
    z.Music(path).loop(rng.choice((-1, 0, 1)))


def write(path, rng):
    z.Font(path, rng.choice((1, 9, 24))).renderLines(["The quick", "brown \u00e4\u20ac\U0001f600"], (1, 2, 3))


def walk(path, rng):
    level = z.Level(path)
    ecs, renderer = z.Engine().ecs, z.RaycastingRenderer(z.Texture(16, 12), level)
    ecs.addSystem(renderer)
    ecs.addSystem(z.MovementSystem(level))
    attempt(level.syncEntitiesToEcs, ecs)
    attempt(ecs.update, 0.1)
    attempt(renderer.getEntityAtScreenCoords, rng.randrange(16), rng.randrange(12))
    attempt(level.syncEntitiesFromEcs, ecs)
    level.saveFile("saved.lvl")
    z.Level("saved.lvl")


def dress(path, rng):
    renderer = z.UIRenderer(z.Texture(80, 60), True, z.UITheme(path))
    for widget in z.UIButton("a"), z.UIText("b"), z.UISlider(5), z.UIScrollPanel(z.UIPanel()):
        renderer.widget.addChild(widget, 1, 1)
        attempt(renderer.render)


def attempt(action, *args):
    try:
        action(*args)
    except Exception:
        pass


USES = {"png": show, "palette": show, "bmp": show, "gif": show, "wav": play, "aiff": play, "ogg": play, "ttf": write,
        "lvl": walk, "lvl.json": walk, "theme.json": dress}
SAMPLES = samples()
ENGINE = z.Engine()
ENGINE.init("fuzz", (16, 12))
RENDERER = z.RaycastingRenderer(z.Texture(16, 12), z.Level())
