#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/vocabulary.h"
#include "editing/cell_editing.h"
#include "fakes/test_app.h"
#include "recorder/text_input.h"

namespace {

// A grid of two steps with the default column widths (800, 600, 600, 1500,
// 1125, 700, 700, 800 twips), the second selected, as the user sees it.
class TextInputEditing : public ::testing::Test {
protected:
    TextInputEditing() {
        const double widths[kColumnCount] = {800, 600, 600, 1500, 1125, 700, 700, 800};
        for (int column = 0; column < kColumnCount; ++column) t.grid.AddColumn(kColumnHeaders[column], widths[column], true);
        t.AddStep({"1", "10", "20", "No Click", "first", "0", "1", "0"});
        t.AddStep({"2", "30", "40", "Left Click", "%sa", "0", "1", "0"}, false);
        t.grid.SetMark(2, "NEW");
        t.grid.SetSelected(2, true);
        t.main.SetFrameVisible(Frame::Main, true);
    }

    // The user clicks the grid at `xTwips` on `row`.
    void ClickCell(double xTwips, int row) {
        GridMouseDown(t.app, xTwips, row);
        GridClick(t.app);
    }

    TestApp t;
};

TEST_F(TextInputEditing, OnlyAClickOnAnAdditionalCellOpensTheEditor) {
    // Where the pointer goes down, and whether the editor opens.
    const std::tuple<double, int, bool> cases[] = {
        {4000, 2, true},    // the middle of "Additional"
        {4000, 0, false},   // below the last row
        {400, 2, false},    // "#"
        {3500, 2, false},   // the border with "Button" belongs to "Button"
        {3501, 2, true},
        {4625, 2, true},    // the border with "Mins" belongs to "Additional"
        {4626, 2, false},
        {9000, 2, false},   // right of the last column: the previous cell stays
    };
    for (const auto& [x, row, opens] : cases) {
        int before = t.textInput.runs;
        GridMouseDown(t.app, 400, 2);  // the previous press was on "#"
        ClickCell(x, row);
        EXPECT_EQ(t.textInput.runs - before, opens ? 1 : 0) << x << " on row " << row;
    }
    EXPECT_EQ(t.app.cellEdit.row, -1);
}

TEST_F(TextInputEditing, AnEmptyGridSaysSoAndAHiddenGridOrNoSelectionOpensNothing) {
    t.grid.SetSelected(2, false);
    ClickCell(4000, 1);
    t.grid.SetSelected(1, true);
    t.main.SetFrameVisible(Frame::Main, false);
    ClickCell(4000, 1);
    EXPECT_EQ(t.textInput.runs, 0);
    t.grid.Clear();
    ClickCell(4000, 1);
    EXPECT_EQ(t.main.PanelText(1), "List is empty.");
    EXPECT_EQ(t.textInput.runs, 0);
}

TEST_F(TextInputEditing, OpensWithTheSelectedStepsTextAndTheReferenceAndLocksTheWindowMeanwhile) {
    bool startEnabledWhileOpen = true;
    t.textInput.user = [&](FakeTextInputView&, TextInputEvents&) {
        startEnabledWhileOpen = t.main.IsEnabled(Control::Start);
    };
    ClickCell(4000, 2);
    EXPECT_EQ(t.textInput.text, "%sa");
    EXPECT_FALSE(startEnabledWhileOpen);
    EXPECT_TRUE(t.main.IsEnabled(Control::Start));

    const std::array<std::string, 3>& labels = t.textInput.reference;
    EXPECT_EQ(labels[0].substr(0, 16), "%a = Press Alt\r\n");
    EXPECT_EQ(labels[1].substr(0, 18), "$a = Release Alt\r\n");
    const std::size_t letters = NamedCommandLetters().size();
    for (const std::string& label : {labels[0], labels[1]}) {
        EXPECT_EQ(std::count(label.begin(), label.end(), '\n'), static_cast<long>(letters));
    }
    EXPECT_NE(labels[0].find("%w = Press Windows Key\r\n"), std::string::npos);
    EXPECT_EQ(labels[2].rfind("These keys require no release:\r\n%l or $l = Press CAPS LOCK\r\n", 0), 0u);
    EXPECT_NE(labels[2].find("%winmov = Move/Size (see Help file)\r\n%winclose = Close\r\n"), std::string::npos);
}

TEST_F(TextInputEditing, ConfirmingChecksTheTextWritesTheStepAndSavesTheWorkingCopy) {
    t.boxes.answers = {BoxAnswer::Yes};
    t.textInput.user = [](FakeTextInputView&, TextInputEvents& events) { events.Confirm(); };
    ClickCell(4000, 2);
    EXPECT_TRUE(t.textInput.closedByProgram);
    EXPECT_EQ(t.grid.Cell(2, kColAdditional), "%sa$s");
    EXPECT_EQ(t.grid.Mark(2), "");
    EXPECT_TRUE(t.grid.Checked(2));
    EXPECT_NE(t.ReadFile("Data.dat").find("%sa$s"), std::string::npos);
}

TEST_F(TextInputEditing, CancellingChangesNothing) {
    t.textInput.user = [](FakeTextInputView& view, TextInputEvents& events) {
        view.Paste(events, "b");
        events.Cancel();
    };
    ClickCell(4000, 2);
    EXPECT_EQ(t.grid.Cell(2, kColAdditional), "%sa");
    EXPECT_EQ(t.grid.Mark(2), "NEW");
    EXPECT_FALSE(t.grid.Checked(2));
    EXPECT_FALSE(t.Exists("Data.dat"));
    EXPECT_TRUE(t.boxes.shown.empty());
}

TEST(TextInputPicker, OpensByItselfOnlyWhenTheWholeTextIsACommandAndABlank) {
    const std::pair<std::string, bool> cases[] = {
        {"%winmin ", true}, {"%winclose ", true}, {"%winmin", false}, {"x%winmin ", false},
        {"%winmin  ", false}, {"%WINMIN ", false}, {"%winfoc Probe", false},
    };
    for (const auto& [typed, opens] : cases) {
        TestApp t;
        t.AddStep({"1", "0", "0", "No Click", "", "0", "0", "0"});
        bool openedWhileTyping = false;
        t.textInput.user = [&](FakeTextInputView& view, TextInputEvents& events) {
            view.Paste(events, typed);
            openedWhileTyping = view.PickerShown();
        };
        EditKeystrokeText(t.app, 1);
        EXPECT_EQ(openedWhileTyping, opens) << typed;
    }
}

TEST(TextInputPicker, TheDropAppendsTheTitleUnderThePointerAndCancelChangesNothing) {
    TestApp t;
    t.AddStep({"1", "0", "0", "No Click", "", "0", "0", "0"});
    t.input.cursor = {640, 300};
    t.windows.titleAt = [](Point point) { return point == Point{640, 300} ? "Klickwerk Probe" : ""; };
    std::vector<std::string> texts;
    t.textInput.user = [&](FakeTextInputView& view, TextInputEvents& events) {
        view.Paste(events, "%winfoc ");
        events.PickerDropped();
        texts.push_back(view.text + (view.PickerShown() ? " [picker]" : ""));
        events.OpenPicker();
        events.CancelPicker();
        texts.push_back(view.text + (view.PickerShown() ? " [picker]" : ""));
        events.Confirm();
    };
    EditKeystrokeText(t.app, 1);
    EXPECT_EQ(texts, (std::vector<std::string>{"%winfoc Klickwerk Probe", "%winfoc Klickwerk Probe"}));
    EXPECT_EQ(t.grid.Cell(1, kColAdditional), "%winfoc Klickwerk Probe");
}

}  // namespace
