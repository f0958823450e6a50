"""Bad files met by the real program: a 100 MB binary working copy, a UTF-16
script named on the command line and settings files saved as Unicode. The
program starts, shows what it should, logs what it should and is ready within
5 s from its start (stretched by KW_E2E_TIMEOUT_SCALE on a slow machine);
each test prints the time it took."""
import time

from harness import APP_TITLE, SETTLED, WineTestCase, file_bytes, script_bytes, script_lines, step
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

    def test_a_binary_working_copy_and_a_utf16_script_read_no_steps_and_are_logged(self):
        text = "".join(line + "\r\n" for line in script_lines([step(keys="Hello"), step(x=10, y=20)]))
        # The files, and the command line: the UTF-16 script exists, so there is no "Failed to load" box.
        cases = {"100 MB binary Data.dat": ({"Data.dat": binary(100 << 20)}, []),
                 "UTF-16 script on the command line": ({"Scripts/unicode.kwf": utf16(text)}, [r"Scripts\unicode.kwf"])}
        for what, (files, args) in cases.items():
            with self.subTest(what):
                self.make_program_folder(SETTLED, files)
                started = self.start_timed(*args)
                wait_until(self.error_log, BUDGET, "the reader's line in the error log")
                self.report(what, started)
                self.screenshot(what.replace(" ", "-"))
                self.assertEqual(NOT_A_SCRIPT, self.error_log())
                self.assertEqual(([], "0", False), (self.grid(), self.panels()[5], self.running()))
                self.assertIsNone(self.driver("msgbox", allow_missing=True))

                self.driver("close", self.main["target"])
                self.wait_for_msgbox(f"{APP_TITLE} logged some minor errors during this run.  "
                                     "Please send Error.log to support@klickwerk.example.  Thank you.")
                self.answer("OK")
                self.wait_for_exit(self.klickwerk)
                self.assertTrue(file_bytes(self.folder / "Data.dat") == files.get("Data.dat", b""),
                                "an empty grid is never written")

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
