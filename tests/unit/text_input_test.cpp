#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/vocabulary.h"
#include "fakes/test_app.h"
#include "recorder/text_input.h"

namespace {

// Step 2 holds "%sa", unchecked and marked "NEW".
class TextInputEditing : public ::testing::Test {
protected:
    TextInputEditing() {
        t.AddStep({"1", "10", "20", "No Click", "first", "0", "1", "0"});
        t.AddStep({"2", "30", "40", "Left Click", "%sa", "0", "1", "0"}, false);
        t.grid.SetMark(2, "NEW");
    }

    TestApp t;
};

TEST_F(TextInputEditing, OpensWithTheStepsTextAndTheReferenceAndLocksTheWindowMeanwhile) {
    bool startEnabledWhileOpen = true;
    t.textInput.user = [&](FakeTextInputView&, TextInputEvents&) {
        startEnabledWhileOpen = t.main.IsEnabled(Control::Start);
    };
    EditKeystrokeText(t.app, 2);
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
    EditKeystrokeText(t.app, 2);
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
    EditKeystrokeText(t.app, 2);
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
