"""Plays the user of a real window, on an X display whose screen is 640 by 480. Run by test_window.py."""
import pathlib
import struct
import subprocess
import time

import zelvarine
from zelvarine import Engine, Renderer, Texture, UIRenderer, UISlider

from ui_reference import FlatTheme, writeTheme

COLOURS = [[0xFFC00000, 0xFF00C000], [0xFF0000C0, 0xFFC0C0C0]]
TITLE = "Fenêtre \u2713"


def xdotool(*arguments):
    command = ["xdotool", *map(str, arguments)]
    return subprocess.run(command, stdout=subprocess.PIPE, check=True, universal_newlines=True).stdout


def fourFields():
    """A picture of four fields of one colour each."""
    picture = Texture(160, 120)
    pixels = memoryview(picture)
    for y in range(120):
        for x in range(160):
            pixels[y, x] = COLOURS[y // 60][x // 80]
    return picture


class Session:
    def __init__(self, folder):
        """`folder` holds the memory of the display, and takes the screenshots."""
        self.folder = folder
        self.engine = engine = Engine()
        self.clicks, self.wheel, self.keys, self.toggles = [], [], [], []
        engine.init("First title", (160, 120), resizeable=True)
        engine.ecs.addSystem(Renderer(fourFields()))
        engine.subscribeEvent(zelvarine.MouseClickEvent, lambda e: self.clicks.append((e.x, e.y, e.button)))
        engine.subscribeEvent(zelvarine.MouseWheelEvent, lambda e: self.wheel.append(e.y))
        engine.subscribeEvent(zelvarine.KeyEvent, lambda e: self.keys.append((e.key, e.isShiftPressed)))
        engine.subscribeEvent(zelvarine.FullscreenEvent, lambda e: self.toggles.append(e.newValue))

    def play(self, until):
        """Plays frames until something has happened, which must not take longer than some seconds."""
        for _ in range(300):
            self.engine.update()
            if until():
                return
            time.sleep(0.01)
        raise AssertionError("it did not happen: clicks %s, wheel %s, keys %s" % (self.clicks, self.wheel, self.keys))

    def settle(self):
        frames = iter(range(40))
        self.play(lambda: next(frames, None) is None)

    def screenshot(self):
        self.engine.saveScreenshot(self.folder + "/shot.png")
        return memoryview(Texture(self.folder + "/shot.png"))

    def display(self, x, y):
        """The colour of a point of the display, from its memory, which is laid out as an xwd file."""
        with open(self.folder + "/Xvfb_screen0", "rb") as file:
            memory = file.read()
        header = struct.unpack(">20I", memory[:80])
        headerSize, bytesPerLine, colours = header[0], header[12], header[19]
        return struct.unpack_from("<I", memory, headerSize + colours * 12 + y * bytesPerLine + x * 4)[0] | 0xFF000000

    def checkWindow(self):
        engine = self.engine
        engine.setWindowTitle(TITLE)
        engine.setWindowPos((40, 30))
        engine.setWindowSize((320, 240))
        self.settle()
        window = xdotool("search", "--onlyvisible", "--class", "python").split()[-1]
        assert xdotool("getwindowname", window).strip() == TITLE
        geometry = dict(line.split("=") for line in xdotool("getwindowgeometry", "--shell", window).split())
        assert [geometry[key] for key in ("X", "Y", "WIDTH", "HEIGHT")] == ["40", "30", "320", "240"]
        assert engine.getWindowPos() == (40, 30) and engine.getWindowSize() == (320, 240)
        xdotool("windowfocus", window)

    def checkPicture(self):
        shot = self.screenshot()
        assert shot.shape == (240, 320)
        for y in (0, 119, 120, 239):
            left, right = COLOURS[y // 120]
            assert [shot[y, x] for x in range(320)] == [left] * 160 + [right] * 160
            assert [self.display(40 + x, 30 + y) for x in (0, 159, 160, 319)] == [left, left, right, right]

    def checkInput(self):
        engine, clicks = self.engine, self.clicks
        xdotool("mousemove", 140, 80, "click", 1)  # (100, 50) in the window
        self.play(lambda: clicks)
        assert clicks == [(50, 25, zelvarine.MOUSE_LEFT)] and engine.getMousePos() == (50, 25)
        xdotool("mousemove_relative", 6, 4)
        self.play(lambda: engine.getMouseDist() == (6, 4))
        xdotool("mousedown", 3)
        self.play(lambda: engine.isMouseButtonPressed(zelvarine.MOUSE_RIGHT))
        assert len(clicks) == 1  # it is the release that counts
        xdotool("mouseup", 3, "click", 4)
        self.play(lambda: self.wheel == [1])
        assert clicks[1:] == [(53, 27, zelvarine.MOUSE_RIGHT)]
        xdotool("keydown", "shift", "key", "a")
        self.play(lambda: (zelvarine.KEY_A, True) in self.keys)
        assert engine.isKeyPressed(zelvarine.KEY_LSHIFT) == 1
        xdotool("keyup", "shift")

    def checkFullscreen(self):
        engine = self.engine
        engine.toggleFullscreen()
        self.settle()
        assert engine.isFullscreen() and engine.getWindowSize() == (640, 480)
        xdotool("mousemove", 636, 476, "click", 1)
        self.play(lambda: self.clicks[2:] == [(159, 119, zelvarine.MOUSE_LEFT)])
        shot = self.screenshot()
        assert shot.shape == (480, 640) and [shot[y, x] for y in (0, 479) for x in (0, 639)] == sum(COLOURS, [])
        engine.toggleFullscreen()
        self.settle()
        assert engine.getWindowPos() == (40, 30) and engine.getWindowSize() == (320, 240)
        assert self.toggles == [True, False]

    def checkDrag(self):
        engine, slider = self.engine, UISlider(0)
        slider.sizePolicyX, slider.width = zelvarine.SIZE_FIXED, 150
        renderer = UIRenderer(Texture(160, 120), True, FlatTheme(writeTheme(pathlib.Path(self.folder))))
        renderer.widget.addChild(slider, 0, 0)
        engine.ecs.addSystem(renderer)
        moveTo = lambda x, y: xdotool("mousemove", 40 + 2 * x, 30 + 2 * y)
        moveTo(12, 5)
        self.play(lambda: slider.isHovered)
        xdotool("mousedown", 1)
        self.play(lambda: engine.isMouseButtonPressed(zelvarine.MOUSE_LEFT))
        for x, y, value in ((75, 5, 50), (158, 110, 100), (37, 60, 20)):
            moveTo(x, y)
            self.play(lambda: slider.value == value)
        xdotool("mouseup", 1)
        self.play(lambda: not engine.isMouseButtonPressed(zelvarine.MOUSE_LEFT))
        moveTo(75, 5)
        self.play(lambda: slider.isHovered)
        assert slider.value == 20

    def checkEnd(self):
        xdotool("key", "Escape")
        self.engine.run()
        assert not self.engine.isRunning()
        self.engine.quit()


def main(folder):
    session = Session(folder)
    session.checkWindow()
    session.checkPicture()
    session.checkInput()
    session.checkFullscreen()
    session.checkDrag()
    session.checkEnd()
    print("all seen")
