"""The step-count frame as the user meets it: a click on the status bar's
sixth panel opens it over the grid's place with the count selected; the count
typed there saves the grid and rebuilds it from the working copy, so steps
that a smaller count dropped do not come back; a character that is no number is refused; Esc, Cancel and an empty count
change nothing; and the frame looks right at 96 and at 144 dots per inch.
Which counts make which grid is the unit tests' part."""
from harness import WineTestCase, file_bytes, script_bytes, script_lines, step
from wine_session import wait_until

FRAME = "KlickwerkStepCountFrame"
SAVED = [step(100, 200, "Left Click", "Hello", secs=1), step(checked=False),
         step("RND(10,20,0)", 300, "Right DblClick", "%r", 1, 30, 2), step(5, 6, "Left Down"),
         step(7, 8, "Left Up", "x", secs=2, repeat=1)]
LINES = script_lines(SAVED)
NEW_STEP = (False, ["-1", "-1", "No Click", "", "0", "0", "0"])
FRAME_TWIPS = (3600, 1575)
# What is typed over the selected count, the count then shown, how the frame
# is closed (a key, ("key", name), or a button's caption), the saved steps
# kept and the rows afterwards, and the steps then in the working copy.
CHANGES = [
    ("1", "1", ("key", "Escape"), 5, 5, 5),
    ("2", "2", "Cancel", 5, 5, 5),
    ("abc", "", ("key", "Return"), 5, 5, 5),  # each letter refused, and an empty count is no number either
    ("3x", "3", ("key", "Return"), 3, 3, 5),
    ("2.9", "2.9", ("key", "KP_Enter"), 2, 2, 3),
    ("8", "8", "Change", 2, 8, 2),
]


class StepCountTest(WineTestCase):
    def open_frame(self):
        """Clicks the sixth status panel and waits for the frame and its count."""
        self.click_status_panel(5)
        wait_until(self.frame_open, 20, "the step-count frame")
        self.assertEqual(str(len(self.grid())), self.count_text())

    def frame_open(self):
        return self.control("Static", "Number of steps:")["visible"]

    def count_text(self):
        # txtSteps is the one visible text box; the grid's txtCell waits hidden.
        return next(c["text"] for c in self.controls() if c["class"] == "Edit" and c["visible"])

    def close_frame(self, how):
        self.xdotool(*how) if isinstance(how, tuple) else self.press(how)
        wait_until(lambda: not self.frame_open(), 10, "the frame to close")
        self.assertTrue(self.control("SysListView32")["visible"])

    def wait_for_status(self, text):
        """Panel 1 shows `text`; it stays for two seconds."""
        wait_until(lambda: self.panels()[0], 10, repr(text), accept=lambda shown: shown == text)

    def assert_rows(self, kept, total):
        """The first `kept` saved steps, then new default steps up to `total` rows."""
        expected = [(checked, [str(row), *cells]) for row, (checked, cells)
                    in enumerate(SAVED[:kept] + [NEW_STEP] * (total - kept), 1)]
        self.assert_becomes((expected, str(total)),
                            lambda: ([(row["checked"], row["cells"]) for row in self.grid()], self.panels()[5]))

    def test_the_count_typed_rebuilds_the_grid_from_the_saved_steps(self):
        self.open_program(working_copy=LINES)
        self.assert_looks_right(96)
        for typed, shown, close, kept, total, saved in CHANGES:
            with self.subTest(typed=typed, close=close):
                self.open_frame()
                self.xdotool("type", "--delay", "30", typed)
                if typed != shown:
                    self.wait_for_status("Must be a number.")
                wait_until(self.count_text, 10, f"the count {shown!r}", accept=lambda text, shown=shown: text == shown)
                self.close_frame(close)
                if shown and close not in (("key", "Escape"), "Cancel"):
                    self.wait_for_status("Steps successfully changed.")
                self.assert_rows(kept, total)
                self.assertEqual(script_bytes(LINES[:saved]), file_bytes(self.folder / "Data.dat"))
        # Closing saves the grid but its new, unfilled steps.
        self.close_klickwerk()
        self.assertEqual(script_bytes(LINES[:2]), file_bytes(self.folder / "Data.dat"))
        self.assert_no_errors_logged()

    def assert_looks_right(self, dpi):
        """The frame centred in the window's client area at its size in twips,
        the grid hidden, the label and the box on one line and the buttons on
        the next, all inside the frame."""
        self.open_frame()
        self.xdotool("mousemove", "1", "1")  # no pointer over the window in the picture
        window = self.driver("window", self.main["target"])
        (origin_x, origin_y), (client_width, client_height) = window["clientOrigin"], window["client"]
        controls = self.controls()

        def rect(kind, text=""):
            return next(c["rect"] for c in controls if c["class"] == kind and c["text"] == text and c["visible"])
        frame, label, box = rect(FRAME), rect("Static", "Number of steps:"), rect("Edit", "5")
        change, cancel = rect("Button", "Change"), rect("Button", "Cancel")
        width, height = (round(twips * dpi / 1440) for twips in FRAME_TWIPS)
        self.assertEqual((width, height), (frame[2] - frame[0], frame[3] - frame[1]))
        self.assertLessEqual(abs(frame[0] - origin_x - (client_width - width) / 2), 1, "centred across")
        self.assertLessEqual(abs(frame[1] - origin_y - (client_height - height) / 2), 1, "centred down")
        self.assertFalse(any(c["visible"] for c in controls if c["class"] == "SysListView32"), "the grid hidden")
        inside = [label, box, change, cancel]
        self.assertTrue(all(frame[0] < r[0] and r[2] < frame[2] and frame[1] < r[1] and r[3] < frame[3]
                            for r in inside), f"inside the frame {frame}: {inside}")
        self.assertTrue(label[2] <= box[0] and label[1] == box[1], f"label then box: {label} {box}")
        self.assertTrue(box[3] < change[1] and change[1] == cancel[1] and change[2] < cancel[0],
                        f"buttons below, side by side: {change} {cancel}")
        self.settled_screenshot(f"step-count-{dpi}dpi")
        self.close_frame("Cancel")

    def test_the_frame_looks_right_at_144_dots_per_inch(self):
        self.use_144_dpi()
        self.open_program(working_copy=LINES)
        self.assert_looks_right(144)
        self.close_klickwerk()
        self.assert_no_errors_logged()
