"""Keys that do something when they go down, as opposed to those that one holds to walk."""

from zelvarine import KeyEvent

from .listening import Listener


class Shortcuts(Listener):
    """Calls the action of a key. A key that is held fires events again and again, which most actions should not get."""

    def __init__(self, actions, repeated_actions=None):
        super().__init__(KeyEvent)
        self._actions = actions
        self._repeated_actions = repeated_actions or {}
        self._held = set()

    def hear(self, event):
        if event.key in self._repeated_actions:
            self._repeated_actions[event.key]()
        elif event.key in self._actions and event.key not in self._held:
            self._held.add(event.key)
            self._actions[event.key]()

    def update(self, timeStep):
        self._held = self._still_down(self._held)

    def _setEngine(self, engine):
        super()._setEngine(engine)
        if engine is not None:
            # The key that has opened a menu is down for a while yet, and must not act there, too.
            self._held = self._still_down(self._actions)

    def _still_down(self, keys):
        return {key for key in keys if self.getEngine().isKeyPressed(key)}
