#!/usr/bin/env python3
"""A gallery of zelvarine's widgets.

With a display it opens a window, and you play with them. Without one, or with --headless, a script does, and saves
pictures.
"""

import argparse
import sys

from shared import display, places


def main():
    options = parse_options()
    display.choose_drivers(options.headless, silent=True)
    # Not before the drivers are chosen: the import of zelvarine opens the screen and the audio device.
    from gallery.script import play
    from gallery.window import Gallery
    from shared.fonts import FontNotFound
    from shared.puppet import PuppetEngine
    from shared.themes import load_theme
    from zelvarine import Engine

    try:
        theme = load_theme(options.font)
    except (FontNotFound, OSError) as error:
        sys.exit(str(error))
    gallery = Gallery(PuppetEngine() if options.headless else Engine(), theme)
    if options.headless:
        pictures = play(gallery, options.pictures)
        print("%d pictures in %s:" % (len(pictures), options.pictures))
        for picture in pictures:
            print("  " + picture)
    else:
        gallery.engine.run()
    gallery.engine.quit()


def parse_options():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--font", metavar="FILE", help="TrueType font to use")
    parser.add_argument("--headless", action="store_true", default=not display.exists(),
                        help="let a script play, without a window; the default where there is no display")
    parser.add_argument("--pictures", metavar="FOLDER", default=places.picture_folder("widget-pictures"),
                        help="where the script saves its pictures")
    return parser.parse_args()


if __name__ == "__main__":
    main()
