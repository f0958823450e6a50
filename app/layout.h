#pragma once
// The main window's layout in pixels at its DPI.
#include <array>

#include "platform/twips.h"

struct PixelRect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    int Right() const { return left + width; }
    int Bottom() const { return top + height; }
    bool operator==(const PixelRect&) const = default;
};

struct PixelSize {
    int width = 0;
    int height = 0;
    bool operator==(const PixelSize&) const = default;
};

// Positions inside the main window's client area, in pixels.
struct MainLayout {
    PixelRect frame;  // fraMain
    PixelRect grid;   // lstMain
    PixelRect start;
    PixelRect stop;
    PixelRect record;
    PixelRect recOptions;
    PixelRect repeat;
    PixelRect help;  // cmdHelp
};

// The grid frame fills the client area above the status bar, leaving the top
// band for the toolbar (taller when the toolbar needs it); the buttons sit on
// one line 60 twips below the grid.
MainLayout LayoutMainWindow(PixelSize client, int toolbarHeight, int statusBarHeight, int dpi);

// The smallest outer size the main window may be given (6870 x 5850 twips).
PixelSize MinimumWindowSize(int dpi);

// Right edges of the six status-bar panels; the first panel takes what the
// others leave, the last one runs to the bar's end (-1).
std::array<int, 6> StatusPanelEdges(int clientWidth, int dpi);
