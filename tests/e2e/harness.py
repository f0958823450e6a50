"""Runs the real Klickwerk.exe under Wine in a virtual X display and observes it
from outside: files beside the executable, the probe program's event log, the
controls read by kwdriver.exe, and screenshots.

One X display and one Wine prefix serve a whole test run; every test gets a
fresh program folder and ends with every Windows process of the prefix killed.
Nothing waits a fixed time: every wait polls a condition until a deadline.
"""
import atexit
import json
import os
import re
import shutil
import signal
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

REPO = Path(__file__).resolve().parents[2]
BUILD_DIR = Path(os.environ.get("KW_BUILD_DIR", REPO / "build-e2e")).resolve()
OUT_DIR = Path(os.environ.get("KW_E2E_OUT", BUILD_DIR / "e2e-out")).resolve()
PREFIX_DIR = BUILD_DIR / "wineprefix"
# Slow machines may stretch every deadline.
TIMEOUT_SCALE = float(os.environ.get("KW_E2E_TIMEOUT_SCALE", "1"))
DISPLAY_NUMBERS = range(93, 97)
SCREEN = "1280x1024x24"
POLL_SECONDS = 0.05
# Files that travel with Klickwerk.exe when they exist, looked up in the
# build tree first and then in the repository.
COMPANION_FILES = ["InHook.dll", "Klickwerk.chm", "DYK.dat", "Scripts"]


def _first_program(*candidates):
    for candidate in candidates:
        found = candidate if os.path.isabs(candidate) else shutil.which(candidate)
        if found and os.access(found, os.X_OK):
            return found
    return candidates[0]


# Debian's wine64 package has no /usr/bin/wine.
WINE = _first_program("/usr/lib/wine/wine64", "wine64", "wine")
WINESERVER = _first_program("/usr/lib/wine/wineserver64", "wineserver64", "wineserver")


def _app_title():
    """"Klickwerk v<major>.<minor>", from the version the build uses."""
    text = (REPO / "CMakeLists.txt").read_text()
    major, minor = re.search(r"project\(Klickwerk VERSION (\d+)\.(\d+)", text).groups()
    return f"Klickwerk v{major}.{minor}"


APP_TITLE = _app_title()


def win_path(path):
    """The Windows name of a Linux path (Wine maps Z: to /)."""
    return "Z:" + str(path).replace("/", "\\")


def wait_until(condition, timeout, what):
    """Polls condition() until it returns something truthy; fails the test
    with the last value seen when the deadline passes."""
    deadline = time.monotonic() + timeout * TIMEOUT_SCALE
    last = None
    while True:
        last = condition()
        if last:
            return last
        if time.monotonic() > deadline:
            raise AssertionError(f"timed out after {timeout} s waiting for {what}; last seen: {last!r}")
        time.sleep(POLL_SECONDS)


def _stop_process(process, grace=5):
    if process.poll() is not None:
        return
    process.terminate()
    try:
        process.wait(grace)
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()


class VirtualDisplay:
    """Xvfb on the first free display of ours, or the caller's display when
    KW_E2E_DISPLAY is set (":N", or "1" for $DISPLAY)."""

    def __init__(self):
        self.process = None
        self.name = None

    def start(self):
        chosen = os.environ.get("KW_E2E_DISPLAY")
        if chosen:
            self.name = os.environ["DISPLAY"] if chosen == "1" else chosen
            return self.name
        for number in DISPLAY_NUMBERS:
            if Path(f"/tmp/.X{number}-lock").exists() or Path(f"/tmp/.X11-unix/X{number}").exists():
                continue
            if self._try_start(number):
                return self.name
        raise RuntimeError(f"no free X display among :{DISPLAY_NUMBERS[0]} to :{DISPLAY_NUMBERS[-1]}")

    def _try_start(self, number):
        self.process = subprocess.Popen(
            ["Xvfb", f":{number}", "-screen", "0", SCREEN, "-nolisten", "tcp", "-noreset"],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True)
        socket = Path(f"/tmp/.X11-unix/X{number}")
        ready = wait_until(lambda: socket.exists() or self.process.poll() is not None, 20, f"Xvfb :{number}")
        if ready and self.process.poll() is None:
            self.name = f":{number}"
            return True
        self.process = None
        return False

    def stop(self):
        if self.process:
            _stop_process(self.process)
            self.process = None


