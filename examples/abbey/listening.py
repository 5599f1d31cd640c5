"""Systems that listen to events."""

from zelvarine import AbstractSystem


class Listener(AbstractSystem):
    """Hears events of one type while it is a system of an engine. Derived classes have a method hear(event)."""

    def __init__(self, event_type):
        super().__init__()
        self._event_type = event_type

    def hear(self, event):
        raise NotImplementedError

    def _setEngine(self, engine):
        """Listens to the engine that the system joins, and no longer to the one that it leaves."""
        if self.getEngine() is not None:
            self.getEngine().unsubscribeEvent(self._event_type, self.hear)
        super()._setEngine(engine)
        if engine is not None:
            engine.subscribeEvent(self._event_type, self.hear)
