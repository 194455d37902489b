"""What a screen reader hears, asked from outside over the accessibility bus: every control has a name and a role, what has a
value tells it, the tools are one group of which one is chosen, and swatches are pressed."""
import os
import subprocess

from desktop import Skip, desktop_test, wait_for
from roads import BROWSER, MAIN, NEW, start_bus

# A program of its own: it lives on the test's own desktop, and the bus's library keeps one connection for each process.
WALK = r"""
import sys, time
try:
    import gi
    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi
except (ImportError, ValueError) as reason:
    print("skip", reason)
    sys.exit()

what = sys.argv[1]
PASSIVE = {"filler", "panel", "scroll pane", "viewport", "layered pane", "separator", "split pane", "unknown", "tool bar",
           "grouping", "window", "desktop frame", "table", "tree", "list", "html container", "document frame", "status bar",
           "root pane", "glass pane", "internal frame", "menu bar", "page tab list"}
VALUED = {"slider", "scroll bar", "progress bar", "spin button"}

def program():
    for _ in range(200):
        desktop = Atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            application = desktop.get_child_at_index(i)
            if application and "pintalux" in (application.get_name() or "").lower():
                return application
        time.sleep(0.1)
    sys.exit("the program is not on the bus")

def walk(node, path=()):
    if node is None:
        return
    role = node.get_role_name()
    here = path + (f"{role} {node.get_name()!r}",)
    yield node, role, here
    # A menu's items do not show until it opens; everything else counts as it shows.
    for i in range(node.get_child_count()):
        yield from walk(node.get_child_at_index(i), here)

def shows(node, role):
    states = node.get_state_set()
    return states.contains(Atspi.StateType.VISIBLE) or "menu" in role

def check(application):
    count = 0
    for node, role, path in walk(application):
        if not shows(node, role):
            continue
        count += 1
        where = " > ".join(path)
        if role in ("invalid", ""):
            print("no role:", where)
        focusable = node.get_state_set().contains(Atspi.StateType.FOCUSABLE)
        # The place of the recent files while there are none.
        if role == "menu item" and not node.get_name() and "'Ficheiro'" in where and node.get_index_in_parent() > 10:
            continue
        if (role not in PASSIVE or focusable) and not (node.get_name() or "").strip() and role != "separator":
            print("no name:", where)
        if role in VALUED:
            value = node.get_value_iface()
            if value is None or not value.get_minimum_value() <= value.get_current_value() <= value.get_maximum_value():
                print("no value:", where)
    print("seen", count)

def named(application, name, role=None):
    return [node for node, its, _ in walk(application) if node.get_name() == name and (role is None or its == role)]

application = program()
if what == "check":
    check(application)
if what == "list":
    for node, role, path in walk(application):
        print(len(path) * " ", role, repr(node.get_name()), repr(node.get_description()))
if what == "tools":
    bar = named(application, "Caixa de ferramentas", "tool bar")[0]
    for i in range(bar.get_child_count()):
        tool = bar.get_child_at_index(i)
        chosen = tool.get_state_set().contains(Atspi.StateType.CHECKED)
        print(tool.get_role_name() + "|" + tool.get_name() + "|" + tool.get_description() + "|" + ("chosen" if chosen else ""))
if what == "press":
    node = named(application, sys.argv[2], "push button")[0]
    action = node.get_action_iface()
    print([Atspi.Action.get_action_name(action, i) for i in range(action.get_n_actions())])
    action.do_action(0)
"""


