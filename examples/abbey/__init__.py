"""The demo game: each module is one of its systems or handlers, and game.py puts them together."""
