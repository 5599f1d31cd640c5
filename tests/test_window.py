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
    for bad, error in (((1,), ValueError), ((1, 2, 3), ValueError), (("a", 1), TypeError), ((2 ** 31, 1), OverflowError)):
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


@pytest.mark.skipif(not (shutil.which("Xvfb") and shutil.which("xdotool")), reason="needs the packages xvfb and xdotool")
def testRealWindow(tmp_path):
    """On a display of its own, with mouse and keyboard."""
    reader, writer = os.pipe()
    display = subprocess.Popen(["Xvfb", "-displayfd", str(writer), "-screen", "0", "640x480x24", "-fbdir", str(tmp_path)],
                               pass_fds=[writer], stderr=subprocess.DEVNULL)
    os.close(writer)
    try:
        number = os.read(reader, 16).decode().strip()
        result = helpers.runScript("import drive_window; drive_window.main(%r)" % str(tmp_path),
                                   SDL_VIDEODRIVER="x11", DISPLAY=":" + number, LC_ALL="C.UTF-8")
    finally:
        os.close(reader)
        display.terminate()
        display.wait()
    assert result.stderr == "" and (result.returncode, result.stdout) == (0, "all seen\n")
