"""The demo game: each module is one part of it, and game.py puts them together."""
