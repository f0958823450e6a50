#include <gtest/gtest.h>

#include "app/dialog_flags.h"

namespace {

TEST(DialogFlags, OpenFlagsComeFromTheOptionsAndCleanedExtraFlags) {
    struct Case {
        bool mustExist, multi, readOnly, hideReadOnly;
        unsigned extra;
        unsigned flags;
    } cases[] = {
        {false, false, false, false, 0, 0},
        {true, false, false, false, 0, 0x1000},
        {false, true, false, false, 0, 0x200},
        {false, false, true, false, 0, 0x1},
        {false, false, false, true, 0, 0x4},
        {true, true, true, true, 0, 0x1205},
        {false, false, false, false, 0x20 | 0x40, 0},        // hook and template removed
        {true, false, false, false, 0x80000 | 0x60, 0x81000},  // the rest kept
    };
    for (const Case& c : cases) {
        DialogOptions options;
        options.fileMustExist = c.mustExist;
        options.multiSelect = c.multi;
        options.readOnlyChecked = c.readOnly;
        options.hideReadOnly = c.hideReadOnly;
        options.extraFlags = c.extra;
        options.overwritePrompt = true;  // a save option, ignored here
        EXPECT_EQ(OpenDialogFlags(options), c.flags) << std::hex << c.flags;
    }
}

TEST(DialogFlags, SaveAlwaysHidesReadOnlyAndPromptsWhenAsked) {
    DialogOptions options;
    options.fileMustExist = true;  // an open option, ignored here
    EXPECT_EQ(SaveDialogFlags(options), 0x4u);
    options.overwritePrompt = true;
    EXPECT_EQ(SaveDialogFlags(options), 0x6u);
    options.extraFlags = 0x20 | 0x800;
    EXPECT_EQ(SaveDialogFlags(options), 0x806u);
}

TEST(DialogFlags, FilterBarsBecomeZeroCharacters) {
    EXPECT_EQ(ZeroSeparatedFilter("Klickwerk CFG file|*.kwf|"), std::string("Klickwerk CFG file\0*.kwf\0", 25));
    EXPECT_EQ(ZeroSeparatedFilter("A|*.a|B|*.*"), std::string("A\0*.a\0B\0*.*", 11));
    EXPECT_EQ(ZeroSeparatedFilter(""), "");
}

TEST(DialogFlags, RequestsCarryTheBufferSizeAndBareExtension) {
    DialogOptions options;
    options.title = "T";
    options.filter = "A|*.a|";
    options.filterIndex = 2;
    options.initialFolder = "C:\\P\\Scripts\\";
    options.defaultExtension = "*.kwf";
    options.fileName = "Klickwerk001.kwf";
    FileDialogRequest open = OpenRequest(options);
    EXPECT_EQ(open.bufferSize, 260u);
    EXPECT_EQ(open.defaultExtension, "kwf");
    EXPECT_EQ(open.filter, std::string("A\0*.a\0", 6));
    EXPECT_EQ(open.filterIndex, 2);
    EXPECT_EQ(open.fileName, "Klickwerk001.kwf");
    EXPECT_EQ(open.initialFolder, "C:\\P\\Scripts\\");
    options.multiSelect = true;
    EXPECT_EQ(OpenRequest(options).bufferSize, 8192u);
    // The save dialog never selects several files.
    EXPECT_EQ(SaveRequest(options).bufferSize, 260u);
    options.defaultExtension = ".txt";
    EXPECT_EQ(SaveRequest(options).defaultExtension, "txt");
}

}  // namespace
