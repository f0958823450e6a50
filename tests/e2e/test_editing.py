"""Editing the steps through the real grid: clicks on cells open their
editors, typed values are checked and normalised and saved at once, and the
context menu's commands change the list."""
from harness import WineTestCase, centre, file_bytes, script_lines, step
from wine_session import wait_until

X, Y, BUTTON, ADDITIONAL, MINS, SECS, REPEAT = range(1, 8)
STEPS = [step(10, 20, "Left Click", "a", mins=2, secs=1), step(30, 40, "No Click", "b", secs=1, checked=False),
         step(50, 60, "Right Click", "c", secs=2), step(70, 80, keys="d", secs=3), step(90, 100, keys="e", secs=4)]

# Column, what the user types into the emptied box and the keys pressed,
# the status message seen last, the cell afterwards: one of each way the
# real box ends (which values are refused is the unit tests' part).
TYPED = [
    (X, ["-5", "{Enter}"], "", "-5"),
    (REPEAT, ["-5", "{Enter}"], "Must be a positive number.", "5"),  # the box shows 5; Enter again stores it
    (SECS, ["abc", "{Enter}", "{Escape}"], "Can not be blank and must be a positive number.", "1"),
    (Y, ["777", "{Escape}"], "", "20"),
]


class EditingTest(WineTestCase):
    def click_cell(self, row, column, button="1"):
        """Clicks the cell; row 0: below the rows."""
        left, top, right, bottom = self.grid()[row - 1]["rects"][column]
        self.click_at((left, top, right, bottom) if row else (left, bottom + 30, right, bottom + 50), button)

    def cell_editor(self):
        """The visible txtCell or cmbDrop, or None."""
        return next((control for control in self.controls()
                     if control["class"] in ("Edit", "ComboBox") and control["visible"]), None)

    def type_into_cell(self, text):
        """Replaces the box's text, or presses "{Enter}" or "{Escape}"."""
        keys = {"{Enter}": "Return", "{Escape}": "Escape"}
        if text in keys:
            self.xdotool("key", keys[text])
            return
        self.xdotool("key", "ctrl+a", "BackSpace")
        if text:
            self.xdotool("type", "--delay", "40", "--", text)

    def saved_line(self, row):
        return file_bytes(self.folder / "Data.dat").decode("latin-1").splitlines()[row - 1]

    def test_typed_values_are_checked_normalised_and_saved(self):
        self.open_program(working_copy=script_lines(STEPS))
        for column, inputs, message, stored in TYPED:
            with self.subTest(column=column, inputs=inputs):
                self.click_cell(1, column)
                editor = wait_until(self.cell_editor, 20, "the cell editor")
                self.assertEqual(centre(self.grid()[0]["rects"][column])[1], centre(editor["rect"])[1],
                                 "the box lies over its cell")
                for text in inputs:
                    self.type_into_cell(text)
                    if message and text == "{Enter}":
                        wait_until(lambda: self.panels()[0] == message, 20, repr(message))
                        if column == SECS and inputs[0] == "abc":
                            self.assertEqual("-1", self.cell_editor()["text"])
                if column == REPEAT:  # refused and corrected: Enter again stores it
                    self.assertEqual("5", self.cell_editor()["text"])
                    self.type_into_cell("{Enter}")
                wait_until(lambda: self.cell_editor() is None, 20, "the editor to close")
                self.assertEqual(stored, self.grid()[0]["cells"][column])
                if inputs[-1] != "{Escape}":
                    self.assertEqual(self.saved_line(1).split("||")[column + 1], stored)

        # The Button column's list commits the entry chosen at once.
        self.click_cell(2, BUTTON)
        wait_until(lambda: (self.cell_editor() or {}).get("class") == "ComboBox", 20, "the list")
        self.xdotool("key", "Down")
        wait_until(lambda: self.grid()[1]["cells"][BUTTON] == "Left Click", 20, "the next action stored")
        self.assertEqual("True|||2||30||40||Left Click||b||0||1||0", self.saved_line(2), "checked by the edit")

        # "#", and below the last row, open nothing.
        self.click_cell(4, 0)
        self.click_cell(0, X)
        self.assertIsNone(self.cell_editor())
        self.assert_no_errors_logged()

    def open_menu_and_choose(self, row, column, key, screenshot=None):
        """Right-clicks the cell (row 0: below the rows) and picks the entry by
        its access key; a greyed entry's key does nothing, and Escape then
        closes the menu."""
        self.click_cell(row, column, button="3")
        wait_until(self.menu_open, 20, "the context menu")
        if screenshot:
            self.settled_screenshot(screenshot)
        self.xdotool("key", key)
        if self.menu_open():
            self.xdotool("key", "Escape")

    def test_the_context_menu_changes_the_list(self):
        self.open_program(working_copy=script_lines(STEPS))
        # Wine does not let another process read a menu's entries: the
        # screenshots show the captions, and greyed entries do nothing.
        self.open_menu_and_choose(3, X, "Escape", "menu-row-3")
        self.driver("select", self.main["target"], "2", "3")
        self.open_menu_and_choose(3, X, "i", "menu-two-selected")  # Insert Step is greyed
        self.open_menu_and_choose(0, X, "r", "menu-below-rows")  # so is Remove Step(s)
        self.assertEqual(5, len(self.grid()))
        self.open_menu_and_choose(0, X, "a")  # below the rows: Add New Step
        self.wait_for_grid_rows(6)
        self.assertEqual(["6", "-1", "-1", "No Click", "", "0", "0", "0"], self.grid()[5]["cells"])
        self.assertEqual("6", self.panels()[5])

        self.driver("select", self.main["target"], "2", "3", "4")
        self.open_menu_and_choose(3, X, "r")  # Remove Steps
        self.wait_for_grid_rows(3)
        self.assertEqual([["1", "10"], ["2", "90"], ["3", "-1"]], [row["cells"][:2] for row in self.grid()])

        # F2 edits the selected step's X; Delete removes the selected steps.
        self.driver("select", self.main["target"], "2")
        self.focus(self.main["text"])
        self.xdotool("key", "F2")
        editor = wait_until(self.cell_editor, 20, "the editor of X")
        self.assertEqual(("Edit", "90"), (editor["class"], editor["text"]))
        self.xdotool("key", "Escape")
        wait_until(lambda: self.cell_editor() is None, 20, "the editor to close")
        self.xdotool("key", "Delete")
        self.wait_for_grid_rows(2)

        self.driver("select", self.main["target"], "1")
        self.open_menu_and_choose(1, 0, "m")  # Make same on "#": the checked state of row 1
        self.wait_for_msgbox("Are you sure you want to change ALL values in # column to CHECKED?")
        self.answer("Yes")
        wait_until(lambda: all(row["checked"] for row in self.grid()), 20, "every row checked")

        self.open_menu_and_choose(1, X, "l")  # Clear list
        self.wait_for_msgbox("Are you sure you want to clear the list?")
        self.answer("Yes")
        self.wait_for_grid_rows(0)
        self.assertFalse((self.folder / "Data.dat").exists())
        self.close_klickwerk()
        self.assert_no_errors_logged()
