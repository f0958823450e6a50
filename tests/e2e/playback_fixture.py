"""What the playback tests and benchmarks share: scripts built from steps,
Klickwerk started on such a script with a probe window as the target, the
main window's controls and panels read through kwdriver, and the probe's
log read back as key, character and mouse events."""
import re
import time
from pathlib import Path

from harness import WineTestCase, file_bytes, read_ini, win_path
from test_startup import SETTLED, script_bytes
from wine_session import POLL_SECONDS, wait_until

SCRIPT_NAME = "play.kwf"
NO_SWITCHES = ()
NO_START = ("/nostart", "/norep")

# Below the main window, which is centred on the 1280 x 1024 screen: clicks
# at the probe's positions must land on the probe.
PROBE_RECT = (20, 750, 1240, 250)


def settings(**changes):
    """The settled settings of a program run before, with some changed."""
    unknown = set(changes) - {key for key, _ in SETTLED}
    if unknown:
        raise ValueError(f"no such settings: {sorted(unknown)}")
    return [(key, str(changes.get(key, value))) for key, value in SETTLED]


def step(x=-1, y=-1, button="No Click", keys="", mins=0, secs=0, repeat=0, checked=True):
    """One step as its cells: X, Y, Button, Additional, Mins, Secs, Repeat."""
    return (checked, [str(x), str(y), button, keys, str(mins), str(secs), str(repeat)])


def script_lines(steps):
    return [f"{'True' if checked else 'False'}|||{number}||" + "||".join(cells)
            for number, (checked, cells) in enumerate(steps, 1)]


class ProbeEvents:
    """The probe's log as events: ("down"|"up", vk), ("char", code) and
    ("ldown"|..., screen x, screen y), each with the probe's tick count."""

    KEY = re.compile(r"^(?:sys)?key (down|up) vk=(\d+) .* t=(\d+)$")
    CHAR = re.compile(r"^(?:sys)?char (\d+)\b.* t=(\d+)$")
    MOUSE = re.compile(r"^mouse (\w+) x=-?\d+ y=-?\d+ sx=(-?\d+) sy=(-?\d+) t=(\d+)$")

    def __init__(self, log):
        self.log = Path(log)

    def lines(self):
        return self.log.read_text(errors="replace").splitlines() if self.log.exists() else []

    def timed(self):
        """Every key, character and mouse event with its tick count."""
        found = []
        for line in self.lines():
            if match := self.KEY.match(line):
                found.append(((match[1], int(match[2])), int(match[3])))
            elif match := self.CHAR.match(line):
                found.append((("char", int(match[1])), int(match[2])))
            elif match := self.MOUSE.match(line):
                found.append(((match[1], int(match[2]), int(match[3])), int(match[4])))
        return found

    def events(self, kinds=None):
        return [event for event, _ in self.timed() if kinds is None or event[0] in kinds]

    def keys(self):
        return self.events({"down", "up"})

    def text(self):
        """The characters the probe received, as a string."""
        return "".join(chr(code) for _, code in self.events({"char"}))

    def tail(self, size=512):
        """The log's last bytes as text: logs of long texts are big."""
        if not self.log.exists():
            return ""
        with open(self.log, "rb") as log:
            log.seek(max(0, log.seek(0, 2) - size))
            return log.read().decode(errors="replace")

    def clicks(self):
        """Button events without the moves."""
        return [event for event in self.events() if event[0] not in ("down", "up", "char", "move")]


class PlaybackTestCase(WineTestCase):
    """Klickwerk on a script of steps, observed through kwdriver and a probe."""

    def open_script(self, steps, switches=NO_START, working_copy=False, **setting_changes):
        """Starts Klickwerk on the script, named on the command line with the
        switches, or as the working copy without a command line; returns
        the main window once the grid holds every step."""
        data = script_bytes(script_lines(steps))
        files = {"Data.dat": data} if working_copy else {f"Scripts/{SCRIPT_NAME}": data}
        self.folder = self.make_program_folder(f"program-{len(self.started)}", settings(**setting_changes), files)
        arguments = [] if working_copy else [win_path(self.folder / "Scripts" / SCRIPT_NAME), *switches]
        self.klickwerk = self.start_klickwerk(self.folder, *arguments)
        self.main = self.wait_for_main_window()
        self.wait_for_grid_rows(self.main, len(steps))
        return self.main

    def open_probe(self, title="Klickwerk Probe", rect=PROBE_RECT):
        """A probe window as the target of keys and clicks."""
        log, probe = self.start_probe(title, rect=rect)
        return ProbeEvents(log), probe

    def give_focus(self, title):
        """Makes the window the foreground window, where the program's keys
        go, and gives it the X input focus, through which X keys (the stop
        key, the hot keys) reach Wine at all."""
        self.driver("foreground", title)
        self.focus(title)

    # The main window ---------------------------------------------------------

    def controls(self):
        return self.driver("controls", self.main["target"])

    def button(self, caption):
        return next(control for control in self.controls()
                    if control["class"] == "Button" and control["text"] == caption)

    def cells(self, column):
        """One column of the grid, rows in order (1 X, 2 Y, ... 7 Repeat)."""
        return [row["cells"][column] for row in self.grid(self.main)["rows"]]

    def panels(self):
        """Status-bar panels 1 to 6 as a list indexed from 0."""
        return self.driver("status", self.main["target"])["panels"]

    def press(self, caption):
        self.driver("click", self.main["target"], caption)

    def running(self):
        return not self.button("Start")["enabled"]

    def start_run(self):
        """Presses Start and waits until the run has locked the window."""
        self.press("Start")
        wait_until(self.running, 20, "the run to lock the window")

    def wait_for_steps(self, count, timeout=30):
        """Waits until the step counter reads `count` and the run is over."""
        return wait_until(lambda: self.panels()[4] == str(count) and not self.running(), timeout,
                          f"a finished run with the step counter at {count}")

    def wait_for_idle(self, timeout=20):
        wait_until(lambda: not self.running(), timeout, "the run to end")

    def move_pointer(self, x, y):
        """Moves the X pointer and waits until it is there ("mousemove --sync"
        waits for a motion that never comes when it is there already)."""
        self.xdotool("mousemove", str(x), str(y))
        wait_until(lambda: self.xdotool("getmouselocation").startswith(f"x:{x} y:{y} "), 20, f"the pointer at {x},{y}")

    def hold_key(self, key, until, what, timeout=20):
        """Holds an X key down until `until()` is true: a polled stop or hot
        key is seen however long the program takes to look."""
        self.xdotool("keydown", key)
        try:
            return wait_until(until, timeout, what)
        finally:
            self.xdotool("keyup", key)

    def assert_holds(self, condition, seconds, what):
        """Watches a condition for a span of time: for what must not happen
        while something else (a pause, a wait) lasts."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            self.assertTrue(condition(), what)
            time.sleep(POLL_SECONDS)

    def end_klickwerk(self):
        """Ends the program at once, as a crash would: for tests that start it
        again in a fresh folder."""
        self.klickwerk.kill()
        self.klickwerk.wait()
        wait_until(lambda: not self.main_windows(), 20, "the main window gone")

    def setting(self, key):
        return dict(read_ini(self.folder / "Settings.ini"))[key]

    def error_log(self):
        return file_bytes(self.folder / "Error.log").decode("latin-1")
