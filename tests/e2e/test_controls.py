"""The custom controls as a user meets them, in a window of their own
(controls_fixture.exe): the three-state check box's twelve looks at 96 and
144 dots per inch, drawn crisp at the real pixel size; its value read from
outside as a standard check box's, changed by the left button, untouched by
the right one and by a disabled box, and toggled by Space; the drawn push
button's five looks and its clicks from the mouse, Space and Enter; Tab
through both."""
import subprocess

from harness import WineTestCase, centre, win_path
from wine_session import BUILD_DIR, TIMEOUT_SCALE, wait_until

TITLE = "Klickwerk Controls"
BOX_IDS = {"Enabled 0": 101, "Enabled 1": 102, "Enabled 2": 103, "Disabled 0": 104, "Disabled 1": 105,
           "Disabled 2": 106}
BUTTON_IDS = {"OK": 201, "Cancel": 202, "Off": 203}
BS_3STATE, BS_PUSHBUTTON = 5, 0
# A click clears a checked and a greyed box and checks an empty one.
CLICKED = {0: 1, 1: 0, 2: 0}
AWAY = (1, 1)  # the pointer over no window


def glyph_rect(box, dpi):
    """The square glyph at the box's left edge: 13 pixels at 96 DPI, in proportion above."""
    size = (13 * dpi + 48) // 96
    left, top, _, bottom = box["rect"]
    top += (bottom - top - size) // 2
    return left, top, left + size, top + size


def ring(picture, inset):
    """The colours on the ring `inset` pixels inside the picture's edge."""
    rows = picture[inset:len(picture) - inset]
    return set(rows[0] + rows[-1] + tuple(row[inset] for row in rows) + tuple(row[-1 - inset] for row in rows))


