"""The machinery under the end-to-end tests: one virtual X display (Xvfb) and
one Wine prefix for a whole run, and their teardown even when a run is killed.

Settings from the environment:
  KW_BUILD_DIR          the Windows build tree (Klickwerk.exe, probe.exe,
                        kwdriver.exe); the prefix lives in it
  KW_E2E_OUT            output folder (default <build>/e2e-out)
  KW_E2E_DISPLAY        use this X display (":N", or "1" for $DISPLAY) instead
                        of starting Xvfb on a free display :93 to :96
  KW_E2E_TIMEOUT_SCALE  stretches every deadline on slow machines
"""
import atexit
import os
import shutil
import signal
import subprocess
import time
from pathlib import Path

REPO = Path(__file__).resolve().parents[2]
BUILD_DIR = Path(os.environ.get("KW_BUILD_DIR", REPO / "build-e2e")).resolve()
OUT_DIR = Path(os.environ.get("KW_E2E_OUT", BUILD_DIR / "e2e-out")).resolve()
# Slow machines may stretch every deadline.
TIMEOUT_SCALE = float(os.environ.get("KW_E2E_TIMEOUT_SCALE", "1"))
DISPLAY_NUMBERS = range(93, 97)
SCREEN = "1280x1024x24"
POLL_SECONDS = 0.05


def _first_program(*candidates):
    for candidate in candidates:
        found = candidate if os.path.isabs(candidate) else shutil.which(candidate)
        if found and os.access(found, os.X_OK):
            return found
    return candidates[0]


# Debian's wine64 package has no /usr/bin/wine.
WINE = _first_program("/usr/lib/wine/wine64", "wine64", "wine")
WINESERVER = _first_program("/usr/lib/wine/wineserver64", "wineserver64", "wineserver")


def wait_until(condition, timeout, what, accept=bool, poll=POLL_SECONDS):
    """Polls condition() every `poll` seconds until accept() takes its value
    (by default: until it is truthy) and returns that value; fails the test
    with the last value seen when the deadline passes."""
    deadline = time.monotonic() + timeout * TIMEOUT_SCALE
    while True:
        last = condition()
        if accept(last):
            return last
        if time.monotonic() > deadline:
            raise AssertionError(f"timed out after {timeout} s waiting for {what}; last seen: {last!r}")
        time.sleep(poll)


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
        wait_until(lambda: socket.exists() or self.process.poll() is not None, 20, f"Xvfb :{number}")
        if self.process.poll() is None:
            self.name = f":{number}"
            return True
        self.process = None
        return False

    def stop(self):
        if self.process:
            _stop_process(self.process)
            self.process = None


class WinePrefix:
    """A prefix in the build tree, created once and reused afterwards.

    The tests' prefixes make windows unmanaged: without a window manager, every
    hide or close of a managed window waits two seconds for an answer that
    never comes. A prefix for the user's own desktop keeps managed windows."""

    READY_MARK = ".klickwerk-ready"
    NO_CRASH_DIALOG = (r"HKCU\Software\Wine\WineDbg", "ShowCrashDialog", "REG_SZ", "0")
    UNMANAGED_WINDOWS = (r"HKCU\Software\Wine\X11 Driver", "Managed", "REG_SZ", "N")
    DPI_144 = (r"HKCU\Control Panel\Desktop", "LogPixels", "REG_DWORD", "144")

    def __init__(self, display, name="wineprefix", settings=(UNMANAGED_WINDOWS,)):
        """settings: registry values (key, name, type, data) the prefix gets
        when it is created."""
        self.path = BUILD_DIR / name
        self.settings = [self.NO_CRASH_DIALOG, *settings]
        self.env = dict(os.environ, WINEPREFIX=str(self.path), WINEDEBUG="-all",
                        WINEDLLOVERRIDES="mscoree,mshtml=", DISPLAY=display)
        self.env.pop("WINELOADER", None)

    def ensure(self):
        if (self.path / self.READY_MARK).exists():
            return self
        self.path.mkdir(parents=True, exist_ok=True)
        self.run([WINE, "wineboot", "-i"], 300)
        for key, name, kind, data in self.settings:
            self.run([WINE, "reg", "add", key, "/v", name, "/t", kind, "/d", data, "/f"], 60)
        self.kill()
        (self.path / self.READY_MARK).write_text("wineboot done\n")
        return self

    def run(self, command, timeout=60):
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
    def __init__(self, managed_windows):
        self.display = VirtualDisplay()
        self.managed_windows = managed_windows
        self.prefix = None

    def start(self):
        display = self.display.start()
        managed = {"name": "wineprefix-desktop", "settings": ()} if self.managed_windows else {}
        self.prefix = WinePrefix(display, **managed).ensure()
        return self

    def stop(self):
        if self.prefix:
            self.prefix.kill()
        self.display.stop()


_session = None


def session(managed_windows=False):
    """The run's display and prefix, started by the first call."""
    global _session
    if _session is None:
        _session = Session(managed_windows)
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
