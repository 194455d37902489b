"""Pieces that are lifted, dragged and merged by hand, at three sizes of the view, and that go over the clipboard; every pixel
of the view and of the saved file against a model."""
import time
from dataclasses import dataclass
from fractions import Fraction
from math import floor

import drawing_model as model
from desktop import desktop_test, wait_for
from pictures import Picture, expect_same, is_whole_bmp, read_bmp, read_png, write_bmp, write_png
from roads import (MAIN, NEW, OPEN, WHITE, corner_of, give_path, grip, leave, offer_png, save_as, start_with_picture,
                   taken_from_clipboard)

ACTUAL, TRIPLE, HALF = Fraction(1), Fraction(3), Fraction(1, 2)
# How the menu gets to a size of the view.
ZOOM_KEYS = {TRIPLE: ["Up", "Up", "Right", "Down", "Down", "Return"], HALF: ["Up", "Right", "Down", "Return"]}
KEY = (160, 148, 136)  # what lies outside a freehand piece, and what such a piece lets through
BLACK = (0, 0, 0)

# Names of controls in the main window.
PASTE, RECTANGLE, FREEHAND, PEN = "TB2_Paste", "TB2_Select", "TB2_FreeSelect", "TB2_Pen"
COPY_AND_DROP = "Option3"

# Shapes with a bay, in even pixels, since a view at 1:2 shows no others.
KITE = [(40, 20), (110, 34), (90, 80), (62, 58), (30, 96), (36, 40)]
ARROW = [(150, 60), (214, 70), (180, 90), (196, 130), (140, 116)]


def distinct(width=240, height=180, seed=0):
    """A picture with another colour in each pixel, none of them KEY."""
    picture = Picture.filled(width, height, WHITE)
    for y in range(height):
        for x in range(width):
            picture.put(x, y, (x, y, (7 * x + 3 * y + seed) % 128))
    return picture


# The model. A piece is rows of colours, None where it lets through.

def lifted(picture, left, top, right, bottom, inside=None):
    return [[picture.at(x, y) if inside is None or (x, y) in inside else None for x in range(left, right)]
            for y in range(top, bottom)]


def stretched(piece, width, height):
    columns = cells(len(piece[0]), width)
    return [[piece[y][x] for x in columns] for y in cells(len(piece), height)]


