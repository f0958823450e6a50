"""The settings panel as the user meets it: opened by the toolbar's Settings
button beside the main window with its nine options and four buttons, their
captions and tool tips, at 96 and 144 dots per inch; following the main
window as it is moved and resized; each option changed by a click or from
the keyboard, saved to Settings.ini at once and in effect after a restart;
the reset question and the buttons that open the stop-key and step-count
frames."""
import itertools
import json
import subprocess
import time

from harness import APP_TITLE, SETTLED, WineTestCase, centre, script_bytes, script_lines, step, win_path
from wine_session import BUILD_DIR, POLL_SECONDS, TIMEOUT_SCALE, WINE, wait_until

PANEL = "Settings"
PROBE = "Probe Settings"
# The options in the panel's order: caption, settings key, tool tip.
OPTIONS = [
    ("Keep Klickwerk on top", "OnTop", "Enabling this feature will keep Klickwerk on top of all other windows."),
    ("Enable Smooth Pointer Scroll", "SmoothPointer",
     "Enabling this feature will scroll the mouse to the new destination instead of warping it."),
    ("Display Countdown", "ShowCount", "Enabling this feature will display a countdown in milliseconds of each step."),
    ("Auto Start on Load", "AutoStart",
     "Enabling this feature will press Start button as soon as the program loads."),
    ("Auto Start Minimized", "StartMin", "Enabling this feature will minimize the program when Start is clicked."),
    ("Start with Windows", "WithWindows", "Enabling this feature will load the program when Windows loads."),
    ("Start Did You Know on load", "DYK",
     "Enabling this feature will load Did You Know (recommended to keep on until you become very familiar with the "
     "program)."),
    ("REC: Enter creates new step", "Enter4Step",
     "During Recording pressing Enter is treated as F11.  Checked means Enter is treated as F11, not checked means "
     "Enter is treated as a normal key."),
    ("Enable Mouse-Saver", "MouseSaver",
     "Enabling this feature will allow you to pause Klickwerk for # of seconds (defined below) as soon as you move "
     "the mouse."),
]
KEYS = [key for _, key, _ in OPTIONS]
BUTTONS = [
    ("Hide", "Press here to hide this Settings window."),
    ("Change StopKey", "Click here to change StopKey, which is used to stop anything Klickwerk is doing.  You can "
                       "also click Stop button, which does the same thing as pressing StopKey."),
    ("Reset step counter", "Click here to reset step counter."),
    ("Change number of steps", None),
]
BS_PUSHBUTTON, BS_3STATE = 0, 5
# In twips: the panel's width, an option's row, fraOptions's left edge.
PANEL_WIDTH, ROW_HEIGHT, FRAME_LEFT = 2820, 300, 60
RUN_KEY = r"HKLM\SOFTWARE\Microsoft\Windows\CurrentVersion\Run"
ENTER_LINE = "Press Enter to create a new step (turned on by user)."
COUNTDOWN = "Remaining until next step: "
WAIT = 3  # seconds of the one step's wait


def twips(value, dpi):
    return round(value * dpi / 1440)


