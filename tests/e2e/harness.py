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
import unittest
from pathlib import Path

from wine_session import BUILD_DIR, OUT_DIR, REPO, TIMEOUT_SCALE, WINE, session, wait_until

# Files that travel with Klickwerk.exe when they exist, looked up in the
# build tree first and then in the repository.
COMPANION_FILES = ["InHook.dll", "Klickwerk.chm", "DYK.dat", "Scripts"]


def _app_title():
    """"Klickwerk v<major>.<minor>", from the version the build uses."""
    text = (REPO / "CMakeLists.txt").read_text()
    major, minor = re.search(r"project\(Klickwerk VERSION (\d+)\.(\d+)", text).groups()
    return f"Klickwerk v{major}.{minor}"


APP_TITLE = _app_title()


def win_path(path):
    """The Windows name of a Linux path (Wine maps Z: to /)."""
    return "Z:" + str(path).replace("/", "\\")


def read_ini(path, section="MAIN"):
    """The keys of one section in file order, as the private-profile calls see them."""
    keys, current = [], None
    for line in Path(path).read_text(encoding="latin-1").splitlines():
        line = line.strip()
        if line.startswith("[") and line.endswith("]"):
            current = line[1:-1].strip().lower()
        elif current == section.lower() and "=" in line:
            name, value = line.split("=", 1)
            keys.append((name.strip(), value.strip()))
    return keys


def file_bytes(path):
    """The file's contents; b"" when it does not exist."""
    return Path(path).read_bytes() if Path(path).exists() else b""


