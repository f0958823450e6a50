#pragma once
// Reading and operating common controls of another process, as accessibility
// tools do: the messages that pass pointers get blocks of memory inside the
// control's own process.
#include <windows.h>

#include <climits>
#include <string>
#include <vector>

struct GridRow {
    std::vector<std::string> cells;  // cell 0 is the item text
    std::vector<RECT> rects;         // each cell's text area in screen pixels, where a click lands
    bool checked = false;
};

struct StatusPanel {
    std::string text;
    RECT rect{};  // screen pixels, where a click on the panel lands
};

struct ToolbarButton {
    int id = 0;
    std::string text;
    bool enabled = false;
    RECT rect{};  // screen pixels; a drop-down button's arrow is its right end
};

// Each returns false when a message to the control failed.
// The rows from `first` (0-based), at most `limit` of them.
bool ReadGrid(HWND listView, std::vector<GridRow>& rows, int first = 0, int limit = INT_MAX);
bool ReadStatusBar(HWND statusBar, std::vector<StatusPanel>& panels);
bool ReadToolbar(HWND toolbar, std::vector<ToolbarButton>& buttons);
// Selects exactly the given rows (0-based), as clicks with Ctrl held would.
bool SelectGridRows(HWND listView, const std::vector<int>& rows);
