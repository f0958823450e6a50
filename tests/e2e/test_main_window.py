"""The main window as the user meets it at 96 dots per inch: start size,
toolbar, status bar, the layout at any size, the about box sliding over the
grid, always on top, minimising, and "Exit" while a run locks the window."""
import subprocess

from harness import WineTestCase, file_bytes, read_ini
from test_startup import SETTLED, script_bytes
from wine_session import TIMEOUT_SCALE, wait_until

TOOLBAR = ["Save", "Load", "Settings", "About", "Help", "Exit"]
BUTTONS = ["Start", "Stop", "RECORD", "Record options", "Repeat", "?"]
PANEL_TIPS = ["Information (general, warnings, errors, etc.)", "X-Coordinate", "Y-Coordinate",
              "Current StopKey.  Click here to change.", "Total clicks counter.  Click here to reset.",
              "Total number of steps.  Click here to change."]

# The window starts 6855 twips wide, which the minimum width raises to 6870.
START_WIDTH, START_HEIGHT = 6870, 6610
MINIMUM_WIDTH, MINIMUM_HEIGHT = 6870, 5850
ABOUT_BACKGROUND = (222, 223, 231)


class MainWindowChecks:
    """Size and layout checks of the main window at the DPI of the prefix;
    mixed into WineTestCase classes."""

    dpi = 96

    def px(self, twips):
        return round(twips * self.dpi / 1440)

    def outer_size(self, main):
        left, top, right, bottom = self.driver("window", main["target"])["rect"]
        return right - left, bottom - top

    def controls(self, main):
        """The main window's controls by role, as (left, top, right, bottom)
        in client pixels, plus the client size."""
        window = self.driver("window", main["target"])
        x, y = window["clientOrigin"]
        found = {"client": tuple(window["client"])}
        for control in self.driver("controls", main["target"]):
            left, top, right, bottom = control["rect"]
            rect = (left - x, top - y, right - x, bottom - y)
            role = {"ToolbarWindow32": "toolbar", "SysListView32": "grid", "msctls_statusbar32": "status",
                    "KlickwerkReceiver": "receiver", "KlickwerkAboutFrame": "about"}.get(control["class"])
            if control["class"] == "Button" and control["text"] in BUTTONS:
                role = control["text"]
            if control["class"] == "Button" and control["text"] == "" and control["visible"]:
                role = "frame"
            if role and role not in found:
                found[role] = dict(control, rect=rect)
        return found

    def assert_layout(self, main):
        """The grid frame fills the window less its margins, the grid fills the
        frame less the button row, the five buttons sit on one line 60 twips
        below the grid; nothing overlaps."""
        placed = self.controls(main)
        width, height = placed["client"]
        frame, grid, status, toolbar = (placed[role]["rect"] for role in ("frame", "grid", "status", "toolbar"))
        start = placed["Start"]["rect"]
        self.assertAlmostEqual(width - self.px(120), frame[2] - frame[0], delta=1)
        self.assertAlmostEqual(height - self.px(800) - (status[3] - status[1]), frame[3] - frame[1], delta=1)
        self.assertAlmostEqual(frame[2] - frame[0] - self.px(120), grid[2] - grid[0], delta=1)
        self.assertAlmostEqual(frame[3] - frame[1] - self.px(300) - (start[3] - start[1]), grid[3] - grid[1],
                               delta=1)
        self.assertLessEqual(toolbar[3], frame[1], "toolbar above the frame")
        self.assertEqual((0, height, width), (status[0], status[3], status[2]), "status bar along the bottom")
        self.assertTrue(frame[0] <= grid[0] and grid[2] <= frame[2] and frame[1] <= grid[1])
        right = frame[0]
        for name in BUTTONS:
            button = placed[name]["rect"]
            self.assertAlmostEqual(grid[3] + self.px(60), button[1], delta=1, msg=f"{name} 60 twips below the grid")
            self.assertEqual(start[3] - start[1], button[3] - button[1], f"{name} as high as Start")
            self.assertGreaterEqual(button[0], right, f"{name} right of the one before")
            right = button[2]
        self.assertLessEqual(right, frame[2], "the button line inside the frame")
        self.assertLessEqual(start[3], frame[3], "the button line inside the frame")

    def assert_tidy(self, main, shot):
        """Nothing left of an earlier layout beside the button line, and a
        painted status bar."""
        placed = self.controls(main)
        x, y = self.driver("window", main["target"])["clientOrigin"]
        frame, last, status = (placed[role]["rect"] for role in ("frame", BUTTONS[-1], "status"))
        beside_buttons = (last[2] + 2, last[1], frame[2] - 4, last[3])
        self.assertEqual(1, colours(shot, beside_buttons, x, y), "an empty strip beside the button line")
        self.assertGreater(colours(shot, status, x, y), 2, "a painted status bar")

    def assert_start_window(self, main):
        """Start size, toolbar, status bar and the hidden receiver."""
        self.assertEqual((self.px(START_WIDTH), self.px(START_HEIGHT)), self.outer_size(main))
        toolbar = self.toolbar(main)
        self.assertEqual(TOOLBAR, [button["text"] for button in toolbar])
        self.assertEqual(["Help"], [button["text"] for button in toolbar if button["dropdown"]])
        self.assertTrue(all(button["enabled"] for button in toolbar))
        status = self.driver("status", main["target"])
        self.assertEqual(PANEL_TIPS, status["tips"])
        receiver = self.controls(main)["receiver"]
        self.assertEqual(("IHRec", False), (receiver["text"], receiver["visible"]))
        self.assert_layout(main)

    def assert_resizing(self, main):
        """Sizes below the minimum are raised to it; any size keeps the layout."""
        sizes = [
            ("below-minimum", (300, 200), (MINIMUM_WIDTH, MINIMUM_HEIGHT)),
            ("too-low", (self.px(9000), 200), (9000, MINIMUM_HEIGHT)),
            ("large", (self.px(9000), self.px(8000)), (9000, 8000)),
        ]
        for name, asked, expected in sizes:
            with self.subTest(size=name):
                self.driver("resize", main["target"], *(str(value) for value in asked))
                self.assertEqual(tuple(self.px(value) for value in expected), self.outer_size(main))
                self.assert_layout(main)
                self.assert_tidy(main, self.settled_screenshot(f"resized-{name}-{self.dpi}dpi"))


