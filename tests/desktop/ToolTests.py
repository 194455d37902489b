"""Every painting tool by hand, at three sizes of the view; every pixel of the view and of the saved file against a model."""
from fractions import Fraction
from math import floor, hypot
from pathlib import Path

import drawing_model as model
from desktop import desktop_test, wait_for
from pictures import Picture, expect_same, is_whole_bmp, read_bmp
from roads import BLACK, MAIN, NEW, WHITE, grip, leave, save_as

CASES = Path(__file__).resolve().parent.parent / "data" / "drawing-cases"

SIDE = 288  # the largest sheet that is seen whole at 3:1
BAND = 96  # each size of the view has its own third of the sheet
ACTUAL, TRIPLE, HALF = Fraction(1), Fraction(3), Fraction(1, 2)
GREEN = (20, 160, 90)
RED = (200, 30, 60)
BLUE = (30, 60, 210)

# Names of controls in the main window.
TOOLS = {"pen": "TB2_Pen", "eraser": "TB2_Eraser", "flood": "TB2_Flood", "line": "TB2_Line", "polyline": "TB2_PolyLine",
         "shapes": "TB2_Shapes", "wand": "TB2_ColorWand", "eye-dropper": "TB2_ColorPick", "magnifier": "TB2_Mag"}
TIPS = {"round": "Toolbar1_round", "left": "Toolbar1_left", "right": "Toolbar1_right", "level": "Toolbar1_hori",
        "upright": "Toolbar1_vert"}
SHAPES = {"square": "Toolbar2_square", "rectangle": "Toolbar2_rectangle", "circle": "Toolbar2_circle",
          "ellipse": "Toolbar2_oval"}
OUTLINED, FILLED = "Option1", "Option2"
TIP_LENGTH, PEN_WIDTH, OUTLINE_WIDTH = "Slider1", "Slider2", "Slider3"
CHANNELS = ["txtRed", "txtGreen", "txtBlue"]
CURRENT_COLOUR = "TheColor"

# What a slanted tip adds to a point: its one end and its other, in lengths of the tip.
TIP_ENDS = {"round": (0, 0, 0, 0), "left": (1, 1, -1, -1), "right": (1, -1, -1, 1), "level": (-1, 0, 1, 0),
            "upright": (0, -1, 0, 1)}


