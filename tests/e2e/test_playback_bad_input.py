"""Scripts a run cannot play as they stand, and texts far longer than usual:
the run ends through its error trap or goes on as specified, never a crash."""
import string

from playback_fixture import PlaybackTestCase, step
from wine_session import wait_until

PROBE = "Probe Bad Input"


class BadCellTest(PlaybackTestCase):
    # The cells of a first step that no run can convert to a number.
    CELLS = [
        ("X", dict(x="abc", y=10)),
        ("Y", dict(x=10, y="12abc")),
        ("Secs", dict(secs="soon")),
        ("Mins", dict(mins="1,5,0")),
        ("Repeat", dict(repeat="x1")),
    ]

    def test_a_cell_that_is_no_number_ends_the_run_through_the_error_trap(self):
        probe, _ = self.open_probe(PROBE)
        for column, cells in self.CELLS:
            with self.subTest(column=column):
                self.open_script([step(**cells), step(keys="after")])
                try:
                    self.give_focus(PROBE)
                    self.press("Start")
                    wait_until(lambda: self.error_log(), 20, "a line in the error log")
                    self.wait_for_idle()
                    self.assertEqual("Klickwerk Type mismatch 13 StartButton 0\r\n", self.error_log())
                    self.assertEqual("Error: Type mismatch 13 StartButton 0", self.panels()[0])
                    self.assertEqual("", probe.text(), "no later step was played")
                finally:
                    self.end_klickwerk()

    def test_rnd_with_a_wrong_field_count_says_so_and_counts_as_zero(self):
        probe, _ = self.open_probe(PROBE)
        self.open_script([step(keys="q", secs=0.3, repeat="rnd(1,2)")], ShowCount=0)
        self.give_focus(PROBE)
        self.press("Repeat")

        self.start_run()
        wait_until(lambda: self.panels()[0] == "Incorrect RND syntax in step #1 [rnd(1,2)].  Zeros assigned.", 20,
                   "the RND message in the status line")
        self.hold_key("Escape", lambda: not self.running(), "the stop key to end the run")
        # A repeat count of 0: each pass plays the step once.
        self.assertEqual(int(self.panels()[4]), probe.text().count("q"))
        self.assertEqual(["rnd(1,2)"], self.cells(7))
        self.assert_no_errors_logged(self.folder)


class LongTextTest(PlaybackTestCase):
    def test_a_text_of_100000_characters_types_completely_and_the_stop_key_still_works(self):
        probe, _ = self.open_probe(PROBE)
        # No "(" or ")": the virtual display's keyboard map also has them on
        # keys of their own that Wine finds no key code for.
        alphabet = string.ascii_letters + string.digits + " .,;:-_!?[]{}'/"
        # "#" appears only at the end: its arrival tells the probe has all.
        text = "".join(alphabet[(i * 7) % len(alphabet)] for i in range(99_999)) + "#"
        self.open_script([step(keys=text), step(secs=600)])
        self.give_focus(PROBE)

        self.press("Start")
        # The program answers no one while it types; the probe tells the end.
        wait_until(lambda: "char 35 '#'" in probe.tail(), 600, "the last character")
        self.hold_key("Escape", lambda: not self.running(), "the stop key to end the run")

        received = probe.text().replace("\x1b", "")  # the stop key's own character
        self.assertEqual(len(text), len(received))
        self.assertTrue(received == text, "every character arrived, in order")
        self.assert_no_errors_logged(self.folder)
