"""Tells PyInstaller, through the entry point `pyinstaller40`, where the hooks of zelvarine are."""

import os


def folders():
    return [os.path.dirname(__file__)]
