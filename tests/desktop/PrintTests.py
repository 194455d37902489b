"""Pages out: to a PDF file that the printer dialog names, read back as pixels; and what happens where there is no printer."""
import subprocess

from desktop import desktop_test, wait_for
from pictures import expect_same, is_whole_bmp, picture_of_ppm, read_any, read_bmp, write_bmp
from roads import BLACK, MAIN, QUESTION, STOP, WHITE, leave, paint_and_wait, sample, start_with_picture, with_stroke

SETUP = "Configurar Impressora"
DOTS = 480  # an inch; five for each pixel of an image
STEP = DOTS // 96
STROKE = [(40, 30), (90, 30)]


def start(desktop, picture):
    desktop.environment["CUPS_SERVER"] = "/nonexistent"  # no printer, whatever the machine has
    path = desktop.pictures / "picture.bmp"
    write_bmp(path, picture)
    return start_with_picture(desktop, path, picture)


def choose(desktop, *keys):
    """Runs an item of the printer's menu. Below it lie the Preferences, the one recent file and the exit."""
    desktop.wait_for_window(MAIN)
    desktop.menu("f", "Up", "Up", "Up", "Up", "Right", *keys, "Return")


def set_up(desktop, path):
    choose(desktop)
    desktop.wait_for_window(SETUP)
    desktop.keys("alt+f", "ctrl+a")
    desktop.type(str(path))
    desktop.keys("Return")
    desktop.wait_until_gone(SETUP)


def print_page(desktop, path):
    choose(desktop, "Down")

    def whole():
        return path.exists() and path.read_bytes().rstrip().endswith(b"%%EOF")
    wait_for(whole, f"{path.name} is printed")


def upper_left(path, width, height):
    """The upper left part of the page, in dots."""
    page = subprocess.run(["pdftoppm", "-r", str(DOTS), "-x", "0", "-y", "0", "-W", str(width), "-H", str(height), path],
                          check=True, capture_output=True).stdout
    return picture_of_ppm(page)


def inked(page):
    """Left, top, right and bottom of what is not paper; right and bottom are the first dots that are paper again."""
    rows = [y for y in range(page.height) if bytes(page.rows[y]) != b"\xff" * 3 * page.width]
    columns = [x for x in range(page.width) if any(page.at(x, y) != WHITE for y in rows[::STEP])]
    return columns[0], rows[0], columns[-1] + 1, rows[-1] + 1


def images_of(desktop, path):
    """The images in the page, as they were given to the printer."""
    subprocess.run(["pdfimages", "-png", path, desktop.folder / "image"], check=True)
    return [read_any(image) for image in sorted(desktop.folder.glob("image-*.png"))]


@desktop_test
def APageHoldsTheImageAtItsOwnSizeFromItsCorner(desktop):
    picture = sample(200, 120)
    process, _, _ = start(desktop, picture)
    path = desktop.pictures / "page.pdf"
    set_up(desktop, path)
    print_page(desktop, path)
    given, = images_of(desktop, path)
    expect_same(given, picture)
    page = upper_left(path, 1400, 1000)
    left, top, right, bottom = inked(page)
    assert left <= DOTS // 4 and top <= DOTS // 4, f"the corner is at {left}, {top} of {DOTS} dots an inch"
    assert abs(right - left - STEP * 200) <= 1 and abs(bottom - top - STEP * 120) <= 1, f"it is {right - left} by {bottom - top}"
    wrong = [(x, y) for y in range(120) for x in range(200)
             if page.at(left + STEP * x + STEP // 2, top + STEP * y + STEP // 2) != picture.at(x, y)]
    assert not wrong, f"{len(wrong)} pixels are printed wrong, first at {wrong[0]}"
    leave(desktop)
    assert desktop.wait_for_end(process) == 0


@desktop_test
def AFreshStrokeIsNotOnThePage(desktop):
    picture = sample(200, 120)
    _, left, top = start(desktop, picture)
    path = desktop.pictures / "page.pdf"
    set_up(desktop, path)
    paint_and_wait(desktop, left, top, STROKE)
    print_page(desktop, path)
    given, = images_of(desktop, path)
    expect_same(given, picture)
    desktop.wait_for_picture(with_stroke(picture, STROKE))


@desktop_test
def ASetUpThatIsCancelledNamesNoFile(desktop):
    process, _, _ = start(desktop, sample())
    choose(desktop)
    desktop.wait_for_window(SETUP)
    desktop.keys("Escape")
    desktop.wait_until_gone(SETUP)
    assert not list((desktop.folder / "home").iterdir()), "nothing is written"
    leave(desktop)
    assert desktop.wait_for_end(process) == 0


@desktop_test
def WithoutAPrinterTheDocumentsAreSafe(desktop):
    process, left, top = start(desktop, sample())
    paint_and_wait(desktop, left, top, STROKE)
    painted = with_stroke(sample(), STROKE)
    choose(desktop, "Down")
    desktop.wait_for_window(STOP)
    state = desktop.state_files()[-1]
    assert is_whole_bmp(state) and read_bmp(state).at(*STROKE[0]) == BLACK, "what was painted lies on the disk"
    desktop.keys("Return")  # goes on
    desktop.wait_until_gone(STOP)
    desktop.wait_for_picture(painted)
    leave(desktop)
    desktop.wait_for_window(QUESTION)
    desktop.keys("s")
    assert desktop.wait_for_end(process) == 0
    expect_same(read_bmp(desktop.pictures / "picture.bmp"), painted)
