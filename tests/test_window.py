"""Window control and screenshots: on the dummy driver, and with a real window."""
import os
import shutil
import subprocess

import pytest

import helpers
from zelvarine import Engine, FullscreenEvent, Renderer, Texture


def testPositionAndSize(engine):
    engine.setWindowPos([10.9, 20])
    engine.setWindowSize(iter((30, 40)))
    assert engine.getWindowPos() == (10, 20) and engine.getWindowSize() == (30, 40)
    for bad, error in (((1,), ValueError), ((1, 2, 3), ValueError), (5, TypeError), (("a", 1), TypeError), ((2 ** 31, 1), OverflowError)):
        for method in (engine.setWindowPos, engine.setWindowSize):
            with pytest.raises(error):
                method(bad)
    assert engine.getWindowPos() == (10, 20) and engine.getWindowSize() == (30, 40)


def testImpossibleSizes(engine):
    for size in ((0, 0), (-5, 7), (2 ** 31 - 1, 2 ** 31 - 1), (16385, 1), (1, 16385)):
        engine.setWindowSize(size)
        engine.update()
        assert engine.getWindowSize() == (64, 48)


def testTitleAndIcon(engine, tmp_path):
    icon = Texture(16, 16)
    icon.saveFile(str(tmp_path / "ícon.png"))
    engine.setWindowTitle("Wände ✓")
    engine.setWindowIcon(str(tmp_path / "ícon.png"))
    engine.setWindowIcon(str(tmp_path / "missing.png"))
    engine.init("t", (8, 8), icon=str(tmp_path / "ícon.png"))
    for method in (engine.setWindowTitle, engine.setWindowIcon, engine.saveScreenshot):
        for bad, error in ((None, TypeError), (b"bytes", TypeError), ("nul\0", ValueError)):
            with pytest.raises(error):
                method(bad)


class TestFullscreen:
    def record(self, engine):
        events = []
        engine.subscribeEvent(FullscreenEvent, lambda event: events.append((event.oldValue, event.newValue)))
        return events

    def testToggleRestoresTheWindow(self, engine):
        events = self.record(engine)
        engine.setWindowPos((11, 12))
        engine.setWindowSize((80, 60))
        engine.toggleFullscreen()
        assert engine.isFullscreen() and engine.getWindowSize() != (80, 60)
        engine.toggleFullscreen()
        assert not engine.isFullscreen()
        assert engine.getWindowPos() == (11, 12) and engine.getWindowSize() == (80, 60)
        assert events == [(False, True), (True, False)]

    def testSetFiresNothing(self, engine):
        events = self.record(engine)
        engine.setFullscreen(1)
        assert engine.isFullscreen() is True and events == []
        engine.setFullscreen(0)
        engine.setFullscreen(True)
        engine.setWindowPos((7, 7))
        engine.toggleFullscreen()  # there is no rectangle that a toggle saved: what SDL makes of it
        assert engine.isFullscreen() is False and 0 not in engine.getWindowSize() + engine.getWindowPos()

    def testFromTheStart(self):
        engine = Engine()
        events = self.record(engine)
        engine.init("t", (64, 48), fullscreen=True)
        assert not engine.isFullscreen()
        engine.update()
        assert engine.isFullscreen() and events == [] and Engine._tasks == []


def testScreenshotHasTheSizeOfTheWindow(engine, tmp_path):
    target = Texture(64, 48)
    target.fill((200, 100, 50))
    engine.ecs.addSystem(Renderer(target))
    engine.setWindowSize((128, 96))
    engine.update()
    path = tmp_path / "shot.bmp"  # PNG all the same
    engine.saveScreenshot(str(path))
    assert path.read_bytes()[:4] == b"\x89PNG"
    shot = Texture(str(path))
    assert shot.getSize() == (128, 96) and {*memoryview(shot).cast("B").cast("I")} == {0xFFC86432}
    engine.saveScreenshot(str(tmp_path / "no" / "such" / "folder.png"))


