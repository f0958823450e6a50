"""Start-up of the real program as the user meets it: the settings bootstrap
with the first-run offer, a script named on the command line, a declined
second instance and a script that does not exist."""
import re
import subprocess

from harness import APP_TITLE, WineTestCase, file_bytes, read_ini, win_path
from wine_session import WINE, wait_until

HEADERS = ["#", "X", "Y", "Button", "Additional", "Mins", "Secs", "Repeat"]

# Settings of a program that has been run before; no update reminder because
# an empty "LastCheck" counts as today, no hint frame over the grid.
SETTLED = [("FirstRun", "0"), ("OnTop", "0"), ("GRepeat", "0"), ("SmoothPointer", "0"), ("ShowCount", "1"),
           ("StartMin", "0"), ("WithWindows", "0"), ("DYK", "0"), ("Enter4Step", "0"), ("MouseSaver", "0"),
           ("StopKey", "27"), ("StepCounter", "0"), ("Height", "6610"), ("RecMode", "0"), ("AutoStart", "0")]

TWIPS_PER_PIXEL = 15  # at the 96 dots per inch of the virtual screen


def script_bytes(lines):
    return "".join(line + "\r\n" for line in lines).encode("latin-1")


def fields_of(line):
    """What the grid should show for a well-formed script line."""
    enabled, rest = line.split("|||", 1)
    return enabled == "True", rest.split("||")


class FirstStartTest(WineTestCase):
    def test_first_start_in_an_empty_folder_writes_every_default(self):
        folder = self.make_program_folder()
        process = self.start_klickwerk(folder)

        box = self.wait_for_msgbox("Failed to locate Settings file.  Loading defaults.")
        self.assertEqual((APP_TITLE, ["OK"]), (box["title"], box["buttons"]))
        self.answer("OK")
        question = self.wait_for_msgbox(
            f"This is your first time running {APP_TITLE}.  Would you like to load 'FirstRun' example script?")
        self.assertEqual((APP_TITLE, ["Yes", "No"]), (question["title"], question["buttons"]))
        self.answer("No")

        main = self.wait_for_main_window()
        self.screenshot("first-start")
        grid = self.grid(main)
        self.assertEqual(HEADERS, [column["header"] for column in grid["columns"]])
        self.assertEqual([], grid["rows"])
        panels = self.driver("status", main["target"])["panels"]
        self.assertEqual(6, len(panels))
        self.assertEqual(["ESCAPE", "0", "0"], panels[3:])
        window_height = main["rect"][3] - main["rect"][1]
        self.close_klickwerk(process, main)

        self.assert_no_errors_logged(folder)
        settings = read_ini(folder / "Settings.ini")
        self.assertEqual(["FirstRun", "AutoStart", "OnTop", "GRepeat", "SmoothPointer", "ShowCount", "StartMin",
                          "WithWindows", "DYK", "Enter4Step", "MouseSaver", "StopKey", "StepCounter", "LastCheck",
                          "Height", "RecMode", "ColWidth"],
                         [key for key, _ in settings], "keys in the order they were first written")
        values = dict(settings)
        self.assertEqual({"FirstRun": "0", "AutoStart": "0", "OnTop": "0", "GRepeat": "0", "SmoothPointer": "0",
                          "ShowCount": "1", "StartMin": "0", "WithWindows": "0", "DYK": "1", "Enter4Step": "0",
                          "MouseSaver": "0", "StopKey": "27", "StepCounter": "0", "RecMode": "0"},
                         {key: value for key, value in values.items()
                          if key not in ("LastCheck", "Height", "ColWidth")})
        self.assertRegex(values["LastCheck"], r"^\d{1,4}([./-])\d{1,2}\1\d{1,4}$")
        # 6610 twips first, then the window's real height saved on closing.
        height = int(values["Height"])
        self.assertLessEqual(abs(height - 6610), TWIPS_PER_PIXEL)
        self.assertLessEqual(abs(height - window_height * TWIPS_PER_PIXEL), TWIPS_PER_PIXEL)
        # The working copy is created empty and an empty grid is never written.
        self.assertEqual(b"", (folder / "Data.dat").read_bytes())