class WinePrefix:
    """One prefix for the whole run, created once and reused afterwards."""

    READY_MARK = ".klickwerk-ready"
    # Unmanaged windows: without a window manager, managed windows make every
    # hide or close wait two seconds for an answer that never comes.
    SETTINGS = [
        (r"HKCU\Software\Wine\X11 Driver", "Managed", "N"),
        (r"HKCU\Software\Wine\WineDbg", "ShowCrashDialog", "0"),
    ]

    def __init__(self, path, display):
        self.path = path
        self.env = dict(os.environ, WINEPREFIX=str(path), WINEDEBUG="-all",
                        WINEDLLOVERRIDES="mscoree,mshtml=", DISPLAY=display)
        self.env.pop("WINELOADER", None)

    def ensure(self):
        if (self.path / self.READY_MARK).exists():
            return
        self.path.mkdir(parents=True, exist_ok=True)
        self._run([WINE, "wineboot", "-i"], 300)
        for key, name, value in self.SETTINGS:
            self._run([WINE, "reg", "add", key, "/v", name, "/t", "REG_SZ", "/d", value, "/f"], 60)
        self.kill()
        (self.path / self.READY_MARK).write_text("wineboot done\n")

    def _run(self, command, timeout):
        subprocess.run(command, env=self.env, timeout=timeout * TIMEOUT_SCALE, check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def kill(self):
        """Ends every Windows process of the prefix and waits for the server."""
        if not self.path.exists():
            return
        for flag in ("-k", "-w"):
            try:
                subprocess.run([WINESERVER, flag], env=self.env, timeout=30,
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            except subprocess.TimeoutExpired:
                pass


class Session:
    def __init__(self):
        self.display = VirtualDisplay()
        self.prefix = None

    def start(self):
        display = self.display.start()
        self.prefix = WinePrefix(PREFIX_DIR, display)
        self.prefix.ensure()
        return self

    @property
    def env(self):
        return self.prefix.env

    def stop(self):
        if self.prefix:
            self.prefix.kill()
        self.display.stop()


_session = None


def session():
    global _session
    if _session is None:
        _session = Session()
        try:
            _session.start()
        except BaseException:
            close_session()
            raise
    return _session


def close_session():
    global _session
    if _session is not None:
        _session.stop()
        _session = None


def _end_on_signal(number, _frame):
    # A killed run must still take Xvfb and Wine down with it.
    close_session()
    os._exit(128 + number)


atexit.register(close_session)
signal.signal(signal.SIGTERM, _end_on_signal)
signal.signal(signal.SIGHUP, _end_on_signal)


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


class WineTestCase(unittest.TestCase):
    """Base of every end-to-end test: a fresh output folder per test and a
    teardown that ends every process the test started, pass or fail."""

    def setUp(self):
        self.session = session()
        self.out = OUT_DIR / re.sub(r"[^A-Za-z0-9_.-]", "_", self.id())
        shutil.rmtree(self.out, ignore_errors=True)
        self.out.mkdir(parents=True)
        self.started = []
        self.addCleanup(self._stop_everything)

    def _stop_everything(self):
        for process in self.started:
            if process.poll() is None:
                process.kill()
                process.wait()
        self.session.prefix.kill()

    # Processes ------------------------------------------------------------

    def start_windows_program(self, exe, *args, cwd=None, name=None):
        name = name or Path(exe).stem
        log = open(self.out / f"{name}-{len(self.started)}.out", "wb")
        with log:
            process = subprocess.Popen([WINE, str(exe), *args], cwd=cwd or self.out, env=self.session.env,
                                       stdin=subprocess.DEVNULL, stdout=log, stderr=subprocess.STDOUT)
        self.started.append(process)
        return process

    def wait_for_exit(self, process, timeout=20):
        wait_until(lambda: process.poll() is not None, timeout, "the process to exit")
        return process.returncode

    # Program folder and Klickwerk ----------------------------------------------

    def make_program_folder(self, name="program", settings=None, files=None):
        """A folder holding Klickwerk.exe and its companion files; settings is a
        list of (key, value) written to Settings.ini, files maps relative
        names to bytes or text."""
        exe = BUILD_DIR / "Klickwerk.exe"
        if not exe.exists():
            self.fail(f"{exe} is missing: build the Windows targets first")
        folder = self.out / name
        folder.mkdir()
        shutil.copy2(exe, folder)
        for companion in COMPANION_FILES:
            self._copy_companion(companion, folder)
        if settings is not None:
            lines = ["[MAIN]"] + [f"{key}={value}" for key, value in settings]
            (folder / "Settings.ini").write_bytes(("\r\n".join(lines) + "\r\n").encode("latin-1"))
        for relative, content in (files or {}).items():
            target = folder / relative
            target.parent.mkdir(parents=True, exist_ok=True)
            target.write_bytes(content if isinstance(content, bytes) else content.encode("latin-1"))
        return folder

    @staticmethod
    def _copy_companion(name, folder):
        for base in (BUILD_DIR, REPO):
            source = base / name
            if source.is_dir():
                shutil.copytree(source, folder / name)
                return
            if source.is_file():
                shutil.copy2(source, folder)
                return

    def start_klickwerk(self, folder, *args):
        return self.start_windows_program(folder / "Klickwerk.exe", *args, cwd=folder, name="klickwerk")

    def close_klickwerk(self, process, title=APP_TITLE, timeout=20):
        """Closes the main window as the user would and waits for the process to
        end; a message box shown meanwhile fails the test with its text."""
        self.driver("close", title)

        def ended_or_box():
            if process.poll() is not None:
                return "ended"
            box = self.driver("msgbox", allow_missing=True)
            return f"message box {box['title']!r}: {box['text']!r}" if box else None

        outcome = wait_until(ended_or_box, timeout, "Klickwerk to close")
        self.assertEqual("ended", outcome, "closing Klickwerk showed a message box")

    # kwdriver ---------------------------------------------------------------

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
            self.fail(f"kwdriver {' '.join(args)} failed ({code}): {reason}")
        return json.loads(answer)

    def wait_for_window(self, title=APP_TITLE, timeout=20):
        """The visible top-level window with exactly this title."""
        def visible():
            window = self.driver("window", title, allow_missing=True)
            return window if window and window["visible"] else None
        return wait_until(visible, timeout, f"a visible window {title!r}")

    def windows_titled(self, title):
        return [w for w in self.driver("windows") if w["text"] == title]

    def wait_for_msgbox(self, timeout=20, pid=None):
        args = ["msgbox"] + (["--pid", str(pid)] if pid else [])
        box = self.driver(*args, wait=timeout, allow_missing=True)
        if box is None:
            self.fail(f"no message box appeared within {timeout} s")
        return box

    def answer(self, button, pid=None):
        args = ["answer", button] + (["--pid", str(pid)] if pid else [])
        return self.driver(*args)

    def wait_for_grid_rows(self, count, title=APP_TITLE, timeout=20):
        def filled():
            grid = self.driver("grid", title, allow_missing=True)
            return grid if grid and len(grid["rows"]) == count else None
        return wait_until(filled, timeout, f"{count} rows in the grid of {title!r}")

    # Files and logs ----------------------------------------------------------

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

    # Probe ------------------------------------------------------------------

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

    # X input and screenshots --------------------------------------------------

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
        route X keyboard events to it."""
        self.xdotool("windowfocus", "--sync", self.x_window(title))

    def screenshot(self, name):
        path = self.out / f"{name}.png"
        subprocess.run(["import", "-display", self.session.display.name, "-window", "root", str(path)],
                       env=self.session.env, timeout=60 * TIMEOUT_SCALE, check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return path
