#!/usr/bin/env python3
"""Holds docs/behaviour.md, the `Intended:` comments and the tests against each other.

The head of docs/behaviour.md tells the format. Prints a line `ok ...` or `FAILED ...` for each rule, what is wrong above it.
"""
import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
PAGE = ROOT / "docs" / "behaviour.md"


def first_sentence(text):
    """The text up to the first full stop that ends a sentence, in one line and without the stop."""
    line = " ".join(text.split())
    return re.split(r"\.(?:\s|$)", line, maxsplit=1)[0].strip()


def intended_comments():
    """(file, line number, first sentence) of each `// Intended:` comment of the code."""
    for path in sorted((ROOT / "src").rglob("*")):
        if path.suffix not in (".h", ".cpp"):
            continue
        lines = path.read_text(encoding="utf-8").splitlines()
        for number, line in enumerate(lines):
            start = re.search(r"//[/!<]*\s*Intended:\s*(.*)", line)
            if not start:
                continue
            text = start.group(1)
            for following in lines[number + 1:]:
                more = re.match(r"\s*//[/!<]*(?:\s+(.*)|)$", following)
                if not more:
                    break
                text += " " + (more.group(1) or "")
            yield path.relative_to(ROOT).as_posix(), number + 1, first_sentence(text)


def entries():
    """The entries of the page: heading, sentences, code files and tests."""
    found = []
    item = None
    for line in PAGE.read_text(encoding="utf-8").splitlines():
        heading = re.match(r"## (.+)", line)
        key = re.match(r"- (Intended|Code|Test): *(.*)", line)
        if heading:
            item = {"heading": heading.group(1).strip(), "Intended": [], "Code": [], "Test": []}
            found.append(item)
            current = None
        elif item is None:
            continue
        elif key:
            current = item[key.group(1)]
            current.append(key.group(2))
        elif line.startswith("  ") and current:
            current[-1] += " " + line.strip()
        else:
            current = None
    for item in found:
        item["Intended"] = [first_sentence(text) for text in item["Intended"]]
        for key in ("Code", "Test"):
            item[key] = [word.strip("`") for text in item[key] for word in re.split(r"[,\s]+", text) if word]
    return found


def known_tests():
    """`Suite.Name` of every unit and form test, `Desktop.Name` of every desktop test."""
    names = set()
    for path in (ROOT / "tests").rglob("*.cpp"):
        text = path.read_text(encoding="utf-8")
        for suite, name in re.findall(r"^\s*TEST(?:_F|_P)?\(\s*(\w+)\s*,\s*(\w+)\s*\)", text, re.M):
            names.add(f"{suite}.{name}")
    for path in (ROOT / "tests" / "desktop").glob("*.py"):
        for name in re.findall(r"^@desktop_test\s*\ndef (\w+)\(", path.read_text(encoding="utf-8"), re.M):
            names.add(f"Desktop.{name}")
    return names


def every_entry_is_complete(page, _comments):
    for item in page:
        for key in ("Code", "Test"):
            if not item[key]:
                yield f"docs/behaviour.md: \"{item['heading']}\" names no {key}"


def every_test_exists(page, _comments):
    tests = known_tests()
    for item in page:
        for name in item["Test"]:
            if name not in tests:
                yield f"docs/behaviour.md: \"{item['heading']}\" names the test {name}, which does not exist"


def every_code_file_exists(page, _comments):
    for item in page:
        for name in item["Code"]:
            if not (ROOT / name).is_file():
                yield f"docs/behaviour.md: \"{item['heading']}\" names the file {name}, which does not exist"


def every_comment_has_an_entry(page, comments):
    told = {(name, sentence) for item in page for name in item["Code"] for sentence in item["Intended"]}
    for path, number, sentence in comments:
        if (path, sentence) not in told:
            yield f"{path}:{number}: no entry of docs/behaviour.md has \"- Code: {path}\" and\n    - Intended: {sentence}."


def every_quoted_sentence_stands_in_the_code(page, comments):
    sentences = {(path, sentence) for path, _, sentence in comments}
    for item in page:
        for sentence in item["Intended"]:
            if not any((name, sentence) in sentences for name in item["Code"]):
                yield f"docs/behaviour.md: \"{item['heading']}\" quotes what its files do not say: {sentence}."


def main():
    page = entries()
    comments = list(intended_comments())
    failures = 0
    for rule in (every_entry_is_complete, every_test_exists, every_code_file_exists, every_comment_has_an_entry,
                 every_quoted_sentence_stands_in_the_code):
        problems = list(rule(page, comments))
        failures += len(problems)
        for problem in problems:
            print(problem)
        print("FAILED" if problems else "ok", rule.__name__)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
