"""Recording as the user does it: real X input sent with xdotool over the
probe window becomes steps in the grid, and a recorded session plays back
into the probe as it was recorded."""
from typing import Callable, NamedTuple

from harness import APP_TITLE, RECORD_NOTICE, WineTestCase, file_bytes, script_bytes, script_lines, step
from wine_session import BUILD_DIR, wait_until

PROBE = "Probe Recording"


def at(probe_at, dx, dy):
    return probe_at.x + dx, probe_at.y + dy


class Scenario(NamedTuple):
    actions: Callable   # the probe's origin -> xdotool commands, each a list of arguments
    steps: Callable     # the probe's origin -> the recorded steps: (X, Y, Button, Additional, Repeat)
    keys_only: bool = False  # X and Y are wherever the pointer rested


def move(point):
    return ["mousemove", *map(str, point)]


SCENARIOS = {
    "one click is one Left Click step at its place": Scenario(
        lambda o: [move(at(o, 100, 50)), ["click", "1"]],
        lambda o: [(*at(o, 100, 50), "Left Click", "", "0")]),
    "a double click is one Left DblClick step": Scenario(
        lambda o: [move(at(o, 140, 60)), ["click", "--repeat", "2", "--delay", "80", "1"]],
        lambda o: [(*at(o, 140, 60), "Left DblClick", "", "0")]),
    "press here and release there is Left Down and Left Up": Scenario(
        lambda o: [move(at(o, 200, 40)), ["mousedown", "1"], move(at(o, 260, 90)), ["mouseup", "1"]],
        lambda o: [(*at(o, 200, 40), "Left Down", "", "0"), (*at(o, 260, 90), "Left Up", "", "0")]),
    "two identical clicks are one step with Repeat 1": Scenario(
        lambda o: [move(at(o, 300, 70)), ["click", "--repeat", "2", "--delay", "1200", "1"]],
        lambda o: [(*at(o, 300, 70), "Left Click", "", "1")]),
    "typing then F11 is one step of keystroke text": Scenario(
        lambda o: [["type", "--delay", "50", "ab"], ["key", "F11"]],
        lambda o: [("No Click", "ab", "0")], keys_only=True),
    "Shift released last": Scenario(
        lambda o: [["keydown", "shift"], ["key", "a"], ["keyup", "shift"], ["key", "F11"]],
        lambda o: [("No Click", "%sa$s", "0")], keys_only=True),
    "Shift released first": Scenario(
        lambda o: [["keydown", "shift"], ["keydown", "a"], ["keyup", "shift"], ["keyup", "a"], ["key", "F11"]],
        lambda o: [("No Click", "%s$sa", "0")], keys_only=True),
}


