"""The main window as the user meets it: how it looks at 96 and at 144 dots
per inch, the about box sliding over the grid, the status panels' tips, and
a run that locks the window, which stays on top until it is minimised and
closes with "Exit"."""
import subprocess

from harness import BUTTONS, WineTestCase, centre, file_bytes, script_bytes, script_lines, step
from wine_session import TIMEOUT_SCALE, wait_until

# The window starts 6855 twips wide, which the minimum width raises to 6870.
START_SIZE = (6870, 6610)
ABOUT_BACKGROUND = (222, 223, 231)
PANEL_TIPS = ["Information (general, warnings, errors, etc.)", "X-Coordinate", "Y-Coordinate",
              "Current StopKey.  Click here to change.", "Total clicks counter.  Click here to reset.",
              "Total number of steps.  Click here to change."]


def picture(path, rect, out_format):
    """ImageMagick's description of a rectangle (left, top, right, bottom) of a screenshot."""
    left, top, right, bottom = rect
    return subprocess.run(["convert", str(path), "-crop", f"{right - left}x{bottom - top}+{left}+{top}",
                           "-depth", "8", *out_format], capture_output=True, text=True, check=True,
                          timeout=60 * TIMEOUT_SCALE).stdout


def colours(path, rect):
    return int(picture(path, rect, ["-format", "%k", "info:"]))


def pixel(path, x, y):
    """The RGB colour of one pixel."""
    values = picture(path, (x, y, x + 1, y + 1), ["txt:-"]).splitlines()[1].split("(", 1)[1].split(")")[0]
    return tuple(round(float(value)) for value in values.split(",")[:3])


class MainWindowTest(WineTestCase):
    def assert_looks_right(self, dpi):
        """Start size in twips at the screen's DPI, the buttons in one line
        below the grid and inside the frame, nothing painted beside them, a
        painted status bar."""
        self.xdotool("mousemove", "1", "1")  # no pointer over the window in the pictures
        left, top, right, bottom = self.driver("window", self.main["target"])["rect"]
        self.assertEqual(tuple(round(twips * dpi / 1440) for twips in START_SIZE), (right - left, bottom - top))

        controls = self.controls()

        def rect(kind, text=""):
            return next(c["rect"] for c in controls if c["class"] == kind and c["text"] == text and c["visible"])
        buttons = [rect("Button", name) for name in BUTTONS]
        frame, grid, status = rect("Button"), rect("SysListView32"), rect("msctls_statusbar32")
        self.assertEqual(1, len({button[1] for button in buttons}), f"one line: {buttons}")
        self.assertTrue(grid[3] < buttons[0][1] and buttons[-1][2] <= frame[2], "below the grid, inside the frame")
        self.assertTrue(all(a[2] <= b[0] for a, b in zip(buttons, buttons[1:])), f"side by side: {buttons}")

        shot = self.settled_screenshot(f"main-{dpi}dpi")
        last = buttons[-1]
        self.assertEqual(1, colours(shot, (last[2] + 2, last[1], frame[2] - 4, last[3])), "empty beside the buttons")
        self.assertGreater(colours(shot, status), 2, "a painted status bar")

    def test_the_window_looks_right_at_144_dots_per_inch(self):
        self.use_144_dpi()
        self.open_program(working_copy=script_lines([step(10, 20, "Left Click", "Hello", secs=1)]))
        self.assert_looks_right(144)
        self.click_toolbar("Exit")
        self.wait_for_exit(self.klickwerk)

    def test_looks_tips_the_about_box_and_a_run_that_locks_the_window_on_top_until_minimised(self):
        """How it looks at 96 dots per inch; every status panel's tip on hover,
        whatever its text; the about box sliding over the grid and back; then
        a run, after which "Exit" still closes the window."""
        lines = script_lines([step(mins=1)])  # a step that waits a minute
        self.open_program(working_copy=lines, OnTop=1)
        self.assert_looks_right(96)
        for rect, tip in zip(self.driver("status", self.main["target"])["rects"], PANEL_TIPS):
            self.move_pointer(*centre(rect))
            wait_until(self.tool_tips, 10, f"the tip {tip!r}", accept=lambda tips, tip=tip: tips == [tip])

        client_top = self.driver("window", self.main["target"])["clientOrigin"][1]
        self.click_toolbar("About")

        def at_rest():
            first, second = (self.control("KlickwerkAboutFrame") for _ in range(2))
            return second if first["visible"] and first["rect"] == second["rect"] and second["rect"][1] > client_top \
                else None
        left, top, right, bottom = wait_until(at_rest, 20, "the about box to come to rest")["rect"]
        # The grid and the buttons repaint themselves; the box must stay above them.
        self.driver("redraw", self.main["target"])
        shot = self.screenshot("about-box")
        for corner in ((left + 8, bottom - 8), (right - 8, top + 8)):
            self.assertEqual(ABOUT_BACKGROUND, pixel(shot, *corner), f"about box at {corner}")
        self.press("OK")
        wait_until(lambda: not self.control("KlickwerkAboutFrame")["visible"], 20, "the about box to slide out")

        self.assertTrue(self.driver("window", self.main["target"])["topmost"])
        self.start_run()
        self.assertEqual({"SysListView32": False, "Start": False, "RECORD": False, "Record options": False,
                          "Stop": True, "Repeat": True, "?": True, "Save": False, "Load": False, "Settings": False,
                          "About": True, "Help": True, "Exit": True}, self.enabled())

        # Minimising unlocks the commands of the run and gives up the top.
        self.driver("syscommand", self.main["target"], "minimize")
        wait_until(lambda: self.enabled()["Start"], 20, "Start enabled by minimising")
        self.assertTrue(self.enabled()["Settings"])
        window = self.driver("window", self.main["target"])
        self.assertEqual((True, False), (window["minimized"], window["topmost"]))
        self.driver("syscommand", self.main["target"], "restore")

        self.click_toolbar("Exit")
        self.wait_for_exit(self.klickwerk)
        self.assert_no_errors_logged()
        self.assertEqual("1", self.setting("StepCounter"), "the close sequence saved the counter of the run")
        self.assertEqual(script_bytes(lines), file_bytes(self.folder / "Data.dat"))
