"""The help commands start the system's help viewer on Klickwerk.chm beside
the program, maximised. Wine's viewer here has no HTML engine for the pages,
but it reads the compiled file's own title and contents, which shows that the
file itself was opened (its inside is checked by tests/help)."""
from harness import BUILD_DIR, WineTestCase, win_path
from test_startup import SETTLED
from wine_session import wait_until

HELP_WINDOW = "Klickwerk Help"  # the title compiled into Klickwerk.chm
SW_MAXIMIZE = 3
STARTF_USESHOWWINDOW = 1


class HelpViewerTest(WineTestCase):
    def setUp(self):
        super().setUp()
        if not (BUILD_DIR / "Klickwerk.chm").exists():
            self.skipTest("Klickwerk.chm is not built (chmcmd is missing)")

    def viewers(self):
        return [process for process in self.driver("processes") if process["exe"].lower() == "hh.exe"]

    def open_from_menu(self, main):
        """The help button's arrow, then "View Help File", clicked as the user does."""
        help_button = next(button for button in self.toolbar(main) if button["text"] == "Help")
        self.assertTrue(help_button["dropdown"])
        left, top, right, bottom = help_button["rect"]
        self.xdotool("mousemove", "--sync", str(right - 4), str((top + bottom) // 2), "click", "1")
        menu = wait_until(lambda: next((window for window in self.driver("windows", "--all")
                                        if window["class"] == "#32768" and window["visible"]), None),
                          20, "the help menu")
        self.screenshot("help-menu")
        left, top, right, bottom = menu["rect"]
        # Two entries of equal height: "View Did You Know?" above "View Help File".
        self.xdotool("mousemove", "--sync", str((left + right) // 2), str(top + 3 * (bottom - top) // 4),
                     "click", "1")

    def test_help_button_menu_entry_and_cmdhelp_open_the_help_file_maximised(self):
        folder = self.make_program_folder(settings=SETTLED)
        process = self.start_klickwerk(folder)
        main = self.wait_for_main_window()
        expected = f'"C:\\windows\\hh.exe" "{win_path(folder / "Klickwerk.chm")}"'

        ways = [("help button", lambda: self.click_toolbar(main, "Help")),
                ("View Help File", lambda: self.open_from_menu(main)),
                ("cmdHelp", lambda: self.driver("click", main["target"], "?"))]
        for way, open_help in ways:
            with self.subTest(way=way):
                self.assertEqual([], self.viewers())
                open_help()
                viewer = wait_until(self.viewers, 20, "the help viewer")[0]
                self.assertEqual(expected.lower(), viewer["commandLine"].lower())
                self.assertTrue(viewer["startupRead"])
                self.assertEqual((STARTF_USESHOWWINDOW, SW_MAXIMIZE), (viewer["startupFlags"], viewer["showWindow"]))
                self.wait_for_window(HELP_WINDOW)
                self.screenshot(f"help-viewer-{way.replace(' ', '-')}")
                self.assertTrue(self.toolbar_enabled(main)["Help"], "enabled again after the call")

                self.driver("close", HELP_WINDOW)
                wait_until(lambda: not self.viewers(), 20, "the help viewer to close")

        self.close_klickwerk(process, main)
        self.assert_no_errors_logged(folder)