REAL_WINDOW = """
import struct, subprocess, time
import zelvarine
from zelvarine import Engine, Renderer, Texture

def xdotool(*arguments):
    return subprocess.run(["xdotool", *map(str, arguments)], stdout=subprocess.PIPE, check=True, universal_newlines=True).stdout

def frames(until=lambda: False):
    for _ in range(60):
        engine.update()
        time.sleep(0.01)
        if until():
            return

def displayed():
    # What the display shows, read from its memory, which has the format of the xwd program.
    memory = open(folder + "Xvfb_screen0", "rb").read()
    header = struct.unpack(">20I", memory[:80])
    start, bytesPerLine = header[0] + header[19] * 12, header[12]
    return lambda x, y: struct.unpack_from("<I", memory, start + y * bytesPerLine + x * 4)[0] | 0xFF000000

# Four fields of one colour each.
picture = Texture(160, 120)
pixels = memoryview(picture)
colours = [[0xFFC00000, 0xFF00C000], [0xFF0000C0, 0xFFC0C0C0]]
for y in range(120):
    for x in range(160):
        pixels[y, x] = colours[y // 60][x // 80]

engine, clicks, wheel, keys, toggles = Engine(), [], [], [], []
engine.init("First title", (160, 120), resizeable=True)
engine.ecs.addSystem(Renderer(picture))
engine.subscribeEvent(zelvarine.MouseClickEvent, lambda e: clicks.append((e.x, e.y, e.button)))
engine.subscribeEvent(zelvarine.MouseWheelEvent, lambda e: wheel.append(e.y))
engine.subscribeEvent(zelvarine.KeyEvent, lambda e: keys.append((e.key, e.isShiftPressed)))
engine.subscribeEvent(zelvarine.FullscreenEvent, lambda e: toggles.append(e.newValue))
engine.setWindowTitle("Zweiter Titel \\u2713")
engine.setWindowPos((40, 30))
engine.setWindowSize((320, 240))
frames()
window = xdotool("search", "--onlyvisible", "--class", "python").split()[-1]
assert xdotool("getwindowname", window) .strip() == "Zweiter Titel \\u2713"
geometry = dict(line.split("=") for line in xdotool("getwindowgeometry", "--shell", window).split())
assert [geometry[k] for k in ("X", "Y", "WIDTH", "HEIGHT")] == ["40", "30", "320", "240"], geometry
assert engine.getWindowPos() == (40, 30) and engine.getWindowSize() == (320, 240)

xdotool("windowfocus", window)
xdotool("mousemove", "--window", window, 100, 50, "click", 1)
frames(lambda: clicks)
assert clicks == [(50, 25, zelvarine.MOUSE_LEFT)] and engine.getMousePos() == (50, 25), (clicks, engine.getMousePos())
xdotool("mousedown", 3)
frames(lambda: engine.isMouseButtonPressed(zelvarine.MOUSE_RIGHT))
assert engine.isMouseButtonPressed(zelvarine.MOUSE_RIGHT) and len(clicks) == 1
xdotool("mouseup", 3, "click", 4)
frames(lambda: wheel)
assert clicks[1][2] == zelvarine.MOUSE_RIGHT and wheel == [1]
xdotool("mousemove_relative", 6, 4)
engine.update(), time.sleep(0.05)
frames(lambda: engine.getMouseDist() != (0, 0))

xdotool("keydown", "shift", "key", "a")
frames(lambda: (zelvarine.KEY_A, True) in keys)
assert (zelvarine.KEY_A, True) in keys and engine.isKeyPressed(zelvarine.KEY_LSHIFT) == 1, keys
xdotool("keyup", "shift")

def shot(name):
    engine.saveScreenshot(folder + name)
    return memoryview(Texture(folder + name))

seen = shot("window.png")
assert seen.shape == (240, 320)
assert [[seen[y, x] for x in range(320)] for y in (0, 119)] == [[c for c in colours[0] for _ in range(160)]] * 2
assert [[seen[y, x] for x in range(320)] for y in (120, 239)] == [[c for c in colours[1] for _ in range(160)]] * 2
# What the display shows, apart from what the engine says of it.
display = displayed()
assert [display(x, y) for y in (30, 269) for x in (40, 359)] == sum(colours, []) and display(39, 30) == 0xFF000000

engine.toggleFullscreen()
frames()
assert engine.isFullscreen() and engine.getWindowSize() == (640, 480), engine.getWindowSize()
xdotool("mousemove", 636, 476, "click", 1)
frames(lambda: len(clicks) == 3)
assert clicks[2] == (159, 119, zelvarine.MOUSE_LEFT), clicks
full = shot("fullscreen.png")
assert full.shape == (480, 640) and (full[0, 0], full[0, 639], full[479, 0], full[479, 639]) == tuple(sum(colours, []))
engine.toggleFullscreen()
frames()
assert engine.getWindowPos() == (40, 30) and engine.getWindowSize() == (320, 240) and toggles == [True, False]

xdotool("key", "Escape")
frames(lambda: not engine.isRunning()) if engine.isRunning() else None
assert not engine.isRunning()
engine.quit()
print("seen")
"""


@pytest.mark.skipif(not (shutil.which("Xvfb") and shutil.which("xdotool")), reason="needs the packages xvfb and xdotool")
def testRealWindow(tmp_path):
    """A window on a display of its own, driven by its user."""
    reader, writer = os.pipe()
    display = subprocess.Popen(["Xvfb", "-displayfd", str(writer), "-screen", "0", "640x480x24", "-fbdir", str(tmp_path)],
                               pass_fds=[writer], stderr=subprocess.DEVNULL)
    os.close(writer)
    try:
        number = os.read(reader, 16).decode().strip()
        folder = "folder = %r\n" % (str(tmp_path) + "/")
        result = helpers.runScript(folder + REAL_WINDOW, SDL_VIDEODRIVER="x11", DISPLAY=":" + number, LC_ALL="C.UTF-8")
    finally:
        os.close(reader)
        display.terminate()
        display.wait()
    assert result.stderr == "" and (result.returncode, result.stdout) == (0, "seen\n")
