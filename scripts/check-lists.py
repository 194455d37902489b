#!/usr/bin/env python3
"""Checks lists that have to agree and that no compiler holds against each other.

Prints a line `ok ...` or `FAILED ...` for each, what is wrong and where to mend it above it.
"""
import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
RESOURCES = "src/art/icons.qrc"
EXIT = "src/app/frmMain_Exit.cpp"
TOOLS = "src/document/BarPositions.h"


def text_of(path):
    return (ROOT / path).read_text(encoding="utf-8")


def every_picture_is_a_resource():
    listed = set(re.findall(r"<file>([^<]+)</file>", text_of(RESOURCES)))
    art = ROOT / "src/art"
    there = {path.relative_to(art).as_posix() for kind in ("*.svg", "*.html") for path in art.rglob(kind)}
    for name in sorted(there - listed):
        yield f"src/art/{name}: not in {RESOURCES}: add its <file>, or delete the picture"
    for name in sorted(listed - there):
        yield f"{RESOURCES}: {name} is no file of src/art: draw it, or take the line out"


def every_picture_that_is_named_exists():
    listed = set(re.findall(r"<file>([^<]+)</file>", text_of(RESOURCES)))
    for path in sorted((ROOT / "src").rglob("*.cpp")):
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            for name in re.findall(r'":/([\w./-]+\.svg)"', line):
                if name not in listed:
                    yield f"{path.relative_to(ROOT)}:{number}: {name} is not in {RESOURCES}"


def every_dialog_is_unloaded_at_the_exit():
    leaving = text_of(EXIT)
    for path in sorted((ROOT / "src").rglob("*.cpp")):
        for name in re.findall(r"^AutoForm<\w+> (\w+);", path.read_text(encoding="utf-8"), re.M):
            if name != "frmMain" and f"{name}.Unload();" not in leaving:
                yield f"{path.relative_to(ROOT)}: {name} is not unloaded at the exit: add it to {EXIT}"


def the_last_tool_is_the_last_of_its_list():
    text = text_of(TOOLS)
    last = re.findall(r"^\s*(k\w+Tool)\b", text[:text.index("};")], re.M)[-1]
    if f"kLastTool = {last};" not in text:
        yield f"{TOOLS}: kLastTool is not {last}, the last of the list"


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
    for rule in (every_picture_is_a_resource, every_picture_that_is_named_exists, every_dialog_is_unloaded_at_the_exit,
                 the_last_tool_is_the_last_of_its_list, the_version_stands_once, the_two_readmes_say_the_same):
        problems = list(rule())
        failures += len(problems)
        for problem in problems:
            print(problem)
        print("FAILED" if problems else "ok", rule.__name__)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
