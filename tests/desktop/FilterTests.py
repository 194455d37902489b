"""Filters: from the menu over the filter browser to the saved file, on the image and on selections."""
import time

from desktop import desktop_test, wait_for
from pictures import Picture, expect_same, is_whole_bmp, read_bmp, write_bmp
from roads import BLACK, BROWSER, MAIN, WHITE, open_browser, sample, start_with_picture

INVERT, BRIGHTEN = 4, 5  # places in the list
LOWEST_LEVEL = 10  # of the brightness


def inverted(pixel):
    return tuple(255 - channel for channel in pixel)


def brightened(pixel, level):
    """The pixel with `level` added to each channel. The program takes a colour apart by rounding divisions, so that a high
    channel lifts the one above it by one, and gives bright pixels their white back."""
    red, green, blue = pixel
    whole = blue * 65536 + green * 256 + red
    before = (whole % 256, round(whole / 256) % 256, round(whole / 65536))
    after = [abs(channel + level) for channel in before]
    if sum(channel >= 241 for channel in before) >= 2:
        after = [255, 255, 255]
    for one, two, third in ((0, 2, 1), (1, 2, 0), (0, 1, 2)):
        if after[one] >= 241 and after[two] >= 241:
            after[third] = 255
    return tuple(min(channel, 255) for channel in after)


def changed(picture, change, inside):
    """The picture with `change` done to the pixels at which `inside(x, y)` holds."""
    result = Picture(picture.width, picture.height, [bytearray(row) for row in picture.rows])
    for y in range(picture.height):
        for x in range(picture.width):
            if inside(x, y):
                result.put(x, y, change(picture.at(x, y)))
    return result


def apply_filter(desktop, place, level_steps=0):
    """Chooses the filter at a place of the list and moves its level by the arrow key, then applies it."""
    before = len(desktop.state_files())
    open_browser(desktop)
    desktop.keys(*["Down"] * place)
    if level_steps:
        desktop.keys("Tab", *["Right"] * level_steps)
    desktop.keys("Return")
    desktop.wait_until_gone(BROWSER)
    desktop.wait_for_window(MAIN)
    wait_for(lambda: len(desktop.state_files()) == before + 1, "one state is recorded")


def start(desktop, picture):
    """Starts with the picture in a file; gives the file and where the image lies on the display."""
    path = desktop.pictures / "picture.bmp"
    write_bmp(path, picture)
    _, left, top = start_with_picture(desktop, path, picture)
    wait_for(lambda: len(desktop.state_files()) == 1 and is_whole_bmp(desktop.state_files()[0]), "the first state is recorded")
    return path, left, top


def expect_saved(desktop, path, expected):
    before = path.stat().st_mtime_ns
    desktop.menu("f", "s", "Return")
    wait_for(lambda: path.stat().st_mtime_ns != before and is_whole_bmp(path), "the file is written")
    expect_same(read_bmp(path), expected)


def choose_tool(desktop, position):
    """Clicks a tool of the tool bar: buttons of 32 pixels, separators of 9 at the positions 4, 8 and 11."""
    separators = sum(position > place for place in (4, 8, 11))
    x = 16 + 32 * (position - 1 - separators) + 9 * separators
    desktop.tool("xdotool", "mousemove", "--sync", "--window", desktop.wait_for_window(MAIN), x, 36)
    desktop.press()
    desktop.release()


@desktop_test
def FilterOnTheWholeImageIsSaved(desktop):
    picture = sample()
    path, _, _ = start(desktop, picture)
    apply_filter(desktop, BRIGHTEN, level_steps=3)
    expected = changed(picture, lambda pixel: brightened(pixel, LOWEST_LEVEL + 3), lambda x, y: True)
    desktop.wait_for_picture(expected)
    expect_saved(desktop, path, expected)


@desktop_test
def FilterThatIsCancelledLeavesTheImage(desktop):
    picture = sample()
    path, left, top = start(desktop, picture)
    open_browser(desktop)
    desktop.keys(*["Down"] * INVERT, "Tab", "space")  # the level is hidden: the next stop is the preview
    desktop.keys("Escape")
    desktop.wait_until_gone(BROWSER)
    assert desktop.wait_for_picture(picture) == (left, top)
    wait_for(lambda: len(desktop.state_files()) == 1, "the file of the sample is gone, and no state came")
    expect_saved(desktop, path, picture)


@desktop_test
def FilterIsUndone(desktop):
    picture = sample()
    path, _, _ = start(desktop, picture)
    apply_filter(desktop, INVERT)
    desktop.wait_for_picture(changed(picture, inverted, lambda x, y: True))
    desktop.keys("ctrl+d")
    desktop.wait_for_picture(picture)
    expect_saved(desktop, path, picture)


@desktop_test
def FilterOnARectangleIsSaved(desktop):
    picture = sample()
    path, left, top = start(desktop, picture)
    choose_tool(desktop, 13)
    desktop.move(left + 30, top + 20)
    desktop.press()
    for x, y in ((50, 40), (79, 59), (80, 60)):
        desktop.move(left + x, top + y)
        time.sleep(0.1)  # so that the moves are not joined to one
    desktop.release()
    apply_filter(desktop, INVERT)
    expected = changed(picture, inverted, lambda x, y: 30 <= x < 80 and 20 <= y < 60)
    desktop.wait_for_picture(expected)
    expect_saved(desktop, path, expected)


@desktop_test
def FilterOnAFreehandPieceIsSaved(desktop):
    # A diamond. The band under its path is white, which brightening keeps: what is told of the edge itself does not matter.
    def distance(x, y):
        return abs(x - 60) + abs(y - 45)
    picture = changed(sample(), lambda pixel: WHITE, lambda x, y: 27 <= distance(x, y) <= 33)
    path, left, top = start(desktop, picture)
    choose_tool(desktop, 14)
    x, y = 60, 15
    desktop.move(left + x, top + y)
    desktop.press()
    for next_x, next_y in ((90, 45), (60, 75), (30, 45), (60, 15)):
        desktop.move(left + next_x, top + next_y)
        desktop.wait_for_pixel(left + x + (next_x - x) // 3, top + y + (next_y - y) // 3, BLACK)  # the dashed path
        x, y = next_x, next_y
    desktop.release()
    apply_filter(desktop, BRIGHTEN)
    expected = changed(picture, lambda pixel: brightened(pixel, LOWEST_LEVEL), lambda x, y: distance(x, y) < 27)
    desktop.wait_for_picture(expected)
    expect_saved(desktop, path, expected)
