"""The menus of the game: the title, and what one comes to with Escape."""

import os
import time

from zelvarine import (ANCHOR_CENTER, SliderValueChangedEvent, UIImage, UIScrollPanel, getMusicVolume, getSoundVolume,
                       setMusicVolume, setSoundVolume)

from shared.parts import column, fixed, heading, spaced

from .entries import MenuButton, MenuSlider
from .files import label
from .menu import Menu

TASK = "Find the gems, and keep clear of fires and wardens."
ROOM_FOR_TASK = 400  # pixels
FULL_VOLUME = 128
LIST_WIDTH = 270
SCROLL_BAR = 50  # what it takes of the list's width
ROW = 34  # height of a button with its margins
AROUND_LIST = 90  # height of what is above and below the list


class TitleScreen(Menu):
    """Escape leads to the button that ends the game, and no further."""

    def __init__(self, theme, game):
        super().__init__(self._choose_last, game.target.height // 12)
        self.add(MenuButton("Walk", game.resume))
        if game.files.saved():
            self.add(MenuButton("Go on where you saved", game.load_newest))
        self.add(MenuButton("Quit", game.quit))
        top = game.target.height // 12
        self._add_line(theme, "title", "The Abbey", "brass", top)
        if game.target.width >= ROOM_FOR_TASK:
            self._add_line(theme, "aileron", TASK, "fontColor", top + 50)

    def _choose_last(self):
        self.choose(self.entries[-1])

    def _add_line(self, theme, font, words, color, y):
        """A line of text, and its shadow one step behind it, so that it can be read before any sky."""
        for step, shade in ((1, (0, 0, 0)), (0, theme.getColor(color))):
            picture = UIImage(theme.getFont(font).render(words, shade))
            self.widget.addChild(picture, step, y + step, ANCHOR_CENTER)


class PauseMenu(Menu):
    def __init__(self, theme, game):
        super().__init__(game.resume, -max(0, game.target.height - 240) // 8)
        self._game = game
        self.games = GameList(theme, game, lambda: game.show(self))
        self.volume = VolumeMenu(theme, game, lambda: game.show(self))
        self.go_on = self.add(MenuButton("Go on", game.resume))
        self.add(MenuButton("Save", game.save_new))
        self.add(MenuButton("Load", self._show_games))
        self.add(MenuButton("Volume", lambda: game.show(self.volume)))
        self.add(MenuButton("Keys", game.show_keys))
        self.add(MenuButton("Quit", game.quit))

    def _show_games(self):
        self.games.fill()
        self._game.show(self.games)


class VolumeMenu(Menu):
    def __init__(self, theme, game, back):
        super().__init__(back)
        self.sounds = self.add(MenuSlider("Sounds", getSoundVolume(), FULL_VOLUME, theme)).slider
        self.music = self.add(MenuSlider("Music", getMusicVolume(), FULL_VOLUME, theme)).slider
        self.add(MenuButton("Back", back))
        game.engine.subscribeEvent(SliderValueChangedEvent, self._on_slider)

    def _on_slider(self, event):
        if event.target is self.sounds:
            setSoundVolume(event.newValue)
        elif event.target is self.music:
            setMusicVolume(event.newValue)


class GameList(Menu):
    """What can be loaded: the saved games, the newest first, and the levels, which begin anew."""

    def __init__(self, theme, game, back):
        super().__init__(back)
        self._theme = theme
        self._game = game
        self._back = MenuButton("Back", back, LIST_WIDTH)
        self._list = column()
        self._height = min(200, game.target.height - AROUND_LIST)
        self.scroll_panel = fixed(UIScrollPanel(self._list), LIST_WIDTH, self._height)
        self.panel.addChild(spaced(self.scroll_panel, 0, 0, 6, 0))
        self.panel.addChild(self._back)

    def fill(self):
        self.entries.clear()
        self._list.removeAllChildren()
        self._add_files("Saved games", self._game.files.saved(), _name_and_time)
        self._add_files("Levels", self._game.files.levels(), label)
        self.entries.append(self._back)
        self.choose(self.entries[0])
        self.scroll_panel.scrollPosY = 0
        # A scroll bar needs something to scroll.
        fixed(self._list, height=max(ROW * len(self._list.getChildren()), self._height))

    def reveal(self, entry):
        """Scrolls until the entry is in the middle."""
        self.scroll_panel.scrollPosY = entry._y - self._list._y - (self._height - entry.height) // 2

    def _add_files(self, title, paths, name):
        if paths:
            self._list.addChild(spaced(fixed(heading(self._theme, title), height=ROW - 10), 10, 0, 0, 2))
        for path in paths:
            self.add(MenuButton(name(path), self._loader(path), LIST_WIDTH - SCROLL_BAR, self.scroll_panel), self._list)

    def _loader(self, path):
        return lambda: self._game.load(path)


def _name_and_time(path):
    return "%s, %s" % (label(path), time.strftime("%d %b %H:%M", time.localtime(os.path.getmtime(path))))