class RecordingTest(WineTestCase):
    def act(self, actions, steps, keys_only=False):
        """Sends the X input and waits until the steps are closed, with the
        next, blank step current: a click is only a step once its
        double-click time has passed."""
        for action in actions:
            self.xdotool(*action)
        self.assert_becomes([tuple(map(str, expected)) for expected in steps],
                            lambda: self.recorded(keys_only)[:-1])

    def test_each_action_records_as_its_steps(self):
        probe, origin = self.open_probe(PROBE)
        self.open_program()
        for number, (name, scenario) in enumerate(SCENARIOS.items()):
            with self.subTest(name):
                self.give_focus(PROBE)
                self.move_pointer(*at(origin, 20, 20))
                self.start_recording(answer_first="No" if self.grid() else None)
                self.give_focus(PROBE)
                self.act(scenario.actions(origin), scenario.steps(origin), scenario.keys_only)
                self.stop_recording()
                self.assertEqual([tuple(map(str, expected)) for expected in scenario.steps(origin)],
                                 self.recorded(scenario.keys_only))
        self.assert_no_errors_logged()

    def test_stopping_at_once_leaves_an_empty_grid_and_f5_stops_when_it_is_the_stop_key(self):
        self.open_program(StopKey=116)
        self.focus(APP_TITLE)
        self.start_recording(stop_key="F5")
        self.stop_recording(virtual_key=116)  # F5
        self.assertEqual([], self.grid())
        self.assert_no_errors_logged()

    def test_a_recorded_session_plays_back_into_the_probe_as_it_was_recorded(self):
        probe, origin = self.open_probe(PROBE)
        self.open_program()
        self.give_focus(PROBE)
        self.move_pointer(*at(origin, 20, 20))
        self.start_recording()
        self.give_focus(PROBE)
        click, right_click = at(origin, 120, 40), at(origin, 400, 80)
        self.act([move(click), ["click", "1"]], [(*click, "Left Click", "", "0")])
        # The pointer did not move after the click: the typing step keeps it where it is.
        typed = (-1, -1, "No Click", "hi", "0")
        self.act([["type", "--delay", "50", "hi"], ["key", "F11"]], [(*click, "Left Click", "", "0"), typed])
        self.act([move(right_click), ["click", "3"]],
                 [(*click, "Left Click", "", "0"), typed, (*right_click, "Right Click", "", "0")])
        clicks, text = probe.clicks(), probe.text()  # the stop key reaches the probe too
        self.stop_recording()

        self.give_focus(PROBE)
        seen_clicks, seen_text = len(probe.clicks()), len(probe.text())
        self.press("Start")
        self.wait_for_steps(3, timeout=60)
        wait_until(lambda: (probe.clicks()[seen_clicks:], probe.text()[seen_text:]), 20,
                   "the same clicks and keys at the probe", accept=lambda seen: seen == (clicks, text))
        self.assert_no_errors_logged()

    def test_a_cancelled_new_script_changes_nothing_and_recording_from_the_selected_step_overwrites_onward(self):
        lines = script_lines([step(keys=keys) for keys in ("one", "two", "three")])
        self.open_program(working_copy=lines)
        self.press("RECORD")
        self.wait_for_msgbox("New script will be created.  Save current script?")
        self.answer("Cancel")
        self.wait_for_record_caption("RECORD")
        self.assertEqual(["one", "two", "three"], [row["cells"][4] for row in self.grid()])
        self.assertEqual(script_bytes(lines), file_bytes(self.folder / "Data.dat"))
        self.close_klickwerk()

        probe, _ = self.open_probe(PROBE)
        self.open_program(working_copy=lines, RecMode=1)
        self.driver("select", self.main["target"], "2")
        self.give_focus(PROBE)
        self.start_recording()
        self.give_focus(PROBE)
        self.act([["type", "--delay", "50", "z"], ["key", "F11"]], [("No Click", "one", "0"), ("No Click", "z", "0")],
                 keys_only=True)
        self.stop_recording()  # and remove the step left over
        self.assertEqual([("No Click", "one", "0"), ("No Click", "z", "0")], self.recorded(keys_only=True))
        self.assert_no_errors_logged()

    def test_a_library_lacking_an_export(self):
        variants = BUILD_DIR / "hook-variants"
        probe, origin = self.open_probe(PROBE)
        # Without "MouseProc" only keys are recorded, without a word.
        self.open_program(files={"InHook.dll": (variants / "InHook-without-MouseProc.dll").read_bytes()})
        self.give_focus(PROBE)
        self.start_recording()
        self.give_focus(PROBE)
        self.act([move(at(origin, 100, 50)), ["click", "1"], ["type", "--delay", "50", "k"], ["key", "F11"]],
                 [(-1, -1, "No Click", "k", "0")])
        self.stop_recording()
        self.assert_no_errors_logged()
        self.close_klickwerk()

        # Without "InitMouse" the record command fails into the error log.
        self.open_program(files={"InHook.dll": (variants / "InHook-without-InitMouse.dll").read_bytes()})
        self.press("RECORD")
        self.wait_for_msgbox(RECORD_NOTICE.format("ESCAPE"))
        self.answer("OK")
        wait_until(self.error_log, 20, "the record command's failure in the error log",
                   accept=lambda log: "InitMouse" in log and "RecordButton" in log)

    def test_a_held_key_is_recorded_once(self):
        probe, _ = self.open_probe(PROBE)
        self.open_program()
        self.give_focus(PROBE)
        self.start_recording()
        self.give_focus(PROBE)
        self.xdotool("keydown", "a")
        try:
            wait_until(lambda: probe.keys().count(("down", 65)), 20, "the key to repeat at the probe",
                       accept=lambda presses: presses >= 3)
        finally:
            self.xdotool("keyup", "a")
        self.act([["key", "F11"]], [("No Click", "a", "0")], keys_only=True)
        self.stop_recording()
        self.assert_no_errors_logged()

    def test_the_mode_menu_writes_the_mode_at_once(self):
        self.open_program()
        left, top, right, bottom = self.control("Button", "Record options")["rect"]
        self.focus(APP_TITLE)
        self.move_pointer((left + right) // 2, (top + bottom) // 2)
        self.xdotool("click", "1")
        wait_until(lambda: [w for w in self.driver("windows") if w["class"] == "#32768" and w["visible"]], 20,
                   "the record-mode menu")
        self.screenshot("record-mode-menu")
        self.xdotool("key", "Down", "Down", "Return")  # the second entry: from the selected step
        wait_until(lambda: self.setting("RecMode"), 20, "RecMode written", accept=lambda mode: mode == "1")

    def test_closing_the_window_during_a_recording_ends_the_program_with_its_steps_saved(self):
        probe, origin = self.open_probe(PROBE)
        self.open_program()
        self.give_focus(PROBE)
        self.start_recording()
        self.give_focus(PROBE)
        self.act([["type", "--delay", "50", "q"], ["key", "F11"]], [("No Click", "q", "0")], keys_only=True)
        self.close_klickwerk()
        self.assertIn(b"||No Click||q||", file_bytes(self.folder / "Data.dat"))

    def test_without_the_hook_library_the_record_button_is_disabled_without_a_word(self):
        self.open_program(files={"InHook.dll": None})
        self.assertFalse(self.enabled()["RECORD"])
        self.assertIsNone(self.driver("msgbox", allow_missing=True))
        self.close_klickwerk()
        self.assert_no_errors_logged()


if __name__ == "__main__":
    import unittest
    unittest.main()
