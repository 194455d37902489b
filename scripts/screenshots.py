#!/usr/bin/env python3
"""Takes a picture of every window in two fonts and two themes, at every scale: scripts/screenshots.py FOLDER
[--build build/release] [--scales 1 1.5]. Each scale gets a folder of its own. Fails where a text has no room."""
import argparse
import json
import os
import pathlib
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
SCALES = ["1", "1.25", "1.5", "2", "3"]


# As large as screens of the largest scale are, so that no dialog is squeezed.
SCREEN = {"name": "large", "x": 0, "y": 0, "width": 3840, "height": 2400, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}


def take(program, folder, scale):
    folder.mkdir(parents=True, exist_ok=True)
    with tempfile.NamedTemporaryFile("w", suffix=".json") as screens:
        json.dump({"screens": [SCREEN]}, screens)
        screens.flush()
        environment = dict(os.environ, QT_QPA_PLATFORM=f"offscreen:configfile={screens.name}", QT_SCALE_FACTOR=scale,
                           PINTALUX_SHOTS=str(folder))
        return subprocess.run([program, "--gtest_brief=1"], env=environment).returncode == 0


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("folder", type=pathlib.Path)
    parser.add_argument("--build", type=pathlib.Path, default=ROOT / "build/release")
    parser.add_argument("--scales", nargs="+", default=SCALES)
    options = parser.parse_args()
    program = options.build.resolve() / "tests/looks_tests"
    well = [take(program, options.folder.resolve() / scale, scale) for scale in options.scales]
    sys.exit(0 if all(well) else 1)


if __name__ == "__main__":
    main()
