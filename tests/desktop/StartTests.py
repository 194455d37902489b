"""How pictures come in: at the start, from a second instance, by the Open dialog."""
import shutil
import subprocess
import time

from desktop import desktop_test, wait_for
from pictures import Picture, write_bmp, write_long_gif
from roads import MAIN, NEW, OPEN, QUESTION, give_path, leave, sample, start_with_picture


@desktop_test
def StartOpensThePictureOfTheCommandLine(desktop):
    path = desktop.pictures / "picture.bmp"
    write_bmp(path, sample())
    process, _, _ = start_with_picture(desktop, path, sample())
    desktop.wait_for_window(MAIN)
    assert len(desktop.state_files()) == 1, "the picture is the first state"
    leave(desktop)
    assert desktop.wait_for_end(process) == 0, "nothing was painted, so nothing is asked"
    assert not desktop.state_files(), "the states go with their document"


@desktop_test
def StartOpensAJpegWhosePathHasBlanks(desktop):
    colour = (60, 120, 180)
    path = desktop.pictures / "my summer photo.jpg"
    subprocess.run(["convert", "-size", "160x96", "xc:rgb(60,120,180)", "-quality", "100", path], check=True)
    desktop.large_window_settings()
    desktop.start(path)

    def seen():
        display = desktop.photograph()
        width = 0
        for row in display.rows:
            near = [all(abs(row[3 * x + c] - colour[c]) <= 3 for c in range(3)) for x in range(display.width)]
            width = max(width, sum(near))
        return width == 160
    wait_for(seen, "the photo is seen in its full width")


@desktop_test
def EscapeGivesUpAPictureThatTakesLong(desktop):
    write_long_gif(desktop.pictures / "long.gif")
    second = sample()
    write_bmp(desktop.pictures / "second.bmp", second)
    desktop.large_window_settings()
    desktop.start(desktop.pictures / "long.gif")
    desktop.wait_for_window(MAIN)
    other = desktop.start(desktop.pictures / "second.bmp")
    assert desktop.wait_for_end(other) == 0
    desktop.keys("ctrl+n")
    time.sleep(1)
    assert list(desktop.run_folder.glob("KLdde.tmp")), "the second picture waits for the first"
    assert len(desktop.windows()) == 1, "no command runs meanwhile"
    desktop.keys("Escape")
    desktop.wait_for_picture(second)
    assert len(desktop.state_files()) == 1, "what was given up left nothing"


