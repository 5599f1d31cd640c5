"""Life of the engine, the order of a frame, what it shows, tasks and timers."""
import threading
import time
import types

import numpy
import pytest

import helpers
import zelvarine
from zelvarine import Engine, EngineSdlException, KeyEvent, Renderer, Texture


@pytest.mark.parametrize("arguments, error, message, size", [
    (dict(size=(1, 2, 3)), ValueError, "too many values", (64, 48)),  # the old window stays
    (dict(size=(10 ** 5, 10)), EngineSdlException, "Could not initialize the window.", (0, 0)),
    (dict(size=(-5, 10)), EngineSdlException, "Could not initialize the picture of the window.", (1, 10)),
    (dict(windowid=7, title="\ud800"), EngineSdlException, "Could not initialize the rendering subsystem", (0, 0)),
    (dict(title="\ud800"), UnicodeEncodeError, "surrogates", (0, 0))])
def test_init_that_fails(engine, arguments, error, message, size):
    defaults = dict(title="t", size=(64, 48), captureMouse=True, audioChannels=33, killWithEscapeKey=False)
    pytest.raises(error, engine.init, **dict(defaults, **arguments)).match(message)
    assert helpers.sdl.Mix_AllocateChannels(-1) == 33 and engine.getWindowSize() == size
    assert engine.isRunning() is (size == (64, 48)) is not engine.isMouseCaptured()
    engine.captureMouse(False)
    if engine.isRunning():
        helpers.push_key(zelvarine.KEY_ESCAPE)
        engine.update()
        assert engine.isRunning()


def test_ctrl_c_ends_run():
    helpers.run_script("""
import os, signal, threading, zelvarine
engine = zelvarine.Engine()
engine.run()  # returns at once
engine.init("t", (8, 8))
threading.Timer(0.2, os.kill, (os.getpid(), signal.SIGINT)).start()
engine.run(100000)""", error="\nKeyboardInterrupt\n")


@pytest.mark.parametrize("stop", [helpers.push_quit, lambda: helpers.push_key(zelvarine.KEY_ESCAPE)])
def test_user_ends_run_but_not_the_window(engine, stop):
    seen = []
    helpers.add_system(engine, seen.append)
    engine.subscribeEvent(KeyEvent, lambda event: seen.append(event.key))
    engine.addTaskAfter(60, print)
    timer, = Engine._timers
    stop()
    helpers.push_key(zelvarine.KEY_A)
    engine.run()
    assert engine.isRunning() is False and engine.getWindowSize() == (64, 48)
    assert seen[-2:] == [zelvarine.KEY_A, engine.getTimeStep()]  # the frame runs to its end
    timer.join(5)
    assert not timer.is_alive() and Engine._timers == Engine._tasks == []


@pytest.mark.parametrize("arrange", [
    "engine.addTask(quit_here)", "helpers.add_system(engine, quit_here)", "painter.getTarget = quit_here",
    "engine.subscribeEvent(zelvarine.KeyEvent, quit_here), helpers.push_key(97), helpers.push_key(98)"])
def test_quit_inside_a_frame(arrange):
    helpers.run_script("""
import helpers, zelvarine
engine, other = zelvarine.Engine(), zelvarine.Engine()
engine.init("t", (64, 48)), other.init("t", (64, 48))
helpers.plug_in(2, 2)
engine.update()
joystick, = engine.joysticks
target = zelvarine.Texture(64, 48)
painter = type("Painter", (zelvarine.Renderer,), {})(target)
def quit_here(*arguments):
    engine.quit()
    return target
""" + arrange + """
engine.ecs.addSystem(painter)
engine.run()
assert joystick.getAxis(0) == 0.0 and not joystick.isButtonPressed(0) and joystick.axes == 2
for e in (engine, other):
    e.setWindowSize((9, 9)), e.setFullscreen(True), e.captureMouse(True), e.saveScreenshot("x")
    assert e.getWindowPos() == e.getWindowSize() == (0, 0) and len(e.getMousePos()) == 2
    assert not (e.isRunning() or e.isFullscreen() or e.isMouseCaptured() or e.isMouseButtonPressed(1))
other.init("again", (32, 16)), other.update()
assert other.getWindowSize() == (32, 16) and helpers.sdl.SDL_WasInit(0x200)  # 0x200: the joysticks
engine.quit(), engine.quit()
""")


