"""The toolbar's save and load commands through the system's real file
dialogs: the proposed name, the copy of the working copy with its message
in the status line for two seconds, a refused file and a loaded one."""
import time

from harness import APP_TITLE, WineTestCase, file_bytes, script_bytes
from wine_session import TIMEOUT_SCALE, wait_until

SAVE_TITLE = "Save Configuration File (Script File)"
LOAD_TITLE = "Load Configuration File (Script File)"
SCRIPT = ["True|||1||100||200||Left Click||Hello World||0||1||0",
          "False|||2||-1||-1||No Click||||0||0||0",
          "True|||3||RND(10,20,0)||300||Right DblClick||%r||1||30||2"]
LOADED = ["True|||1||5||6||Left Click||typed||0||2||1", "False|||2||7||8||No Click||||0||0||0"]
REFUSED = b"Klickwerk script\r\nTrue|||1||1||2||No Click||||0||0||0\r\n"  # only the first line decides
# How far a display time may stray from the timer's interval.
TOLERANCE = 0.35 * TIMEOUT_SCALE


class SaveLoadTest(WineTestCase):
    def use_dialog(self, caption, title, name):
        """Clicks a toolbar button and enters the name into its file dialog;
        the button is disabled while the dialog is up, "Exit" never."""
        self.click_toolbar(caption)
        dialog = self.wait_for_dialog(title)
        enabled = self.enabled()
        self.assertEqual((False, True), (enabled[caption], enabled["Exit"]))
        proposed = self.file_name_box(dialog)
        self.enter_file_name(title, name)
        return proposed

    def assert_shown_for(self, text, seconds, set_after):
        """Status panel 1 shows `text`, set after the moment given, for
        `seconds` and is then emptied. Polls until it is gone: the time shown
        lies between the span of the polls that saw it and the time since the
        moment given, and only a time that is surely too short or too long
        fails."""
        deadline = time.monotonic() + (seconds + 10) * TIMEOUT_SCALE
        first_seen = last_seen = None
        while True:
            polled = time.monotonic()
            shown = self.panels()[0]
            if shown == text:
                first_seen, last_seen = first_seen or polled, polled
            elif last_seen is not None:
                break
            if time.monotonic() > deadline:
                self.fail(f"{text!r} was still shown or never shown after {seconds + 10} s; panel 1: {shown!r}")
        gone = time.monotonic()
        self.assertEqual("", shown, f"panel 1 after {text!r}")
        self.assertLessEqual(last_seen - first_seen, seconds + TOLERANCE, f"{text!r} stayed too long")
        self.assertGreaterEqual(gone - set_after, seconds - TOLERANCE, f"{text!r} vanished too early")

    def test_save_copies_the_working_copy_and_load_refuses_a_wrong_file_and_takes_a_script(self):
        scripts = {"Scripts/refused.kwf": REFUSED, "Scripts/loaded.kwf": script_bytes(LOADED)}
        self.open_program(working_copy=SCRIPT, files=scripts)

        confirmed = time.monotonic()
        self.assertEqual(["Klickwerk001.kwf"], self.use_dialog("Save", SAVE_TITLE, "Klickwerk001.kwf"))
        self.assert_shown_for("Saved successfully.", 2, confirmed)
        self.assertTrue(self.enabled()["Save"])
        self.assertEqual(script_bytes(SCRIPT), file_bytes(self.folder / "Scripts" / "Klickwerk001.kwf"))

        self.use_dialog("Load", LOAD_TITLE, "refused.kwf")
        box = self.wait_for_msgbox("Load failed.  Incorrect contents.")
        self.assertEqual((APP_TITLE, ["OK"]), (box["title"], box["buttons"]))
        self.answer("OK")
        wait_until(lambda: self.enabled()["Load"], 20, "Load enabled again")
        self.assertEqual(script_bytes(SCRIPT), file_bytes(self.folder / "Data.dat"))
        self.assertEqual(len(SCRIPT), len(self.grid()))

        self.use_dialog("Load", LOAD_TITLE, "loaded.kwf")
        rows = self.wait_for_grid_rows(len(LOADED))
        self.assertEqual([line.split("|||", 1)[1].split("||") for line in LOADED], [row["cells"] for row in rows])
        self.assertEqual(script_bytes(LOADED), file_bytes(self.folder / "Data.dat"))
        self.close_klickwerk()
        self.assert_no_errors_logged()
