"""Pages from the scanner: the scanner library's own test device stands for one, its own program tells what it would give."""
import subprocess

from desktop import PATIENCE, desktop_test, wait_for
from pictures import expect_same, read_any, read_bmp
from roads import MAIN, QUESTION, SAVE_AS, give_path, leave, paint_and_wait, save_as, with_stroke, start_without_document

OPTIONS = "Digitalizar"  # and of the windows that wait for the device, which hold less
SOURCES = "Seleccionar Digitalizador"
STROKE = [(40, 30), (90, 30)]
TEST_DEVICE = """resolution_min 1
resolution_max 1200
resolution 50
geometry_min 0
geometry_max 140
geometry_quant 1
test-picture "Color pattern"
"""


def configure(desktop, devices=1, more=""):
    """A machine whose scanners are these test devices alone."""
    folder = desktop.folder / "sane"
    folder.mkdir(exist_ok=True)
    (folder / "dll.conf").write_text("test\n" if devices > 0 else "# none\n")
    (folder / "test.conf").write_text(f"number_of_devices {max(devices, 1)}\n{TEST_DEVICE}{more}")
    desktop.environment["SANE_CONFIG_DIR"] = str(folder)


def start_empty(desktop):
    desktop.large_window_settings()
    process = start_without_document(desktop)
    desktop.wait_for_window(MAIN)
    return process


def choose(desktop, *keys):
    """Runs an item of the scanner's menu."""
    desktop.wait_for_window(MAIN)
    desktop.menu("f", "Up", "Up", "Up", "Up", "Right", *keys, "Return")


def wait_for_options(desktop):
    """Waits for the window of resolution, colours and area."""
    def asked():
        window = desktop.window(OPTIONS)
        active = desktop.tool("xdotool", "getactivewindow", check=False).strip()
        return window is not None and active == str(window) and desktop.geometry(window)[3] > 200
    wait_for(asked, "the options of the page are asked for")


def by_command_line(desktop, mode, device="test:0"):
    """All of the glass at 50 dots an inch, by the library's own program."""
    path = desktop.folder / "page.pnm"
    with open(path, "wb") as page:
        subprocess.run(["scanimage", "-d", device, "--format=pnm", "--mode", mode, "--resolution", "50", "-l", "0", "-t", "0",
                        "-x", "140", "-y", "140"], env=desktop.environment, check=True, stdout=page,
                       stderr=subprocess.DEVNULL, timeout=PATIENCE)
    return read_any(path)


def answer(desktop, boxes):
    """Presses Enter in that many message boxes."""
    for _ in range(boxes):
        box = desktop.wait_for_window(QUESTION)
        desktop.keys("Return")
        wait_for(lambda: box not in [number for number, _ in desktop.windows()], "the message is gone")


def expect_nothing_scanned(desktop):
    desktop.wait_for_window(MAIN)
    assert len(desktop.windows()) == 1, f"there are {[title for _, title in desktop.windows()]}"
    assert not desktop.state_files(), "no document was made"
    assert not list(desktop.program.parent.glob("Untitled*")), "no page is left"


@desktop_test
def AScannedPageIsThatOfTheLibrarysOwnProgramAndIsSaved(desktop):
    configure(desktop)
    process = start_empty(desktop)
    choose(desktop)
    wait_for_options(desktop)
    desktop.keys("alt+r", "Home", "alt+c", "End", "Return")  # the least resolution, in colours
    expected = by_command_line(desktop, "Color")
    left, top = desktop.wait_for_picture(expected)
    wait_for(lambda: len(desktop.state_files()) == 2, "the page begins with two states")
    assert not list(desktop.program.parent.glob("Untitled*")), "the page's file is gone"
    desktop.wait_for_window(MAIN)
    paint_and_wait(desktop, left, top, STROKE)
    path = desktop.pictures / "page.bmp"
    desktop.menu("f", "s", "Return")  # its file is gone, so that it has to be named
    give_path(desktop, SAVE_AS, path)
    wait_for(path.exists, "the page is saved")
    expect_same(read_bmp(path), with_stroke(expected, STROKE))
    leave(desktop)
    assert desktop.wait_for_end(process) == 0


