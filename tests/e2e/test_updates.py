"""The update check against servers on this machine, reached through the
"UpdateServer" setting: the reminder two calendar months after the last
check, the update window's answer to a newer build, the own build, an error
page and no server, and the archive's address handed to the shell; and the
internet client's FTP operations against a loopback FTP server.

Every server binds 127.0.0.1 only, ends with the test, and a server process
also ends by itself after SERVER_LIFETIME seconds."""
import datetime
import functools
import http.server
import re
import shutil
import socket
import subprocess
import threading
import time

from harness import APP_TITLE, SETTLED, WineTestCase, win_path
from wine_session import BUILD_DIR, TIMEOUT_SCALE, WINE, wait_until

BUILD = int(re.search(r"KW_BUILD_NUMBER (\d+)", (BUILD_DIR / "generated" / "version.h").read_text())[1])
HEADING = f"Updates for {APP_TITLE} Build {BUILD}"
DIALOG_TIMEOUT = 10  # seconds: what the update window allows "CurVersion.txt"
ACCESSING = "Accessing the server... Please wait."
NO_UPDATES = "No updates available at this time."
SERVER_LIFETIME = 300
HTTP_OPEN = r"HKCR\http\shell\open\command"
FTP_SERVERS = ("/usr/bin/python3", "python3")  # Debian's python3-pyftpdlib is for the system's Python