class Sheet:
    """A new image of one colour with the hand on it: what the hand does in the program is done to `picture`, too.

    Points are those of the image. The hand goes to a pixel of the view that shows the point, at 3:1 to any of the nine.
    """

    def __init__(self, desktop, colour, choose_colour=(), tool="Shapes"):
        self.desktop = desktop
        self.picture = Picture.filled(SIDE, SIDE, colour)
        self.paper, self.colour = colour, BLACK
        self.factor = ACTUAL
        self.pen_width = self.tip_length = self.outline_width = 1
        self.tip = "round"
        self.states = 1
        desktop.large_window_settings()
        self.places = desktop.places(tool)  # its page lies below the pen's, which stays open
        self.process = desktop.start()
        desktop.wait_for_window(NEW)
        desktop.keys("ctrl+a", *str(SIDE), "Tab", "Tab", "ctrl+a", *str(SIDE), "Tab", "Tab", *choose_colour, "Return")
        desktop.wait_until_gone(NEW)
        self.window = desktop.wait_for_window(MAIN)
        desktop.tool("xdotool", "mousemove", "--sync", "--window", self.window, 0, 0)
        place = desktop.tool("xdotool", "getmouselocation", "--shell")
        self.origin = tuple(int(line.split("=")[1]) for line in place.split()[:2])
        self.left, self.top = desktop.wait_for_picture(self.picture)
        self.maximize()

    def maximize(self):
        self.desktop.double_click(self.left + 60, self.top - 12)  # on its title
        wait_for(self.view_has_moved, "the image window fills the main window")

    def view_has_moved(self):
        before = self.left, self.top
        self.find_view()
        return before != (self.left, self.top)

    # The view.

    def find_view(self):
        self.left, self.top = self.desktop.wait_for_picture(model.scaled(self.picture, self.factor))

    def wait_for_view(self, what):
        """Until the view shows the picture, pixel by pixel."""
        view = model.scaled(self.picture, self.factor)

        def seen():
            rows = self.desktop.photograph().rows[self.top:self.top + view.height]
            return Picture(view.width, view.height, [row[3 * self.left:3 * (self.left + view.width)] for row in rows])
        try:
            wait_for(lambda: seen().rows == view.rows, "it")
        except AssertionError:
            print(f"not seen at {self.factor}: {what}")
            expect_same(seen(), view)
            raise

    def shown_at(self, x, y):
        """A pixel of the view that shows this one of the image."""
        assert self.factor >= 1 or (x % 2, y % 2) == (0, 0), "only every second pixel is shown"
        fine = int(self.factor)
        return int(x * self.factor) + (x % fine if fine else 0), int(y * self.factor) + (y % fine if fine else 0)

    def image_point(self, x, y):
        return floor(x / self.factor), floor(y / self.factor)

    def magnify(self, factor, button, times):
        """In the middle, which stays where it is; each click a bit aside, so that no two are a double click."""
        self.choose("magnifier")
        middle = int(SIDE * self.factor) // 2
        for i in range(times):
            self.desktop.click(self.left + middle + 15 * i, self.top + middle, button)
        self.factor = factor
        self.find_view()

    def choose_zoom(self, factor, *keys):
        self.desktop.menu("v", *keys)
        self.factor = factor
        self.find_view()

    # The panels.

    def click_on(self, control):
        x, y = grip(self.places[control])
        self.desktop.click(self.origin[0] + x, self.origin[1] + y)

    def choose(self, tool):
        self.click_on(TOOLS[tool])

    def slide(self, slider, value):
        """By the keys of a slider, once a click has given it the focus."""
        self.click_on(slider)
        self.desktop.keys("Home", *["Right"] * (value - 1))

    def set_pen(self, width, tip="round", length=1):
        if width != self.pen_width:
            self.slide(PEN_WIDTH, width)
        if tip != self.tip:
            self.click_on(TIPS[tip])
        if length != self.tip_length and tip != "round":
            self.slide(TIP_LENGTH, length)
            self.tip_length = length
        self.pen_width, self.tip = width, tip

    def set_outline(self, width):
        self.click_on(OUTLINED)
        if width != self.outline_width:
            self.slide(OUTLINE_WIDTH, width)
        self.outline_width = width

    def set_colour(self, colour):
        for channel, value in zip(CHANNELS, colour):
            self.click_on(channel)
            self.desktop.keys("ctrl+a", *str(value))
        self.wait_for_colour(colour)

    def wait_for_colour(self, colour):
        left, top, *_ = self.places[CURRENT_COLOUR]
        self.desktop.wait_for_pixel(self.origin[0] + left + 4, self.origin[1] + top + 4, colour)  # inside its border
        self.colour = colour

    def drawn_colour(self):
        """The colour of a stroke: never that of the paper."""
        red, green, blue = self.colour
        return (red + 4, green, blue) if self.colour == self.paper else self.colour

    # The hand on the image.

    def move_to(self, x, y):
        self.desktop.move(self.left + x, self.top + y)

    def paint(self, pixels, colour=None):
        model.paint(self.picture, pixels, colour or self.drawn_colour())

    def stroke(self, *points):
        """A stroke of the pen. Each point is seen before the hand goes on, so that none is lost."""
        length = self.tip_length
        x1, y1, x2, y2 = (length * part for part in TIP_ENDS[self.tip])
        x, y = self.shown_at(*points[0])
        self.move_to(x, y)
        self.desktop.press()
        # At the press the tip is as long in the view as it is later in the image.
        self.paint(model.line(*self.image_point(x + x1, y + y1), *self.image_point(x + x2, y + y2), self.pen_width))
        for before, point in zip(points, points[1:]):
            self.move_to(*self.shown_at(*point))
            self.paint(model.line(point[0] + x1, point[1] + y1, before[0] + x2, before[1] + y2, self.pen_width))
            self.wait_for_view(f"a stroke of the {self.tip} tip to {point}")
        self.end_stroke()

    def erase(self, *points):
        self.move_to(*self.shown_at(*points[0]))
        self.desktop.press()
        self.paint(model.dot(*points[0], self.pen_width), self.paper)
        for before, point in zip(points, points[1:]):
            self.move_to(*self.shown_at(*point))
            self.paint(model.line(*before, *point, self.pen_width), self.paper)
            self.wait_for_view(f"the eraser at {point}")
        self.end_stroke()

    def end_stroke(self):
        self.desktop.release()
        self.states += 1

    def drag(self, start, end):
        """From point to point, over a third one; gives the pixels of the view where it began and ended."""
        first, last = self.shown_at(*start), self.shown_at(*end)
        self.move_to(*first)
        self.desktop.press()
        self.move_to(first[0] + 9, first[1] + 5)
        self.move_to(*last)
        return first, last

    def straight(self, start, end, pressed_at=None):
        """With the tools of lines. A chain of them goes on from its last end, wherever the hand presses."""
        self.drag(pressed_at or start, end)
        self.paint(model.line(*start, *end, self.pen_width))
        self.end_stroke()
        self.wait_for_view(f"a line from {start} to {end}")

    def choose_shape(self, name, filled):
        self.click_on(SHAPES[name])
        if filled:
            self.click_on(FILLED)

    def shape(self, name, start, end, filled=False):
        self.choose_shape(name, filled)
        _, last = self.drag(start, end)
        width = 1 if filled else self.outline_width
        if name == "square":
            corners = self.square_corners(start, last)
            pixels = model.filled_box(*corners) if filled else model.box(*corners, width)
        elif name == "rectangle":
            pixels = model.filled_box(*start, *end) if filled else model.box(*start, *end, width)
        elif name == "circle":
            pixels = model.circle(*start, round(hypot(end[0] - start[0], end[1] - start[1])), width)
        else:
            pixels = model.ellipse(*start, *end, width)
        if filled:
            pixels |= model.inside(pixels)
        self.paint(pixels)
        self.end_stroke()
        self.wait_for_view(f"{'filled' if filled else 'outlined'} {name} from {start} to {end}")

    def square_corners(self, start, pointer):
        """As wide in the view as the pointer is away, and as high; the corners are the nearest of the image."""
        x, y = start[0] * self.factor, start[1] * self.factor
        side = abs(pointer[0] - x)
        left = min(x, pointer[0])
        top = y - side if pointer[1] < y else y
        return [round(edge / self.factor) for edge in (left, top, left + side, top + side)]

    def fill(self, x, y):
        """The hand stands so that the tip of the bucket is on the point: 14 to the left and 16 below, in the view."""
        view_x, view_y = self.shown_at(x, y)
        self.fill_from(view_x + 14, view_y - 16)

    def fill_from(self, view_x, view_y):
        point = self.image_point(view_x - 14, view_y + 16)
        self.move_to(view_x, view_y)
        self.desktop.press()
        self.paint(model.area(self.picture, *point), self.colour)
        self.end_stroke()
        self.wait_for_view(f"the area around {point}")

    def pick(self, view_x, view_y):
        """Puts the tip of the eye-dropper, which is 16 to the left of the hand and 14 below, on this pixel of the view; the
        nearest pixel of the image is taken."""
        self.desktop.click(self.left + view_x + 16, self.top + view_y - 14)
        self.wait_for_colour(self.picture.at(round(view_x / self.factor), round(view_y / self.factor)))

    # The end.

    def save_and_leave(self):
        path = self.desktop.pictures / "drawing.bmp"
        wait_for(lambda: len(self.desktop.state_files()) >= self.states, "the states are recorded")
        assert len(self.desktop.state_files()) == self.states, "a state a stroke, none for a zoom or a picked colour"
        save_as(self.desktop, path)
        wait_for(lambda: is_whole_bmp(path), "the file is written")
        expect_same(read_bmp(path), self.picture)
        leave(self.desktop)
        assert self.desktop.wait_for_end(self.process) == 0


