"""Files dropped on the main window by another program, and the pictures that the other programs write."""
import subprocess
import sys
from pathlib import Path

from desktop import desktop_test, wait_for
from pictures import expect_same, read_bmp, write_bmp, write_png
from roads import MAIN, leave, paint_and_wait, sample, start_with_picture, with_stroke

OTHER = Path(__file__).with_name("other_client.py")


def drop(desktop, *paths):
    """Another program drops files in the middle of the main window; gives what it is told."""
    return desktop.tool(sys.executable, OTHER, "drop", desktop.window(MAIN), *paths).strip()


@desktop_test
def DroppedFilesOpenEachInItsWindow(desktop):
    write_bmp(desktop.pictures / "first.bmp", sample())
    process, _, _ = start_with_picture(desktop, desktop.pictures / "first.bmp", sample())
    second, third = sample(100, 80, seed=77), sample(110, 70, seed=33)
    write_bmp(desktop.pictures / "second one.bmp", second)
    write_png(desktop.pictures / "terça.png", third)
    assert drop(desktop, desktop.pictures / "second one.bmp", desktop.pictures / "terça.png") == "copied"
    desktop.wait_for_picture(third)
    wait_for(lambda: len(desktop.state_files()) == 3, "both documents have their first state")
    desktop.menu("j", "v")
    for picture in (sample(), second, third):
        desktop.wait_for_picture(picture)
    leave(desktop)
    assert desktop.wait_for_end(process) == 0


@desktop_test
def WhatIsNoFileIsNotTaken(desktop):
    write_bmp(desktop.pictures / "first.bmp", sample())
    start_with_picture(desktop, desktop.pictures / "first.bmp", sample())
    assert drop(desktop, "https://example.org/picture.bmp") == "refused"
    assert len(desktop.state_files()) == 1


@desktop_test
def PngWebpAndTiffOfAnotherProgramOpen(desktop):
    picture = sample()
    write_bmp(desktop.folder / "source.bmp", picture)
    desktop.large_window_settings()
    for name, options in (("a.png", []), ("a.webp", ["-define", "webp:lossless=true"]), ("a.tiff", ["-compress", "LZW"])):
        subprocess.run(["convert", desktop.folder / "source.bmp", *options, desktop.pictures / name], check=True)
        process = desktop.start(desktop.pictures / name)
        desktop.wait_for_picture(picture)
        leave(desktop)
        assert desktop.wait_for_end(process) == 0


@desktop_test
def SavingAPngLeavesABmpBesideIt(desktop):
    path = desktop.pictures / "picture.png"
    write_png(path, sample())
    before = path.read_bytes()
    _, left, top = start_with_picture(desktop, path, sample())
    stroke = [(40, 30), (90, 30)]
    paint_and_wait(desktop, left, top, stroke)
    desktop.menu("f", "s", "Return")
    beside = desktop.pictures / "picture.bmp"
    wait_for(beside.exists, "the BMP is written")
    expect_same(read_bmp(beside), with_stroke(sample(), stroke))
    assert path.read_bytes() == before
