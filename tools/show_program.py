"""Starts Klickwerk.exe under Wine with an example script and photographs it.

    python3 tools/show_program.py --build <Windows build dir> [--close]

With $DISPLAY set the program appears on that display and runs until the
user closes it (--close ends it after the screenshot instead). Without a
display it runs on a virtual one, where message boxes are answered, the
screenshot is taken and everything is closed again. The program folder is
<build>/program and keeps its settings between runs.
"""
import argparse
import os
import sys
from pathlib import Path

# The end-to-end harness knows how to run a Windows program under Wine.
HARNESS = Path(__file__).resolve().parent.parent / "tests" / "e2e"

# Shown when the repository has no example script; loaded with /nostart, so
# nothing moves the pointer.
DEMO_SCRIPT = [
    "True|||1||200||150||No Click||Hello from Klickwerk||0||1||0",
    "True|||2||400||300||Left Click||||0||2||0",
    "False|||3||-1||-1||No Click||%winfoc Untitled - Notepad||0||0||0",
]


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--build", required=True, help="the Windows (cross) build directory")
    parser.add_argument("--close", action="store_true", help="close the program after the screenshot")
    return parser.parse_args()


def script_for(folder, repo):
    if (repo / "Scripts" / "FirstRun.kwf").exists():
        return folder / "Scripts" / "FirstRun.kwf"  # installed with the Scripts folder
    demo = folder / "Demo.kwf"
    demo.write_bytes("".join(line + "\r\n" for line in DEMO_SCRIPT).encode("latin-1"))
    return demo


def main():
    arguments = parse_arguments()
    os.environ["KW_BUILD_DIR"] = str(Path(arguments.build).resolve())
    interactive = bool(os.environ.get("DISPLAY"))
    if interactive:
        os.environ["KW_E2E_DISPLAY"] = "1"
    sys.path.insert(0, str(HARNESS))
    # Both read KW_BUILD_DIR and KW_E2E_DISPLAY, so only after they are set.
    import wine_session
    from harness import WineOperations, install_program, win_path

    class ProgramRun(WineOperations):
        def __init__(self):
            running = wine_session.session(managed_windows=interactive)
            self.prefix, self.display = running.prefix, running.display.name
            self.out = wine_session.OUT_DIR / "run_program"
            self.out.mkdir(parents=True, exist_ok=True)
            self.started = []

    run = ProgramRun()
    try:
        run.folder = wine_session.BUILD_DIR / "program"
        run.folder.mkdir(exist_ok=True)
        install_program(run.folder)
        script = script_for(run.folder, wine_session.REPO)
        run.klickwerk = run.start_klickwerk(win_path(script), "/nostart", "/norep")
        print(f"Klickwerk runs on display {run.display} with {script.name}")

        def main_window():
            box = None if interactive else run.driver("msgbox", allow_missing=True)
            if box:
                print(f"Message box: {box['text']}")
                run.answer("No" if "No" in box["buttons"] else box["buttons"][0])
            return next(iter(run.main_windows()), None)

        run.main = wine_session.wait_until(main_window, 600 if interactive else 60, "the main window")
        print(f"Screenshot: {run.screenshot('klickwerk')}")
        if interactive and not arguments.close:
            print("Close Klickwerk's window to end.")
            run.klickwerk.wait()
        else:
            run.close_klickwerk()
    finally:
        run.stop_started()
        wine_session.close_session()
    return 0


if __name__ == "__main__":
    sys.exit(main())
