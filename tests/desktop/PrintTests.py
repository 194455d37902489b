"""Pages out: to a PDF file that the printer dialog names, read back as pixels; and what happens where there is no printer."""
import shutil
import socket
import subprocess

from desktop import Skip, desktop_test, wait_for
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


PAPER = """*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "PAGE.PPD"
*Manufacturer: "Test"
*Product: "(Test)"
*ModelName: "Page"
*ShortNickName: "Page"
*NickName: "Page"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: True
*DefaultColorSpace: RGB
*FileSystem: False
*cupsFilter2: "application/vnd.cups-pdf application/pdf 0 -"
*OpenUI *PageSize/Size: PickOne
*DefaultPageSize: A4
*PageSize A4/A4: "<</PageSize[595 842]>>setpagedevice"
*CloseUI: *PageSize
*OpenUI *PageRegion/Region: PickOne
*DefaultPageRegion: A4
*PageRegion A4/A4: "<</PageSize[595 842]>>setpagedevice"
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4/A4: "0 0 595 842"
*DefaultPaperDimension: A4
*PaperDimension A4/A4: "595 842"
"""


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


def start_scheduler(desktop, page):
    """A print scheduler of the test's own, with one queue that writes its pages to a file."""
    if shutil.which("cupsd") is None or shutil.which("lpadmin") is None:
        raise Skip("there is no print scheduler (cups-daemon, cups-client)")
    folder = desktop.folder / "scheduler"
    for name in ("root/ppd", "state", "cache", "spool", "temporary", "keys"):
        (folder / name).mkdir(parents=True)
    port = free_port()
    (folder / "cupsd.conf").write_text(f"Listen 127.0.0.1:{port}\nBrowsing Off\nDefaultAuthType None\n"
                                       "<Location />\nOrder allow,deny\nAllow all\n</Location>\n"
                                       "<Policy default>\n<Limit All>\nOrder deny,allow\nAllow all\n</Limit>\n</Policy>\n")
    (folder / "cups-files.conf").write_text(
        f"ServerRoot {folder}/root\nStateDir {folder}/state\nCacheDir {folder}/cache\nRequestRoot {folder}/spool\n"
        f"TempDir {folder}/temporary\nServerKeychain {folder}/keys\nAccessLog {folder}/access\nErrorLog {folder}/error\n"
        f"PageLog {folder}/page\nFileDevice Yes\n")
    (folder / "page.ppd").write_text(PAPER)
    page.touch()
    # The scheduler gives its work to a user of its own.
    for path in (page, page.parent, desktop.folder):
        path.chmod(0o777)
    desktop._spawn("cupsd", "-f", "-c", folder / "cupsd.conf", "-s", folder / "cups-files.conf", log="scheduler.log")
    desktop.environment["CUPS_SERVER"] = f"127.0.0.1:{port}"
    try:
        wait_for(lambda: "is running" in desktop.tool("lpstat", "-r", check=False), "the scheduler runs", seconds=10)
    except AssertionError:
        raise Skip("the print scheduler does not start here") from None
    desktop.tool("lpadmin", "-p", "Page", "-E", "-v", f"file://{page}", "-P", folder / "page.ppd")
    desktop.tool("lpadmin", "-d", "Page")


@desktop_test
def APageGoesThroughThePrintSchedulersQueue(desktop):
    page = desktop.pictures / "printed.pdf"
    start_scheduler(desktop, page)
    picture = sample()
    path = desktop.pictures / "picture.bmp"
    write_bmp(path, picture)
    process, _, _ = start_with_picture(desktop, path, picture)
    print_page(desktop, page)
    printed = images_of(desktop, page)
    assert len(printed) == 1
    expect_same(printed[0], picture)
    leave(desktop)
    assert desktop.wait_for_end(process) == 0
