"""A game made into a program of its own by PyInstaller, with the hook that an installed wheel brings along."""
import os
import pathlib
import re
import subprocess
import sys

import pytest
import zelvarine

for needed in "PyInstaller", "zelvarine_hooks":
    pytest.importorskip(needed)

ROOT = pathlib.Path(__file__).resolve().parent.parent
SIXTY_FRAMES = """
import sys, zelvarine

class Engine(zelvarine.Engine):
    def run(self, maxFps=60):
        for _ in range(60):
            self.update()
        self.saveScreenshot(sys.argv[1])

zelvarine.Engine = Engine
"""


def test_first_game(tmp_path):
    readme = (ROOT / "README.md").read_text(encoding="utf-8")
    game = re.search(r"## A first game.*?```python\n(.*?)```", readme, re.DOTALL).group(1)
    (tmp_path / "game.py").write_text(SIXTY_FRAMES + game, encoding="utf-8")
    subprocess.check_call([sys.executable, "-m", "PyInstaller", "--log-level=ERROR", "game.py"], cwd=str(tmp_path))
    picture = str(tmp_path / "picture.png")
    drivers = {name: os.environ[name] for name in ("SDL_VIDEODRIVER", "SDL_AUDIODRIVER")}
    subprocess.check_call([str(tmp_path / "dist" / "game" / "game"), picture], cwd=str(ROOT), env=drivers)
    assert len(set(memoryview(zelvarine.Texture(picture)).cast("B").cast("I"))) > 100  # colors
