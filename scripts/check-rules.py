#!/usr/bin/env python3
"""Checks the rules of docs/architecture.md that a reading of the files can check.

Prints a line `ok ...`, `FAILED ...` or `skipped ...` for each rule, what is wrong above it.
"""
import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
SRC = ROOT / "src"
LONGEST_FILE = 600


def files(*folders):
    """The C++ files below these folders of the project, as paths from its root."""
    for folder in folders:
        for path in sorted((ROOT / folder).rglob("*")):
            if path.suffix in (".h", ".cpp"):
                yield path.relative_to(ROOT)


def text_of(path):
    return (ROOT / path).read_text(encoding="utf-8")


def code_of(path):
    """The text of a file with its comments blanked, line for line; strings stay."""
    token = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"', re.S)
    return token.sub(lambda m: m.group() if m.group().startswith('"') else re.sub(r"[^\n]", " ", m.group()), text_of(path))


def numbered(text):
    return enumerate(text.splitlines(), 1)


def includes(path):
    """(line number, quoted or angled, name) of each include."""
    for number, line in numbered(text_of(path)):
        found = re.match(r'\s*#\s*include\s*(["<])([^">]+)[">]', line)
        if found:
            yield number, found.group(1) == '"', found.group(2)


def is_toolkit_header(name):
    return re.match(r"Q[A-Z]|Qt|q[a-z]+\.h$", name) is not None


def the_toolkit_stays_in_the_surface():
    for path in files("src"):
        inside = path.parts[1] == "surface" and path.parts[2] != "raster"
        public = path.suffix == ".h" and not path.stem.endswith("_native")
        if inside and not public:
            continue
        for number, _, name in includes(path):
            if is_toolkit_header(name):
                yield f"{path}:{number}: includes the toolkit's {name}"
            # A private header of the surface brings the toolkit along.
            if name.endswith("_native.h"):
                yield f"{path}:{number}: includes the private header {name}"
        for number, line in numbered(code_of(path)):
            word = re.search(r"\bQ[A-Z][A-Za-z]+\b|\bQt::", line)
            if word and "#include" not in line:
                yield f"{path}:{number}: names the toolkit's {word.group()}"


def rows_are_folders():
    """The table under "Allowed arrows": folder -> folders. None if there is no such table."""
    section = re.search(r"^## Allowed arrows\s*$(.*?)(?=^## |\Z)", text_of("docs/architecture.md"), re.M | re.S)
    if not section:
        return None
    rows = {}
    for name, allowed in re.findall(r"^\|\s*([\w/]+)\s*\|([^|]*)\|\s*$", section.group(1), re.M):
        rows[name] = allowed.split()
    return rows


def folder_of(name, rows):
    """The row that a file belongs to: the longest that begins its path below src."""
    fitting = [row for row in rows if name.startswith(row + "/")]
    return max(fitting, key=len, default=None)


def includes_follow_the_arrows():
    rows = rows_are_folders()
    if rows is None:
        yield None
        return
    for path in files("src"):
        here = path.relative_to("src").as_posix()
        row = folder_of(here, rows)
        if row is None:
            if "/" in here:
                yield f"{path}: its folder has no row in docs/architecture.md"
            continue
        for number, quoted, name in includes(path):
            if not quoted:
                continue
            if not (SRC / name).is_file():
                yield f"{path}:{number}: {name} is no path from src"
                continue
            allowed = [row, *rows[row]]
            if not any(name.startswith(folder + "/") for folder in allowed):
                yield f"{path}:{number}: {row} may not include {name}"


def includes_go_in_no_circle():
    graph = {}
    for path in files("src"):
        here = path.relative_to("src").as_posix()
        graph[here] = [name for _, quoted, name in includes(path) if quoted]
    done = set()

    def walk(name, road):
        if name in road:
            yield "a circle: " + " -> ".join(road[road.index(name):] + [name])
            return
        if name in done:
            return
        for following in graph.get(name, []):
            yield from walk(following, road + [name])
        done.add(name)

    for name in graph:
        yield from walk(name, [])


