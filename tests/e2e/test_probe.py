"""Self-test of the harness, the probe and the driver, without the product:
X input must reach a Wine window exactly, and the driver must see and operate
windows and message boxes of another process."""
import re

from harness import WineTestCase
from wine_session import wait_until


def events(log, kinds):
    """The log's lines of the given kinds, without their time stamps."""
    lines = log.read_text().splitlines()
    return [re.sub(r" t=\d+$", "", line) for line in lines if line.split(" ", 1)[0] in kinds]


class ProbeTest(WineTestCase):
    def test_typed_text_and_key_chords_arrive_in_order(self):
        log, _ = self.start_probe("Probe Keys", rect=(80, 60, 500, 300))
        self.focus("Probe Keys")
        self.xdotool("type", "--delay", "20", "Hi!")
        self.xdotool("key", "shift+a", "Return", "ctrl+c", "alt+x")
        self.wait_for_log_line(log, r"^key up vk=88 ")

        self.assertEqual(["char 72 'H'", "char 105 'i'", "char 33 '!'", "char 65 'A'", "char 13", "char 3",
                          "syschar 120 'x'"],
                         events(log, {"char", "syschar"}))
        keys = events(log, {"key", "syskey"})
        # Shift is held around the capital letter and released after it.
        shift_down = keys.index("key down vk=16 scan=42 ext=0 prev=0")
        self.assertEqual("key down vk=72 scan=35 ext=0 prev=0", keys[shift_down + 1])
        self.assertIn("key down vk=17 scan=29 ext=0 prev=0", keys)
        self.assertIn("syskey down vk=88 scan=45 ext=0 prev=0", keys)
        downs = sum(1 for key in keys if " down " in key)
        ups = sum(1 for key in keys if " up " in key)
        self.assertEqual(downs, ups, "every pressed key was released")

    def test_mouse_buttons_double_clicks_and_wheel_carry_positions(self):
        log, probe = self.start_probe("Probe Mouse", rect=(100, 120, 400, 300))
        x, y = probe["x"] + 30, probe["y"] + 40
        self.xdotool("mousemove", "--sync", str(x), str(y))
        self.xdotool("click", "1")
        self.xdotool("click", "--repeat", "2", "--delay", "80", "3")
        self.xdotool("click", "4")
        self.wait_for_log_line(log, r"^mouse wheel ")

        where = f"x=30 y=40 sx={x} sy={y}"
        self.assertEqual([f"mouse ldown {where}", f"mouse lup {where}", f"mouse rdown {where}",
                          f"mouse rup {where}", f"mouse rdblclk {where}", f"mouse rup {where}",
                          f"mouse wheel delta=120 {where}"],
                         [line for line in events(log, {"mouse"}) if " move " not in line])

    def test_driver_sees_two_probes_and_closes_one(self):
        log_a, a = self.start_probe("Probe A", rect=(0, 0, 300, 200))
        log_b, b = self.start_probe("Probe B", rect=(400, 50, 300, 200))
        self.assertNotEqual(a["pid"], b["pid"])

        window = self.driver("window", "Probe B")
        self.assertEqual((b["pid"], [400, 50, 700, 250], True), (window["pid"], window["rect"], window["visible"]))
        self.assertEqual([b["width"], b["height"]], window["client"])
        self.assertEqual(window, self.driver("window", f"pid={b['pid']}"))

        self.driver("close", "Probe A")
        self.wait_for_log_line(log_a, r"^close ")
        self.wait_for_exit(a["process"])
        self.assertIsNone(self.driver("window", "Probe A", allow_missing=True))
        self.assertEqual(1, sum(1 for window in self.driver("windows") if window["text"] == "Probe B"))
        self.assertFalse(log_b.read_text().count("close"), "the other probe got no close")

    def test_driver_reads_and_answers_a_message_box(self):
        for button, answer in (("No", "no"), ("yes", "yes")):
            with self.subTest(button=button):
                log, _ = self.launch_probe("Probe Ask", ask="Continue?  Two blanks stay.")
                box = self.wait_for_msgbox("Continue?  Two blanks stay.")
                self.assertEqual(("Probe Ask", ["Yes", "No"]), (box["title"], box["buttons"]))
                self.assertEqual(button.capitalize(), self.answer(button)["pressed"])
                self.wait_for_log_line(log, f"^answer {answer} ")
                self.wait_for_log_line(log, r"^ready ")
                self.driver("close", "Probe Ask")
                wait_until(lambda: self.driver("window", "Probe Ask", allow_missing=True) is None, 20,
                           "the probe to close")
