"""Figures of the program under Wine, measured on its real code beside a
reference measured in the same run, and printed; benchmarks, not tests:

    python3 bench/bench_wine.py [--build <Windows build dir>] [figure ...]

typing     characters per second of a 1,000-character text arriving at a probe
           (reference: xdotool typing the same text)
waits      mean and worst error of 100 x Wait(0.05) on the program's clock
           (reference: Sleep(50) in a bare Wine program)
stop       from the stop key's press to the end of a run in a 10-minute wait
cpu        Klickwerk's share of one core over 10 s while a run waits
           (reference: a bare idle Wine window)
grid       a 100,000-step script read into the shown grid, and saved
startup    from starting Klickwerk.exe to its main window shown
           (reference: a bare Wine window)
size       Klickwerk.exe and InHook.dll (reference: the bare Wine program)
recording  a 200-event session of X input over the probe, recorded: the
           events found again in the recorded steps
recdelay   the delay recording adds between an X event and the probe
           receiving it

Each figure prints its line as it is measured; at the end a dated table of
every figure measured follows, in Markdown (docs/performance.md holds one).
Uses the end-to-end harness (Xvfb, Wine prefix, probe, kwdriver); the same
environment settings apply (KW_E2E_DISPLAY, KW_E2E_TIMEOUT_SCALE).
"""
import argparse
import ctypes
import difflib
import os
import random
import re
import statistics
import string
import sys
import time
from pathlib import Path
from typing import NamedTuple

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tests" / "e2e"))
from run_e2e import run_case_methods  # noqa: E402 (the harness is found through the path above)

FIGURES = ("typing", "waits", "stop", "cpu", "grid", "startup", "size", "recording", "recdelay")
PROBE = "Probe Bench"
REFERENCE_WINDOW = "Reference Window"
# The recorder closes a click only once the double-click time (500 ms) has
# passed; a press at another place within it belongs to that click. The
# session leaves that time and a margin after each click, as a user who
# clicks somewhere else does.
AFTER_CLICK_SECONDS = 1.0
# One event every 20 ms when timing their delay: the pace of a pointer in
# motion.
EVENT_INTERVAL_SECONDS = 0.02
# Recording off and on in turn, (recording, events): off and on alike in
# the first and the second half, so that a drift in the machine's load
# falls on both sides alike.
RECDELAY_BLOCKS = ((False, 100), (True, 200), (False, 200), (True, 200), (False, 100))


class Row(NamedTuple):
    title: str
    klickwerk: str
    reference: str
    target: str


ROWS = []


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--build", help="the Windows (cross) build directory")
    parser.add_argument("figures", nargs="*", help=f"figures to measure: {', '.join(FIGURES)} (all by default)")
    arguments = parser.parse_args()
    unknown = set(arguments.figures) - set(FIGURES)
    if unknown:
        parser.error(f"unknown figures: {', '.join(sorted(unknown))}")
    return arguments


def cpu_seconds(pid):
    """User plus system time the process has used so far."""
    fields = Path(f"/proc/{pid}/stat").read_text().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def wineserver_pid(prefix):
    """The wine server of this prefix (it serves every call of the program)."""
    for entry in Path("/proc").iterdir():
        try:
            if entry.name.isdigit() and (entry / "comm").read_text().strip().startswith("wineserver"):
                environment = (entry / "environ").read_bytes().split(b"\0")
                if f"WINEPREFIX={prefix}".encode() in environment:
                    return int(entry.name)
        except OSError:
            continue
    return None


def now_us():
    """The host's CLOCK_MONOTONIC_RAW in microseconds: under Wine the probe's
    performance counter is this clock (checked: the two agree to within a
    0.1-ms round trip), so send and receive times need no conversion."""
    return time.clock_gettime_ns(time.CLOCK_MONOTONIC_RAW) // 1000


def spread(values, unit, digits=0):
    """The median and the range of a few rounds, as "median M unit (min-max)"."""
    return (f"median {statistics.median(values):.{digits}f} {unit} "
            f"({min(values):.{digits}f}-{max(values):.{digits}f})")


