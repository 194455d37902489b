"""The question at closing, and what is left behind."""
from desktop import desktop_test, wait_for
from pictures import Picture, expect_same, is_whole_bmp, read_bmp, write_bmp
from roads import (BLACK, NEW, QUESTION, WHITE, leave, paint_and_wait, sample, save_as, start_with_new_document,
                   start_with_picture, with_stroke)

STROKE = [(40, 30), (90, 30)]


@desktop_test
def CancelAtTheQuestionStopsTheExit(desktop):
    process, left, top = start_with_new_document(desktop)
    paint_and_wait(desktop, left, top, STROKE)
    leave(desktop)
    desktop.wait_for_window(QUESTION)
    desktop.keys("Escape")
    desktop.wait_until_gone(QUESTION)
    paint_and_wait(desktop, left, top, [(40, 60), (90, 60)])
    assert process.poll() is None, "the program still runs and paints"


@desktop_test
def NoAtTheQuestionEndsTheProgramWithNothingLeft(desktop):
    process, left, top = start_with_new_document(desktop)
    paint_and_wait(desktop, left, top, STROKE)
    leave(desktop)
    desktop.wait_for_window(QUESTION)
    desktop.keys("n")
    assert desktop.wait_for_end(process) == 0
    assert not list(desktop.temporary.iterdir()), "the states are deleted"
    assert not list(desktop.pictures.iterdir()), "nothing was saved"


@desktop_test
def YesAtTheQuestionSavesAndEnds(desktop):
    path = desktop.pictures / "picture.bmp"
    write_bmp(path, sample())
    process, left, top = start_with_picture(desktop, path, sample())
    paint_and_wait(desktop, left, top, STROKE)
    leave(desktop)
    desktop.wait_for_window(QUESTION)
    desktop.keys("s")
    assert desktop.wait_for_end(process) == 0
    expect_same(read_bmp(path), with_stroke(sample(), STROKE))


def start_with_two_strokes(desktop):
    """Two pictures, each with a stroke; gives the process, their paths, and each picture before and after."""
    paths = [desktop.pictures / "first.bmp", desktop.pictures / "second.bmp"]
    before = [sample(), sample(100, 80, seed=77)]
    strokes = [[(40, 30), (90, 30)], [(20, 50), (70, 50)]]
    for path, picture in zip(paths, before):
        write_bmp(path, picture)
    process, left, top = start_with_picture(desktop, paths[0], before[0])
    paint_and_wait(desktop, left, top, strokes[0])
    assert desktop.wait_for_end(desktop.start(paths[1])) == 0
    left, top = desktop.wait_for_picture(before[1])
    wait_for(lambda: len(desktop.state_files()) == 3, "the second document has its first state")
    paint_and_wait(desktop, left, top, strokes[1])
    return process, paths, before, [with_stroke(picture, stroke) for picture, stroke in zip(before, strokes)]


def answer(desktop, key):
    """Answers the question that stands, and waits until it is gone or another has come."""
    question = desktop.wait_for_window(QUESTION)
    desktop.keys(key)
    wait_for(lambda: desktop.window(QUESTION) != question, "the question is answered")


@desktop_test
def YesSavesEachDocumentThatIsAskedAbout(desktop):
    process, paths, _, after = start_with_two_strokes(desktop)
    leave(desktop)
    for path, picture in zip(paths, after):
        answer(desktop, "s")
        wait_for(lambda: is_whole_bmp(path) and not any(read_bmp(path).differences(picture)), f"{path.name} is saved")
    assert desktop.wait_for_end(process) == 0


@desktop_test
def EachAnswerAtTheExitCountsForItsDocument(desktop):
    process, paths, before, after = start_with_two_strokes(desktop)
    leave(desktop)
    answer(desktop, "n")
    answer(desktop, "Escape")
    desktop.wait_until_gone(QUESTION)
    assert process.poll() is None, "the program still runs, with both documents"
    for path, picture in zip(paths, before):
        expect_same(read_bmp(path), picture)
    leave(desktop)
    answer(desktop, "s")
    answer(desktop, "n")
    assert desktop.wait_for_end(process) == 0
    expect_same(read_bmp(paths[0]), after[0])
    expect_same(read_bmp(paths[1]), before[1])


@desktop_test
def AfterASaveNothingIsAsked(desktop):
    path = desktop.pictures / "picture.bmp"
    write_bmp(path, sample())
    process, left, top = start_with_picture(desktop, path, sample())
    paint_and_wait(desktop, left, top, STROKE)
    desktop.menu("f", "s", "Return")
    wait_for(lambda: is_whole_bmp(path) and read_bmp(path).at(50, 30) == BLACK, "the file is written")
    leave(desktop)
    assert desktop.wait_for_end(process) == 0


@desktop_test
def KilledProgramLeavesItsCurrentState(desktop):
    process, left, top = start_with_new_document(desktop)
    paint_and_wait(desktop, left, top, STROKE)
    wait_for(lambda: is_whole_bmp(desktop.state_files()[-1]), "the state is written")
    desktop.signal_stop(process)
    expect_same(read_bmp(desktop.state_files()[-1]), with_stroke(Picture.filled(300, 300, WHITE), STROKE))


@desktop_test
def ASaveThatFailsAtTheQuestionStopsTheExit(desktop):
    path = desktop.pictures / "picture.bmp"
    write_bmp(path, sample())
    process, left, top = start_with_picture(desktop, path, sample())
    paint_and_wait(desktop, left, top, STROKE)
    # A folder where the file was: it exists, but cannot be written.
    path.unlink()
    path.mkdir()
    leave(desktop)
    question = desktop.wait_for_window(QUESTION)
    desktop.keys("s")
    wait_for(lambda: desktop.window(QUESTION) not in (None, question), "the message follows the question")
    desktop.wait_for_window(QUESTION)
    desktop.keys("Return")
    desktop.wait_until_gone(QUESTION)
    assert process.poll() is None, "the program still runs"
    path.rmdir()
    write_bmp(path, sample())
    desktop.menu("f", "s", "Return")
    wait_for(lambda: is_whole_bmp(path) and read_bmp(path).at(50, 30) == BLACK, "the file is written")
    expect_same(read_bmp(path), with_stroke(sample(), STROKE))
    leave(desktop)
    assert desktop.wait_for_end(process) == 0


@desktop_test
def ANameWithoutAPointAndTheFolderOfTheLastRun(desktop):
    folder = desktop.pictures / "fotos.2024"
    folder.mkdir()
    process, left, top = start_with_new_document(desktop)
    paint_and_wait(desktop, left, top, STROKE)
    save_as(desktop, folder / "praia")
    wait_for(lambda: is_whole_bmp(folder / "praia.bmp"), "the file is written with the ending of the filter")
    leave(desktop)
    assert desktop.wait_for_end(process) == 0
    process = desktop.start()  # with the settings that the last run left
    desktop.wait_for_window(NEW)
    desktop.keys("Return")
    desktop.wait_until_gone(NEW)
    save_as(desktop, "outra")
    wait_for(lambda: is_whole_bmp(folder / "outra.bmp"), "a bare name lies in the folder of the last run")
    leave(desktop)
    assert desktop.wait_for_end(process) == 0
    assert sorted(each.name for each in folder.iterdir()) == ["outra.bmp", "praia.bmp"]
