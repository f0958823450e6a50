"""Recording as the user does it: real X input sent with xdotool over the
probe window becomes steps in the grid, and a recorded session plays back
into the probe as it was recorded."""
from typing import Callable, NamedTuple

from harness import APP_TITLE, RECORD_NOTICE, WineTestCase, file_bytes
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
    "Shift held over a key": Scenario(
        lambda o: [["keydown", "shift"], ["key", "a"], ["keyup", "shift"], ["key", "F11"]],
        lambda o: [("No Click", "%sa$s", "0")], keys_only=True),
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

    def test_f5_as_the_stop_key_ends_an_empty_recording_and_a_held_key_is_saved_once_on_closing(self):
        """A recording stopped at once leaves an empty grid; a key held until
        it repeats is one step, and closing the window during the recording
        ends the program with that step saved."""
        probe, _ = self.open_probe(PROBE)
        self.open_program(StopKey=116)
        self.focus(APP_TITLE)
        self.start_recording(stop_key="F5")
        self.stop_recording(virtual_key=116)  # F5
        self.assertEqual([], self.grid())

        self.give_focus(PROBE)
        self.start_recording(stop_key="F5")
        self.give_focus(PROBE)
        self.xdotool("keydown", "a")
        try:
            wait_until(lambda: probe.keys().count(("down", 65)), 20, "the key to repeat at the probe",
                       accept=lambda presses: presses >= 3)
        finally:
            self.xdotool("keyup", "a")
        self.act([["key", "F11"]], [("No Click", "a", "0")], keys_only=True)
        self.close_klickwerk()
        self.assertEqual(1, file_bytes(self.folder / "Data.dat").count(b"||No Click||a||"))
        self.assert_no_errors_logged()

    def test_the_hook_library_missing_or_lacking_an_export(self):
        # Without it the record button is disabled without a word.
        self.open_program(files={"InHook.dll": None})
        self.assertFalse(self.enabled()["RECORD"])
        self.assertIsNone(self.driver("msgbox", allow_missing=True))
        self.close_klickwerk()
        self.assert_no_errors_logged()

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

        # Without "InitMouse" the record command fails into the error log; the
        # mode menu still writes the mode at once.
        self.open_program(files={"InHook.dll": (variants / "InHook-without-InitMouse.dll").read_bytes()})
        self.focus(APP_TITLE)
        self.click_at(self.control("Button", "Record options")["rect"])
        wait_until(self.menu_open, 20, "the record-mode menu")
        self.screenshot("record-mode-menu")
        self.xdotool("key", "Down", "Down", "Return")  # the second entry: from the selected step
        wait_until(lambda: self.setting("RecMode"), 20, "RecMode written", accept=lambda mode: mode == "1")
        self.press("RECORD")
        self.wait_for_msgbox(RECORD_NOTICE.format("ESCAPE"))
        self.answer("OK")
        wait_until(self.error_log, 20, "the record command's failure in the error log",
                   accept=lambda log: "InitMouse" in log and "RecordButton" in log)



if __name__ == "__main__":
    import unittest
    unittest.main()
