#!/usr/bin/env python3
"""clipboard.py [--program path] [--rounds N]: the program at the clipboard with another one at its other end, on a display of
its own. How long the interface is deaf at most (something is dragged over it, and each move has an answer) while the
other one keeps silent or never comes to an end, and how long it takes until all bytes of a picture of 24 million pixels are
there. The wanted figure stands beside each; ends with an error where one is missed. Elapsed times mean something on a
quiet machine only. Built first: cmake --build build/release --target pintalux64 program_places"""
import argparse
import random
import select
import statistics
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "tests/desktop"))

import other_client  # noqa: E402
import ClipboardTests as roads  # noqa: E402
from desktop import Desktop, wait_for  # noqa: E402
from roads import MAIN  # noqa: E402

WIDTH, HEIGHT = 6000, 4000
WANTED_PAUSE = 100  # milliseconds
WANTED_PASTE = 300
INTERVAL = 0.004  # seconds between two moves
TOLD = "drags"


def probe(window):
    """Drags something that nobody takes over a window until the input ends; prints the longest time until the window has
    answered to a move of it, in milliseconds."""
    drag = other_client.Drag(other_client.Client(), window, [])
    middle, copy = drag.middle(), drag.client.atom("XdndActionCopy")
    drag.tell("XdndEnter", 5 << 24, drag.client.atom("text/plain"))
    longest = 0.0
    print(TOLD, flush=True)
    while not select.select([sys.stdin], [], [], INTERVAL)[0]:
        start = time.monotonic()
        drag.tell("XdndPosition", 0, middle, 0, copy)
        drag.wait_for("XdndStatus")
        longest = max(longest, time.monotonic() - start)
    drag.tell("XdndLeave")
    print(f"{longest * 1000:.1f}")


class Pause:
    """The interface's longest pause within a `with`, in milliseconds."""

    def __init__(self, desktop):
        window = desktop.wait_for_window(MAIN)
        self.process = subprocess.Popen([sys.executable, __file__, "--probe", str(window)], env=desktop.environment,
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.longest = None

    def __enter__(self):
        assert self.process.stdout.readline().strip() == TOLD
        return self

    def __exit__(self, *_):
        self.process.stdin.close()
        text = self.process.stdout.read().strip()
        self.process.wait()
        self.longest = float(text) if text else float("inf")


def pauses(desktop, kind):
    """Behind a copy in another program that then is `kind`: the tray hears of it, then the user pastes."""
    with Pause(desktop) as copied:
        owner = roads.other_client(desktop, kind)
        time.sleep(3)
    with Pause(desktop) as pasted:
        desktop.keys("ctrl+v")
        time.sleep(1)
        desktop.keys("Escape")
        time.sleep(2)
    owner.kill()
    owner.wait()
    desktop.keys("Escape")
    return copied.longest, pasted.longest


def write_photograph(path):
    """A BMP file of smooth slopes with noise on them."""
    noise = random.Random(1)
    rows = [noise.randbytes(3 * WIDTH) for _ in range(16)]
    header = b"BM" + (54 + 3 * WIDTH * HEIGHT).to_bytes(4, "little") + bytes(4) + (54).to_bytes(4, "little")
    header += (40).to_bytes(4, "little") + WIDTH.to_bytes(4, "little") + HEIGHT.to_bytes(4, "little")
    header += (1).to_bytes(2, "little") + (24).to_bytes(2, "little") + bytes(24)
    with open(path, "wb") as file:
        file.write(header)
        for y in range(HEIGHT):
            file.write(rows[noise.randrange(16)])


def pastes(desktop, format_name, rounds):
    """Milliseconds from the question to the last byte, and the longest pause meanwhile."""
    times = []
    with Pause(desktop) as pause:
        for _ in range(rounds):
            answer = subprocess.run([sys.executable, __file__, "--fetch", format_name], env=desktop.environment, check=True,
                                    capture_output=True, text=True).stdout.split()
            times.append(float(answer[0]))
    return times, pause.longest, int(answer[1])


def fetch(format_name):
    client = other_client.Client()
    start = time.monotonic()
    data = client.fetch("CLIPBOARD", format_name)
    print(f"{(time.monotonic() - start) * 1000:.1f} {len(data)}")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", type=Path, default=ROOT / "build/release/bin/pintalux64")
    parser.add_argument("--places", type=Path, default=ROOT / "build/release/tests/program_places", help=argparse.SUPPRESS)
    parser.add_argument("--rounds", type=int, default=7)
    parser.add_argument("--probe", type=int, help=argparse.SUPPRESS)
    parser.add_argument("--fetch", help=argparse.SUPPRESS)
    options = parser.parse_args()
    if options.probe is not None:
        return probe(options.probe)
    if options.fetch is not None:
        return fetch(options.fetch)
    missed = False

    def tell(what, figure, wanted):
        nonlocal missed
        missed = missed or figure > wanted
        print(f"{what:60}{figure:8.1f}{wanted:8.0f} {'!' if figure > wanted else ''}".rstrip(), flush=True)

    print(f"{'milliseconds':60}{'is':>8}{'wanted':>8}")
    with Desktop(options.program, options.places) as desktop:
        write_photograph(desktop.pictures / "photograph.bmp")
        desktop.large_window_settings()
        desktop.start(desktop.pictures / "photograph.bmp")
        wait_for(lambda: len(desktop.state_files()) == 1, "the picture is the first state")
        with Pause(desktop) as rest:
            time.sleep(2)
        tell("longest pause, nothing happens", rest.longest, WANTED_PAUSE)
        for kind in ("silent", "endless"):
            copied, pasted = pauses(desktop, kind)
            tell(f"longest pause, a copy whose owner is {kind}", copied, WANTED_PAUSE)
            tell(f"longest pause, a paste from an owner that is {kind}", pasted, WANTED_PAUSE)
        desktop.keys("ctrl+a")
        time.sleep(3)
        desktop.keys("ctrl+c")
        wait_for(lambda: "image/bmp" in roads.owner_answer(desktop), "the photograph is on the clipboard")
        time.sleep(2)
        for name in ("image/bmp", "image/png"):
            times, pause, length = pastes(desktop, name, options.rounds)
            tell(f"another program pastes {length >> 20} MB of {name}", statistics.median(times), WANTED_PASTE)
            tell("longest pause meanwhile", pause, WANTED_PAUSE)
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
