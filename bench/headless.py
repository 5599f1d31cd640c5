"""Steps of a game that nobody watches but a script."""
import numpy
import zelvarine as z
from measure import Scenario, one_figure
from scenes import DIRECTIONS, Scene

SIZES = (160, 120), (320, 200)


def headless():
    """Engine.update without a limiter, with movement, the frame of above, and a copy of the picture by numpy"""
    for size in SIZES:
        yield Scenario("%dx%d" % size, lambda size=size: stepping(size), size)


def stepping(size):
    engine = z.Engine()
    engine.init("bench", size)
    scene = Scene(size, engine=engine)
    engine.ecs.addSystem(z.MovementSystem(scene.level))

    def turn():
        for view in scene.views:
            scene.camera.dir.set(view)
            engine.update()
            numpy.array(scene.target)

    return one_figure(turn, 1 / DIRECTIONS)