@desktop_test
def AFirstUndoOfAScannedPageStaysOnThePage(desktop):
    configure(desktop)
    start_empty(desktop)
    choose(desktop)
    wait_for_options(desktop)
    desktop.keys("alt+r", "Home", "alt+c", "Home", "Return")  # grey
    expected = by_command_line(desktop, "Gray")
    desktop.wait_for_picture(expected)
    wait_for(lambda: len(desktop.state_files()) == 2, "the page begins with two states")
    desktop.keys("ctrl+d")
    desktop.wait_for_picture(expected)
    path = desktop.pictures / "page.bmp"
    save_as(desktop, path)
    wait_for(path.exists, "the page is saved")
    expect_same(read_bmp(path), expected)


@desktop_test
def AScanIsCancelledInTheMiddle(desktop):
    configure(desktop, more="read-delay true\nread-delay-duration 200000\n")
    process = start_empty(desktop)
    choose(desktop)
    wait_for_options(desktop)
    desktop.keys("alt+r", "End", "Return")  # the largest page, which takes minutes

    def reads():
        window = desktop.window(OPTIONS)
        return window is not None and desktop.geometry(window)[3] < 200 and window
    window = wait_for(reads, "the device is read")
    desktop.wait_for_window(OPTIONS)
    wait_for(lambda: process.poll() is None and desktop.window(OPTIONS) == window, "it stays")
    desktop.keys("Escape")
    answer(desktop, 1)
    expect_nothing_scanned(desktop)
    leave(desktop)
    assert desktop.wait_for_end(process) == 0


@desktop_test
def AJammedPageIsTold(desktop):
    configure(desktop, more='read-status-code "SANE_STATUS_JAMMED"\n')
    process = start_empty(desktop)
    choose(desktop)
    wait_for_options(desktop)
    desktop.keys("Return")
    answer(desktop, 2)  # why, and that nothing came
    expect_nothing_scanned(desktop)
    assert process.poll() is None


@desktop_test
def WithoutADeviceNothingIsScanned(desktop):
    configure(desktop, devices=0)
    process = start_empty(desktop)
    choose(desktop)
    answer(desktop, 2)
    expect_nothing_scanned(desktop)
    choose(desktop, "Down")
    answer(desktop, 1)
    expect_nothing_scanned(desktop)
    leave(desktop)
    assert desktop.wait_for_end(process) == 0


@desktop_test
def TheChosenDeviceIsScannedFrom(desktop):
    configure(desktop, devices=3)
    start_empty(desktop)
    choose(desktop, "Down")
    desktop.wait_for_window(SOURCES)
    desktop.keys("End", "Return")
    desktop.wait_until_gone(SOURCES)
    choose(desktop)
    wait_for_options(desktop)
    desktop.keys("alt+r", "Home", "alt+c", "End", "Return")
    desktop.wait_for_picture(by_command_line(desktop, "Color", "test:2"))


@desktop_test
def ADeviceThatDoesNotStopIsLeftBehind(desktop):
    configure(desktop, more="read-delay true\nread-delay-duration 6000000\n")  # microseconds for each piece
    process = start_empty(desktop)
    choose(desktop)
    wait_for_options(desktop)
    desktop.keys("Return")
    wait_for(lambda: desktop.window(OPTIONS) and desktop.geometry(desktop.window(OPTIONS))[3] < 200, "the device is read")
    desktop.wait_for_window(OPTIONS)
    desktop.keys("Escape")
    answer(desktop, 1)
    expect_nothing_scanned(desktop)
    leave(desktop)
    assert desktop.wait_for_end(process) == 0, "the program ends while the device still works"
