"""Damaged files for fuzz.py: `use(kind, number)` damages a small file in the way that the number tells, loads and uses it."""

import glob
import io
import json
import os
import random
import struct
import time
import wave
import zlib

import zelvarine as z

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
JUNK = [None, True, 0, -1, 255, 2**31, -2**70, 1e300, float("nan"), "", "\0", "x" * 300, [], [[]], {}, {"x": None}]
LEVEL = {
    "width": 6, "height": 5, "textures": ["a.png"], "skytex": "a.png", "fogDensity": 9, "fogColor": [1, 2, 3],
    "sprites": [{"texture": "a.png", "xFrames": 2, "yFrames": 2, "animations": {
        "walk": {"frames": 2, "oscillate": True, "speed": 1.0, "startFrame": 0, "directions": 2}, "stand": {"frames": 1}}}],
    "entities": [{"id": 1, "position": {"x": 2.5, "y": 2.5}, "velocity": {"x": 1, "y": 0, "friction": 1.0},
                  "rotation": {"x": 1, "y": 0}, "collision": {"radius": 0.3, "hasFlags": ["fire"]}, "other": {"x": 1},
                  "sprite": {"sprite": 0, "scale": 1.0, "zOffset": 0.3, "shadeless": True, "currentAnimation": "stand"}},
                 {"position": {"x": 3.5, "y": 1.5}, "sprite": {"sprite": 0}}]}


def png(depth, color_type, extra, row):
    def chunk(name, data):
        return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))
    header = chunk(b"IHDR", struct.pack(">IIBBBBB", 8, 8, depth, color_type, 0, 0, 0))
    return b"\x89PNG\r\n\x1a\n" + header + extra(chunk) + chunk(b"IDAT", zlib.compress(row * 8)) + chunk(b"IEND", b"")


def sound():
    file = io.BytesIO()
    with wave.open(file, "wb") as sound:
        sound.setparams((2, 2, 22050, 0, "NONE", ""))
        sound.writeframes(bytes(range(256)) * 4)
    return file.getvalue()


