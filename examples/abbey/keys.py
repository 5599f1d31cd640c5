"""The keys, for those who play. Nothing is imported here, so that --help can show them without a game."""

KEYS = [
    ("W A S D", "walk"),
    ("mouse", "look around"),
    ("Shift", "run"),
    ("Esc", "menu"),
    ("click", "what is that?"),
    ("F", "flashlight"),
    ("M", "free the mouse"),
    ("F1", "these keys"),
    ("F5", "save"),
    ("F9", "load"),
    ("F11", "fullscreen"),
    ("F12", "screenshot"),
]
