"""Window control and screenshots: on the dummy driver, and with a real window."""
import os
import shutil
import subprocess

import pytest

import helpers
from zelvarine import Engine, FullscreenEvent, Renderer, Texture


def test_position_and_size(engine):
    engine.setWindowPos([10.9, 20])
    engine.setWindowSize(iter((30, 40)))
    for method in (engine.setWindowPos, engine.setWindowSize):
        for bad, error in (((1,), ValueError), ((1, 2, 3), ValueError), ((2 ** 31, 1), OverflowError)):
            with pytest.raises(error):
                method(bad)
    for impossible in ((0, 0), (-5, 7), (16385, 1), (1, 16385)):
        engine.setWindowSize(impossible)
        engine.update()
        assert engine.getWindowPos() == (10, 20) and engine.getWindowSize() == (30, 40)


def test_icon(engine, tmp_path):
    Texture(16, 16).saveFile(str(tmp_path / "ícon.png"))
    for name in ("ícon.png", "missing.png"):
        engine.setWindowIcon(str(tmp_path / name))
    icons = []
    type("Own", (Engine,), dict(setWindowIcon=lambda self, icon: icons.append(icon)))().init("t", (8, 8), icon="name")
    assert icons == ["name"]


def test_fullscreen(engine):
    events = []
    engine.subscribeEvent(FullscreenEvent, lambda event: events.append((event.oldValue, event.newValue)))
    engine.setFullscreen(1)
    assert engine.isFullscreen() is True
    engine.setFullscreen(0)
    assert engine.isFullscreen() is False
    engine.setFullscreen(1)
    engine.setWindowPos((7, 7))
    assert events == []  # only a toggle fires
    engine.toggleFullscreen()  # there is no rectangle that a toggle saved: what SDL makes of it
    assert events.pop() == (True, False) and 0 not in engine.getWindowSize() + engine.getWindowPos()
    engine.setWindowPos((11, 12))
    engine.setWindowSize((80, 60))
    for on in (True, False):
        engine.toggleFullscreen()
        assert engine.isFullscreen() is on and (engine.getWindowSize() == (80, 60)) is not on
    assert engine.getWindowPos() == (11, 12) and events == [(False, True), (True, False)]


def test_fullscreen_from_the_start(engine):
    engine.subscribeEvent(FullscreenEvent, lambda event: 1 / 0)
    engine.init("t", (64, 48), fullscreen=True)
    assert not engine.isFullscreen()
    engine.update()
    assert engine.isFullscreen() and Engine._tasks == []


def test_screenshot_has_the_size_of_the_window(engine, tmp_path):
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


@pytest.mark.skipif(not (shutil.which("Xvfb") and shutil.which("xdotool")), reason="needs Debian's xvfb and xdotool")
def test_real_window(tmp_path):
    """On a display of its own, with mouse and keyboard."""
    reader, writer = os.pipe()
    command = ["Xvfb", "-displayfd", str(writer), "-screen", "0", "640x480x24", "-fbdir", str(tmp_path)]
    display = subprocess.Popen(command, pass_fds=[writer], stderr=subprocess.DEVNULL)
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
