"""Figures of the program under Wine, measured on its real code and printed;
benchmarks, not tests:

    python3 tests/e2e/bench_wine.py [--build <Windows build dir>] [typing|waits|stop|cpu|grid ...]

typing  characters per second of a 1,000-character text arriving at a probe
waits   mean and worst error of 100 x Wait(0.05) on the program's clock
stop    from the stop key's press to the end of a run in a 10-minute wait
cpu     Klickwerk's share of one core over 10 s while a run waits
grid    a 100,000-step script read into the shown grid, and saved

Uses the end-to-end harness (Xvfb, Wine prefix, probe, kwdriver); the same
environment settings apply (KW_E2E_DISPLAY, KW_E2E_TIMEOUT_SCALE).
"""
import argparse
import os
import statistics
import string
import sys
import time
from pathlib import Path

from run_e2e import run_case_methods

ESCAPE = 27
FIGURES = ("typing", "waits", "stop", "cpu", "grid")


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


def make_bench_case():
    # The harness reads KW_BUILD_DIR when it is first imported.
    from harness import WineTestCase, script_lines, step
    from wine_session import BUILD_DIR, wait_until

    class PlaybackBench(WineTestCase):
        def report(self, figure, value, target):
            print(f"{figure}: {value}   (target: {target})", flush=True)

        def bench_typing(self):
            probe, _ = self.open_probe("Probe Typing")
            # "#" only at the end; no "(" or ")", which Wine finds no key for here.
            alphabet = string.ascii_letters + string.digits + " .,;:-_!?[]{}'/"
            text = "".join(alphabet[(i * 7) % len(alphabet)] for i in range(999)) + "#"
            self.open_program(script_lines([step(keys=text)]))
            self.give_focus("Probe Typing")
            rates = []
            for run in range(1, 4):
                self.press("Start")
                wait_until(lambda: probe.text().count("#") == run, 120, "the whole text at the probe")
                self.wait_for_steps(run, timeout=60)
                ticks = [tick for (kind, *_), tick in probe.timed() if kind == "char"][-len(text):]
                rates.append((len(text) - 1) * 1000 / max(1, ticks[-1] - ticks[0]))
            self.assertEqual(text * 3, probe.text(), "every character arrived, in order")
            self.report("typing", f"{min(rates):.0f} characters per second at the least "
                        f"(runs: {', '.join(f'{rate:.0f}' for rate in rates)}); none lost or reordered",
                        "at least 1,000 per second")

        def bench_waits(self):
            process = self.start_windows_program(BUILD_DIR / "wait_bench.exe", "100", "0.05")
            self.assertEqual(0, self.wait_for_exit(process, 120))
            output = (self.out / "wait_bench-0.out").read_text().strip().splitlines()[-1]
            self.report("waits", output, "mean under 2 ms, worst under 5 ms")

        def bench_grid(self):
            process = self.start_windows_program(BUILD_DIR / "grid_bench.exe")
            exit_code = self.wait_for_exit(process, 300)
            for line in (self.out / "grid_bench-0.out").read_text().strip().splitlines():
                print(f"grid: {line}", flush=True)
            self.assertEqual(0, exit_code, "the list showed every step and the saved file is the script read")

        def bench_stop(self):
            self.open_program(script_lines([step(secs=600)]))
            latencies = []
            for _ in range(10):
                self.start_run()
                latencies.append(self.driver("presskey", self.main["target"], str(ESCAPE), "Start")["ms"])
            self.report("stop", f"mean {statistics.mean(latencies):.1f} ms, worst {max(latencies):.1f} ms "
                        f"over {len(latencies)} runs", "under 60 ms")

        def bench_cpu(self):
            self.open_program(script_lines([step(secs=600)]))
            self.start_run()
            server = wineserver_pid(self.prefix.path)
            pids = {"Klickwerk": self.klickwerk.pid, "wineserver": server}
            before = {name: cpu_seconds(pid) for name, pid in pids.items() if pid}
            started = time.monotonic()
            time.sleep(10)
            shares = {name: (cpu_seconds(pids[name]) - used) / (time.monotonic() - started) * 100
                      for name, used in before.items()}
            self.assertTrue(self.running(), "the run was waiting the whole time")
            self.hold_key("Escape", lambda: not self.running(), "the stop key to end the run")
            server_share = f" (the wine server meanwhile: {shares['wineserver']:.2f} %)" if server else ""
            self.report("cpu", f"{shares['Klickwerk']:.2f} % of one core over 10 s while a run waits{server_share}",
                        "under 1 %")

    return PlaybackBench


def main():
    arguments = parse_arguments()
    return run_case_methods(arguments.build, make_bench_case,
                            [f"bench_{figure}" for figure in arguments.figures or FIGURES])


if __name__ == "__main__":
    sys.exit(main())
