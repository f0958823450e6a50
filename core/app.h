#pragma once
// The program's module-wide values and the seams it works through. One App
// lives for the whole run; the Windows build fills it with the real windows
// and system calls, tests with fakes.
#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "core/about_view.h"
#include "core/cell_editor_view.h"
#include "core/command_seams.h"
#include "core/file_dialogs.h"
#include "core/hint_view.h"
#include "core/main_view.h"
#include "core/message_boxes.h"
#include "core/settings_panel_view.h"
#include "core/step_count_view.h"
#include "core/text_input_view.h"
#include "core/updates_view.h"
#include "core/vocabulary.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/hook_library.h"
#include "platform/input_device.h"
#include "platform/internet.h"
#include "platform/os_info.h"
#include "platform/registry.h"
#include "platform/settings_file.h"
#include "platform/shell.h"
#include "platform/window_system.h"

// The steps live in the script layer above; the context only refers to them.
class StepGrid;

struct Platform {
    Files& files;
    SettingsFile& ini;
    Registry& registry;
    Shell& shell;
    InputDevice& input;
    WindowSystem& windows;
    Clock& clock;
    OsInfo& os;
    HookLibrary& hooks;
    Internet& internet;
};

struct Views {
    StepGrid& grid;
    MainView& main;
    MessageBoxes& boxes;
    FileDialogs& dialogs;
    AboutView& about;
    TextInputView& textInput;
    CellEditorView& cells;
    HintView& hint;
    StepCountView& stepCount;
    UpdatesView& updates;
    SettingsPanelView& settingsPanel;
};

// The settings that live in controls while the program runs (check boxes of
// the settings panel, the repeat toggle, the record-mode menu).
struct SettingValues {
    int onTop = 0;
    std::string repeatState = "0";  // the repeat toggle's tag: "1" repeats
    int smoothPointer = 0;
    int showCount = 0;
    int autoStart = 0;
    int startMin = 0;
    int withWindows = 0;
    int dyk = 0;
    int enter4Step = 0;
    int mouseSaver = 0;
    bool recordIntoSelected = false;  // mnuRecSelected marked, else mnuRecBeginning
};

// The grid cell under edit: rows from 1, columns from 0, -1 when none; the
// left edge of its column in twips.
struct CellEdit {
    int row = -1;
    int column = -1;
    double columnLeft = 0;
    bool textCancelled = false;     // Esc in txtCell: its focus loss commits nothing
    bool dropDownFilling = false;   // cmbDrop's selection while it opens commits nothing
    bool contextMenuShown = false;  // the grid's next click opens no editor
};

// What a recording keeps between the receiver's events.
struct RecorderState {
    // Position and button of the last accepted press (1 left, 2 right).
    std::int16_t downX = 0;
    std::int16_t downY = 0;
    std::int16_t downButton = 0;
    bool buttonHeld = false;
    // A double click was recorded; the release and the click after it are dropped.
    bool dblClickSeen = false;
    // Tick count when the recording began or the last step was closed; 0 when idle.
    double lastStepTime = 0;
    // The key pressed and not yet released; 0 after a release, -1 when a new step has just begun.
    int lastKeyDown = 0;
    HookHandle mouseHook = 0;
    HookHandle keyHook = 0;
};

// A key or mouse button that the current run pressed and has not released.
struct HeldInput {
    bool mouseButton = false;
    std::uint32_t release = 0;  // the virtual key, or the mouse_event flag that lets the button go
    bool operator==(const HeldInput&) const = default;
};

struct App {
    App(Platform& platform, Views& views) : os(platform), ui(views) {}

    Platform& os;
    Views& ui;

    std::string programFolder;
    std::string appTitle;
    std::string settingsPath;
    std::string scriptStorePath;
    std::string errorLogPath;
    long errorLogSizeAtStart = 0;
    bool closingFlag = false;
    bool firstRunDemo = false;
    bool autoStarted = false;  // this run was started automatically at start-up
    std::string osName;

    SettingValues settings;
    std::int16_t stopKeyCode = 27;
    std::array<std::string, kColumnCount> columnWidths;
    long columnWidthTotal = 0;  // sum of the widths when NewWidth last ran

    bool stopRequested = false;
    bool pauseBoxShown = false;  // F10's box is up: a held F10 opens no second one
    std::string pendingPrefix;

    // Playback: the wall-clock moment (Clock::Now) the current step wait ends,
    // which the pointer guard moves later, and the guard's target position.
    double waitEndTime = 0;
    int guardX = 0;
    int guardY = 0;
    // What the run holds down, in the order pressed; its end lets go of it.
    std::vector<HeldInput> heldByRun;
    // The characters typed with Shift, rebuilt for every keystroke text.
    std::string shiftedCharacters;
    // The random values' one generator, seeded from the clock at its first
    // use, so that the values of one step are independent of each other.
    std::optional<std::mt19937> random;
    // Draws r in [0, 1) instead of `random` when set; tests fix r through it.
    std::function<double()> drawRandom;
    // The user's decimal separator, for the random values' "#.00" texts.
    char decimalSeparator = '.';
    // Clicks cmdRecord; the recorder fills it, the stop-key timer calls it
    // while a recording runs.
    std::function<void()> clickRecord;
    RecorderState recorder;
    CellEdit cellEdit;
    int hintNumber = 0;  // the hint fraDYK shows
    // "InHook.dll" was loaded at start-up; without it the record button stays disabled.
    bool hookLibraryLoaded = false;
    // Main-window commands answered by other parts (settings panel, hints, close).
    CommandSeams seams;
};
