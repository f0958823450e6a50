#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "app/stop_key_panel.h"
#include "editing/step_count.h"
#include "fakes/test_app.h"
#include "script/script_file.h"

namespace {

using Cells = std::array<std::string, kColumnCount>;
using Texts = std::vector<std::string>;

constexpr int kEnter = 13;
constexpr int kEsc = 27;
constexpr const char* kLoading = "Loading steps...  Please wait.";
constexpr const char* kNotANumber = "Must be a number.";
constexpr const char* kChanged = "Steps successfully changed.";

// Five saved steps, the second unchecked; each line with its cells as the grid shows them.
const std::vector<std::pair<std::string, Cells>> kSaved = {
    {"True|||1||100||200||Left Click||Hello||0||1||0", {"1", "100", "200", "Left Click", "Hello", "0", "1", "0"}},
    {"False|||2||-1||-1||No Click||||0||0||0", {"2", "-1", "-1", "No Click", "", "0", "0", "0"}},
    {"True|||3||RND(10,20,0)||300||Right DblClick||%r||1||30||2",
     {"3", "RND(10,20,0)", "300", "Right DblClick", "%r", "1", "30", "2"}},
    {"True|||4||5||6||Left Down||||0||0||0", {"4", "5", "6", "Left Down", "", "0", "0", "0"}},
    {"True|||5||7||8||Left Up||x||0||2||1", {"5", "7", "8", "Left Up", "x", "0", "2", "1"}},
};

std::string SavedLines(std::size_t count) {
    std::string text;
    for (std::size_t line = 0; line < count; ++line) text += kSaved[line].first + "\r\n";
    return text;
}

Cells DefaultStep(int row) { return {std::to_string(row), "-1", "-1", "No Click", "", "0", "0", "0"}; }

// A program that started with the five saved steps in its working copy.
struct StepCountRig {
    StepCountRig() {
        t.WriteFile("Data.dat", SavedLines(kSaved.size()));
        ReadData(app, "", false);
        t.stepCount.onChange = [this] { StepCountTextChanged(app); };
    }

    // Opens the frame and types `typed` over the selected count.
    void Type(const std::string& typed) {
        OpenStepCount(app);
        t.main.statusTexts.clear();
        t.stepCount.Type(typed);
    }

    // Types `typed` and presses a key that the frame takes.
    void Enter(const std::string& typed, int key = kEnter) {
        Type(typed);
        EXPECT_TRUE(OnStepCountKey(app, key)) << typed;
    }

    bool Closed() const { return t.main.FrameVisible(Frame::Main) && !t.main.FrameVisible(Frame::Steps); }

    // The first `saved` rows hold the saved steps, the rest are new default steps.
    void ExpectRows(int saved, int total, const std::string& name) const {
        ASSERT_EQ(t.grid.RowCount(), total) << name;
        for (int row = 1; row <= total; ++row) {
            bool isSaved = row <= saved;
            const StepRow& shown = t.grid.Row(row);
            EXPECT_EQ(shown.cells, isSaved ? kSaved[row - 1].second : DefaultStep(row)) << name << " row " << row;
            EXPECT_EQ(shown.checked, isSaved && row != 2) << name << " row " << row;
            EXPECT_EQ(shown.mark, isSaved ? "" : "NEW") << name << " row " << row;
        }
        EXPECT_EQ(t.main.panels[6], std::to_string(total)) << name;
    }

