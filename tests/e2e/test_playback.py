"""Runs as another program's window sees them: each scenario is a script,
played once from the Start button at a probe window, and what the probe must
see of it. Positional steps follow each other without a wait: under Wine the
probe's process reports the pointer's moves back to the system late, and
every click must still land at its own step's position. Then the keys a user
presses while a run plays or waits: the stop key ending a repeated run and
the panel that changes it, F10 pausing a run, F12 copying the pointer
position into the selected rows; and a run that lets go of the keys and
buttons it left down, however it ends."""
from typing import Callable, NamedTuple

from harness import APP_TITLE, PROBE_RECT, WineTestCase, script_lines, step
from wine_session import wait_until

PROBE = "Probe Playback"
SHIFT = 16
CTRL = 17
ESCAPE = 27


def press(*keys):
    return [event for key in keys for event in (("down", key), ("up", key))]


def shifted(key):
    return [("down", SHIFT), ("down", key), ("up", key), ("up", SHIFT)]


# Keystroke text of one step, the key events it sends, the characters they
# make. Each text follows the one before it in the same run.
TEXTS = [
    ("Hello", shifted(72) + press(69, 76, 76, 79), "Hello"),
    ("%ca$c", [("down", 17), ("down", 65), ("up", 65), ("up", 17)], "\x01"),
    ("%r$r", press(13), "\r"),
    ("%f1", press(112), ""),
    # The "%" left pending makes the next step's "." the Down Arrow, which
    # stays down until a "$." releases it.
    ("50%", press(53, 48), "50"),
    (".", [("down", 40)], ""),
    ("$.", [("up", 40)], ""),
    ("%X", shifted(53) + shifted(88), "%X"),
    ("%%", shifted(53) + shifted(53), "%%"),
    ("  abc  ", press(65, 66, 67), "abc"),
]
# Characters that no key of the layout makes: "é" on a US layout, and under
# Wine in a virtual display even "(" and ")"; among them some that keys make.
ANY_CHARACTERS = "(é) ü-ß {x} à!"

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


# Rounds of all click actions, one after the other: enough steps that a click
# sent where the system last heard the pointer was would show.
CLICK_ROUNDS = 5


