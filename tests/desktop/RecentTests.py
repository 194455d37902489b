"""The last files at the end of the file menu, over restarts and after one of them is gone."""
from desktop import desktop_test, wait_for
from pictures import write_bmp
from roads import MAIN, OPEN, QUESTION, give_path, leave, sample, start_with_picture, start_without_document


def pictures(desktop, names):
    """Opens pictures of these names one after the other and ends the program; gives the pictures."""
    made = {name: sample(120, 90, seed=31 * i) for i, name in enumerate(names)}
    for name, picture in made.items():
        write_bmp(desktop.pictures / name, picture)
    process = start_with_picture(desktop, desktop.pictures / names[0], made[names[0]])[0]
    for name in names[1:]:
        desktop.wait_for_window(MAIN)
        desktop.keys("ctrl+o")
        give_path(desktop, OPEN, desktop.pictures / name)
        desktop.wait_for_picture(made[name])
    leave(desktop)
    assert desktop.wait_for_end(process) == 0
    return made


def start_again(desktop):
    process = start_without_document(desktop)
    desktop.wait_for_window(MAIN)
    return process


def choose(desktop, place, length):
    """The file of a place, from 0, in a list of this length. Below the list lies the exit alone."""
    desktop.menu("f", *["Up"] * (length - place + 1), "Return")


def expect_length(desktop, length):
    """Above the list lie the Preferences."""
    desktop.menu("f", *["Up"] * (length + 2), "Return")
    desktop.wait_for_window("Preferências")
    desktop.keys("Escape")
    desktop.wait_until_gone("Preferências")
    desktop.wait_for_window(MAIN)


@desktop_test
def RecentFilesSurviveARestart(desktop):
    made = pictures(desktop, ["a.bmp", "b & c.bmp", "d.bmp"])
    process = start_again(desktop)
    expect_length(desktop, 3)
    choose(desktop, 1, 3)
    desktop.wait_for_picture(made["b & c.bmp"])
    desktop.wait_for_window(MAIN)
    choose(desktop, 2, 3)  # the list has not changed
    desktop.wait_for_picture(made["a.bmp"])
    leave(desktop)
    assert desktop.wait_for_end(process) == 0


@desktop_test
def AVanishedFileIsToldTwiceAndLeavesTheList(desktop):
    made = pictures(desktop, ["a.bmp", "b.bmp", "c.bmp"])
    process = start_again(desktop)
    (desktop.pictures / "b.bmp").unlink()
    choose(desktop, 1, 3)
    for _ in range(2):
        box = desktop.wait_for_window(QUESTION)
        desktop.keys("Return")
        wait_for(lambda: box not in [number for number, _ in desktop.windows()], "the message is gone")
    desktop.wait_for_window(MAIN)
    assert not desktop.state_files(), "nothing was opened"
    expect_length(desktop, 2)
    choose(desktop, 1, 2)
    desktop.wait_for_picture(made["a.bmp"])
    leave(desktop)
    assert desktop.wait_for_end(process) == 0
    process = start_again(desktop)
    expect_length(desktop, 2)
    choose(desktop, 0, 2)
    desktop.wait_for_picture(made["c.bmp"])
    assert process.poll() is None


@desktop_test
def AFileThatWentBetweenTwoRunsIsNotInTheList(desktop):
    made = pictures(desktop, ["a.bmp", "b.bmp", "c.bmp", "d.bmp"])
    (desktop.pictures / "b.bmp").unlink()
    process = start_again(desktop)
    expect_length(desktop, 3)
    choose(desktop, 2, 3)
    desktop.wait_for_picture(made["a.bmp"])
    assert process.poll() is None
