"""The gallery's window: buttons for the pages at the left, and the page."""

import os

from zelvarine import Texture, UIRenderer

from shared.parts import button, heading, panel

from . import pages
from .scrolling import Scrolling
from .sliders import Sliders

SIZE = (960, 600)
MARGIN = 20
PAGE_X = 200


class Gallery:
    def __init__(self, engine, theme):
        self.engine = engine
        engine.init("zelvarine - widgets", SIZE, resizeable=True)
        self.target = Texture(*SIZE)
        self.renderer = UIRenderer(self.target, True, theme)
        self.sliders = Sliders(theme, engine)
        self.scrolling = Scrolling(theme)
        self.pages = {
            "Sizes": pages.sizes(theme), "Alignment": pages.alignment(theme), "Anchors": pages.anchors(theme),
            "Texts": pages.texts(theme), "Pictures": pages.pictures(theme),
            "Scrolling": self.scrolling.widget, "Sliders": self.sliders.widget,
        }
        self.buttons = {name: button(name, lambda event, name=name: self.show(name), width=130) for name in self.pages}
        self._page = None
        root = self.renderer.widget
        root.addChild(panel(heading(theme, "Widgets"), *self.buttons.values()), MARGIN, MARGIN)
        engine.ecs.addSystem(self.renderer)
        self.show("Sizes")

    def show(self, name):
        root = self.renderer.widget
        if self._page is not None:
            root.removeChild(self._page)
        self._page = self.pages[name]
        root.addChild(self._page, PAGE_X, MARGIN)

    def save_picture(self, folder, name):
        os.makedirs(folder, exist_ok=True)
        self.target.saveFile(os.path.join(folder, name))