class WineOperations:
    """Starting Windows programs and watching them. Needs self.session, self.out
    (a folder for logs and screenshots) and self.started (the processes)."""

    # Processes ----------------------------------------------------------------

    def start_windows_program(self, exe, *args, cwd=None, name=None):
        name = name or Path(exe).stem
        with open(self.out / f"{name}-{len(self.started)}.out", "wb") as log:
            process = subprocess.Popen([WINE, str(exe), *args], cwd=cwd or self.out, env=self.session.env,
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
        self.session.prefix.kill()

    # Program folder and Klickwerk ------------------------------------------------

    def make_program_folder(self, name="program", settings=None, files=None):
        """A folder holding Klickwerk.exe and its companion files; settings is a
        list of (key, value) written to Settings.ini, files maps relative
        names to bytes or text."""
        folder = self.out / name
        folder.mkdir(parents=True, exist_ok=True)
        install_program(folder)
        if settings is not None:
            lines = ["[MAIN]"] + [f"{key}={value}" for key, value in settings]
            (folder / "Settings.ini").write_bytes(("\r\n".join(lines) + "\r\n").encode("latin-1"))
        for relative, content in (files or {}).items():
            target = folder / relative
            target.parent.mkdir(parents=True, exist_ok=True)
            target.write_bytes(content if isinstance(content, bytes) else content.encode("latin-1"))
        return folder

    def start_klickwerk(self, folder, *args):
        return self.start_windows_program(folder / "Klickwerk.exe", *args, cwd=folder, name="klickwerk")

    def close_klickwerk(self, process, window, timeout=20):
        """Closes the main window as the user would and waits for the process to
        end; a message box shown meanwhile fails with its text."""
        self.driver("close", window["target"])

        def ended_or_box():
            if process.poll() is not None:
                return "ended"
            box = self.driver("msgbox", allow_missing=True)
            return f"message box {box['title']!r}: {box['text']!r}" if box else None

        outcome = wait_until(ended_or_box, timeout, "Klickwerk to close")
        if outcome != "ended":
            raise AssertionError(f"closing Klickwerk showed a {outcome}")

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
            code = subprocess.run(command + list(args), env=self.session.env, stdout=out, stderr=err,
                                  timeout=wait * TIMEOUT_SCALE + 30, stdin=subprocess.DEVNULL).returncode
            out.seek(0)
            err.seek(0)
            answer, reason = out.read().decode("utf-8"), err.read().decode("utf-8", "replace").strip()
        if code == 2 and allow_missing:
            return None
        if code != 0:
            raise AssertionError(f"kwdriver {' '.join(args)} failed ({code}): {reason} / out: {answer!r}")
        return json.loads(answer)

    def wait_for_window(self, title, timeout=20):
        """The visible top-level window with exactly this title."""
        def visible():
            window = self.driver("window", title, allow_missing=True)
            return window if window and window["visible"] else None
        return wait_until(visible, timeout, f"a visible window {title!r}")

    def main_windows(self, title=APP_TITLE):
        """Visible windows with this title that hold a list view: main windows,
        as opposed to message boxes and the splash window with the same title.
        "target" names each for kwdriver."""
        found = []
        for window in self.driver("windows"):
            if window["text"] != title or not window["visible"] or window["class"] == "#32770":
                continue
            target = f"hwnd={window['hwnd']}"
            controls = self.driver("controls", target, allow_missing=True) or []
            if any(control["class"] == "SysListView32" for control in controls):
                found.append(dict(self.driver("window", target), target=target))
        return found

    def wait_for_main_window(self, title=APP_TITLE, timeout=30):
        return wait_until(lambda: next(iter(self.main_windows(title)), None), timeout,
                          f"the main window {title!r}")

    def wait_for_msgbox(self, text, timeout=30, pid=None):
        """Waits until a message box shows exactly this text and returns it; on
        timeout the failure names the box that was showing, if any."""
        args = ["msgbox"] + (["--pid", str(pid)] if pid else [])
        seen = []

        def showing():
            box = self.driver(*args, allow_missing=True)
            seen[:] = [box]
            return box if box and box["text"] == text else None
        try:
            return wait_until(showing, timeout, f"a message box {text!r}")
        except AssertionError:
            raise AssertionError(f"no message box {text!r} within {timeout} s; showing: {seen!r}") from None

    def answer(self, button, pid=None):
        return self.driver("answer", button, *(["--pid", str(pid)] if pid else []))

    def grid(self, window):
        return self.driver("grid", window["target"])

    def wait_for_grid_rows(self, window, count, timeout=20):
        def filled():
            grid = self.grid(window)
            return grid if len(grid["rows"]) == count else None
        return wait_until(filled, timeout, f"{count} rows in the grid")

    def toolbar(self, window):
        """The toolbar's buttons in order: caption ("text"), "enabled", "dropdown",
        screen "rect"."""
        return self.driver("toolbar", window["target"])

    def toolbar_enabled(self, window):
        return {button["text"]: button["enabled"] for button in self.toolbar(window)}

    def click_toolbar(self, window, caption):
        return self.driver("toolclick", window["target"], caption)

    def panel(self, window, number):
        """The text of status-bar panel 1 to 6."""
        return self.driver("status", window["target"])["panels"][number - 1]

    def wait_for_dialog(self, title, timeout=30):
        """The first visible standard dialog, once it has this title."""
        def showing():
            dialog = self.driver("msgbox", allow_missing=True)
            return dialog if dialog and dialog["title"] == title else None
        return wait_until(showing, timeout, f"the dialog {title!r}")

    def wait_for_no_dialog(self, timeout=20):
        wait_until(lambda: self.driver("msgbox", allow_missing=True) is None, timeout, "the dialog to close")

    def enter_file_name(self, dialog_title, name, attempts=3):
        """Types a name into the file name box of an open or save dialog and
        confirms it with Return, as the user does. On a loaded machine X can
        lose a keystroke, so the box is read back before Return, and Return
        is pressed again only while the dialog is still up."""
        dialog = self.wait_for_dialog(dialog_title)

        def name_box_holds_name():
            return name in [control["text"] for control in self.driver("controls", f"hwnd={dialog['hwnd']}")
                            if control["class"] == "Edit" and control["visible"]]

        def dialog_gone():
            shown = self.driver("msgbox", allow_missing=True)
            return not shown or shown["hwnd"] != dialog["hwnd"]

        for attempt in range(1, attempts + 1):
            self.focus(dialog_title)
            self.xdotool("key", "ctrl+a")
            self.xdotool("type", "--delay", "20", name)
            try:
                wait_until(name_box_holds_name, 5, f"{name!r} in the file name box")
                break
            except AssertionError:
                if attempt == attempts:
                    raise
        for attempt in range(1, attempts + 1):
            self.focus(dialog_title)
            self.xdotool("key", "Return")
            try:
                wait_until(dialog_gone, 5, f"the dialog {dialog_title!r} to take the name")
                return
            except AssertionError:
                if attempt == attempts:
                    raise

    # Files and logs -----------------------------------------------------------------

    def wait_for_file(self, path, timeout=20):
        return wait_until(lambda: Path(path).exists(), timeout, f"the file {path}")

    def wait_for_log_line(self, path, pattern, timeout=20):
        """The first line of the log that matches the regular expression."""
        regex = re.compile(pattern)

        def matching_line():
            if not Path(path).exists():
                return None
            for line in Path(path).read_text(errors="replace").splitlines():
                found = regex.search(line)
                if found:
                    return found
            return None
        return wait_until(matching_line, timeout, f"a line matching {pattern!r} in {path}")

    # Probe ----------------------------------------------------------------------------

    def launch_probe(self, title="Klickwerk Probe", rect=None, ask=None):
        """Starts probe.exe and returns (log path, process) at once."""
        log = self.out / f"probe-{len(self.started)}.log"
        args = ["--log", win_path(log), "--title", title]
        if rect:
            args += ["--rect", ",".join(str(v) for v in rect)]
        if ask:
            args += ["--ask", ask]
        return log, self.start_windows_program(BUILD_DIR / "probe.exe", *args, name="probe")

    def start_probe(self, title="Klickwerk Probe", rect=None):
        """Starts probe.exe, waits for its window and returns (log path, values
        of its ready line: Windows pid, client origin and size in screen
        pixels, and the process)."""
        log, process = self.launch_probe(title, rect)
        ready = self.wait_for_log_line(log, r"^ready pid=(\d+) .*client=(-?\d+),(-?\d+),(\d+),(\d+) ")
        pid, x, y, width, height = (int(v) for v in ready.groups())
        return log, {"pid": pid, "x": x, "y": y, "width": width, "height": height, "process": process}

    # X input and screenshots ------------------------------------------------------

    def xdotool(self, *args, timeout=20):
        return subprocess.run(["xdotool", *args], env=self.session.env, capture_output=True, text=True,
                              timeout=timeout * TIMEOUT_SCALE, check=True).stdout

    def x_window(self, title, timeout=20):
        """The X window id of the visible Wine window with exactly this title."""
        def search():
            found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", f"^{re.escape(title)}$"],
                                   env=self.session.env, capture_output=True, text=True, timeout=20)
            return found.stdout.split()[0] if found.stdout.split() else None
        return wait_until(search, timeout, f"the X window {title!r}")

    def focus(self, title):
        """Gives the window the X input focus; Win32 activation alone does not
        route X keyboard events to it. Never the root window: afterwards no X
        keys would reach any Wine window."""
        self.xdotool("windowfocus", "--sync", self.x_window(title))

    def screenshot(self, name):
        path = self.out / f"{name}.png"
        subprocess.run(["import", "-display", self.session.display.name, "-window", "root", str(path)],
                       env=self.session.env, timeout=60 * TIMEOUT_SCALE, check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return path

    def settled_screenshot(self, name, timeout=10):
        """A screenshot once the screen has stopped changing, so that no window
        is caught half-painted."""
        frames = []

        def unchanged():
            frames.append(subprocess.run(["import", "-display", self.session.display.name, "-window", "root", "rgb:-"],
                                         env=self.session.env, capture_output=True, check=True,
                                         timeout=60 * TIMEOUT_SCALE).stdout)
            return len(frames) > 1 and frames[-1] == frames.pop(0)
        wait_until(unchanged, timeout, "the screen to stop changing")
        return self.screenshot(name)


def install_program(folder):
    """Copies Klickwerk.exe and whichever companion files exist into folder."""
    exe = BUILD_DIR / "Klickwerk.exe"
    if not exe.exists():
        raise AssertionError(f"{exe} is missing: build the Windows targets first")
    shutil.copy2(exe, folder)
    for name in COMPANION_FILES:
        for base in (BUILD_DIR, REPO):
            source = base / name
            if source.is_dir():
                shutil.copytree(source, folder / name, dirs_exist_ok=True)
                break
            if source.is_file():
                shutil.copy2(source, folder)
                break


class WineTestCase(WineOperations, unittest.TestCase):
    """Base of every end-to-end test: a fresh output folder per test and a
    teardown that ends every process the test started, pass or fail."""

    def setUp(self):
        self.session = session()
        self.out = OUT_DIR / re.sub(r"[^A-Za-z0-9_.-]", "_", self.id())
        shutil.rmtree(self.out, ignore_errors=True)
        self.out.mkdir(parents=True)
        self.started = []
        self.addCleanup(self.stop_started)

    def assert_no_errors_logged(self, folder):
        log = Path(folder) / "Error.log"
        self.assertFalse(log.exists(), f"Error.log: {file_bytes(log).decode('latin-1')}")
