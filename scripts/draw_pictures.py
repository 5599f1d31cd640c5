#!/usr/bin/env python3
"""Draws the pictures of the pages. Most are what the games of the pages show, so the pages are followed for them."""
import json
import math
import os
import subprocess
import sys

import follow_page
import play
import zelvarine as z

PICTURES = os.path.join(follow_page.ROOT, "docs", "pictures")
ASSETS = os.path.join(follow_page.ROOT, "examples", "assets")
OUTLINE = 0xFF40E0FF
# For each game that a page plays, where the player goes, a frame in each place, and the name of the picture that is
# taken in the last one. A place is x, y and a direction in degrees.
GAMES = {
    "README.md": [("first-game", [(2.5, 2.5, 82)])],
    "docs/tutorial.md": [
        ("tutorial-1", [(2.5, 2.5, 90)]),
        ("tutorial-2", [(12.5, 14.5, -60)]),
        ("tutorial-3", [(10, 8.5, -100)]),
        ("tutorial-4", [(10.5, 1.5, 0), (2.5, 4.5, 0), (13.3, 6.6, -95)]),
        ("tutorial-5", [(10.5, 1.5, 0), (2.5, 4.5, 0), (7.5, 8.5, 0), (5.5, 10.4, 200)]),
    ],
}


class Guide(play.ShortEngine):
    """Leads the player through a game. Its clock always tells the same, so that pictures do not change by themselves."""

    def getTimeStep(self):
        return 1 / 60

    def run(self, maxFps=60):
        picture, places = json.loads(os.environ["TOUR"])
        renderer = next(system for system in self.ecs.getSystems() if isinstance(system, z.RaycastingRenderer))
        for place in places:
            put(renderer, *place)
            for task, onDone in list(self._tasks):
                task(self.getTimeStep(), onDone)
            self.ecs.update(self.getTimeStep())
        save(renderer.getTarget(), picture)


class Tour(follow_page.Page):
    """A page whose games are seen by a guide."""

    def __init__(self, page, games):
        super().__init__(os.path.join(follow_page.ROOT, page))
        self._games = list(games)

    def play(self, script):
        if script != "game.py":
            return super().play(script)
        subprocess.run([sys.executable, __file__, script], check=True,
                       env=dict(os.environ, TOUR=json.dumps(self._games.pop(0))))


def put(renderer, x, y, degrees):
    camera = renderer.getCamera()
    camera.pos.set(z.Vector2(x, y))
    camera.dir.set(z.Vector2(math.cos(math.radians(degrees)), math.sin(math.radians(degrees))))


def save(texture, picture):
    texture.saveFile(os.path.join(PICTURES, picture + ".png"))


def enlarged(texture, scale):
    """Each pixel as a square of several."""
    pixels = memoryview(texture)
    large = z.Texture(texture.width * scale, texture.height * scale)
    words = memoryview(large)
    for y in range(large.height):
        for x in range(large.width):
            words[y, x] = pixels[y // scale, x // scale]
    return large


def draw_green_line():
    renderer = z.RaycastingRenderer(z.Texture(320, 120), z.Level())
    put(renderer, 18.4, 6, 102.6)
    renderer.render()
    save(enlarged(renderer.getTarget(), 2), "green-line")


def draw_tileset():
    folder = os.path.join(ASSETS, "widgets")
    with open(os.path.join(folder, "theme.json")) as file:
        pieces = json.load(file)["widgets"]
    tiles = enlarged(z.Texture(os.path.join(folder, "tileset.png")), 2)
    page = z.Texture(tiles.width, tiles.height)
    page.fill((58, 56, 66))
    page.copyFrom(tiles)
    outline(memoryview(page), pieces, 2)
    save(page, "tileset")


def outline(pixels, pieces, scale):
    for piece in pieces.values():
        if not isinstance(piece, dict):
            continue
        if "x" not in piece:
            outline(pixels, piece, scale)
            continue
        left, top = piece["x"] * scale, piece["y"] * scale
        right = left + scale * length(piece, "width", "left middle right", "leftWidth middleWidth rightWidth") - 1
        bottom = top + scale * length(piece, "height", "top middle bottom", "topHeight middleHeight bottomHeight") - 1
        for x in range(left, right + 1):
            pixels[top, x] = pixels[bottom, x] = OUTLINE
        for y in range(top, bottom + 1):
            pixels[y, left] = pixels[y, right] = OUTLINE


def length(piece, whole, *parts):
    if whole in piece:
        return piece[whole]
    return next(sum(piece[name] for name in names.split()) for names in parts if names.split()[0] in piece)


def draw_menu():
    page = follow_page.Page(os.path.join(follow_page.ROOT, "docs", "theme-file.md"))
    follow_page.follow(page)
    save(page.names["ui"].getTarget(), "menu")


def main():
    if sys.argv[1:]:
        z.Engine = Guide
        play.play(sys.argv[1])
        return
    for page, games in GAMES.items():
        follow_page.follow(Tour(page, games))
    draw_green_line()
    draw_tileset()
    draw_menu()


if __name__ == "__main__":
    main()