class CommandLineTest(WineTestCase):
    WELL_FORMED = [
        "True|||1||100||200||Left Click||Hello World||0||1||0",
        "False|||2||-1||-1||No Click||||0||0||0",
        "True|||3||RND(10,20,0)||300||Right DblClick||%winfoc Untitled - Editor||0||2||3",
        "True|||4||640||512||Left Down||||1||30||2",
        "True|||5||640||512||Left Up||x||0||0||0",
    ]

    def test_script_with_nostart_and_norep_fills_the_grid_and_the_working_copy(self):
        # Repetition stored as on: "norep" must switch it off.
        settings = [(key, "1" if key == "GRepeat" else value) for key, value in SETTLED]
        folder = self.make_program_folder(settings=settings,
                                          files={r"Scripts/demo.kwf": script_bytes(self.WELL_FORMED)})
        process = self.start_klickwerk(folder, win_path(folder / "Scripts" / "demo.kwf"), "/nostart", "/norep")

        main = self.wait_for_main_window()
        grid = self.wait_for_grid_rows(main, len(self.WELL_FORMED))
        self.screenshot("script-loaded")
        self.assertEqual([fields_of(line) for line in self.WELL_FORMED],
                         [(row["checked"], row["cells"]) for row in grid["rows"]])
        self.close_klickwerk(process, main)

        self.assert_no_errors_logged(folder)
        self.assertEqual(script_bytes(self.WELL_FORMED), (folder / "Data.dat").read_bytes())
        values = dict(read_ini(folder / "Settings.ini"))
        self.assertEqual("0", values["GRepeat"], "norep switched repetition off")
        self.assertEqual("0", values["StepCounter"], "nostart: nothing was played")

    def test_step_numbers_from_the_file_are_shown_and_renumbered_on_saving(self):
        lines = ["True|||5||1||2||No Click||a||0||0||0",
                 "False|||9||3||4||No Click||b||0||0||0",
                 "True|||12||5||6||No Click||c||0||0||0"]
        folder = self.make_program_folder(settings=SETTLED, files={"gaps.kwf": script_bytes(lines)})
        process = self.start_klickwerk(folder, win_path(folder / "gaps.kwf"), "/nostart", "/norep")

        main = self.wait_for_main_window()
        grid = self.wait_for_grid_rows(main, 3)
        self.assertEqual(["5", "9", "12"], [row["cells"][0] for row in grid["rows"]])
        self.close_klickwerk(process, main)

        renumbered = [re.sub(r"\|\|\|\d+\|\|", f"|||{k}||", line, count=1) for k, line in enumerate(lines, 1)]
        self.assertEqual(script_bytes(renumbered), (folder / "Data.dat").read_bytes())

    def test_missing_script_is_reported_with_the_path_as_typed_and_the_grid_stays_empty(self):
        for typed in (r"Scripts\absent.kwf", "Z:\\nowhere\\absent.kwf"):
            with self.subTest(path=typed):
                folder = self.make_program_folder(name=f"program-{len(self.started)}", settings=SETTLED)
                process = self.start_klickwerk(folder, typed, "/nostart", "/norep")

                box = self.wait_for_msgbox(f"Failed to load {typed} script file.  Script does not exist/corrupted.")
                self.assertEqual((APP_TITLE, ["OK"]), (box["title"], box["buttons"]))
                self.answer("OK")
                main = self.wait_for_main_window()
                self.assertEqual([], self.grid(main)["rows"])
                self.close_klickwerk(process, main)
                self.assertEqual(b"", file_bytes(folder / "Data.dat"))