def own_header_comes_first():
    for path in files("src"):
        own = path.relative_to("src").with_suffix(".h")
        if path.suffix != ".cpp" or not (SRC / own).is_file():
            continue
        first = next(includes(path), None)
        if first is None or first[2] != own.as_posix():
            yield f"{path}: does not include {own.as_posix()} first"


def headers_are_guarded():
    for path in files("src", "tests"):
        if path.suffix == ".h" and "#pragma once" not in text_of(path):
            yield f"{path}: has no #pragma once"


def no_notes_to_self():
    for path in files("src", "tests", "bench"):
        for number, line in numbered(text_of(path)):
            word = re.search(r"\b(TODO|FIXME|XXX|HACK|NOLINT)\b", line)
            if word:
                yield f"{path}:{number}: {word.group()}"


def no_machine_paths():
    for path in files("src", "tests", "bench"):
        for number, line in numbered(text_of(path)):
            word = re.search(r'(?<![\w.])/(work|root)/', line)
            if word:
                yield f"{path}:{number}: names a folder of one machine: {word.group()}"


def only_undo_touches_the_history():
    change = re.compile(
        r"\bList(?:Backup|BUorder)\s*(?:\.|->)\s*(?:(?:AddItem|RemoveItem|Clear)\s*\(|ListIndex\s*\(\s*[^)\s])")
    for path in files("src"):
        if path.parts[1] == "document" and "Undo" in path.stem:
            continue
        for number, line in numbered(code_of(path)):
            if change.search(line):
                yield f"{path}:{number}: changes the undo history: {line.strip()}"


def operations_leave_selections_to_the_scaffold():
    member = re.compile(
        r"\b(PicSelect|PicFreeSelect|SelectImage|PicSelectShape|SelectShape|SelHolder|Pic1BU|PicMask|Select(?:Left|Top|width|height)"
        r"|NeedtoPaste|MakeSelection|ShapeMe|PasteFloating|FreePasteActive)\b")
    for path in files("src/imageops"):
        if path.stem == "Scaffold":
            continue
        for number, line in numbered(code_of(path)):
            word = member.search(line)
            if word:
                yield f"{path}:{number}: touches the selection ({word.group()}): let imageops/Scaffold.cpp do it"


def form_tests_start_with_every_global_reset():
    """The variables of the headers; not the ways in to an object, nor the hooks that the program sets once."""
    once = {"TheWorkspace", "TheFloatingSteps"}
    variable = re.compile(r"^(?:inline|extern) (?!const|AutoForm|Registered)(?:std::function<.*>|[\w:<>]+) "
                          r"((?:\w+(?: = [^,;]+)?(?:, |;))+)", re.M)
    reset = text_of(Path("tests/support/Program.cpp"))
    for path in files("src"):
        if path.suffix != ".h":
            continue
        for names in variable.findall(code_of(path)):
            for name in re.findall(r"(\w+)(?: = [^,;]+)?[,;]", names):
                if name not in once and not re.search(rf"\b{name}\b", reset):
                    yield f"{path}: {name} keeps its value from one form test to the next: reset it in tests/support/Program.cpp"


def files_stay_short():
    for path in files("src", "tests", "bench"):
        lines = len(text_of(path).splitlines())
        if lines > LONGEST_FILE:
            yield f"{path}: {lines} lines; past {LONGEST_FILE} there is a second subject in it"


def main():
    failures = 0
    for rule in (the_toolkit_stays_in_the_surface, includes_follow_the_arrows, includes_go_in_no_circle,
                 own_header_comes_first, headers_are_guarded, no_notes_to_self, no_machine_paths,
                 only_undo_touches_the_history, operations_leave_selections_to_the_scaffold,
                 form_tests_start_with_every_global_reset, files_stay_short):
        problems = list(rule())
        if problems == [None]:
            print("skipped", rule.__name__)
            continue
        failures += len(problems)
        for problem in problems:
            print(problem)
        print("FAILED" if problems else "ok", rule.__name__)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
