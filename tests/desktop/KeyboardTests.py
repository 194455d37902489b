"""The program without a pointer, and keys and wheel at moments when they must do nothing."""
from desktop import desktop_test, wait_for
from pictures import Picture, expect_same, is_whole_bmp, read_bmp, write_bmp
from roads import (BLACK, BROWSER, MAIN, NEW, QUESTION, SAVE_AS, WHITE, give_path, open_browser, paint_and_wait, sample,
                   start_with_new_document, with_stroke)

HELP = MAIN + ": ajuda"
INVERT = 4  # its place in the list of filters
RED = (255, 0, 0)


def pointer_away(desktop):
    """The pointer into the corner of the display, where it stays."""
    desktop.tool("xdotool", "mousemove", "--sync", 1279, 1023)


def new_document_by_keys(desktop):
    pointer_away(desktop)
    desktop.large_window_settings()
    desktop.start()
    desktop.wait_for_window(NEW)
    desktop.keys("Return")
    desktop.wait_until_gone(NEW)
    desktop.wait_for_window(MAIN)
    place = desktop.wait_for_picture(Picture.filled(300, 300, WHITE))
    wait_for(lambda: len(desktop.state_files()) == 1, "the first state is recorded")
    return place


def states(desktop, count):
    wait_for(lambda: len(desktop.state_files()) == count, f"{count} states are recorded")


def cross_to(desktop, tens_right, tens_down):
    """The cross from wherever it is to a place of the image, counted in tens."""
    desktop.keys("Home", "Prior", "Prior", *["shift+Right"] * tens_right, *["shift+Down"] * tens_down)


@desktop_test
def APictureIsPaintedFilledFilteredAndSavedByKeysAlone(desktop):
    left, top = new_document_by_keys(desktop)
    # A square with the shapes' tool.
    desktop.keys("f")
    cross_to(desktop, 5, 5)
    desktop.keys("Return", *["shift+Right"] * 4, *["shift+Down"] * 4, "Return")
    states(desktop, 2)
    # A level line with the pen, as long as the blank is held.
    desktop.keys("c")
    cross_to(desktop, 2, 20)
    desktop.tool("xdotool", "keydown", "space")
    desktop.keys(*["shift+Right"] * 3)
    desktop.tool("xdotool", "keyup", "space")
    states(desktop, 3)
    # Red from the boxes of the colour panel, into the square.
    desktop.keys("F6", "ctrl+a", "2", "5", "4", "Up", "shift+F6", "e")
    cross_to(desktop, 7, 7)
    desktop.keys("space")
    states(desktop, 4)
    painted = Picture.filled(300, 300, WHITE)
    for y in range(50, 91):
        for x in range(50, 91):
            painted.put(x, y, BLACK if x in (50, 90) or y in (50, 90) else RED)
    for x in range(20, 51):
        painted.put(x, 200, BLACK)
    desktop.keys("F6", "shift+F6", "Escape")  # without the cross
    desktop.wait_for_picture(painted)
    open_browser(desktop)
    desktop.keys(*["Down"] * INVERT, "Return")
    desktop.wait_until_gone(BROWSER)
    states(desktop, 5)
    desktop.wait_for_window(MAIN)
    path = desktop.pictures / "keys.bmp"
    desktop.keys("ctrl+s")
    give_path(desktop, SAVE_AS, path)
    wait_for(lambda: is_whole_bmp(path), "the file is written")
    inverted = Picture(300, 300, [bytearray(255 - value for value in row) for row in painted.rows])
    expect_same(read_bmp(path), inverted)


@desktop_test
def ShortCutsOfTheMenuDoWhatTheyName(desktop):
    _, left, top = start_with_new_document(desktop)
    paint_and_wait(desktop, left, top, [(20, 20), (80, 20)])
    pointer_away(desktop)
    desktop.keys("ctrl+z")
    desktop.wait_for_pixel(left + 50, top + 20, WHITE)
    desktop.keys("ctrl+y")
    desktop.wait_for_pixel(left + 50, top + 20, BLACK)
    desktop.keys("ctrl+a", "ctrl+c")
    target = desktop.pictures / "target.bmp"
    desktop.keys("ctrl+s")
    give_path(desktop, SAVE_AS, target)
    wait_for(lambda: is_whole_bmp(target), "the file is written")
    desktop.wait_for_window(MAIN)
    desktop.keys("ctrl+n")
    desktop.wait_for_window(NEW)
    desktop.keys("Escape")
    desktop.wait_until_gone(NEW)
    desktop.wait_for_window(MAIN)
    desktop.keys("ctrl+o")
    desktop.wait_for_window("Abrir")
    desktop.keys("Escape")
    desktop.wait_until_gone("Abrir")
    desktop.wait_for_window(MAIN)
    desktop.keys("ctrl+w")
    wait_for(lambda: not desktop.state_files(), "the document is closed")
    desktop.keys("ctrl+q")
    desktop.wait_until_gone(MAIN)


