"""Life of the engine, the order of a frame, tasks and timers."""
import gc
import threading
import time
import weakref

import pytest

import helpers
import zelvarine
from zelvarine import Engine, EngineException, EngineSdlException, Event, Renderer, Texture

NOT_INITIALISED = 'EngineException("The engine is not initialized, yet.Call init method first.")'


class System:
    """Joins an Ecs and calls a function in every frame."""

    def __init__(self, function):
        self.update = function
        self._entities = []

    def _setEcs(self, ecs):
        pass

    _setEngine = _updateEntityMembership = _setEcs


class TestLifecycle:
    def testBeforeInit(self):
        engine = Engine()
        assert not engine.isRunning() and engine.ecs.getSystems() == []
        with pytest.raises(EngineException) as error:
            engine.update()
        assert str(error.value) == NOT_INITIALISED

    def testAfterInit(self, engine):
        assert engine.isRunning() is True
        assert (engine.getFps(), engine.getTimeStep()) == (0.0, 0.016666666666666666)
        assert engine.getWindowSize() == (64, 48)

    def testCloseRequestEndsRunButKeepsWindow(self, engine):
        frames = []
        engine.ecs.addSystem(System(frames.append))
        helpers.pushQuit()
        engine.run()
        assert len(frames) == 1  # the frame runs to its end
        assert engine.isRunning() is False and engine.getWindowSize() == (64, 48)
        with pytest.raises(EngineException):
            engine.update()

    @pytest.mark.parametrize("arguments, error", [
        (dict(size=(64,)), ValueError), (dict(size=(1, 2, 3)), ValueError), (dict(title="a\0b"), ValueError),
        (dict(icon=5), TypeError), (dict(windowid=7), EngineSdlException), (dict(audioChannels=10 ** 9), ValueError),
        (dict(size=(-5, 10)), EngineSdlException), (dict(size=(10 ** 6, 10)), EngineSdlException),
    ])
    def testBadArguments(self, arguments, error):
        engine = Engine()
        with pytest.raises(error):
            engine.init(**dict(dict(title="t", size=(64, 48)), **arguments))
        assert not engine.isRunning() and engine.getWindowSize() == (0, 0)

    def testSecondInitReplacesTheWindow(self, engine):
        engine.init(title="t", size=[20.9, 10])
        assert engine.getWindowSize() == (20, 10)

    def testClassAttributesAreSharedAndShadowed(self):
        assert Engine.version == 0.1 and Engine._tasks is Engine()._tasks
        with pytest.raises(AttributeError):
            Engine()._tasks = []

        class Own(Engine):
            _tasks = []
            _eventSubscribers = {}

        Own().addTask(print)
        Own().subscribeEvent(Event, print)
        assert Own._tasks == [(print, None)] and Own._eventSubscribers == {Event: [print]}
        assert Engine._tasks == [] and Engine._eventSubscribers == {}

    def testEnginesAreCollected(self):
        class Tracked(Engine):
            pass

        tracked = Tracked()
        tracked.init("t", (8, 8))
        died = weakref.ref(tracked)
        del tracked
        gc.collect()
        assert died() is None


QUIT_IN_A_FRAME = """
import zelvarine
from test_engine import System
place = {place!r}
engine, other = zelvarine.Engine(), zelvarine.Engine()
engine.init("t", (64, 48)), other.init("t", (64, 48))
target = zelvarine.Texture(64, 48)
class Quitter(zelvarine.Renderer):
    def getTarget(self):
        if place == "target": engine.quit()
        return target
def quitHere(*arguments):
    engine.quit()
    return True
if place == "task": engine.addTask(quitHere)
if place == "system": engine.ecs.addSystem(System(quitHere))
if place == "handler":
    import helpers
    engine.subscribeEvent(zelvarine.KeyEvent, quitHere)
    helpers.pushKey(97), helpers.pushKey(98)
engine.ecs.addSystem(Quitter(target))
engine.run()
assert not engine.isRunning() and not other.isRunning()
for e in (engine, other, zelvarine.Engine()):
    for method, *arguments in (
            ["setWindowTitle", "t"], ["setWindowPos", (1, 1)], ["setWindowSize", (9, 9)], ["setWindowIcon", "x"],
            ["setFullscreen", True], ["toggleFullscreen"], ["saveScreenshot", "x"], ["captureMouse", True]):
        assert getattr(e, method)(*arguments) is None
    assert e.getWindowPos() == e.getWindowSize() == (0, 0)
    assert not e.isFullscreen() and not e.isMouseCaptured() and len(e.getMousePos()) == 2
    assert not e.isMouseButtonPressed(1) and e.isKeyPressed(97) == 0 and e.getKeyName(97) == "A"
other.quit()
other.init("again", (32, 16))
other.update()
assert other.getWindowSize() == (32, 16)
del other, e
import gc; gc.collect()
engine.init("again", (32, 16), captureMouse=True)
engine.update()
engine.quit(), engine.quit()
"""


@pytest.mark.parametrize("place", ["task", "system", "handler", "target"])
def testQuitInsideAFrame(place):
    """Ends every engine of the process; all of them stay safe, and can be started again."""
    result = helpers.runScript(QUIT_IN_A_FRAME.format(place=place))
    assert (result.returncode, result.stderr) == (0, "")


