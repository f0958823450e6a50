"""The help button starts the system's help viewer on Klickwerk.chm beside the
program, maximised. Wine's viewer here has no HTML engine for the pages, but
it shows the compiled file's own title, which tells that the file itself was
opened (its inside is checked by tests/help)."""
from harness import WineTestCase
from wine_session import BUILD_DIR, wait_until

HELP_WINDOW = "Klickwerk Help"  # the title compiled into Klickwerk.chm
STARTF_USESHOWWINDOW, SW_MAXIMIZE = 1, 3


class HelpViewerTest(WineTestCase):
    def test_the_help_button_opens_the_help_file_maximised(self):
        if not (BUILD_DIR / "Klickwerk.chm").exists():
            self.skipTest("Klickwerk.chm is not built (chmcmd is missing)")
        self.open_program()
        self.click_toolbar("Help")
        viewer = self.driver("startup", "hh.exe", wait=20)
        self.assertEqual((STARTF_USESHOWWINDOW, SW_MAXIMIZE), (viewer["startupFlags"], viewer["showWindow"]))
        wait_until(lambda: self.driver("window", HELP_WINDOW, allow_missing=True), 20, "the help viewer's window",
                   accept=lambda window: window and window["visible"])
        self.screenshot("help-viewer")
        self.assertTrue(self.enabled()["Help"], "enabled again after the call")
        self.driver("close", HELP_WINDOW)
        self.close_klickwerk()
        self.assert_no_errors_logged()
