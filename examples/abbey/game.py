"""The game: what belongs to it for as long as it runs, and how the title, the walk and the menus follow each other."""

import os

from zelvarine import (FullscreenEvent, KEY_ESCAPE, KEY_F, KEY_F1, KEY_F11, KEY_F12, KEY_F5, KEY_F9, KEY_M,
                       LevelFormatException, Texture, UIRenderer)

from shared.places import ASSETS

from .files import label
from .hud import Hud
from .key_table import key_table
from .messages import Messages
from .pointer import Pointer
from .screens import PauseMenu, TitleScreen
from .shortcuts import Shortcuts
from .sounds import Footsteps, Sounds
from .title import TitleBar
from .world import World

LEVEL_ERRORS = (OSError, LevelFormatException, LookupError, TypeError, ValueError)
KEYS_TIME = 8.0  # seconds for which the keys are shown


class Game:
    """Between the title, the walk and the menus it goes on by tasks, that is, when the events of a frame are over:
    handlers are not exchanged while they are called."""

    def __init__(self, engine, theme, files, size):
        self.engine = engine
        engine.init("zelvarine", size, resizeable=True, killWithEscapeKey=False)
        self.files = files
        self.target = Texture(*size)
        self.sounds = Sounds()
        self.messages = Messages(self.target.width)
        self.hud = Hud()
        self.world = self._load_world(files.level)
        self.ui = UIRenderer(self.target, False, theme)
        self.title = TitleScreen(theme, self)
        self.menu = PauseMenu(theme, self)
        self._lamp = Texture(os.path.join(ASSETS, "flashlight.png"))
        self._lamp_is_on = False
        self._key_table = key_table(theme, self.target.width)
        self._knows_keys = False
        self._walking_keys = Shortcuts({
            KEY_ESCAPE: self.pause,
            KEY_F: lambda: self.switch_lamp(not self._lamp_is_on),
            KEY_M: lambda: self.engine.captureMouse(not self.engine.isMouseCaptured()),
            KEY_F5: lambda: self.save(self.files.quick_save),
            KEY_F9: lambda: self.load(self.files.quick_save),
        })
        self._keys = Shortcuts({
            KEY_F1: self.show_keys, KEY_F11: self.engine.toggleFullscreen, KEY_F12: self.take_screenshot,
        })
        self.engine.subscribeEvent(FullscreenEvent, lambda event: print("fullscreen" if event.newValue else "window"))

    def start(self, guide):
        """Shows the title. The guide is a system that decides where the player wants to go."""
        self._followers = [guide, Footsteps(self.sounds), TitleBar(), self.hud, Pointer(self.tell)]
        self.sounds.play_tune()
        self._enter(self.world)
        self._show([self.title], self.title.widget)

    def resume(self):
        self._later(self._walk)

    def pause(self):
        self.menu.choose(self.menu.go_on)
        self.show(self.menu)

    def show(self, menu):
        self._later(lambda: self._show([menu], menu.widget))

    def quit(self):
        self._later(self.engine.quit)

    def switch_lamp(self, on):
        self._lamp_is_on = on
        self.world.switch_lamp(self._lamp if on else None)

    def save(self, path):
        self.world.level.syncEntitiesFromEcs(self.engine.ecs)
        try:
            os.makedirs(os.path.dirname(path), exist_ok=True)
            self.world.level.saveFile(path)
            self.tell("Saved: %s." % label(path))
        except OSError as error:
            self.tell("This cannot be saved: %s." % error)

    def save_new(self):
        """Saves beside what was saved before."""
        self.save(self.files.next_save())

    def load(self, path):
        """Goes on with a level file. If that fails, everything stays as it is."""
        if not os.path.exists(path):
            self.tell("There is no %s yet." % label(path))
            return
        try:
            world = self._load_world(path)
        except LEVEL_ERRORS as error:
            self.tell("%s cannot be loaded: %s." % (label(path), error))
            return

        def go_on():
            self._enter(world)
            self._walk()

        self._later(go_on)
        self.tell("Loaded: %s." % label(path))

    def load_newest(self):
        self.load(self.files.saved()[0])

    def take_screenshot(self):
        path = self.files.next_screenshot()
        self.engine.saveScreenshot(path)
        print("screenshot in %s" % path)
        self.messages.say("Saved: %s." % os.path.basename(path))

    def show_keys(self):
        self.messages.show(self._key_table, KEYS_TIME)

    def tell(self, words):
        print(words)
        self.messages.say(words)

    def _load_world(self, path):
        return World(path, self.target, self.sounds, os.path.dirname(self.files.level))

    def _later(self, change):
        self.engine.addTask(lambda timeStep, onDone: change() or True)

    def _enter(self, world):
        """Makes a world the one that is seen and walked in."""
        self.world = world
        world.level.syncEntitiesToEcs(self.engine.ecs)
        self.switch_lamp(self._lamp_is_on)
        for follower in self._followers:
            follower.follow(world)

    def _walk(self):
        self._show([self._walking_keys] + self._followers + self.world.systems, self.hud.widget)
        self.engine.captureMouse(True)
        if not self._knows_keys:
            self._knows_keys = True
            self.show_keys()

    def _show(self, systems, widget):
        """Lets these systems act, then the view be drawn, and then a widget over it, and messages over that."""
        ecs = self.engine.ecs
        for system in list(ecs.getSystems()):
            ecs.removeSystem(system)
        for system in [self._keys] + systems + [self.messages, self.world.renderer, self.ui]:
            ecs.addSystem(system)
        self.ui.widget.removeAllChildren()
        for layer in (widget, self.messages.widget):
            self.ui.widget.addChild(layer, 0, 0)
        self.engine.captureMouse(False)
