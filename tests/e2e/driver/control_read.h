#pragma once
// Reading common controls of another process: a report-style list view with
// its header, a status bar's panels and a toolbar's buttons.
#include <windows.h>

#include <string>
#include <vector>

struct GridColumn {
    std::string header;
    int width = 0;  // pixels
};

struct GridRow {
    std::vector<std::string> cells;  // cell 0 is the item text
    bool checked = false;
    bool selected = false;
    bool focused = false;
};

struct GridContents {
    std::vector<GridColumn> columns;
    std::vector<GridRow> rows;
};

bool ReadGrid(HWND listView, GridContents& grid);
bool ReadStatusPanels(HWND statusBar, std::vector<std::string>& panels);
// Each panel's tool tip.
bool ReadStatusTips(HWND statusBar, std::vector<std::string>& tips);
// The panels' rectangles in screen pixels, where a click on a panel lands.
bool ReadStatusRects(HWND statusBar, std::vector<RECT>& rects);
// Selects exactly the given rows (0-based) of a list view, as clicks with
// Ctrl held would.
bool SelectGridRows(HWND listView, const std::vector<int>& rows);

struct ToolbarButtonInfo {
    int id = 0;
    std::string text;
    bool enabled = false;
    bool pressed = false;
    bool dropDown = false;
    RECT rect{};  // screen pixels
};

bool ReadToolbar(HWND toolbar, std::vector<ToolbarButtonInfo>& buttons);
