#!/usr/bin/env python3
"""Uses the program at random for as long as one likes, and shortens what fails.

  run.py [--program P] [--seeds 1-1000] [--events 1000]   1,000 seeds of 1,000 events: a million
  run.py [--program P] --shorten SEED [--events 1000]     the shortest list of events that still fails

Each seed is a process of its own. One that fails is shortened at once: pieces of its list are left out as long as what
is left fails. The list that stays is printed; `random_tests --list=<file>` does it again.
"""
import argparse
import os
import re
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
PROGRAM = os.path.join(HERE, "../../build/sanitizers/tests/random_tests")


def run(program, words, seconds=1800):
    """The end of what the tests say; empty if they pass."""
    options = dict(os.environ, QT_QPA_PLATFORM="offscreen", QT_LOGGING_RULES="*=false", UBSAN_OPTIONS="print_stacktrace=1",
                   ASAN_OPTIONS="detect_leaks=0")
    try:
        done = subprocess.run([program, *words], env=options, capture_output=True, text=True, errors="replace",
                              timeout=seconds)
    except subprocess.TimeoutExpired:
        return "nothing came back within %d s" % seconds
    if done.returncode == 0:
        return ""
    return (done.stdout + done.stderr)[-6000:]


def kind_of(text):
    """What failed, without what differs from run to run: a shorter list must fail alike."""
    for pattern in (r"SUMMARY: \w+: (\S+)", r"runtime error: ([a-z ]+)", r"event \d+: ([^\n]*)", r"(a dialog cannot be left)",
                    r"(nothing came back)"):
        found = re.search(pattern, text)
        if found:
            return re.sub(r"Imagem \d+|[\w.]+: the|\d+", "", found.group(1))
    return "died"


def fails(program, events, kind):
    with tempfile.NamedTemporaryFile("w", suffix=".events") as file:
        file.write("".join(events))
        file.flush()
        text = run(program, ["--list=" + file.name], 300)
    return bool(text) and kind_of(text) == kind


def shorten(program, events, kind):
    """Leaves out ever smaller pieces until no single event can go."""
    piece = max(1, len(events) // 2)
    while True:
        at = 0
        shorter = False
        while at < len(events):
            left = events[:at] + events[at + piece:]
            if left and fails(program, left, kind):
                events, shorter = left, True
            else:
                at += piece
        if piece == 1 and not shorter:
            return events
        piece = max(1, piece // 2)


def report(program, seed, count, text):
    events = subprocess.run([program, "--write=%d" % seed, "--events=%d" % count], capture_output=True,
                            text=True, check=True).stdout.splitlines(keepends=True)
    kind = kind_of(text)
    place = re.search(r"event (\d+):", text)
    if place:
        events = events[:int(place.group(1)) + 1]
    if fails(program, events, kind):
        events = shorten(program, events, kind)
        print("FAILED seed %d: %s; the shortest list:" % (seed, kind))
    else:
        print("FAILED seed %d: %s; it does not fail again by itself:" % (seed, kind))
        print("\n".join(line for line in text.splitlines() if "does not support" not in line)[-3000:])
    print("".join(events) if len(events) < 100 else "(%d events)" % len(events), flush=True)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--program", default=PROGRAM)
    parser.add_argument("--seeds", default="1-1000")
    parser.add_argument("--events", type=int, default=1000)
    parser.add_argument("--shorten", type=int)
    wish = parser.parse_args()
    first, _, last = wish.seeds.partition("-")
    seeds = range(int(first), int(last or first) + 1)
    if wish.shorten is not None:
        seeds = [wish.shorten]
    failed = 0
    for seed in seeds:
        text = run(wish.program, ["--seeds=%d-%d" % (seed, seed), "--events=%d" % wish.events])
        if text:
            failed += 1
            report(wish.program, seed, wish.events, text)
    print("%d events, %d of %d seeds failed" % (len(seeds) * wish.events, failed, len(seeds)))
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
