#!/usr/bin/env python3
"""run.py [--preset name]: builds the Debian package and looks at it as a desktop would.

Prints a line `ok name` or `FAILED name: why` for each test.
"""
import argparse
import configparser
import gzip
import os
import subprocess
import sys
import tempfile
import traceback
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "tests" / "desktop"))

from desktop import Desktop  # noqa: E402
from pictures import write_bmp  # noqa: E402
from roads import MAIN, sample  # noqa: E402

LARGEST = 5_000_000  # bytes
SIDES = (16, 22, 24, 32, 48, 64, 128, 256, 512)
tests = []


def package_test(function):
    tests.append(function)
    return function


def told_by(*command):
    """What a command prints; a failure where it ends badly."""
    done = subprocess.run([str(part) for part in command], text=True, capture_output=True)
    assert done.returncode == 0, f"{command[0]}: {done.stdout}{done.stderr}"
    return done.stdout + done.stderr


class Package:
    """The package, and a root of its own that it is installed into."""

    def __init__(self, path, root):
        self.path, self.root = path, root
        for folder in ("var/lib/dpkg/info", "var/lib/dpkg/updates", "var/lib/dpkg/triggers"):
            (root / folder).mkdir(parents=True)
        (root / "var/lib/dpkg/status").touch()
        # The packages that it needs are those of this system.
        told_by("dpkg", f"--root={root}", "--force-not-root", "--force-depends", "--force-script-chrootless", "--install", path)
        self.program = root / "usr/bin/pintalux64"

    def field(self, name):
        return told_by("dpkg-deb", "--field", self.path, name).strip()

    def entry(self):
        entry = configparser.ConfigParser(interpolation=None, strict=False)
        entry.optionxform = str
        entry.read(self.root / "usr/share/applications/pintalux64.desktop", encoding="utf-8")
        return entry["Desktop Entry"]


@package_test
def ThePackageIsSmall(package):
    size = package.path.stat().st_size
    assert size < LARGEST, f"{size} bytes"


@package_test
def LintianFindsNothing(package):
    said = told_by("lintian", "--allow-root", "--fail-on", "error,warning", package.path)
    assert not said.strip(), said


@package_test
def TheVersionIsThatOfTheProgram(package):
    assert told_by(package.program, "--version").split() == ["Pintalux", "64", package.field("Version")]


@package_test
def HelpPrintsAndEndsWithoutADisplay(package):
    bare = {name: value for name, value in os.environ.items() if name not in ("DISPLAY", "WAYLAND_DISPLAY")}
    done = subprocess.run([package.program, "--help"], env=bare, text=True, capture_output=True, timeout=20)
    assert done.returncode == 0 and "pintalux64 [imagem]" in done.stdout and done.stderr == "", done


@package_test
def WhatThePluginsReadIsDependedOn(package):
    depends = [name.split()[0] for name in package.field("Depends").split(", ")]
    for name in ("libqt6widgets6", "libqt6svg6", "libturbojpeg0", "libsane1", "qt6-image-formats-plugins"):
        assert name in depends, f"{name} is not among {depends}"


@package_test
def TheMenuEntryIsValid(package):
    said = told_by("desktop-file-validate", package.root / "usr/share/applications/pintalux64.desktop")
    assert not said.strip(), said
    assert package.entry()["Exec"] == "pintalux64 %f", "one file"


@package_test
def TheStorePageIsValidAndNamesTheEntrysKinds(package):
    page = package.root / "usr/share/metainfo/local.pintalux.pintalux64.metainfo.xml"
    said = told_by("appstreamcli", "validate", "--no-net", "--no-color", page)
    assert not [line for line in said.splitlines() if line.startswith(("W:", "E:"))], said
    text = page.read_text(encoding="utf-8")
    for kind in filter(None, package.entry()["MimeType"].split(";")):
        assert f"<mediatype>{kind}</mediatype>" in text, kind
    assert f'<release version="{package.field("Version")}"' in text


@package_test
def TheIconIsThereInEverySizeAndAsASymbol(package):
    icons = package.root / "usr/share/icons/hicolor"
    for side in SIDES:
        kind = told_by("identify", "-format", "%m %w %h %A", icons / f"{side}x{side}/apps/pintalux64.png").split()
        assert kind[:3] == ["PNG", str(side), str(side)] and kind[3] != "False", kind
    for name in ("scalable/apps/pintalux64.svg", "symbolic/apps/pintalux64-symbolic.svg"):
        told_by("rsvg-convert", "--format=png", f"--output={package.root / 'drawn.png'}", icons / name)


@package_test
def CollectionsOfColoursHaveAKindOfTheirOwn(package):
    data = package.root / "usr/share/mime"
    told_by("update-mime-database", data)
    assert "50:application/x-pintalux64-colours:*.klc\n" in (data / "globs2").read_text()
    assert "application/x-pintalux64-colours" not in package.entry()["MimeType"], "no start opens a collection"


@package_test
def TheManualPagesAreCleanAndTellTheOddities(package):
    for folder, heading in (("man/man1", "INTENDED ODDITIES"), ("man/pt/man1", "PARTICULARIDADES")):
        page = package.root / "usr/share" / folder / "pintalux64.1.gz"
        done = subprocess.run(["man", "--warnings", "--local-file", page], text=True, capture_output=True,
                              env={**os.environ, "MANWIDTH": "100", "LC_ALL": "C.UTF-8", "MANROFFSEQ": ""})
        assert done.returncode == 0 and done.stderr == "", done.stderr
        text = gzip.decompress(page.read_bytes()).decode()
        oddities = text.split(heading)[1].split(".SH")[0].count(".IP")
        assert heading in done.stdout and oddities >= 10, f"{oddities} in {page}"


@package_test
def TheInstalledProgramOpensAPictureUnderItsEntrysClass(package):
    with Desktop(package.program, package.program) as desktop:
        write_bmp(desktop.pictures / "picture.bmp", sample())
        desktop.large_window_settings()
        desktop.program = package.program
        desktop.start(desktop.pictures / "picture.bmp")
        desktop.wait_for_picture(sample())
        window = desktop.wait_for_window(MAIN)
        classes = desktop.tool("xprop", "-id", window, "-notype", "WM_CLASS").split('"')[1::2]
        assert classes[1] == package.entry()["StartupWMClass"], classes


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--preset", default="release")
    preset = parser.parse_args().preset
    built = subprocess.run([ROOT / "scripts/package.sh", preset], text=True, stdout=subprocess.PIPE)
    if built.returncode != 0:
        print("FAILED package: it cannot be built")
        return 1
    failures = 0
    with tempfile.TemporaryDirectory(prefix="pintalux-package-") as folder:
        root = Path(folder) / "root"
        root.mkdir(mode=0o755)
        package = Package(ROOT / built.stdout.split()[-1], root)
        for test in tests:
            try:
                test(package)
                print(f"ok {test.__name__}", flush=True)
            except Exception as failure:
                failures += 1
                traceback.print_exc(file=sys.stdout)
                print(f"FAILED {test.__name__}: {failure}", flush=True)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
