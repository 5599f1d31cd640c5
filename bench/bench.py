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

EXAMPLES = os.path.join(os.path.dirname(os.path.abspath(__file__)), os.pardir, "examples")
ASSETS = os.path.join(EXAMPLES, "assets")
sys.path.append(EXAMPLES)
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


def screen(theme, target):
    """30 buttons, 40 texts and 10 sliders in panels, and a scroll panel of 200 rows."""
    from shared import parts

    def grid(widgets, columns):
        return parts.panel(*[parts.row(*widgets[i:i + columns]) for i in range(0, len(widgets), columns)])

    texts = [parts.text("text %d" % i) for i in range(40)]
    panels = [grid([parts.button("button %d" % i) for i in range(30)], 5), grid(texts, 5),
              grid([parts.slider(i, 0, 10, width=120) for i in range(10)], 5)]
    scrolled = z.UIScrollPanel(parts.column(*[parts.row(parts.text("row %d" % i), parts.button("press")) for i in range(200)]))
    renderer = z.UIRenderer(target, True, theme)
    renderer.widget = parts.row(parts.column(*panels), parts.fixed(scrolled, 300, 600))
    z.Engine().ecs.addSystem(renderer)
    return renderer, texts


def widgets(runs):
    """A screen of 100 widgets at 1280x720, and what its parts cost."""
    from shared.themes import load_theme

    theme = load_theme()
    renderer, texts = screen(theme, z.Texture(1280, 720))
    whole = milliseconds(renderer.render, runs)
    # On a target of one pixel there is nothing to blit.
    layout = milliseconds(screen(theme, z.Texture(1, 1))[0].render, runs)
    count = [0]

    def render_with_new_texts():
        count[0] += 1
        for text in texts:
            text.text = "text %d" % count[0]
        renderer.render()

    yield "screen of 100 widgets", whole, "layout and walk %.3f, blits and fills %.3f" % (layout, whole - layout)
    yield "with 40 new texts a frame", milliseconds(render_with_new_texts, runs), "the rest is rendering text"


BENCHMARKS = (frames, movement, widgets)


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
