#!/usr/bin/env python3
"""run.py [--seed n] [--program path] [count]: kills the program at random moments, and starts it again.

What comes back must be what each document showed, or what it showed one edit before. Prints `ok ...` or `FAILED ...` for
each time. 50 times without a count; a count of 2000 takes about half an hour.
"""
import argparse
import os
import random
import shutil
import subprocess
import sys
import tempfile
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
SIZES = [(1, 1), (60, 40), (300, 300), (900, 700), (2500, 1600)]


def built_program():
    for path in sorted(ROOT.glob("build/*/tests/seeded_edits"), key=lambda path: -path.stat().st_mtime):
        return path
    sys.exit("seeded_edits is not built: scripts/build.sh release seeded_edits")


def write_bmp(path, width, height):
    row = bytes(3 * width) + bytes(-3 * width % 4)
    size = 54 + len(row) * height
    header = b"BM" + size.to_bytes(4, "little") + bytes(4) + (54).to_bytes(4, "little")
    header += (40).to_bytes(4, "little") + width.to_bytes(4, "little") + height.to_bytes(4, "little")
    header += (1).to_bytes(2, "little") + (24).to_bytes(2, "little") + bytes(24)
    path.write_bytes(header + row * height)


def parts(line):
    """Word, number, document and digest of a line."""
    word, number, rest = line.split(" ", 2)
    return (word, int(number), *rest.rsplit(" ", 1))


def may_come_back(lines):
    """Of each document (state, digest) of what it may come back as: what it showed, or showed one edit before."""
    shown = {}
    for word, state, name, digest in map(parts, lines):
        edits = shown.setdefault(name, [])
        # An edit that was begun and is finished is one edit.
        if word == "done" and edits and edits[-1][0] == "begin":
            begun = edits.pop()
            if begun[1:] != (state, digest):
                raise ValueError(f"{name}: an edit was to be {begun[1:]} and is {(state, digest)}")
        # A redo at the end of the history is none.
        if edits and edits[-1] == (word, state, digest):
            continue
        edits.append((word, state, digest))
    return {name: [(state, digest) for _, state, digest in edits[-3 if edits[-1][0] == "begin" else -2:]]
            for name, edits in shown.items()}


def last_said(folder):
    return "; ".join((folder / "said").read_text().splitlines()[-16:])


def kill_once(program, seed):
    """What went wrong; empty if nothing did."""
    chance = random.Random(seed)
    folder = Path(tempfile.mkdtemp(prefix="pintalux-kill-"))
    try:
        environment = {"PATH": os.environ["PATH"], "HOME": str(folder), "LC_ALL": "C.UTF-8"}
        for variable in ("XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR", "TMPDIR"):
            environment[variable] = str(folder / variable)
            (folder / variable).mkdir(mode=0o700)
        pictures = []
        for number in range(chance.randint(1, 3)):
            pictures.append(folder / f"picture {number}.bmp")
            write_bmp(pictures[-1], *chance.choice(SIZES))
        write_bmp(folder / "first.bmp", 2, 2)
        with open(folder / "said", "wb") as said:
            process = subprocess.Popen([program, "edit", str(seed), *pictures], env=environment, stdout=said,
                                       stderr=subprocess.DEVNULL)
            # So that some die at the start, most among their first edits, and some late.
            time.sleep(chance.choice([0.05, 0.2, 0.4, 0.4, 0.6, 0.6, 0.9]) * chance.uniform(0.5, 1.5))
            if process.poll() is not None:
                return f"the program ended by itself with {process.returncode}"
            process.kill()
            process.wait()
        expected = may_come_back((folder / "said").read_text().split("\n")[:-1])
        again = subprocess.run([program, "recover", folder / "first.bmp"], env=environment, capture_output=True, text=True,
                               timeout=60)
        if again.returncode != 0:
            return f"the next start ended with {again.returncode}: {again.stderr[-500:]}"
        opened = {name: digest for _, _, name, digest in map(parts, again.stdout.splitlines())}
        for name, edits in expected.items():
            if name in opened and opened[name] not in [digest for _, digest in edits]:
                return f"{name} came back as {opened[name]}, which is none of {edits}: {last_said(folder)}"
            # One that showed its file, or did so one edit ago, need not come back; nor one of a single edit.
            if name not in opened and len(edits) > 1 and all(state != 0 for state, _ in edits):
                return f"{name} did not come back; it showed {edits}: {last_said(folder)}"
        return ""
    except ValueError as error:
        return str(error)
    finally:
        shutil.rmtree(folder, ignore_errors=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--program", type=Path)
    parser.add_argument("count", type=int, nargs="?", default=50)
    options = parser.parse_args()
    program = (options.program or built_program()).resolve()
    failures = 0
    for seed in range(options.seed, options.seed + options.count):
        problem = kill_once(program, seed)
        failures += problem != ""
        print(f"FAILED kill {seed}: {problem}" if problem else f"ok kill {seed}", flush=True)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
