"""Plays the user of a real window, on an X display whose screen is 640 by 480. Run by test_window.py."""
import subprocess
import time

import numpy

import zelvarine
from zelvarine import Engine, Renderer, Texture


def xdotool(*arguments):
    command = ["xdotool", *map(str, arguments)]
    return subprocess.run(command, stdout=subprocess.PIPE, check=True, universal_newlines=True).stdout


def fourFields(width, height):
    """The pixels of a picture of four fields of one color each."""
    colors = numpy.array([[0xFFC00000, 0xFF00C000], [0xFF0000C0, 0xFFC0C0C0]], "uint32")
    return colors.repeat(height // 2, axis=0).repeat(width // 2, axis=1)


class Session:
    def __init__(self, folder):
        """`folder` holds the memory of the display, and takes the screenshots."""
        self.folder = folder
        self.engine = engine = Engine()
        self.seen = []
        engine.init("First title", (160, 120), resizeable=True)
        picture = Texture(160, 120)
        numpy.asarray(picture)[:] = fourFields(160, 120)
        engine.ecs.addSystem(Renderer(picture))
        engine.subscribeEvent(zelvarine.MouseClickEvent, lambda e: self.seen.append((e.x, e.y, e.button)))
        engine.subscribeEvent(zelvarine.MouseWheelEvent, lambda e: self.seen.append((e.x, e.y)))
        engine.subscribeEvent(zelvarine.KeyEvent, lambda e: self.seen.append((e.key, e.isShiftPressed)))

    def play(self, until):
        """Plays frames until something has happened, which must not take longer than some seconds."""
        for _ in range(300):
            self.engine.update()
            if until():
                return
            time.sleep(0.01)
        raise AssertionError("it did not happen; seen: %s" % self.seen)

    def shows(self, x, y, width, height):
        """Whether the picture fills this part of the display, and a screenshot."""
        display = numpy.fromfile(self.folder + "/Xvfb_screen0", "uint8")  # the memory, laid out as an xwd file
        header = display[:80].view(">u4")
        headerSize, bytesPerLine, colors = header[0], header[12], header[19]
        pixels = display[headerSize + colors * 12:].reshape(480, bytesPerLine).view("<u4") | 0xFF000000
        self.engine.saveScreenshot(self.folder + "/shot.png")
        shot = numpy.array(Texture(self.folder + "/shot.png"))
        expected = fourFields(width, height)
        return numpy.array_equal(shot, expected) and numpy.array_equal(pixels[y:y + height, x:x + width], expected)

    def checkWindow(self):
        self.engine.setWindowTitle("Fenêtre \u2713")
        self.engine.setWindowPos((40, 30))
        self.engine.setWindowSize((320, 240))
        self.play(lambda: self.shows(40, 30, 320, 240))
        assert self.engine.getWindowPos() == (40, 30) and self.engine.getWindowSize() == (320, 240)
        title = xdotool("search", "--onlyvisible", "--class", "python", "windowfocus", "getwindowname")
        assert title.strip() == "Fenêtre \u2713"

    def checkInput(self):
        engine = self.engine
        xdotool("mousemove", 140, 80, "click", 1)  # (100, 50) in the window
        self.play(lambda: self.seen == [(50, 25, zelvarine.MOUSE_LEFT)])
        assert engine.getMousePos() == (50, 25)
        xdotool("mousemove_relative", 6, 4)
        self.play(lambda: engine.getMouseDist() == (6, 4))
        xdotool("mousedown", 3)
        self.play(lambda: engine.isMouseButtonPressed(zelvarine.MOUSE_RIGHT))
        xdotool("mouseup", 3, "click", 4, "keydown", "shift", "key", "a")
        self.play(lambda: (zelvarine.KEY_A, True) in self.seen)
        assert self.seen[1:3] == [(53, 27, zelvarine.MOUSE_RIGHT), (0, 1)]
        assert engine.isKeyPressed(zelvarine.KEY_LSHIFT) == 1
        xdotool("keyup", "shift")

    def checkFullscreen(self):
        self.engine.toggleFullscreen()
        self.play(lambda: self.shows(0, 0, 640, 480))
        xdotool("mousemove", 636, 476, "click", 1)
        self.play(lambda: self.seen[-1] == (159, 119, zelvarine.MOUSE_LEFT))
        self.engine.toggleFullscreen()
        self.play(lambda: self.shows(40, 30, 320, 240))


def main(folder):
    session = Session(folder)
    session.checkWindow()
    session.checkInput()
    session.checkFullscreen()
    print("all seen")