def colours(path, rect, x=0, y=0):
    """How many colours a rectangle of a screenshot holds; (x, y) is the
    origin the rectangle is relative to."""
    left, top, right, bottom = rect
    return int(subprocess.run(["convert", str(path), "-crop", f"{right - left}x{bottom - top}+{x + left}+{y + top}",
                               "-format", "%k", "info:"], capture_output=True, text=True, check=True,
                              timeout=60 * TIMEOUT_SCALE).stdout)


def pixel(path, x, y):
    """The RGB colour of one pixel of a screenshot."""
    text = subprocess.run(["convert", str(path), "-crop", f"1x1+{x}+{y}", "-depth", "8", "txt:-"],
                          capture_output=True, text=True, check=True, timeout=60 * TIMEOUT_SCALE).stdout
    values = text.splitlines()[1].split("(", 1)[1].split(")", 1)[0].split(",")
    return tuple(round(float(value)) for value in values[:3])


class MainWindowTest(MainWindowChecks, WineTestCase):
    def start(self, settings=SETTLED, lines=None):
        files = {"Data.dat": script_bytes(lines)} if lines else None
        folder = self.make_program_folder(settings=settings, files=files)
        process = self.start_klickwerk(folder)
        main = self.wait_for_main_window()
        self.xdotool("mousemove", "1", "1")  # no pointer over the window in the pictures
        if lines:
            self.wait_for_grid_rows(main, len(lines))
        return folder, process, main

    def exit_klickwerk(self, process, main):
        self.click_toolbar(main, "Exit")
        self.wait_for_exit(process)

    def test_start_size_layout_and_resizing(self):
        folder, process, main = self.start(lines=["True|||1||10||20||Left Click||Hello||0||1||0"])
        self.assert_start_window(main)
        self.assert_tidy(main, self.settled_screenshot("main-96dpi"))
        self.assert_resizing(main)
        self.exit_klickwerk(process, main)
        self.assert_no_errors_logged(folder)

    def test_about_box_slides_over_the_grid_and_back(self):
        folder, process, main = self.start()
        self.click_toolbar(main, "About")

        def settled():
            first = self.controls(main)["about"]
            second = self.controls(main)["about"]
            return second if first["visible"] and first["rect"] == second["rect"] and second["rect"][1] > 0 else None
        about = wait_until(settled, 20, "the about box to come to rest")
        self.assertFalse(self.toolbar_enabled(main)["About"], "disabled while the box is shown")
        left, top, right, bottom = about["rect"]
        width, height = self.controls(main)["client"]
        self.assertAlmostEqual(width / 2, (left + right) / 2, delta=1)
        self.assertAlmostEqual(height / 2, (top + bottom) / 2, delta=1)

        # The grid and the buttons repaint themselves; the box must stay above them.
        self.driver("redraw", main["target"])
        shot = self.screenshot("about-box")
        x, y = self.driver("window", main["target"])["clientOrigin"]
        for corner in ((left + 8, bottom - 8), (right - 8, top + 8)):
            self.assertEqual(ABOUT_BACKGROUND, pixel(shot, x + corner[0], y + corner[1]), f"about box at {corner}")

        self.driver("click", main["target"], "OK")
        wait_until(lambda: not self.controls(main)["about"]["visible"], 20, "the about box to slide out")
        self.assertTrue(self.toolbar_enabled(main)["About"])
        self.exit_klickwerk(process, main)
        self.assert_no_errors_logged(folder)

    def test_always_on_top_is_applied_in_the_normal_state_and_dropped_when_minimised(self):
        for on_top in (0, 1):
            with self.subTest(on_top=on_top):
                settings = [(key, str(on_top) if key == "OnTop" else value) for key, value in SETTLED]
                _, process, main = self.start(settings)
                self.assertEqual(bool(on_top), self.driver("window", main["target"])["topmost"])
                self.driver("syscommand", main["target"], "minimize")
                wait_until(lambda: self.driver("window", main["target"])["minimized"], 20, "the window to minimise")
                self.assertFalse(self.driver("window", main["target"])["topmost"])
                self.driver("syscommand", main["target"], "restore")
                wait_until(lambda: not self.driver("window", main["target"])["minimized"], 20, "the window back")
                self.exit_klickwerk(process, main)

    def test_status_panels_reach_their_commands(self):
        folder, process, main = self.start()
        rects = self.driver("status", main["target"])["rects"]

        def click_panel(number):
            left, top, right, bottom = rects[number - 1]
            self.xdotool("mousemove", "--sync", str((left + right) // 2), str((top + bottom) // 2), "click", "1")

        # The clicks counter and the number of steps reach commands of the
        # settings panel that do not exist yet: nothing may happen.
        panels = self.driver("status", main["target"])["panels"]
        for number in (1, 2, 3, 5, 6):
            click_panel(number)
        self.assertIsNone(self.driver("msgbox", allow_missing=True))
        self.assertEqual(panels[3:], self.driver("status", main["target"])["panels"][3:])
        self.assertTrue(self.controls(main)["frame"]["visible"])

        click_panel(4)
        wait_until(lambda: any(control["class"] == "KlickwerkStopKeyFrame" and control["visible"]
                               for control in self.driver("controls", main["target"])), 20, "the stop-key panel")
        self.screenshot("stop-key-panel")
        self.exit_klickwerk(process, main)
        self.assert_no_errors_logged(folder)

    def test_exit_closes_the_window_while_a_run_locks_it(self):
        # No recording exists yet, whose lock is the tightest; a run is the
        # nearest: a step that waits a minute.
        lines = ["True|||1||-1||-1||No Click||||1||0||0"]
        folder, process, main = self.start(lines=lines)
        self.driver("click", main["target"], "Start")
        wait_until(lambda: not self.controls(main)["Start"]["enabled"], 20, "the run to lock the window")

        enabled = self.toolbar_enabled(main)
        self.assertEqual({"Save": False, "Load": False, "Settings": False, "About": True, "Help": True, "Exit": True},
                         enabled)
        placed = self.controls(main)
        self.assertEqual({"grid": False, "Start": False, "RECORD": False, "Record options": False, "Stop": True,
                          "Repeat": True, "?": True}, {role: placed[role]["enabled"] for role in ("grid", *BUTTONS)})
        self.settled_screenshot("run-lock")

        # Minimising unlocks the commands of the run.
        self.driver("syscommand", main["target"], "minimize")
        wait_until(lambda: self.controls(main)["Start"]["enabled"], 20, "Start enabled by minimising")
        self.assertTrue(self.toolbar_enabled(main)["Settings"])
        self.driver("syscommand", main["target"], "restore")

        self.exit_klickwerk(process, main)
        self.assert_no_errors_logged(folder)
        settings = dict(read_ini(folder / "Settings.ini"))
        self.assertEqual("1", settings["StepCounter"], "the close sequence saved the counter of the run")
        self.assertEqual(script_bytes(lines), file_bytes(folder / "Data.dat"))
