"""A Wayland desktop: a compositor of its own, shown in a window of the test's display so that the hand and the eye reach it,
or without any display."""
import subprocess

from desktop import PATIENCE, desktop_test, wait_for
from pictures import read_bmp, write_bmp
from roads import sample, with_stroke

SOCKET = "wayland-test"


def start_session(desktop, backend, *options):
    """A compositor; programs that start from now on know it and no X display. Gives what to wait for before the end."""
    # A pointer that is inside from the beginning is taken to be at the corner: it comes in later.
    if backend == "x11":
        desktop.move(0, 0)
    server = desktop._spawn("weston", f"--backend={backend}-backend.so", "--use-pixman", "--width=1240", "--height=960",
                            f"--socket={SOCKET}", "--no-config", "--idle-time=0", *options, log="weston.log")
    wait_for(lambda: (desktop.run_folder / SOCKET).exists(), "the compositor runs")
    return server


def start_program(desktop, *arguments):
    """The program as a Wayland desktop starts it."""
    environment = {name: value for name, value in desktop.environment.items() if name != "DISPLAY"}
    environment["WAYLAND_DISPLAY"] = SOCKET
    with open(desktop.folder / "program.log", "ab") as messages:
        process = subprocess.Popen([str(desktop.program), *map(str, arguments)], env=environment, cwd=desktop.pictures,
                                   stdin=subprocess.DEVNULL, stdout=messages, stderr=messages)
    desktop.processes.append(process)
    return process


def words_of_the_program(desktop):
    return (desktop.folder / "program.log").read_text()


@desktop_test
def InAWaylandSessionTheHandPaintsAndUndoesAndTheProgramEnds(desktop):
    start_session(desktop, "x11")
    write_bmp(desktop.pictures / "picture.bmp", sample())
    desktop.large_window_settings(MainWidth=15000, MainHeight=11000)
    process = start_program(desktop, desktop.pictures / "picture.bmp")
    left, top = desktop.wait_for_picture(sample())
    wait_for(lambda: len(desktop.state_files()) == 1, "the picture is the first state")
    stroke = [(40, 30), (90, 30), (90, 70)]
    # The compositor draws the pointer into the picture, so that the pen is seen only once it has left.
    desktop.move(left + stroke[0][0], top + stroke[0][1])
    desktop.press()
    for x, y in stroke[1:]:
        desktop.move(left + x, top + y)
    desktop.release()
    desktop.move(left + 300, top + 300)
    wait_for(lambda: len(desktop.state_files()) == 2, "the stroke is a state")
    desktop.wait_for_picture(with_stroke(sample(), stroke))
    desktop.keys("ctrl+d")
    desktop.wait_for_picture(sample())
    desktop.menu("f", "Up", "Return")
    assert desktop.wait_for_end(process) == 0
    assert desktop.setting("MainLeft") == "300" and desktop.setting("MainTop") == "300", \
        "the place on X11 is kept, as Wayland tells of none"
    assert words_of_the_program(desktop) == ""


@desktop_test
def InAWaylandSessionASecondInstanceHandsItsFileOver(desktop):
    start_session(desktop, "x11")
    write_bmp(desktop.pictures / "first.bmp", sample())
    write_bmp(desktop.pictures / "second.bmp", sample(100, 80, seed=77))
    desktop.large_window_settings(MainWidth=15000, MainHeight=11000)
    start_program(desktop, desktop.pictures / "first.bmp")
    desktop.wait_for_picture(sample())
    assert desktop.wait_for_end(start_program(desktop, desktop.pictures / "second.bmp")) == 0
    desktop.wait_for_picture(sample(100, 80, seed=77))
    assert words_of_the_program(desktop) == ""


@desktop_test
def WithoutAnyDisplayAWaylandCompositorShowsThePicture(desktop):
    del desktop.environment["DISPLAY"]
    start_session(desktop, "headless", "--debug")
    write_bmp(desktop.pictures / "picture.bmp", sample())
    desktop.large_window_settings(MainWidth=15000, MainHeight=11000)
    start_program(desktop, desktop.pictures / "picture.bmp")

    def seen():
        subprocess.run(["weston-screenshooter"], env={**desktop.environment, "WAYLAND_DISPLAY": SOCKET}, cwd=desktop.folder,
                       check=True, capture_output=True, timeout=PATIENCE)
        shot = max(desktop.folder.glob("wayland-screenshot-*.png"), key=lambda path: path.stat().st_mtime_ns)
        subprocess.run(["convert", shot, "-type", "TrueColor", f"BMP3:{desktop.folder / 'shot.bmp'}"], check=True)
        return read_bmp(desktop.folder / "shot.bmp").find(sample())
    wait_for(seen, "the picture is seen on the compositor's screen")
    assert words_of_the_program(desktop) == ""