@desktop_test
def TheModelDrawsTheMeasuredFigures(_):
    counts = {name: model.check_measured_cases(CASES / f"{name}.txt")
              for name in ("line1", "wide", "ellipse1", "ellipsew", "rect")}
    assert min(counts.values()) > 100, f"most of the measured figures are compared: {counts}"


def pens(sheet, top):
    """The five tips and the eraser on a band of the sheet."""
    sheet.choose("pen")
    sheet.set_pen(1)
    sheet.stroke((10, top + 10), (40, top + 10), (62, top + 22), (48, top + 44))
    sheet.stroke((10, top + 30))
    sheet.set_pen(6)
    sheet.stroke((80, top + 12), (110, top + 12), (104, top + 40), (82, top + 28))
    sheet.stroke((96, top + 60))
    sheet.set_pen(1, "left", 7)
    sheet.stroke((130, top + 14), (150, top + 16), (162, top + 32))
    sheet.stroke((124, top + 44))
    sheet.set_pen(2, "right", 7)
    sheet.stroke((190, top + 16), (210, top + 20), (214, top + 38))
    sheet.set_pen(3, "level", 7)
    sheet.stroke((240, top + 14), (250, top + 24), (268, top + 36))
    sheet.set_pen(1, "upright", 9)
    sheet.stroke((20, top + 66), (40, top + 62), (64, top + 78))
    sheet.set_pen(5)
    sheet.choose("eraser")
    sheet.erase((20, top + 4), (20, top + 20), (250, top + 20), (262, top + 30))


