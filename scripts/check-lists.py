#!/usr/bin/env python3
"""Checks lists that have to agree and that no compiler holds against each other.

Prints a line `ok ...` or `FAILED ...` for each, what is wrong and where to mend it above it.
"""
import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
DIALOGS = "src/app/Dialogs.h"
HELP = "src/art/help.html"


def text_of(path):
    return (ROOT / path).read_text(encoding="utf-8")


def every_picture_that_is_named_exists():
    """The build takes what lies in src/art."""
    for path in sorted((ROOT / "src").rglob("*.cpp")):
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            for name in re.findall(r'":/([\w./-]+\.(?:svg|html))"', line):
                if not (ROOT / "src/art" / name).is_file():
                    yield f"{path.relative_to(ROOT)}:{number}: src/art/{name} does not exist"


def every_dialog_is_among_the_dialogs():
    listed = text_of(DIALOGS)
    for path in sorted((ROOT / "src").rglob("*.cpp")):
        for name in re.findall(r"^AutoForm<\w+> (\w+);", path.read_text(encoding="utf-8"), re.M):
            if name != "frmMain" and f"act({name});" not in listed:
                yield f"{path.relative_to(ROOT)}: {name} stays at the exit and is in no test of all dialogs: add it to {DIALOGS}"


def every_tool_stands_in_the_help():
    rows = set(re.findall(r"<td><b>(\w)</b></td><td>([^<]+)</td>", text_of(HELP)))
    for path in sorted((ROOT / "src").rglob("*.cpp")):
        for caption, letter in re.findall(r'\.caption = "([^"]+)",\s*\.letter = \'(\w)\'', path.read_text(encoding="utf-8")):
            if (letter, caption) not in rows:
                yield f"{path.relative_to(ROOT)}: {HELP} has no line for {letter}, {caption}"


def the_version_stands_once():
    """The build puts it into the manual page and the store page."""
    version = re.search(r"^project\(\S+ VERSION (\S+)", text_of("CMakeLists.txt"), re.M).group(1)
    for folder in ("packaging", "src"):
        for path in sorted((ROOT / folder).rglob("*")):
            if path.is_file() and path.suffix != ".svg" and version in path.read_text(encoding="utf-8", errors="replace"):
                yield f"{path.relative_to(ROOT)}: says {version}: let the build put in @PROJECT_VERSION@ (CMakeLists.txt)"


def the_two_readmes_say_the_same():
    """As far as a machine can see: as many sections, and the same words of the program in each."""
    here, there = text_of("README.md"), text_of("LEIAME.md")
    sections = [text.count("\n## ") for text in (here, there)]
    if sections[0] != sections[1]:
        yield f"README.md has {sections[0]} sections, LEIAME.md {sections[1]}"
    words = [set(re.findall(r"`([^`\n]+)`", re.sub(r"```.*?```", "", text, flags=re.S))) for text in (here, there)]
    for word in sorted(words[0] - words[1]):
        yield f"LEIAME.md: does not name {word}, as README.md does"
    for word in sorted(words[1] - words[0]):
        yield f"README.md: does not name {word}, as LEIAME.md does"


def main():
    failures = 0
    for rule in (every_picture_that_is_named_exists, every_dialog_is_among_the_dialogs,
                 every_tool_stands_in_the_help, the_version_stands_once, the_two_readmes_say_the_same):
        problems = list(rule())
        failures += len(problems)
        for problem in problems:
            print(problem)
        print("FAILED" if problems else "ok", rule.__name__)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
