"""Whole runs: repeat counts, whole-script repetition ended by the stop key,
and the three ways a run starts (the Start button, the command line, the
automatic start)."""
from playback_fixture import NO_SWITCHES, PlaybackTestCase, step
from wine_session import wait_until

PROBE = "Probe Runs"
# Gives the probe the keyboard as a script of the user's own would.
FOCUS_PROBE = step(keys=f"%winfoc {PROBE}")


class RunTest(PlaybackTestCase):
    def assert_unlocked(self):
        controls = {control["text"]: control for control in self.controls() if control["class"] == "Button"}
        self.assertEqual({"Start": True, "Stop": True, "RECORD": True, "Record options": True, "Repeat": True},
                         {name: controls[name]["enabled"] for name in ("Start", "Stop", "RECORD", "Record options",
                                                                       "Repeat")})
        grid = next(control for control in self.controls() if control["class"] == "SysListView32")
        self.assertTrue(grid["enabled"])
        toolbar = {button["text"]: button["enabled"] for button in self.driver("toolbar", self.main["target"])}
        self.assertTrue(all(toolbar.values()), toolbar)

    def test_repeat_two_performs_the_step_three_times_and_the_cell_gets_its_text_back(self):
        probe, _ = self.open_probe(PROBE)
        self.open_script([step(keys="r", repeat=2), step(keys="s")])
        self.give_focus(PROBE)

        self.press("Start")
        self.wait_for_steps(2)

        self.assertEqual("rrrs", probe.text())
        self.assertEqual(["2", "0"], self.cells(7))

    def test_repeat_toggle_plays_until_the_stop_key_and_the_window_is_unlocked(self):
        probe, _ = self.open_probe(PROBE)
        self.open_script([step(keys="ab", secs=0.2)])
        self.give_focus(PROBE)
        self.press("Repeat")

        self.start_run()
        wait_until(lambda: probe.text().count("ab") >= 3, 30, "three passes")
        self.hold_key("Escape", lambda: not self.running(), "the stop key to end the run")

        passes = int(self.panels()[4])
        self.assertGreaterEqual(passes, 3)
        # Typing goes on after its short wait even when the stop came in it.
        self.assertEqual(passes, probe.text().count("ab"))
        self.assert_unlocked()
        self.assert_no_errors_logged(self.folder)

    def test_command_line_without_switches_plays_at_once_with_repetition_on(self):
        probe, _ = self.open_probe(PROBE)
        self.focus(PROBE)
        self.open_script([FOCUS_PROBE, step(keys="go", secs=0.2)], switches=NO_SWITCHES, GRepeat=0)

        wait_until(lambda: probe.text().count("go") >= 2, 30, "the script played twice")
        self.assertTrue(self.running())
        self.hold_key("Escape", lambda: not self.running(), "the stop key to end the run")
        self.assert_unlocked()
        self.close_klickwerk(self.klickwerk, self.main)
        self.assertEqual("1", self.setting("GRepeat"))

    def test_command_line_with_nostart_and_norep_neither_plays_nor_repeats(self):
        probe, _ = self.open_probe(PROBE)
        self.open_script([step(keys="n")], GRepeat=1)

        self.assertEqual(["0", True], [self.panels()[4], self.button("Start")["enabled"]])
        self.give_focus(PROBE)
        self.press("Start")
        self.wait_for_steps(1)
        self.assertEqual("n", probe.text(), "one pass: repetition is off")
        self.close_klickwerk(self.klickwerk, self.main)
        self.assertEqual("0", self.setting("GRepeat"))

    def test_automatic_start_plays_the_working_copy_once_and_switches_itself_off(self):
        probe, _ = self.open_probe(PROBE)
        self.open_script([FOCUS_PROBE, step(keys="auto")], working_copy=True, AutoStart=1)

        # The end of the run re-reads the settings, the step counter with them.
        wait_until(lambda: probe.text() == "auto" and not self.running(), 30, "the automatic run")
        wait_until(lambda: self.setting("AutoStart") == "0", 10, "AutoStart switched off")
