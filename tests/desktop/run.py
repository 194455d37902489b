#!/usr/bin/env python3
"""run.py [--program path] [test...]: runs the built program on a desktop of its own, a test after the other.

Prints `ok name` or `FAILED name` for each; of a failed one also why, and the file with the last sight of its display.
"""
import argparse
import importlib
import os
import signal
import sys
import time
import traceback
from pathlib import Path

HERE = Path(__file__).resolve().parent
ROOT = HERE.parent.parent
sys.dont_write_bytecode = True

from desktop import Desktop, tests  # noqa: E402


def built_program():
    if "PINTALUX64" in os.environ:
        return Path(os.environ["PINTALUX64"])
    for path in (ROOT / "build" / "release").rglob("pintalux64"):
        if path.is_file() and os.access(path, os.X_OK):
            return path
    sys.exit("The program is not built: scripts/build.sh release pintalux64")


def run(test, program):
    """True if the test passed."""
    start = time.monotonic()
    try:
        with Desktop(program) as desktop:
            try:
                test(desktop)
            except Exception:
                picture = ROOT / "build" / "failed" / f"{test.__name__}.png"
                print(traceback.format_exc().rstrip())
                desktop.keep_photograph(picture)
                print(f"the display: {picture.relative_to(ROOT)}")
                print(desktop.messages().rstrip())
                raise
    except Exception as failure:
        print(f"FAILED {test.__name__}: {failure}", flush=True)
        return False
    print(f"ok {test.__name__} ({time.monotonic() - start:.1f} s)", flush=True)
    return True


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", type=Path)
    parser.add_argument("names", nargs="*")
    options = parser.parse_args()
    # So that the folders and processes of a test go, too, when it is told to stop.
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    for file in sorted(HERE.glob("*Tests.py")):
        importlib.import_module(file.stem)
    program = options.program or built_program()
    chosen = [test for test in tests if not options.names or test.__name__ in options.names]
    results = [run(test, program) for test in chosen]
    return 0 if results and all(results) else 1


if __name__ == "__main__":
    sys.exit(main())
