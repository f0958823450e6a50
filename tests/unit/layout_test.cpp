#include "app/layout.h"

#include <gtest/gtest.h>

namespace {

TEST(TwipsTest, RoundsToTheNearestPixelAndRoundTrips) {
    const std::tuple<double, int, int> cases[] = {
        {6855, 96, 457}, {6855, 144, 686}, {7, 96, 0}, {8, 96, 1}, {-60, 96, -4}};
    for (const auto& [twips, dpi, pixels] : cases) EXPECT_EQ(TwipsToPixels(twips, dpi), pixels) << twips << " " << dpi;
    EXPECT_EQ(PixelsToTwips(10, 0), 0);
    for (int dpi : {96, 120, 144, 168, 192}) {
        for (int pixels = 0; pixels < 2000; pixels += 7)
            EXPECT_EQ(TwipsToPixels(PixelsToTwips(pixels, dpi), dpi), pixels) << dpi;
    }
}

// A window of the usual size at the DPI of the parameter.
class MainLayoutTest : public ::testing::TestWithParam<int> {
protected:
    int px(double twips) const { return TwipsToPixels(twips, dpi); }

    const int dpi = GetParam();
    const PixelSize client{px(6735), px(6200)};
    const int statusBar = px(330);
};

TEST_P(MainLayoutTest, NestsTheGridInTheFrameAndLinesTheButtonsUpBelowIt) {
    MainLayout layout = LayoutMainWindow(client, px(600), statusBar, dpi);
    EXPECT_LE(layout.frame.Bottom(), client.height - statusBar);
    EXPECT_LE(layout.frame.Right(), client.width);
    EXPECT_GT(layout.grid.left, layout.frame.left);
    EXPECT_GT(layout.grid.top, layout.frame.top);
    const PixelRect* buttons[] = {&layout.start, &layout.stop, &layout.record, &layout.recOptions,
                                  &layout.repeat, &layout.help};
    for (const PixelRect* button : buttons) {
        EXPECT_EQ(button->top, layout.grid.Bottom() + px(60));
        EXPECT_EQ(button->height, layout.start.height);
        EXPECT_LE(button->Bottom(), layout.frame.Bottom()) << "button below the frame";
        EXPECT_LE(button->Right(), layout.grid.Right()) << "button beyond the grid";
    }
    EXPECT_EQ(layout.start.left, layout.grid.left);
    EXPECT_LT(layout.start.Right(), layout.stop.left);
    EXPECT_LT(layout.stop.Right(), layout.record.left);
    EXPECT_EQ(layout.record.Right(), layout.recOptions.left) << "the arrow belongs to RECORD";
    EXPECT_LT(layout.recOptions.Right(), layout.repeat.left);
    EXPECT_LT(layout.repeat.Right(), layout.help.left);
}

TEST_P(MainLayoutTest, ButtonsFitAtTheSmallestWindow) {
    PixelSize minimum = MinimumWindowSize(dpi);
    // Sizing borders take at most 8 pixels a side at 96 DPI, scaled with the DPI.
    int border = 8 * dpi / 96;
    PixelSize smallest{minimum.width - 2 * border, minimum.height - 2 * border - 31 * dpi / 96};
    MainLayout layout = LayoutMainWindow(smallest, 46 * dpi / 96, 22 * dpi / 96, dpi);
    EXPECT_LE(layout.help.Right(), layout.grid.Right());
    EXPECT_GT(layout.grid.height, 3 * layout.start.height) << "room for a few rows";
}

TEST_P(MainLayoutTest, ATinyWindowGivesEmptyRectsNotNegativeOnes) {
    MainLayout layout = LayoutMainWindow({4, 4}, 30, 20, dpi);
    for (const PixelRect& rect : {layout.frame, layout.grid})
        EXPECT_EQ(std::pair(rect.width, rect.height), std::pair(0, 0));
}

TEST_P(MainLayoutTest, ATallToolbarPushesTheFrameDownWithoutOverlappingTheStatusBar) {
    MainLayout usual = LayoutMainWindow(client, px(600), statusBar, dpi);
    int tallToolbar = px(1200);
    MainLayout tall = LayoutMainWindow(client, tallToolbar, statusBar, dpi);
    EXPECT_GE(tall.frame.top, tallToolbar + px(60) - 1);
    EXPECT_EQ(usual.frame.Bottom(), tall.frame.Bottom());
    EXPECT_EQ(tall.start.top, tall.grid.Bottom() + px(60));
}

INSTANTIATE_TEST_SUITE_P(Dpi, MainLayoutTest, ::testing::Values(96, 120, 144, 192));

TEST(StatusPanelEdgesTest, FirstPanelTakesTheRestAndTheLastRunsToTheEnd) {
    auto edges = StatusPanelEdges(1000, 96);
    EXPECT_EQ(edges[5], -1);
    for (int panel = 1; panel < 5; ++panel) EXPECT_GT(edges[panel], edges[panel - 1]);
    EXPECT_EQ(edges[4] + TwipsToPixels(900, 96), 1000) << "the fixed panels fill the bar";
    EXPECT_EQ(StatusPanelEdges(20, 96)[0], 0) << "a narrow bar never gives a negative edge";
}

}  // namespace