def aiff():
    data = bytes(range(256)) * 2
    parts = b"COMM" + struct.pack(">IhIh10s", 18, 1, len(data) // 2, 16, b"\x40\x0d\xac\x44\0\0\0\0\0\0")
    parts += b"SSND" + struct.pack(">III", 8 + len(data), 0, 0) + data
    return b"FORM" + struct.pack(">I", 4 + len(parts)) + b"AIFF" + parts


def contents(path):
    with open(path, "rb") as file:
        return file.read()


def samples():
    fonts = sorted(glob.glob("/usr/share/fonts/truetype/**/*.ttf", recursive=True), key=os.path.getsize)
    theme = json.loads(contents(os.path.join(ROOT, "examples", "assets", "widgets", "theme.json")).decode())
    for font in theme["fonts"].values():
        font["file"] = fonts[0]
    theme["tileset"] = os.path.join(ROOT, "examples", "assets", "widgets", "tileset.png")
    return {
        "png": png(8, 6, lambda chunk: b"", b"\0" + bytes(range(32))),
        "palette.png": png(4, 3, lambda chunk: chunk(b"PLTE", bytes(range(48))) + chunk(b"tRNS", b"\0\x80"), b"\1\2\3\4\5"),
        "bmp": b"BM" + struct.pack("<IIIIiiHHIIiiII", 86, 0, 54, 40, 4, 2, 1, 32, 0, 32, 0, 0, 0, 0) + bytes(range(32)),
        "gif": b"GIF89a" + struct.pack("<HHBBB", 3, 3, 0x91, 0, 0) + bytes(range(12)) + b",\0\0\0\0\3\0\3\0\0\2\4\x84\x8f\x19\x05\0;",
        "wav": sound(), "aiff": aiff(), "ogg": contents(os.path.join(ROOT, "tests", "data", "tone.ogg")),
        "ttf": contents(fonts[0]) if fonts else b"", "lvl": bytes([1, 0, 1, 0, 0, 0, 0] * 30),
        "lvl.json": json.dumps(LEVEL).encode(), "theme.json": json.dumps(theme).encode()}


def damage_bytes(rng, data):
    data = bytearray(data)
    for _ in range(rng.choice((1, 1, 2, 5))):
        # Headers are where the damage is done.
        start = rng.randrange(min(len(data), rng.choice((32, 128, 10**9))) or 1)
        end = start + rng.choice((1, 2, 4, 4, 16, 300))
        way = rng.randrange(6)
        if way == 0:
            del data[start + rng.randrange(40):]
        elif way == 1:
            data[start:start] = data[start:end]
        elif way == 2:
            data[start:end] = bytes(len(data[start:end]))
        elif way == 3:
            del data[start:end]
        elif way == 4:
            data[start:start + 4] = rng.choice((b"\xff\xff\xff\xff", b"\x7f\xff\xff\xff", b"\xff\xff\xff\x7f", b"\0\0\0\1", b"\1\0\0\0"))
        elif start < len(data):
            data[start] ^= 1 << rng.randrange(8)
    return bytes(data)


def damage_tree(rng, tree):
    """Puts junk at one place of a JSON tree, or takes the place away."""
    while True:
        places = list(tree if isinstance(tree, dict) else range(len(tree)))
        place = rng.choice(places)
        if isinstance(tree[place], (dict, list)) and tree[place] and rng.random() < 0.8:
            tree = tree[place]
        elif rng.random() < 0.2:
            return tree.pop(place)
        else:
            tree[place] = rng.choice(JUNK)
            return tree


def mended(data):
    """A PNG file with the checksums of its chunks put right, so that damage gets farther."""
    result, start = bytearray(data), 8
    while start + 12 <= len(data):
        end = start + 8 + struct.unpack(">I", data[start:start + 4])[0]
        result[end:end + 4] = struct.pack(">I", zlib.crc32(data[start + 4:end]))[:len(data[end:end + 4])]
        start = end + 4
    return bytes(result)


def damage(rng, kind):
    if kind.endswith(".json") and rng.random() < 0.8:
        tree = json.loads(SAMPLES[kind].decode())
        for _ in range(rng.choice((1, 1, 2, 4))):
            damage_tree(rng, tree)
        return json.dumps(tree).encode()
    data = damage_bytes(rng, SAMPLES[kind])
    return mended(data) if kind.endswith("png") and rng.random() < 0.8 else data


def use(kind, number):
    rng = random.Random(number)
    path = "damaged." + kind
    files = {path: damage(rng, kind), "a.png": SAMPLES["png"]}
    if kind.startswith("lvl"):
        files.update({"damaged.lvl": SAMPLES["lvl"], "damaged.lvl.json": SAMPLES["lvl.json"], path: files[path]})
        path = "damaged.lvl"
    for name, data in files.items():
        with open(name, "wb") as file:
            file.write(data)
    USES[kind](path, rng)


def show_image(path, rng):
    attempt(ENGINE.setWindowIcon, path)
    texture = z.Texture(path)
    texture.saveFile("saved.png")
    RENDERER._setFlashlight(texture)
    RENDERER.render()


def play(path, rng):
    for load in z.Sound, z.Music:
        attempt(lambda: load(path).loop(rng.choice((-1, 0, 1))))
    if rng.random() < 0.1:
        time.sleep(0.002)  # the device plays in a thread of its own


def write(path, rng):
    font = z.Font(path, rng.choice((1, 9, 24)))
    font.renderLines(["The quick", "brown \u00e4\u20ac\U0001f600"], (1, 2, 3)).getSize()


def walk(path, rng):
    level = z.Level(path)
    engine, renderer = z.Engine(), z.RaycastingRenderer(z.Texture(16, 12), level)
    engine.ecs.addSystem(renderer)
    engine.ecs.addSystem(z.MovementSystem(level))
    attempt(level.syncEntitiesToEcs, engine.ecs)
    attempt(engine.ecs.update, 0.1)
    for question in renderer.getWorldCellByScreenCoords, renderer.getEntityAtScreenCoords:
        attempt(question, rng.randrange(16), rng.randrange(12))
    attempt(level.syncEntitiesFromEcs, engine.ecs)
    level.saveFile("saved.lvl")
    z.Level("saved.lvl")


def dress(path, rng):
    renderer = z.UIRenderer(z.Texture(80, 60), True, z.UITheme(path))
    for widget in z.UIButton("a"), z.UIText("b"), z.UISlider(5), z.UIScrollPanel(z.UIPanel()):
        renderer.widget.addChild(widget, 1, 1)
        attempt(renderer.render)


def attempt(action, *args):
    try:
        return action(*args)
    except Exception:
        return None


USES = {"png": show_image, "palette.png": show_image, "bmp": show_image, "gif": show_image, "wav": play, "aiff": play,
        "ogg": play, "ttf": write, "lvl": walk, "lvl.json": walk, "theme.json": dress}
SAMPLES = samples()
ENGINE = z.Engine()
ENGINE.init("fuzz", (16, 12))
RENDERER = z.RaycastingRenderer(z.Texture(16, 12), z.Level())