class XdoInput:
    """X input sent through xdotool's own library inside this process, so
    that the moment each event leaves is known to the microsecond."""

    CURRENT_WINDOW = 0  # XTest input, as xdotool sends without --window

    def __init__(self, display):
        self.lib = ctypes.CDLL("libxdo.so.3")
        self.lib.xdo_new.restype = ctypes.c_void_p
        self.lib.xdo_new.argtypes = [ctypes.c_char_p]
        for name in ("xdo_send_keysequence_window_down", "xdo_send_keysequence_window_up"):
            getattr(self.lib, name).argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_char_p, ctypes.c_uint]
        self.lib.xdo_move_mouse.argtypes = [ctypes.c_void_p, ctypes.c_int, ctypes.c_int, ctypes.c_int]
        self.lib.xdo_free.argtypes = [ctypes.c_void_p]
        self.xdo = self.lib.xdo_new(display.encode())
        if not self.xdo:
            raise AssertionError(f"libxdo cannot open the display {display}")

    def key(self, name, down):
        send = self.lib.xdo_send_keysequence_window_down if down else self.lib.xdo_send_keysequence_window_up
        send(self.xdo, self.CURRENT_WINDOW, name.encode(), 0)

    def move(self, x, y):
        self.lib.xdo_move_mouse(self.xdo, x, y, 0)

    def close(self):
        self.lib.xdo_free(self.xdo)


class ProbeFeed:
    """The probe's events from now on, read as they arrive."""

    def __init__(self, probe):
        self.probe = probe
        self.file = open(probe.log, errors="replace")
        self.file.seek(0, os.SEEK_END)
        self.pending, self.events = "", []

    def take(self, expected):
        """The time the next such event arrived, dropping it and those before
        it; None while it has not come."""
        self.pending += self.file.read()
        complete, _, self.pending = self.pending.rpartition("\n")
        self.events += self.probe.parse(complete.splitlines())
        for index, (event, received) in enumerate(self.events):
            if event == expected:
                del self.events[:index + 1]
                return received
        return None

    def close(self):
        self.file.close()


# The recording session ------------------------------------------------------------

class Action(NamedTuple):
    commands: list   # xdotool commands, each a list of arguments
    pause: float     # seconds to leave afterwards
    events: list     # one token per event: what the recording must show of it
    steps: int       # the steps it records


def typed_word(rng, length):
    """Letters, about a third of them typed with Shift, never two in a row."""
    word = ""
    for _ in range(length):
        letter = rng.choice(string.ascii_lowercase)
        word += letter.upper() if rng.random() < 0.35 and not word[-1:].isupper() else letter
    return word


def recording_session(origin, seed=9):
    """200 events over the probe in a fixed random order: 40 clicks, 20
    double clicks, 20 drags and 10 words of 11 letters, each ended by F11,
    all at places of their own, so that no two steps merge into a Repeat."""
    rng = random.Random(seed)
    places = [(origin.x + x, origin.y + y) for x in range(40, origin.width - 40, 40)
              for y in range(30, origin.height - 20, 40)]
    rng.shuffle(places)

    def move(place):
        return ["mousemove", *map(str, place)]

    def click():
        place = places.pop()
        return Action([move(place) + ["click", "1"]], AFTER_CLICK_SECONDS, [("Left Click", *place)], 1)

    def double_click():
        place = places.pop()
        return Action([move(place) + ["click", "--repeat", "2", "--delay", "80", "1"]], AFTER_CLICK_SECONDS,
                      [("Left DblClick", *place)], 1)

    def drag():
        start, end = places.pop(), places.pop()
        commands = move(start) + ["mousedown", "1", "sleep", "0.05"] + move(end) + ["sleep", "0.05", "mouseup", "1"]
        return Action([commands], 0.1, [("drag", *start, *end)], 2)

    def word():
        letters = typed_word(rng, 11)
        return Action([["type", "--delay", "50", letters], ["key", "F11"]], 0.1,
                      [("key", letter) for letter in letters] + [("F11",)], 1)

    kinds = [click] * 40 + [double_click] * 20 + [drag] * 20 + [word] * 10
    rng.shuffle(kinds)
    return [make() for make in kinds]


