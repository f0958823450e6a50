"""The keys a user presses while the program plays or waits: the stop key
and the panel that changes it, F10 pausing a run, F12 copying the pointer
position into the selected rows."""
from harness import APP_TITLE
from playback_fixture import PlaybackTestCase, step
from wine_session import wait_until

PROBE = "Probe Hot Keys"
STOP_KEY_PANEL = 4


class StopKeyPanelTest(PlaybackTestCase):
    def panel_shown(self):
        shown = {control["class"]: control["visible"] for control in self.controls()
                 if control["class"] in ("KlickwerkStopKeyFrame", "SysListView32")}
        return shown["KlickwerkStopKeyFrame"] and not shown["SysListView32"]

    def open_panel(self):
        """Clicks the stop-key panel of the status bar, as the user would."""
        left, top, right, bottom = self.driver("status", self.main["target"])["rects"][STOP_KEY_PANEL - 1]
        self.move_pointer((left + right) // 2, (top + bottom) // 2)
        self.xdotool("click", "1")
        wait_until(self.panel_shown, 20, "the stop-key panel in place of the grid")

    def wait_until_closed(self):
        wait_until(lambda: not self.panel_shown(), 20, "the grid back in place of the stop-key panel")

    def test_the_panel_changes_the_stop_key_which_then_ends_a_run(self):
        self.open_script([step(secs=600)])
        self.focus(APP_TITLE)

        self.open_panel()
        self.xdotool("key", "Escape")
        self.wait_until_closed()
        self.assertEqual(("ESCAPE", "27"), (self.panels()[3], self.setting("StopKey")))

        self.open_panel()
        self.xdotool("key", "Down")
        self.press("Change")
        self.wait_until_closed()
        self.assertEqual(("F1", "112"), (self.panels()[3], self.setting("StopKey")))

        self.open_panel()
        self.press("Cancel")
        self.wait_until_closed()
        self.assertEqual("F1", self.panels()[3])

        self.open_panel()
        self.xdotool("key", "Down", "Down", "Down", "Down", "Return")
        wait_until(lambda: self.panels()[0::3] == ["StopKey successfully changed to F5", "F5"], 20,
                   "the change reported in the status line")
        self.wait_until_closed()
        self.assertEqual("116", self.setting("StopKey"))

        self.start_run()
        self.hold_key("F5", lambda: not self.running(), "F5 to end the run")
        self.assert_no_errors_logged(self.folder)


class HotKeyTest(PlaybackTestCase):
    def test_f10_pauses_the_run_until_the_box_is_answered(self):
        self.open_probe(PROBE)
        self.open_script([step(secs=1), step()])
        # F10 reaches Wine through the X focus; the probe takes the key itself.
        self.focus(PROBE)

        self.press("Start")
        wait_until(lambda: self.panels()[4] == "1" and self.running(), 20, "the first step's wait")
        box = self.hold_key("F10", lambda: self.driver("msgbox", allow_missing=True), "the pause box")
        self.assertEqual(("PAUSED", "Paused. Press OK to resume.", ["OK"]), (box["title"], box["text"], box["buttons"]))

        # Longer than the rest of the step's wait: the run stays where it was.
        self.assert_holds(lambda: self.panels()[4] == "1" and self.running(), 1.5, "the run stays paused")
        self.answer("OK")
        self.wait_for_steps(2)

    def test_f12_copies_the_pointer_position_into_the_selected_rows(self):
        self.open_script([step(1, 1, checked=False), step(2, 2, checked=False), step(3, 3, checked=False)])
        self.driver("select", self.main["target"], "1", "3")
        self.focus(APP_TITLE)
        self.move_pointer(700, 900)
        wait_until(lambda: self.panels()[1:3] == ["700", "900"], 20, "the pointer position in the status bar")

        def copied():
            rows = self.grid(self.main)["rows"]
            return [(row["cells"][1], row["cells"][2], row["checked"]) for row in rows] == [
                ("700", "900", True), ("2", "2", False), ("700", "900", True)]
        self.hold_key("F12", copied, "the pointer position in rows 1 and 3")
