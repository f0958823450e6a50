#include <gtest/gtest.h>

#include "app/dialog_flags.h"
#include "app/save_load_commands.h"
#include "app/toolbar_commands.h"
#include "core/basic_text.h"
#include "core/runtime_error.h"
#include "fakes/test_app.h"

namespace {

const std::string kTwoSteps =
    "True|||1||10||20||Left Click||abc||0||1||0\r\n"
    "False|||2||30||40||No Click||||0||2||3\r\n";

class SaveLoadTest : public ::testing::Test {
protected:
    void AddSteps() {
        t.AddStep({"1", "10", "20", "Left Click", "abc", "0", "1", "0"});
        t.AddStep({"2", "30", "40", "No Click", "", "0", "2", "3"}, false);
    }
    std::string LastLogLine() const {
        std::string log = t.ReadFile("Error.log");
        return log.substr(log.rfind('\n', log.size() - 2) + 1);
    }
    // Notes whether `control` is disabled while the dialog is up.
    void WatchWhileDialogShown(Control control) {
        t.dialogs.onShow = [this, control](const ScriptedDialogs::Shown&) {
            disabledWhileShown = !t.main.IsEnabled(control);
        };
    }

    TestApp t;
    App& app = t.app;
    bool disabledWhileShown = false;
};

TEST(DialogFlags, EachDialogTakesItsOwnOptionsAndNeverAHookOrTemplate) {
    DialogOptions options;
    options.fileMustExist = options.multiSelect = options.readOnlyChecked = options.hideReadOnly = true;
    options.extraFlags = 0x80000 | 0x20 | 0x40;
    EXPECT_EQ(SaveDialogFlags(options), 0x80004u);
    options.overwritePrompt = true;
    EXPECT_EQ(SaveDialogFlags(options), 0x80006u);
    EXPECT_EQ(OpenDialogFlags(options), 0x81205u);
    EXPECT_EQ(OpenDialogFlags(DialogOptions{}), 0u);
}

TEST(DialogFlags, RequestsCarryTheBufferSizeBareExtensionAndZeroSeparatedFilter) {
    DialogOptions options;
    options.filter = "A|*.a|B|*.*";
    options.defaultExtension = "*.kwf";
    FileDialogRequest open = OpenRequest(options);
    EXPECT_EQ(open.bufferSize, 260u);
    EXPECT_EQ(open.defaultExtension, "kwf");
    EXPECT_EQ(open.filter, std::string("A\0*.a\0B\0*.*", 11));
    options.multiSelect = true;
    EXPECT_EQ(OpenRequest(options).bufferSize, 8192u);
    // The save dialog never selects several files.
    EXPECT_EQ(SaveRequest(options).bufferSize, 260u);
    options.defaultExtension = ".txt";
    EXPECT_EQ(SaveRequest(options).defaultExtension, "txt");
}

TEST(ProposeScriptName, CountsOnFromTheHighestNumberListedSoFar) {
    const std::pair<std::vector<std::string>, const char*> cases[] = {
        {{}, "Klickwerk001.kwf"},
        {{"Klickwerk001.kwf", "Klickwerk004.kwf"}, "Klickwerk005.kwf"},
        {{"Klickwerk004.kwf", "Klickwerk001.kwf"}, "Klickwerk005.kwf"},
        // A name without a number resets the count.
        {{"Klickwerk001.kwf", "Klickwerk004.kwf", "notes.kwf"}, "Klickwerk001.kwf"},
        {{"notes.kwf", "Klickwerk004.kwf"}, "Klickwerk005.kwf"},
        {{"my999.kwf"}, "Klickwerk1000.kwf"},
        {{"Klickwerk041.KWF"}, "Klickwerk042.kwf"},
        {{"ab 12.kwf"}, "Klickwerk013.kwf"},
        {{"x-01.kwf"}, "Klickwerk001.kwf"},
        {{"ab1.5.kwf"}, "Klickwerk003.kwf"},  // "1.5" rounds to 2
        {{"a12.kwf"}, "Klickwerk001.kwf"},    // "a12" is no number
    };
    for (const auto& [names, proposal] : cases)
        EXPECT_EQ(ProposeScriptName(names), proposal) << ::testing::PrintToString(names);
    // A name shorter than seven characters fails.
    EXPECT_NO_THROW(ProposeScriptName({"ab.kwfx"}));
    EXPECT_THROW(ProposeScriptName({"Klickwerk001.kwf", "a.kwf"}), RuntimeError);
}

TEST_F(SaveLoadTest, SavingAnEmptyGridSaysSoAndTouchesNoFile) {
    t.WriteFile("Data.dat", kTwoSteps);
    ToolbarClick(app, "save");
    EXPECT_EQ(t.boxes.Texts(), std::vector<std::string>{"Nothing to save."});
    EXPECT_EQ(t.main.timers[Timer::Blank].interval, 5000);
    EXPECT_TRUE(t.dialogs.shown.empty());
    EXPECT_EQ(t.ReadFile("Data.dat"), kTwoSteps);
    EXPECT_TRUE(t.main.IsEnabled(Control::ToolSave));
}

TEST_F(SaveLoadTest, SaveCopiesTheWorkingCopyByteForByte) {
    AddSteps();
    t.WriteFile("Scripts/Klickwerk001.kwf", "True|||1||0||0||No Click||||0||0||0\r\n");
    t.dialogs.answers.push_back(t.Path("Scripts\\mine.kwf"));
    WatchWhileDialogShown(Control::ToolSave);
    ToolbarClick(app, "save");

    ASSERT_EQ(t.dialogs.shown.size(), 1u);
    const ScriptedDialogs::Shown& shown = t.dialogs.shown[0];
    EXPECT_TRUE(shown.save);
    EXPECT_EQ(shown.request.initialFolder, t.app.programFolder + "\\Scripts\\");
    EXPECT_EQ(shown.request.fileName, "Klickwerk002.kwf");
    EXPECT_EQ(shown.request.flags, 0x2u | 0x4u);  // asks before overwriting

    EXPECT_TRUE(disabledWhileShown);
    EXPECT_TRUE(t.main.IsEnabled(Control::ToolSave));
    EXPECT_EQ(t.ReadFile("Data.dat"), kTwoSteps);
    EXPECT_EQ(t.ReadFile("Scripts/mine.kwf"), kTwoSteps);
    EXPECT_EQ(t.main.PanelText(1), "Saved successfully.");
}

TEST_F(SaveLoadTest, SaveAddsTheExtensionOnlyWhenItIsMissingAndCancelWritesNothing) {
    const std::pair<const char*, const char*> cases[] = {
        {"X.KWF", "X.KWF"}, {"Y", "Y.kwf"}, {"Z.txt", "Z.txt.kwf"}, {"W.kwf", "W.kwf"}};
    AddSteps();
    for (const auto& [chosen, written] : cases) {
        t.dialogs.answers.push_back(t.Path(chosen));
        ToolbarClick(app, "save");
        EXPECT_EQ(t.ReadFile(written), kTwoSteps) << chosen;
    }
    EXPECT_FALSE(t.Exists("X.KWF.kwf"));
    ToolbarClick(app, "save");  // no answer left: the user cancels
    EXPECT_EQ(t.dialogs.shown.size(), 5u);
    EXPECT_TRUE(t.main.IsEnabled(Control::ToolSave));
    EXPECT_FALSE(t.Exists("Klickwerk001.kwf"));
    EXPECT_FALSE(t.Exists("Scripts/Klickwerk001.kwf"));
}

TEST_F(SaveLoadTest, AShortScriptNameEndsTheSaveThroughItsErrorTrap) {
    AddSteps();
    t.WriteFile("Scripts/a.kwf", kTwoSteps);
    ToolbarClick(app, "save");
    EXPECT_TRUE(t.dialogs.shown.empty());
    EXPECT_NE(LastLogLine().find(" 5 TBBDown/Up 0"), std::string::npos) << LastLogLine();
    EXPECT_EQ(t.main.PanelText(1).rfind("Error: ", 0), 0u);
    EXPECT_TRUE(t.main.IsEnabled(Control::ToolSave));
}

TEST_F(SaveLoadTest, AFailedCopyKeepsTheExistingFileAndIsLogged) {
    t.files.onWrite = [](const std::string& path) { return !EndsWith(path, ".kwf"); };
    AddSteps();
    t.WriteFile("old.kwf", "True|||1||1||1||No Click||||0||0||0\r\n");
    t.dialogs.answers.push_back(t.Path("old.kwf"));

    ToolbarClick(app, "save");
    EXPECT_EQ(t.ReadFile("old.kwf"), "True|||1||1||1||No Click||||0||0||0\r\n");
    EXPECT_NE(LastLogLine().find("TBBDown/Up"), std::string::npos);
    EXPECT_EQ(t.main.PanelText(1).rfind("Error: ", 0), 0u);
}

TEST_F(SaveLoadTest, LoadReplacesTheWorkingCopyAndTheGrid) {
    AddSteps();
    t.WriteFile("Data.dat", kTwoSteps);
    const std::string loaded = "True|||1||5||6||Right Click||hi||0||3||1\r\n";
    t.WriteFile("Scripts/other.kwf", loaded);
    t.dialogs.answers.push_back(t.Path("Scripts\\other.kwf"));
    WatchWhileDialogShown(Control::ToolLoad);
    ToolbarClick(app, "load");

    ASSERT_EQ(t.dialogs.shown.size(), 1u);
    const FileDialogRequest& request = t.dialogs.shown[0].request;
    EXPECT_FALSE(t.dialogs.shown[0].save);
    EXPECT_EQ(request.flags, 0x1000u);  // the file must exist
    EXPECT_EQ(request.initialFolder, t.app.programFolder + "\\Scripts\\");
    EXPECT_EQ(request.fileName, "");

    EXPECT_TRUE(disabledWhileShown);
    EXPECT_TRUE(t.main.IsEnabled(Control::ToolLoad));
    EXPECT_EQ(t.ReadFile("Data.dat"), loaded);
    ASSERT_EQ(t.grid.RowCount(), 1);
    EXPECT_EQ(t.grid.Row(1).cells,
              (std::array<std::string, kColumnCount>{"1", "5", "6", "Right Click", "hi", "0", "3", "1"}));
    EXPECT_EQ(t.main.PanelText(1), "Loaded successfully.");
}

TEST_F(SaveLoadTest, LoadRefusesFilesThatAreNotScripts) {
    const std::tuple<const char*, std::string, std::string> cases[] = {
        {"empty.kwf", "", "empty.kwf is empty."},
        {"notes.txt", "just a note\r\nTrue|||1||0||0||No Click||||0||0||0\r\n", "Load failed.  Incorrect contents."},
        {"half.kwf", "True|\r\n||", "Load failed.  Incorrect contents."},
    };
    for (const auto& [name, content, message] : cases) {
        TestApp fresh;
        fresh.AddStep({"1", "10", "20", "Left Click", "abc", "0", "1", "0"});
        fresh.WriteFile("Data.dat", kTwoSteps);
        fresh.WriteFile(name, content);
        fresh.dialogs.answers.push_back(fresh.Path(name));
        ToolbarClick(fresh.app, "load");
        EXPECT_EQ(fresh.boxes.Texts(), std::vector<std::string>{message}) << name;
        EXPECT_EQ(fresh.main.timers[Timer::Blank].interval, 5000);
        EXPECT_EQ(fresh.ReadFile("Data.dat"), kTwoSteps) << name;
        EXPECT_EQ(fresh.Column(kColAdditional), "abc") << name;
        EXPECT_TRUE(fresh.main.IsEnabled(Control::ToolLoad));
    }
}

TEST_F(SaveLoadTest, AFailingDialogIsLoggedUnderItsOwnLabel) {
    t.dialogs.fail = true;
    ToolbarClick(app, "load");
    EXPECT_NE(LastLogLine().find(" LoadDLG 0"), std::string::npos) << LastLogLine();
    EXPECT_TRUE(t.main.IsEnabled(Control::ToolLoad));
    AddSteps();
    ToolbarClick(app, "save");
    EXPECT_NE(LastLogLine().find(" SaveDLG 0"), std::string::npos) << LastLogLine();
    EXPECT_TRUE(t.main.IsEnabled(Control::ToolSave));
}

}  // namespace
