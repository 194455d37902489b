"""Steps that several desktop tests take."""
import os
import subprocess

from desktop import PATIENCE, Skip, wait_for
from pictures import Picture

WHITE = (255, 255, 255)
BLACK = (0, 0, 0)
MAIN = "Pintalux 64"
NEW = "Nova Imagem"
SAVE_AS = "Savar Como"
OPEN = "Abrir"
BROWSER = "Filtros de Imagem"
QUESTION = "VALMERO"  # the box that asks at closing
STOP = "Pintalux64"  # the box of an error that nobody expected


def sample(width=120, height=90, seed=0):
    """A picture that stands nowhere else on the display: every pixel differs from its neighbours."""
    picture = Picture.filled(width, height, WHITE)
    for y in range(height):
        for x in range(width):
            picture.put(x, y, ((3 * x + seed) % 251, (5 * y + x) % 249, (7 * x + 11 * y + seed) % 241))
    return picture


def start_with_new_document(desktop):
    """Starts without a file and accepts the New dialog; gives the process and where the white 300 by 300 image lies."""
    desktop.large_window_settings()
    process = desktop.start()
    desktop.wait_for_window(NEW)
    desktop.keys("Return")
    desktop.wait_until_gone(NEW)
    left, top = desktop.wait_for_picture(Picture.filled(300, 300, WHITE))
    wait_for(lambda: len(desktop.state_files()) == 1, "the first state is recorded")
    return process, left, top


def start_without_document(desktop):
    """Starts with the settings as they are and cancels the New dialog; gives the process. What was left of a run before is
    asked about behind that."""
    process = desktop.start()
    desktop.wait_for_window(NEW)
    desktop.keys("Escape")
    desktop.wait_until_gone(NEW)
    return process


def start_with_picture(desktop, path, picture):
    """Starts with a file; gives the process and where its picture lies on the display."""
    desktop.large_window_settings()
    process = desktop.start(path)
    left, top = desktop.wait_for_picture(picture)
    return process, left, top


def draw(desktop, left, top, points):
    """A stroke with the pen through these image pixels. At each corner it waits until the display shows the pen there, so
    that no corner is lost when the toolkit joins moves that come close together. (A press alone shows nothing yet.)"""
    (x, y), *others = points
    desktop.move(left + x, top + y)
    desktop.press()
    for x, y in others:
        desktop.move(left + x, top + y)
        desktop.wait_for_pixel(left + x, top + y, BLACK)
    desktop.release()


def with_stroke(picture, points):
    """The picture with a black line one pixel wide through the points, corners and ends included. The segments are
    level, upright or at 45 degrees, where there is only one right answer."""
    result = Picture(picture.width, picture.height, [bytearray(row) for row in picture.rows])
    x, y = points[0]
    result.put(x, y, BLACK)
    for end_x, end_y in points[1:]:
        assert end_x == x or end_y == y or abs(end_x - x) == abs(end_y - y)
        while (x, y) != (end_x, end_y):
            x += (end_x > x) - (end_x < x)
            y += (end_y > y) - (end_y < y)
            result.put(x, y, BLACK)
    return result


def paint_and_wait(desktop, left, top, points):
    """Draws a stroke and waits until its state is recorded."""
    before = len(desktop.state_files())
    draw(desktop, left, top, points)
    wait_for(lambda: len(desktop.state_files()) == before + 1, "the state of the stroke is recorded")


def give_path(desktop, dialog, path):
    """Types a path into a file dialog that is about to show."""
    desktop.wait_for_window(dialog)
    desktop.type(str(path))
    desktop.keys("Return")
    desktop.wait_until_gone(dialog)


def save_as(desktop, path):
    desktop.menu("f", "c")
    give_path(desktop, SAVE_AS, path)


def leave(desktop):
    """Closes the main window."""
    desktop.wait_for_window(MAIN)
    desktop.keys("alt+F4")


def open_browser(desktop):
    desktop.menu("i", "Up", "Up", "Up", "Return")  # the third item from the end
    desktop.wait_for_window(BROWSER)


def grip(place):
    """Where the hand takes hold of a control: half its height from its left edge, where also a tick box has its box."""
    left, top, _, height = place
    return left + height // 2, top + height // 2


def corner_of(desktop, window):
    """Where the inside of a window begins on the display."""
    desktop.tool("xdotool", "mousemove", "--sync", "--window", window, 0, 0)
    place = desktop.tool("xdotool", "getmouselocation", "--shell")
    return tuple(int(line.split("=")[1]) for line in place.split()[:2])


def offer_png(desktop, path):
    """Another program puts a PNG file on the clipboard."""
    # It stays until another takes the clipboard, or the display goes; it must not keep a pipe of ours open.
    subprocess.run(["xclip", "-selection", "clipboard", "-t", "image/png", "-i", str(path)], env=desktop.environment,
                   check=True, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def taken_from_clipboard(desktop, kind, path, before=b""):
    """Another program writes what the clipboard offers in this kind to a file, as soon as it is other than before. Gives
    the file's bytes."""
    def taken():
        taker = subprocess.run(["xclip", "-selection", "clipboard", "-t", kind, "-o"], env=desktop.environment,
                               stdin=subprocess.DEVNULL, capture_output=True, timeout=PATIENCE)
        path.write_bytes(taker.stdout)
        return taker.returncode == 0 and taker.stdout not in (b"", before) and taker.stdout
    return wait_for(taken, f"the clipboard offers a new {kind}")


def start_bus(desktop):
    """A message bus for programs that start from now on."""
    desktop.environment.pop("DBUS_SESSION_BUS_ADDRESS", None)
    read_end, write_end = os.pipe()
    try:
        desktop._spawn("dbus-daemon", "--session", "--nofork", "--print-address=" + str(write_end), log="bus.log",
                       pass_fds=[write_end])
    except FileNotFoundError:
        raise Skip("no bus on this machine") from None
    os.close(write_end)
    with os.fdopen(read_end) as address:
        desktop.environment["DBUS_SESSION_BUS_ADDRESS"] = address.readline().strip()
