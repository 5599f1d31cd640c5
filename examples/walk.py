#!/usr/bin/env python3
"""A walk through an old abbey: the demo game of zelvarine.

With a display it opens a window and you play. Without one, or with --headless, it takes a scripted walk, saves pictures
of what there is to see, and tells how fast it went.
"""

import argparse
import os
import sys
import tempfile

from abbey.keys import KEYS
from shared import display, places


def main():
    options = parse_options()
    display.choose_drivers(options.headless, options.silent)
    # Not before the drivers are chosen: the import of zelvarine opens the screen and the audio device.
    from abbey.controls import Controls
    from abbey.files import Files
    from abbey.game import Game, LEVEL_ERRORS
    from abbey.tour import Tour
    from shared.fonts import FontNotFound
    from shared.puppet import PuppetEngine
    from shared.themes import load_theme
    from zelvarine import Engine

    engine = PuppetEngine() if options.headless else Engine()
    # The scripted walk saves, too, and leaves your games alone.
    with tempfile.TemporaryDirectory() as elsewhere:
        folder = elsewhere if options.headless else places.data_folder("zelvarine-abbey")
        quick_save = options.save or os.path.join(folder, "quick-save.lvl")
        files = Files(options.level, quick_save, options.pictures)
        try:
            game = Game(engine, load_theme(options.font), files, options.size)
        except (FontNotFound,) + LEVEL_ERRORS as error:
            sys.exit("%s" % error)
        if options.headless:
            tour = Tour()
            tour.lead(game, options.frames)
            tour.print_report()
        else:
            game.start(Controls(engine))
            engine.run(options.fps)
            engine.quit()


def parse_options():
    parser = argparse.ArgumentParser(description=__doc__, epilog=key_help(),
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--level", default=places.LEVEL, help="level file to walk through")
    parser.add_argument("--size", type=size, default=(640, 400), metavar="WxH", help="size of the picture (640x400)")
    parser.add_argument("--fps", type=positive, default=60, help="most frames in a second when you play (60)")
    parser.add_argument("--silent", action="store_true", help="run without an audio device")
    parser.add_argument("--headless", action="store_true", default=not display.exists(),
                        help="take the scripted walk, without a window; the default where there is no display")
    parser.add_argument("--frames", type=positive, help="end the scripted walk after so many frames")
    parser.add_argument("--pictures", metavar="FOLDER", default=places.picture_folder("walk-pictures"),
                        help="where the scripted walk saves its pictures, and F12 its screenshots")
    parser.add_argument("--font", metavar="FILE", help="TrueType font to use")
    parser.add_argument("--save", metavar="FILE", help="where F5 saves the game, and F9 finds it, and the menu's "
                        "games beside it (quick-save.lvl in the folder for your data)")
    return parser.parse_args()


def key_help():
    keys = ["  %-8s  %s" % pair for pair in KEYS]
    return "keys:\n%s\nThe arrow keys and a gamepad's sticks walk and turn, too." % "\n".join(keys)


def size(text):
    width, height = (int(number) for number in text.split("x"))
    # The menu needs room. Besides, on very small pictures the level's farthest sprites would be less than a pixel high,
    # which the renderer reports.
    if not (320 <= width <= 4096 and 200 <= height <= 4096):
        raise ValueError("size out of range")
    return width, height


def positive(text):
    number = int(text)
    if number < 1:
        raise ValueError("not above 0")
    return number


if __name__ == "__main__":
    main()
