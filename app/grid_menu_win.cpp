#include "app/grid_menu_win.h"

#include <string>

namespace {

struct Entry {
    GridCommand command;
    const char* caption;  // with its access key; nullptr: "&" + the fitted remove caption
    bool separatorBefore;
};

constexpr Entry kEntries[] = {
    {GridCommand::AddNew, "&Add New Step", false},
    {GridCommand::InsertStep, "&Insert Step", false},
    {GridCommand::RemoveStep, nullptr, false},
    {GridCommand::CheckAll, "&Check All", true},
    {GridCommand::UncheckAll, "&Uncheck All", false},
    {GridCommand::InvertChecked, "In&vert Checked", false},
    {GridCommand::SelectAll, "&Select All", true},
    {GridCommand::InvertSelection, "Invert S&election", false},
    {GridCommand::MakeSame, "&Make Same...", true},
    {GridCommand::ChangeSteps, "Change &Number of Steps...", true},
    {GridCommand::ClearList, "C&lear List...", false},
};

// Menu identifiers start at 1: TrackPopupMenu returns 0 for no choice.
UINT IdOf(GridCommand command) { return static_cast<UINT>(command) + 1; }

bool Enabled(const GridMenu& menu, GridCommand command) {
    switch (command) {
        case GridCommand::InsertStep: return menu.insertEnabled;
        case GridCommand::RemoveStep: return menu.removeEnabled;
        case GridCommand::MakeSame: return menu.makeSameEnabled;
        default: return true;
    }
}

}  // namespace

std::optional<GridCommand> PopUpGridMenu(HWND owner, HWND grid, const GridMenu& menu) {
    HMENU popup = CreatePopupMenu();
    for (const Entry& entry : kEntries) {
        if (entry.separatorBefore) AppendMenuA(popup, MF_SEPARATOR, 0, nullptr);
        std::string caption = entry.caption ? entry.caption : "&" + menu.removeCaption;
        AppendMenuA(popup, MF_STRING | (Enabled(menu, entry.command) ? MF_ENABLED : MF_GRAYED),
                    IdOf(entry.command), caption.c_str());
    }
    POINT pointer{};
    GetCursorPos(&pointer);
    UINT chosen = static_cast<UINT>(TrackPopupMenu(popup, TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON,
                                                   pointer.x, pointer.y, 0, owner, nullptr));
    DestroyMenu(popup);
    // A click on the grid that closed the menu is no click on a cell.
    MSG pending;
    while (PeekMessageA(&pending, grid, WM_LBUTTONDOWN, WM_LBUTTONDBLCLK, PM_REMOVE)) {
    }
    for (const Entry& entry : kEntries) {
        if (IdOf(entry.command) == chosen) return entry.command;
    }
    return std::nullopt;
}