class SettingsPanelTest(WineTestCase):
    # The panel -----------------------------------------------------------------------

    def panel_window(self):
        return self.driver("window", PANEL)

    def panel_controls(self):
        """The option check boxes and the push buttons, each in the panel's order."""
        controls = self.driver("controls", PANEL)
        return ([c for c in controls if c.get("buttonType") == BS_3STATE],
                [c for c in controls if c.get("buttonType") == BS_PUSHBUTTON])

    def options(self):
        return dict(zip(KEYS, (box["checked"] for box in self.panel_controls()[0])))

    def open_panel(self):
        """Presses the toolbar's Settings button as the user does."""
        self.focus(APP_TITLE)
        self.click_at(next(b["rect"] for b in self.toolbar() if b["text"] == "Settings"))
        wait_until(lambda: self.driver("window", PANEL, allow_missing=True), 20, "the settings panel",
                   accept=lambda window: window and window["visible"])

    def press_panel_button(self, caption):
        self.click_at(next(b["rect"] for b in self.panel_controls()[1] if b["text"] == caption))

    def hide_panel(self):
        self.press_panel_button("Hide")
        wait_until(lambda: not self.panel_window()["visible"], 20, "the panel to hide")

    def assert_hangs_on_right_edge(self, main, panel):
        self.assertEqual(main[2], panel[0], f"the panel {panel} at the right edge of {main}")
        self.assertLessEqual(abs(main[1] + main[3] - panel[1] - panel[3]), 2, f"{panel} centred beside {main}")

    # Looks -----------------------------------------------------------------------------

    def assert_panel_looks_right(self, dpi, **settings):
        """The options with their values and the buttons in order, laid out in
        twips at the window's DPI beside the main window, which is locked
        while the panel is open."""
        values = {"SmoothPointer": 1, "MouseSaver": 2}  # a checked and a greyed box
        self.open_program(**values, **settings)
        self.open_panel()
        boxes, buttons = self.panel_controls()
        self.assertEqual([(caption, SETTLED[key] if key not in values else values[key]) for caption, key, _ in OPTIONS],
                         [(box["text"], box["checked"]) for box in boxes])
        self.assertEqual([caption for caption, _ in BUTTONS], [button["text"] for button in buttons])
        self.assertFalse(self.enabled()["Start"], "the main window locked")

        panel = self.panel_window()["rect"]
        self.assertGreaterEqual(panel[2] - panel[0], twips(PANEL_WIDTH, dpi), "at least 2820 twips wide")
        self.assert_hangs_on_right_edge(self.window_rect(), panel)
        lefts = {control["rect"][0] for control in boxes + buttons}
        widths = {control["rect"][2] - control["rect"][0] for control in boxes + buttons}
        self.assertEqual((1, 1), (len(lefts), len(widths)), "the options and buttons in one column")
        self.assertTrue(all(abs(b["rect"][1] - a["rect"][1] - twips(ROW_HEIGHT, dpi)) <= 1
                            for a, b in zip(boxes, boxes[1:])), "one row each")
        tops = [control["rect"][1] for control in boxes + buttons]
        self.assertEqual(sorted(tops), tops, "the buttons below the options")
        self.assertTrue(all(panel[0] < c["rect"][0] and c["rect"][2] < panel[2] and panel[1] < c["rect"][1]
                            and c["rect"][3] < panel[3] for c in boxes + buttons), "all inside the panel")
        self.move_pointer(1, 1)  # no pointer over the panel in the picture
        shot = self.settled_screenshot(f"settings-panel-{dpi}dpi")
        main = self.window_rect()
        # The main window with the panel beside it, as the help shows them.
        self.crop(shot, (main[0], main[1], panel[2], main[3]), f"settings-panel-{dpi}dpi-window")
        return boxes, buttons

    def test_the_panel_looks_right_at_96_dots_per_inch_with_its_tool_tips_and_buttons(self):
        """Then the buttons: the counter reset only on Yes (from the status
        bar's fifth panel and from the panel), and the stop-key and step-count
        frames, each hiding the panel."""
        boxes, buttons = self.assert_panel_looks_right(96, StepCounter=7)
        tips = [(box, tip) for box, (_, _, tip) in zip(boxes, OPTIONS)] + [
            (button, tip) for button, (_, tip) in zip(buttons, BUTTONS) if tip]
        for control, tip in tips:
            self.move_pointer(*centre(control["rect"]))
            wait_until(self.tool_tips, 20, f"the tool tip of {control['text']!r}",
                       accept=lambda shown, tip=tip: shown == [tip])
        self.settled_screenshot("settings-panel-tool-tip")
        self.hide_panel()
        self.assertTrue(self.enabled()["Start"], "the main window unlocked")

        self.click_status_panel(4)
        box = self.wait_for_msgbox("Reset total clicks counter?")
        self.assertEqual((APP_TITLE, ["Yes", "No"]), (box["title"], box["buttons"]))
        self.answer("No")
        wait_until(lambda: not self.driver("msgbox", allow_missing=True), 20, "the question answered")
        self.assertEqual(("7", "7"), (self.panels()[4], self.setting("StepCounter")))
        self.open_panel()
        self.press_panel_button("Reset step counter")
        self.wait_for_msgbox("Reset total clicks counter?")
        self.answer("Yes")
        self.assert_becomes("0", lambda: self.panels()[4])
        self.assertEqual("0", self.setting("StepCounter"))
        for caption, frame in (("Change StopKey", "KlickwerkStopKeyFrame"),
                               ("Change number of steps", "KlickwerkStepCountFrame")):
            self.press_panel_button(caption)
            wait_until(lambda frame=frame: self.control(frame)["visible"], 20, f"{frame} after {caption!r}")
            wait_until(lambda: not self.panel_window()["visible"], 20, f"the panel hidden by {caption!r}")
            self.assertTrue(self.enabled()["Start"], "the main window unlocked")
            self.press("Cancel")
            if caption == "Change StopKey":
                self.open_panel()
        self.close_klickwerk()
        self.assert_no_errors_logged()

    def test_the_panel_looks_right_at_144_dots_per_inch(self):
        self.use_144_dpi()
        self.assert_panel_looks_right(144)
        self.close_klickwerk()  # with the panel open, which saves the options as a hide does
        self.assert_no_errors_logged()

    # Following the main window ------------------------------------------------------------

    def test_the_panel_follows_the_main_window_within_a_tick(self):
        self.use_managed_windows()
        self.open_program()
        self.open_panel()
        main_x = wait_until(lambda: self.xdotool("search", "--onlyvisible", "--name", f"^{APP_TITLE}$").split(), 20,
                            "the main window's X window")[0]
        moves = [("windowmove", "100", "80"), ("windowsize", "700", "600"), ("windowmove", "420", "300"),
                 ("windowsize", "520", "380"), ("windowmove", "0", "0"), ("windowsize", "640", "480")]
        log = self.out / "follow.log"
        with open(log, "wb") as out:
            follower = subprocess.Popen([WINE, str(BUILD_DIR / "kwdriver.exe"), "follow", self.main["target"], PANEL,
                                         str(len(moves))], env=self.prefix.env, stdout=out, stderr=subprocess.STDOUT,
                                        stdin=subprocess.DEVNULL)
        self.started.append(follower)
        wait_until(lambda: b"watching" in log.read_bytes(), 30, "the driver to watch")
        for command, x, y in moves:
            before = self.panel_window()["rect"]
            self.xdotool(command, main_x, x, y)
            # One change at a time: the next only once the panel has followed this one.
            wait_until(self.panel_window, 20, f"the panel to follow {command} {x} {y}",
                       accept=lambda panel, before=before: panel["rect"] != before)
            self.assert_hangs_on_right_edge(self.window_rect(), self.panel_window()["rect"])
        self.assertEqual(0, self.wait_for_exit(follower, 150), log.read_text())
        lags = [float(lag) for lag in json.loads(log.read_text().splitlines()[-1])["lags"]]
        print(f"\nsettings panel behind the main window: largest lag {max(lags):.1f} ms over {len(lags)} moves "
              f"and resizes (target: within one tick of tmrKeepAttached, 10 ms; all: {lags})")
        self.assertLess(max(lags), 100 * TIMEOUT_SCALE, "the panel follows within a few ticks even on a loaded machine")
        self.hide_panel()
        self.close_klickwerk()
        self.assert_no_errors_logged()

    # Options -------------------------------------------------------------------------

    def toggle_options(self, clicked):
        """Changes every option through its check box: by a click when
        `clicked(index)`, else from the keyboard (Tab from the box before,
        which a click left with the focus, then Space). Each change is in
        Settings.ini before the next; "on top" applies at once."""
        for index, box in enumerate(self.panel_controls()[0]):
            if clicked(index):
                self.click_at(box["rect"])
            else:
                self.focus(PANEL)
                self.xdotool("key", *(["Tab"] if index else []), "space")
            value = 1 - box["checked"]
            wait_until(lambda: (self.panel_controls()[0][index]["checked"], self.setting(KEYS[index])), 10,
                       f"{box['text']!r} changed and saved", accept=lambda seen, value=value: seen == (value, str(value)))
            if index == 0:
                self.assert_becomes(bool(value), lambda: self.driver("window", self.main["target"])["topmost"])

    def run_entry(self):
        """The start-with-Windows value in Wine's registry, or None."""
        result = subprocess.run([WINE, "reg", "query", RUN_KEY, "/v", "klickwerk"], env=self.prefix.env,
                                capture_output=True, text=True, timeout=60 * TIMEOUT_SCALE)
        return next((line.split("REG_SZ")[1].strip() for line in result.stdout.splitlines() if "REG_SZ" in line), None)

    def watch(self, probes, seconds, until=lambda seen: False, meanwhile=lambda: None):
        """Polls every probe for `seconds` or until `until(seen)`, doing
        `meanwhile()` before each poll; returns the names of the probes seen
        true at least once."""
        seen = set()
        end = time.monotonic() + seconds * TIMEOUT_SCALE
        while time.monotonic() < end and not until(seen):
            meanwhile()
            seen |= {name for name, probe in probes.items() if probe()}
            time.sleep(POLL_SECONDS)
        return seen

    def minimized(self):
        return self.driver("window", self.main["target"])["minimized"]

    def run_began(self):
        """The step counter counted the one step. (Start is no sign: minimising unlocks it.)"""
        return self.panels()[4] == "1"

    def run_over(self):
        return not self.minimized() and self.control("Button", "Start")["enabled"]

    def observe_effects(self, probe, at):
        """Restarts Klickwerk on the one-step script with the pointer at rest
        on the probe and reports which options showed their effect."""
        self.move_pointer(at.x + 10, at.y + 10)
        self.klickwerk = self.start_klickwerk()
        self.wait_for_main_window()
        effects = self.watch({"DYK": lambda: self.control("KlickwerkHintFrame")["visible"],
                              "AutoStart": self.run_began}, 5, lambda seen: len(seen) == 2)
        if "AutoStart" not in effects:
            self.press("Start")
            wait_until(self.run_began, 20, "the run to begin")
        target = (at.x + 600, at.y + 100)
        wait_until(lambda: self.xdotool("getmouselocation").startswith("x:{} y:{} ".format(*target)), 20,
                   "the pointer at the step's place")
        # Moved all through the wait, the pointer holds the run while the pointer guard is on.
        effects |= self.watch({"StartMin": self.minimized, "ShowCount": lambda: self.panels()[0].startswith(COUNTDOWN)},
                              WAIT + 2, meanwhile=lambda: self.jiggle(target))
        if not self.run_over():
            effects.add("MouseSaver")
        wait_until(self.run_over, 30, "the run's end")
        if self.watch({"OnTop": lambda: self.driver("window", self.main["target"])["topmost"]}, 3, bool):
            effects.add("OnTop")
        # The places the pointer passed from its rest to the step's place; the
        # probe may not see the exact target when the jiggle follows at once.
        way = [(x, y) for _, x, y in probe.events("move")]
        way = way[len(way) - 1 - way[::-1].index((at.x + 10, at.y + 10)):]
        way = list(itertools.takewhile(lambda p: max(abs(p[0] - target[0]), abs(p[1] - target[1])) > 6, way))
        if len(set(way)) >= 3:
            effects.add("SmoothPointer")
        if self.record_notice().endswith(ENTER_LINE):
            effects.add("Enter4Step")
        if self.run_entry() == win_path(self.folder / "klickwerk.exe"):
            effects.add("WithWindows")
        return effects

    def jiggle(self, target):
        """Moves the pointer a little on both axes around the target, to the other side each time."""
        self.jiggled = not getattr(self, "jiggled", False)
        self.xdotool("mousemove", *(str(value + (6 if self.jiggled else -6)) for value in target))

    def record_notice(self):
        """The notice that a recording shows first; the recording then ends by its stop key."""
        self.press("RECORD")
        notice = wait_until(lambda: self.driver("msgbox", allow_missing=True), 20, "the recording notice")
        self.answer("OK")
        wait_until(lambda: any(c["text"] == "ESCAPE TO STOP" for c in self.controls()), 20, "the recording")
        self.focus(PROBE)
        self.hold_key("Escape", lambda: self.driver("msgbox", allow_missing=True), "the recording to end")
        self.answer(self.driver("msgbox")["buttons"][0])
        wait_until(lambda: any(c["text"] == "RECORD" for c in self.controls()), 20, "the recording's end")
        return notice["text"]

    def test_each_option_is_saved_at_once_and_in_effect_after_a_restart(self):
        """Every option on (even ones clicked, odd ones from the keyboard) from
        a program with all off, then every option off the other way round
        from a program with all on."""
        for on in (True, False):
            with self.subTest("on" if on else "off"):
                try:
                    self.change_every_option(on)
                finally:
                    self.stop_started()

    def change_every_option(self, on):
        probe, at = self.open_probe(PROBE)
        script = script_lines([step(at.x + 600, at.y + 100, secs=WAIT)])
        # RecMode 1 records without asking about the steps there are.
        start = {key: int(not on) for key in KEYS} | {"RecMode": 1}
        if on:
            self.open_program(working_copy=script, **start)
        else:  # no steps: the automatic start finds nothing to play
            self.open_program(**start)
        self.open_panel()
        self.toggle_options(lambda index: index % 2 == (0 if on else 1))
        self.assertEqual(on, self.run_entry() is not None, "the start-with-Windows entry")
        self.hide_panel()
        self.close_klickwerk()
        self.assertEqual({key: str(int(on)) for key in KEYS}, {key: self.setting(key) for key in KEYS})
        (self.folder / "Data.dat").write_bytes(script_bytes(script))

        self.assertEqual(set(KEYS) if on else set(), self.observe_effects(probe, at))
        # An automatic run switches the automatic start off again.
        self.open_panel()
        self.assertEqual({key: int(on and key != "AutoStart") for key in KEYS}, self.options())
        self.hide_panel()
        self.close_klickwerk()
        self.assert_no_errors_logged()
