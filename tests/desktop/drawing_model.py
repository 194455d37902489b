"""What a figure paints, as sets of (x, y): slow and plain, for comparison with what the program has saved.

Everything is exact, in whole numbers and fractions. `check_measured_cases` holds the figures against measured ones.
"""
from collections import namedtuple
from fractions import Fraction
from functools import lru_cache
from math import ceil, isqrt
from operator import itemgetter

from pictures import Picture


# Lines.

def line(x0, y0, x1, y1, width=1):
    """A line with both of its ends."""
    if width == 1:
        return thin_line(x0, y0, x1, y1)
    return {(x0 + x, y0 + y) for x, y in wide_line(x1 - x0, y1 - y0, width)}


@lru_cache(maxsize=None)
def wide_line(dx, dy, width):
    """A wide line from (0, 0). The many short ones of a ring are alike."""
    return frozenset(dot(0, 0, width) | dot(dx, dy, width) | polygon(body_of_line(dx, dy, width)))


def thin_line(x0, y0, x1, y1):
    """A pixel a step of the longer axis; on the other one the nearest, of two as near the smaller."""
    dx, dy = x1 - x0, y1 - y0
    steps = max(abs(dx), abs(dy))

    def nearest(start, distance, step):
        return start + ceil(Fraction(distance * step, steps) - Fraction(1, 2))
    # On the longer axis this is a whole step.
    return {(nearest(x0, dx, step), nearest(y0, dy, step)) for step in range(steps + 1)} if steps else {(x0, y0)}


