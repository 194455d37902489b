"""What a run that died has left: asked about at the next start, opened, kept or deleted."""
import signal

from desktop import desktop_test, wait_for
from pictures import Picture, is_whole_bmp
from roads import QUESTION, WHITE, leave, paint_and_wait, start_with_new_document, with_stroke, start_without_document

STROKES = [[(20, 20), (120, 20), (120, 90)], [(20, 50), (90, 50)]]
BLANK = Picture.filled(300, 300, WHITE)


def left_by(desktop, end):
    """Paints two strokes and ends the program; gives the picture as it was seen."""
    process, left, top = start_with_new_document(desktop)
    picture = BLANK
    for stroke in STROKES:
        paint_and_wait(desktop, left, top, stroke)
        picture = with_stroke(picture, stroke)
    end(process)
    return picture


def kill(desktop):
    """Ends it when the last state is whole."""
    def end(process):
        wait_for(lambda: all(is_whole_bmp(path) for path in desktop.state_files()), "the states are written")
        desktop.signal_stop(process)
    return end


def open_what_was_left(desktop, picture):
    """Starts again and says yes; gives the process."""
    process = start_without_document(desktop)
    desktop.wait_for_window(QUESTION)
    desktop.keys("Return")
    desktop.wait_for_picture(picture)
    return process


def kept(desktop):
    return sorted((desktop.folder / "state").glob("Pintalux64/*"))


@desktop_test
def AKilledRunComesBackWithItsUndoHistory(desktop):
    picture = left_by(desktop, kill(desktop))
    process = open_what_was_left(desktop, picture)
    desktop.keys("ctrl+d")
    desktop.wait_for_picture(with_stroke(BLANK, STROKES[0]))
    desktop.keys("ctrl+d")
    desktop.wait_for_picture(BLANK)
    desktop.menu("e", "Return")  # redo
    desktop.wait_for_picture(with_stroke(BLANK, STROKES[0]))
    leave(desktop)
    desktop.wait_for_window(QUESTION)
    desktop.keys("n")
    assert desktop.wait_for_end(process) == 0
    assert kept(desktop) == [] and desktop.state_files() == []


@desktop_test
def NoKeepsWhatWasLeftAndDeletingAsksTwice(desktop):
    left_by(desktop, kill(desktop))
    process = start_without_document(desktop)
    desktop.wait_for_window(QUESTION)
    desktop.keys("n")
    desktop.wait_until_gone(QUESTION)
    leave(desktop)
    assert desktop.wait_for_end(process) == 0
    assert len(desktop.state_files()) == 3
    process = start_without_document(desktop)
    first = desktop.wait_for_window(QUESTION)
    desktop.keys("a")
    wait_for(lambda: desktop.window(QUESTION) not in (None, first), "the second question follows")
    desktop.wait_for_window(QUESTION)
    desktop.keys("a")
    wait_for(lambda: desktop.state_files() == [], "the states go")
    leave(desktop)
    assert desktop.wait_for_end(process) == 0
    assert kept(desktop) == []


@desktop_test
def ATerminatedRunLosesNothing(desktop):
    def terminate(process):
        process.send_signal(signal.SIGTERM)
        assert desktop.wait_for_end(process) == -signal.SIGTERM
        assert all(is_whole_bmp(path) for path in desktop.state_files())
    picture = left_by(desktop, terminate)
    process = open_what_was_left(desktop, picture)
    assert process.poll() is None


@desktop_test
def AFaultWaitsForTheStateOnItsWay(desktop):
    def crash(process):
        process.send_signal(signal.SIGSEGV)
        assert desktop.wait_for_end(process) == -signal.SIGSEGV
        assert all(is_whole_bmp(path) for path in desktop.state_files())
    picture = left_by(desktop, crash)
    open_what_was_left(desktop, picture)


@desktop_test
def ACleanEndLeavesNothingToAskAbout(desktop):
    def finish(process):
        leave(desktop)
        desktop.wait_for_window(QUESTION)
        desktop.keys("n")
        assert desktop.wait_for_end(process) == 0
    left_by(desktop, finish)
    assert kept(desktop) == [] and desktop.state_files() == []
    process = start_without_document(desktop)
    leave(desktop)
    assert desktop.wait_for_end(process) == 0
