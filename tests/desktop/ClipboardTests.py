"""The clipboard with another program at its other end: what is copied there comes into the tray, and back from it."""
import random
import signal
import subprocess
import sys
import time
from pathlib import Path

from desktop import PATIENCE, Skip, desktop_test, wait_for
from pictures import Picture, expect_same, read_any, read_bmp, write_bmp
from roads import MAIN, NEW, OPEN, QUESTION, WHITE, leave, sample, start_bus, start_without_document

SIDE = 41  # pixels: a picture of this size is shown unscaled in the tray
COLUMN = 58  # pixels from a slot to the one beside it
ROW = 56  # pixels from a slot to the one below it


def start_with_tray(desktop, **settings):
    """Starts without a document; gives the process."""
    desktop.large_window_settings(**settings)
    return start_without_document(desktop)


def beside(desktop, *command):
    """Starts a second program and leaves it running."""
    with open(desktop.folder / "beside.log", "ab") as messages:
        process = subprocess.Popen([str(part) for part in command], env=desktop.environment, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.PIPE, stderr=messages)
    desktop.processes.append(process)
    return process


def other_client(desktop, *arguments):
    process = beside(desktop, sys.executable, Path(__file__).with_name("other_client.py"), *arguments)
    assert process.stdout.readline() == b"ready\n"
    return process


def copy_file(desktop, path, kind="image/png"):
    """Another program puts a file on the clipboard; gives its process, which ends when the clipboard is taken from it."""
    before = getattr(desktop, "clipboard_owner", None)
    process = beside(desktop, "xclip", "-quiet", "-selection", "clipboard", "-t", kind, "-i", path)
    desktop.clipboard_owner = process
    if before is not None and before.poll() is None:
        wait_for(lambda: before.poll() is not None, "the clipboard changes hands")
    else:
        wait_for(lambda: kind in owner_answer(desktop), "the other program owns the clipboard")
    return process


def owner_answer(desktop):
    return desktop.tool("xclip", "-selection", "clipboard", "-t", "TARGETS", "-o", check=False)


def picture_file(desktop, picture, kind="png"):
    path = desktop.pictures / "copied.bmp"
    write_bmp(path, picture)
    if kind == "bmp":
        return path
    desktop.tool("convert", path, path.with_suffix("." + kind))
    return path.with_suffix("." + kind)


def copy(desktop, picture, kind="image/png"):
    return copy_file(desktop, picture_file(desktop, picture, kind[-3:]), kind)


def text_file(desktop, text):
    path = desktop.pictures / "text.txt"
    path.write_text(text)
    return path


def copy_text(desktop):
    return copy_file(desktop, text_file(desktop, "sol e mar"), "UTF8_STRING")


def pasted(desktop, kind="image/bmp"):
    """What another program gets from the clipboard."""
    data = subprocess.run(["xclip", "-selection", "clipboard", "-t", kind, "-o"], env=desktop.environment, check=True,
                          capture_output=True, timeout=PATIENCE).stdout
    path = desktop.pictures / ("pasted." + kind[-3:])
    path.write_bytes(data)
    return read_bmp(path) if kind == "image/bmp" else read_any(path)


def stays_away(desktop, picture):
    """True if the picture is not seen for a second."""
    end = time.monotonic() + 1
    while time.monotonic() < end:
        if desktop.photograph().find(picture):
            return False
    return True


