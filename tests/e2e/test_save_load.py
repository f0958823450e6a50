"""The toolbar's save and load commands through the system's real file
dialogs: the proposed name, the copy of the working copy, a refused file, and
how long their messages stay in the status line."""
import shutil
import time

from harness import APP_TITLE, WineTestCase
from test_startup import SETTLED, fields_of, script_bytes
from wine_session import TIMEOUT_SCALE, wait_until

SAVE_TITLE = "Save Configuration File (Script File)"
LOAD_TITLE = "Load Configuration File (Script File)"

SCRIPT = [
    "True|||1||100||200||Left Click||Hello World||0||1||0",
    "False|||2||-1||-1||No Click||||0||0||0",
    "True|||3||RND(10,20,0)||300||Right DblClick||%r||1||30||2",
]

# How far a display time may stray from the timer's interval.
TOLERANCE = 0.35 * TIMEOUT_SCALE


class SaveLoadTestCase(WineTestCase):
    def start_with_script(self, files=None):
        """Klickwerk on SCRIPT as its working copy, with an empty Scripts
        folder plus `files`."""
        folder = self.make_program_folder(settings=SETTLED, files={"Data.dat": script_bytes(SCRIPT)})
        shutil.rmtree(folder / "Scripts")
        (folder / "Scripts").mkdir()
        for name, content in (files or {}).items():
            (folder / "Scripts" / name).write_bytes(content)
        process = self.start_klickwerk(folder)
        main = self.wait_for_main_window()
        self.wait_for_grid_rows(main, len(SCRIPT))
        return folder, process, main

    def open_dialog(self, main, caption, title):
        """Clicks a toolbar button and returns its file dialog once shown; the
        button is disabled while the dialog is up, "Exit" never."""
        self.click_toolbar(main, caption)
        dialog = self.wait_for_dialog(title)
        enabled = self.toolbar_enabled(main)
        self.assertEqual((False, True), (enabled[caption], enabled["Exit"]))
        return dialog

    def file_name_box(self, dialog):
        boxes = [control["text"] for control in self.driver("controls", f"hwnd={dialog['hwnd']}")
                 if control["class"] == "Edit" and control["visible"]]
        self.assertEqual(1, len(boxes), "one file name box")
        return boxes[0]

    def wait_until_enabled(self, main, caption):
        wait_until(lambda: self.toolbar_enabled(main)[caption], 20, f"the {caption!r} button to be enabled again")
        return time.monotonic()

    def assert_shown_for(self, main, text, seconds, started_after, started_before):
        """Status panel 1 shows `text`, set at a moment between the two times
        given, for `seconds` and is then emptied. Polls until it is gone; the
        time shown lies between the shortest and the longest the polls allow,
        and only a time that is surely too short or too long fails."""
        deadline = time.monotonic() + (seconds + 10) * TIMEOUT_SCALE
        last_seen = None
        while True:
            polled = time.monotonic()
            shown = self.panel(main, 1)
            if shown == text:
                last_seen = polled
            elif last_seen is not None:
                gone = time.monotonic()
                break
            if time.monotonic() > deadline:
                self.fail(f"{text!r} was still shown or never shown after {seconds + 10} s; panel 1: {shown!r}")
        self.assertEqual("", shown, f"panel 1 after {text!r}")
        shortest, longest = last_seen - started_before, gone - started_after
        self.assertLessEqual(shortest, seconds + TOLERANCE, f"{text!r} stayed too long")
        self.assertGreaterEqual(longest, seconds - TOLERANCE, f"{text!r} vanished too early")


class SaveTest(SaveLoadTestCase):
    def test_save_writes_the_working_copy_under_the_proposed_name(self):
        folder, process, main = self.start_with_script()

        dialog = self.open_dialog(main, "Save", SAVE_TITLE)
        self.assertEqual("Klickwerk001.kwf", self.file_name_box(dialog), "proposal in an empty Scripts folder")
        self.screenshot("save-dialog")
        confirmed = time.monotonic()
        self.enter_file_name(SAVE_TITLE, "Klickwerk001.kwf")
        saved = self.wait_until_enabled(main, "Save")

        self.assert_shown_for(main, "Saved successfully.", 2, confirmed, saved)
        self.assertEqual(script_bytes(SCRIPT), (folder / "Data.dat").read_bytes())
        self.assertEqual(script_bytes(SCRIPT), (folder / "Scripts" / "Klickwerk001.kwf").read_bytes())

        # The next proposal counts on; a name typed without extension gets one.
        dialog = self.open_dialog(main, "Save", SAVE_TITLE)
        self.assertEqual("Klickwerk002.kwf", self.file_name_box(dialog))
        self.enter_file_name(SAVE_TITLE, "mine")
        self.wait_until_enabled(main, "Save")
        self.assertEqual(["Klickwerk001.kwf", "mine.kwf"], sorted(p.name for p in (folder / "Scripts").iterdir()))
        self.assertEqual(script_bytes(SCRIPT), (folder / "Scripts" / "mine.kwf").read_bytes())

        self.close_klickwerk(process, main)
        self.assert_no_errors_logged(folder)


class LoadTest(SaveLoadTestCase):
    REFUSED = [
        # Only the first line decides; the second would be a valid step.
        ("bad.kwf", b"Klickwerk script\r\nTrue|||1||1||2||No Click||||0||0||0\r\n", "Load failed.  Incorrect contents."),
        ("empty.kwf", b"", "empty.kwf is empty."),
    ]

    def test_refused_files_leave_grid_and_working_copy_unchanged(self):
        folder, process, main = self.start_with_script({name: content for name, content, _ in self.REFUSED})
        rows = self.grid(main)["rows"]

        for name, _, message in self.REFUSED:
            with self.subTest(file=name):
                self.open_dialog(main, "Load", LOAD_TITLE)
                self.enter_file_name(LOAD_TITLE, name)
                box = self.wait_for_msgbox(message)
                self.assertEqual((APP_TITLE, ["OK"]), (box["title"], box["buttons"]))
                self.assertEqual(message, self.panel(main, 1))
                self.screenshot(f"refused-{name}")
                answered = time.monotonic()
                self.answer("OK")
                unlocked = self.wait_until_enabled(main, "Load")

                self.assertEqual(rows, self.grid(main)["rows"])
                self.assertEqual(script_bytes(SCRIPT), (folder / "Data.dat").read_bytes())
                # A message that needs a box is a long one: five seconds
                # from the moment the box is answered.
                self.assert_shown_for(main, message, 5, answered, unlocked)

        self.close_klickwerk(process, main)
        self.assert_no_errors_logged(folder)

    def test_load_replaces_grid_and_working_copy(self):
        loaded = ["True|||1||5||6||Left Click||typed||0||2||1", "False|||2||7||8||No Click||||0||0||0"]
        folder, process, main = self.start_with_script({"good.kwf": script_bytes(loaded)})

        self.open_dialog(main, "Load", LOAD_TITLE)
        self.enter_file_name(LOAD_TITLE, "good.kwf")
        grid = self.wait_for_grid_rows(main, len(loaded))
        self.wait_until_enabled(main, "Load")

        self.assertEqual([fields_of(line) for line in loaded], [(row["checked"], row["cells"]) for row in grid["rows"]])
        self.assertEqual(script_bytes(loaded), (folder / "Data.dat").read_bytes())
        self.assertIn(self.panel(main, 1), ("Loaded successfully.", ""))
        self.close_klickwerk(process, main)
        self.assert_no_errors_logged(folder)
