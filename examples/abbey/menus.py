"""The screens between: the title, and the menu in the pause."""

import os

from zelvarine import (ANCHOR_BOTTOM, ANCHOR_CENTER, SliderValueChangedEvent, UIAnchoredContainer,
                       UIImage, UIScrollPanel, getMusicVolume, getSoundVolume, setMusicVolume,
                       setSoundVolume)

from shared.parts import button, column, fixed, heading, panel, row, slider, spaced, text

FULL_VOLUME = 128
LIST_WIDTH, LIST_HEIGHT = 220, 150
ROW = 34  # height of a button with its margins


class TitleScreen:
    def __init__(self, theme, game):
        title = theme.getFont("title").render("The Abbey", theme.getColor("brass"))
        shadow = theme.getFont("title").render("The Abbey", (0, 0, 0))
        self.play = button("Walk", lambda event: game.resume(), width=200)
        choices = panel(self.play, button("Go on where you saved", lambda event: game.load(), width=200),
                        button("Quit", lambda event: game.quit(), width=200))
        self.widget = UIAnchoredContainer()
        top = game.target.height // 8
        self.widget.addChild(UIImage(shadow), 2, top + 2, ANCHOR_CENTER)
        self.widget.addChild(UIImage(title), 0, top, ANCHOR_CENTER)
        self.widget.addChild(spaced(choices, 0), 0, 30, ANCHOR_CENTER, ANCHOR_CENTER)
        task = panel(text("Find the gems, and keep clear of fires and wardens."))
        self.widget.addChild(spaced(task, 0), 0, 6, ANCHOR_CENTER, ANCHOR_BOTTOM)


class PauseMenu:
    """What to do, how loud everything is, and the levels that there are."""

    def __init__(self, theme, game):
        self._game = game
        self.sounds = slider(getSoundVolume(), 0, FULL_VOLUME, width=180)
        self.music = slider(getMusicVolume(), 0, FULL_VOLUME, width=180)
        self._levels = column()
        self.level_list = fixed(UIScrollPanel(self._levels), LIST_WIDTH, LIST_HEIGHT)
        self.go_on = button("Go on", lambda event: game.resume(), width=180)
        self.save = button("Save as a new game", lambda event: game.save_new(), width=180)
        choices = column(
            self.go_on, self.save, button("Quit", lambda event: game.quit(), width=180),
            spaced(heading(theme, "Sounds"), 8, 0, 2, 2), self.sounds,
            spaced(heading(theme, "Music"), 4, 0, 2, 2), self.music)
        menu = panel(row(choices, spaced(column(heading(theme, "Levels"), self.level_list), 0, 0, 0, 16)))
        self.widget = UIAnchoredContainer()
        self.widget.addChild(spaced(menu, 0), 0, 0, ANCHOR_CENTER, ANCHOR_CENTER)
        game.engine.subscribeEvent(SliderValueChangedEvent, self._on_slider)

    def list_levels(self, paths):
        self._levels.removeAllChildren()
        for path in paths:
            self._levels.addChild(button(os.path.basename(path), self._loader(path), width=LIST_WIDTH - 50))
        # A scroll bar needs something to scroll.
        fixed(self._levels, height=max(ROW * len(paths), LIST_HEIGHT + 1))

    def _loader(self, path):
        return lambda event: self._game.load(path)

    def _on_slider(self, event):
        if event.target is self.sounds:
            setSoundVolume(event.newValue)
        elif event.target is self.music:
            setMusicVolume(event.newValue)
