"""Runs the end-to-end tests and prints "e2e: N passed, M failed".

    python3 tests/e2e/run_e2e.py [--build <Windows build dir>] [test_module ...]

A failed test runs once more; one that then passes is flaky, named on a line
"K flaky: ..." before the counts. Writes the counts and the flaky tests' names
to <build>/e2e-out/summary.json as well; exits 1 when a test failed or none
ran.
"""
import argparse
import json
import os
import sys
import time
import unittest
from pathlib import Path

HERE = Path(__file__).resolve().parent


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--build", help="the Windows (cross) build directory")
    parser.add_argument("modules", nargs="*", help="test modules to run, e.g. test_startup")
    return parser.parse_args()


def load_tests(modules):
    loader = unittest.TestLoader()
    if modules:
        return loader.loadTestsFromNames(modules)
    return loader.discover(str(HERE), pattern="test_*.py", top_level_dir=str(HERE))


def failed_tests(result):
    """Ids of the tests that failed; a test with several failing subtests counts once."""
    failing = result.failures + result.errors + [(test, None) for test in result.unexpectedSuccesses]
    return {getattr(test, "test_case", test).id() for test, _ in failing}


def use_build(build):
    """Points the harness at the Windows build; before it is first imported,
    as it reads KW_BUILD_DIR then."""
    if build:
        os.environ["KW_BUILD_DIR"] = str(Path(build).resolve())
    sys.path.insert(0, str(HERE))


def run_case_methods(build, make_case, names):
    """Runs the named methods of the test case class that make_case()
    returns, on one display and prefix, for the figures they print; 0 when
    all passed, else 1."""
    use_build(build)
    import wine_session

    case = make_case()
    suite = unittest.TestSuite(case(name) for name in names)
    try:
        result = unittest.TextTestRunner(verbosity=0, stream=sys.stdout).run(suite)
    finally:
        wine_session.close_session()
    return 0 if result.wasSuccessful() else 1


def main():
    arguments = parse_arguments()
    use_build(arguments.build)
    import wine_session

    started = time.monotonic()
    runner = unittest.TextTestRunner(verbosity=2, stream=sys.stdout)
    try:
        result = runner.run(load_tests(arguments.modules))
        failing = failed_tests(result)
        if failing:
            # A flaky test is a defect too, but one seen apart from a fault
            # that fails every time: each failed test gets one more run.
            print(f"\nRunning the {len(failing)} failed test(s) once more: {sorted(failing)}")
            failing = failed_tests(runner.run(unittest.TestLoader().loadTestsFromNames(sorted(failing))))
    finally:
        wine_session.close_session()
    flaky = sorted(failed_tests(result) - failing)
    failed = len(failing)
    passed = result.testsRun - failed - len(result.skipped)
    summary = {"passed": passed, "failed": failed, "flaky": flaky, "skipped": len(result.skipped),
               "seconds": round(time.monotonic() - started, 1)}
    wine_session.OUT_DIR.mkdir(parents=True, exist_ok=True)
    (wine_session.OUT_DIR / "summary.json").write_text(json.dumps(summary) + "\n")
    print(f"{len(flaky)} flaky" + (f": {', '.join(flaky)}" if flaky else ""))
    print(f"e2e: {passed} passed, {failed} failed, {summary['skipped']} skipped in {summary['seconds']} s")
    return 0 if failed == 0 and passed > 0 else 1


if __name__ == "__main__":
    sys.exit(main())
