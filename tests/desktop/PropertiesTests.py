"""The figures of a saved, an unsaved and a scanned document. What the texts say is told by which of them look alike."""
from desktop import desktop_test, wait_for
from pictures import Picture, write_bmp
from roads import MAIN, corner_of, sample, start_with_new_document, start_with_picture
from ScanTests import by_command_line, choose, configure, wait_for_options

DIALOG = "Propriedades da Imagem"
NAME, PATH, ORIGINAL, CURRENT, HEIGHT, WIDTH = range(6)
THUMBNAIL = 81  # pixels of its longer side


def cut(picture, left, top, right, bottom):
    return Picture(right - left, bottom - top, [row[3 * left:3 * right] for row in picture.rows[top:bottom]])


def runs(flags, gap):
    """(first, behind) of the stretches that are set; unset ones shorter than the gap belong to them."""
    found = []
    for at, flag in enumerate(flags):
        if not flag:
            continue
        if found and at - found[-1][1] < gap:
            found[-1][1] = at + 1
        else:
            found.append([at, at + 1])
    return found


def ink(picture, columns, rows):
    """The pixels of texts in a part of a picture, trimmed to them."""
    dark = [[sum(picture.at(x, y)) < 300 for x in columns] for y in rows]
    lines = runs([any(row) for row in dark], 1000)
    across = runs([any(row[i] for row in dark) for i in range(len(columns))], 1000)
    if not lines:
        return []
    return [row[across[0][0]:across[0][1]] for row in dark[lines[0][0]:lines[0][1]]]


class Figures:
    """The dialog, opened by its menu item, looked at and closed."""

    def __init__(self, desktop):
        desktop.wait_for_window(MAIN)
        desktop.menu("i", "Return")
        window = desktop.wait_for_window(DIALOG)
        desktop.move(1, 1)  # or it would be waited for where it is already
        x, y = corner_of(desktop, window)
        width, height = desktop.geometry(window)[2:]

        def settled():
            first, second = desktop.photograph(), desktop.photograph()
            return first.rows == second.rows and cut(first, x, y, x + width, y + height)
        self.picture = wait_for(settled, "the dialog rests")
        desktop.keys("Escape")
        desktop.wait_until_gone(DIALOG)
        # Right of the thumbnail, above the button; without the lines of the frame.
        begin, end = 12 + THUMBNAIL + 12, width - 20
        self.rows = [(top - 3, bottom + 3) for top, bottom in self.lines(begin, end, height - 50)]
        assert len(self.rows) == 6, f"there are {self.rows}"
        columns = [any(sum(self.picture.at(at, y)) < 300 for top, bottom in self.rows for y in range(top, bottom))
                   for at in range(begin, end)]
        _, values, *_ = runs(columns, 7)
        self.columns = range(begin + values[0], end)

    def lines(self, begin, end, bottom):
        return runs([any(sum(self.picture.at(x, y)) < 300 for x in range(begin, end)) for y in range(bottom)], 4)

    def value(self, index):
        return ink(self.picture, self.columns, range(*self.rows[index]))


@desktop_test
def PropertiesOfASavedDocumentShowItsFile(desktop):
    picture = sample(THUMBNAIL, THUMBNAIL)  # shown pixel by pixel
    write_bmp(desktop.pictures / "picture.bmp", picture)
    start_with_picture(desktop, desktop.pictures / "picture.bmp", picture)
    figures = Figures(desktop)
    assert figures.picture.find(picture), "the thumbnail shows the image"
    assert figures.value(ORIGINAL) == figures.value(CURRENT) != [], "a BMP file is as long as its image"
    assert figures.value(HEIGHT) == figures.value(WIDTH) != []
    assert figures.value(NAME) != figures.value(PATH) != []


@desktop_test
def PropertiesOfAnUnsavedDocumentSaySoTwice(desktop):
    start_with_new_document(desktop)
    figures = Figures(desktop)
    assert figures.value(PATH) == figures.value(ORIGINAL) != []
    assert figures.value(CURRENT) != figures.value(ORIGINAL)
    assert figures.value(HEIGHT) == figures.value(WIDTH) != []
    assert figures.picture.find(Picture.filled(THUMBNAIL, THUMBNAIL, (255, 255, 255))), "the thumbnail is white"


@desktop_test
def PropertiesOfAScannedDocumentNameAFileThatIsNotSaved(desktop):
    configure(desktop)
    start_with_new_document(desktop)
    unsaved = Figures(desktop)
    desktop.wait_for_window(MAIN)
    choose(desktop)
    wait_for_options(desktop)
    desktop.keys("alt+r", "Home", "alt+c", "Home", "Return")
    desktop.wait_for_picture(by_command_line(desktop, "Gray"))
    scanned = Figures(desktop)
    assert scanned.value(NAME) == unsaved.value(NAME) != [], "both would be named alike"
    assert scanned.value(ORIGINAL) == unsaved.value(ORIGINAL) != []
    assert scanned.value(PATH) != unsaved.value(PATH), "the page has the program's folder"
    assert scanned.value(HEIGHT) == scanned.value(WIDTH) != unsaved.value(WIDTH)