def add_months(day, months):
    index = day.year * 12 + day.month - 1 + months
    year, month = divmod(index, 12)
    last = (datetime.date(year + (month + 1) // 12, (month + 1) % 12 + 1, 1) - datetime.timedelta(days=1)).day
    return datetime.date(year, month + 1, min(day.day, last))


def two_months_back(today):
    """The last day whose check is two calendar months old today."""
    day = today - datetime.timedelta(days=70)
    while add_months(day + datetime.timedelta(days=1), 2) <= today:
        day += datetime.timedelta(days=1)
    return day


class QuietHandler(http.server.SimpleHTTPRequestHandler):
    def log_message(self, *args):
        pass


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


class UpdatesTest(WineTestCase):
    def setUp(self):
        super().setUp()
        pattern = re.search(r"sShortDate\s+REG_SZ\s+(\S+)", self.prefix_output(
            "reg", "query", r"HKCU\Control Panel\International", "/v", "sShortDate"))[1]
        self.short_date = lambda day: re.sub(r"y+|M+|d+", lambda field: {
            "yy": f"{day.year % 100:02}", "MM": f"{day.month:02}", "dd": f"{day.day:02}", "M": str(day.month),
            "d": str(day.day)}.get(field[0], str(day.year)), pattern)
        self.last_check = two_months_back(datetime.date.today())

    def prefix_output(self, *command):
        return subprocess.run([WINE, *command], env=self.prefix.env, capture_output=True, text=True,
                              timeout=60 * TIMEOUT_SCALE, check=True).stdout

    # Servers ---------------------------------------------------------------------

    def web_folder(self, files):
        """Python's http.server on 127.0.0.1 serving a folder of these files;
        returns the folder's address."""
        folder = self.out / f"web-{len(list(self.out.glob('web-*')))}"
        (folder / "kw").mkdir(parents=True)
        for name, text in files.items():
            (folder / "kw" / name).write_text(text)
        server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), functools.partial(QuietHandler, directory=str(folder)))
        threading.Thread(target=server.serve_forever, daemon=True).start()
        self.addCleanup(server.server_close)
        self.addCleanup(server.shutdown)
        return f"http://127.0.0.1:{server.server_address[1]}/kw/"

    def ftp_server(self, root):
        python = next((python for python in FTP_SERVERS if shutil.which(python) and subprocess.run(
            [python, "-c", "import pyftpdlib"], capture_output=True).returncode == 0), None)
        if not python:
            self.fail("pyftpdlib is missing: install python3-pyftpdlib (tools/common.sh lists it)")
        port = free_port()
        with open(self.out / "ftp-server.log", "wb") as log:
            server = subprocess.Popen(["timeout", str(SERVER_LIFETIME), python, "-m", "pyftpdlib", "-i", "127.0.0.1",
                                       "-p", str(port), "-w", "-d", str(root), "-u", "kw", "-P", "secret"],
                                      stdout=log, stderr=subprocess.STDOUT, stdin=subprocess.DEVNULL)
        self.addCleanup(server.wait)
        # SIGTERM, which timeout passes on to the server; a SIGKILL would end
        # timeout alone and leave the server running.
        self.addCleanup(server.terminate)

        def listening():
            with socket.socket() as client:
                return client.connect_ex(("127.0.0.1", port)) == 0
        wait_until(listening, 20, "the FTP server")
        return port

    # The program -------------------------------------------------------------------

    def start_with(self, last_check, server):
        self.make_program_folder(SETTLED | {"LastCheck": self.short_date(last_check), "UpdateServer": server})
        self.klickwerk = self.start_klickwerk()
        self.wait_for_main_window()

    def update_window(self):
        window = wait_until(lambda: next((w for w in self.driver("windows") if w["text"] == HEADING), None), 20,
                            "the update window")
        return f"hwnd={window['hwnd']}"

    def shown_in(self, window):
        """lblDisplay's text and whether cmdDownload is enabled."""
        controls = self.driver("controls", window)
        download = next(control for control in controls if control["text"] == "&Download")
        return next(control["text"] for control in controls if control["class"] == "Static"), download["enabled"]

    def check_for_updates(self, server):
        """Answers the reminder with Yes; returns the window, what it shows
        once the server has answered, and the seconds that took."""
        self.start_with(self.last_check, server)
        self.wait_for_msgbox(f"You have not checked for updates since {self.short_date(self.last_check)}\r\n"
                             "Would you like to check for updates now?")
        self.answer("Yes")
        started = time.monotonic()
        window = self.update_window()
        shown = wait_until(lambda: self.shown_in(window), DIALOG_TIMEOUT + 20, "the server's answer",
                           accept=lambda shown: shown[0] != ACCESSING)
        return window, shown, time.monotonic() - started

    def assert_closed_after_the_check(self):
        wait_until(lambda: all(w["text"] != HEADING for w in self.driver("windows")), 20, "the update window to close")
        self.assertEqual(self.short_date(datetime.date.today()), self.setting("LastCheck"))
        self.close_klickwerk()
        self.assert_no_errors_logged()

    # Tests -----------------------------------------------------------------------

    def test_the_reminder_comes_two_calendar_months_after_the_last_check(self):
        self.start_with(self.last_check, "http://127.0.0.1:1/")
        box = self.wait_for_msgbox(f"You have not checked for updates since {self.short_date(self.last_check)}\r\n"
                                   "Would you like to check for updates now?")
        self.assertEqual((APP_TITLE, ["Yes", "No"]), (box["title"], box["buttons"]))
        self.answer("No")
        self.close_klickwerk()
        self.assertEqual(self.short_date(self.last_check), self.setting("LastCheck"), "declining keeps the date")

        one_day_less = self.last_check + datetime.timedelta(days=1)
        self.start_with(one_day_less, "http://127.0.0.1:1/")
        # Loading ends with the reminder; the splash closes after it.
        wait_until(lambda: not any(w["class"] == "KlickwerkSplash" and w["visible"] for w in self.driver("windows")),
                   20, "the end of loading")
        self.assertIsNone(self.driver("msgbox", allow_missing=True))
        self.close_klickwerk()
        self.assert_no_errors_logged()

    def test_a_newer_build_is_offered_and_the_download_opens_the_archive(self):
        original = self.prefix_output("reg", "query", HTTP_OPEN, "/ve")
        handler = re.search(r"REG_SZ\s+(.*)", original)[1].strip()
        opened = self.out / "opened.txt"
        self.prefix_output("reg", "add", HTTP_OPEN, "/ve", "/f", "/d",
                           f'"{win_path(BUILD_DIR / "inet_fixture.exe")}" --opened "{win_path(opened)}" "%1"')
        self.addCleanup(self.prefix_output, "reg", "add", HTTP_OPEN, "/ve", "/f", "/d", handler)
        server = self.web_folder({"CurVersion.txt": f"{BUILD + 1}\r\n"})

        window, shown, _ = self.check_for_updates(server)
        self.assertEqual((f"There is an update available!\r\nPress download button to download build {BUILD + 1}",
                          True), shown)
        # The help file's picture of the window.
        self.crop(self.settled_screenshot("update-window"), self.window_rect(window), "updates_window")
        self.driver("click", window, "Download")
        self.wait_for_msgbox(f"Please close {APP_TITLE} before installing the update.")
        wait_until(opened.exists, 20, "the shell to start the web browser")
        self.assertEqual(f"{server}klickwerk.zip show 3", opened.read_text().strip())
        self.answer("OK")
        self.assert_closed_after_the_check()

    def test_the_own_build_an_error_page_and_no_server_offer_nothing(self):
        cases = {"own build": self.web_folder({"CurVersion.txt": str(BUILD)}),
                 "error page": self.web_folder({}) + "missing/",
                 "no server": f"http://127.0.0.1:{free_port()}/kw/"}
        for case, server in cases.items():
            with self.subTest(case):
                window, shown, seconds = self.check_for_updates(server)
                print(f"\n{case}: the answer came after {seconds:.1f} s (the window allows {DIALOG_TIMEOUT} s)")
                self.assertEqual((NO_UPDATES, False), shown)
                self.assertLess(seconds, DIALOG_TIMEOUT * TIMEOUT_SCALE + 5)
                self.driver("click", window, "Close")
                self.assert_closed_after_the_check()

    def test_ftp_operations_against_a_loopback_server(self):
        root = self.out / "ftp-root"
        root.mkdir()
        port = self.ftp_server(root)
        upload, download = self.out / "upload.txt", self.out / "download.txt"
        upload.write_bytes(b"Klickwerk over FTP\r\n" * 100)
        log = self.out / "inet.log"
        fixture = self.start_windows_program(
            BUILD_DIR / "inet_fixture.exe", "--log", win_path(log), "connect", "127.0.0.1", str(port), "kw", "secret",
            "mkdir", "kw", "cd", "kw", "send", win_path(upload), "a.txt", "list", "rename", "a.txt", "b.txt", "list",
            "get", "b.txt", win_path(download), "delete", "b.txt", "list", "cd", "/", "rmdir", "kw",
            "rmdir", "kw", "showerror", "disconnect")
        box = wait_until(lambda: self.driver("msgbox", allow_missing=True), 60, "the error of the second rmdir")
        self.assertRegex(box["text"], r"^Error 12003: 550 ")
        self.answer("OK")
        self.assertEqual(0, self.wait_for_exit(fixture))
        self.assertEqual(["connect ok", "mkdir ok", "cd ok", "send ok", "list a.txt", "rename ok", "list b.txt",
                          "get ok", "delete ok", "list", "cd ok", "rmdir ok", "rmdir failed", "showerror",
                          "disconnect"], log.read_text().splitlines())
        self.assertEqual(upload.read_bytes(), download.read_bytes())
        self.assertEqual([], list(root.iterdir()))