def spot(at, number):
    """Where click number `number` lands: ten to a row, far enough from the
    others that no two make a double click."""
    return at.x + 40 + 110 * (number % 10), at.y + 20 + 36 * (number // 10) + 3 * (number % 10)


def rest(at):
    """Where the pointer rests on the probe when a run starts."""
    return at.x + 10, at.y + 10


def target(at):
    """Where the smooth move goes: far on the right, lower down."""
    return at.x + 1110, at.y + 190


def glide(probe, at):
    """The pointer's way from its rest to the smooth move's target, as the probe saw it."""
    moves = [(x, y) for _, x, y in probe.events("move")]
    start, end = rest(at), target(at)
    way = moves[len(moves) - 1 - moves[::-1].index(start):]
    return {"end": way[-1],
            "outside the span": [(x, y) for x, y in way if not (start[0] <= x <= end[0] and start[1] <= y <= end[1])],
            "glided through at least three points": len(set(way) - {start, target}) >= 3,
            # Within the pixel an absolute move's coordinates round to.
            "along the target's row at the end": any(abs(y - end[1]) <= 1 and x < end[0] - 100 for x, y in way)}


def window_changes(probe, at):
    """The probe's sizes since it was shown (maximised at any size), its moves
    after its last restore to the start size, and its last event."""
    events = probe.events("ready", "size", "moved", "close")
    events = events[[event[0] for event in events].index("ready") + 1:]
    restored = max(i for i, event in enumerate(events) if event == ("size", "restored", at.width, at.height))
    return ([("maximized",) if event[1] == "maximized" else event[1:] for event in events if event[0] == "size"],
            [event[1:] for event in events[restored:] if event[0] == "moved"], events[-1])


def client_size(at, width, height):
    """The probe's client size at this outer size, from its frame."""
    return width - PROBE_RECT[2] + at.width, height - PROBE_RECT[3] + at.height


def client_origin(at, x, y):
    """The probe's client origin at this outer position, from its frame."""
    return x - PROBE_RECT[0] + at.x, y - PROBE_RECT[1] + at.y


def random_presses(probe, at):
    """How many presses the random positions made, those outside their span,
    and whether X and Y were drawn apart: with one random fraction for both,
    every press would lie on the span's diagonal."""
    presses = [(x - at.x - 100, y - at.y - 60) for kind, x, y in probe.clicks() if kind in ("ldown", "ldblclk")]
    return (len(presses), [(x, y) for x, y in presses if not (0 <= x < 80 and 0 <= y < 40)],
            sum(abs(y - x / 2) > 2 for x, y in presses) >= 5)


class Scenario(NamedTuple):
    steps: Callable     # the probe's client origin and size -> the script's steps
    seen: Callable      # the probe's events, its origin and size -> what the probe saw
    expected: Callable  # the probe's origin and size -> what it must see
    settings: dict = {}


SCENARIOS = {
    "keystroke texts make exactly the named key events": Scenario(
        lambda at: [step(keys=text) for text, _, _ in TEXTS],
        lambda probe, at: (probe.keys(), probe.text()),
        lambda at: ([event for _, events, _ in TEXTS for event in events], "".join(chars for _, _, chars in TEXTS))),
    "characters without a key arrive as themselves": Scenario(
        lambda at: [step(keys=ANY_CHARACTERS)], lambda probe, at: probe.text(), lambda at: ANY_CHARACTERS),
    "each click action arrives at its step's position": Scenario(
        lambda at: [step(*spot(at, i), button) for i, (button, _) in enumerate(CLICK_ACTIONS * CLICK_ROUNDS)],
        lambda probe, at: probe.clicks(),
        lambda at: [(kind, *spot(at, i)) for i, (_, kinds) in enumerate(CLICK_ACTIONS * CLICK_ROUNDS)
                    for kind in kinds]),
    "-1 keeps that coordinate of the pointer": Scenario(
        lambda at: [step(at.x + 300, at.y + 50), step(-1, at.y + 150, "Left Click"),
                    step(at.x + 500, -1, "Right Click")],
        lambda probe, at: probe.clicks(),
        lambda at: [(kind, at.x + x, at.y + 150) for kind, x in (("ldown", 300), ("lup", 300), ("rdown", 500),
                                                                  ("rup", 500))]),
    "random positions spread over their whole span and never leave it": Scenario(
        lambda at: [step(f"RND({at.x + 100}, 80, 0)", f"rnd({at.y + 60},40,0)", "Left Click")] * 20,
        random_presses, lambda at: (20, [], True)),
    "the smooth move glides to the target and ends exactly on it": Scenario(
        # The glide starts from the pointer's reported place, which Wine
        # reports a moment late after the step before put it there.
        lambda at: [step(secs=0.1), step(*target(at), secs=1)], glide,
        lambda at: {"end": target(at), "outside the span": [],
                    "glided through at least three points": True, "along the target's row at the end": True},
        {"SmoothPointer": 1}),
    "window commands size, move and close the titled window, then the active one": Scenario(
        lambda at: [step(keys=f"%winmin {PROBE}"), step(keys=f"%winrest {PROBE}"), step(keys=f"%winmax {PROBE}"),
                    step(keys=f"%winrest {PROBE}"),
                    step(keys="%winmin"),  # no blank, so no command
                    step(300, 200, keys=f"%winmov {PROBE} ; 300,200"),  # no window is titled "Probe Playback "
                    step(250, 180, keys=f"%winmov {PROBE}; 300,200"),
                    step(-1, -1, keys=f"%winmov {PROBE};420, 260"),
                    step(-1, 90, keys=f"%winmov {PROBE}; -1,"),
                    step(keys=f"%winfoc {PROBE}", secs=0.2), step(keys="%winclose %ACTIVE")],
        window_changes,
        lambda at: ([("minimized", 0, 0), ("restored", at.width, at.height), ("maximized",),
                     ("restored", at.width, at.height), ("restored", *client_size(at, 300, 200)),
                     ("restored", *client_size(at, 420, 260))],
                    # Moved by the step's X and Y, -1 keeping the left edge.
                    [client_origin(at, 250, 180), client_origin(at, 250, 90)], ("close",))),
}


class PlaybackTest(WineTestCase):
    def test_each_scenario_plays_as_the_probe_must_see_it(self):
        for name, scenario in SCENARIOS.items():
            with self.subTest(name):
                try:
                    self.play(scenario)
                finally:
                    self.stop_started()

    def play(self, scenario):
        probe, at = self.open_probe(PROBE)
        steps = scenario.steps(at)
        self.open_program(script_lines(steps), **scenario.settings)
        # From a rest on the probe, where the probe sees it arrive.
        self.move_pointer(rest(at)[0] + 1, rest(at)[1])
        self.move_pointer(*rest(at))
        wait_until(lambda: probe.events("move")[-1:] == [("move", *rest(at))], 20, "the pointer at rest")
        self.give_focus(PROBE)

        self.press("Start")
        self.wait_for_steps(len(steps))
        self.assert_becomes(scenario.expected(at), lambda: scenario.seen(probe, at))
        self.assert_no_errors_logged()

    def test_a_run_lets_go_of_the_keys_and_buttons_it_left_down(self):
        # Button, keystroke text, wait and the step after it; an unchecked
        # "Left Up" lets the pairing check pass but never plays.
        endings = {"finished": ("Left", "%c%s", 0, step(button="Left Up", checked=False), [CTRL, SHIFT]),
                   "stopped by the stop key": ("Right", "%c", 600, step(button="Right Up"), [CTRL])}
        for ending, (button, keys, secs, after, held) in endings.items():
            with self.subTest(ending):
                try:
                    self.leave_pressed(button, keys, secs, after, held)
                finally:
                    self.stop_started()

    def leave_pressed(self, button, keys, secs, after, held):
        probe, at = self.open_probe(PROBE)
        x, y = rest(at)
        kind = button[0].lower()
        pressed = [(f"{kind}down", x, y)] + [("down", key) for key in held]
        self.open_program(script_lines([step(x, y, f"{button} Down", keys, secs=secs), after]))
        self.give_focus(PROBE)
        self.press("Start")
        if secs:
            wait_until(lambda: probe.events("down", f"{kind}down"), 20, "the run holding its keys and button",
                       accept=lambda seen: seen == pressed)
            self.hold_key("Escape", lambda: not self.running(), "the stop key to end the run")
        else:
            self.wait_for_steps(1)
        # Let go of in reverse order; the user's own stop key left out.
        self.assert_becomes(pressed + [("up", key) for key in reversed(held)] + [(f"{kind}up", x, y)],
                            lambda: [event for event in probe.events("down", "up", f"{kind}down", f"{kind}up")
                                     if event[1:] != (ESCAPE,)])
        self.assert_becomes([], lambda: self.driver("keysdown"))
        self.assert_no_errors_logged()

    def test_the_stop_key_panel_changes_the_key_that_then_ends_a_step_repeated_without_any_wait(self):
        probe, at = self.open_probe(PROBE)
        self.open_program(script_lines([step(*rest(at), "Left Click", repeat=1000000)]))
        self.click_status_panel(3)
        wait_until(lambda: self.control("KlickwerkStopKeyFrame")["visible"], 20, "the stop-key panel")

        self.xdotool("key", "Down", "Down", "Down", "Down", "Down", "Return")  # from ESCAPE down to F5
        wait_until(lambda: (self.panels()[0::3], self.control("KlickwerkStopKeyFrame")["visible"]), 20,
                   "the change reported and the panel closed",
                   accept=lambda seen: seen == (["StopKey successfully changed to F5", "F5"], False))
        self.assertEqual("116", self.setting("StopKey"))
        self.start_run()
        wait_until(lambda: len(probe.clicks()) >= 20, 30, "the repetitions under way")
        self.hold_key("F5", lambda: not self.running(), "F5 to end the run")
        self.assertLess(len(probe.clicks()), 100000)
        self.assert_no_errors_logged()

    def test_f12_copies_the_pointer_position_into_the_selected_rows_and_f10_pauses_their_run(self):
        wait = 3
        self.open_probe(PROBE)
        self.open_program(script_lines([step(row, row, secs=wait if row == 1 else 0, checked=False)
                                        for row in (1, 2, 3)]))
        self.driver("select", self.main["target"], "1", "3")
        self.focus(APP_TITLE)
        self.move_pointer(700, 900)
        wait_until(lambda: self.panels()[1:3], 20, "the pointer position in the status bar",
                   accept=lambda shown: shown == ["700", "900"])

        def copied():
            return [(row["cells"][1], row["cells"][2], row["checked"]) for row in self.grid()] == [
                ("700", "900", True), ("2", "2", False), ("700", "900", True)]
        self.hold_key("F12", copied, "the pointer position in rows 1 and 3")

        # F10 reaches Wine through the X focus; the probe takes the key itself.
        self.focus(PROBE)
        self.press("Start")
        wait_until(lambda: self.panels()[4] == "1" and self.running(), 20, "the first step's wait")
        box = self.hold_key("F10", lambda: self.driver("msgbox", allow_missing=True), "the pause box")
        self.assertEqual(("PAUSED", "Paused. Press OK to resume.", ["OK"]), (box["title"], box["text"], box["buttons"]))
        # Longer than the whole of the step's wait: the run stays where it was.
        self.assert_holds(lambda: (self.panels()[4], self.running()) == ("1", True), wait + 0.5, "the run paused")
        self.answer("OK")
        self.wait_for_steps(2)
