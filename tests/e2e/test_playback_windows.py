"""Window commands of a run acting on another program's window found by its
exact title, or on the window that has the focus."""
import re

from playback_fixture import PlaybackTestCase, step

TITLE = "Probe Window"


def window_events(probe_log):
    """("size", state, width, height) and ("move", x, y) of the probe's
    client area, from its ready line on."""
    lines = probe_log.lines()
    lines = lines[next(i for i, line in enumerate(lines) if line.startswith("ready ")):]
    found = []
    for line in lines:
        if match := re.match(r"^size (\w+) w=(\d+) h=(\d+) ", line):
            found.append(("size", match[1], int(match[2]), int(match[3])))
        elif match := re.match(r"^move x=(-?\d+) y=(-?\d+) ", line):
            found.append(("move", int(match[1]), int(match[2])))
    return found


class WindowCommandTest(PlaybackTestCase):
    def test_commands_minimise_maximise_restore_move_and_size_the_titled_window(self):
        probe_log, probe = self.open_probe(TITLE, rect=(40, 60, 360, 240))
        client = (probe["width"], probe["height"])
        # The frame around the client area, from the probe's own numbers.
        border = (360 - probe["width"], 240 - probe["height"])
        inset = (probe["x"] - 40, probe["y"] - 60)
        self.open_script([
            step(keys=f"%winmin {TITLE}"),
            step(keys=f"%winrest {TITLE}"),
            step(keys=f"%winmax {TITLE}"),
            step(keys=f"%winrest {TITLE}"),
            step(keys="%winmin"),  # no blank, so no command
            step(300, 200, keys=f"%winmov {TITLE} ; 300,200"),  # no window is titled "Probe Window "
            step(250, 180, keys=f"%winmov {TITLE}; 300,200"),
            step(-1, -1, keys=f"%winmov {TITLE};420, 260"),
            step(-1, 90, keys=f"%winmov {TITLE}; -1,"),
        ])

        self.press("Start")
        self.wait_for_steps(9)

        events = window_events(probe_log)
        sizes = [(state, width, height) for kind, state, width, height in
                 (event for event in events if event[0] == "size")]
        maximised = next(size for size in sizes if size[0] == "maximized")
        self.assertEqual([("minimized", 0, 0), ("restored", *client), maximised, ("restored", *client),
                          ("restored", 300 - border[0], 200 - border[1]),
                          ("restored", 420 - border[0], 260 - border[1])], sizes)
        last_restore = len(events) - 1 - events[::-1].index(("size", "restored", *client))
        self.assertEqual([("move", 250 + inset[0], 180 + inset[1]), ("move", 250 + inset[0], 90 + inset[1])],
                         [event for event in events[last_restore:] if event[0] == "move"],
                         "moved by the step's X and Y, -1 keeping the left edge; the blank title moved nothing")
        window = self.driver("window", TITLE)
        self.assertEqual(([250, 90, 670, 350], False, False), (window["rect"], window["minimized"], window["maximized"]))

    def test_focus_brings_the_titled_window_to_the_front_and_close_asks_the_active_one(self):
        front_log, front = self.open_probe("Probe Front", rect=(40, 760, 500, 200))
        other_log, _ = self.open_probe("Probe Other", rect=(700, 760, 500, 200))
        self.open_script([step(keys="%winfoc Probe Front", secs=0.2), step(keys="%winclose %ACTIVE")])
        self.assertFalse(self.driver("window", "Probe Front")["foreground"])

        self.press("Start")
        self.wait_for_steps(2)

        self.wait_for_exit(front["process"])
        lines = [line.split(" t=")[0] for line in front_log.lines()]
        lines = lines[next(i for i, line in enumerate(lines) if line.startswith("ready ")):lines.index("close") + 1]
        # Klickwerk's window took the front when it opened; the command gave it back.
        self.assertEqual(["activate inactive", "activate active", "close"],
                         [line for line in lines if line.startswith(("activate ", "close"))])
        self.assertNotIn("close", [line.split(" t=")[0] for line in other_log.lines()])
        self.assertTrue(self.driver("window", "Probe Other")["visible"])
        self.assertTrue(self.button("Start")["enabled"])
