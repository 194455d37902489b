#!/usr/bin/env python3
"""table.py [--rounds N] [--one]: the pixel routines and the states, on 24 million pixels, as multiples of the
fastest copy of the same bytes in the same run, on one core, best of many, with the wanted figure beside each.
With all cores: how much faster than one; as much as 1.9, or what the copy gains, is wanted (--one leaves this
out: it is elapsed time, and means something on a quiet machine only). Small: what a pixel of an image of 300
by 300 costs, by one of the large image; 1.2 at most. At the end, the nanoseconds for a pixel of a reduced view:
painted again, which is what scrolling does, and with all its means made, which happens once. Ends with an error
where a figure is missed by more than a tenth. The program is built first: cmake --build build/release --target imageops_table."""
import argparse
import pathlib
import subprocess
import sys

PROGRAM = pathlib.Path(__file__).resolve().parent.parent / "build/release/bench/imageops_table"
WANTED = {
    "invert": 1.3,
    "flip down": 1.3,
    "flip across": 1.5,
    "brightness": 3.0,
    "colour step": 3.0,
    "grey": 3.5,
    "sharpen": 3.2,
    "emboss": 3.0,
    "soften": 4.5,
    "turn by a quarter": 6.0,
    "scatter": 14.0,
    "pixelate": 0.8,
    "commit of a moved masked piece": 1.4,
    "read a state from disk": 2.0,
    "read a state from a memory file system": 2.6,
    "write a state to disk": 6.0,
}
VIEW = "view at 1:4, painted again"
VIEW_MADE = "view at 1:4, made"
VIEW_WANTED = 0.8  # nanoseconds a pixel
GAIN = 1.9
SMALL = 1.2
SLACK = 1.1
FILES = ("read a state", "write a state")


def measure(rounds, before=()):
    lines = subprocess.run([*before, PROGRAM, str(rounds)], check=True, capture_output=True, text=True).stdout
    rows = (line.split("\t") for line in lines.splitlines())
    return {name: [float(figure) for figure in figures] for name, *figures in rows}


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--rounds", type=int, default=15)
    parser.add_argument("--one", action="store_true")
    options = parser.parse_args()
    one = measure(options.rounds, ("taskset", "-c", "0"))
    cores = {} if options.one else measure(options.rounds)
    missed = []

    def judged(name, figure, limit, good):
        if not good:
            missed.append(f"{name}: {figure:.2f} instead of {limit:.2f}")
        return f"{figure:7.2f} {limit:7.2f}{' ' if good else '!'}"

    print(f"{'work':40}{'copies':>7}{'wanted':>8} {'gain':>8}{'wanted':>8} {'small':>8}{'wanted':>8}")
    for name, wanted in WANTED.items():
        copies, wall, large, small = one[name]
        line = f"{name:40}" + judged(name, copies, wanted, copies <= wanted * SLACK)
        works_on_cores = not name.startswith(FILES)
        if cores and works_on_cores:
            gain = wall / cores[name][1]
            limit = min(GAIN, one["copy"][1] / cores["copy"][1])
            line += " " + judged(f"{name}, all cores", gain, limit, gain * SLACK >= limit)
        elif small:
            line += " " * 17
        if small:
            line += " " + judged(f"{name}, small", small / large, SMALL, small / large <= SMALL * SLACK)
        print(line.rstrip())
    view = one[VIEW][0]
    print(f"{VIEW:40}{judged(VIEW, view, VIEW_WANTED, view <= VIEW_WANTED * SLACK)} ns a pixel; made: {one[VIEW_MADE][0]:.2f}")
    print(f"a copy takes {one['copy'][1]:.1f} ms on one core" + (f", {cores['copy'][1]:.1f} on all" if cores else ""))
    for miss in missed:
        print(f"missed by more than a tenth: {miss}", file=sys.stderr)
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