class Bus:
    """A bus of its own with the accessibility bus on it, for one desktop."""

    def __init__(self, desktop):
        self.desktop = desktop
        desktop.environment.update(QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", GTK_A11Y="none", NO_AT_BRIDGE="1")
        start_bus(desktop)

    def ask(self, *words):
        result = subprocess.run(["/usr/bin/python3", "-c", WALK, *words], env=self.desktop.environment, text=True, capture_output=True,
                                timeout=120)
        assert result.returncode == 0, result.stderr or result.stdout
        lines = result.stdout.splitlines()
        if lines and lines[0].startswith("skip"):
            raise Skip(lines[0])
        return lines


def expect_all_named(bus, where):
    lines = bus.ask("check")
    assert lines and lines[-1].startswith("seen") and int(lines[-1].split()[1]) > 5, f"{where}: {lines}"
    assert len(lines) == 1, f"{where}:\n" + "\n".join(lines)


def start(desktop):
    bus = Bus(desktop)
    desktop.large_window_settings()
    desktop.start()
    desktop.wait_for_window(NEW)
    return bus


@desktop_test
def EveryControlOfTheMainWindowHasANameARoleAndItsValue(desktop):
    bus = start(desktop)
    expect_all_named(bus, "the New dialog")
    desktop.keys("Return")
    desktop.wait_until_gone(NEW)
    desktop.wait_for_window(MAIN)
    expect_all_named(bus, "the main window")
    # Each page of the tool settings, opened by its tool.
    for letter in "cfsv":
        desktop.keys(letter)
        expect_all_named(bus, f"the page of {letter}")


@desktop_test
def EveryControlOfTheDialogsHasANameARoleAndItsValue(desktop):
    bus = start(desktop)
    desktop.keys("Return")
    desktop.wait_until_gone(NEW)
    desktop.wait_for_window(MAIN)
    dialogs = {"Propriedades": ("i", "Return"), "Redimensionar": ("i", *["Down"] * 6, "Return"),
               "Inserir": ("i", *["Down"] * 7, "Return"), "Molduras": ("i", *["Down"] * 8, "Return"),
               "Filtros": ("i", "Up", "Up", "Up", "Return"), "Preferências": ("f", "Up", "Up", "Return")}
    for name, (letter, *keys) in dialogs.items():
        before = len(desktop.windows())
        desktop.menu(letter, *keys)
        wait_for(lambda: len(desktop.windows()) == before + 1, f"the dialog {name} shows")
        expect_all_named(bus, f"{name}: {desktop.windows()[-1][1]}")
        if name == "Preferências":
            for _ in range(2):
                desktop.keys("ctrl+Tab")
                expect_all_named(bus, "a page of the Preferences")
        desktop.keys("Escape")
        wait_for(lambda: len(desktop.windows()) == before, f"Escape closes {name}")
    desktop.keys("t")
    wait_for(lambda: len(desktop.windows()) == 2, "the text dialog shows")
    expect_all_named(bus, "the text dialog")
    desktop.keys("Escape")
    wait_for(lambda: len(desktop.windows()) == 1, "Escape closes the text dialog")
    desktop.keys("F1")
    wait_for(lambda: len(desktop.windows()) == 2, "the help shows")
    expect_all_named(bus, "the help")


@desktop_test
def TheToolsAreSpokenAsOneGroupOfWhichOneIsChosen(desktop):
    bus = start(desktop)
    desktop.keys("Return")
    desktop.wait_until_gone(NEW)
    desktop.wait_for_window(MAIN)
    buttons = [line.split("|") for line in bus.ask("tools")]
    assert buttons[0][:3] == ["push button", "Novo", "Apontador - não faz selecção."], buttons[0]
    tools = [button for button in buttons if button[0] == "radio button"]
    assert [tool[1] for tool in tools] == [
        "Apontador", "Selecção rectangular", "Selecção à mão livre", "Caneta", "Borracha", "Encher", "Linha", "Linha poligonal",
        "Formas", "Alterar cores", "Escolher cor", "Lupa", "Texto"], tools
    assert [tool[1] for tool in tools if tool[3]] == ["Caneta"], tools
    desktop.keys("b")
    chosen = [line for line in bus.ask("tools") if line.endswith("chosen")]
    assert [line.split("|")[1] for line in chosen] == ["Borracha"], chosen


@desktop_test
def ASwatchIsPressedByAScreenReader(desktop):
    bus = start(desktop)
    desktop.keys("Return")
    desktop.wait_until_gone(NEW)
    desktop.wait_for_window(MAIN)
    bus.ask("press", "Branco")
    wait_for(lambda: any("RGB: 255, 255, 255" in line for line in bus.ask("list")), "the readout says white")
