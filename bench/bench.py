"""Times what a game spends its frames on. Run by `make bench`.

Every figure is the median of many runs, in milliseconds: on a busy machine compare figures of one run only.
"""
import argparse
import os
import random
import statistics
import sys
import time

os.environ.setdefault("SDL_VIDEODRIVER", "dummy")
os.environ.setdefault("SDL_AUDIODRIVER", "dummy")

import zelvarine as z  # noqa: E402 (the drivers are chosen before the import)

ASSETS = os.path.join(os.path.dirname(os.path.abspath(__file__)), os.pardir, "examples", "assets")
SIZES = ((320, 200), (640, 480), (1280, 720))


class StandingClock(z.Engine):
    """Lets animations stand still, so that every frame is the same work."""

    def getTimeStep(self):
        return 0.0


def milliseconds(action, runs):
    times = []
    for _ in range(runs):
        start = time.perf_counter()
        action()
        times.append(time.perf_counter() - start)
    return statistics.median(times) * 1000


def quietly(make, *args):
    """Makes a level without the map that it prints."""
    stdout, sys.stdout = sys.stdout, open(os.devnull, "w")
    try:
        return make(*args)
    finally:
        sys.stdout.close()
        sys.stdout = stdout


def frames(runs):
    """The demo level seen all around from its start, next to a plain fill of the same target."""
    for width, height in SIZES:
        level = z.Level(os.path.join(ASSETS, "walk.lvl"))
        target = z.Texture(width, height)
        renderer = z.RaycastingRenderer(target, level)
        ecs = StandingClock().ecs
        ecs.addSystem(renderer)
        level.syncEntitiesToEcs(ecs)
        start = ecs.getEntityById(1).getComponent(z.PositionComponent).pos
        camera = renderer.getCamera()
        camera.pos.set(start)

        def frame():
            camera.dir.rotate(7)
            renderer.render()

        fill = milliseconds(lambda: target.fill((0, 0, 0)), runs)
        picture = milliseconds(frame, runs)
        yield "frame %dx%d" % (width, height), picture, "%.0f fills of %.3f ms" % (picture / fill, fill)


def movement(runs):
    """One step of 1,000 moving bodies in an empty hall: apart from each other, and in a crowd."""
    for name, radius in (("1,000 bodies apart", 0.01), ("1,000 bodies in a crowd", 0.3)):
        chance = random.Random(1)
        ecs = z.Engine().ecs
        ecs.addSystem(z.MovementSystem(quietly(z.Level)))
        for _ in range(1000):
            position = z.Vector2(chance.uniform(1.5, 28.5), chance.uniform(1.5, 28.5))
            velocity = z.Vector2(chance.uniform(-1, 1), chance.uniform(-1, 1))
            ecs.addEntity(z.Entity(-1, z.PositionComponent(position), z.VelocityComponent(velocity), z.CollisionComponent(radius)))
        yield name, milliseconds(lambda: ecs.update(0.001), runs), "one step"


BENCHMARKS = (frames, movement)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--runs", type=int, default=60, help="runs of each figure (default: %(default)s)")
    parser.add_argument("only", nargs="*", help="names of benchmarks: " + ", ".join(b.__name__ for b in BENCHMARKS))
    options = parser.parse_args()
    for benchmark in BENCHMARKS:
        if not options.only or benchmark.__name__ in options.only:
            for name, median, remark in benchmark(options.runs):
                print("%-28s %9.3f ms   %s" % (name, median, remark))


if __name__ == "__main__":
    main()