def recorded_events(steps):
    """The recorded steps (X, Y, Button, Additional, Repeat) as event tokens
    of the session's kinds: a "Left Down" followed by a "Left Up" is one
    drag; a letter between Shift's press and release is a capital, and so is
    one right after them ("%sa$s", "%s$sa"), for a letter is recorded at its
    release and xdotool releases Shift first; a step of keys ends with its
    F11; a step with Repeat n counts n + 1 times."""
    tokens, index = [], 0
    while index < len(steps):
        x, y, button, additional, repeat = steps[index]
        step_tokens = [("key", (before + after).upper() or plain)
                       for before, after, plain in re.findall(r"%s(.)\$s|%s\$s(.)|(.)", additional)]
        if button == "No Click":
            step_tokens.append(("F11",))
        elif button == "Left Down" and index + 1 < len(steps) and steps[index + 1][2] == "Left Up":
            index += 1
            step_tokens.insert(0, ("drag", int(x), int(y), int(steps[index][0]), int(steps[index][1])))
        else:
            step_tokens.insert(0, (button, int(x), int(y)))
        tokens += step_tokens * (int(repeat) + 1)
        index += 1
    return tokens


def make_bench_case():
    # The harness reads KW_BUILD_DIR when it is first imported.
    from harness import SETTLED, VK_ESCAPE, WineTestCase, script_lines, step, win_path
    from wine_session import BUILD_DIR, wait_until

    class WineBench(WineTestCase):
        def report(self, figure, title, value, target, reference="—"):
            """Prints the figure's line and keeps it for the closing table."""
            beside = f"reference: {reference}; " if reference != "—" else ""
            print(f"{figure}: {value}   ({beside}target: {target})", flush=True)
            ROWS.append(Row(title, value, reference, target))

        def fixture_output(self, exe, *args, timeout=120):
            """Runs a benchmark program to its end: its exit code and output lines."""
            process = self.start_windows_program(exe, *args)
            exit_code = self.wait_for_exit(process, timeout)
            output = self.out / f"{Path(exe).stem}-{len(self.started) - 1}.out"
            return exit_code, output.read_text().strip().splitlines()

        def cpu_use(self, pid, seconds=10):
            """The process's and the wine server's share of one core over the
            seconds, as text."""
            pids = {"process": pid, "server": wineserver_pid(self.prefix.path)}
            before = {name: cpu_seconds(pid) for name, pid in pids.items() if pid}
            started = time.monotonic()
            time.sleep(seconds)
            elapsed = time.monotonic() - started
            shares = {name: (cpu_seconds(pids[name]) - used) / elapsed * 100 for name, used in before.items()}
            server = f" (the wine server meanwhile: {shares['server']:.2f} %)" if "server" in shares else ""
            return f"{shares['process']:.2f} % of one core{server}"

        def start_reference_window(self):
            process = self.start_windows_program(BUILD_DIR / "reference.exe", "window")
            self.driver("window", REFERENCE_WINDOW, wait=20)
            return process

        # Playback -----------------------------------------------------------------

        def bench_typing(self):
            probe, _ = self.open_probe(PROBE)
            # "#" only at the end; no "(" or ")", which Wine finds no key for here.
            alphabet = string.ascii_letters + string.digits + " .,;:-_!?[]{}'/"
            text = "".join(alphabet[(i * 7) % len(alphabet)] for i in range(999)) + "#"
            self.open_program(script_lines([step(keys=text)]))
            self.give_focus(PROBE)
            rates = []
            for run in range(1, 4):
                self.press("Start")
                rates.append(self.typing_rate(probe, run))
                self.wait_for_steps(run, timeout=60)
            self.assertEqual(text * 3, probe.text(), "every character arrived, in order")
            self.xdotool("type", "--delay", "0", text, timeout=120)
            reference = self.typing_rate(probe, 4)
            arrived = "all arrived" if probe.text() == text * 4 else f"{len(probe.text()) - 3 * len(text)} arrived"
            self.report("typing", "Typing rate, 1,000 characters into the probe",
                        f"{min(rates):.0f} characters per second at the least "
                        f"(runs: {', '.join(f'{rate:.0f}' for rate in rates)}); none lost or reordered",
                        "at least 1,000 per second", reference=f"xdotool type --delay 0: {reference:.0f} per second, "
                                                               f"{arrived}")

        def typing_rate(self, probe, run):
            """Characters per second of the run-th text ending in "#" at the probe."""
            wait_until(lambda: probe.text().count("#") == run, 120, "the whole text at the probe")
            times, texts = [], 0
            for (kind, *code), received in probe.timed():
                if kind == "char" and texts == run - 1:
                    times.append(received)
                texts += kind == "char" and code == [ord("#")]
            return (len(times) - 1) * 1e6 / max(1, times[-1] - times[0])

        def bench_waits(self):
            _, program = self.fixture_output(BUILD_DIR / "wait_bench.exe", "100", "0.05")
            _, reference = self.fixture_output(BUILD_DIR / "reference.exe", "sleep", "100", "0.05")
            self.report("waits", "Short-wait error, 100 x 50 ms", program[-1], "mean under 2 ms, worst under 5 ms",
                        reference=f"{reference[-1]} in a bare program")

        def bench_stop(self):
            self.open_program(script_lines([step(secs=600)]))
            latencies = []
            for _ in range(10):
                self.start_run()
                latencies.append(self.driver("presskey", self.main["target"], str(VK_ESCAPE), "Start")["ms"])
            self.report("stop", "Stop latency, stop key in a 10-minute wait",
                        f"mean {statistics.mean(latencies):.1f} ms, worst {max(latencies):.1f} ms "
                        f"over {len(latencies)} runs", "under 60 ms")

        def bench_cpu(self):
            self.open_program(script_lines([step(secs=600)]))
            self.start_run()
            klickwerk = self.cpu_use(self.klickwerk.pid)
            self.assertTrue(self.running(), "the run was waiting the whole time")
            self.hold_key("Escape", lambda: not self.running(), "the stop key to end the run")
            self.close_klickwerk()
            bare = self.cpu_use(self.start_reference_window().pid)
            self.report("cpu", "CPU while a run waits, over 10 s", klickwerk, "under 1 %",
                        reference=f"{bare}, a bare idle window")

        # The program -------------------------------------------------------------

        def bench_grid(self):
            exit_code, lines = self.fixture_output(BUILD_DIR / "grid_bench.exe", timeout=300)
            for line in lines:
                print(f"grid: {line}", flush=True)
                if figure := re.fullmatch(r"(.*): (.*) \(target: (.*)\)", line):
                    ROWS.append(Row(f"Script of 100,000 steps: {figure[1]}", figure[2], "—", figure[3]))
            self.assertEqual(0, exit_code, "the list showed every step and the saved file is the script read")

        def bench_startup(self):
            self.make_program_folder(SETTLED)
            windows = {"KlickwerkMain": [self.folder / "Klickwerk.exe"],
                       "KlickwerkReference": [BUILD_DIR / "reference.exe", "window"]}
            times = {name: [] for name in windows}
            for _ in range(5):  # alternating, so that both meet the same load
                for name, (exe, *args) in windows.items():
                    times[name].append(float(self.driver("showtime", name, win_path(exe), *args)["ms"]))
            self.report("startup", "Start to main window shown, 5 starts", spread(times["KlickwerkMain"], "ms"),
                        "none set", reference=f"{spread(times['KlickwerkReference'], 'ms')}, a bare window")

        def bench_size(self):
            sizes = {name: (BUILD_DIR / name).stat().st_size / 1024 for name in ("Klickwerk.exe", "InHook.dll")}
            self.report("size", "Program size (exe + dll)",
                        f"{sum(sizes.values()):.0f} KB ({' + '.join(f'{n} {s:.0f} KB' for n, s in sizes.items())})",
                        "none set", reference=f"{(BUILD_DIR / 'reference.exe').stat().st_size / 1024:.0f} KB, "
                                              "the bare window program, linked alike")

        # Recording ---------------------------------------------------------------

        def open_for_recording(self):
            """The probe under the pointer and Klickwerk beside it, idle."""
            probe, origin = self.open_probe(PROBE)
            self.open_program()
            self.give_focus(PROBE)
            self.move_pointer(origin.x + 10, origin.y + 10)
            return probe, origin

        def record(self, send):
            """Records a new script while send() runs, with the X focus on the probe."""
            self.start_recording(answer_first="No" if self.grid() else None)
            self.give_focus(PROBE)
            result = send()
            self.stop_recording()
            self.give_focus(PROBE)
            return result

        def bench_recording(self):
            _, origin = self.open_for_recording()
            session = recording_session(origin)
            expected = [event for action in session for event in action.events]

            def send():
                for action in session:
                    for command in action.commands:
                        self.xdotool(*command)
                    time.sleep(action.pause)
                steps = sum(action.steps for action in session)
                try:  # and the blank step the recorder keeps current
                    wait_until(lambda: len(self.grid()) > steps, 30, f"{steps} steps recorded")
                except AssertionError:
                    pass  # events were lost: counted below
            self.record(send)
            recorded = recorded_events(self.recorded())
            matcher = difflib.SequenceMatcher(None, expected, recorded, autojunk=False)
            found = sum(block.size for block in matcher.get_matching_blocks())
            self.report("recording", f"Recording completeness, {len(expected)} events of X input",
                        f"{found} of {len(expected)} events recorded ({found / len(expected):.1%}), "
                        f"{len(recorded) - found} recorded that were not sent", "100 %")

        # Cost to the user: each event's delay from the moment libxdo sends it
        # to the moment the probe's window procedure receives it, both read on
        # the same clock (see now_us), in blocks of key presses and pointer
        # moves taken in turn, with recording off and on (RECDELAY_BLOCKS).
        # Events go at EVENT_INTERVAL_SECONDS, each awaited (polled every
        # 2 ms) before the next, so none waits behind another.
        # The first two events of a block are a warm-up and not counted: the
        # system loads InHook.dll into the probe at the first hooked event.
        def input_delays(self, sender, feed, origin, count):
            delays = []
            for index in range(count + 2):
                if index % 2:
                    place = (origin.x + 20 + (index * 37) % (origin.width - 40), origin.y + 20 + index % 150)
                    sent, expected = now_us(), ("move", *place)
                    sender.move(*place)
                else:
                    sent, expected = now_us(), ("down", ord("A"))
                    sender.key("a", down=True)
                received = wait_until(lambda: feed.take(expected), 10, f"{expected} at the probe", poll=0.002)
                if not index % 2:
                    sender.key("a", down=False)
                if index >= 2:
                    delays.append((received - sent) / 1000)
                time.sleep(max(0.0, (sent - now_us()) / 1e6 + EVENT_INTERVAL_SECONDS))
            return delays

        def bench_recdelay(self):
            probe, origin = self.open_for_recording()
            sender, feed = XdoInput(self.display), ProbeFeed(probe)
            self.addCleanup(sender.close)
            self.addCleanup(feed.close)
            delays = {False: [], True: []}
            for recording, count in RECDELAY_BLOCKS:
                def measure():
                    return self.input_delays(sender, feed, origin, count)
                delays[recording] += self.record(measure) if recording else measure()
            off, on = delays[False], delays[True]
            self.assertGreater(min(off + on), 0, "no event arrived before it was sent: the clocks agree")
            added = statistics.mean(on) - statistics.mean(off)
            # The machine's other work makes single delays scatter: the margin
            # says how far the mean difference may be off by chance.
            margin = 1.96 * (statistics.variance(on) / len(on) + statistics.variance(off) / len(off)) ** 0.5
            self.report("recdelay", "Delay recording adds per event, X event to the probe",
                        f"{added:+.2f} ms ± {margin:.2f} ms (95 % confidence) on average: mean "
                        f"{statistics.mean(on):.2f} ms recording, {statistics.mean(off):.2f} ms not "
                        f"(medians {statistics.median(on):.2f} and {statistics.median(off):.2f} ms; "
                        f"{len(on)} and {len(off)} key presses and pointer moves)", "under 1 ms added")

    return WineBench


def print_table():
    """The figures of this run as a dated Markdown table."""
    print(f"\nPerformance of Klickwerk under Wine, measured {time.strftime('%Y-%m-%d')} "
          f"({os.cpu_count()} cores, load average {os.getloadavg()[0]:.1f})\n")
    print("| Figure | Klickwerk | Reference, same run | Target |\n|---|---|---|---|")
    for row in ROWS:
        print("| " + " | ".join(cell.replace("|", "\\|") for cell in row) + " |")


def main():
    arguments = parse_arguments()
    failed = run_case_methods(arguments.build, make_bench_case,
                              [f"bench_{figure}" for figure in arguments.figures or FIGURES])
    print_table()
    return failed


if __name__ == "__main__":
    sys.exit(main())
