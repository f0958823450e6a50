#include <gtest/gtest.h>

#include "app/dialog_flags.h"

namespace {

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

}  // namespace
