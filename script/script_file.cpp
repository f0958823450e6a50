#include "script/script_file.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

#include "core/app.h"
#include "core/basic_text.h"
#include "core/error_log.h"
#include "core/runtime_error.h"
#include "core/status_line.h"
#include "script/grid_rules.h"
#include "script/step_grid.h"

namespace {

constexpr std::string_view kFlagSeparator = "|||";
constexpr std::string_view kFieldSeparator = "||";
constexpr std::string_view kLineEnd = "\r\n";
constexpr const char* kNewMark = "NEW";

std::string ScriptText(const StepGrid& grid) {
    std::string text;
    text.reserve(static_cast<std::size_t>(grid.RowCount()) * 48);
    int number = 0;
    for (const StepRow& step : grid.Rows()) {
        if (step.mark == kNewMark) continue;
        text += step.checked ? "True" : "False";
        text += kFlagSeparator;
        text += std::to_string(++number);
        for (int column = kColX; column <= kColRepeat; ++column) {
            text += kFieldSeparator;
            text += step.cells[static_cast<std::size_t>(column)];
        }
        text += kLineEnd;
    }
    return text;
}

void PurgeNewRows(App& app) {
    ShowStatus(app, "Preparing for save... Please wait.");
    StepGrid& grid = app.ui.grid;
    for (int row = 1; row <= grid.RowCount(); ++row) {
        if (grid.Mark(row) == kNewMark) grid.RemoveRow(row--);
        app.os.clock.Yield();
    }
    Renumber(app);
}

/*
 * Script file: one step per line, ended by CR LF (LF or CR alone are taken
 * too), no header:
 *
 *     True|||1||-1||-1||No Click||||0||0||0
 *     Enabled|||k||X||Y||Button||Additional||Mins||Secs||Repeat
 *
 * Enabled is "True" or "False", k the running number of the line. Nothing is
 * quoted. The reader takes the text before the first "|||" as a Boolean,
 * removes every "True|||" (or "False|||") of the line and splits the rest at
 * "||": field 0 is the "#" text, fields 1 to 7 the cells. A line without
 * "|||", a flag that is no Boolean or fewer than eight fields ends the read
 * there (through the caller's error trap); rows read before stay, and a row
 * begun from the failing line keeps the cells set until then. A flag "1"
 * removes nothing, so its cells shift by one; that is kept as it always was.
 */

std::string_view TakeLine(std::string_view& rest) {
    std::size_t end = rest.find_first_of("\r\n");
    std::string_view line = rest.substr(0, end);
    if (end == std::string_view::npos) {
        rest = {};
    } else {
        std::size_t next = end + 1;
        if (rest[end] == '\r' && next < rest.size() && rest[next] == '\n') ++next;
        rest.remove_prefix(next);
    }
    return line;
}

void RemoveAll(std::string_view text, std::string_view what, std::string& out) {
    out.clear();
    std::size_t start = 0;
    for (std::size_t found; (found = text.find(what, start)) != std::string_view::npos; start = found + what.size()) {
        out.append(text.substr(start, found - start));
    }
    out.append(text.substr(start));
}

void SplitFields(std::string_view text, std::vector<std::string_view>& fields) {
    fields.clear();
    std::size_t start = 0;
    for (std::size_t found; (found = text.find(kFieldSeparator, start)) != std::string_view::npos;
         start = found + kFieldSeparator.size()) {
        fields.push_back(text.substr(start, found - start));
    }
    fields.push_back(text.substr(start));
}

// Returns the Enabled flag; `fields` point into `rest`.
bool ParseLine(std::string_view line, std::string& rest, std::vector<std::string_view>& fields) {
    std::size_t flagEnd = line.find(kFlagSeparator);
    if (flagEnd == std::string_view::npos) RaiseInvalidCall();
    bool enabled = ToBoolean(line.substr(0, flagEnd));
    RemoveAll(line, enabled ? "True|||" : "False|||", rest);
    SplitFields(rest, fields);
    return enabled;
}

void FillRow(StepGrid& grid, int row, bool enabled, const std::vector<std::string_view>& fields) {
    grid.SetCell(row, kColNumber, std::string(fields[0]));
    for (int column = kColX; column <= kColRepeat; ++column) {
        if (static_cast<std::size_t>(column) >= fields.size()) RaiseSubscriptOutOfRange();
        grid.SetCell(row, column, std::string(fields[column]));
    }
    grid.SetChecked(row, enabled);
    grid.SetMark(row, "");
}

void ReadLines(StepGrid& grid, std::string_view text, bool overwrite) {
    std::string rest;
    std::vector<std::string_view> fields;
    int row = 0;
    if (!overwrite) grid.Reserve(grid.RowCount() + static_cast<int>(std::count(text.begin(), text.end(), '\n')) + 1);
    while (!text.empty()) {
        bool enabled = ParseLine(TakeLine(text), rest, fields);
        if (overwrite) {
            if (++row > grid.RowCount()) return;
        } else {
            row = grid.RowCount() + 1;
            grid.InsertRow(row);
        }
        FillRow(grid, row, enabled, fields);
    }
}

void WriteWorkingCopy(App& app) {
    if (!app.os.files.WriteAtomically(app.scriptStorePath, ScriptText(app.ui.grid))) {
        throw RuntimeError(errors::kPathAccessError, "Path/File access error");
    }
}

std::string ExistingWorkingCopy(App& app) {
    if (!FileExists(app, app.scriptStorePath)) app.os.files.Append(app.scriptStorePath, "");
    return app.scriptStorePath;
}

}  // namespace

bool SaveData(App& app, bool purge) {
    if (app.ui.grid.RowCount() == 0) return true;
    MainView& view = app.ui.main;
    view.SetBusyPointer(true);
    view.SetFrameVisible(Frame::Main, false);
    bool saved = Trapped(app, "SaveData", [&] {
        if (purge) PurgeNewRows(app);
        ShowStatus(app, "Saving...  Please wait.");
        WriteWorkingCopy(app);
        ShowStatus(app, "Saved successfully.");
    });
    // Also after a failure: a hidden grid would look like a lost script.
    view.SetFrameVisible(Frame::Main, true);
    view.SetBusyPointer(false);
    return saved;
}

bool SaveDataQuietly(App& app) {
    return Trapped(app, "SaveData", [&] { WriteWorkingCopy(app); });
}

bool ReadData(App& app, const std::string& path, bool overwrite) {
    bool opened = false;
    Trapped(app, "ReadData", [&] {
        std::string file = path.empty() ? ExistingWorkingCopy(app) : path;
        if (!FileExists(app, file)) return;
        std::optional<std::string> text = app.os.files.ReadAll(file);
        if (!text) throw RuntimeError(errors::kPermissionDenied, "Permission denied");
        opened = true;
        ReadLines(app.ui.grid, *text, overwrite);
    });
    // Panel 6 always shows how many steps the grid holds.
    app.ui.main.SetPanelText(6, std::to_string(app.ui.grid.RowCount()));
    app.ui.main.SetBusyPointer(false);
    return opened;
}
