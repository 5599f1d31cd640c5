"""What the raycaster draws."""
from measure import Scenario, Timed, one_figure
from scenes import DIRECTIONS, Scene, sprites_in_view

SIZES = (320, 200), (640, 480), (1280, 720), (1920, 1080)
KERNEL_SIZES = (320, 200), (1280, 720)
PASSES_SIZE = 1280, 720
OFF = dict(sky=False, walls=False, flats=False, fogs=False, flashlight=False, sprites=False)
PASSES = (
    ("rays alone", {}),
    ("sky", dict(sky=True)),
    ("walls", dict(walls=True)),
    ("walls, fogs", dict(walls=True, fogs=True)),
    ("walls, flashlight", dict(walls=True, flashlight=True)),
    ("flats", dict(flats=True)),
    ("flats, fogs", dict(flats=True, fogs=True)),
    ("sprites", dict(sprites=True)),
    ("sprites, fogs", dict(sprites=True, fogs=True)),
)


def frames():
    """The demo level with sky, flats, walls, both fogs, flashlight and 32 or more sprites in view; a mean of 8 views"""
    for size in SIZES:
        yield Scenario("%dx%d" % size, lambda size=size: whole_frame(size), size)


def kernels():
    """The same, drawn with each of the vector units that the machine has, and by the plain loops"""
    for size in KERNEL_SIZES:
        yield Scenario("%dx%d" % size, lambda size=size: whole_frame_by_each(size), size)


def passes():
    """Parts of the same at 1280x720, the rest taken out of the level; each has the rays and the green background"""
    for name, switches in PASSES:
        switches = dict(OFF, **switches)
        yield Scenario(name, lambda switches=switches: turning(Scene(PASSES_SIZE, **switches)), PASSES_SIZE)


def turning(scene):
    return one_figure(scene.turn, 1 / DIRECTIONS)


def whole_frame(size):
    scene = Scene(size)
    assert scene.level.fogDensity > 0 and scene.level.groundFogDensity > 0
    assert sprites_in_view() >= 32
    return turning(scene)


def whole_frame_by_each(size):
    scene = Scene(size)
    choose = getattr(scene.renderer, "_setKernels", lambda name: None)  # builds without it draw by plain loops
    names = scene.renderer._getKernels() if hasattr(scene.renderer, "_getKernels") else ["plain"]
    turns = []
    for name in names:
        choose(name)
        turns.append((name, Timed(scene.turn)))

    def one_round():
        times = {}
        for name, turn in turns:
            choose(name)
            times[name] = turn.milliseconds() / DIRECTIONS
        return times

    return one_round