class TestFrame:
    def testOrder(self, engine):
        order = []
        note = lambda name, result=None: lambda *arguments: order.append(name) or result
        engine.subscribeEvent(zelvarine.KeyEvent, note("input"))
        engine.addTask(note("task", True))

        class Painter(Renderer):
            update = note("system")
            getTarget = note("upload")

        engine.ecs.addSystem(Painter(None))
        helpers.pushKey(zelvarine.KEY_A)
        engine.update()
        assert order == ["input", "task", "system", "upload"]

    def testTimeOfTheLastFrame(self, engine):
        for _ in range(100):
            engine.update()  # many of them within a millisecond, which is no time to measure
        assert engine.getFps() <= 1000.0
        time.sleep(0.02)
        seen = []
        engine.ecs.addSystem(System(seen.append))
        engine.update()
        step = engine.getTimeStep()
        assert 0.02 <= step < 1 and engine.getFps() == 1000.0 / round(step * 1000)
        assert seen == [step] and step == 1.0 / engine.getFps()

    @pytest.mark.parametrize("fps, maxFps, expected", [
        (200.0, 100, 1.0 / 100 - 1.0 / 200.0), (50.0, 100, 1e-09), (0.0, 0.5, 2.0 - 1.0),
    ])
    def testRunSleepsForTheRestOfAFrame(self, monkeypatch, fps, maxFps, expected):
        class Own(Engine):
            def getFps(self):
                return fps

        class Clock:
            @staticmethod
            def sleep(seconds):
                slept.append(seconds)
                helpers.pushQuit()

        slept = []
        monkeypatch.setattr(zelvarine, "time", Clock)
        own = Own()
        own.init("t", (8, 8))
        own.run(maxFps)
        assert slept == [expected] * 2

    def testRunOfNoFrames(self):
        with pytest.raises(ZeroDivisionError):
            Engine().run(0)
        Engine().run()  # not initialised: returns at once

    def testOverriddenMethodsTakePart(self):
        calls = []

        class Own(Engine):
            def _ensureInit(self):
                calls.append("ensure")

            def update(self):
                calls.append("update")
                helpers.pushQuit()
                Engine.update(self)

        own = Own()
        own.init("t", (8, 8))
        own.run(1000)
        assert calls == ["update", "ensure"]


class TestUpload:
    def shown(self, engine, tmp_path):
        """The colours of the window: of its top left pixel and its bottom right one."""
        engine.update()
        engine.saveScreenshot(str(tmp_path / "shot.png"))
        pixels = memoryview(Texture(str(tmp_path / "shot.png")))
        return [hex(pixels[0, 0]), hex(pixels[47, 63])]

    def target(self, w, h, colour):
        texture = Texture(w, h)
        texture.fill(colour)
        return Renderer(texture)

    def testLastRendererIsShown(self, engine, tmp_path):
        engine.ecs.addSystem(self.target(64, 48, (1, 2, 3)))
        assert self.shown(engine, tmp_path) == ["0xff010203"] * 2
        engine.ecs.addSystem(self.target(64, 48, (4, 5, 6)))
        engine.ecs.addSystem(Renderer(None))
        assert self.shown(engine, tmp_path) == ["0xff040506"] * 2

    @pytest.mark.parametrize("w, h, last", [(10, 10, "0xff090909"), (100, 60, "0xff010203"), (0, 0, "0xff090909")])
    def testOtherSizesCoverTheirPart(self, engine, tmp_path, w, h, last):
        engine.ecs.addSystem(self.target(64, 48, (9, 9, 9)))
        engine.ecs.addSystem(self.target(w, h, (1, 2, 3)))
        assert self.shown(engine, tmp_path) == ["0xff010203" if w else "0xff090909", last]

    def testTargetOfAnotherType(self, engine):
        class Wrong(Renderer):
            def getTarget(self):
                return "texture"

        engine.ecs.addSystem(Wrong(None))
        with pytest.raises(TypeError):
            engine.update()


class TestTasks:
    def testResultsAndArguments(self, engine):
        calls = []
        results = [None, 0, 1]
        engine.addTask(lambda step, done: calls.append((step, done)) or results[len(calls) - 1], "done")
        for _ in range(5):
            engine.update()
        assert [done for _, done in calls] == ["done"] * 3 and isinstance(calls[0][0], float)

    def testTaskAddedByATaskRunsInTheSameFrame(self, engine):
        ran = []
        engine.addTask(lambda step, done: engine.addTask(lambda step, done: ran.append(1) or True) or True)
        engine.update()
        assert ran == [1] and Engine._tasks == []

    def testRaisingTaskStays(self, engine):
        engine.addTask(lambda step, done: True)
        engine.addTask(lambda step, done: 1 / 0)
        engine.addTaskAfter(60, print)
        for frame in (engine.update, engine.run):
            with pytest.raises(ZeroDivisionError):
                frame()
        assert len(Engine._tasks) == 2 and Engine._timers[0].is_alive()

    def testDelayedTaskRunsOnTheMainThread(self, engine):
        engine.addTaskAfter(0, print, onDone=1)
        assert Engine._tasks == [(print, 1)] and Engine._timers == []
        Engine._tasks.clear()
        threads = []
        engine.addTaskAfter(0.02, lambda step, done: threads.append(threading.current_thread()) or True)
        assert len(Engine._timers) == 1
        deadline = time.time() + 5
        while not threads and time.time() < deadline:
            engine.update()
            time.sleep(0.002)
        assert threads == [threading.main_thread()]
        assert Engine._timers == [] and Engine._tasks == []

    def testEndOfRunCancelsTimers(self, engine):
        engine.addTaskAfter(60, print)
        timer = Engine._timers[0]
        helpers.pushQuit()
        engine.run()
        timer.join(5)
        assert not timer.is_alive() and Engine._timers == Engine._tasks == []

    def testHostileTimerClosure(self):
        """What the timer holds is in the hands of scripts as well."""
        Engine().addTaskAfter(60, print)
        function = Engine._timers[0].function
        function.__self__.clear()
        with pytest.raises(ValueError):
            function()
