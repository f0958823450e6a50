"""The pointer and the buttons during a run, as another program's window
sees them: every click action at its step's position, -1 keeping a
coordinate, the smooth move, and random positions within their span."""
from playback_fixture import PlaybackTestCase, step
from wine_session import wait_until

# Button cell and the button events it makes, in order.
CLICK_ACTIONS = [
    ("No Click", []),
    ("Left Click", ["ldown", "lup"]),
    ("Left DblClick", ["ldown", "lup", "ldblclk", "lup"]),
    ("Left Down", ["ldown"]),
    ("Left Up", ["lup"]),
    ("Right Click", ["rdown", "rup"]),
    ("Right DblClick", ["rdown", "rup", "rdblclk", "rup"]),
    ("Right Down", ["rdown"]),
    ("Right Up", ["rup"]),
    ("Middle Click", []),  # no click action: sends nothing
]

PRESSES = ("ldown", "ldblclk")

# Under Wine the probe's own process reports the X pointer's moves back to
# the system, a little late: a step that moved the pointer needs a moment
# before the next one moves it again, or that late report of the old place
# can overtake the next click. The program itself never waits there.
SETTLE = 0.1


class ClickTest(PlaybackTestCase):
    def test_each_click_action_arrives_at_its_steps_position(self):
        probe_log, probe = self.open_probe("Probe Clicks")
        # Far enough apart that no two clicks make a double click.
        positions = [(probe["x"] + 40 + 110 * i, probe["y"] + 40 + 12 * i) for i in range(len(CLICK_ACTIONS))]
        self.open_script([step(x, y, button, secs=SETTLE) for (x, y), (button, _) in zip(positions, CLICK_ACTIONS)])

        self.press("Start")
        self.wait_for_steps(len(CLICK_ACTIONS))

        expected = [(kind, x, y) for (x, y), (_, kinds) in zip(positions, CLICK_ACTIONS) for kind in kinds]
        self.assertEqual(expected, probe_log.clicks())
        self.assert_no_errors_logged(self.folder)

    def test_minus_one_keeps_that_coordinate_of_the_pointer(self):
        probe_log, probe = self.open_probe("Probe Keep")
        x, y = probe["x"] + 300, probe["y"] + 50
        self.open_script([step(x, y, secs=SETTLE), step(-1, y + 100, "Left Click", secs=SETTLE),
                          step(x + 200, -1, "Right Click")])

        self.press("Start")
        self.wait_for_steps(3)

        self.assertEqual([("ldown", x, y + 100), ("lup", x, y + 100), ("rdown", x + 200, y + 100),
                          ("rup", x + 200, y + 100)], probe_log.clicks())

    def test_smooth_move_glides_to_the_target_and_ends_exactly_on_it(self):
        probe_log, probe = self.open_probe("Probe Glide")
        start = (probe["x"] + 10, probe["y"] + 10)
        target = (probe["x"] + 1110, probe["y"] + 190)
        # The pointer waits on the start before the run, so that no late
        # report of an earlier way to it can fall inside the glide.
        self.open_script([step(-1, -1, secs=SETTLE), step(*target, secs=2)], SmoothPointer=1)
        self.move_pointer(*start)
        wait_until(lambda: [(x, y) for _, x, y in probe_log.events({"move"})][-1:] == [start], 20,
                   "the probe seeing the pointer on the start")

        self.press("Start")
        # The pointer position shown by the program during the wait.
        wait_until(lambda: self.panels()[1:3] == [str(target[0]), str(target[1])] and self.running(), 20,
                   "the pointer shown on the target while the step waits")
        self.wait_for_steps(2)

        moves = [(x, y) for _, x, y in probe_log.events({"move"})]
        self.assertEqual(target, moves[-1], "the probe last saw the pointer on the target")
        glide = moves[len(moves) - 1 - moves[::-1].index(start):]
        between = {(x, y) for x, y in glide if start[0] <= x <= target[0] and start[1] <= y <= target[1]}
        self.assertEqual(set(glide), between, "every point of the glide lies between start and target")
        self.assertGreaterEqual(len(between - {start, target}), 3, "the pointer glided instead of jumping")
        # Diagonal until the target's row is reached, then along that row.
        self.assertTrue(any(y == target[1] and x < target[0] - 100 for x, y in between), sorted(between))

    def test_random_positions_stay_inside_their_span(self):
        probe_log, probe = self.open_probe("Probe Random")
        left, top = probe["x"] + 100, probe["y"] + 60
        steps = 30
        self.open_script([step(f"RND({left}, 80, 0)", f"rnd({top},40,0)", "Left Click", secs=SETTLE)] * steps)

        for run in (1, 2):
            self.press("Start")
            self.wait_for_steps(steps * run, timeout=60)

        presses = [(x, y) for kind, x, y in probe_log.clicks() if kind in PRESSES]
        self.assertEqual(2 * steps, len(presses))
        outside = [(x, y) for x, y in presses if not (left <= x < left + 80 and top <= y < top + 40)]
        self.assertEqual([], outside)
        self.assertEqual([f"RND({left}, 80, 0)"] * steps, self.cells(1), "the cells keep their expressions")
