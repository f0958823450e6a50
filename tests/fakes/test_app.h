#pragma once
// A whole App over fakes and a fresh temporary program folder with real files.
#include <filesystem>
#include <string>
#include <vector>

#include "core/app.h"
#include "fakes/fake_command_views.h"
#include "fakes/fake_platform.h"
#include "fakes/fake_views.h"
#include "fakes/ini_text_file.h"
#include "fakes/memory_files.h"
#include "fakes/std_files.h"
#include "script/step_grid.h"

// The grid's column widths at the first run, in twips ("Additional" spans 3500 to 4625).
inline const std::vector<double> kFirstRunWidths = {800, 600, 600, 1500, 1125, 700, 700, 800};

// Appends a step from its eight cell texts.
void AppendStep(StepGrid& grid, const std::array<std::string, kColumnCount>& cells, bool checked = true);

class TestApp {
public:
    TestApp();
    // The same over files held in `memory`, in a program folder that exists
    // only there: for the fuzz targets, which must not wait for the disk.
    explicit TestApp(MemoryFiles& memory);
    ~TestApp();
    TestApp(const TestApp&) = delete;
    TestApp& operator=(const TestApp&) = delete;
    // Gives `target` the program folder and files of this app, as start-up does.
    void Place(App& target) const;

    // Path of a file in the program folder, as the program names it ("\Data.dat").
    std::string Path(const std::string& name) const { return app.programFolder + "\\" + name; }
    std::filesystem::path NativePath(const std::string& name) const { return folder / name; }
    std::string ReadFile(const std::string& name) const;  // "" when it cannot be read
    void WriteFile(const std::string& name, const std::string& data) const;
    bool Exists(const std::string& name) const { return std::filesystem::exists(NativePath(name)); }
    void AddStep(const std::array<std::string, kColumnCount>& cells, bool checked = true) {
        AppendStep(grid, cells, checked);
    }
    // A column's cells, or a flag of every row, as one text: "10 -1 20", "101".
    std::string Column(int column) const;
    std::string Flags(bool (StepGrid::*flag)(int) const) const;
    // The grid's eight columns at their first-run widths.
    void AddColumns();

    std::filesystem::path folder;  // empty over files in memory
    StdFiles files;
    Files& fileSeam = files;
    IniTextFile ini{fileSeam};
    FakeRegistry registry;
    FakeShell shell;
    FakeInput input;
    FakeWindows windows;
    FakeMainView main;
    FakeClock clock{main};
    FakeOsInfo osInfo;
    FakeHookLibrary hooks;
    FakeInternet internet{clock};
    StepGrid grid;
    ScriptedBoxes boxes;
    ScriptedDialogs dialogs;
    FakeAboutView about;
    FakeTextInputView textInput;
    FakeCellEditors cells;
    FakeHintView hint;
    FakeStepCountView stepCount;
    FakeUpdatesView updates;
    FakeSettingsPanelView settingsPanel;
    Platform platform{fileSeam, ini, registry, shell, input, windows, clock, osInfo, hooks, internet};
    Views views{grid, main, boxes, dialogs, about, textInput, cells, hint, stepCount, updates, settingsPanel};
    App app{platform, views};
};
