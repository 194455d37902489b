"""A log-out that asks, one that may not, and the signals."""
import signal
import subprocess
import sys
from pathlib import Path

from desktop import desktop_test, wait_for
from pictures import Picture, expect_same, is_whole_bmp, read_bmp, write_bmp
from roads import (QUESTION, WHITE, paint_and_wait, sample, start_with_new_document, start_with_picture, start_without_document,
                   with_stroke)

STROKE = [(40, 30), (90, 30)]


class SessionManager:
    """The desktop's session manager: a program of its own that programs started from now on find."""

    def __init__(self, desktop):
        program = Path(__file__).with_name("session_manager.py")
        self.log = desktop.folder / "session.log"
        with open(self.log, "wb") as said:
            self.process = subprocess.Popen([sys.executable, program], env=desktop.environment, stdin=subprocess.PIPE,
                                            stdout=said, stderr=said)
        desktop.processes.append(self.process)
        desktop.environment["SESSION_MANAGER"] = wait_for(lambda: self.said()[:1], "the manager of the log-outs runs")[0]

    def said(self):
        return self.log.read_text().splitlines()

    def wait_until_said(self, *words):
        wait_for(lambda: tuple(self.said()[1:]) == words, f"the manager heard {words}")

    def tell(self, command):
        self.process.stdin.write(command.encode() + b"\n")
        self.process.stdin.flush()


def start_in_session(desktop):
    """A painted picture from a file; gives the manager of the log-outs, the program and the file."""
    manager = SessionManager(desktop)
    path = desktop.pictures / "picture.bmp"
    write_bmp(path, sample())
    process, left, top = start_with_picture(desktop, path, sample())
    manager.wait_until_said("registered")
    paint_and_wait(desktop, left, top, STROKE)
    return manager, process, path, (left, top)


def kept(desktop):
    return sorted((desktop.folder / "state").glob("Pintalux64/*"))


@desktop_test
def ALogOutAsksSavesAndEnds(desktop):
    manager, process, path, _ = start_in_session(desktop)
    manager.tell("logout")
    desktop.wait_for_window(QUESTION)
    desktop.keys("s")
    manager.wait_until_said("registered", "asks", "done asking", "saved")
    expect_same(read_bmp(path), with_stroke(sample(), STROKE))
    assert process.poll() is None, "others may still call the log-out off"
    manager.tell("die")
    assert desktop.wait_for_end(process) == 0
    assert kept(desktop) == [] and desktop.state_files() == []


@desktop_test
def CancelAtTheQuestionKeepsTheSession(desktop):
    manager, process, _, (left, top) = start_in_session(desktop)
    manager.tell("logout")
    desktop.wait_for_window(QUESTION)
    desktop.keys("Escape")
    wait_for(lambda: "cancels the log-out" in manager.said(), "the log-out is called off")
    desktop.wait_until_gone(QUESTION)
    paint_and_wait(desktop, left, top, [(40, 60), (90, 60)])
    assert process.poll() is None


@desktop_test
def ALogOutThatMayNotAskLosesNothing(desktop):
    manager, process, path, _ = start_in_session(desktop)
    manager.tell("logout silently")
    manager.wait_until_said("registered", "saved")
    assert desktop.window(QUESTION) is None
    assert all(is_whole_bmp(state) for state in desktop.state_files())
    manager.tell("die")
    assert desktop.wait_for_end(process) == 0
    expect_same(read_bmp(path), sample())
    start_without_document(desktop)
    desktop.wait_for_window(QUESTION)
    desktop.keys("Return")
    desktop.wait_for_picture(with_stroke(sample(), STROKE))


def loses_nothing_by(desktop, number):
    process, left, top = start_with_new_document(desktop)
    paint_and_wait(desktop, left, top, STROKE)
    process.send_signal(number)
    assert desktop.wait_for_end(process) == -number
    assert all(is_whole_bmp(state) for state in desktop.state_files())
    start_without_document(desktop)
    desktop.wait_for_window(QUESTION)
    desktop.keys("Return")
    desktop.wait_for_picture(with_stroke(Picture.filled(300, 300, WHITE), STROKE))


@desktop_test
def AHangUpLosesNothing(desktop):
    loses_nothing_by(desktop, signal.SIGHUP)


@desktop_test
def AnInterruptFromTheTerminalLosesNothing(desktop):
    loses_nothing_by(desktop, signal.SIGINT)
