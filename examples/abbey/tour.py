"""The scripted walk, for places without a display: it goes round the abbey and takes pictures."""

import collections
import math
import os
import time

from zelvarine import (AbstractSystem, CollisionComponent, KEY_ESCAPE, KEY_F11, KEY_F12, KEY_F5, KEY_F9, KEY_M,
                       KeyEvent, MOUSE_LEFT, MouseClickEvent, PositionComponent, RotationComponent,
                       VelocityComponent, getMusicVolume)

from shared.puppet import middle

PACE = 0.18  # cells in a frame
TURN = 5.0  # degrees in a frame, where the walk stands still
LONGEST_STEP = 0.2  # below the player's radius, so that no wall is jumped over when someone was in the way

# Where to be and where to look: degrees from east over south. Between two stops the walk goes straight.
# At a stop, a picture may be taken, and then keys be pressed and the mouse be clicked: the places for that are shares of
# the picture's width and height.
Stop = collections.namedtuple("Stop", "x y degrees picture lamp keys clicks")
Stop.__new__.__defaults__ = (None, False, (), ())

STOPS = [
    Stop(16.0, 21.2, -90),
    Stop(16.0, 20.6, -90, "court", keys=[KEY_M],
         clicks=[(0.5, 0.45), (0.1, 0.4), (0.5, 0.8), (0.2, 0.1)]),
    Stop(16.0, 18.0, -80), Stop(14.6, 16.0, -60), Stop(15.6, 14.4, -80), Stop(15.5, 13.0, -90),
    Stop(15.5, 8.6, -90, "chapel"), Stop(14.2, 6.0, -80), Stop(14.2, 3.6, -52, "window"), Stop(17.4, 6.0, 0),
    Stop(20.4, 6.1, 25), Stop(21.5, 7.5, 0), Stop(24.8, 7.5, 0), Stop(27.5, 8.1, -90, "furnace"), Stop(25.0, 6.4, -120),
    Stop(24.8, 2.9, -14, "wardens", clicks=[(0.5, 0.5), (0.5, 0.1)]), Stop(25.0, 6.4, 45), Stop(27.5, 8.5, 90),
    Stop(27.5, 10.6, 95, "passage"), Stop(29.2, 13.0, 90, keys=[KEY_ESCAPE]), Stop(29.2, 16.0, 110, "cellar"),
    Stop(27.3, 19.0, 195, "flashlight", True), Stop(28.5, 21.5, 90), Stop(28.5, 23.5, 180),
    Stop(18.6, 23.6, 170, "gate", keys=[KEY_F5, KEY_F12]), Stop(17.8, 23.5, 170), Stop(17.9, 23.5, 160, "burnt"),
    Stop(18.2, 24.2, 100), Stop(17.5, 24.6, 80), Stop(17.6, 27.5, 0, "garden"),
    Stop(16.0, 27.5, 190, "glow"), Stop(13.8, 27.5, 190, keys=[KEY_F9]), Stop(18.6, 23.6, 170, "back at the gate"),
    Stop(17.5, 24.6, 80), Stop(16.0, 27.5, 190, keys=[KEY_F11]), Stop(11.5, 27.5, 180, keys=[KEY_F12, KEY_F11]),
    Stop(9.0, 27.6, 205, "stable", True), Stop(6.2, 27.5, 190), Stop(5.2, 26.0, -90), Stop(4.5, 23.5, -90),
    Stop(4.5, 21.2, -90, "hall"), Stop(6.0, 19.5, 0), Stop(9.5, 19.5, 0), Stop(12.4, 19.3, 190, "sunset"),
    Stop(10.4, 18.6, -90), Stop(10.4, 12.5, -90), Stop(8.5, 12.5, -180), Stop(4.5, 12.3, -90), Stop(4.5, 9.5, -90),
    Stop(4.5, 8.0, -90, "library"), Stop(4.5, 2.4, -90),
]


class Tour(AbstractSystem):
    """Leads the player along the stops. It sets the velocity only, so walls and things stand in its way as in yours."""

    def __init__(self):
        super().__init__()
        self._way = list(_frames(STOPS))
        self.frames = 0
        self.seconds = 0.0
        self.pictures = []

    def lead(self, game, max_frames=None):
        """Plays the game from the title on."""
        self._game = game
        game.start(self)
        game.engine.update()
        game.engine.update()
        self._save_picture("title")
        game.engine.click_on(game.title.play)
        game.engine.update()
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
            self._visit_menu()

    def _visit_menu(self):
        """Turns the music down, saves three games, looks through the list of them, and goes on."""
        engine, menu = self._game.engine, self._game.menu
        engine.update()
        engine.update()
        x, y = middle(menu.music)
        knob = menu.music._x + int(menu.music.width * 0.88)
        engine.drag(knob, y, x, y)
        for _ in range(3):
            engine.click_on(menu.save)
        engine.turn_wheel(*middle(menu.level_list), steps=-1)
        engine.move(*middle(menu.go_on))
        self._save_picture("menu")
        print("music at %d of 128, list of levels moved by %d" % (getMusicVolume(), menu.level_list.scrollPosY))
        engine.click_on(menu.go_on)

    def update(self, timeStep):
        stop = self._way[self.frames]
        dx, dy = stop.x - self._position.x, stop.y - self._position.y
        length = math.sqrt(dx * dx + dy * dy)
        scale = min(1.0, LONGEST_STEP / length) / timeStep if length > 0 else 0.0
        self._velocity.x, self._velocity.y = dx * scale, dy * scale
        self._facing.x, self._facing.y = math.cos(math.radians(stop.degrees)), math.sin(math.radians(stop.degrees))

    def print_report(self):
        game = self._game
        print("%d frames of %dx%d, %.0f frames per second" % (
            (self.frames,) + game.target.getSize() + (self.frames / self.seconds,)))
        print("%d of %d gems found" % (game.world.treasure.found, game.world.treasure.total))
        print("sounds played: " + ", ".join("%s %d times" % item for item in sorted(game.sounds.played.items())))
        print("%d pictures in %s:" % (len(self.pictures), os.path.dirname(game.files.picture(""))))
        for picture in self.pictures:
            print("  " + picture)

    def _save_picture(self, name):
        picture = "%02d-%s.png" % (len(self.pictures) + 1, name.replace(" ", "-"))
        self._game.target.saveFile(self._game.files.picture(picture))
        self.pictures.append(picture)


def _frames(stops):
    """Where to be and look in each frame: on the way from stop to stop, and at last at it, where the picture is."""
    last = saved = stops[0]
    for stop in stops[1:]:
        distance = math.sqrt((stop.x - last.x) ** 2 + (stop.y - last.y) ** 2)
        turn = (stop.degrees - last.degrees + 180.0) % 360.0 - 180.0
        count = max(1, int(math.ceil(max(distance / PACE, abs(turn) / TURN))))
        for frame in range(1, count):
            share = frame / count
            swing = share * share * (3 - 2 * share)
            x, y = last.x + (stop.x - last.x) * share, last.y + (stop.y - last.y) * share
            yield Stop(x, y, last.degrees + turn * swing, lamp=stop.lamp)
        yield stop
        saved = stop if KEY_F5 in stop.keys else saved
        last = saved if KEY_F9 in stop.keys else stop
