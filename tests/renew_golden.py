"""Renews the hashes of the stored frames: `PYTHONPATH=build python3 tests/renew_golden.py [folder]`.

Draws every golden scene with the module, checks it against the reference model, writes the hashes
to golden_frames.json and the pictures to the folder (default: build/golden_frames). Look at them.
"""

import json
import os
import sys
import tempfile

os.environ.setdefault("SDL_VIDEODRIVER", "dummy")
os.environ.setdefault("SDL_AUDIODRIVER", "dummy")

from scenes import golden_scenes    # noqa: E402 (the drivers come first)
from world import World, frame_hash # noqa: E402


def main(folder=os.path.join("build", "golden_frames")):
    os.makedirs(folder, exist_ok=True)
    hashes = {}
    for name, scene in golden_scenes().items():
        with tempfile.TemporaryDirectory() as files:
            world = World(scene, files)
            world.play()
        hashes[name] = frame_hash(world)
        world.target.saveFile(os.path.join(folder, name.replace(" ", "_") + ".png"))
    with open(os.path.join(os.path.dirname(os.path.abspath(__file__)), "golden_frames.json"), "w") as file:
        json.dump(hashes, file, indent=2, sort_keys=True)
        file.write("\n")
    print("renewed {} hashes, pictures in {}".format(len(hashes), folder))


if __name__ == "__main__":
    main(*sys.argv[1:])