def test_order_of_a_frame_and_overridden_methods():
    order = []
    note = lambda name, result=None: lambda *arguments: order.append(name) or result
    overridden = dict(_ensureInit=note("ensure"), fireEvent=note("event"), setWindowIcon=note("icon"))
    own = type("Own", (Engine,), overridden)()
    own.init("t", (8, 8), icon="name")
    own.addTask(note("task", True))
    own.ecs.addSystem(type("Painter", (Renderer,), dict(update=note("system"), getTarget=note("upload")))(None))
    helpers.push_key(zelvarine.KEY_A)
    own.update()
    own.toggleFullscreen()
    assert order == ["icon", "ensure", "event", "task", "system", "upload", "event"]


def test_time_of_the_last_frame(engine):
    for _ in range(100):
        engine.update()  # many of them within a millisecond, which is no time to measure
    assert engine.getFps() <= 1000.0
    time.sleep(0.02)
    seen = []
    helpers.add_system(engine, seen.append)
    engine.update()
    step = engine.getTimeStep()
    assert seen == [step] and step >= 0.019  # the clocks of sleep() and of SDL may differ a little
    assert engine.getFps() == 1000.0 / round(step * 1000) and step == 1.0 / engine.getFps()
    engine.init("t", [20.9, 10.9])  # the second window replaces the first one
    assert engine.getWindowSize() == (20, 10) and engine.isRunning() is True
    assert (engine.getFps(), engine.getTimeStep()) == (0.0, 0.016666666666666666)


@pytest.mark.parametrize("fps, maxFps, expected", [
    (200.0, 100, 1.0 / 100 - 1.0 / 200.0), (50.0, 100, 1e-09), (0.0, 0.5, 2.0 - 1.0)])
def test_run_sleeps_for_the_rest_of_a_frame(monkeypatch, fps, maxFps, expected):
    slept, own = [], type("Own", (Engine,), dict(getFps=lambda self: fps))()
    sleep = lambda seconds: slept.append(seconds) or helpers.push_quit()
    monkeypatch.setattr(zelvarine, "time", types.SimpleNamespace(sleep=sleep))
    own.init("t", (8, 8))
    own.run(maxFps)
    assert slept == [expected] * 2


def test_each_target_covers_its_part_of_the_picture(engine, tmp_path):
    expected = numpy.zeros((48, 64), "uint32")
    for mark, (width, height) in enumerate([(64, 48), (10, 20), (100, 60), (0, 0)]):
        target = Texture(width, height)
        y, x = numpy.indices((height, width))
        pixels = numpy.asarray(target)
        pixels[:] = 0xFF000000 | mark << 16 | y << 8 | x
        expected[:height, :width] = pixels[:48, :64]
        engine.ecs.addSystem(Renderer(target))
        engine.ecs.addSystem(Renderer(None))
        engine.update()
        engine.saveScreenshot(str(tmp_path / "shot.png"))
        assert (numpy.array(Texture(str(tmp_path / "shot.png"))) == expected).all()


def test_tasks_run_until_they_give_a_true_result(engine, monkeypatch):
    monkeypatch.setattr(zelvarine, "Timer", None)  # no delay, no timer
    calls, results = [], [None, 0, 1]
    engine.addTask(lambda step, done: calls.append((step, done)) or results[len(calls) - 1], "done")
    for _ in range(3):
        engine.update()
        assert calls[-1] == (engine.getTimeStep(), "done")
    same_frame = lambda step, done: calls.append(done) or True
    engine.addTask(lambda step, done: engine.addTaskAfter(0, same_frame, "same frame") or True)
    engine.update()
    assert calls[3:] == ["same frame"] and Engine._tasks == Engine._timers == []
    engine.addTask(lambda step, done: 1 / 0)
    pytest.raises(ZeroDivisionError, engine.run)


def test_delayed_task_runs_on_the_main_thread(engine):
    threads = []
    engine.addTaskAfter(0.02, lambda *arguments: threads.append(threading.current_thread()) or True)
    timer, = Engine._timers
    for expected in ([], [threading.main_thread()]):
        engine.update()
        assert threads == expected
        timer.join(5)
    assert Engine._timers == Engine._tasks == []
