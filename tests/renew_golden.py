"""Renews the hashes of the stored frames: `PYTHONPATH=build python3 tests/renew_golden.py [folder]`.

Draws every golden scene with the module, checks it against the reference model, writes the hashes
to golden_frames.json and the pictures to the folder (default: golden_frames). Look at them.
"""

import hashlib
import json
import os
import sys
import tempfile

os.environ.setdefault("SDL_VIDEODRIVER", "dummy")
os.environ.setdefault("SDL_AUDIODRIVER", "dummy")

from scenes import golden_scenes    # noqa: E402 (the drivers come first)
from world import World             # noqa: E402


def main(folder="golden_frames"):
    os.makedirs(folder, exist_ok=True)
    hashes = {}
    for name, scene in golden_scenes().items():
        with tempfile.TemporaryDirectory() as files:
            words = World(scene, files).draw()
        with tempfile.TemporaryDirectory() as files:
            world = World(golden_scenes()[name], files)
            world.play()
        hashes[name] = hashlib.sha256(words.tobytes()).hexdigest()
        world.target.saveFile(os.path.join(folder, name.replace(" ", "_") + ".png"))
    with open(os.path.join(os.path.dirname(os.path.abspath(__file__)), "golden_frames.json"), "w") as file:
        json.dump(hashes, file, indent=2, sort_keys=True)
        file.write("\n")
    print("renewed {} hashes, pictures in {}".format(len(hashes), folder))


if __name__ == "__main__":
    main(*sys.argv[1:])