def lines_and_shapes(sheet, top, width):
    """Two lines and a chain, then each shape outlined and filled, in cells of a band; `width` is that of the outlines.

    The squares end between two pixels of the image where the view is fine enough for it.
    """
    fine = 1 if sheet.factor > 1 else 0
    sheet.choose("line")
    sheet.set_pen(1)
    sheet.straight((4, top + 6), (44, top + 20))
    sheet.set_pen(4)
    sheet.straight((40, top + 42), (10, top + 26))
    sheet.choose("polyline")
    sheet.set_pen(2)
    sheet.straight((54, top + 8), (90, top + 8))
    sheet.straight((90, top + 8), (72, top + 40), pressed_at=(250, top + 90))
    sheet.straight((72, top + 40), (54, top + 20), pressed_at=(8, top + 80))
    sheet.choose("shapes")
    sheet.set_outline(width)
    sheet.shape("square", (136, top + 40), (108 - fine, top + 28))
    sheet.shape("rectangle", (154, top + 38), (184, top + 10))
    sheet.shape("circle", (218, top + 22), (228, top + 34))
    sheet.shape("ellipse", (250, top + 8), (280, top + 42))
    sheet.shape("square", (10, top + 54), (40 + fine, top + 62), filled=True)
    sheet.shape("rectangle", (54, top + 60), (92, top + 86), filled=True)
    sheet.shape("circle", (122, top + 72), (112, top + 60), filled=True)
    sheet.shape("ellipse", (184, top + 86), (150, top + 58), filled=True)


def fills_and_picks(sheet, top, colour, edge):
    """A ring filled with the colour, which is picked for a line then. `edge` is where the view shows the fill or, where it
    is fine enough, the last third of the ring left of it, which is nearer to the fill than to the ring."""
    sheet.choose("shapes")
    sheet.shape("circle", (60, top + 48), (90, top + 48))
    sheet.set_colour(colour)
    sheet.choose("flood")
    sheet.fill(62, top + 40)
    sheet.fill_from(5, 60)  # the tip is outside the image: a state of no change
    sheet.set_colour(BLACK)
    sheet.choose("eye-dropper")
    sheet.pick(edge, int((top + 48) * sheet.factor))
    assert sheet.colour == colour, "the fill is picked"
    sheet.choose("line")
    sheet.straight((120, top + 20), (180, top + 70))


@desktop_test
def PenTipsAndEraserDrawTheirPixelsAtThreeZooms(desktop):
    # Black on black paper: the strokes are a little redder, so that they are seen.
    sheet = Sheet(desktop, BLACK, choose_colour=["Down"])
    pens(sheet, 0)
    sheet.magnify(TRIPLE, 1, times=2)
    sheet.set_colour(GREEN)
    pens(sheet, BAND)
    sheet.magnify(HALF, 3, times=3)
    sheet.set_colour(RED)
    pens(sheet, 2 * BAND)
    sheet.save_and_leave()


@desktop_test
def LinesAndShapesDrawTheirPixelsAtThreeZooms(desktop):
    sheet = Sheet(desktop, WHITE)
    lines_and_shapes(sheet, 0, width=1)
    sheet.choose_zoom(TRIPLE, "Up", "Up", "Right", "Down", "Down", "Return")
    sheet.set_colour(BLUE)
    lines_and_shapes(sheet, BAND, width=3)
    sheet.choose_zoom(HALF, "Up", "Right", "Down", "Return")
    sheet.set_colour(RED)
    lines_and_shapes(sheet, 2 * BAND, width=4)
    sheet.save_and_leave()


@desktop_test
def FillAndEyeDropperFindTheirPixelsAtThreeZooms(desktop):
    sheet = Sheet(desktop, WHITE)
    fills_and_picks(sheet, 0, GREEN, edge=31)
    sheet.magnify(TRIPLE, 1, times=2)
    fills_and_picks(sheet, BAND, RED, edge=92)
    sheet.magnify(HALF, 3, times=3)
    fills_and_picks(sheet, 2 * BAND, BLUE, edge=16)
    sheet.choose("flood")
    sheet.fill(240, 240)
    sheet.save_and_leave()
