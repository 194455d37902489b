"""A desktop of its own for each test: display, window manager, folders; and the hand and eye that use the program there."""
import os
import shutil
import signal
import subprocess
import tempfile
import time
from pathlib import Path

from pictures import photograph

PATIENCE = 20  # seconds until something that should happen counts as failed
SETTINGS_GROUP = "[Pintalux64\\Settings]"
# Without mouse bindings: for those the window manager holds back each press until it has seen it itself, and a pointer that
# is moved on in the meantime takes the press along, to where it does not belong.
WINDOW_MANAGER_RULES = """<?xml version="1.0"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <theme><name>Clearlooks</name></theme>
  <keyboard><keybind key="A-F4"><action name="Close"/></keybind></keyboard>
  <mouse/>
</openbox_config>
"""

tests = []


def desktop_test(function):
    """Marks a test: a function that takes a `Desktop` and raises when something is wrong."""
    tests.append(function)
    return function


def wait_for(condition, what, seconds=PATIENCE):
    """The first true result of the condition, asked again and again."""
    end = time.monotonic() + seconds
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > end:
            raise AssertionError(f"{what}: not within {seconds} s")
        time.sleep(0.02)


def end(process):
    """Asks a process to end, so that a display takes its lock away; then makes it end."""
    process.terminate()
    try:
        process.wait(timeout=5)
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()


class Skip(Exception):
    """What a test needs is not there; the text says what."""