def dot(x, y, width):
    """What a pen leaves that only touches the paper."""
    if width == 1:
        return {(x, y)}
    outline = ellipse(x - width // 2, y - width // 2, x - width // 2 + width, y - width // 2 + width)
    return outline | inside(outline)


def body_of_line(dx, dy, width):
    """The corners of the body of a wide line from (0, 0), between the dots at its ends."""
    if dx == 0 and dy == 0:
        return []
    if dy == 0:
        a, b = 0, width
    elif dx == 0:
        a, b = width, 0
    else:
        # The whole part of a square root of a fraction is that of the fraction's whole part.
        a = isqrt(width * width * dy * dy // (dx * dx + dy * dy)) + 1
        b = isqrt(width * width * dx * dx // (dx * dx + dy * dy)) + 1
    side = -1 if dx * dy > 0 else 1
    right_x, right_y = (a + 1) // 2, side * ((b + 1) // 2)
    left_x, left_y = -(a // 2), -side * (b // 2)
    return [(right_x, right_y), (dx + right_x, dy + right_y), (dx + left_x, dy + left_y), (left_x, left_y)]


def polygon(corners):
    """The inside of a convex figure: without the lowest row, and without the right border."""
    painted = set()
    edges = list(zip(corners, corners[1:] + corners[:1]))
    for y in range(min((y for _, y in corners), default=0), max((y for _, y in corners), default=0)):
        crossings = [x0 + Fraction((x1 - x0) * (y - y0), y1 - y0) for (x0, y0), (x1, y1) in edges
                     if min(y0, y1) <= y < max(y0, y1)]
        painted |= {(x, y) for x in range(ceil(min(crossings)), ceil(max(crossings)))}
    return painted


# Ellipses. The right and lower borders of their boxes are outside.

def ellipse(left, top, right, bottom, width=1):
    """The outline of the ellipse in this box."""
    left, right = sorted((left, right))
    top, bottom = sorted((top, bottom))
    if left == right or top == bottom:
        return set()
    if right - left <= 2 or bottom - top <= 2:
        assert width == 1, "nobody has said how a wide pen draws this"
        return {(x, y) for x in range(left, right) for y in range(top, bottom)}
    quarters = quarters_of_ellipse(left, top, right, bottom)
    if width == 1:
        return {point for quarter in quarters for point in quarter}
    upper_right, upper_left, lower_right, lower_left = quarters
    ring = upper_right + upper_left[::-1] + lower_left + lower_right[::-1]
    painted = set()
    for (x0, y0), (x1, y1) in zip(ring, ring[1:] + ring[:1]):
        painted |= line(x0, y0, x1, y1, width)
    return painted


def quarters_of_ellipse(left, top, right, bottom):
    """The points of the four quarters, each from the side to the tip: upper right, upper left, lower right, lower left."""
    a, b = right - 1 - left, bottom - 1 - top
    odd = b & 1
    dx, dy = 4 * (1 - a) * b * b, 4 * (odd + 1) * a * a
    error = dx + dy + odd * a * a
    x0, x1, lower = left, right - 1, top + (b + 1) // 2
    upper = lower - odd
    quarters = [], [], [], []
    while x0 <= x1:
        for quarter, point in zip(quarters, ((x1, upper), (x0, upper), (x1, lower), (x0, lower))):
            quarter.append(point)
        twice = 2 * error
        if twice <= dy:
            lower, upper, dy = lower + 1, upper - 1, dy + 8 * a * a
            error += dy
        if twice >= dx:
            x0, x1, dx = x0 + 1, x1 - 1, dx + 8 * b * b
            error += dx
    # The last columns of a slim upright one go on to its tips.
    while quarters[0][-1][1] > top:
        for quarter, step in zip(quarters, (-1, -1, 1, 1)):
            x, y = quarter[-1]
            quarter.append((x, y + step))
    return quarters


def circle(x, y, radius, width=1):
    return ellipse(x - radius, y - radius, x + radius + 1, y + radius + 1, width) if radius else dot(x, y, width)


def inside(outline):
    """The pixels between the first and the last of an outline in each row."""
    painted = set()
    for row in {y for _, y in outline}:
        columns = [x for x, y in outline if y == row]
        painted |= {(x, row) for x in range(min(columns), max(columns) + 1)}
    return painted - outline


# Boxes. All four borders belong to them.

def box(x0, y0, x1, y1, width=1):
    corners = [(x0, y0), (x1, y0), (x1, y1), (x0, y1)]
    painted = set()
    for start, end in zip(corners, corners[1:] + corners[:1]):
        painted |= line(*start, *end, width)
    return painted


def filled_box(x0, y0, x1, y1):
    return {(x, y) for x in range(min(x0, x1), max(x0, x1) + 1) for y in range(min(y0, y1), max(y0, y1) + 1)}


# Pictures.

def paint(picture, pixels, colour):
    """What lies outside the picture is lost."""
    for x, y in pixels:
        if 0 <= x < picture.width and 0 <= y < picture.height:
            picture.put(x, y, colour)


def area(picture, x, y):
    """The pixels of one colour that hang together over their sides; none if the point is outside."""
    if not (0 <= x < picture.width and 0 <= y < picture.height):
        return set()
    colour = picture.at(x, y)
    found, waiting = {(x, y)}, [(x, y)]
    while waiting:
        x, y = waiting.pop()
        for x1, y1 in ((x - 1, y), (x + 1, y), (x, y - 1), (x, y + 1)):
            if 0 <= x1 < picture.width and 0 <= y1 < picture.height and (x1, y1) not in found \
                    and picture.at(x1, y1) == colour:
                found.add((x1, y1))
                waiting.append((x1, y1))
    return found


def scaled(picture, factor):
    """The picture as a view shows it: each pixel of the view is the one under its centre, on a border the lower one; in a
    reduced view the mean of the pixels that it stands for."""
    if factor < 1:
        return reduced(picture, int(picture.width * factor), int(picture.height * factor))
    columns, rows = sources(picture.width, factor), sources(picture.height, factor)
    row_of_view = itemgetter(*(3 * x + channel for x in columns for channel in range(3)))
    shown = {y: bytearray(row_of_view(picture.rows[y])) for y in set(rows)}
    return Picture(len(columns), len(rows), [shown[y] for y in rows])


def reduced(picture, width, height):
    """The means of up to four samples along each axis, spread evenly, each channel to nearest."""
    across, down = (min(4, ceil(Fraction(of, shown))) for of, shown in ((picture.width, width), (picture.height, height)))
    columns = sources(picture.width, Fraction(width * across, picture.width))
    rows = sources(picture.height, Fraction(height * down, picture.height))
    samples = across * down
    view = []
    for y in range(height):
        sums = [0] * (3 * width)
        for row in (picture.rows[at] for at in rows[y * down:(y + 1) * down]):
            for place, column in enumerate(columns):
                for channel in range(3):
                    sums[place // across * 3 + channel] += row[3 * column + channel]
        view.append(bytearray((2 * value + samples) // (2 * samples) for value in sums))
    return Picture(width, height, view)


@lru_cache(maxsize=None)
def sources(size, factor):
    """The column or row of the image for each one of the view."""
    shown = size * factor
    assert shown == int(shown), "a view of whole pixels"
    return [ceil((cell + Fraction(1, 2)) / factor) - 1 for cell in range(int(shown))]


# Measured figures.

Case = namedtuple("Case", "name width height background calls expected")
PLAIN_CALLS = {"pen", "brush", "nobrush", "move", "line", "ellipse", "rect"}


def check_measured_cases(path):
    """Compares each plain figure of a file of cases with the model; gives how many there were."""
    count = 0
    for text in path.read_text().split("\n\n"):
        case = measured_case(text.split("\n"))
        if case is None:
            continue
        drawn = Picture.filled(case.width, case.height, case.background)
        for pixels, colour in layers_of(case.calls):
            paint(drawn, pixels, colour)
        different = list(drawn.differences(case.expected))
        assert not different, f"{case.name}: {len(different)} pixels differ, the first at {different[0]}"
        count += 1
    return count


def measured_case(lines):
    """None if the case is none of plain figures on plain paper, or has an ellipse that no tool test draws."""
    lines = [line.split() for line in lines if line]
    if not lines:
        return None
    calls = [words for words in lines[1:] if words[0][0].islower() and words[0] != "pal" and not is_repeat(words[0])]
    if any(words[0] not in PLAIN_CALLS or is_slim_ring(words, calls) for words in calls):
        return None
    _, name, width, height, background = lines[0]
    expected = Picture.filled(int(width), int(height), colour_of(background))
    palette = {}
    y, row = 0, ""
    for words in lines[1 + len(calls):]:
        if words[0] == "pal":
            palette[words[1]] = colour_of(words[2])
        elif words[0][0] == "@":
            y = int(words[0][1:])
        else:
            times = int(words[0][1:]) if is_repeat(words[0]) else 1
            row = row if is_repeat(words[0]) else words[0]
            for _ in range(times):
                for x, letter in enumerate(row):
                    if letter != ".":
                        expected.put(x, y, palette[letter])
                y += 1
    return Case(name, int(width), int(height), colour_of(background), calls, expected)


def is_slim_ring(words, calls):
    """An ellipse one or two pixels wide or high, with a wide pen."""
    if words[0] != "ellipse" or int(calls[0][2]) <= 1:
        return False
    left, top, right, bottom = map(int, words[1:])
    return 0 < abs(right - left) <= 2 or 0 < abs(bottom - top) <= 2


def is_repeat(word):
    return word[0] == "x" and word[1:].isdigit()


def colour_of(text):
    """Red, green, blue of hexadecimal BBGGRR."""
    value = int(text, 16)
    return value & 255, value >> 8 & 255, value >> 16 & 255


def layers_of(calls):
    """(pixels, colour) of the calls, in the order of painting."""
    width, pen, brush = 1, None, None
    at = None
    for name, *words in calls:
        if name in ("brush", "nobrush"):
            brush = colour_of(words[0]) if words else None
        elif name == "pen":
            width, pen = max(1, int(words[1])), colour_of(words[2])
        elif name == "move":
            at = int(words[0]), int(words[1])
        elif name == "line":
            end = int(words[0]), int(words[1])
            # This call leaves out the last point of a thin line.
            yield line(*at, *end, width) - ({end} if width == 1 else set()), pen
            at = end
        else:
            left, top, right, bottom = map(int, words)
            yield from layers_of_figure(name, left, top, right, bottom, width, pen, brush)


def layers_of_figure(name, left, top, right, bottom, width, pen, brush):
    left, right = sorted((left, right))
    top, bottom = sorted((top, bottom))
    if name == "ellipse":
        thin, drawn = ellipse(left, top, right, bottom), ellipse(left, top, right, bottom, width)
        if brush:
            yield thin | inside(thin), brush
    elif left == right or top == bottom:
        return
    else:
        drawn = box(left, top, right - 1, bottom - 1, width)
        if brush:
            yield filled_box(left + 1, top + 1, right - 2, bottom - 2), brush
    yield drawn, pen
