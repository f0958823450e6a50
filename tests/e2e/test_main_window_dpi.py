"""The main window at 144 dots per inch (150 %): its own Wine prefix with that
setting, so the other tests keep their 96. Sizes in twips must come out at
the window's DPI, and the layout must hold there too."""
import types

from harness import WineTestCase
from test_main_window import MainWindowChecks
from test_startup import SETTLED, script_bytes
from wine_session import BUILD_DIR, WINE, WinePrefix


class HighDpiPrefix(WinePrefix):
    """A prefix beside the usual one whose screen has 144 dots per inch."""

    DPI = 144
    DPI_MARK = ".klickwerk-dpi-144"

    def __init__(self, display):
        super().__init__(display)
        self.path = BUILD_DIR / "wineprefix-144dpi"
        self.env["WINEPREFIX"] = str(self.path)

    def ensure(self):
        if (self.path / self.DPI_MARK).exists():
            return
        super().ensure()
        self._run([WINE, "reg", "add", r"HKCU\Control Panel\Desktop", "/v", "LogPixels", "/t", "REG_DWORD",
                   "/d", str(self.DPI), "/f"], 60)
        self.kill()
        (self.path / self.DPI_MARK).write_text(f"LogPixels {self.DPI}\n")


class HighDpiMainWindowTest(MainWindowChecks, WineTestCase):
    dpi = HighDpiPrefix.DPI

    def setUp(self):
        super().setUp()
        prefix = HighDpiPrefix(self.session.display.name)
        prefix.ensure()
        # Everything this test starts, and its teardown, use the 144 prefix.
        self.session = types.SimpleNamespace(display=self.session.display, prefix=prefix, env=prefix.env)

    def test_start_size_layout_and_resizing_at_144_dpi(self):
        folder = self.make_program_folder(settings=SETTLED, files={
            "Data.dat": script_bytes(["True|||1||10||20||Left Click||Hello||0||1||0"])})
        process = self.start_klickwerk(folder)
        main = self.wait_for_main_window()
        self.wait_for_grid_rows(main, 1)
        self.xdotool("mousemove", "1", "1")  # no pointer over the window in the pictures

        self.assert_start_window(main)
        self.assert_tidy(main, self.settled_screenshot("main-144dpi"))
        self.assert_resizing(main)

        self.click_toolbar(main, "Exit")
        self.wait_for_exit(process)
        self.assert_no_errors_logged(folder)
