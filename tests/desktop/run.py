#!/usr/bin/env python3
"""run.py [--program path] [test...]: runs the built program, each test on a desktop of its own, two at a time.

Prints `ok name` or `FAILED name` for each; of a failed one also why, and the file with the last sight of its display. What
fails beside others, where the machine may have been too busy for its patience, is tried once more alone; the line says so.
"""
import argparse
import concurrent.futures
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

from desktop import Desktop, Skip, tests  # noqa: E402


def built_program():
    if "PINTALUX64" in os.environ:
        return Path(os.environ["PINTALUX64"])
    path = ROOT / "build" / "release" / "bin" / "pintalux64"
    if path.is_file() and os.access(path, os.X_OK):
        return path
    sys.exit("The program is not built: scripts/build.sh release pintalux64")


def built_places(program):
    """The program that tells where the controls lie, from the same build."""
    for path in (program.resolve().parent.parent / "tests" / "program_places", *ROOT.glob("build/*/tests/program_places")):
        if path.is_file() and os.access(path, os.X_OK):
            return path
    sys.exit("program_places is not built: scripts/build.sh release program_places")


def run(name, program, places_program):
    """Whether the test passed, and what is to be said of it."""
    test = next(each for each in tests if each.__name__ == name)
    start = time.monotonic()
    said = []
    try:
        with Desktop(program, places_program) as desktop:
            try:
                test(desktop)
            except Skip:
                raise
            except Exception:
                picture = ROOT / "build" / "failed" / f"{name}.png"
                said.append(traceback.format_exc().rstrip())
                desktop.keep_photograph(picture)
                said.append(f"the display: {picture.relative_to(ROOT)}")
                said.append(desktop.messages().rstrip())
                raise
    except Skip as reason:
        return True, f"skipped {name}: {reason}"
    except Exception as failure:
        said.append(f"FAILED {name}: {failure}")
        return False, "\n".join(said)
    return True, f"ok {name} ({time.monotonic() - start:.1f} s)"


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
    places_program = built_places(program)
    chosen = [test.__name__ for test in tests if not options.names or test.__name__ in options.names]
    passed, again = [], []
    # Most of a test is waiting; a desktop of its own keeps each from the other's windows and clipboard.
    with concurrent.futures.ProcessPoolExecutor(max_workers=2) as hands:
        runs = {hands.submit(run, name, program, places_program): name for name in chosen}
        for result in concurrent.futures.as_completed(runs):
            ok, text = result.result()
            print(text if ok else text.replace(f"FAILED {runs[result]}", f"at the first try {runs[result]}"), flush=True)
            (passed if ok else again).append(runs[result])
    for name in again:
        ok, text = run(name, program, places_program)
        print(text + " at the second try" if ok else text, flush=True)
        if ok:
            passed.append(name)
    return 0 if chosen and len(passed) == len(chosen) else 1


if __name__ == "__main__":
    sys.exit(main())
