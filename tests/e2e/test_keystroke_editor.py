"""The keystroke-text editor as the user meets it: a click on a step's
Additional cell opens it over the main window; the window picker dragged onto
another window appends that window's title; confirming checks presses
against releases, writes the step and saves the working copy."""
from harness import WineTestCase, centre, file_bytes, script_lines, step
from wine_session import wait_until

EDITOR = "Keystroke text"
PROBE = "Probe Picker"
QUESTION = "\r\nSHIFT: Pressed 1| Released 0\r\nPress Yes to fix (might yield unwanted results!)"


class KeystrokeEditorTest(WineTestCase):
    def open_editor(self, row):
        """Clicks the Additional cell of the 1-based row and waits for the editor."""
        self.click_at(self.grid()[row - 1]["rects"][4])
        self.editor = wait_until(lambda: self.driver("window", EDITOR, allow_missing=True), 20, "the editor")
        return self.editor

    def editor_controls(self):
        return self.driver("controls", EDITOR)

    def editor_control(self, kind, text=None):
        return next(control for control in self.editor_controls()
                    if control["class"] == kind and text in (None, control["text"]))

    def reference(self):
        """The three reference labels, in their order on screen."""
        labels = [control for control in self.editor_controls() if control["class"] == "Static" and " = " in control["text"]]
        return sorted(labels, key=lambda label: label["rect"][0])

    def editor_text(self):
        return self.editor_control("Edit")["text"]

    def drag(self, start, end):
        """Presses the left button at `start`, moves in steps to `end` and releases it there."""
        self.move_pointer(*start)
        self.xdotool("mousedown", "1")
        for fraction in (0.25, 0.5, 0.75, 1.0):
            self.move_pointer(*(round(a + (b - a) * fraction) for a, b in zip(start, end)))
        self.xdotool("mouseup", "1")

    def wait_for_editor_closed(self):
        wait_until(lambda: self.driver("window", EDITOR, allow_missing=True) is None, 20, "the editor to close")

    def saved_steps(self):
        return file_bytes(self.folder / "Data.dat")

    def test_the_picker_appends_the_title_of_the_window_it_is_dropped_on_and_unreleased_keys_are_repaired(self):
        probe, origin = self.open_probe(PROBE)
        self.open_program(working_copy=script_lines([step(10, 20, "Left Click", "first"),
                                                     step(30, 40, keys="old", checked=False)]))
        self.open_editor(2)
        self.assertEqual("old", self.editor_text())
        reference = [label["text"] for label in self.reference()]
        self.assertTrue(reference[0].startswith("%a = Press Alt\r\n"), reference[0])
        self.assertIn("%winclose = Close", reference[2])

        # The whole text is selected: typing replaces it, and a window
        # command with its blank opens the picker by itself.
        self.focus(EDITOR)
        self.xdotool("type", "--delay", "60", "%winfoc ")
        picker = wait_until(lambda: self.editor_control("KlickwerkWindowPicker"), 20, "the picker",
                            accept=lambda control: control["visible"])
        self.assertFalse(self.editor_control("Edit")["enabled"], "the text is locked while picking")
        self.drag(centre(picker["rect"]), (origin.x + origin.width - 40, origin.y + origin.height - 30))
        wait_until(self.editor_text, 20, "the title in the text", accept=lambda text: text == f"%winfoc {PROBE}")
        self.assertTrue(self.editor_control("Edit")["enabled"])
        self.assertFalse(self.editor_control("KlickwerkWindowPicker")["visible"])

        self.settled_screenshot("keystroke-editor")
        self.driver("click", EDITOR, "OK")
        self.wait_for_editor_closed()
        self.assertEqual(["2", "30", "40", "No Click", f"%winfoc {PROBE}", "0", "0", "0"], self.grid()[1]["cells"])
        self.assertTrue(self.grid()[1]["checked"])
        self.assertIn(f"%winfoc {PROBE}".encode(), self.saved_steps())

        # An unreleased key is asked about, and Yes repairs it.
        self.open_editor(1)
        self.focus(EDITOR)
        self.xdotool("type", "--delay", "60", "%sa")
        self.xdotool("key", "Return")
        self.wait_for_msgbox(QUESTION)
        self.answer("Yes")
        self.wait_for_editor_closed()
        self.assertEqual("%sa$s", self.grid()[0]["cells"][4])
        self.assertIn(b"%sa$s", self.saved_steps())

        # Esc drops an edit.
        self.open_editor(1)
        self.focus(EDITOR)
        self.xdotool("type", "--delay", "60", "changed")
        self.xdotool("key", "Escape")
        self.wait_for_editor_closed()
        self.assertEqual("%sa$s", self.grid()[0]["cells"][4])
        self.assert_no_errors_logged()

    def test_the_editor_is_crisp_at_144_dots_per_inch(self):
        self.use_144_dpi()
        self.open_program(working_copy=script_lines([step(10, 20, keys="%winmin ")]))
        self.open_editor(1)
        self.driver("click", EDITOR, "Window title...")
        wait_until(lambda: self.editor_control("KlickwerkWindowPicker"), 20, "the picker",
                   accept=lambda control: control["visible"])
        left, top, right, bottom = self.editor_control("KlickwerkWindowPicker")["rect"]
        self.assertEqual((48, 48), (right - left, bottom - top), "the picker's picture at 144 dots per inch")
        labels = [label["rect"] for label in self.reference()]
        self.assertEqual(3, len(labels))
        self.assertTrue(all(a[2] < b[0] for a, b in zip(labels, labels[1:])), f"side by side: {labels}")
        self.settled_screenshot("keystroke-editor-picker-144dpi")
        self.driver("click", EDITOR, "Cancel")  # the picker's own Cancel: the editor stays
        wait_until(lambda: self.editor_control("Edit")["enabled"], 20, "the picker to close")
        self.assertEqual("%winmin ", self.editor_text())