def averaged(piece, width, height, view, left, top):
    """A piece in a reduced view, which shows means like the image around it: the view at left, top has the place of the
    samples that lie outside the piece."""
    across, down = (min(4, -(-size // shown)) for size, shown in ((len(piece[0]), width), (len(piece), height)))
    columns, rows = cells(len(piece[0]), width * across), cells(len(piece), height * down)

    def mean(x, y):
        samples = [piece[row][column] for row in rows[y * down:(y + 1) * down]
                   for column in columns[x * across:(x + 1) * across]]
        if not any(samples):
            return None
        seen = 0 <= left + x < view.width and 0 <= top + y < view.height
        below = view.at(left + x, top + y) if seen else BLACK
        return tuple((2 * sum((colour or below)[channel] for colour in samples) + len(samples)) // (2 * len(samples))
                     for channel in range(3))

    return [[mean(x, y) for x in range(width)] for y in range(height)]


def cells(size, shown):
    """The cell under the centre of each shown one; on a border the lower one."""
    return [((2 * cell + 1) * size - 1) // (2 * shown) for cell in range(shown)]


def laid(picture, piece, left, top):
    """The picture with the piece on it; what lies outside is lost."""
    result = Picture(picture.width, picture.height, [bytearray(row) for row in picture.rows])
    for y, row in enumerate(piece):
        for x, colour in enumerate(row):
            if colour is not None and 0 <= left + x < picture.width and 0 <= top + y < picture.height:
                result.put(left + x, top + y, colour)
    return result


def picture_of(piece):
    """A piece as the clipboard has it."""
    blank = Picture.filled(len(piece[0]), len(piece), KEY)
    return laid(blank, piece, 0, 0)


def box_of(points):
    """Left, top, right and bottom, the last two outside."""
    return (min(x for x, _ in points), min(y for _, y in points), max(x for x, _ in points) + 1,
            max(y for _, y in points) + 1)


def enclosed(points, width, height):
    """The pixels of a closed path and those that can't be reached from the corner without crossing it."""
    path = set()
    for start, end in zip(points, points[1:] + points[:1]):
        path |= model.line(*start, *end)
    mask = Picture.filled(width, height, WHITE)
    model.paint(mask, path, BLACK)
    left, top, right, bottom = box_of(points)
    return {(x, y) for x in range(left, right) for y in range(top, bottom)} - model.area(mask, 0, 0)


def dashes(points):
    """The pixels that stand inverted after a path was drawn: 18 of 24 of each line, and its end. Pixels under two lines
    stand as they were."""
    inverted = set()
    for start, end in zip([points[0]] + points, points):
        longer = 0 if abs(end[0] - start[0]) >= abs(end[1] - start[1]) else 1
        line = {point for point in model.line(*start, *end) if abs(point[longer] - start[longer]) % 24 < 18}
        inverted ^= line | {end}
    return inverted


def with_inverted(picture, points):
    result = laid(picture, [], 0, 0)
    for x, y in points:
        result.put(x, y, opposite(picture.at(x, y)))
    return result


def edge_of(piece):
    """The pixels of a piece that have one beside them which is not seen."""
    height, width = len(piece), len(piece[0])

    def seen(x, y):
        return 0 <= x < width and 0 <= y < height and piece[y][x] is not None

    return {(x, y) for y in range(height) for x in range(width)
            if seen(x, y) and not (seen(x - 1, y) and seen(x + 1, y) and seen(x, y - 1) and seen(x, y + 1))}


def opposite(colour):
    return tuple(255 - value for value in colour)


@dataclass
class Floating:
    """What floats over a view. Its place is in pixels of the view, its box is in those of the image."""
    piece: list
    left: int
    top: int
    is_shape: bool
    pasted: bool = False
    hole: tuple = ()  # the pixels that a shape takes out of the image


class Easel:
    """A document in a window that fills the main one, and a hand on it: what the hand does in the program is done to
    `picture`, too, and compared with the view after each step."""

    def __init__(self, desktop, picture):
        self.desktop, self.picture = desktop, picture
        path = desktop.pictures / "picture.bmp"
        write_bmp(path, picture)
        desktop.large_window_settings()
        self.places = desktop.places("Select")
        self.process, self.left, self.top = start_with_picture(desktop, path, picture)
        self.origin = corner_of(desktop, desktop.wait_for_window(MAIN))
        self.factor, self.floating, self.copies = ACTUAL, None, False
        before = self.left, self.top
        desktop.double_click(self.left + 60, self.top - 12)  # on its title
        wait_for(lambda: self.find_view() != before, "the image window fills the main window")

    # The view.

    def find_view(self):
        """By the rows at its top, where no piece lies at that time."""
        view = model.scaled(self.picture, self.factor)
        self.left, self.top = self.desktop.wait_for_picture(Picture(view.width, 6, view.rows[:6]))
        return self.left, self.top

    def zoom(self, factor):
        self.desktop.menu("v", *ZOOM_KEYS[factor])
        ratio = factor / self.factor
        self.factor = factor
        if self.floating:
            self.floating.left, self.floating.top = round(self.floating.left * ratio), round(self.floating.top * ratio)
        self.find_view()

    def shown_size(self):
        """In pixels of the view, half to even."""
        piece = self.floating.piece
        return round(len(piece[0]) * self.factor), round(len(piece) * self.factor)

    def expect_view(self, what, inverted=()):
        """Until the view shows the picture, pixels of a path that stand inverted, and what floats."""
        view = model.scaled(with_inverted(self.picture, inverted), self.factor)
        border = set()
        if self.floating:
            width, height = self.shown_size()
            left, top = self.floating.left, self.floating.top
            shown = (stretched(self.floating.piece, width, height) if self.factor >= 1
                     else averaged(self.floating.piece, width, height, view, left, top))
            view = laid(view, shown, left, top)
            edge = ({(left + x, top + y) for x, y in edge_of(shown)} if self.floating.is_shape
                    else model.box(left, top, left + width - 1, top + height - 1))
            border = {(x, y) for x, y in edge if 0 <= x < view.width and 0 <= y < view.height}
        wait_for(lambda: self.is_seen(view, border), f"{what} is seen at {self.factor}", seconds=8)

    def is_seen(self, view, border):
        """The border of what floats is dotted in the opposite colours; all else is as told."""
        first = 3 * self.left
        rows = self.desktop.photograph().rows[self.top:self.top + view.height]
        seen = Picture(view.width, view.height, [row[first:first + 3 * view.width] for row in rows])
        dots = 0
        for x, y, here, there in seen.differences(view):
            if (x, y) not in border or here != opposite(there):
                return False
            dots += 1
        return len(border) / 4 <= dots <= 3 * len(border) / 4

    def turn_to(self, picture, floating=None):
        """Another document has come to the front."""
        self.picture, self.floating = picture, floating
        self.find_view()
        self.expect_view("another document")

    # The hand.

    def click_on(self, control):
        x, y = grip(self.places[control])
        self.desktop.click(self.origin[0] + x, self.origin[1] + y)

    def copy_and_drop(self):
        self.click_on(RECTANGLE)
        self.click_on(COPY_AND_DROP)
        self.copies = True

    def move_to(self, x, y):
        place = self.desktop.tool("xdotool", "getmouselocation", "--shell").split()[:2]
        # A move to where the pointer stands would be waited for in vain.
        if place != [f"X={self.left + x}", f"Y={self.top + y}"]:
            self.desktop.move(self.left + x, self.top + y)

    def shown_at(self, x, y):
        """A pixel of the view that shows this one of the image, at 3:1 another of the nine for each."""
        assert self.factor >= 1 or (x % 2, y % 2) == (0, 0), "only every second pixel is shown"
        fine = int(self.factor) or 1
        return int(x * self.factor) + x % fine, int(y * self.factor) + y % fine

    def lift_rectangle(self, start, end):
        """From corner to corner; the right and lower one are outside."""
        self.click_on(RECTANGLE)
        self.move_to(*self.shown_at(*start))
        self.desktop.press()
        self.move_to(*self.shown_at((start[0] + end[0]) // 4 * 2, (start[1] + end[1]) // 4 * 2))
        self.move_to(*self.shown_at(*end))
        self.desktop.release()
        left, right = sorted((start[0], end[0]))
        top, bottom = sorted((start[1], end[1]))
        self.floating = Floating(lifted(self.picture, left, top, right, bottom), int(left * self.factor),
                                 int(top * self.factor), is_shape=False)
        self.expect_view(f"the rectangle from {start} to {end}")

    def draw_path(self, points):
        """The hand goes on when the dashes are seen, so that no point is lost."""
        self.click_on(FREEHAND)
        self.move_to(*self.shown_at(*points[0]))
        self.desktop.press()
        for count in range(2, len(points) + 1):
            self.move_to(*self.shown_at(*points[count - 1]))
            self.expect_view(f"the path to {points[count - 1]}", dashes(points[:count]))
        self.desktop.release()

    def lift_shape(self, points):
        self.draw_path(points)
        inside = enclosed(points, self.picture.width, self.picture.height)
        box = box_of(points)
        piece = lifted(self.picture, *box, inside={point for point in inside if self.picture.at(*point) != KEY})
        self.floating = Floating(piece, int(box[0] * self.factor), int(box[1] * self.factor), is_shape=True,
                                 hole=tuple(inside))
        self.expect_view(f"the shape in {box}", dashes(points + points[:1]))

    def grip(self):
        """A pixel of the view near the middle of what floats and is seen, where it can be taken."""
        width, height = self.shown_size()
        shown = stretched(self.floating.piece, width, height)
        left, top = self.floating.left, self.floating.top
        right, bottom = int(self.picture.width * self.factor), int(self.picture.height * self.factor)
        solid = [(left + x, top + y) for y in range(height) for x in range(width)
                 if shown[y][x] is not None and 0 <= left + x < right and 0 <= top + y < bottom]
        return min(solid, key=lambda point: abs(point[0] - left - width // 2) + abs(point[1] - top - height // 2))

    def snapped(self, place):
        return int(floor(place / self.factor) * self.factor)

    def carry(self, across, down):
        """Drags what floats by pixels of the view; it moves in steps of whole image pixels of the display's own grid."""
        x, y = self.grip()
        self.move_to(x, y)
        self.desktop.press()
        time.sleep(0.1)  # the grab asks where the pointer is, and nothing tells that it has
        if not self.copies and not self.floating.pasted:
            self.make_hole()
        self.move_to(x + across // 2, y + down // 2)
        self.move_to(x + across, y + down)
        self.floating.left += self.snapped(self.left + x + across) - self.snapped(self.left + x)
        self.floating.top += self.snapped(self.top + y + down) - self.snapped(self.top + y)
        self.expect_view("what is carried")
        self.desktop.release()
        self.expect_view("what was carried")

    def make_hole(self):
        if self.floating.is_shape:
            self.picture = laid(self.picture, [], 0, 0)
            model.paint(self.picture, self.floating.hole, WHITE)
            self.floating.hole = ()
        else:
            left, top, width, height = self.place()
            self.picture = laid(self.picture, [[WHITE] * width] * height, left, top)

    def place(self):
        """Where and how large a piece is in the image; the view decides."""
        return [round(value / self.factor) for value in (self.floating.left, self.floating.top, *self.shown_size())]

    def land(self):
        left, top, *_ = self.place()
        self.picture = laid(self.picture, self.floating.piece, left, top)
        self.floating = None

    def merge_by_press(self, x, y, states=1):
        """At a point of the view beside what floats."""
        before = len(self.desktop.state_files())
        self.desktop.click(self.left + x, self.top + y)
        self.land()
        self.expect_view("what was merged")
        wait_for(lambda: len(self.desktop.state_files()) == before + states, "the merge is recorded")

    def edit(self, *keys):
        self.desktop.menu("e", *keys)

    def select_all(self):
        """While nothing can be deselected."""
        self.edit("Up", "Up", "Return")
        self.floating = Floating(lifted(self.picture, 0, 0, self.picture.width, self.picture.height), 0, 0, is_shape=False)
        self.expect_view("all, selected")

    def select_none(self):
        self.edit("Up", "Up", "Return")
        self.floating = None
        self.expect_view("what is left without a selection")

    # The clipboard.

    def offer(self, picture):
        """Another program offers a picture, and the program sees that it can be pasted."""
        path = self.desktop.pictures / "offered.png"
        write_png(path, picture)
        before = self.paste_button()
        offer_png(self.desktop, path)
        wait_for(lambda: self.paste_button() != before, "the paste button is enabled")

    def paste_button(self):
        left, top, width, height = self.places[PASTE]
        left, top = self.origin[0] + left, self.origin[1] + top
        rows = self.desktop.photograph().rows[top:top + height]
        return [bytes(row[3 * left:3 * (left + width)]) for row in rows]

    def expect_pasted(self, picture):
        piece = lifted(picture, 0, 0, picture.width, picture.height)
        self.floating = Floating(piece, 0, 0, is_shape=False, pasted=True)
        self.expect_view("what was pasted")

    def expect_on_clipboard(self, picture, before=b""):
        """As another program has it; gives its bytes."""
        folder = self.desktop.pictures
        data = taken_from_clipboard(self.desktop, "image/png", folder / "taken.png", before)
        expect_same(read_png(folder / "taken.png"), picture)
        taken_from_clipboard(self.desktop, "image/bmp", folder / "taken.bmp")
        expect_same(read_bmp(folder / "taken.bmp"), picture)
        return data

    def expect_on_clipboard_still(self, name):
        """What another program has put there."""
        data = taken_from_clipboard(self.desktop, "image/png", self.desktop.pictures / "taken.png")
        assert data == (self.desktop.pictures / name).read_bytes(), "the clipboard is another's, and stays so"

    # The end.

    def save_and_leave(self):
        path = self.desktop.pictures / "saved.bmp"
        save_as(self.desktop, path)
        wait_for(lambda: is_whole_bmp(path), "the file is written")
        expect_same(read_bmp(path), self.picture)
        leave(self.desktop)
        assert self.desktop.wait_for_end(self.process) == 0


def move_rectangles(easel):
    easel.lift_rectangle((20, 30), (66, 74))
    easel.carry(37, 25)
    easel.merge_by_press(2, 3)
    easel.lift_rectangle((220, 160), (150, 132))
    easel.carry(-50, -16)
    easel.merge_by_press(2, 3)


def move_shapes(easel):
    easel.lift_shape(KITE)
    easel.carry(38, 13)
    easel.merge_by_press(2, 3)
    easel.lift_shape(ARROW)
    easel.carry(-20, -26)
    easel.carry(7, 40)
    easel.merge_by_press(2, 3)


def at_three_zooms(easel, steps):
    steps(easel)
    easel.zoom(TRIPLE)
    steps(easel)
    easel.zoom(HALF)
    steps(easel)
    easel.save_and_leave()


@desktop_test
def RectanglesAreCutAndDraggedAtThreeZooms(desktop):
    at_three_zooms(Easel(desktop, distinct()), move_rectangles)


@desktop_test
def RectanglesAreCopiedAndDroppedAtThreeZooms(desktop):
    easel = Easel(desktop, distinct())
    easel.copy_and_drop()
    at_three_zooms(easel, move_rectangles)


@desktop_test
def FreehandPiecesAreCutAndDraggedAtThreeZooms(desktop):
    at_three_zooms(Easel(desktop, distinct()), move_shapes)


@desktop_test
def FreehandPiecesAreCopiedAndDroppedAtThreeZooms(desktop):
    easel = Easel(desktop, distinct())
    easel.copy_and_drop()
    at_three_zooms(easel, move_shapes)


@desktop_test
def WhatIsDraggedOffTheImageIsLost(desktop):
    easel = Easel(desktop, distinct())
    easel.lift_rectangle((20, 30), (66, 74))
    easel.carry(-45, -51)
    easel.merge_by_press(200, 100)
    easel.lift_rectangle((120, 100), (180, 150))
    easel.carry(100, 60)
    easel.merge_by_press(2, 100)
    easel.lift_shape(KITE)
    easel.carry(-60, -30)
    easel.merge_by_press(200, 100)
    easel.lift_shape(ARROW)
    easel.carry(50, 80)
    easel.merge_by_press(2, 100)
    easel.save_and_leave()


@desktop_test
def SecondGrabOfACutRectangleWipesWhatLiesUnderIt(desktop):
    easel = Easel(desktop, distinct())
    easel.lift_rectangle((20, 30), (66, 74))
    easel.carry(60, 20)
    easel.carry(50, 60)
    easel.merge_by_press(2, 3)
    easel.save_and_leave()


@desktop_test
def RectangleFloatsOnWhenTheZoomChanges(desktop):
    easel = Easel(desktop, distinct())
    easel.lift_rectangle((20, 30), (66, 74))
    easel.zoom(TRIPLE)
    easel.expect_view("the rectangle, enlarged")
    easel.carry(62, 100)
    easel.merge_by_press(2, 3)
    easel.save_and_leave()


@desktop_test
def ShapesLetTheMaskColourThroughAndRectanglesDoNot(desktop):
    picture = distinct()
    model.paint(picture, model.filled_box(60, 44, 76, 60), KEY)
    easel = Easel(desktop, picture)
    easel.copy_and_drop()
    easel.lift_rectangle((50, 40), (90, 70))
    easel.carry(100, 60)
    easel.merge_by_press(2, 3)
    easel.lift_shape(KITE)
    easel.carry(20, 80)
    easel.merge_by_press(2, 3)
    easel.save_and_leave()


@desktop_test
def AllIsSelectedAndDraggedAndNoneIsSelectedAgain(desktop):
    easel = Easel(desktop, distinct())
    easel.select_all()
    easel.select_none()
    easel.select_all()
    easel.carry(30, 20)
    easel.select_none()  # the hole stays, the piece is gone
    wait_for(lambda: len(desktop.state_files()) == 2, "the hole is recorded")
    easel.lift_shape([(10, 10), (60, 12), (30, 70)])
    easel.select_none()
    assert len(desktop.state_files()) == 2, "a shape that was only lifted leaves no hole and no state"
    desktop.keys("ctrl+d")
    easel.picture = distinct()
    easel.expect_view("what the piece had taken along")
    easel.save_and_leave()


@desktop_test
def SavedFileIsWhatIsSeenWhileAPieceFloats(desktop):
    easel = Easel(desktop, distinct())
    easel.lift_rectangle((20, 30), (66, 74))
    easel.carry(60, 20)
    easel.land()
    path = desktop.pictures / "first.bmp"
    save_as(desktop, path)
    wait_for(lambda: is_whole_bmp(path), "the file is written")
    expect_same(read_bmp(path), easel.picture)
    easel.lift_shape(ARROW)
    easel.carry(-20, -26)
    easel.land()
    easel.save_and_leave()


@desktop_test
def LiftedShapeLeavesNoHoleWhenItGoes(desktop):
    easel = Easel(desktop, distinct())
    easel.lift_shape(KITE)
    easel.floating = None
    easel.zoom(TRIPLE)
    easel.expect_view("the picture without a hole")
    easel.lift_shape(KITE)
    easel.edit("Up", "Up", "Up", "Return")
    easel.floating = Floating(lifted(easel.picture, 0, 0, 240, 180), 0, 0, is_shape=False)
    easel.expect_view("all of it, selected")
    easel.select_none()
    easel.save_and_leave()


@desktop_test
def ShapeOfOddSizeDraggedAwayAndBackAtAReducingZoomChangesNothing(desktop):
    easel = Easel(desktop, distinct())
    easel.copy_and_drop()
    easel.zoom(HALF)
    easel.lift_shape(KITE)  # 81 by 77 pixels, 40 by 38 on the view
    easel.carry(30, 8)
    easel.carry(-30, -8)
    easel.merge_by_press(2, 3)
    expect_same(easel.picture, distinct())
    easel.save_and_leave()


@desktop_test
def BandDrawnBeyondTheImageIsCutToIt(desktop):
    easel = Easel(desktop, distinct())
    easel.copy_and_drop()
    easel.move_to(200, 150)
    desktop.press()
    easel.move_to(220, 170)
    easel.move_to(260, 200)
    desktop.release()
    easel.floating = Floating(lifted(easel.picture, 200, 150, 240, 180), 200, 150, is_shape=False)
    easel.expect_view("the band, cut to the image")
    easel.carry(-60, -50)
    easel.merge_by_press(2, 3)
    easel.save_and_leave()


@desktop_test
def ClickOrStraightDragSelectsNothing(desktop):
    easel = Easel(desktop, distinct())
    easel.offer(distinct(47, 33))
    easel.click_on(RECTANGLE)
    desktop.click(easel.left + 50, easel.top + 60)
    easel.expect_view("the picture after a click")
    desktop.keys("ctrl+c")
    easel.click_on(FREEHAND)
    desktop.click(easel.left + 70, easel.top + 60)
    easel.expect_view("the picture after a click of the lasso")
    easel.draw_path([(20, 100), (80, 100), (50, 100)])
    easel.expect_view("the picture after a straight path")
    easel.expect_on_clipboard_still("offered.png")
    easel.lift_rectangle((20, 30), (66, 74))
    assert len(desktop.state_files()) == 1
    easel.carry(10, 10)
    easel.merge_by_press(2, 3)
    easel.save_and_leave()


@desktop_test
def MergeIsUndoneAndRedone(desktop):
    easel = Easel(desktop, distinct())
    easel.lift_rectangle((20, 30), (66, 74))
    easel.carry(60, 20)
    easel.merge_by_press(2, 3)
    rectangle = easel.picture
    easel.lift_shape(ARROW)
    easel.carry(-20, -26)
    easel.merge_by_press(2, 3)
    shape = easel.picture
    for step, picture in (("ctrl+d", rectangle), ("ctrl+d", distinct())):
        desktop.keys(step)
        easel.picture = picture
        easel.expect_view("what was there before a merge")
    # Undo is off at the first state, so the menu opens on the item below it.
    easel.edit("Return")
    easel.picture = rectangle
    easel.expect_view("the first merge again")
    easel.edit("Down", "Return")
    easel.picture = shape
    easel.expect_view("the second merge again")
    easel.save_and_leave()


@desktop_test
def PenPressMergesARectangleAndPaintsADot(desktop):
    easel = Easel(desktop, distinct())
    easel.lift_rectangle((20, 30), (66, 74))
    easel.carry(60, 20)
    easel.click_on(PEN)
    easel.land()
    model.paint(easel.picture, {(10, 12)}, BLACK)
    desktop.click(easel.left + 10, easel.top + 12)
    easel.expect_view("the merged rectangle with a dot")
    wait_for(lambda: len(desktop.state_files()) == 3, "the merge and the dot are recorded")
    easel.lift_shape(ARROW)
    easel.carry(-20, -26)
    easel.click_on(PEN)
    easel.merge_by_press(2, 3, states=2)  # it paints nothing, but its release records a state as any does
    easel.save_and_leave()


@desktop_test
def CopyAndCutReachAnotherProgram(desktop):
    easel = Easel(desktop, distinct())
    easel.lift_rectangle((20, 30), (66, 75))
    piece, easel.floating = easel.floating.piece, None
    desktop.keys("ctrl+c")
    easel.expect_view("the picture after a copy")
    before = easel.expect_on_clipboard(picture_of(piece))
    easel.zoom(TRIPLE)
    easel.lift_rectangle((101, 91), (140, 150))
    easel.make_hole()
    piece, easel.floating = easel.floating.piece, None
    desktop.keys("ctrl+x")
    easel.expect_view("the hole of a cut")
    easel.expect_on_clipboard(picture_of(piece), before)
    assert len(desktop.state_files()) == 1, "neither records a state"
    easel.save_and_leave()


@desktop_test
def FreehandPieceReachesAnotherProgramInItsBox(desktop):
    easel = Easel(desktop, distinct())
    easel.copy_and_drop()
    easel.zoom(TRIPLE)
    easel.lift_shape(KITE)
    piece, easel.floating = easel.floating.piece, None
    desktop.keys("ctrl+c")
    easel.expect_view("the picture after a copy")
    before = easel.expect_on_clipboard(picture_of(piece))
    # A cut takes the piece as large as it is seen.
    easel.lift_shape(ARROW)
    size, piece = easel.shown_size(), easel.floating.piece
    easel.floating = None
    desktop.keys("ctrl+x")
    easel.expect_view("the picture after a cut")
    easel.expect_on_clipboard(picture_of(stretched(piece, *size)), before)
    easel.save_and_leave()


@desktop_test
def PictureOfAnotherProgramIsPastedDraggedAndMerged(desktop):
    easel = Easel(desktop, distinct())
    other = distinct(47, 33, seed=60)
    easel.offer(other)
    easel.click_on(RECTANGLE)
    desktop.keys("ctrl+v")
    easel.expect_pasted(other)
    # The keys still reach the program, and the document is the same.
    desktop.keys("ctrl+n")
    desktop.wait_for_window(NEW)
    desktop.keys("Escape")
    desktop.wait_until_gone(NEW)
    easel.carry(50, 40)
    easel.carry(60, 11)
    easel.merge_by_press(2, 3)
    merged = easel.picture
    desktop.keys("ctrl+d")
    easel.picture = distinct()
    easel.expect_view("the picture without what was pasted")
    easel.edit("Return")
    easel.picture = merged
    easel.expect_view("what was pasted, again")
    easel.zoom(TRIPLE)
    desktop.keys("ctrl+v")
    easel.expect_pasted(other)
    easel.carry(70, 302)
    easel.merge_by_press(400, 3)
    easel.zoom(HALF)
    # 47 by 33 are seen as 24 by 16, and cover 48 by 32; there is no column 48.
    desktop.keys("ctrl+v")
    easel.expect_pasted(other)
    easel.carry(90, 50)
    easel.merge_by_press(2, 3)
    easel.save_and_leave()


@desktop_test
def PasteOfTheToolBarMergesWhatFloats(desktop):
    easel = Easel(desktop, distinct())
    other = distinct(47, 33, seed=60)
    easel.offer(other)
    easel.lift_rectangle((20, 40), (66, 74))
    easel.carry(60, 20)
    easel.click_on(PASTE)
    easel.land()
    easel.expect_pasted(other)
    wait_for(lambda: len(desktop.state_files()) == 3, "the merge takes two states")
    easel.merge_by_press(200, 100)
    easel.save_and_leave()


@desktop_test
def PictureOfAnotherProgramBecomesANewImage(desktop):
    easel = Easel(desktop, distinct())
    other = distinct(90, 70, seed=60)
    easel.offer(other)
    easel.edit("Up", "Up", "Up", "Return")
    easel.turn_to(other)
    wait_for(lambda: len(desktop.state_files()) == 2, "its first state is recorded")
    # It is the active one, and takes what the hand does.
    easel.lift_rectangle((20, 30), (50, 60))
    easel.carry(20, 5)
    easel.merge_by_press(2, 3)
    easel.save_and_leave()


@desktop_test
def PieceGoesFromOneDocumentToAnother(desktop):
    easel = Easel(desktop, distinct())
    second = distinct(200, 150, seed=60)
    easel.lift_rectangle((20, 30), (66, 74))
    piece, easel.floating = easel.floating.piece, None
    desktop.keys("ctrl+c")
    easel.expect_view("the picture after a copy")
    write_bmp(desktop.pictures / "second.bmp", second)
    assert desktop.wait_for_end(desktop.start(desktop.pictures / "second.bmp")) == 0
    easel.turn_to(second)
    desktop.keys("ctrl+v")
    easel.expect_pasted(picture_of(piece))
    easel.carry(100, 60)
    # The piece goes on floating while the other document is at work.
    changed, waiting = easel.picture, easel.floating
    desktop.menu("j", "1")
    easel.turn_to(distinct())
    easel.lift_rectangle((120, 40), (160, 74))
    easel.carry(20, 60)
    easel.merge_by_press(2, 3)
    first = easel.picture
    desktop.menu("j", "2")
    easel.turn_to(changed, waiting)
    easel.merge_by_press(2, 3)
    desktop.keys("ctrl+d")
    easel.turn_to(second)
    desktop.menu("j", "1")
    easel.turn_to(first)
    easel.save_and_leave()


@desktop_test
def OpenedDocumentStandsBeforeTheOneThatHadTheHand(desktop):
    easel = Easel(desktop, distinct())
    easel.lift_rectangle((20, 30), (66, 74))
    easel.select_none()
    second = distinct(200, 150, seed=60)
    write_bmp(desktop.pictures / "second.bmp", second)
    desktop.keys("ctrl+o")
    give_path(desktop, OPEN, desktop.pictures / "second.bmp")
    easel.turn_to(second)
    easel.save_and_leave()