@desktop_test
def TheHelpOpensByF1AndGoesByEscape(desktop):
    new_document_by_keys(desktop)
    desktop.keys("F1")
    desktop.wait_for_window("Pintalux 64: ajuda")
    desktop.keys("Escape")
    desktop.wait_until_gone("Pintalux 64: ajuda")
    desktop.wait_for_window(MAIN)


@desktop_test
def TheWheelScrollsZoomsAndStandsStillDuringAStroke(desktop):
    picture = sample(1100, 900)
    path = desktop.pictures / "large.bmp"
    write_bmp(path, picture)
    desktop.large_window_settings()
    desktop.start(path)
    corner = picture.part(0, 0, 120, 120)
    left, top = desktop.wait_for_picture(corner)
    desktop.move(left + 100, top + 100)
    desktop.tool("xdotool", "click", 5)
    desktop.wait_for_picture(picture.part(0, 60, 120, 120))
    desktop.tool("xdotool", "keydown", "shift", "click", 5, "keyup", "shift")
    shown = picture.part(60, 60, 120, 120)
    assert desktop.wait_for_picture(shown) == (left, top)
    # In the middle of a stroke nothing moves.
    before = len(desktop.state_files())
    desktop.press()
    desktop.tool("xdotool", "click", 5)
    desktop.tool("xdotool", "keydown", "ctrl", "click", 4, "keyup", "ctrl")
    desktop.keys("ctrl+z", "ctrl+w", "Delete", "b", "F6")
    desktop.release()
    wait_for(lambda: len(desktop.state_files()) == before + 1, "the dot is recorded")
    dotted = with_stroke(picture, [(160, 160)])
    desktop.move(left - 200, top + 100)
    assert desktop.wait_for_picture(dotted.part(60, 60, 120, 120)) == (left, top)
    # The pixel under the pointer stays under it.
    desktop.move(left + 50, top + 40)
    desktop.tool("xdotool", "keydown", "ctrl", "click", 4, "click", 4, "keyup", "ctrl")
    colour = dotted.at(110, 100)
    desktop.wait_for_pixel(left + 50, top + 40, colour)
    wait_for(lambda: desktop.photograph().at(left + 50 - 2, top + 40 - 2) == colour or
             desktop.photograph().at(left + 50 + 2, top + 40 + 2) == colour, "each pixel is three wide")


@desktop_test
def EscapeEndsALineUnderTheHand(desktop):
    _, left, top = start_with_new_document(desktop)
    desktop.keys("l")
    desktop.move(left + 30, top + 30)
    desktop.press()
    desktop.move(left + 60, top + 60)
    desktop.move(left + 130, top + 90)
    desktop.keys("Escape")
    desktop.release()
    pointer_away(desktop)
    desktop.wait_for_picture(Picture.filled(300, 300, WHITE))
    assert len(desktop.state_files()) == 1
    desktop.keys("c")
    paint_and_wait(desktop, left, top, [(20, 20), (80, 20)])


@desktop_test
def KeysWhileADialogAsksChangeNothing(desktop):
    _, left, top = start_with_new_document(desktop)
    paint_and_wait(desktop, left, top, [(20, 20), (80, 20)])
    desktop.keys("ctrl+w")
    desktop.wait_for_window(QUESTION)
    desktop.keys("ctrl+w", "ctrl+q", "ctrl+z", "Delete", "F6")
    desktop.move(left + 50, top + 100)
    desktop.tool("xdotool", "click", 5)
    desktop.tool("xdotool", "keydown", "ctrl", "click", 4, "keyup", "ctrl")
    desktop.wait_for_window(QUESTION)
    desktop.keys("F1")
    desktop.wait_for_window(HELP)
    desktop.keys("Next", "Escape")
    desktop.wait_until_gone(HELP)
    desktop.wait_for_window(QUESTION)
    desktop.keys("Escape")
    desktop.wait_until_gone(QUESTION)
    desktop.wait_for_window(MAIN)
    pointer_away(desktop)
    desktop.wait_for_picture(with_stroke(Picture.filled(300, 300, WHITE), [(20, 20), (80, 20)]))
    assert len(desktop.state_files()) == 2


@desktop_test
def WithoutADocumentEveryKeyIsHarmless(desktop):
    new_document_by_keys(desktop)
    desktop.keys("ctrl+w")
    wait_for(lambda: not desktop.state_files(), "the document is closed")
    desktop.keys("ctrl+z", "ctrl+y", "ctrl+s", "ctrl+p", "ctrl+w", "ctrl+a", "ctrl+x", "F6", "F6", "F6", "F6", "shift+F6", "Tab",
                 "Delete", "Left", "shift+Right", "Escape", "l", "t", "plus", "minus")
    desktop.keys("ctrl+n")
    desktop.wait_for_window(NEW)
    desktop.keys("Return")
    desktop.wait_until_gone(NEW)
    desktop.wait_for_picture(Picture.filled(300, 300, WHITE))