class ControlsTest(WineTestCase):
    # The fixture ---------------------------------------------------------------------

    def open_fixture(self):
        self.log = self.out / "controls.log"
        self.seen = 0
        self.fixture = self.start_windows_program(BUILD_DIR / "controls_fixture.exe", "--log", win_path(self.log))
        self.driver("window", TITLE, wait=20)
        self.move_pointer(*AWAY)

    def controls(self):
        return {control["text"]: control for control in self.driver("controls", TITLE)}

    def value(self, caption):
        return self.controls()[caption]["checked"]

    def focused(self):
        return next((text for text, control in self.controls().items() if control["focused"]), None)

    def expect_events(self, *lines):
        """The fixture's next log lines are exactly these."""
        def logged():
            return self.log.read_text().splitlines() if self.log.exists() else []
        wait_until(logged, 10, f"the events {lines}", accept=lambda seen: len(seen) >= self.seen + len(lines))
        self.assertEqual(list(lines), logged()[self.seen:self.seen + len(lines)])
        self.seen += len(lines)

    # Pixels ----------------------------------------------------------------------------

    def grab(self, rect):
        """The screen's pixels in the rectangle, as rows of RGB tuples."""
        left, top, right, bottom = rect
        width = right - left
        data = subprocess.run(["import", "-display", self.display, "-window", "root", "-crop",
                               f"{width}x{bottom - top}+{left}+{top}", "-depth", "8", "rgb:-"],
                              env=self.prefix.env, capture_output=True, check=True, timeout=60 * TIMEOUT_SCALE).stdout
        pixels = [tuple(data[i:i + 3]) for i in range(0, len(data), 3)]
        return tuple(tuple(pixels[row:row + width]) for row in range(0, len(pixels), width))

    def wait_for_look(self, rect, accept, what):
        """The pixels of the rectangle once they are accepted and steady."""
        def steady():
            first, second = self.grab(rect), self.grab(rect)
            return second if first == second and accept(second) else None
        return wait_until(steady, 10, what)

    # The check box ----------------------------------------------------------------------

    def assert_check_box_looks(self, dpi):
        """Reads the idle and disabled looks, then hovers, presses and releases
        each enabled box; returns the twelve looks by value and look."""
        boxes = self.controls()
        names = list(BOX_IDS)
        self.assertEqual(([BS_3STATE] * 6, [0, 1, 2, 0, 1, 2], [True] * 3 + [False] * 3),
                         ([boxes[n]["buttonType"] for n in names], [boxes[n]["checked"] for n in names],
                          [boxes[n]["enabled"] for n in names]))
        self.assertEqual(int(345 * dpi / 1440 + 0.5), boxes["Enabled 0"]["rect"][3] - boxes["Enabled 0"]["rect"][1],
                         "laid out at the window's DPI")
        idle = {v: self.wait_for_look(glyph_rect(boxes[f"Enabled {v}"], dpi), bool, "the idle glyph") for v in range(3)}
        disabled = {v: self.grab(glyph_rect(boxes[f"Disabled {v}"], dpi)) for v in range(3)}
        over, pushed = {}, {}
        for v in range(3):
            name = f"Enabled {v}"
            box, rect = boxes[name], glyph_rect(boxes[name], dpi)
            x, y = centre(rect)
            self.move_pointer(x, y)
            over[v] = self.wait_for_look(rect, lambda seen, v=v: seen != idle[v], "the mouse-over glyph")
            self.xdotool("mousedown", "1")
            pushed[v] = self.wait_for_look(rect, lambda seen, v=v: seen != over[v], "the pushed glyph")
            self.assertEqual(CLICKED[v], self.value(name), "the value changes at the press")
            self.xdotool("mouseup", "1")
            self.expect_events(f"mousedown {BOX_IDS[name]} left 0 {x - box['rect'][0]} {y - box['rect'][1]}",
                               f"click {BOX_IDS[name]} {CLICKED[v]}")
            self.move_pointer(*AWAY)
            self.wait_for_look(rect, lambda seen, v=v: seen == idle[CLICKED[v]],
                               "the leave watch to show the idle glyph of the new value")
        return [[idle[v], over[v], pushed[v], disabled[v]] for v in range(3)]

    def assert_crisp(self, looks, dpi):
        """Twelve different glyphs of whole pixels: a one-colour frame round a
        face, no more than three colours (a scaled or smoothed picture has
        blended ones)."""
        glyphs = [glyph for row in looks for glyph in row]
        self.assertEqual(12, len(set(glyphs)), "twelve different looks")
        for number, glyph in enumerate(glyphs):
            frame = ring(glyph, 0)
            self.assertEqual(1, len(frame), f"glyph {number}: a frame of one colour at {dpi} DPI")
            self.assertNotEqual(frame, ring(glyph, dpi // 96), f"glyph {number}: a face inside the frame")
            self.assertLessEqual(len({pixel for row in glyph for pixel in row}), 3, f"glyph {number}: colours")

    def assert_ignored_presses(self, dpi):
        """A disabled box ignores a click; a right press with Shift raises
        MouseDown and changes nothing."""
        boxes = self.controls()
        self.click_at(glyph_rect(boxes["Disabled 1"], dpi))
        rect = glyph_rect(boxes["Enabled 1"], dpi)
        x, y = centre(rect)
        self.move_pointer(x, y)
        self.xdotool("keydown", "shift", "mousedown", "3", "mouseup", "3", "keyup", "shift")
        box = boxes["Enabled 1"]
        self.expect_events(f"mousedown 102 right 1 {x - box['rect'][0]} {y - box['rect'][1]}")
        self.assertEqual((0, 1), (self.value("Enabled 1"), self.value("Disabled 1")))
        self.move_pointer(*AWAY)

    # The push button ---------------------------------------------------------------------

    def assert_button_looks(self):
        """Normal, hot, pushed, focused and disabled, each different; a click
        released over the button is a command, one dragged off is none."""
        buttons = self.controls()
        self.assertEqual([BS_PUSHBUTTON] * 3, [buttons[name]["buttonType"] for name in BUTTON_IDS])
        cancel, ok = buttons["Cancel"]["rect"], buttons["OK"]["rect"]
        normal = self.wait_for_look(cancel, bool, "the normal button")
        disabled = self.grab(buttons["Off"]["rect"])
        self.move_pointer(*centre(cancel))
        hot = self.wait_for_look(cancel, lambda seen: seen != normal, "the hot button")
        self.xdotool("mousedown", "1")
        pushed = self.wait_for_look(cancel, lambda seen: seen not in (normal, hot), "the pushed button")
        self.xdotool("mouseup", "1")
        self.expect_events("command 202")
        self.move_pointer(*AWAY)
        focused = self.wait_for_look(cancel, lambda seen: seen not in (normal, hot, pushed), "the focused button")
        self.assertEqual("Cancel", self.focused())

        ok_normal = self.grab(ok)
        self.move_pointer(*centre(ok))
        ok_hot = self.wait_for_look(ok, lambda seen: seen != ok_normal, "OK hot")
        self.xdotool("mousedown", "1")
        self.wait_for_look(ok, lambda seen: seen != ok_hot, "OK pushed")
        self.move_pointer(*AWAY)
        self.xdotool("mouseup", "1")
        self.click_at(cancel)
        self.expect_events("command 202")  # and none of OK before it
        self.move_pointer(*AWAY)
        self.assertEqual(5, len({normal, hot, pushed, focused, disabled}), "five different looks")

    def assert_looks(self, dpi):
        self.open_fixture()
        self.settled_screenshot(f"controls-{dpi}dpi")
        self.assert_crisp(self.assert_check_box_looks(dpi), dpi)
        self.assert_ignored_presses(dpi)
        self.assert_button_looks()

    def test_the_controls_look_and_work_at_96_dots_per_inch(self):
        self.assert_looks(96)

    def test_the_controls_look_and_work_at_144_dots_per_inch(self):
        self.use_144_dpi()
        self.assert_looks(144)

    def test_tab_space_and_enter_work_both_controls(self):
        self.open_fixture()
        self.give_focus(TITLE)
        self.assertEqual("Enabled 0", self.focused())
        self.xdotool("key", "space")
        self.expect_events("click 101 1")
        self.assertEqual(1, self.value("Enabled 0"))

        # Tab passes the disabled controls by.
        for expected in ["Enabled 1", "Enabled 2", "OK"]:
            self.xdotool("key", "Tab")
            self.assert_becomes(expected, self.focused)
        self.settled_screenshot("keyboard-focus-on-a-button")
        self.xdotool("key", "space")
        self.xdotool("key", "Return")
        self.expect_events("command 201", "command 201")
        self.xdotool("key", "shift+Tab")
        self.assert_becomes("Enabled 2", self.focused)
        self.settled_screenshot("keyboard-focus-on-a-check-box")
        self.xdotool("key", "space")
        self.expect_events("click 103 0")
        for expected in ["OK", "Cancel", "Enabled 0"]:
            self.xdotool("key", "Tab")
            self.assert_becomes(expected, self.focused)
        self.assertEqual([1, 1, 0], [self.value(f"Enabled {v}") for v in range(3)])
