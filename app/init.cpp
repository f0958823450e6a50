#include "app/init.h"

#include <string>
#include <vector>

#include "app/app.h"
#include "app/error_log.h"
#include "app/os_name.h"
#include "app/settings_store.h"
#include "app/startup.h"
#include "editing/column_widths.h"
#include "script/basic_text.h"
#include "script/runtime_error.h"
#include "script/script_file.h"
#include "script/vocabulary.h"

namespace {

constexpr const char* kHeaders[kColumnCount] = {"#", "X", "Y", "Button", "Additional", "Mins", "Secs", "Repeat"};
constexpr double kWindowWidthTwips = 6855;

std::string Read(App& app, const char* key) { return ReadIni(app, kSettingsSection, key); }

// The stored "ColWidth" split at ",", blanks after the commas kept. A short
// list is laid over the defaults so that the next save writes eight entries;
// the columns it lacks are still refused below.
std::vector<std::string> LoadColumnWidths(App& app) {
    std::string stored = Read(app, "ColWidth");
    std::vector<std::string> widths = Split(Trim(stored).empty() ? kDefaultColumnWidths : stored, ",");
    std::vector<std::string> defaults = Split(kDefaultColumnWidths, ",");
    for (std::size_t i = 0; i < app.columnWidths.size(); ++i) {
        app.columnWidths[i] = i < widths.size() ? widths[i] : defaults[i];
    }
    return widths;
}

void BuildColumns(App& app) {
    std::vector<std::string> widths = LoadColumnWidths(app);
    for (int column = 0; column < kColumnCount; ++column) {
        if (static_cast<std::size_t>(column) >= widths.size()) RaiseSubscriptOutOfRange();
        app.ui.grid.AddColumn(kHeaders[column], TextToDouble(widths[column]), column != kColNumber);
    }
}

// An empty or unreadable "Height" gives the default height.
double StoredHeightTwips(App& app) {
    std::string height = Read(app, "Height");
    return TextToDouble(IsNumeric(height) ? height : kDefaultHeightTwips);
}

void FillClickActions(App& app) {
    std::vector<std::string> actions(kClickActions.begin(), kClickActions.end());
    app.ui.main.FillDropDown(DropDown::Button, actions, actions.front());
}

// Returns the text the stop-key drop-down shows.
std::string FillStopKeys(App& app) {
    app.stopKeyCode = StopKeyFromSetting(Read(app, "StopKey"));
    std::vector<std::string> choices = StopKeyChoices();
    std::string shown = StopKeyName(app.stopKeyCode);
    app.ui.main.FillDropDown(DropDown::StopKeys, choices, shown);
    return shown;
}

}  // namespace

void Init(App& app, bool skipWorkingCopy, StartupServices& services) {
    Trapped(app, "Init", [&] {
        services.LoadHookLibrary();
        GetWinV(app);
        app.decimalSeparator = app.os.os.DecimalSeparator();
        BuildColumns(app);
        app.ui.main.SetSizeTwips(kWindowWidthTwips, StoredHeightTwips(app));
        NewWidth(app);
        app.ui.main.SetCaption(app.appTitle);
        FillClickActions(app);
        LoadSet(app);
        if (!skipWorkingCopy) ReadData(app, "", false);
        std::string stopKeyShown = FillStopKeys(app);
        // Panel 3 is the Y panel; the cursor timer overwrites it on its next tick.
        app.ui.main.SetPanelText(3, stopKeyShown);
        app.ui.main.SetPanelText(6, std::to_string(app.ui.grid.RowCount()));
    });
}
