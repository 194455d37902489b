#!/usr/bin/env python3
"""screenshot.py [--program path] <left picture> <right picture>: takes docs/screenshot.png from the real program.

The program runs on a display of its own, as in the desktop tests, with two pictures side by side and some colours in its
collection.
"""
import argparse
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "tests" / "desktop"))

from desktop import Desktop, wait_for  # noqa: E402
from roads import MAIN, corner_of, leave  # noqa: E402
from run import built_places, built_program  # noqa: E402

WIDTH, HEIGHT = 1100, 780
SPECTRUM = (105, 150)  # pixels, from the box's left top corner
COLOURS = [(0.05, 0.3), (0.2, 0.6), (0.35, 0.3), (0.6, 0.5), (0.75, 0.4), (0.25, 0.8), (0.4, 0.7), (0.93, 0.5)]


def pick_colours(desktop, place):
    """Clicks into the spectrum: each colour joins the collection."""
    x, y = corner_of(desktop, desktop.window(MAIN))
    left, top, _, _ = place
    for across, down in COLOURS:
        desktop.click(x + left + round(across * SPECTRUM[0]), y + top + round(down * SPECTRUM[1]))
        time.sleep(0.2)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", type=Path)
    parser.add_argument("pictures", type=Path, nargs=2)
    options = parser.parse_args()
    program = options.program or built_program()
    with Desktop(program, built_places(program)) as desktop:
        desktop.write_settings(MainLeft=600, MainTop=600, MainWidth=15 * WIDTH, MainHeight=15 * HEIGHT, ShowSplash=0)
        places = desktop.places()
        for number, picture in enumerate(options.pictures, 1):
            desktop.start(picture.resolve())
            wait_for(lambda: len(desktop.state_files()) == number, f"{picture} is open")
        desktop.wait_for_window(MAIN)
        pick_colours(desktop, places["ColorBox"])
        desktop.menu("j", "v")
        time.sleep(1)
        target = ROOT / "docs" / "screenshot.png"
        # The frame of the window manager belongs to the picture; moments and machines do not.
        frame = desktop.tool("xprop", "-id", desktop.window(MAIN), "-notype", "_NET_FRAME_EXTENTS").split("=")[1]
        left, right, top, bottom = (int(side) for side in frame.split(","))
        _, _, width, height = desktop.geometry(desktop.window(MAIN))
        x, y = corner_of(desktop, desktop.window(MAIN))
        desktop.move(1279, 1023)
        area = f"{width + left + right}x{height + top + bottom}+{x - left}+{y - top}"
        desktop.tool("import", "-window", "root", "-crop", area, "+repage", "-strip", target)
        leave(desktop)
    print(target.relative_to(ROOT))


if __name__ == "__main__":
    main()
