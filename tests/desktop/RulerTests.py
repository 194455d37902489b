"""The rulers at the least, the natural and the largest size of the view, before and after scrolling, beside a model of their
marks."""
from desktop import desktop_test, wait_for
from pictures import Picture, write_bmp
from roads import MAIN, WHITE, start_with_picture

RED = (255, 0, 0)
BLACK = (0, 0, 0)
TOP_DEPTH, LEFT_DEPTH = 24, 32  # pixels of the strips
SHOWN = 200  # pixels of each strip that are looked at


def counting_picture(width, height):
    """A picture whose pixels tell where they stand: see `place_of`."""
    assert width <= 8192 and height <= 2048
    low = bytes(x % 256 for x in range(width))
    high = [bytes(x // 256 + y * 32 for x in range(width)) for y in range(8)]
    rows = []
    for y in range(height):
        row = bytearray(3 * width)
        row[0::3], row[1::3], row[2::3] = low, high[y // 256], bytes([y % 256]) * width
        rows.append(row)
    return Picture(width, height, rows)


def place_of(colour):
    red, green, blue = colour
    return red + green % 32 * 256, blue + green // 32 * 256


def part(picture, width, height):
    return Picture(width, height, [row[:3 * width] for row in picture.rows[:height]])


class View:
    """A document with rulers. Everything is in pixels of the display."""

    def __init__(self, desktop, picture):
        self.desktop, self.picture = desktop, picture
        path = desktop.pictures / "picture.bmp"
        write_bmp(path, picture)
        corner = part(picture, 120, 80)
        left, top = start_with_picture(desktop, path, corner)[1:]
        desktop.wait_for_window(MAIN)
        desktop.menu("v", "Down", "Down", "Down", "Return")
        wait_for(lambda: desktop.photograph().find(corner) == (left + LEFT_DEPTH, top + TOP_DEPTH), "the rulers are shown")
        self.left, self.top = left + LEFT_DEPTH, top + TOP_DEPTH  # of the image's frame
        display = desktop.photograph()
        # The bars begin where the picture ends.
        self.level_bar = next(y for y in range(self.top, display.height)
                              if place_of(display.at(self.left, y)) != (0, y - self.top))
        self.upright_bar = next(x for x in range(self.left, display.width)
                                if place_of(display.at(x, self.top)) != (x - self.left, 0))

    def zoom(self, *keys):
        self.desktop.menu("v", *keys, "Return")

    def scroll(self, x, y):
        """Presses a bar and waits until the picture has moved and rests."""
        before = self.desktop.photograph().rows
        self.desktop.click(x, y)
        self.wait_until_it_rests(before)

    def wait_until_it_rests(self, before):
        def rests():
            first = self.desktop.photograph().rows
            return first != before and first == self.desktop.photograph().rows
        wait_for(rests, "the picture has moved")

    def scroll_level(self):
        self.scroll(self.left + 200, self.level_bar + 8)

    def scroll_upright(self):
        self.scroll(self.upright_bar + 8, self.top + 200)

    def origin(self, display, factor):
        """Where the image's corner lies, be it out of sight."""
        middle_x, middle_y = self.left + 100, self.top + 140
        if factor < 1:
            x, y = place_of(display.at(middle_x, middle_y))
            return middle_x - int(x * factor), middle_y - int(y * factor)
        here = place_of(display.at(middle_x, middle_y))
        next_x = next(x for x in range(middle_x, middle_x + 32) if place_of(display.at(x, middle_y))[0] == here[0] + 1)
        next_y = next(y for y in range(middle_y, middle_y + 32) if place_of(display.at(middle_x, y))[1] == here[1] + 1)
        return next_x - int((here[0] + 1) * factor), next_y - int((here[1] + 1) * factor)

    def expect_marks(self, factor):
        """Both scales, beside the image's own place on the display. The pointer's marks are elsewhere."""
        display = self.desktop.photograph()
        left, top = self.origin(display, factor)
        for name, begin, pixels, across in (
                ("top", left - self.left, self.picture.width, lambda at, i: display.at(self.left + at, self.top - TOP_DEPTH + i)),
                ("left", top - self.top, self.picture.height, lambda at, i: display.at(self.left - LEFT_DEPTH + i, self.top + at))):
            end = TOP_DEPTH if name == "top" else LEFT_DEPTH
            expected = marks(pixels, factor)
            for at in range(SHOWN):
                mark = expected.get(at - begin, [])
                seen = [across(at, i) for i in range(end - 9, end)]
                wanted = [mark_colour(mark, 9 - i) for i in range(9)]
                assert seen == wanted, f"{name} ruler at {at}, {at - begin} of the scale: {seen}, not {wanted}"
            numbers = [across(at, i) for at in range(SHOWN) for i in range(5, end - 10)]
            assert any(colour not in (WHITE, RED) for colour in numbers) == (factor > 0.25), f"numbers of the {name} ruler"
        return left, top

    def expect_marks_of_both_scrolls(self, factor):
        places = [self.expect_marks(factor)]
        for scroll in (self.scroll_level, self.scroll_upright):
            scroll()
            places.append(self.expect_marks(factor))
        assert len({x for x, _ in places}) == len({y for _, y in places}) == 2, f"it was scrolled: {places}"


def marks(pixels, factor):
    """Length and colour of the mark at each place of a scale that has one."""
    found = {0: (9, RED)}
    for i in range(1, pixels + 1):
        if factor <= 0.25:
            mark = (9, RED) if i % 100 == 0 else None
        elif factor <= 5:
            mark = (9, RED) if i % 50 == 0 else (6, BLACK) if i % 5 == 0 else None
        else:
            mark = (9, RED) if i % 5 == 0 else (6, BLACK)
        if mark:
            found[round(i * factor)] = mark
    return found


def mark_colour(mark, distance):
    """The colour of a mark at a distance of 1 to 9 from the edge of the image."""
    return mark[1] if mark and distance <= mark[0] else WHITE


@desktop_test
def RulersFollowTheScrollAtTheNaturalSize(desktop):
    View(desktop, counting_picture(1200, 900)).expect_marks_of_both_scrolls(1)


@desktop_test
def RulersFollowTheScrollAtTheLargestSize(desktop):
    view = View(desktop, counting_picture(1200, 900))
    before = desktop.photograph().rows
    view.zoom("Up", "Up", "Right", "Up")
    view.wait_until_it_rests(before)
    view.expect_marks_of_both_scrolls(16)


@desktop_test
def RulersFollowTheScrollAtTheLeastSize(desktop):
    view = View(desktop, counting_picture(8000, 2048))
    before = desktop.photograph().rows
    view.zoom("Up", "Right", "Up")
    view.wait_until_it_rests(before)
    places = [view.expect_marks(1 / 16)]
    view.scroll_level()
    places.append(view.expect_marks(1 / 16))
    assert places[0][0] != places[1][0], f"it was scrolled: {places}"


@desktop_test
def ThePointerIsMarkedOnBothRulers(desktop):
    view = View(desktop, counting_picture(1200, 900))
    desktop.move(view.left + 122, view.top + 61)  # where no scale has a mark

    def marked():
        display = desktop.photograph()
        column = [display.at(view.left + 122, view.top - TOP_DEPTH + i) for i in range(14, TOP_DEPTH)]
        row = [display.at(view.left - LEFT_DEPTH + i, view.top + 61) for i in range(22, LEFT_DEPTH)]
        return len(set(column)) == len(set(row)) == 1 and WHITE not in column + row
    wait_for(marked, "lines stand at the pointer")
