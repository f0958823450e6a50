"""The program under fault and load, long runs of the end-to-end suite's
test_endurance; each prints its figures and fails when the property breaks:

    python3 tests/e2e/endurance_wine.py [--build <Windows build dir>] [--kills N] [--passes N] [kills|soak ...]

kills  the program killed at random moments while it saves a changed
       40,000-step script (1,000 times): how many kills landed while a
       temporary file existed, and how often the working copy was old, new,
       partial or lost; every restart must be clean
soak   a looping script of clicks, typing and waits played into the probe
       (10,000 passes): handles, GDI and USER objects, private bytes and
       working set, first, last and largest

Uses the end-to-end harness; the same environment settings apply
(KW_E2E_DISPLAY, KW_E2E_TIMEOUT_SCALE).
"""
import argparse
import sys
import time

from run_e2e import run_case_methods

RUNS = ("kills", "soak")


def run_name(name):
    if name not in RUNS:
        raise argparse.ArgumentTypeError(f"no run {name!r}: the runs are {', '.join(RUNS)}")
    return name


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--build", help="the Windows (cross) build directory")
    parser.add_argument("--kills", type=int, default=1000, help="kills during saves (default 1,000)")
    parser.add_argument("--passes", type=int, default=10000, help="passes of the soak (default 10,000)")
    parser.add_argument("runs", nargs="*", type=run_name, help=f"{', '.join(RUNS)} (both by default)")
    return parser.parse_args()


def megabytes(count):
    return f"{count / (1 << 20):.1f} MB"


def make_endurance_case(arguments):
    # The harness reads KW_BUILD_DIR when it is first imported.
    from test_endurance import COUNTERS, EnduranceTest

    def say(line):
        print(line, flush=True)

    class EnduranceRun(EnduranceTest):
        def run_kills(self):
            started = time.monotonic()

            def counts(result):
                outcomes = ", ".join(f"{kind} {result.outcomes[kind]}" for kind in ("old", "new", "partial", "lost"))
                say(f"kills: {sum(result.outcomes.values())} kills in {time.monotonic() - started:.0f} s; "
                    f"{result.mid_save} landed while a temporary file existed (inside a save); "
                    f"working copy afterwards: {outcomes}")
            result = self.kill_during_saves(arguments.kills, progress=counts)
            counts(result)
            say(f"kills: a save of the working copy took {result.save_seconds * 1000:.0f} ms; "
                "target: partial 0, lost 0")
            say("kills: every restart showed the main window with the file's steps, an empty Error.log "
                "and no temporary file left")

        def run_soak(self):
            started = time.monotonic()
            taken, _ = self.soak(arguments.passes)
            say(f"soak: {taken[-1][0]} passes in {time.monotonic() - started:.0f} s "
                f"(GDI and USER objects counted by {taken[0][1]['objectSource']})")
            for counter in COUNTERS:
                values = [sample[counter] for _, sample in taken]
                shown = megabytes if counter.endswith(("Bytes", "Set")) else str
                say(f"soak: {counter}: first {shown(values[0])} (pass {taken[0][0]}), "
                    f"last {shown(values[-1])} (pass {taken[-1][0]}), largest {shown(max(values))}")
            say(f"soak: target: flat (samples: {', '.join(str(done) for done, _ in taken)} passes)")
            self.assert_flat(taken)

    return EnduranceRun


def main():
    arguments = parse_arguments()
    return run_case_methods(arguments.build, lambda: make_endurance_case(arguments),
                            [f"run_{name}" for name in arguments.runs or RUNS])


if __name__ == "__main__":
    sys.exit(main())
