"""Runs the real Klickwerk.exe under Wine and observes it from outside, as a
user would: files beside the executable, the probe program's event log, the
controls read by kwdriver.exe, and screenshots.

Every test gets a fresh output folder and program folder and ends with every
Windows process of the prefix killed, pass or fail. Nothing waits a fixed
time: every wait polls a condition until a deadline.
"""
import json
import re
import shutil
import subprocess
import tempfile
import time
import types
import unittest
from pathlib import Path

from wine_session import BUILD_DIR, OUT_DIR, POLL_SECONDS, REPO, TIMEOUT_SCALE, WINE, WinePrefix, session, wait_until

APP_TITLE = "Klickwerk v{}.{}".format(*re.search(r"project\(Klickwerk VERSION (\d+)\.(\d+)",
                                                 (REPO / "CMakeLists.txt").read_text()).groups())
# Files that travel with Klickwerk.exe when they exist, looked up in the
# build tree first and then in the repository.
COMPANION_FILES = ["InHook.dll", "Klickwerk.chm", "DYK.dat", "Scripts"]
# Settings of a program that has been run before; no update reminder because
# an empty "LastCheck" counts as today, no hint frame over the grid.
SETTLED = {"FirstRun": 0, "OnTop": 0, "GRepeat": 0, "SmoothPointer": 0, "ShowCount": 1, "StartMin": 0,
           "WithWindows": 0, "DYK": 0, "Enter4Step": 0, "MouseSaver": 0, "StopKey": 27, "StepCounter": 0,
           "Height": 6610, "RecMode": 0, "AutoStart": 0}
BUTTONS = ["Start", "Stop", "RECORD", "Record options", "Repeat", "?"]
# Below the main window, which is centred on the 1280 x 1024 screen: clicks
# at the probe's positions must land on the probe.
PROBE_RECT = (20, 750, 1240, 250)
MOUSE_BUTTONS = {"ldown", "lup", "ldblclk", "rdown", "rup", "rdblclk", "mdown", "mup", "mdblclk"}
RECORD_NOTICE = "Press {} to stop recording.\r\nPress F11 to create a new step manually.\r\nDo not press F10"
RECORD_DONE = "Recording completed successfully."
VK_ESCAPE = 27


def win_path(path):
    """The Windows name of a Linux path (Wine maps Z: to /)."""
    return "Z:" + str(path).replace("/", "\\")


def centre(rect):
    left, top, right, bottom = rect
    return (left + right) // 2, (top + bottom) // 2


def file_bytes(path):
    """The file's contents; b"" when it does not exist."""
    return Path(path).read_bytes() if Path(path).exists() else b""


def step(x=-1, y=-1, button="No Click", keys="", mins=0, secs=0, repeat=0, checked=True):
    """One step: its check mark and the cells X, Y, Button, Additional, Mins, Secs, Repeat."""
    return checked, [str(x), str(y), button, keys, str(mins), str(secs), str(repeat)]


def script_lines(steps):
    return [f"{checked}|||{number}||" + "||".join(cells) for number, (checked, cells) in enumerate(steps, 1)]


def script_bytes(lines):
    return "".join(line + "\r\n" for line in lines).encode("latin-1")


def install_program(folder):
    """Copies Klickwerk.exe and whichever companion files exist into folder."""
    exe = BUILD_DIR / "Klickwerk.exe"
    if not exe.exists():
        raise AssertionError(f"{exe} is missing: build the Windows targets first")
    shutil.copy2(exe, folder)
    for name in COMPANION_FILES:
        source = next((base / name for base in (BUILD_DIR, REPO) if (base / name).exists()), None)
        if source and source.is_dir():
            shutil.copytree(source, folder / name, dirs_exist_ok=True)
        elif source:
            shutil.copy2(source, folder)


class ProbeEvents:
    """The probe's log as events, each a tuple of the words of its line with
    the numbers as numbers: ("down"|"up", vk), ("char", code), (mouse kind,
    screen x, screen y), ("size", state, width, height), ("moved", x, y),
    ("close",), ("ready", pid, client x, y, width, height)."""

    LINE = re.compile(r"^(.*) t=(\d+)$")

    def __init__(self, log):
        self.log = Path(log)

    def timed(self):
        """Every event with the time the probe received it: microseconds of
        its performance counter, under Wine the host's CLOCK_MONOTONIC_RAW."""
        return self.parse(self.log.read_text(errors="replace").splitlines() if self.log.exists() else [])

    @classmethod
    def parse(cls, lines):
        return [(tuple(int(word) if re.fullmatch(r"-?\d+", word) else word for word in match[1].split()),
                 int(match[2])) for match in map(cls.LINE.match, lines) if match]

    def events(self, *kinds):
        return [event for event, _ in self.timed() if not kinds or event[0] in kinds]

    def keys(self):
        return self.events("down", "up")

    def text(self):
        """The characters the probe received, as a string."""
        return "".join(chr(code) for _, code in self.events("char"))

    def clicks(self):
        return self.events(*MOUSE_BUTTONS)


