"""The window's title."""

from zelvarine import AbstractSystem

INTERVAL = 0.5  # seconds


class TitleBar(AbstractSystem):
    """Shows the frames per second, over half a second each, and the gems found."""

    def __init__(self):
        super().__init__()
        self._frames, self._time = 0, 0.0

    def follow(self, world):
        self._treasure = world.treasure

    def update(self, timeStep):
        self._frames += 1
        self._time += timeStep
        if self._time >= INTERVAL:
            fps = self._frames / self._time
            title = "zelvarine - %.0f fps - %d of %d gems" % (fps, self._treasure.found, self._treasure.total)
            self.getEngine().setWindowTitle(title)
            self._frames, self._time = 0, 0.0
