#include "app/init.h"

#include <string>
#include <vector>

#include "app/os_name.h"
#include "app/startup.h"
#include "core/app.h"
#include "core/basic_text.h"
#include "core/error_log.h"
#include "core/runtime_error.h"
#include "core/settings.h"
#include "core/vocabulary.h"
#include "editing/column_widths.h"
#include "script/script_file.h"
#include "script/step_grid.h"

namespace {

constexpr double kWindowWidthTwips = 6855;

// The stored "ColWidth" split at ",", blanks after the commas kept. A short
// list is laid over the defaults so that the next save writes eight entries;
// the columns it lacks are still refused below.
std::vector<std::string> LoadColumnWidths(App& app) {
    std::string stored = ReadSetting(app, Setting::ColWidth);
    const char* defaultWidths = KeyOf(Setting::ColWidth).defaultValue;
    std::vector<std::string> widths = Split(Trim(stored).empty() ? defaultWidths : stored, ",");
    std::vector<std::string> defaults = Split(defaultWidths, ",");
    for (std::size_t i = 0; i < app.columnWidths.size(); ++i) {
        app.columnWidths[i] = i < widths.size() ? widths[i] : defaults[i];
    }
    return widths;
}

void BuildColumns(App& app) {
    std::vector<std::string> widths = LoadColumnWidths(app);
    for (int column = 0; column < kColumnCount; ++column) {
        if (static_cast<std::size_t>(column) >= widths.size()) RaiseSubscriptOutOfRange();
        app.ui.grid.AddColumn(kColumnHeaders[column], TextToDouble(widths[column]), column != kColNumber);
    }
}

// An empty or unreadable "Height" gives the default height.
double StoredHeightTwips(App& app) {
    std::string height = ReadSetting(app, Setting::Height);
    return TextToDouble(IsNumeric(height) ? height : KeyOf(Setting::Height).defaultValue);
}

void FillClickActions(App& app) {
    std::vector<std::string> actions(kClickActions.begin(), kClickActions.end());
    app.ui.main.FillDropDown(DropDown::Button, actions, actions.front());
}

// Returns the text the stop-key drop-down shows.
std::string FillStopKeys(App& app) {
    app.stopKeyCode = StopKeyFromSetting(ReadSetting(app, Setting::StopKey));
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
