"""The game: what belongs to it for as long as it runs, and what the player can do apart from walking."""

import os

from zelvarine import (FullscreenEvent, KEY_ESCAPE, KEY_F, KEY_F11, KEY_F12, KEY_F5, KEY_F9, KEY_M, KeyEvent,
                       LevelFormatException, MOUSE_LEFT, MouseClickEvent, Texture, UIRenderer)

from shared.places import ASSETS

from . import picking
from .hud import Hud
from .menus import PauseMenu, TitleScreen
from .sounds import Footsteps, Sounds
from .title import TitleBar
from .world import World

LEVEL_ERRORS = (OSError, LevelFormatException, LookupError, TypeError, ValueError)


class Game:
    """Between the title, the walk and the menu it goes on by tasks, that is, when the events of a frame are over:
    handlers are not exchanged while they are called."""

    def __init__(self, engine, theme, files, size):
        self.engine = engine
        engine.init("zelvarine", size, resizeable=True, killWithEscapeKey=False)
        self.files = files
        self.target = Texture(*size)
        self.sounds = Sounds()
        self.hud = Hud()
        self.world = self._load_world(files.level)
        self.ui = UIRenderer(self.target, False, theme)
        self.title = TitleScreen(theme, self)
        self.menu = PauseMenu(theme, self)
        self.is_walking = False
        self._lamp = Texture(os.path.join(ASSETS, "flashlight.png"))
        self._lamp_is_on = False
        self._screenshots = 0
        self._walking_keys = {
            KEY_F: lambda: self.switch_lamp(not self._lamp_is_on),
            KEY_M: lambda: self.engine.captureMouse(not self.engine.isMouseCaptured()),
            KEY_F5: lambda: self.save(self.files.saved),
            KEY_F9: self.load,
        }
        self._keys = {KEY_ESCAPE: self._on_escape, KEY_F11: self.engine.toggleFullscreen, KEY_F12: self.take_screenshot}
        self.engine.subscribeEvent(KeyEvent, self._on_key)
        self.engine.subscribeEvent(MouseClickEvent, self._on_click)
        self.engine.subscribeEvent(FullscreenEvent, lambda event: print("fullscreen" if event.newValue else "window"))

    def start(self, guide):
        """Shows the title. The guide is a system that decides where the player wants to go."""
        self._followers = [guide, Footsteps(self.sounds), TitleBar(), self.hud]
        self.sounds.play_tune()
        self._enter(self.world)
        self._show([], self.title.widget)

    def resume(self):
        self._later(self._walk)

    def pause(self):
        self._later(self._stand_still)

    def quit(self):
        self._later(self.engine.quit)

    def switch_lamp(self, on):
        self._lamp_is_on = on
        self.world.switch_lamp(self._lamp if on else None)

    def save(self, path):
        self.world.level.syncEntitiesFromEcs(self.engine.ecs)
        try:
            os.makedirs(os.path.dirname(os.path.abspath(path)), exist_ok=True)
            self.world.level.saveFile(path)
            self.tell("saved as %s" % os.path.basename(path))
        except OSError as error:
            self.tell("not saved: %s" % error)

    def save_new(self):
        """Saves beside what was saved before."""
        self.save(self.files.next_saved())
        self.menu.list_levels(self.files.levels())

    def load(self, path=None):
        """Goes on with a level file, by default where the game was saved. If that fails, everything stays as it is."""
        path = path or self.files.saved
        try:
            world = self._load_world(path)
        except LEVEL_ERRORS as error:
            self.tell("not loaded: %s" % error)
            return

        def go_on():
            self._enter(world)
            self._walk()

        self._later(go_on)
        self.tell("loaded %s" % os.path.basename(path))

    def take_screenshot(self):
        self._screenshots += 1
        path = self.files.picture("screenshot-%d.png" % self._screenshots)
        self.engine.saveScreenshot(path)
        print("screenshot in %s" % path)
        self.hud.say("saved %s" % os.path.basename(path))

    def tell(self, words):
        print(words)
        self.hud.say(words)

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
        self._show(self._followers + self.world.systems, self.hud.widget)
        self.is_walking = True
        self.engine.captureMouse(True)

    def _stand_still(self):
        self.menu.list_levels(self.files.levels())
        self._show([], self.menu.widget)

    def _show(self, systems, widget):
        """Lets these systems act, then the view be drawn, and then widgets over it."""
        ecs = self.engine.ecs
        for system in list(ecs.getSystems()):
            ecs.removeSystem(system)
        for system in systems + [self.world.renderer, self.ui]:
            ecs.addSystem(system)
        self.ui.widget = widget
        self.is_walking = False
        self.engine.captureMouse(False)

    def _on_escape(self):
        if self.is_walking:
            self.pause()
        else:
            self.resume()

    def _on_key(self, event):
        action = self._keys.get(event.key) or (self.is_walking and self._walking_keys.get(event.key))
        if action:
            action()

    def _on_click(self, event):
        """Tells what is under the mouse, or in the middle of the picture while the mouse turns the view."""
        if self.is_walking and event.button == MOUSE_LEFT:
            x, y = event.x, event.y
            if self.engine.isMouseCaptured():
                x, y = self.target.width // 2, self.target.height // 2
            self.tell(picking.describe(self.world.renderer, x, y))
