"""Window control and screenshots: on the dummy driver, and with a real window."""
import shutil
import subprocess

import pytest

import helpers
from zelvarine import Engine, FullscreenEvent, Renderer, Texture

HIDDEN, RESIZABLE, GRABBED = 8, 32, 256


def test_position_and_size(engine):
    engine.setWindowPos([10.9, 20])
    engine.setWindowSize(iter((30, 40)))
    engine.setWindowTitle("Fen\xeatre")
    assert helpers.sdl.SDL_GetWindowTitle(helpers.newest_window()) == b"Fen\xc3\xaatre"
    for impossible in ((0, 0), (-5, 7), (16385, 1), (1, 16385)):
        engine.setWindowSize(impossible)
        engine.update()
        assert engine.getWindowPos() == (10, 20) and engine.getWindowSize() == (30, 40)


def test_fullscreen(engine):
    def toggled():
        engine.toggleFullscreen()
        return events.pop(), engine.getWindowPos() + engine.getWindowSize()

    events = []
    engine.subscribeEvent(FullscreenEvent, lambda event: events.append((event.oldValue, event.newValue)))
    engine.setWindowPos((11, 12))
    (event, display), (back, before) = toggled(), toggled()
    assert (event, back, before) == ((False, True), (True, False), (11, 12, 64, 48)) and display[2:] > before[2:]
    ends = (toggled, lambda: engine.setFullscreen(False), lambda: engine.init("t", (64, 48)))
    for end in ends:  # each takes the rectangle along that a toggle had saved
        engine.setWindowPos(before[:2])
        engine.setWindowSize(before[2:])
        toggled()
        end()
        engine.setWindowPos((70, 80))
        engine.setFullscreen(1)
        assert engine.isFullscreen() is True and events == []  # only a toggle fires
        event, after = toggled()  # what SDL makes of it
        assert event == (True, False) and engine.isFullscreen() is False and after not in (before, (0, 0, 0, 0))
    engine.init("t", (40, 30), fullscreen=True)
    assert not engine.isFullscreen()
    engine.update()
    assert engine.isFullscreen() and Engine._tasks == events == []


def test_missing_display_is_told_once():
    script = """
import sys, zelvarine
sys.stderr = sys.stdout
for show in False, True, True:
    zelvarine.Engine().init("t", (8, 8), show=show)
    print(show)"""
    told = helpers.run_script(script, quiet=False, SDL_VIDEODRIVER="", DISPLAY="", WAYLAND_DISPLAY="").splitlines()
    assert "no display" in told.pop(1) and told == ["False", "True", "True"]
    assert helpers.run_script(script, SDL_VIDEODRIVER="dummy").split() == ["False", "True", "True"]  # asked for


@pytest.mark.parametrize("arguments, expected", [
    ({}, 0), (dict(show=0, windowid=-1.0), HIDDEN), (dict(resizeable=1), RESIZABLE), (dict(captureMouse=1), GRABBED)])
def test_flags_of_the_window(engine, arguments, expected):
    engine.init("t", (40, 30), **arguments)
    assert helpers.sdl.SDL_GetWindowFlags(helpers.newest_window()) & (HIDDEN | RESIZABLE | GRABBED) == expected
    assert engine.isMouseCaptured() is (expected == GRABBED)
    engine.captureMouse(False)
    assert engine.isMouseCaptured() is False


def test_files(engine, tmp_path):
    target, path = Texture(64, 48), str(tmp_path / "sh\xf6t.bmp")  # PNG all the same
    target.fill((200, 100, 50))
    engine.ecs.addSystem(Renderer(target))
    engine.setWindowSize((128, 96))
    engine.update()
    for name in (path, str(tmp_path / "no" / "such" / "folder.png")):
        engine.saveScreenshot(name)
    with open(path, "rb") as file:
        assert file.read(4) == b"\x89PNG"
    shot, before = Texture(path), helpers.sdl.SDL_GetNumAllocations()
    engine.setWindowIcon(path)
    with_icon = helpers.sdl.SDL_GetNumAllocations()  # SDL keeps the pixels of the icon
    engine.setWindowIcon("no such file")
    assert before < with_icon == helpers.sdl.SDL_GetNumAllocations()
    assert shot.getSize() == (128, 96) and {*memoryview(shot).cast("B").cast("I")} == {0xFFC86432}


@pytest.mark.skipif(not (shutil.which("Xvfb") and shutil.which("xdotool")), reason="needs Debian's xvfb and xdotool")
def test_real_window():
    with subprocess.Popen(["Xvfb", "-displayfd", "1", "-screen", "0", "640x480x24"], universal_newlines=True,
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL) as display:
        try:
            helpers.run_script("""
import subprocess, time
import zelvarine as z
def play(*command, until):
    subprocess.run(["xdotool"] + list(command), check=True, timeout=10)
    end = time.time() + 10
    while not until():
        engine.update()
        assert time.time() < end, command
engine = z.Engine()
engine.init("t", (160, 120))
engine.setWindowPos((40, 30)), engine.setWindowSize((320, 240))
play("mousemove", "140", "80", until=lambda: engine.getMousePos() == (50, 25))
play("search", "--onlyvisible", "--class", "python", "windowfocus", until=lambda: True)
play("mousedown", "3", until=lambda: engine.isMouseButtonPressed(z.MOUSE_RIGHT))
play("keydown", "shift", until=lambda: engine.isKeyPressed(z.KEY_LSHIFT))
engine.toggleFullscreen()
play("mouseup", "3", "mousemove", "636", "476", until=lambda: engine.getMousePos() == (159, 119))
engine.toggleFullscreen()
play("mousemove", "0", "0", until=lambda: engine.getWindowPos() + engine.getWindowSize() == (40, 30, 320, 240))
""", SDL_VIDEODRIVER="x11", DISPLAY=":" + display.stdout.readline().strip(), LC_ALL="C.UTF-8")
        finally:
            display.terminate()
