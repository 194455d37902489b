"""Painting, undo and redo, saving: the road from a new image or a file to a saved file."""
from desktop import desktop_test, wait_for
from pictures import Picture, expect_same, is_whole_bmp, read_any, read_bmp, write_bmp
from roads import (BLACK, WHITE, draw, leave, paint_and_wait, sample, save_as, start_with_new_document,
                   start_with_picture, with_stroke)

STROKE = [(50, 60), (120, 60), (120, 100), (90, 130)]


@desktop_test
def StrokeOnANewImageIsSavedPixelByPixel(desktop):
    _, left, top = start_with_new_document(desktop)
    paint_and_wait(desktop, left, top, STROKE)
    path = desktop.pictures / "stroke.bmp"
    save_as(desktop, path)
    wait_for(lambda: is_whole_bmp(path), "the file is written")
    expect_same(read_bmp(path), with_stroke(Picture.filled(300, 300, WHITE), STROKE))


@desktop_test
def SingleClickLeavesOneDot(desktop):
    _, left, top = start_with_new_document(desktop)
    paint_and_wait(desktop, left, top, [(7, 290)])
    save_as(desktop, desktop.pictures / "dot.bmp")
    wait_for(lambda: is_whole_bmp(desktop.pictures / "dot.bmp"), "the file is written")
    expect_same(read_bmp(desktop.pictures / "dot.bmp"), with_stroke(Picture.filled(300, 300, WHITE), [(7, 290)]))


@desktop_test
def UndoAndRedoWalkTheStrokes(desktop):
    _, left, top = start_with_new_document(desktop)
    paint_and_wait(desktop, left, top, [(20, 20), (80, 20)])
    paint_and_wait(desktop, left, top, [(20, 40), (80, 40)])
    desktop.keys("ctrl+d")
    desktop.wait_for_pixel(left + 50, top + 40, WHITE)
    desktop.wait_for_pixel(left + 50, top + 20, BLACK)
    desktop.keys("ctrl+d")
    desktop.wait_for_pixel(left + 50, top + 20, WHITE)
    desktop.menu("e", "Return")  # redo: undo is off at the first state, so the menu opens on the item below it
    desktop.wait_for_pixel(left + 50, top + 20, BLACK)
    path = desktop.pictures / "after.bmp"
    save_as(desktop, path)
    wait_for(lambda: is_whole_bmp(path), "the file is written")
    expect_same(read_bmp(path), with_stroke(Picture.filled(300, 300, WHITE), [(20, 20), (80, 20)]))


@desktop_test
def SaveWritesAnOpenedBmpInItsPlace(desktop):
    path = desktop.pictures / "picture.bmp"
    write_bmp(path, sample())
    _, left, top = start_with_picture(desktop, path, sample())
    stroke = [(10, 10), (60, 10)]
    paint_and_wait(desktop, left, top, stroke)
    desktop.menu("f", "s", "Return")
    expected = with_stroke(sample(), stroke)
    wait_for(lambda: is_whole_bmp(path) and read_bmp(path).at(30, 10) == BLACK, "the file is written")
    expect_same(read_bmp(path), expected)


@desktop_test
def SaveWritesAnOpenedJpegAsJpeg(desktop):
    path = desktop.pictures / "photo.jpg"
    desktop.tool("convert", "-size", "160x120", "xc:white", "-quality", "95", path)
    desktop.large_window_settings()
    desktop.start(path)
    left, top = desktop.wait_for_picture(Picture.filled(160, 120, WHITE))
    paint_and_wait(desktop, left, top, [(20, 60), (140, 60)])
    before = path.read_bytes()
    desktop.menu("f", "s", "Return")
    wait_for(lambda: path.read_bytes() not in (before, b"") and path.read_bytes()[-2:] == b"\xff\xd9", "the file is written")
    assert path.read_bytes()[:3] == b"\xff\xd8\xff", "it is a JPEG file"
    saved = read_any(path)
    assert (saved.width, saved.height) == (160, 120)
    assert max(saved.at(80, 60)) < 110 and min(saved.at(80, 20)) > 240, "the stroke is in it, the paper around it is white"
    assert not list(desktop.program.parent.glob("klTmpJpg*.bmp")), "the picture on the way is deleted"


@desktop_test
def SaveOfAGifWritesANumberedBmpBesideIt(desktop):
    path = desktop.pictures / "drawing.gif"
    desktop.tool("convert", "-size", "90x70", "xc:white", path)
    original = path.read_bytes()
    desktop.large_window_settings()
    desktop.start(path)
    desktop.wait_for_picture(Picture.filled(90, 70, WHITE))
    for name in ("drawing.bmp", "drawing1.bmp"):
        desktop.menu("f", "s", "Return")
        wait_for(lambda: is_whole_bmp(desktop.pictures / name), f"{name} is written")
    assert path.read_bytes() == original, "the GIF file stays as it is"


@desktop_test
def SaveAsEndsTheNameAsTheFormatSays(desktop):
    start_with_new_document(desktop)
    save_as(desktop, desktop.pictures / "named.jpg")
    wait_for(lambda: is_whole_bmp(desktop.pictures / "named.bmp"), "a BMP file is written")
    assert not (desktop.pictures / "named.jpg").exists()


@desktop_test
def StrokeIsSeenWhileTheButtonIsHeld(desktop):
    _, left, top = start_with_new_document(desktop)
    desktop.move(left + 30, top + 30)
    desktop.press()
    desktop.move(left + 130, top + 30)
    desktop.wait_for_pixel(left + 80, top + 30, BLACK)
    assert len(desktop.state_files()) == 1, "no state is recorded during a stroke"
    desktop.release()
    wait_for(lambda: len(desktop.state_files()) == 2, "the state is recorded at the release")


@desktop_test
def PaintingGoesOnWithoutATemporaryFolder(desktop):
    desktop.environment["TMPDIR"] = str(desktop.folder / "nowhere")
    path = desktop.pictures / "picture.bmp"
    write_bmp(path, sample())
    process, left, top = start_with_picture(desktop, path, sample())
    stroke = [(10, 10), (60, 10)]
    draw(desktop, left, top, stroke)
    desktop.menu("f", "s", "Return")
    wait_for(lambda: is_whole_bmp(path) and read_bmp(path).at(30, 10) == BLACK, "the file is written")
    expect_same(read_bmp(path), with_stroke(sample(), stroke))
    leave(desktop)
    assert desktop.wait_for_end(process) == 0
