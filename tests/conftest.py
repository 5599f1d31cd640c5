import gc
import os

# Before the first import of the module, which starts SDL: no test needs a display or a sound card.
# The tests of the real window run scripts of their own.
os.environ.setdefault("SDL_VIDEODRIVER", "dummy")
os.environ.setdefault("SDL_AUDIODRIVER", "dummy")
os.environ["SDL_JOYSTICK_ALLOW_BACKGROUND_EVENTS"] = "1"  # no window of the dummy driver has the focus

import pytest

import helpers
import zelvarine


@pytest.fixture(autouse=True)
def fresh_registries():
    """Takes out of the Engine class, and out of SDL, what a test left there."""
    helpers.flush_events()
    yield
    helpers.unplug_all()
    for timer in zelvarine.Engine._timers:
        timer.cancel()
    for registry in ("_eventSubscribers", "_tasks", "_timers", "_joysticks"):
        getattr(zelvarine.Engine, registry).clear()


@pytest.fixture
def engine():
    """A running engine with a picture of 64 by 48."""
    engine = zelvarine.Engine()
    engine.init("test", (64, 48))
    helpers.flush_events()
    yield engine
    del engine
    gc.collect()  # an engine and its Ecs refer to each other