def click_slot(desktop, place):
    desktop.click(place[0] + SIDE // 2, place[1] + SIDE // 2)


@desktop_test
def BitmapCopiedElsewhereIsSeenInTheTrayAndGoesBack(desktop):
    start_with_tray(desktop)
    first, second = sample(SIDE, SIDE), sample(SIDE, SIDE, seed=50)
    copy(desktop, first)
    place = desktop.wait_for_picture(first)
    copy(desktop, second, "image/bmp")
    assert desktop.wait_for_picture(second) == (place[0] + COLUMN, place[1])
    copy_text(desktop)
    click_slot(desktop, place)
    wait_for(lambda: "image/bmp" in owner_answer(desktop), "the click puts the first one on the clipboard")
    expect_same(pasted(desktop, "image/bmp"), first)
    expect_same(pasted(desktop, "image/png"), first)
    assert desktop.photograph().find(first) == place, "the tray took no bitmap of its own"
    assert desktop.photograph().find(second) == (place[0] + COLUMN, place[1])


@desktop_test
def SixCopiesFillTheTrayAndTheSeventhTakesTheFirstPlace(desktop):
    start_with_tray(desktop)
    pictures = [sample(SIDE, SIDE, seed=30 * number) for number in range(7)]
    places = []
    for picture in pictures[:6]:
        copy(desktop, picture)
        places.append(desktop.wait_for_picture(picture))
        copy_text(desktop)
    left, top = places[0]
    assert places == [(left + COLUMN * column, top + ROW * row) for row in range(3) for column in range(2)]
    copy(desktop, pictures[6])
    assert desktop.wait_for_picture(pictures[6]) == places[0]
    display = desktop.photograph()
    assert display.find(pictures[0]) is None
    assert [display.find(picture) for picture in pictures[1:6]] == places[1:6]


@desktop_test
def WithoutTheMonitorNothingIsTakenUntilItIsSwitchedOn(desktop):
    start_with_tray(desktop, Clipmon=0)
    first, second = sample(SIDE, SIDE), sample(SIDE, SIDE, seed=50)
    copy(desktop, first)
    assert stays_away(desktop, first)
    desktop.menu("e", "Up", "Return")
    copy_text(desktop)
    copy(desktop, second)
    place = desktop.wait_for_picture(second)
    desktop.menu("e", "Up", "Return")
    copy(desktop, first)
    assert stays_away(desktop, first)
    assert desktop.photograph().find(second) == place


@desktop_test
def OwnerThatDiesLeavesItsBitmapInTheTray(desktop):
    start_with_tray(desktop)
    picture = sample(SIDE, SIDE)
    owner = copy(desktop, picture)
    place = desktop.wait_for_picture(picture)
    owner.kill()
    owner.wait()
    assert "image" not in owner_answer(desktop)
    click_slot(desktop, place)
    wait_for(lambda: "image/bmp" in owner_answer(desktop), "the click puts it on the clipboard")
    expect_same(pasted(desktop), picture)


@desktop_test
def SilentOwnerDelaysOnceAndIsPassedOver(desktop):
    process = start_with_tray(desktop)
    other_client(desktop, "silent")
    picture = sample(SIDE, SIDE)
    # The next copy is heard when the wait for the silent one is over.
    copy(desktop, picture)
    place = desktop.wait_for_picture(picture)
    copy(desktop, sample(SIDE, SIDE, seed=50))
    assert desktop.wait_for_picture(sample(SIDE, SIDE, seed=50)) == (place[0] + COLUMN, place[1]), "the first slot was free"
    leave(desktop)
    assert desktop.wait_for_end(process) == 0


@desktop_test
def PasteFromASilentOwnerSaysSoAndChangesNothing(desktop):
    picture = sample()
    write_bmp(desktop.pictures / "picture.bmp", picture)
    desktop.large_window_settings(Clipmon=0)  # the tray would have found out before
    process = desktop.start(desktop.pictures / "picture.bmp")
    desktop.wait_for_picture(picture)
    for keys in (["ctrl+v"], ["alt+e", "Up", "Up", "Up", "Up", "Return"]):  # into the document, and as a new one
        other_client(desktop, "silent")
        time.sleep(0.5)  # until the poll has offered the paste
        desktop.keys(*keys)
        desktop.wait_for_window(QUESTION)
        desktop.keys("Return")
        desktop.wait_until_gone(QUESTION)
        desktop.wait_for_picture(picture)
    assert len(desktop.state_files()) == 1
    leave(desktop)  # nothing was changed, so that nothing is asked
    assert desktop.wait_for_end(process) == 0
    expect_same(read_bmp(desktop.pictures / "picture.bmp"), picture)


@desktop_test
def TextOfASilentOwnerLeavesTheDialogAlive(desktop):
    desktop.large_window_settings()
    desktop.start()
    desktop.wait_for_window(NEW)
    copy_file(desktop, text_file(desktop, "217"), "UTF8_STRING")
    desktop.keys("ctrl+a", "ctrl+v")
    owner = other_client(desktop, "silent")
    # Asked by the key and by the menu; each wait ends by Escape, which does not reach the dialog.
    for keys in (["ctrl+v"], ["Menu", "o"]):
        desktop.keys(*keys)
        time.sleep(0.5)
        desktop.keys("Escape")
    owner.kill()
    owner.wait()
    desktop.keys("Return")
    desktop.wait_until_gone(NEW)
    desktop.wait_for_picture(Picture.filled(217, 300, WHITE))


@desktop_test
def TextIsPastedIntoAFileDialog(desktop):
    picture = sample()
    write_bmp(desktop.pictures / "picture.bmp", picture)
    start_with_tray(desktop)
    copy_file(desktop, text_file(desktop, str(desktop.pictures / "picture.bmp")), "UTF8_STRING")
    desktop.keys("ctrl+o")
    desktop.wait_for_window(OPEN)
    desktop.keys("ctrl+v", "Return")
    desktop.wait_for_picture(picture)


def expect_alive(desktop):
    """The program does what a hand asks for."""
    desktop.keys("ctrl+n")
    desktop.wait_for_window(NEW)
    desktop.keys("Escape")
    desktop.wait_until_gone(NEW)


@desktop_test
def EndlessOwnerLeavesTheProgramAlive(desktop):
    process = start_with_tray(desktop)
    owner = other_client(desktop, "endless")
    expect_alive(desktop)
    desktop.menu("e", "Up", "Up", "Up", "Up", "Return")  # as a new document: waits for it
    time.sleep(0.5)
    desktop.keys("Escape")  # until its user has enough of it
    expect_alive(desktop)
    assert owner.poll() is None
    picture = sample(SIDE, SIDE)
    copy(desktop, picture)
    desktop.wait_for_picture(picture)
    leave(desktop)
    assert desktop.wait_for_end(process) == 0


@desktop_test
def StoppedOwnerDelaysOnceAndIsPassedOver(desktop):
    process = start_with_tray(desktop)
    process.send_signal(signal.SIGSTOP)  # so that the owner is stopped before it is asked
    owner = copy(desktop, sample(SIDE, SIDE, seed=50))
    owner.send_signal(signal.SIGSTOP)
    process.send_signal(signal.SIGCONT)
    time.sleep(1)
    picture = sample(SIDE, SIDE)
    beside(desktop, "xclip", "-quiet", "-selection", "clipboard", "-t", "image/png", "-i", picture_file(desktop, picture))
    desktop.wait_for_picture(picture)
    owner.kill()
    leave(desktop)
    assert desktop.wait_for_end(process) == 0


@desktop_test
def BytesThatAreNoPictureArePassedOver(desktop):
    start_with_tray(desktop)
    path = desktop.pictures / "broken.png"
    path.write_bytes(b"\x89PNG\r\n\x1a\n and nothing more")
    copy_file(desktop, path)
    path.write_bytes(b"")
    copy_file(desktop, path)
    picture = sample(SIDE, SIDE)
    copy(desktop, picture)
    place = desktop.wait_for_picture(picture)
    copy(desktop, sample(SIDE, SIDE, seed=50))
    assert desktop.wait_for_picture(sample(SIDE, SIDE, seed=50)) == (place[0] + COLUMN, place[1]), "the first slot was free"


def end_with_a_copy(desktop):
    """A run that puts a picture on the clipboard and ends; gives the picture."""
    process = start_with_tray(desktop)
    picture = sample(SIDE, SIDE)
    copy(desktop, picture)
    place = desktop.wait_for_picture(picture)
    copy_text(desktop)
    click_slot(desktop, place)
    wait_for(lambda: "image/bmp" in owner_answer(desktop), "the click puts it on the clipboard")
    leave(desktop)
    assert desktop.wait_for_end(process) == 0
    return picture


@desktop_test
def WhatWasCopiedOutlivesTheProgramWhereTheDesktopKeepsIt(desktop):
    other_client(desktop, "manager", desktop.folder / "kept.png")
    picture = end_with_a_copy(desktop)
    expect_same(pasted(desktop, "image/png"), picture)


@desktop_test
def PhotographOutlivesTheProgramToo(desktop):
    kept = desktop.folder / "kept.png"
    other_client(desktop, "manager", kept)
    process = start_with_tray(desktop)
    small = sample(SIDE, SIDE)
    copy(desktop, small)
    left, top = desktop.wait_for_picture(small)
    # Noise, so that no encoding brings it below what one message of the display holds.
    noise = random.Random(5)
    photograph = Picture(2500, 2500, [bytearray(noise.randbytes(3 * 2500)) for _ in range(2500)])
    middle = (left + COLUMN + SIDE // 2, top + SIDE // 2)
    empty = desktop.photograph().at(*middle)
    copy(desktop, photograph, "image/bmp")
    wait_for(lambda: desktop.photograph().at(*middle) != empty, "its thumbnail is seen")
    copy_text(desktop)
    desktop.click(*middle)
    wait_for(lambda: "image/bmp" in owner_answer(desktop), "the click puts it on the clipboard")
    leave(desktop)
    assert desktop.wait_for_end(process) == 0
    assert kept.stat().st_size > 16 << 20
    assert read_any(kept).rows == photograph.rows


def keeps_what_was_copied(desktop, *manager):
    """What a clipboard manager offers of a run that has ended."""
    start_bus(desktop)
    try:
        beside(desktop, *manager)
    except FileNotFoundError:
        raise Skip(f"no {manager[0]} on this machine") from None
    other_client(desktop, "await-manager")
    desktop.environment["DBUS_SESSION_BUS_ADDRESS"] = "disabled:"
    picture = end_with_a_copy(desktop)
    wait_for(lambda: "image/bmp" in owner_answer(desktop), "the manager offers it")
    expect_same(pasted(desktop, "image/bmp"), picture)
    expect_same(pasted(desktop, "image/png"), picture)


@desktop_test
def PackagedManagerThatNeverAnswersKeepsWhatWasCopied(desktop):
    keeps_what_was_copied(desktop, "xfce4-clipman")


@desktop_test
def PackagedManagerThatTakesOverAtTheEndKeepsWhatWasCopied(desktop):
    """It asks for nothing until the program hands over what it copied."""
    keeps_what_was_copied(desktop, "xfsettingsd", "--disable-wm-check", "--replace")


@desktop_test
def BothFormatsOfAPhotographGoAtOnce(desktop):
    """In pieces, side by side, as some managers ask; another one takes it meanwhile."""
    desktop.large_window_settings()
    noise = random.Random(6)
    photograph = Picture(1500, 1100, [bytearray(noise.randbytes(3 * 1500)) for _ in range(1100)])
    write_bmp(desktop.pictures / "photograph.bmp", photograph)
    desktop.start(desktop.pictures / "photograph.bmp")
    wait_for(lambda: len(desktop.state_files()) == 1, "the picture is the first state")
    desktop.wait_for_window(MAIN)
    desktop.keys("ctrl+a")
    time.sleep(0.5)  # until the poll has offered the copy
    desktop.keys("ctrl+c")
    wait_for(lambda: "image/bmp" in owner_answer(desktop), "the photograph is on the clipboard")
    asker = beside(desktop, sys.executable, Path(__file__).with_name("other_client.py"), "both", desktop.pictures)
    expect_same(pasted(desktop), photograph)
    assert asker.wait(PATIENCE) == 0
    expect_same(read_bmp(desktop.pictures / "both.bmp"), photograph)
    expect_same(read_any(desktop.pictures / "both.png"), photograph)


@desktop_test
def SilentManagerDelaysTheEndAndLosesWhatWasCopied(desktop):
    manager = other_client(desktop, "manager", desktop.folder / "kept.png")
    process = start_with_tray(desktop)
    picture = sample(SIDE, SIDE)
    copy(desktop, picture)
    place = desktop.wait_for_picture(picture)
    click_slot(desktop, place)
    wait_for(lambda: "image/bmp" in owner_answer(desktop), "the click puts it on the clipboard")
    manager.send_signal(signal.SIGSTOP)
    leave(desktop)
    assert desktop.wait_for_end(process) == 0
    assert "image" not in owner_answer(desktop)
    manager.kill()
