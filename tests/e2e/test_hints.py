"""The hint panel as the user meets it: shown at start-up with the hints of
"DYK.dat", quoting the program's live captions, paging both ways with wrap,
and the do-not-show choice kept for the next start."""
from harness import WineTestCase
from wine_session import wait_until

HINTS = ("|Click $S3$ to record; $P4$ stops it.|Save with $B1$.$ret$$ret$Two breaks, and one line \r\n"
         "written across two.|").encode("latin-1")


class HintsTest(WineTestCase):
    def hint_panel(self):
        """The caption and the hint, or None while the panel is hidden."""
        statics = [control for control in self.controls() if control["class"] == "Static" and control["visible"]]
        caption = next((control["text"] for control in statics if control["text"].startswith("Hint: ")), None)
        if caption is None:
            return None
        hint = next(control for control in statics if statics.index(control) == statics.index(
            next(c for c in statics if c["text"] == caption)) + 1)
        return caption, hint["text"]

    def press_and_read(self, button):
        before = self.hint_panel()
        self.press(button)
        return wait_until(self.hint_panel, 20, f"the hint after {button}", accept=lambda shown: shown != before)

    def test_hints_page_both_ways_and_quote_the_live_captions(self):
        self.open_program(DYK=1, files={"DYK.dat": HINTS})
        shown = wait_until(self.hint_panel, 20, "the hint panel at start-up")
        if shown[0] == "Hint: 1":
            shown = self.press_and_read("Next >")
        self.assertEqual(("Hint: 2", "Save with Save.\r\n\r\nTwo breaks, and one line written across two."), shown)
        self.assertEqual(("Hint: 1", "Click RECORD to record; ESCAPE stops it."), self.press_and_read("Next >"))
        self.assertEqual("Hint: 2", self.press_and_read("< Previous")[0])
        self.settled_screenshot("hint-panel")

        # "Do not show" and Close keep the choice; the next start shows no panel.
        box = self.control("Button", "Do not show hints at start-up")["rect"]
        self.xdotool("mousemove", str(box[0] + 8), str((box[1] + box[3]) // 2), "click", "1")
        self.press("Close")
        wait_until(lambda: self.hint_panel() is None, 20, "the panel to close")
        self.assertEqual("0", self.setting("DYK"))
        self.close_klickwerk()
        self.klickwerk = self.start_klickwerk()
        self.wait_for_main_window()
        self.assertIsNone(self.hint_panel())

        # The help button's "View Did You Know?" shows it again.
        help_button = next(button for button in self.toolbar() if button["text"] == "Help")
        left, top, right, bottom = help_button["rect"]
        self.xdotool("mousemove", str(right - 5), str((top + bottom) // 2), "click", "1")
        wait_until(self.menu_open, 20, "the help menu")
        self.xdotool("key", "Down", "Return")
        self.assertTrue(wait_until(self.hint_panel, 20, "the hint panel again")[0].startswith("Hint: "))
        self.assert_no_errors_logged()
