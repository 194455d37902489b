"""What the next start finds again."""
from desktop import desktop_test, wait_for
from roads import MAIN, NEW, leave


def start_and_cancel(desktop):
    process = desktop.start()
    desktop.wait_for_window(NEW)
    desktop.keys("Escape")
    desktop.wait_until_gone(NEW)
    return process, desktop.wait_for_window(MAIN)


@desktop_test
def WindowPlaceSurvivesARestart(desktop):
    desktop.large_window_settings()
    process, window = start_and_cancel(desktop)
    desktop.tool("xdotool", "windowmove", "--sync", window, 200, 150)
    desktop.tool("xdotool", "windowsize", "--sync", window, 700, 500)
    before = desktop.geometry(window)
    leave(desktop)
    assert desktop.wait_for_end(process) == 0
    process, window = start_and_cancel(desktop)
    wait_for(lambda: desktop.geometry(window) == before, f"the window is at {before} again, not {desktop.geometry(window)}")
    leave(desktop)
    assert desktop.wait_for_end(process) == 0


@desktop_test
def ViewsSurviveARestart(desktop):
    desktop.large_window_settings()
    process, _ = start_and_cancel(desktop)
    desktop.menu("v", "Down", "Return")
    desktop.menu("v", "Down", "Down", "Down", "Return")
    leave(desktop)
    assert desktop.wait_for_end(process) == 0
    views = ["Toolbar", "ColorBox", "SettingsBar", "Rulers"]
    assert [desktop.setting(key) for key in views] == ["True", "False", "True", "True"]
    process, _ = start_and_cancel(desktop)
    leave(desktop)
    assert desktop.wait_for_end(process) == 0
    assert [desktop.setting(key) for key in views] == ["True", "False", "True", "True"], "the second run took them over"


@desktop_test
def PreferencesSurviveARestart(desktop):
    desktop.large_window_settings(SavePrompt=0)
    process, _ = start_and_cancel(desktop)
    change_last_check_box(desktop)
    assert desktop.setting("SavePrompt") == "1", f"it is {desktop.setting('SavePrompt')}"
    leave(desktop)
    assert desktop.wait_for_end(process) == 0
    process, _ = start_and_cancel(desktop)
    change_last_check_box(desktop)
    assert desktop.setting("SavePrompt") == "0", "the dialog began with what was stored"


def change_last_check_box(desktop):
    """Turns the last check box of the first tab of the Preferences over and presses OK."""
    desktop.menu("f", "Up", "Up", "Return")
    desktop.wait_for_window("Preferências")
    desktop.keys("Tab", "Tab", "Tab", "Tab", "space", "Return")
    desktop.wait_until_gone("Preferências")
