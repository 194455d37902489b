"""Frames, borders and new sizes: from the menu over the dialog, by keys and by the bars' arrows, to the saved file."""
import time

from desktop import desktop_test, wait_for
from FilterTests import expect_saved, start
from pictures import Picture
from roads import BLACK, MAIN, WHITE, sample

WIZARD, BORDERS, RESIZE = " Molduras", "Inserir Bordos", "Redimensionar a Imagem"
FROM_THE_END = {WIZARD: 4, BORDERS: 5, RESIZE: 6}  # places in the menu
PLAIN = 4  # place in the list of styles


def open_dialog(desktop, title):
    desktop.menu("i", *["Up"] * FROM_THE_END[title], "Return")
    return desktop.wait_for_window(title)


def accept(desktop, title):
    """Presses Enter in a dialog and waits for the state that it leaves."""
    before = len(desktop.state_files())
    desktop.keys("Return")
    desktop.wait_until_gone(title)
    desktop.wait_for_window(MAIN)
    wait_for(lambda: len(desktop.state_files()) == before + 1, "one state is recorded")


def expect_done(desktop, title, path, picture, expected):
    """Accepts the dialog: what is expected is seen and saved, undone, and done again. (An undo keeps the window's size, so
    that the larger of two pictures is not seen as a whole then.)"""
    accept(desktop, title)
    desktop.wait_for_picture(expected)
    expect_saved(desktop, path, expected)
    desktop.keys("ctrl+d")
    expect_saved(desktop, path, picture)
    desktop.menu("e", "Return")  # again: the first item that can be chosen
    expect_saved(desktop, path, expected)


def on_sample(title):
    """A desktop test that starts with the sample and opens the dialog. It gets desktop and sample and uses the dialog; what
    it gives back is what accepting makes of the sample."""
    def mark(use):
        def test(desktop):
            picture = sample(120, 90)
            path, _, _ = start(desktop, picture)
            open_dialog(desktop, title)
            expect_done(desktop, title, path, picture, use(desktop, picture))
        test.__name__ = use.__name__
        return desktop_test(test)
    return mark


def framed(picture, size, colour):
    """The picture with four bands of `size` - 1 pixels, counted from row and column 1, and a black line around it."""
    result = Picture(picture.width, picture.height, [bytearray(row) for row in picture.rows])
    right, bottom = picture.width - 1, picture.height - 1
    for y in range(picture.height):
        for x in range(picture.width):
            if x in (0, right) or y in (0, bottom):
                result.put(x, y, BLACK)
            elif x < size or y < size or x > right - size or y > bottom - size + 1:
                result.put(x, y, colour)
    return result


def grown(picture, top, bottom, left, right, colour):
    result = Picture.filled(picture.width + left + right, picture.height + top + bottom, colour)
    for y in range(picture.height):
        for x in range(picture.width):
            result.put(left + x, top + y, picture.at(x, y))
    return result


def stretched(picture, width, height):
    """Each pixel takes the one under its middle, of two neighbours that meet there the first."""
    def cell(place, source, destination):
        return -(-(2 * place + 1) * source // (2 * destination)) - 1
    result = Picture.filled(width, height, WHITE)
    for y in range(height):
        for x in range(width):
            result.put(x, y, picture.at(cell(x, picture.width, width), cell(y, picture.height, height)))
    return result


@on_sample(WIZARD)
def FrameIsChosenTriedAndSaved(desktop, picture):
    desktop.keys(*["Down"] * PLAIN)
    desktop.keys("Tab", *["Right"] * 5)  # the size
    desktop.keys("alt+f", "alt+v")
    return framed(picture, 5, BLACK)


@on_sample(BORDERS)
def BordersAreTypedAndSaved(desktop, picture):
    desktop.type("12")
    desktop.keys("Tab", "Tab")  # past the bar
    desktop.type("3")
    desktop.keys("Tab", "Tab")
    desktop.type("999")
    desktop.keys("BackSpace", "BackSpace")  # of the 400 that it became
    desktop.keys("alt+c", "Down")  # black
    return grown(picture, 12, 3, 4, 0, BLACK)


@on_sample(BORDERS)
def SymmetricalBordersFollowEachOther(desktop, picture):
    desktop.keys("alt+s", "alt+e")
    desktop.type("7")
    desktop.keys("alt+c", "Down", "Down")  # red
    return grown(picture, 7, 7, 7, 7, (255, 0, 0))


@on_sample(BORDERS)
def BordersFollowTheArrowsOfTheirBars(desktop, picture):
    desktop.keys("Tab", *["Up"] * 3)  # the top's, from 1
    desktop.keys("Tab", "Tab", *["Up"] * 6, "Down")
    return grown(picture, 4, 5, 0, 0, WHITE)


@on_sample(RESIZE)
def SizeFollowsTheArrowsOfItsBar(desktop, picture):
    desktop.keys("Tab", *["Up"] * 5)
    return stretched(picture, 125, 94)  # 93.75 high


@on_sample(RESIZE)
def NewWidthTakesTheHeightAlong(desktop, picture):
    desktop.type("80")
    return stretched(picture, 80, 60)


@on_sample(RESIZE)
def PercentageEnlargesTheImage(desktop, picture):
    desktop.keys("alt+p")
    time.sleep(0.5)  # a button that is pressed by its letter acts when it has come up again
    desktop.keys("alt+l", "ctrl+a")  # the width, of the group that is chosen now
    desktop.type("200")
    return stretched(picture, 240, 180)


@desktop_test
def FrameThatIsCancelledLeavesTheImage(desktop):
    picture = sample(120, 90)
    start(desktop, picture)
    open_dialog(desktop, WIZARD)
    desktop.keys("Tab", *["Right"] * 5, "alt+v", "Escape")
    desktop.wait_until_gone(WIZARD)
    desktop.wait_for_picture(picture)
    assert len(desktop.state_files()) == 1