class Desktop:
    def __init__(self, program, places_program):
        self.built_program = program
        self.places_program = places_program
        self.processes = []

    def __enter__(self):
        self.folder = Path(tempfile.mkdtemp(prefix="pintalux-desktop-"))
        for name in ("home", "config", "data", "state", "cache", "runtime", "temporary", "program", "pictures"):
            (self.folder / name).mkdir(mode=0o700)
        self.temporary = self.folder / "temporary"
        self.pictures = self.folder / "pictures"
        self.run_folder = self.folder / "runtime"  # where the instances of a user meet
        self.settings_file = self.folder / "config" / "Pintalux64" / "settings.ini"
        # The program keeps files beside itself where it may, so each test has a copy of it.
        self.program = self.folder / "program" / "pintalux64"
        shutil.copy(self.built_program, self.program)
        self.environment = {
            "PATH": os.environ["PATH"],
            "LC_ALL": "C.UTF-8",
            "HOME": str(self.folder / "home"),
            "XDG_CONFIG_HOME": str(self.folder / "config"),
            "XDG_DATA_HOME": str(self.folder / "data"),
            "XDG_STATE_HOME": str(self.folder / "state"),
            "XDG_CACHE_HOME": str(self.folder / "cache"),
            "XDG_RUNTIME_DIR": str(self.folder / "runtime"),
            "TMPDIR": str(self.temporary),
            "DBUS_SESSION_BUS_ADDRESS": "disabled:",  # or the toolkit starts one for each test
        }
        try:
            self._start_display()
        except BaseException:
            print(self.messages())
            self.__exit__(None, None, None)
            raise
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            end(process)
        shutil.rmtree(self.folder, ignore_errors=True)

    def _spawn(self, *command, log, **options):
        with open(self.folder / log, "ab") as messages:
            process = subprocess.Popen([str(part) for part in command], env=self.environment, cwd=self.pictures,
                                       stdin=subprocess.DEVNULL, stdout=messages, stderr=messages, **options)
        self.processes.append(process)
        return process

    def _start_display(self):
        read_end, write_end = os.pipe()
        server = self._spawn("Xvfb", "-displayfd", write_end, "-screen", "0", "1280x1024x24", "-nolisten", "tcp", "-noreset",
                             log="display.log", pass_fds=[write_end])
        os.close(write_end)
        with os.fdopen(read_end) as number:
            self.environment["DISPLAY"] = ":" + number.readline().strip()
        assert server.poll() is None and self.environment["DISPLAY"] != ":", "Xvfb does not start"
        rules = self.folder / "openbox.xml"
        rules.write_text(WINDOW_MANAGER_RULES)
        self._spawn("openbox", "--sm-disable", "--config-file", rules, log="openbox.log")
        wait_for(lambda: "window id" in self.tool("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"), "openbox runs")

    def tool(self, *command, check=True):
        """Runs a command to its end; gives what it prints."""
        return subprocess.run([str(part) for part in command], env=self.environment, check=check, text=True,
                              capture_output=True, timeout=PATIENCE).stdout

    # The program.

    def start(self, *arguments):
        """Starts the program with these arguments and does not wait for it."""
        return self._spawn(self.program, *arguments, log="program.log")

    def wait_for_end(self, process):
        """The code with which the program ends."""
        wait_for(lambda: process.poll() is not None, "the program ends")
        return process.returncode

    def messages(self):
        """What the display, the window manager and the program have written."""
        return "".join(log.read_text(errors="replace") for log in sorted(self.folder.glob("*.log")))

    def write_settings(self, **values):
        self.settings_file.parent.mkdir(mode=0o700, exist_ok=True)
        lines = [SETTINGS_GROUP] + [f"{key}={value}" for key, value in values.items()]
        self.settings_file.write_text("\n".join(lines) + "\n", encoding="utf-8")

    def large_window_settings(self, **values):
        """Settings of a window with room for pictures, without a splash in front of it."""
        self.write_settings(**{"MainLeft": 300, "MainTop": 300, "MainWidth": 18000, "MainHeight": 14000, "ShowSplash": 0,
                               **values})

    def setting(self, key):
        for line in self.settings_file.read_text(encoding="utf-8").splitlines():
            name, _, value = line.partition("=")
            if name.strip() == key:
                return value.strip()
        return None

    def state_files(self):
        return sorted(self.temporary.glob("BI*.tmp"), key=lambda path: path.stat().st_mtime_ns)

    def places(self, *tools):
        """Where the controls of the main window lie once these tools were chosen: left, top, width and height by the name of
        the control, in pixels from the window's inside. The forms of the program itself tell; to be asked before it starts."""
        lines = self.tool(self.places_program, *tools).splitlines()
        return {name: tuple(int(number) for number in numbers) for name, *numbers in map(str.split, lines)}

    # The eye.

    def windows(self):
        """(id, title) of the managed windows, the oldest first."""
        found = []
        for word in self.tool("xprop", "-root", "-notype", "_NET_CLIENT_LIST").replace(",", " ").split():
            if word.startswith("0x"):
                title = self.tool("xdotool", "getwindowname", int(word, 16), check=False).rstrip("\n")
                found.append((int(word, 16), title))
        return found

    def window(self, title):
        """The id of the newest window whose title begins so; None if there is none."""
        return next((number for number, text in reversed(self.windows()) if text.startswith(title)), None)

    def wait_for_window(self, title):
        """Waits until a window whose title begins so is there and takes the keys; gives its id."""
        def shown():
            number = self.window(title)
            active = self.tool("xdotool", "getactivewindow", check=False).strip()
            return number if number is not None and active == str(number) else None
        try:
            return wait_for(shown, f'the window "{title}" has the focus')
        except AssertionError as failure:
            raise AssertionError(f"{failure}; there are {[text for _, text in self.windows()]}") from None

    def wait_until_gone(self, title):
        wait_for(lambda: self.window(title) is None, f'the window "{title}" is gone')

    def geometry(self, window):
        """(x, y, width, height) of a window's inside on the display."""
        text = self.tool("xdotool", "getwindowgeometry", "--shell", window)
        values = dict(line.split("=") for line in text.split())
        return tuple(int(values[name]) for name in ("X", "Y", "WIDTH", "HEIGHT"))

    def photograph(self):
        return photograph(self.environment)

    def wait_for_picture(self, part):
        """Waits until the picture is seen on the display, unscaled; gives its left and top."""
        return wait_for(lambda: self.photograph().find(part), f"a picture of {part.width}x{part.height} pixels is seen")

    def wait_for_pixel(self, x, y, colour):
        def seen():
            return self.photograph().at(x, y) == tuple(colour)
        wait_for(seen, f"the display shows {tuple(colour)} at ({x}, {y})")

    def keep_photograph(self, path):
        path.parent.mkdir(parents=True, exist_ok=True)
        self.tool("import", "-window", "root", path)

    # The hand.

    def keys(self, *names):
        """Presses keys one after the other: "Return", "ctrl+d"."""
        self.tool("xdotool", "key", "--delay", "40", *names)

    def type(self, text):
        """Types ASCII text into what has the focus."""
        self.tool("xdotool", "type", "--delay", "10", text)

    def menu(self, letter, *names):
        """Opens a menu of the menu bar by its letter, then presses keys in it."""
        self.keys("alt+" + letter, *names)

    def move(self, x, y):
        self.tool("xdotool", "mousemove", "--sync", x, y)

    def press(self, button=1):
        self.tool("xdotool", "mousedown", button)

    def release(self, button=1):
        self.tool("xdotool", "mouseup", button)

    def click(self, x, y, button=1):
        self.move(x, y)
        self.press(button)
        self.release(button)

    def double_click(self, x, y):
        self.move(x, y)
        self.tool("xdotool", "click", "--repeat", 2, "--delay", 60, 1)

    def signal_stop(self, process):
        """Ends the program the hardest way, as a crash would."""
        process.send_signal(signal.SIGKILL)
        process.wait()
