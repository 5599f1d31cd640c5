"""The scripted walk, for places without a display: it goes round the abbey and takes pictures."""

import math
import os
import time

from zelvarine import (AbstractSystem, CollisionComponent, KEY_DOWN, KEY_ESCAPE, KEY_LEFT, KEY_RETURN, KEY_UP, KeyEvent,
                       MOUSE_LEFT, MouseClickEvent, PositionComponent, RotationComponent, VelocityComponent,
                       getMusicVolume)

from shared.puppet import middle

from .controls import WALK
from .menu import SETTLING
from .stops import PACE, STOPS, way

LONGEST_STEP = 0.2  # below the player's radius, so that no wall is jumped over when someone was in the way
FRAME_TIME = PACE / WALK  # seconds that someone who walks would take for what the tour does in a frame
VISIT_TIME = 5.0  # seconds that someone would spend in the menus


class Tour(AbstractSystem):
    """Leads the player along the stops. It sets the velocity only, so walls and things stand in its way as in yours."""

    def __init__(self):
        super().__init__()
        self._way = list(way(STOPS))
        self.frames = 0
        self.seconds = 0.0
        self.pictures = []

    def lead(self, game, max_frames=None):
        """Plays the game from the title on."""
        self._game = game
        game.start(self)
        self._leave_title()
        while self.frames < min(len(self._way), max_frames or len(self._way)):
            self._take_step()
        game.engine.quit()

    def follow(self, world):
        player = world.player
        self._position = player.getComponent(PositionComponent).pos
        self._velocity = player.getComponent(VelocityComponent).velocity
        self._facing = player.getComponent(RotationComponent).dir
        # Wardens make way for the tour, or it would come too late for where it wants to be.
        player.getComponent(CollisionComponent).ignoreFlags = ["warden"]

    def _leave_title(self):
        engine = self._game.engine
        engine.press(KEY_ESCAPE, KEY_UP)  # to the button that ends the game, and up again
        self._save_picture("title")
        engine.press(KEY_RETURN)

    def _take_step(self):
        """One frame, and what is to be done after it."""
        engine = self._game.engine
        stop = self._way[self.frames]
        self._game.switch_lamp(stop.lamp)
        start = time.perf_counter()
        engine.update()
        self.seconds += time.perf_counter() - start
        self.frames += 1
        if stop.picture:
            self._save_picture(stop.picture)
        for key in stop.keys:
            engine.fireEvent(KeyEvent(key, False, False, False))
        for x, y in stop.clicks:
            width, height = self._game.target.getSize()
            engine.fireEvent(MouseClickEvent(int(x * width), int(y * height), MOUSE_LEFT))
        if KEY_ESCAPE in stop.keys:
            self._visit_menus()

    def _visit_menus(self):
        """Saves some games, turns the music down, looks through the list of games, and goes on."""
        engine, menu = self._game.engine, self._game.menu
        engine.update()
        engine.press(KEY_DOWN, *[KEY_RETURN] * 5)
        self._save_picture("menu")
        self._game.messages.update(VISIT_TIME)
        engine.press(KEY_DOWN, KEY_DOWN, KEY_RETURN, KEY_DOWN)
        for _ in range(SETTLING):
            engine.update()
        music = menu.volume.music
        x, y = middle(music)
        engine.drag(music._x + int(music.width * 0.8), y, x, y)
        engine.press(KEY_LEFT)
        self._save_picture("volume")
        engine.press(KEY_ESCAPE, KEY_UP, KEY_RETURN)
        engine.press(KEY_DOWN, KEY_DOWN, KEY_DOWN, KEY_DOWN)
        scrolled = menu.games.scroll_panel.scrollPosY
        engine.turn_wheel(*middle(menu.games.scroll_panel), steps=-1)
        self._save_picture("games")
        print("music at %d of 128, list of games moved by %d and %d" % (
            getMusicVolume(), scrolled, menu.games.scroll_panel.scrollPosY - scrolled))
        engine.press(KEY_ESCAPE, KEY_ESCAPE)

    def update(self, timeStep):
        stop = self._way[self.frames]
        dx, dy = stop.x - self._position.x, stop.y - self._position.y
        length = math.hypot(dx, dy)
        scale = min(1.0, LONGEST_STEP / length) / timeStep if length > 0 else 0.0
        self._velocity.x, self._velocity.y = dx * scale, dy * scale
        self._facing.x, self._facing.y = math.cos(math.radians(stop.degrees)), math.sin(math.radians(stop.degrees))
        self._game.messages.update(FRAME_TIME - timeStep)  # besides the time that passes for all systems

    def print_report(self):
        game = self._game
        print("%d frames of %dx%d, %.0f frames per second" % (
            (self.frames,) + game.target.getSize() + (self.frames / self.seconds,)))
        print("%d of %d gems found" % (game.world.treasure.found, game.world.treasure.total))
        print("sounds played: " + ", ".join("%s %d times" % item for item in sorted(game.sounds.played.items())))
        print("%d pictures in %s:" % (len(self.pictures), game.files.pictures()))
        for picture in self.pictures:
            print("  " + picture)

    def _save_picture(self, name):
        picture = "%02d-%s.png" % (len(self.pictures) + 1, name.replace(" ", "-"))
        self._game.target.saveFile(os.path.join(self._game.files.pictures(), picture))
        self.pictures.append(picture)