    TestApp t;
    App& app = t.app;
};

TEST(StepCount, OpeningShowsTheRowCountSelectedInTheGridsPlace) {
    StepCountRig r;
    OpenStopKeyPanel(r.app);
    int settingsHidden = 0;
    r.app.seams.hideSettingsPanel = [&] { ++settingsHidden; };
    OpenStepCount(r.app);
    EXPECT_EQ(settingsHidden, 1);
    EXPECT_FALSE(r.t.main.FrameVisible(Frame::Main));
    EXPECT_FALSE(r.t.main.FrameVisible(Frame::StopKey));
    EXPECT_TRUE(r.t.main.FrameVisible(Frame::Steps));
    const FakeStepCountView& view = r.t.stepCount;
    EXPECT_EQ(std::tie(view.text, view.selected, view.centred, r.t.main.beeps), std::make_tuple("5", true, 1, 0));
    // The stop-key panel takes the grid's place from it in turn.
    OpenStopKeyPanel(r.app);
    EXPECT_FALSE(r.t.main.FrameVisible(Frame::Steps));
    EXPECT_TRUE(r.t.main.FrameVisible(Frame::StopKey));
}

TEST(StepCount, TheIntegerPartOfTheCountDecidesHowManySavedAndNewStepsTheGridHolds) {
    const std::tuple<const char*, int, int> cases[] = {
        // typed, saved steps kept, rows in all
        {"0", 0, 0}, {"-1", 0, 0}, {"-0.5", 0, 0}, {"0.5", 0, 0}, {"2.9", 2, 2},
        {"3", 3, 3}, {" 5 ", 5, 5}, {"8", 5, 8}, {"1e1", 5, 10},
    };
    for (const auto& [typed, saved, total] : cases) {
        StepCountRig r;
        r.app.cellEdit = {2, 4, 0};
        r.Enter(typed);
        r.ExpectRows(saved, total, typed);
        // The newest row is the selected one, as after adding a step.
        EXPECT_EQ(r.t.Flags(&StepGrid::Selected), total ? std::string(total - 1, '0') + "1" : "") << typed;
        EXPECT_EQ(r.t.main.statusTexts, (Texts{kLoading, kChanged})) << typed;
        EXPECT_EQ(std::tie(r.app.cellEdit.row, r.app.cellEdit.column), std::make_tuple(-1, -1)) << typed;
        EXPECT_TRUE(r.Closed()) << typed;
        EXPECT_EQ(r.t.ReadFile("Data.dat"), SavedLines(kSaved.size())) << typed;
        EXPECT_EQ(r.t.ReadFile("Error.log"), "") << typed;
    }
}

TEST(StepCount, StepsDroppedByASmallerCountStayDroppedUnlessTheListWasEmptied) {
    const std::tuple<const char*, const char*, int, int> cases[] = {
        // first count, second count, saved steps kept, rows
        {"3", "8", 3, 8},
        // An empty list is never saved: the working copy still holds all five.
        {"0", "5", 5, 5},
    };
    for (const auto& [first, second, kept, total] : cases) {
        StepCountRig r;
        r.Enter(first);
        r.Enter(second);
        std::string name = std::string(first) + " then " + second;
        r.ExpectRows(kept, total, name);
        EXPECT_EQ(r.t.ReadFile("Data.dat"), SavedLines(kept)) << name;
    }
}

TEST(StepCount, ANumberThatIsNoCountNeverClearsTheList) {
    for (const char* text : {"", "abc", "3x", "-", "."}) {
        StepCountRig r;
        OpenStepCount(r.app);
        r.t.main.statusTexts.clear();
        r.t.stepCount.text = text;  // as if the text box had let it through
        StepChange(r.app);
        r.ExpectRows(5, 5, text);
        EXPECT_EQ(r.t.main.statusTexts, (Texts{kLoading, kNotANumber})) << text;
        EXPECT_TRUE(r.Closed()) << text;
        EXPECT_EQ(r.t.ReadFile("Error.log"), "") << text;
    }
}

TEST(StepCount, TypingWhatIsNoNumberBeepsAndDropsTheLastCharacter) {
    const std::tuple<const char*, const char*, int> cases[] = {
        // typed over the selection, text left, refusals
        {"12", "12", 0}, {"2.", "2.", 0}, {"-1", "-1", 0}, {"", "", 0},
        {"7x", "7", 1}, {"1e", "1", 1}, {"-", "", 1},
        // The shortened text is checked again, as the text box reports that change too.
        {"ab", "", 2}, {"4a5", "4", 2},
    };
    for (const auto& [typed, left, refusals] : cases) {
        StepCountRig r;
        r.Type(typed);
        EXPECT_EQ(std::tie(r.t.stepCount.text, r.t.main.beeps), std::make_tuple(left, refusals)) << typed;
        EXPECT_EQ(r.t.main.statusTexts, Texts(refusals, kNotANumber)) << typed;
        EXPECT_TRUE(r.t.main.FrameVisible(Frame::Steps)) << typed;
        EXPECT_EQ(r.t.grid.RowCount(), 5) << typed;
    }
}

TEST(StepCount, EscClosesWithoutAChangeAndOtherKeysAreTyping) {
    StepCountRig r;
    r.Type("2");
    for (int key : {int{'A'}, 9, 32}) EXPECT_FALSE(OnStepCountKey(r.app, key)) << key;
    EXPECT_TRUE(r.t.main.FrameVisible(Frame::Steps));
    EXPECT_TRUE(OnStepCountKey(r.app, kEsc));
    EXPECT_TRUE(r.Closed());
    r.ExpectRows(5, 5, "Esc");
    EXPECT_EQ(r.t.main.statusTexts, Texts{});
}

}  // namespace
