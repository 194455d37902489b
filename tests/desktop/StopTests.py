"""Errors that nobody expected, disks and memory that run out, states that are gone: nothing painted is lost."""
import re
from pathlib import Path

from desktop import desktop_test, wait_for
from pictures import expect_same, is_whole_bmp, read_bmp, write_bmp
from roads import (BLACK, BROWSER, NEW, QUESTION, STOP, draw, leave, open_browser, paint_and_wait, sample, start_with_picture,
                   with_stroke)

STROKE = [(40, 30), (90, 30)]
OTHER_STROKE = [(40, 60), (90, 60)]


def start_with_stroke(desktop, picture):
    """Starts with a picture and paints a stroke; gives the process and where the picture lies."""
    write_bmp(desktop.pictures / "picture.bmp", picture)
    process, left, top = start_with_picture(desktop, desktop.pictures / "picture.bmp", picture)
    paint_and_wait(desktop, left, top, STROKE)
    wait_for(lambda: is_whole_bmp(desktop.state_files()[-1]), "the state is written")
    return process, left, top


def fail_for_memory(desktop, process):
    """Makes a second, large image and has the program turn it over when it may have hardly more memory than it has."""
    desktop.keys("ctrl+n")
    desktop.wait_for_window(NEW)
    desktop.type("4000")
    desktop.keys("alt+a")
    desktop.type("4000")
    desktop.keys("Return")
    desktop.wait_until_gone(NEW)
    wait_for(lambda: len(desktop.state_files()) == 3, "the large image has its first state")
    wait_for(lambda: is_whole_bmp(desktop.state_files()[-1]), "the state is written", seconds=60)
    status = Path(f"/proc/{process.pid}/status").read_text()
    kilobytes = int(re.search(r"VmSize:\s+(\d+) kB", status).group(1))
    desktop.tool("prlimit", f"--pid={process.pid}", f"--as={(kilobytes + 16000) * 1024}:")
    desktop.menu("i", "Down", "Return")
    desktop.wait_for_window(STOP)


@desktop_test
def UndoOfADeletedStateSaysSoAndTheImageStays(desktop):
    process, left, top = start_with_stroke(desktop, sample())
    desktop.state_files()[0].unlink()
    desktop.keys("ctrl+d")
    desktop.wait_for_window(QUESTION)
    desktop.keys("Return")
    desktop.wait_until_gone(QUESTION)
    desktop.wait_for_picture(with_stroke(sample(), STROKE))
    desktop.menu("f", "s", "Return")
    path = desktop.pictures / "picture.bmp"
    wait_for(lambda: is_whole_bmp(path) and read_bmp(path).at(*STROKE[0]) == BLACK, "the file is written")
    expect_same(read_bmp(path), with_stroke(sample(), STROKE))
    leave(desktop)
    assert desktop.wait_for_end(process) == 0


@desktop_test
def PaintingOnAFullDiskLosesNothing(desktop):
    process, left, top = start_with_stroke(desktop, sample())
    desktop.tool("prlimit", f"--pid={process.pid}", "--fsize=4096:")
    paint_and_wait(desktop, left, top, OTHER_STROKE)
    desktop.wait_for_window(QUESTION)  # it is told, once
    desktop.keys("Return")
    desktop.wait_until_gone(QUESTION)
    once, twice = with_stroke(sample(), STROKE), with_stroke(with_stroke(sample(), STROKE), OTHER_STROKE)
    desktop.keys("ctrl+d")
    desktop.wait_for_picture(once)
    desktop.menu("e", "Down", "Return")  # the menu opens on undo, redo lies below it
    desktop.wait_for_picture(twice)
    desktop.tool("prlimit", f"--pid={process.pid}", "--fsize=unlimited:")
    leave(desktop)
    desktop.wait_for_window(QUESTION)
    desktop.keys("s")
    assert desktop.wait_for_end(process) == 0
    expect_same(read_bmp(desktop.pictures / "picture.bmp"), twice)


@desktop_test
def ATemporaryFolderThatTakesNoFileIsPassedOver(desktop):
    write_bmp(desktop.pictures / "picture.bmp", sample())
    desktop.large_window_settings()
    desktop.environment["TMPDIR"] = "/proc"  # not even for the superuser
    process = desktop.start(desktop.pictures / "picture.bmp")
    desktop.environment["TMPDIR"] = str(desktop.temporary)  # the tools of the test need one
    left, top = desktop.wait_for_picture(sample())
    draw(desktop, left, top, STROKE)
    once = with_stroke(sample(), STROKE)
    desktop.wait_for_picture(once)
    desktop.keys("ctrl+d")
    desktop.wait_for_picture(sample())
    desktop.menu("e", "Return")  # with nothing left to undo the menu opens on redo
    desktop.wait_for_picture(once)
    leave(desktop)
    desktop.wait_for_window(QUESTION)
    desktop.keys("s")
    assert desktop.wait_for_end(process) == 0
    expect_same(read_bmp(desktop.pictures / "picture.bmp"), once)


@desktop_test
def TheFilterBrowserShowsItsSampleOnAFullDisk(desktop):
    process, left, top = start_with_stroke(desktop, sample())
    desktop.tool("prlimit", f"--pid={process.pid}", "--fsize=4096:")
    open_browser(desktop)
    desktop.keys("Down", "Return")  # the first filter of the list, applied
    desktop.wait_until_gone(BROWSER)
    desktop.wait_for_window(QUESTION)  # the disk refuses the state
    desktop.keys("Return")
    desktop.wait_until_gone(QUESTION)
    desktop.keys("ctrl+d")
    desktop.wait_for_picture(with_stroke(sample(), STROKE))
    assert process.poll() is None and desktop.window(STOP) is None


@desktop_test
def ContinuarAfterAnErrorKeepsTheDocuments(desktop):
    process, left, top = start_with_stroke(desktop, sample())
    fail_for_memory(desktop, process)
    desktop.keys("Return")
    desktop.wait_until_gone(STOP)
    desktop.tool("prlimit", f"--pid={process.pid}", "--as=unlimited:")
    desktop.menu("f", "f")
    desktop.wait_for_picture(with_stroke(sample(), STROKE))
    paint_and_wait(desktop, left, top, OTHER_STROKE)
    leave(desktop)
    desktop.wait_for_window(QUESTION)
    desktop.keys("s")
    assert desktop.wait_for_end(process) == 0
    expect_same(read_bmp(desktop.pictures / "picture.bmp"), with_stroke(with_stroke(sample(), STROKE), OTHER_STROKE))


@desktop_test
def TerminarAfterAnErrorLeavesTheDocumentsOnTheDisk(desktop):
    process, left, top = start_with_stroke(desktop, sample())
    state = desktop.state_files()[-1]
    fail_for_memory(desktop, process)
    desktop.keys("t")
    assert desktop.wait_for_end(process) == 1
    expect_same(read_bmp(state), with_stroke(sample(), STROKE))
