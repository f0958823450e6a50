"""Start-up and close of the real program as the user meets them: the first
run's offer, a script named on the command line with and without switches,
a declined second instance, the error-log notice on closing and logging
off."""
import re

from harness import APP_TITLE, WineTestCase, file_bytes, script_bytes, script_lines, step
from wine_session import WINE, wait_until

PROBE = "Probe Start"
SPLASH = "KlickwerkSplash"
# Gives the probe the keyboard as a script of the user's own would.
FOCUS_PROBE = step(keys=f"%winfoc {PROBE}")


class StartupTest(WineTestCase):
    def test_first_start_in_an_empty_folder_offers_the_example_and_writes_the_settings(self):
        self.make_program_folder()
        self.klickwerk = self.start_klickwerk()
        for text, buttons, answer in (
                ("Failed to locate Settings file.  Loading defaults.", ["OK"], "OK"),
                (f"This is your first time running {APP_TITLE}.  Would you like to load 'FirstRun' example script?",
                 ["Yes", "No"], "No")):
            box = self.wait_for_msgbox(text)
            # Owned by the topmost splash, so never hidden behind it.
            self.assertEqual((APP_TITLE, buttons, SPLASH), (box["title"], box["buttons"], box["owner"]))
            self.answer(answer)

        self.wait_for_main_window()
        self.screenshot("first-start")
        self.assertEqual([], self.grid())
        self.close_klickwerk()
        self.assert_no_errors_logged()
        self.assertEqual("0", self.setting("FirstRun"), "the offer comes only once")
        self.assertEqual(b"", file_bytes(self.folder / "Data.dat"), "the working copy is created empty")

    def test_script_with_nostart_and_norep_fills_the_grid_and_plays_one_pass_on_start(self):
        # Numbers with gaps are shown as in the file and renumbered on saving.
        lines = ["True|||5||-1||-1||No Click||n||0||0||0",
                 "False|||9||100||200||Left Click||Hello World||0||1||0",
                 "False|||12||RND(10,20,0)||300||Right DblClick||%winfoc Untitled - Editor||1||30||3"]
        probe, _ = self.open_probe(PROBE)
        self.open_program(lines, GRepeat=1)  # repetition stored as on: /norep must switch it off
        self.screenshot("script-loaded")
        self.assertEqual([(line.startswith("True"), line.split("|||", 1)[1].split("||")) for line in lines],
                         [(row["checked"], row["cells"]) for row in self.grid()])
        self.assertEqual(("0", False), (self.panels()[4], self.running()), "nothing played")

        self.give_focus(PROBE)
        self.press("Start")
        self.wait_for_steps(1)
        self.assertEqual("n", probe.text(), "one pass: repetition is off")
        self.close_klickwerk()
        self.assertEqual("0", self.setting("GRepeat"))
        self.assertEqual(script_bytes(re.sub(r"\|\|\|\d+\|\|", f"|||{number}||", line, count=1)
                                      for number, line in enumerate(lines, 1)),
                         file_bytes(self.folder / "Data.dat"))
        self.assert_no_errors_logged()

    def test_script_without_switches_plays_at_once_with_repetition_on(self):
        probe, _ = self.open_probe(PROBE)
        self.focus(PROBE)
        self.open_program(script_lines([FOCUS_PROBE, step(keys="go", secs=0.2)]), switches=())

        wait_until(lambda: probe.text().count("go") >= 2, 30, "the script played twice")
        self.assertTrue(self.running())
        self.hold_key("Escape", lambda: not self.running(), "the stop key to end the run")
        self.close_klickwerk()
        self.assertEqual("1", self.setting("GRepeat"))

    def test_second_instance_answered_no_ends_before_any_window(self):
        self.open_program()
        second = self.start_klickwerk()
        box = self.wait_for_msgbox(f"There's an instance of {APP_TITLE} already running.  Create a new instance?")
        self.assertNotEqual(self.main["pid"], box["pid"])
        shown_by_second = [window for window in self.driver("windows")
                           if window["pid"] == box["pid"] and window["visible"] and window["hwnd"] != box["hwnd"]]
        self.assertEqual([], shown_by_second, "the question comes before any window")
        self.answer("No", pid=box["pid"])

        self.wait_for_exit(second)
        self.assertEqual([self.main["hwnd"]], [window["hwnd"] for window in self.main_windows()])
        self.close_klickwerk()

    def test_closing_after_a_new_error_line_shows_the_notice_and_opens_the_log(self):
        old_line = b"Klickwerk Type mismatch 13 StartButton 0\r\n"
        # X is no number: the run ends through the error trap with a line in the log.
        self.open_program(script_lines([step(x="abc", y=10)]), switches=("/norep",), files={"Error.log": old_line})
        wait_until(self.error_log, 20, "the run's line in the error log", accept=lambda log: log != old_line.decode())
        self.assertEqual("Error: Type mismatch 13 StartButton 0", self.panels()[0])
        # As on Windows, where ".log" files open in Notepad.
        for key, data in ((r"HKCR\.log", "txtfile"), (r"HKCR\txtfile\shell\open\command", 'notepad.exe "%1"')):
            self.prefix.run([WINE, "reg", "add", key, "/ve", "/d", data, "/f"])

        self.driver("close", self.main["target"])
        self.wait_for_msgbox(f"{APP_TITLE} logged some minor errors during this run.  "
                             "Please send Error.log to support@klickwerk.example.  Thank you.")
        self.answer("OK")
        self.wait_for_exit(self.klickwerk)
        self.driver("close", "Error.log - Notepad", wait=20)
        self.assertEqual(old_line * 2, file_bytes(self.folder / "Error.log"), "the log is only ever appended to")

    def test_logging_off_runs_the_close_steps_beside_another_copys_temporary_settings_file(self):
        self.open_program(script_lines([step(keys="a")]))
        # Another running copy's temporary file, as it is while that copy writes.
        (self.folder / "Settings.ini.new").mkdir()
        self.press("Repeat")  # kept in memory until the program closes
        self.assertEqual({"agreed": True}, self.driver("endsession", self.main["target"]))
        self.wait_for_exit(self.klickwerk)
        self.assertEqual("1", self.setting("GRepeat"))
        self.assert_no_errors_logged()
