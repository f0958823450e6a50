"""The real program under fault and load. Killed at random moments while it
saves a changed script, it leaves the working copy with the old or the new
content, never part of it, and starts cleanly afterwards. Playing a looping
script of clicks, typing and waits into the probe, it keeps its handles, GDI
and USER objects and memory flat. These short runs guard the properties;
tests/e2e/endurance_wine.py runs them long and prints the figures."""
import random
import re
import time
from collections import Counter
from pathlib import Path
from types import SimpleNamespace

from harness import APP_TITLE, SETTLED, WineTestCase, file_bytes, script_bytes, script_lines, step
from wine_session import wait_until

# Enough steps that writing the working copy takes tens of milliseconds.
BIG_SCRIPT_STEPS = 40_000
TEMPORARY_FILES = "kwt*.tmp"
COUNTERS = ("handles", "gdi", "user", "privateBytes", "anonymousBytes", "workingSet")
# Growth over a whole soak that still counts as flat: a few objects that a
# first use creates once; memory pages the heap keeps after a first use.
FLAT = {"handles": 3, "gdi": 3, "user": 0, "privateBytes": 2 << 20, "anonymousBytes": 2 << 20, "workingSet": 4 << 20}


def big_script(count):
    return script_lines([step(index % 1280, index % 1024, "Left Click" if index % 2 else "No Click",
                              f"keys of step {index}", secs=index % 7) for index in range(count)])


def with_first_x(content, value):
    """The working copy after the first step's X became `value`, as the
    program writes it."""
    first, rest = content.split(b"\r\n", 1)
    flag, cells = first.split(b"|||", 1)
    cells = cells.split(b"||")
    cells[1] = value.encode()  # after "#"
    return flag + b"|||" + b"||".join(cells) + b"\r\n" + rest


def step_cells(line):
    """A file line as the grid shows it: the check mark and the cells from "#" on."""
    flag, cells = line.split("|||", 1)
    return flag == "True", cells.split("||")


