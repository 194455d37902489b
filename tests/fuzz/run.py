#!/usr/bin/env python3
"""Runs the targets of the fuzzer, each for some seconds, from the kept corpus; a line "ok ..." or "FAILED ..." for each.

  run.py [--seconds 20] [--jobs 2] [--keep] [TARGET...]

What a target finds new goes to a folder that is deleted at the end; with --keep the inputs that reach new code join
tests/fuzz/corpus. Bytes that end a target badly are kept as build/fuzz/found-*.
"""
import argparse
import concurrent.futures
import os
import re
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
BUILD = os.path.join(HERE, "../../build/fuzz")
TARGETS = ["bmp", "picture", "clipboard", "collection", "settings", "handoff", "index", "pixels"]


def fuzz(target, seconds, keep):
    program = os.path.join(BUILD, "tests/fuzz/fuzz_" + target)
    corpus = os.path.join(HERE, "corpus", target)
    options = dict(os.environ, QT_QPA_PLATFORM="offscreen", QT_LOGGING_RULES="*=false",
                   ASAN_OPTIONS="allocator_may_return_null=1:detect_leaks=0")
    with tempfile.TemporaryDirectory() as new:
        words = [program, "-max_total_time=%d" % seconds, "-timeout=10", "-rss_limit_mb=2500", "-print_final_stats=1",
                 "-max_len=4096", "-artifact_prefix=%s/found-%s-" % (BUILD, target), new, corpus]
        try:
            done = subprocess.run(words, env=options, capture_output=True, text=True, errors="replace",
                                  timeout=seconds + 120)
            text = done.stdout + done.stderr
            good = done.returncode == 0
        except subprocess.TimeoutExpired:
            text, good = "it did not end", False
        runs = re.search(r"number_of_executed_units: (\d+)", text)
        if keep:
            subprocess.run([program, "-merge=1", corpus, new], env=options, capture_output=True, check=False)
    return target, good, int(runs.group(1)) if runs else 0, text


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--seconds", type=int, default=20)
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("--keep", action="store_true")
    parser.add_argument("targets", nargs="*", default=TARGETS)
    wish = parser.parse_args()
    failed = 0
    with concurrent.futures.ThreadPoolExecutor(wish.jobs) as pool:
        for target, good, runs, text in pool.map(lambda name: fuzz(name, wish.seconds, wish.keep), wish.targets):
            print("%s %s (%d inputs)" % ("ok" if good else "FAILED", target, runs), flush=True)
            if not good:
                failed += 1
                print(text[-4000:])
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
