"""Bad files met by the real program: a 100 MB binary working copy, a UTF-16
script named on the command line and settings files saved as Unicode. The
program starts, shows what it should, logs what it should and is ready within
5 s from its start (stretched by KW_E2E_TIMEOUT_SCALE on a slow machine);
each test prints the time it took."""
import time

from harness import APP_TITLE, SETTLED, WineTestCase, file_bytes, script_bytes, script_lines, step, win_path
from wine_session import TIMEOUT_SCALE, wait_until

BUDGET = 5  # wait_until stretches it itself
MOST_SECONDS = BUDGET * TIMEOUT_SCALE
NOT_A_SCRIPT = "Klickwerk Invalid procedure call or argument 5 ReadData 0\r\n"


def utf16(text):
    """As editors save "Unicode": UTF-16 little-endian after its byte-order mark."""
    return b"\xff\xfe" + text.encode("utf-16-le")


def binary(size):
    return bytes(range(256)) * (size // 256)


class BadFilesTest(WineTestCase):
    def start_timed(self, *args):
        """Starts the program, waits for its main window and returns the moment
        it was started. The Wine server is started first, by the driver, so
        that the time is the program's own."""
        self.driver("windows")
        started = time.monotonic()
        self.klickwerk = self.start_klickwerk(*args)
        self.wait_for_main_window()
        return started

    def report(self, what, started):
        seconds = time.monotonic() - started
        print(f"bad file end to end: {what:<40} {seconds:6.2f} s (at most {MOST_SECONDS:g} s)")
        self.assertLess(seconds, MOST_SECONDS, what)

    def test_100_mb_binary_working_copy_leaves_the_grid_empty_and_is_logged(self):
        working_copy = binary(100 << 20)
        self.make_program_folder(SETTLED, {"Data.dat": working_copy})
        started = self.start_timed()
        wait_until(self.error_log, BUDGET, "the reader's line in the error log")
        self.report("100 MB binary Data.dat", started)
        self.screenshot("binary-working-copy")
        self.assertEqual(NOT_A_SCRIPT, self.error_log())
        self.assertEqual(([], "0"), (self.grid(), self.panels()[5]))

        self.driver("close", self.main["target"])
        self.wait_for_msgbox(f"{APP_TITLE} logged some minor errors during this run.  "
                             "Please send Error.log to support@klickwerk.example.  Thank you.")
        self.answer("OK")
        self.wait_for_exit(self.klickwerk)
        self.assertTrue(file_bytes(self.folder / "Data.dat") == working_copy, "an empty grid is never written")

    def test_utf16_script_on_the_command_line_reads_no_steps_and_is_logged(self):
        text = "".join(line + "\r\n" for line in script_lines([step(keys="Hello"), step(x=10, y=20)]))
        self.make_program_folder(SETTLED, {"Scripts/unicode.kwf": utf16(text)})
        started = self.start_timed(win_path(self.folder / "Scripts" / "unicode.kwf"))
        wait_until(self.error_log, BUDGET, "the reader's line in the error log")
        self.report("UTF-16 script on the command line", started)
        self.screenshot("utf16-script")
        self.assertEqual(NOT_A_SCRIPT, self.error_log())
        # The file exists, so there is no "Failed to load" box; with no steps nothing plays.
        self.assertEqual(([], False), (self.grid(), self.running()))
        self.assertIsNone(self.driver("msgbox", allow_missing=True))

    def test_settings_saved_as_unicode_are_read_as_text(self):
        settings = "".join(f"{key}={value}\r\n" for key, value in (SETTLED | {"StopKey": 119, "StepCounter": 42}).items())
        for name, encoded in (("UTF-8 with BOM", b"\xef\xbb\xbf" + f"[MAIN]\r\n{settings}".encode()),
                              ("UTF-16", utf16(f"[MAIN]\r\n{settings}"))):
            with self.subTest(name):
                self.make_program_folder(None, {"Settings.ini": encoded,
                                                "Data.dat": script_bytes(script_lines([step(keys="k")]))})
                started = self.start_timed()
                self.wait_for_grid_rows(1, timeout=BUDGET)
                self.report(f"Settings.ini in {name}", started)
                self.assertEqual(["F8", "42"], self.panels()[3:5], "stop key and click counter as stored")
                self.stop_started()
