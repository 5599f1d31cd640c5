#!/usr/bin/env python3
"""A walk through an old abbey: the demo game of zelvarine.

With a display it opens a window and you play. Without one, or with --headless, it takes a scripted walk, saves pictures
of what there is to see, and tells how fast it went.
"""

import argparse
import os
import sys

from abbey import places

KEYS = """
keys:
  W A S D, arrows   walk, step aside, turn        Shift   run
  mouse             look around                   M       let the mouse go, or catch it
  click             tell what is there            F       flashlight
  F5, F9            save the game, load it        F11     fullscreen
  F12               save a screenshot             Escape  quit
A gamepad's sticks walk and turn, too.
"""


def main():
    options = parse_options()
    # The module opens the screen and the audio device as it is imported, so the drivers are chosen before that.
    if options.headless:
        os.environ["SDL_VIDEODRIVER"] = "dummy"
    if options.headless or options.silent:
        os.environ["SDL_AUDIODRIVER"] = "dummy"
    from abbey.game import Game
    from zelvarine import LevelFormatException

    save_file = options.save
    if save_file is None:
        # The scripted walk saves, too, and leaves your game alone.
        save_file = os.path.join(options.pictures, "saved.lvl") if options.headless else places.saved_game()
    try:
        game = Game(options.level, options.size, save_file, options.pictures)
    except (OSError, LookupError, TypeError, ValueError, LevelFormatException) as error:
        sys.exit("cannot load %s: %s" % (options.level, error))
    if options.headless:
        game.show_around(options.frames).print_report()
    else:
        game.play(options.fps)


def parse_options():
    parser = argparse.ArgumentParser(description=__doc__, epilog=KEYS,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--level", default=places.LEVEL, help="level file to walk through")
    parser.add_argument("--size", type=size, default=(640, 400), metavar="WxH", help="size of the picture (640x400)")
    parser.add_argument("--fps", type=positive, default=60, help="most frames in a second when you play (60)")
    parser.add_argument("--silent", action="store_true", help="run without an audio device")
    parser.add_argument("--headless", action="store_true", default=not has_display(),
                        help="take the scripted walk, without a window; the default where there is no display")
    parser.add_argument("--frames", type=positive, help="end the scripted walk after so many frames")
    parser.add_argument("--pictures", metavar="FOLDER", default=places.picture_folder("walk-pictures"),
                        help="where the scripted walk saves its pictures, and F12 its screenshots")
    parser.add_argument("--save", metavar="FILE", help="where F5 saves the game, and F9 finds it")
    return parser.parse_args()


def size(text):
    width, height = (int(number) for number in text.split("x"))
    # On smaller pictures the level's farthest sprites would be less than a pixel high, which the renderer reports.
    if not (128 <= width <= 4096 and 80 <= height <= 4096):
        raise ValueError("size out of range")
    return width, height


def positive(text):
    number = int(text)
    if number < 1:
        raise ValueError("not above 0")
    return number


def has_display():
    if not sys.platform.startswith("linux"):
        return True
    return bool(os.environ.get("DISPLAY") or os.environ.get("WAYLAND_DISPLAY"))


if __name__ == "__main__":
    main()