class SecondInstanceTest(WineTestCase):
    def test_second_instance_answered_no_ends_before_any_window(self):
        folder = self.make_program_folder(settings=SETTLED)
        first = self.start_klickwerk(folder)
        main = self.wait_for_main_window()

        second = self.start_klickwerk(folder)
        box = self.wait_for_msgbox(f"There's an instance of {APP_TITLE} already running.  Create a new instance?")
        self.assertEqual((APP_TITLE, ["Yes", "No"]), (box["title"], box["buttons"]))
        self.assertNotEqual(main["pid"], box["pid"])
        shown_by_second = [window for window in self.driver("windows")
                           if window["pid"] == box["pid"] and window["visible"] and window["hwnd"] != box["hwnd"]]
        self.assertEqual([], shown_by_second, "the question comes before any window")
        self.answer("No", pid=box["pid"])

        self.wait_for_exit(second)
        self.assertIsNone(first.poll(), "the first instance keeps running")
        self.assertEqual([main["hwnd"]], [window["hwnd"] for window in self.main_windows()])
        self.close_klickwerk(first, main)


class CloseTest(WineTestCase):
    def test_closing_saves_the_repeat_toggle_as_the_user_left_it(self):
        folder = self.make_program_folder(settings=SETTLED)
        process = self.start_klickwerk(folder)
        main = self.wait_for_main_window()

        self.driver("click", main["target"], "Repeat")
        self.close_klickwerk(process, main)

        self.assert_no_errors_logged(folder)
        self.assertEqual("1", dict(read_ini(folder / "Settings.ini"))["GRepeat"])

    def test_closing_after_a_new_error_line_shows_the_notice_and_opens_the_log(self):
        old_line = b"Klickwerk Type mismatch 13 StartButton 0\r\n"
        bad_step = ["True|||1||abc||10||No Click||||0||0||0"]  # X is no number: the run logs an error
        folder = self.make_program_folder(settings=SETTLED, files={"Error.log": old_line,
                                                                   "bad.kwf": script_bytes(bad_step)})
        process = self.start_klickwerk(folder, win_path(folder / "bad.kwf"), "/norep")
        main = self.wait_for_main_window()
        wait_until(lambda: file_bytes(folder / "Error.log") != old_line, 20, "the run's line in the error log")

        self.associate_log_files_with_notepad()
        self.driver("close", main["target"])
        box = self.wait_for_msgbox(f"{APP_TITLE} logged some minor errors during this run.  "
                                   "Please send Error.log to support@klickwerk.example.  Thank you.")
        self.assertEqual(["OK"], box["buttons"])
        self.answer("OK")
        self.wait_for_exit(process)
        opened = wait_until(lambda: [p for p in self.driver("processes") if "error.log" in p["commandLine"].lower()],
                            20, "the error log opened by the shell")
        self.assertIn(win_path(folder / "Error.log").lower(), opened[0]["commandLine"].lower())
        self.driver("close", "Error.log - Notepad", wait=20)
        self.assertEqual(old_line * 2, file_bytes(folder / "Error.log"), "the log is only ever appended to")

    def associate_log_files_with_notepad(self):
        """As on Windows, where ".log" files open in Notepad; a fresh Wine
        prefix knows no such association."""
        for key, data in ((r"HKCR\.log", "txtfile"), (r"HKCR\txtfile\shell\open\command", 'notepad.exe "%1"')):
            subprocess.run([WINE, "reg", "add", key, "/ve", "/d", data, "/f"], env=self.session.env,
                           stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                           timeout=60, check=True)

    def test_closing_with_an_old_log_but_no_new_line_shows_nothing(self):
        folder = self.make_program_folder(settings=SETTLED, files={"Error.log": b"an older run's line\r\n"})
        process = self.start_klickwerk(folder)
        main = self.wait_for_main_window()
        self.close_klickwerk(process, main)  # fails on any message box
        self.assertEqual(b"an older run's line\r\n", file_bytes(folder / "Error.log"))
