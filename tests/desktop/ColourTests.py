"""The colour panel, the wand and the text by hand."""
from desktop import desktop_test, wait_for
from pictures import Picture, expect_same, read_bmp
from roads import BLACK, MAIN, NEW, QUESTION, WHITE, corner_of, give_path, leave, save_as
from ToolTests import ACTUAL, CURRENT_COLOUR, HALF, SIDE, TRIPLE, Sheet

TEXT_DIALOG = "Inserir texto"
OPEN_COLLECTION = "Open Color Collection"
SAVE_COLLECTION = "Save Colors"
STRENGTH, RADIUS = "Slider4", "Slider5"


class Panel:
    """The program with the hand on its colour panel."""

    def __init__(self, desktop):
        self.desktop = desktop
        desktop.large_window_settings()
        self.places = desktop.places()
        self.process = desktop.start()
        desktop.wait_for_window(NEW)
        desktop.keys("Return")
        desktop.wait_until_gone(NEW)
        self.origin = corner_of(desktop, desktop.wait_for_window(MAIN))

    def middle(self, control):
        left, top, width, height = self.places[control]
        return self.origin[0] + left + width // 2, self.origin[1] + top + height // 2

    def box(self, x, y):
        left, top, _, _ = self.places["ColorBox"]
        return self.origin[0] + left + x, self.origin[1] + top + y

    def cell(self, number):
        """The middle of a cell, from 1."""
        return self.box((number - 1) % 6 * 18 + 8, 156 + (number - 1) // 6 * 18 + 8)

    def seen(self, place):
        return self.desktop.photograph().at(*place)

    def click(self, place, button=1):
        self.desktop.click(*place, button)

    def command(self, name):
        self.click(self.middle("Toolbar3_" + name))

    def wait_for_current(self, colour):
        left, top, _, _ = self.places[CURRENT_COLOUR]
        self.desktop.wait_for_pixel(self.origin[0] + left + 3, self.origin[1] + top + 3, colour)

    def pick(self, x, y):
        """Takes the colour at a place of the spectrum; gives it."""
        place = self.box(x, y)
        colour = self.seen(place)
        self.click(place)
        self.wait_for_current(colour)
        return colour

    def leave(self):
        leave(self.desktop)
        assert self.desktop.wait_for_end(self.process) == 0


@desktop_test
def colours_are_picked_from_the_spectrum_its_shades_and_the_grid(desktop):
    panel = Panel(desktop)
    first = panel.pick(20, 70)
    desktop.wait_for_pixel(*panel.cell(1), first)
    # The shades: the strip stands under the pointer after a right press, and a press on it takes a shade.
    strip = panel.box(60, 110)
    spectrum = panel.seen(strip)
    panel.click(panel.box(60, 90), 3)
    wait_for(lambda: panel.seen(strip) != spectrum, "the strip of shades")
    shade = panel.seen(strip)
    desktop.move(*strip)
    desktop.wait_for_pixel(*panel.middle("Picture6"), shade)
    panel.click(strip)
    panel.wait_for_current(shade)
    desktop.wait_for_pixel(*panel.cell(2), shade)
    # Back to black, then to the first colour by its cell, which adds nothing.
    panel.click(panel.middle("Picture5"))
    panel.wait_for_current((0, 0, 0))
    panel.click(panel.cell(1))
    panel.wait_for_current(first)
    assert panel.seen(panel.cell(3)) == (192, 192, 192)
    # The working colour falls back when the pointer leaves the box over the panel.
    desktop.move(*panel.box(20, 20))
    desktop.wait_for_pixel(*panel.middle("Picture6"), panel.seen(panel.box(20, 20)))
    desktop.move(*panel.box(-4, 60))
    desktop.wait_for_pixel(*panel.middle("Picture6"), first)
    panel.leave()


@desktop_test
def collection_is_saved_cleared_and_opened_in_a_second_run(desktop):
    file = desktop.pictures / "mine.klc"
    panel = Panel(desktop)
    colours = [panel.pick(5 + 12 * i, 40 + 10 * i) for i in range(7)]
    panel.command("SaveCols")
    give_path(desktop, SAVE_COLLECTION, file)
    wait_for(file.exists, "the collection is saved")
    panel.command("Clear")
    desktop.wait_for_window(QUESTION)
    desktop.keys("s")
    desktop.wait_for_pixel(*panel.cell(1), (192, 192, 192))
    panel.leave()
    lines = file.read_bytes().decode("cp1252").split("\r\n")
    assert lines == ["[Colors]"] + [f" {i}= {r + 256 * g + 65536 * b}" for i, (r, g, b) in enumerate(colours)] + [""]

    again = Panel(desktop)
    again.command("OpenCol2")
    give_path(desktop, OPEN_COLLECTION, file)
    again.wait_for_current(colours[-1])
    assert [again.seen(again.cell(i + 1)) for i in range(7)] == colours
    again.leave()


@desktop_test
def colour_79_takes_the_first_cell(desktop):
    file = desktop.pictures / "full.klc"
    file.write_bytes("\r\n".join(["[Colors]"] + [f" {i}= {1000 + i}" for i in range(78)] + [""]).encode())
    panel = Panel(desktop)
    panel.command("OpenCol2")
    give_path(desktop, OPEN_COLLECTION, file)
    desktop.wait_for_pixel(*panel.cell(78), (1077 % 256, 1077 // 256, 0))
    new = panel.pick(50, 60)
    desktop.wait_for_pixel(*panel.cell(1), new)
    assert panel.seen(panel.cell(2)) == (1001 % 256, 1001 // 256, 0)
    panel.leave()


def wand_pass(picture, x, y, strength, radius, steps):
    """The plain loops over the rings, each pixel once."""
    done = set()
    for n in range(1, steps + 1):
        r = round(radius / steps * n)
        for a in range(-r, r + 1):
            for b in range(-r, r + 1):
                if (a, b) in done or a * a + b * b > r * r:
                    continue
                done.add((a, b))
                if 0 <= x + a < picture.width and 0 <= y + b < picture.height:
                    old = picture.at(x + a, y + b)
                    picture.put(x + a, y + b, tuple(min(255, c + (steps - n) * strength) for c in old))


@desktop_test
def wand_shifts_what_the_pointer_moves_over_at_three_zooms(desktop):
    sheet = Sheet(desktop, BLACK, choose_colour=["Down"], tool="ColorWand")
    sheet.choose("wand")
    sheet.slide(STRENGTH, 2)
    sheet.slide(RADIUS, 12)

    def stroke(*points):
        # The press itself falls off the image: its point counts fifteenfold.
        sheet.move_to(*sheet.shown_at(*points[0]))
        desktop.press()
        for point in points[1:]:
            sheet.move_to(*sheet.shown_at(*point))
            wand_pass(sheet.picture, *point, 2, 12, 10)
            sheet.wait_for_view(f"the wand at {point}")
        sheet.end_stroke()

    stroke((60, 40), (100, 30), (110, 34), (287, 0))
    sheet.magnify(TRIPLE, 1, 2)
    sheet.choose("wand")
    stroke((150, 150), (140, 140), (146, 143))
    sheet.magnify(HALF, 3, 3)
    sheet.choose("wand")
    stroke((60, 240), (80, 250), (100, 252))
    sheet.magnify(ACTUAL, 1, 1)
    path = desktop.pictures / "wand.bmp"
    save_as(desktop, path)
    wait_for(path.exists, "the image is saved")
    expect_same(read_bmp(path), sheet.picture)


@desktop_test
def text_is_typed_dragged_printed_and_undone(desktop):
    sheet = Sheet(desktop, WHITE)
    sheet.click_on("TB2_Text")
    desktop.wait_for_window(TEXT_DIALOG)
    desktop.keys("A", "ccedilla", "atilde", "o")
    desktop.keys("Return")
    desktop.wait_until_gone(TEXT_DIALOG)
    desktop.wait_for_window(MAIN)

    def view():
        rows = desktop.photograph().rows[sheet.top:sheet.top + SIDE]
        return Picture(SIDE, SIDE, [row[3 * sheet.left:3 * (sheet.left + SIDE)] for row in rows])

    def ink():
        seen = view()
        return [(x, y) for y in range(SIDE) for x in range(SIDE) if seen.at(x, y) != WHITE]
    at_first = wait_for(ink, "the text floats at the corner")
    x, y = at_first[len(at_first) // 2]
    desktop.move(sheet.left + x, sheet.top + y)
    desktop.press()
    desktop.move(sheet.left + x + 70, sheet.top + y + 55)
    moved = [(x + 70, y + 55) for x, y in at_first]
    wait_for(lambda: ink() == moved, "the text follows the pointer")
    desktop.release()
    desktop.move(sheet.left + 200, sheet.top + 200)
    floating = view()
    desktop.press()
    desktop.release()
    sheet.picture = floating
    wait_for(lambda: len(desktop.state_files()) == 2, "the print takes a state")
    sheet.wait_for_view("the print is what floated")
    path = desktop.pictures / "text.bmp"
    save_as(desktop, path)
    wait_for(path.exists, "the image is saved")
    expect_same(read_bmp(path), floating)
    desktop.keys("ctrl+d")
    sheet.picture = Picture.filled(SIDE, SIDE, WHITE)
    sheet.wait_for_view("the undo takes the text away")