class WineOperations:
    """Starting Windows programs and watching them. Needs self.prefix (a
    WinePrefix), self.display (the X display's name), self.out (a folder for
    logs and screenshots) and self.started (the processes)."""

    # Processes ----------------------------------------------------------------

    def start_windows_program(self, exe, *args, cwd=None):
        with open(self.out / f"{Path(exe).stem}-{len(self.started)}.out", "wb") as log:
            process = subprocess.Popen([WINE, str(exe), *args], cwd=cwd or self.out, env=self.prefix.env,
                                       stdin=subprocess.DEVNULL, stdout=log, stderr=subprocess.STDOUT)
        self.started.append(process)
        return process

    def wait_for_exit(self, process, timeout=20):
        wait_until(lambda: process.poll() is not None, timeout, "the process to exit")
        return process.returncode

    def stop_started(self):
        for process in self.started:
            if process.poll() is None:
                process.kill()
                process.wait()
        self.prefix.kill()

    # Klickwerk ------------------------------------------------------------------

    def make_program_folder(self, settings=None, files=None):
        """A fresh folder holding Klickwerk.exe and its companion files, with
        Settings.ini holding `settings` (a dict) and `files` (relative name
        -> bytes, or None to leave a companion file out)."""
        self.folder = self.out / f"program-{len(list(self.out.glob('program-*')))}"
        self.folder.mkdir()
        install_program(self.folder)
        if settings is not None:
            lines = ["[MAIN]"] + [f"{key}={value}" for key, value in settings.items()]
            (self.folder / "Settings.ini").write_bytes(("\r\n".join(lines) + "\r\n").encode("latin-1"))
        for relative, content in (files or {}).items():
            target = self.folder / relative
            if content is None:  # a companion file left out
                target.unlink(missing_ok=True)
                continue
            target.parent.mkdir(parents=True, exist_ok=True)
            target.write_bytes(content)
        return self.folder

    def start_klickwerk(self, *args):
        return self.start_windows_program(self.folder / "Klickwerk.exe", *args, cwd=self.folder)

    def open_program(self, script=None, switches=("/nostart", "/norep"), working_copy=None, files=None, **changes):
        """Klickwerk in a fresh folder with the settled settings, some changed,
        and the files; with script lines, started on them as Scripts\\play.kwf
        with the switches. Returns the main window once the grid holds the
        script or the working copy."""
        if changes.keys() - SETTLED.keys():
            raise ValueError(f"no such settings: {sorted(changes.keys() - SETTLED.keys())}")
        files = dict(files or {})
        if script is not None:
            files["Scripts/play.kwf"] = script_bytes(script)
        if working_copy is not None:
            files["Data.dat"] = script_bytes(working_copy)
        self.make_program_folder(SETTLED | changes, files)
        args = [win_path(self.folder / "Scripts" / "play.kwf"), *switches] if script is not None else []
        self.klickwerk = self.start_klickwerk(*args)
        self.wait_for_main_window()
        self.wait_for_grid_rows(len(script or working_copy or []))
        return self.main

    def close_klickwerk(self, timeout=20):
        """Closes the main window as the user would and waits for the process to
        end; a message box shown meanwhile fails with its text."""
        self.driver("close", self.main["target"])

        def ended_or_box():
            if self.klickwerk.poll() is not None:
                return "ended"
            box = self.driver("msgbox", allow_missing=True)
            return f"message box {box['title']!r}: {box['text']!r}" if box else None
        outcome = wait_until(ended_or_box, timeout, "Klickwerk to close")
        if outcome != "ended":
            raise AssertionError(f"closing Klickwerk showed a {outcome}")

    def setting(self, key):
        """A value of Settings.ini's [MAIN] section."""
        text = file_bytes(self.folder / "Settings.ini").decode("latin-1")
        return re.search(rf"^\s*{key}\s*=(.*)$", text, re.M | re.I)[1].strip()

    def error_log(self):
        return file_bytes(self.folder / "Error.log").decode("latin-1")

    # kwdriver ---------------------------------------------------------------------

    def driver(self, *args, wait=0, allow_missing=False):
        """Runs kwdriver.exe and returns its JSON answer; None when the window or
        control is missing and allow_missing is set."""
        command = [WINE, str(BUILD_DIR / "kwdriver.exe")]
        if wait:
            command += ["--wait", str(int(wait * TIMEOUT_SCALE * 1000))]
        # Files, not pipes: when this call starts the wineserver, the Wine
        # daemons inherit its output handles and a pipe would never close.
        with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as err:
            code = subprocess.run(command + list(args), env=self.prefix.env, stdout=out, stderr=err,
                                  timeout=wait * TIMEOUT_SCALE + 30, stdin=subprocess.DEVNULL).returncode
            out.seek(0)
            err.seek(0)
            answer, reason = out.read().decode("utf-8"), err.read().decode("utf-8", "replace").strip()
        if code == 2 and allow_missing:
            return None
        if code != 0:
            raise AssertionError(f"kwdriver {' '.join(args)} failed ({code}): {reason} / out: {answer!r}")
        return json.loads(answer)

    def main_windows(self):
        """Visible windows with the program's title that hold a list view: main
        windows, as opposed to message boxes and the splash window with the
        same title. "target" names each for kwdriver."""
        titled = [dict(window, target=f"hwnd={window['hwnd']}") for window in self.driver("windows")
                  if window["text"] == APP_TITLE and window["visible"]]
        return [window for window in titled if self.driver("grid", window["target"], allow_missing=True) is not None]

    def wait_for_main_window(self, timeout=30):
        self.main = wait_until(lambda: next(iter(self.main_windows()), None), timeout, "the main window")
        return self.main

    def wait_for_msgbox(self, text, timeout=30, pid=None):
        """Waits until a message box shows exactly this text and returns it."""
        args = ["msgbox"] + (["--pid", str(pid)] if pid else [])
        return wait_until(lambda: self.driver(*args, allow_missing=True), timeout, f"a message box {text!r}",
                          accept=lambda box: box and box["text"] == text)

    def answer(self, button, pid=None):
        return self.driver("answer", button, *(["--pid", str(pid)] if pid else []))

    # The main window -----------------------------------------------------------------

    def grid(self):
        """The grid's rows: "cells" (# X Y Button Additional Mins Secs Repeat) and "checked"."""
        return self.driver("grid", self.main["target"])

    def wait_for_grid_rows(self, count, timeout=20):
        return wait_until(self.grid, timeout, f"{count} rows in the grid", accept=lambda rows: len(rows) == count)

    def controls(self):
        return self.driver("controls", self.main["target"])

    def control(self, kind, text=None):
        """The first control of the class (with the text)."""
        return next(control for control in self.controls()
                    if control["class"] == kind and text in (None, control["text"]))

    def panels(self):
        """Status-bar panels 1 to 6 as a list indexed from 0."""
        return self.driver("status", self.main["target"])["panels"]

    def click_status_panel(self, index):
        """Clicks the status-bar panel (from 0) as the user does."""
        self.focus(APP_TITLE)
        self.click_at(self.driver("status", self.main["target"])["rects"][index])

    def window_rect(self, target=None):
        return self.driver("window", target or self.main["target"])["rect"]

    def toolbar(self):
        """The toolbar's buttons in order: "text", "enabled"."""
        return self.driver("toolbar", self.main["target"])

    def click_toolbar(self, caption):
        self.driver("toolclick", self.main["target"], caption)

    def enabled(self):
        """Enabled states of the grid, the buttons below it and the toolbar's buttons."""
        controls = {control["text"] or control["class"]: control["enabled"] for control in self.controls()
                    if control["class"] == "SysListView32" or control["text"] in BUTTONS}
        return controls | {button["text"]: button["enabled"] for button in self.toolbar()}

    def press(self, caption):
        self.driver("click", self.main["target"], caption)

    def running(self):
        return not self.control("Button", "Start")["enabled"]

    def start_run(self):
        """Presses Start and waits until the run has locked the window."""
        self.press("Start")
        wait_until(self.running, 20, "the run to lock the window")

    def wait_for_steps(self, count, timeout=30):
        """Waits until the step counter reads `count` and the run is over."""
        wait_until(lambda: self.panels()[4] == str(count) and not self.running(), timeout,
                   f"a finished run with the step counter at {count}")

    # Recording ------------------------------------------------------------------------

    def start_recording(self, stop_key="ESCAPE", answer_first=None):
        """Presses RECORD, answers the save question when one is given, and
        confirms the notice."""
        self.press("RECORD")
        if answer_first:
            self.wait_for_msgbox("New script will be created.  Save current script?")
            self.answer(answer_first)
        self.wait_for_msgbox(RECORD_NOTICE.format(stop_key))
        self.answer("OK")
        self.wait_for_record_caption(f"{stop_key} TO STOP")

    def stop_recording(self, virtual_key=VK_ESCAPE):
        """Holds the stop key until the recording has ended (Start is enabled
        again), then answers the closing boxes. The key is pressed inside
        Wine: a held X key repeats, and a repeat would close the closing
        notice before it is seen."""
        self.driver("presskey", self.main["target"], str(virtual_key), "Start")
        box = wait_until(lambda: self.driver("msgbox", allow_missing=True), 20, "the recording's closing box")
        if box["text"].startswith("There are "):  # the step current at the end holds a merged action's texts
            self.answer("Yes")
        self.wait_for_msgbox(RECORD_DONE)
        self.answer("OK")
        self.wait_for_record_caption("RECORD")

    def wait_for_record_caption(self, caption):
        wait_until(lambda: any(control["text"] == caption for control in self.controls()), 20,
                   f"the record button to read {caption}")

    def recorded(self, keys_only=False):
        """The grid's steps as (X, Y, Button, Additional, Repeat), without X
        and Y when only keys count."""
        return [tuple((row["cells"][3:5] if keys_only else row["cells"][1:5]) + [row["cells"][7]])
                for row in self.grid()]

    # File dialogs ---------------------------------------------------------------------

    def wait_for_dialog(self, title, timeout=30):
        """The first visible standard dialog, once it has this title."""
        return wait_until(lambda: self.driver("msgbox", allow_missing=True), timeout, f"the dialog {title!r}",
                          accept=lambda dialog: dialog and dialog["title"] == title)

    def file_name_box(self, dialog):
        return [control["text"] for control in self.driver("controls", f"hwnd={dialog['hwnd']}")
                if control["class"] == "Edit" and control["visible"]]

    def enter_file_name(self, dialog_title, name):
        """Types a name into the file name box of an open or save dialog and
        confirms it with Return, as the user does; Return is pressed again
        only while the dialog is still up."""
        dialog = self.wait_for_dialog(dialog_title)

        def dialog_gone():
            shown = self.driver("msgbox", allow_missing=True)
            return not shown or shown["hwnd"] != dialog["hwnd"]
        self.type_until(dialog_title, lambda: (self.xdotool("key", "ctrl+a"), self.xdotool("type", "--delay", "20", name)),
                        lambda: name in self.file_name_box(dialog), f"{name!r} in the file name box")
        self.type_until(dialog_title, lambda: self.xdotool("key", "Return"), dialog_gone,
                        f"the dialog {dialog_title!r} to take the name")

    def type_until(self, title, send, done, what, attempts=3):
        """Gives the window the X focus and sends keys until done() holds: on
        a loaded machine X can lose a keystroke, so what they did is read
        back and the keys sent again."""
        for attempt in range(1, attempts + 1):
            self.focus(title)
            send()
            try:
                return wait_until(done, 5, what)
            except AssertionError:
                if attempt == attempts:
                    raise

    # Probe ----------------------------------------------------------------------------

    def open_probe(self, title="Klickwerk Probe", rect=PROBE_RECT):
        """Starts probe.exe as the target of keys and clicks; returns its events
        and its Windows pid, client origin (x, y) and size in screen pixels,
        and its process."""
        probe = ProbeEvents(self.out / f"probe-{len(self.started)}.log")
        process = self.start_windows_program(BUILD_DIR / "probe.exe", "--log", win_path(probe.log), "--title", title,
                                             "--rect", ",".join(str(v) for v in rect))
        _, pid, x, y, width, height = wait_until(lambda: probe.events("ready"), 20, f"the probe {title!r}")[0]
        return probe, types.SimpleNamespace(pid=pid, x=x, y=y, width=width, height=height, process=process)

    def give_focus(self, title):
        """Makes the window the foreground window, where the program's keys
        go, and gives it the X input focus, through which X keys (the stop
        key, the hot keys) reach Wine at all."""
        self.driver("foreground", title)
        self.focus(title)

    # X input and screenshots ------------------------------------------------------

    def menu_open(self):
        """Whether a pop-up menu is shown."""
        return any(window["class"] == "#32768" and window["visible"] for window in self.driver("windows"))

    def tool_tips(self):
        """The texts of the tool tips shown."""
        return [window["text"] for window in self.driver("windows")
                if window["class"] == "tooltips_class32" and window["visible"]]

    def xdotool(self, *args, timeout=20):
        return subprocess.run(["xdotool", *args], env=self.prefix.env, capture_output=True, text=True,
                              timeout=timeout * TIMEOUT_SCALE, check=True).stdout

    def focus(self, title):
        """Gives the window the X input focus; Win32 activation alone does not
        route X keyboard events to it. Never the root window: afterwards no X
        keys would reach any Wine window."""
        def search():  # xdotool fails while there is none
            return subprocess.run(["xdotool", "search", "--onlyvisible", "--name", f"^{re.escape(title)}$"],
                                  env=self.prefix.env, capture_output=True, text=True, timeout=20).stdout.split()
        self.xdotool("windowfocus", "--sync", wait_until(search, 20, f"the X window {title!r}")[0])

    def move_pointer(self, x, y):
        """Moves the X pointer and waits until it is there ("mousemove --sync"
        waits for a motion that never comes when it is there already)."""
        self.xdotool("mousemove", str(x), str(y))
        wait_until(lambda: self.xdotool("getmouselocation").startswith(f"x:{x} y:{y} "), 20, f"the pointer at {x},{y}")

    def click_at(self, rect, button="1"):
        """Clicks the middle of the rectangle once the pointer is there."""
        self.move_pointer(*centre(rect))
        self.xdotool("click", button)

    def hold_key(self, key, until, what, timeout=20):
        """Holds an X key down until `until()` is true: a polled stop or hot
        key is seen however long the program takes to look."""
        self.xdotool("keydown", key)
        try:
            return wait_until(until, timeout, what)
        finally:
            self.xdotool("keyup", key)

    def screenshot(self, name):
        path = self.out / f"{name}.png"
        subprocess.run(["import", "-display", self.display, "-window", "root", str(path)], env=self.prefix.env,
                       timeout=60 * TIMEOUT_SCALE, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return path

    def crop(self, shot, rect, name):
        """A rectangle (left, top, right, bottom) of a screenshot as its own picture."""
        left, top, right, bottom = rect
        subprocess.run(["convert", str(shot), "-crop", f"{right - left}x{bottom - top}+{left}+{top}", "+repage",
                        str(self.out / f"{name}.png")], check=True, timeout=60 * TIMEOUT_SCALE)

    def settled_screenshot(self, name, timeout=10):
        """A screenshot once the screen has stopped changing, so that no window
        is caught half-painted."""
        frames = []

        def unchanged():
            frames.append(subprocess.run(["import", "-display", self.display, "-window", "root", "rgb:-"],
                                         env=self.prefix.env, capture_output=True, check=True,
                                         timeout=60 * TIMEOUT_SCALE).stdout)
            return len(frames) > 1 and frames[-1] == frames.pop(0)
        wait_until(unchanged, timeout, "the screen to stop changing")
        return self.screenshot(name)


class WineTestCase(WineOperations, unittest.TestCase):
    """Base of every end-to-end test: a fresh output folder per test and a
    teardown that ends every process the test started, pass or fail."""

    def setUp(self):
        running = session()
        self.prefix, self.display = running.prefix, running.display.name
        self.out = OUT_DIR / re.sub(r"[^A-Za-z0-9_.-]", "_", self.id())
        shutil.rmtree(self.out, ignore_errors=True)
        self.out.mkdir(parents=True)
        self.started = []
        self.addCleanup(self.stop_started)

    def use_144_dpi(self):
        """Runs this test's programs in a prefix of its own at 144 dots per
        inch, so the other tests keep their 96."""
        self.prefix = WinePrefix(self.display, "wineprefix-144dpi",
                                 (WinePrefix.UNMANAGED_WINDOWS, WinePrefix.DPI_144)).ensure()

    def use_managed_windows(self):
        """Runs this test's programs in a prefix of managed windows: Wine takes
        a move or resize from outside (a window manager's, xdotool's) only
        for those. Without a window manager each of their hides waits a while."""
        self.prefix = WinePrefix(self.display, "wineprefix-managed", ()).ensure()

    def assert_no_errors_logged(self):
        self.assertEqual("", self.error_log(), "Error.log")

    def assert_becomes(self, expected, observe, timeout=10):
        """Waits until observe() returns `expected`, for what may arrive a
        little after the moment it was caused; shows the difference when
        the deadline passes."""
        try:
            return wait_until(observe, timeout, "", accept=lambda seen: seen == expected)
        except AssertionError:
            pass
        self.assertEqual(expected, observe())

    def assert_holds(self, condition, seconds, what):
        """Watches a condition for a span of time: for what must not happen
        while something else (a pause, a wait) lasts."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            self.assertTrue(condition(), what)
            time.sleep(POLL_SECONDS)
