#include "app/layout.h"

#include <algorithm>
#include <cmath>

namespace {
// The main window's measures in twips.
constexpr double kToolbarBand = 740;      // space above the grid frame
constexpr double kAroundFrame = 800;      // client height the frame leaves
constexpr double kFrameSideMargin = 60;
constexpr double kBelowToolbar = 60;
constexpr double kAboveStatusBar = 60;
constexpr double kGridInset = 60;         // grid to frame border, left and right
constexpr double kGridTopInset = 180;     // room for the frame's top line
constexpr double kGridLeavesInFrame = 300;
constexpr double kButtonGapBelowGrid = 60;
constexpr double kButtonHeight = 400;
constexpr double kButtonWidth = 1100;
// Wide enough for the longest recording caption, "ESCAPE TO STOP".
constexpr double kRecordWidth = 1900;
constexpr double kHelpButtonWidth = 360;
constexpr double kRecOptionsWidth = 300;
constexpr double kButtonGap = 120;
constexpr double kMinimumWidth = 6870;
constexpr double kMinimumHeight = 5850;

// Panels 2 to 6: pointer X, pointer Y, stop key, clicks counter, steps. Each
// fits its longest text ("-1280", "ESCAPE", six digits), leaving panel 1
// room for the countdown "Remaining until next step: 00:00:00".
constexpr std::array<double, 5> kFixedPanelWidths = {550, 550, 900, 700, 900};

PixelRect RightOf(const PixelRect& neighbour, int gap, int width) {
    return {neighbour.Right() + gap, neighbour.top, width, neighbour.height};
}
}  // namespace

MainLayout LayoutMainWindow(PixelSize client, int toolbarHeight, int statusBarHeight, int dpi) {
    auto px = [dpi](double twips) { return TwipsToPixels(twips, dpi); };
    MainLayout layout;
    int top = std::max(px(kToolbarBand), toolbarHeight + px(kBelowToolbar));
    int height = std::min(client.height - px(kAroundFrame) - statusBarHeight,
                          client.height - statusBarHeight - px(kAboveStatusBar) - top);
    layout.frame = {px(kFrameSideMargin), top, std::max(0, client.width - px(2 * kFrameSideMargin)),
                    std::max(0, height)};
    int buttonHeight = px(kButtonHeight);
    layout.grid = {layout.frame.left + px(kGridInset), layout.frame.top + px(kGridTopInset),
                   std::max(0, layout.frame.width - px(2 * kGridInset)),
                   std::max(0, layout.frame.height - px(kGridLeavesInFrame) - buttonHeight)};
    int gap = px(kButtonGap);
    layout.start = {layout.grid.left, layout.grid.Bottom() + px(kButtonGapBelowGrid), px(kButtonWidth),
                    buttonHeight};
    layout.stop = RightOf(layout.start, gap, px(kButtonWidth));
    layout.record = RightOf(layout.stop, gap, px(kRecordWidth));
    layout.recOptions = RightOf(layout.record, 0, px(kRecOptionsWidth));
    layout.repeat = RightOf(layout.recOptions, gap, px(kButtonWidth));
    layout.help = RightOf(layout.repeat, gap, px(kHelpButtonWidth));
    return layout;
}

PixelSize MinimumWindowSize(int dpi) {
    return {TwipsToPixels(kMinimumWidth, dpi), TwipsToPixels(kMinimumHeight, dpi)};
}

std::array<int, 6> StatusPanelEdges(int clientWidth, int dpi) {
    std::array<int, 6> edges{};
    int fixed = 0;
    for (double width : kFixedPanelWidths) fixed += TwipsToPixels(width, dpi);
    edges[0] = std::max(0, clientWidth - fixed);
    for (std::size_t panel = 1; panel < edges.size(); ++panel)
        edges[panel] = edges[panel - 1] + TwipsToPixels(kFixedPanelWidths[panel - 1], dpi);
    edges[5] = -1;
    return edges;
}
