#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "editing/cell_editing.h"
#include "fakes/test_app.h"

namespace {

constexpr int kEnter = 13;
constexpr int kEscape = 27;

// Two steps in the grid's columns, the second selected, as the user sees them.
struct EditingApp : TestApp {
    EditingApp() {
        AddColumns();
        AddStep({"1", "10", "20", "No Click", "first", "0", "1", "0"});
        AddStep({"2", "30", "40", "Bogus", "%sa", "2", "1", "0"}, false);
        grid.SetMark(2, "NEW");
        grid.SetSelected(2, true);
    }

    // The user clicks the grid at `xTwips` on `row` (0: below the rows).
    void Click(double xTwips, int row) {
        GridMouseDown(app, xTwips, row);
        GridClick(app);
    }

    // What the click opened: "text 5", "drop 3", "keys" or "".
    std::string Opened() const {
        for (const auto& [editor, slot] : cells.slots) {
            if (slot.visible) return (editor == CellEditor::Text ? "text " : "drop ") + std::to_string(slot.column);
        }
        return textInput.runs ? "keys" : "";
    }

    // Types into the open txtCell: "<esc>" presses Esc, "<blur>" moves the
    // focus away, any other text replaces the box's text and presses Enter.
    void Type(const std::vector<std::string>& inputs) {
        for (const std::string& input : inputs) {
            if (input == "<esc>") {
                CellTextKey(app, kEscape);
            } else if (input == "<blur>") {
                CellTextFocusLost(app);
            } else {
                cells.SetText(input, false);
                CellTextChanged(app);
                CellTextKey(app, kEnter);
            }
        }
    }
};

TEST(CellEditing, EachColumnOpensItsOwnEditorAndNothingElseOpensOne) {
    // Where the left button goes down, and what opens.
    const std::tuple<double, int, std::string> cases[] = {
        {400, 2, ""},          {1000, 2, "text 1"},  {800, 2, ""},  // the border belongs to "#"
        {801, 2, "text 1"},    {1700, 2, "text 2"},  {2500, 2, "drop 3"},
        {4000, 2, "keys"},     {4625, 2, "keys"},    {5000, 2, "text 5"},
        {6000, 2, "text 6"},   {6500, 2, "text 7"},  {4000, 0, ""},  // below the last row
        {9000, 2, ""},  // right of the last column: the cell of the previous press stays
    };
    for (const auto& [x, row, opened] : cases) {
        EditingApp t;
        GridMouseDown(t.app, 400, 2);
        t.Click(x, row);
        EXPECT_EQ(t.Opened(), opened) << x << " on row " << row;
    }
}

TEST(CellEditing, AnEmptyGridSaysSoAndAHiddenGridOrNoSelectionOpensNothing) {
    EditingApp t;
    t.grid.SetSelected(2, false);
    t.Click(1000, 1);
    t.grid.SetSelected(1, true);
    t.main.SetFrameVisible(Frame::Main, false);
    t.Click(1000, 1);
    EXPECT_EQ(t.Opened(), "");
    t.grid.Clear();
    t.Click(1000, 1);
    EXPECT_EQ(t.main.PanelText(1), "List is empty.");
    EXPECT_EQ(t.Opened(), "");
}

TEST(CellEditing, TypedValuesAreCheckedAndNormalisedBeforeTheyAreStored) {
    struct Case {
        double x;                         // the column clicked
        std::vector<std::string> inputs;  // see EditingApp::Type
        std::string stored;               // the cell afterwards
        std::vector<std::string> said;    // status messages, the RND hint and save messages left out
        int beeps;
    };
    const Case cases[] = {
        {1000, {"-5"}, "-5", {}, 0},
        {6500, {"-5"}, "0", {"Must be a positive number."}, 1},  // refused: the box shows 5
        {6500, {"-5", "<blur>"}, "5", {"Must be a positive number."}, 1},
        {6000, {"abc"}, "1", {"Can not be blank and must be a positive number."}, 1},
        {6000, {"abc", "<blur>"}, "1",  // the box's -1 is then refused as negative
         {"Can not be blank and must be a positive number.", "Must be a positive number."}, 2},
        {5000, {""}, "-1", {}, 0},
        {6000, {"rnd(1,5)"}, "1", {"Incorrect RND syntax.  Use RND(#,#,#)"}, 1},
        {6000, {"rnd(1,5,0)"}, "RND(1,5,0)", {}, 0},
        {1000, {"12abc"}, "30", {"Can not be blank and must be a positive number."}, 1},
        {1000, {"-12abc"}, "-12", {}, 0},  // a leading "-" passes the check; the number is kept
        {1700, {"007"}, "7", {}, 0},
        {1000, {".5"}, "0.5", {}, 0},
        {1000, {"77", "<esc>"}, "77", {}, 0},
        {6000, {"<esc>", "<blur>"}, "1", {}, 0},  // Esc drops the edit, also at the focus loss after it
    };
    for (const Case& test : cases) {
        EditingApp t;
        t.Click(test.x, 2);
        t.Type(test.inputs);
        std::vector<std::string> said;
        for (const std::string& text : t.main.statusTexts) {
            if (text.rfind("RND Syntax", 0) != 0 && text.rfind("Sav", 0) != 0) said.push_back(text);
        }
        int column = t.cells.slots[CellEditor::Text].column;
        EXPECT_EQ(t.grid.Cell(2, column), test.stored) << test.x << " " << test.inputs.front();
        EXPECT_EQ(said, test.said) << test.inputs.front();
        EXPECT_EQ(t.main.beeps, test.beeps) << test.inputs.front();
    }
}

TEST(CellEditing, ACommitChecksTheRowClearsItsMarkAndSavesTheWorkingCopy) {
    EditingApp t;
    t.Click(1000, 2);
    t.Type({"55"});
    EXPECT_FALSE(t.cells.Visible(CellEditor::Text));
    EXPECT_TRUE(t.grid.Checked(2));
    EXPECT_EQ(t.grid.Mark(2), "");
    EXPECT_EQ(std::pair(t.app.cellEdit.row, t.app.cellEdit.column), std::pair(-1, -1));
    EXPECT_NE(t.ReadFile("Data.dat").find("||55||40||Bogus||%sa||2||1||0"), std::string::npos);
}

TEST(CellEditing, SecondsOfAMinuteOrMoreCarryIntoMins) {
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {"135", "4", "15"}, {"60", "3", "0"}, {"59.5", "2", "59.5"}, {"-125", "4", "5"},
    };
    for (const auto& [typed, mins, secs] : cases) {
        EditingApp t;
        t.Click(6000, 2);
        t.Type({typed, "<blur>"});
        EXPECT_EQ(std::pair(t.grid.Cell(2, kColMins), t.grid.Cell(2, kColSecs)), std::pair(mins, secs)) << typed;
    }
}

TEST(CellEditing, TheButtonListShowsTheCellsActionAndCommitsAChoiceOrEsc) {
    EditingApp t;
    t.Click(2500, 2);
    EXPECT_EQ(t.cells.Text(CellEditor::DropDown), "No Click") << "an unknown action shows the first";
    t.cells.slots[CellEditor::DropDown].text = "Right Up";
    DropDownSelected(t.app);
    EXPECT_EQ(t.grid.Cell(2, kColButton), "Right Up");
    EXPECT_TRUE(t.grid.Checked(2));

    t.Click(2500, 2);
    EXPECT_EQ(t.cells.Text(CellEditor::DropDown), "Right Up");
    EXPECT_TRUE(DropDownKey(t.app, kEscape));
    EXPECT_FALSE(t.cells.Visible(CellEditor::DropDown));
    EXPECT_EQ(t.grid.Cell(2, kColButton), "Right Up");
}

TEST(CellEditing, TypingAnRndFormShowsItsSyntax) {
    EditingApp t;
    t.Click(6000, 2);
    t.cells.SetText("Rnd(", false);
    CellTextChanged(t.app);
    EXPECT_EQ(t.main.PanelText(1), "RND Syntax: RND(lowerbound, upperbound, roundoff)");
}

}  // namespace