class EnduranceTest(WineTestCase):
    # Kill during saves ---------------------------------------------------------------

    def kill_during_saves(self, kills, steps=BIG_SCRIPT_STEPS, seed=13, progress=None):
        """Starts the program on a big working copy, changes the first step's
        X through the grid and kills the program at a random moment of the
        save that follows, `kills` times. The first round measures the time
        from the key that ends the edit until the new working copy is in
        place and is not killed early; the kills land at random within that
        span. Returns the outcomes ("old", "new", "partial",
        "lost"), how many kills left a temporary file behind (landed inside a
        write) and the span; hands them to progress() after every 100 kills."""
        working_copy = self.make_program_folder(SETTLED, {"Data.dat": script_bytes(big_script(steps))}) / "Data.dat"
        choose = random.Random(seed)
        result = SimpleNamespace(outcomes=Counter(), mid_save=0, save_seconds=None)
        for round_number in range(kills + 1):
            old = file_bytes(working_copy)
            first_x = self.start_on_working_copy(old)
            new = with_first_x(old, str(round_number % 1200 + 1))
            # Before the edit: a short save can be over before the key's sender returns.
            replaced = working_copy.stat().st_ino
            self.edit_first_x(first_x, round_number % 1200 + 1)
            sent = time.monotonic()
            if result.save_seconds is None:
                wait_until(lambda: working_copy.stat().st_ino != replaced, 60, "the first save", poll=0.001)
                result.save_seconds = time.monotonic() - sent
                self.assertEqual(new, file_bytes(working_copy), "the first save")
            else:
                time.sleep(choose.uniform(0, result.save_seconds))
            self.klickwerk.kill()
            self.klickwerk.wait()
            if round_number == 0:
                continue
            result.mid_save += bool(list(working_copy.parent.glob(TEMPORARY_FILES)))
            content = file_bytes(working_copy) if working_copy.exists() else None
            outcome = {old: "old", new: "new", None: "lost"}.get(content, "partial")
            result.outcomes[outcome] += 1
            self.assertIn(outcome, ("old", "new"), f"the working copy after kill {round_number}")
            if progress and round_number % 100 == 0 and round_number < kills:
                progress(result)
        self.start_on_working_copy(file_bytes(working_copy))
        return result

    def start_on_working_copy(self, content):
        """Starts the program and checks that it started cleanly: the main
        window shows as many steps as the file holds, its first and last
        steps as in the file, nothing in the error log and no temporary file
        left beside the working copy. Returns the first step's X cell."""
        lines = content.decode("latin-1").splitlines()
        self.klickwerk = self.start_klickwerk()

        def main_window_with_steps():
            windows = [window for window in self.driver("windows") if window["text"] == APP_TITLE and window["visible"]]
            for window in windows:
                status = self.driver("status", f"hwnd={window['hwnd']}", allow_missing=True)
                if status and status["panels"][5] == str(len(lines)):
                    return dict(window, target=f"hwnd={window['hwnd']}")
            return None
        self.main = wait_until(main_window_with_steps, 60, f"the main window with {len(lines)} steps")
        shown = [self.driver("grid", self.main["target"], str(number), "1")[0] for number in (1, len(lines))]
        for row, line in zip(shown, (lines[0], lines[-1])):
            self.assertEqual(step_cells(line), (row["checked"], row["cells"]), "the first and the last step")
        self.assert_no_errors_logged()
        self.assertEqual([], sorted(path.name for path in self.folder.glob(TEMPORARY_FILES)), "temporary files")
        return shown[0]["rects"][1]

    def edit_first_x(self, cell, value):
        """Types the value into the first step's X cell and presses Return,
        which saves the working copy; the editor is read back first."""
        def editor_text():
            return next((control["text"] for control in self.controls()
                         if control["class"] == "Edit" and control["visible"]), None)
        self.focus(APP_TITLE)
        self.click_at(cell)
        wait_until(lambda: editor_text() is not None, 20, "the cell editor")
        self.type_until(APP_TITLE, lambda: self.xdotool("key", "ctrl+a", "BackSpace", *str(value)),
                        lambda: editor_text() == str(value), f"{value} in the cell editor")
        self.xdotool("key", "Return")

    def test_kills_during_saves_leave_the_old_or_the_new_working_copy(self):
        # About one kill in five lands inside the write: 30 make at least one all but certain.
        result = self.kill_during_saves(30)
        self.assertEqual(30, sum(result.outcomes.values()))
        self.assertGreater(result.mid_save, 0, "some kills landed inside a save")

    # Soak ----------------------------------------------------------------------------

    def soak(self, passes, samples=10):
        """Plays a looping script of two clicks into the probe, typing and
        waits of 0 and 1 ms for `passes` passes, reading the program's
        counters after the first pass and then `samples` times more. Returns
        the samples (passes done, counters) and the probe's events."""
        probe, at = self.open_probe("Probe Soak")
        script = [step(at.x + 40, at.y + 40, "Left Click", "ab"),
                  step(at.x + 200, at.y + 80, "Left Click", secs="0.001")]
        self.open_program(script_lines(script), switches=("/nostart",))  # without /norep: the run repeats
        self.start_run()
        taken = []

        def passes_done():  # each pass types one "a"; the log is read without parsing it all
            return probe.log.read_bytes().count(b"char 97 ")
        for goal in [1] + [passes * part // samples for part in range(1, samples + 1)]:
            done = wait_until(passes_done, 600, f"{goal} passes", accept=lambda done, goal=goal: done >= goal)
            taken.append((done, self.counters()))
        self.press("Stop")
        wait_until(lambda: not self.running(), 30, "the run to stop")
        return taken, probe

    def counters(self):
        """What the program holds, as kwdriver reads it; and as Wine keeps no
        private bytes of another process, the anonymous memory that Linux
        counts for it."""
        sample = self.driver("resources", "Klickwerk.exe")
        status = Path(f"/proc/{self.klickwerk.pid}/status").read_text()
        sample["anonymousBytes"] = int(re.search(r"RssAnon:\s+(\d+) kB", status)[1]) * 1024
        return sample

    def assert_flat(self, taken):
        first, last = taken[0][1], taken[-1][1]
        for counter in COUNTERS:
            self.assertLessEqual(last[counter] - first[counter], FLAT[counter],
                                 f"{counter} grew from {first[counter]} to {last[counter]}")

    def test_a_looping_run_keeps_handles_objects_and_memory_flat(self):
        taken, probe = self.soak(200)
        self.assert_flat(taken)
        done = taken[-1][0]
        self.assertGreaterEqual(len(probe.events("ldown")), 2 * done, "both clicks of every pass reached the probe")
        self.assertGreaterEqual(probe.text().count("ab"), done, "every pass typed into the probe")