@desktop_test
def FirstStartGreetsWithTheSplashAndTheNewDialog(desktop):
    process = desktop.start()
    desktop.wait_for_window(NEW)
    x, y, width, height = desktop.geometry(desktop.window(MAIN))
    assert abs(x - 1000 // 15) <= 40 and abs(y - 1000 // 15) <= 60, f"the window stands at {x}, {y}"
    assert abs(width - 6500 // 15) <= 20 and abs(height - 6500 // 15) <= 40, f"the window is {width} by {height}"
    desktop.keys("Escape")
    desktop.wait_until_gone(NEW)
    assert not desktop.state_files(), "Cancelar makes no document"
    wait_for(lambda: len(desktop.windows()) == 1, "the splash goes by itself")
    leave(desktop)
    assert desktop.wait_for_end(process) == 0


@desktop_test
def SecondInstanceHandsItsFileOver(desktop):
    first, second = sample(), sample(100, 80, seed=77)
    write_bmp(desktop.pictures / "first.bmp", first)
    write_bmp(desktop.pictures / "second one.bmp", second)
    process, _, _ = start_with_picture(desktop, desktop.pictures / "first.bmp", first)
    other = desktop.start(desktop.pictures / "second one.bmp")
    assert desktop.wait_for_end(other) == 0
    desktop.wait_for_picture(second)
    wait_for(lambda: len(desktop.state_files()) == 2, "the second document has its first state")
    assert not list(desktop.run_folder.glob("KLdde.tmp")), "the hand-off file is gone"
    assert len(desktop.windows()) == 1, "there is one main window"
    leave(desktop)
    assert desktop.wait_for_end(process) == 0


@desktop_test
def SecondInstanceWithoutAFileIsASecondProgram(desktop):
    write_bmp(desktop.pictures / "first.bmp", sample())
    start_with_picture(desktop, desktop.pictures / "first.bmp", sample())
    second = desktop.start()
    desktop.wait_for_window(NEW)
    assert second.poll() is None
    mains = [title for _, title in desktop.windows() if title.startswith(MAIN)]
    assert len(mains) == 2, f"there are {mains}"


@desktop_test
def WhenTheFirstInstanceEndsTheNextTakesTheFilesWhereverItLies(desktop):
    first, other = sample(), sample(100, 80, seed=77)
    write_bmp(desktop.pictures / "first.bmp", first)
    write_bmp(desktop.pictures / "other.bmp", other)
    process, _, _ = start_with_picture(desktop, desktop.pictures / "first.bmp", first)
    second = desktop.start()
    desktop.wait_for_window(NEW)
    desktop.keys("Escape")
    desktop.wait_until_gone(NEW)
    desktop.signal_stop(process)
    elsewhere = desktop.folder / "elsewhere"
    elsewhere.mkdir()
    shutil.copy(desktop.program, elsewhere)
    desktop.program = elsewhere / desktop.program.name
    assert desktop.wait_for_end(desktop.start(desktop.pictures / "other.bmp")) == 0, "it hands its file over"
    desktop.wait_for_picture(other)
    assert second.poll() is None


@desktop_test
def APlaceOutsideTheScreenIsMovedIn(desktop):
    desktop.write_settings(MainLeft=60000, MainTop=-20000, MainWidth=9000, MainHeight=7500, ShowSplash=0)
    desktop.start()
    desktop.wait_for_window(NEW)
    x, y, width, height = desktop.geometry(desktop.window(MAIN))
    assert 0 <= x and x + width <= 1280 + 20 and 0 <= y and y + height <= 1024, f"it stands at {x}, {y}, {width}x{height}"
    assert abs(width - 600) <= 20 and abs(height - 500) <= 40, f"it is {width} by {height}"


@desktop_test
def HandOffOfGarbageIsRemovedAndOpensNothing(desktop):
    write_bmp(desktop.pictures / "first.bmp", sample())
    process, _, _ = start_with_picture(desktop, desktop.pictures / "first.bmp", sample())
    hand_off = desktop.run_folder / "KLdde.tmp"
    for content in (b"/no/such/file.bmp\n", bytes(range(256)) * 16, b""):
        hand_off.write_bytes(content)
        wait_for(lambda: not hand_off.exists(), "the hand-off file is removed")
    with open(hand_off, "wb") as file:
        file.truncate(100_000_000)
    wait_for(lambda: not hand_off.exists(), "a hand-off file of 100 MB is removed")
    assert len(desktop.state_files()) == 1, "no document was opened"
    assert desktop.window(QUESTION) is None
    leave(desktop)
    assert desktop.wait_for_end(process) == 0


@desktop_test
def SettingsOfGarbageGiveTheDefaults(desktop):
    desktop.write_settings(ShowSplash=0)
    desktop.settings_file.write_bytes(b"\xff\xfe\x00[garbage\n=\n\\x\n" * 200)
    process = desktop.start()
    desktop.wait_for_window(NEW)
    _, _, width, _ = desktop.geometry(desktop.window(MAIN))
    assert abs(width - 6500 // 15) <= 20, f"the window is {width} wide"
    desktop.keys("Escape")
    desktop.wait_until_gone(NEW)
    wait_for(lambda: len(desktop.windows()) == 1, "the splash goes by itself")
    leave(desktop)
    assert desktop.wait_for_end(process) == 0


@desktop_test
def BrokenPictureOnTheCommandLineLeavesAnEmptyWindow(desktop):
    path = desktop.pictures / "broken.bmp"
    path.write_bytes(b"BM" + bytes(10))
    desktop.large_window_settings()
    process = desktop.start(path)
    desktop.wait_for_window(MAIN)
    other = desktop.pictures / "whole.bmp"
    write_bmp(other, sample())
    assert desktop.wait_for_end(desktop.start(other)) == 0
    desktop.wait_for_picture(sample())
    assert process.poll() is None


@desktop_test
def OpenAndTileShowTwoPicturesSideBySide(desktop):
    first, second = sample(), sample(100, 80, seed=77)
    write_bmp(desktop.pictures / "first.bmp", first)
    write_bmp(desktop.pictures / "second one.bmp", second)
    start_with_picture(desktop, desktop.pictures / "first.bmp", first)
    desktop.keys("ctrl+o")
    give_path(desktop, OPEN, desktop.pictures / "second one.bmp")
    desktop.wait_for_picture(second)
    desktop.menu("j", "v")
    left, top = desktop.wait_for_picture(first)
    other_left, other_top = desktop.wait_for_picture(second)
    assert abs(left - other_left) > 200 and abs(top - other_top) < 100, "they stand side by side"
