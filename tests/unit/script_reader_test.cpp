#include <gtest/gtest.h>

#include <random>

#include "fakes/test_app.h"
#include "script/script_file.h"

namespace {

using Cells = std::array<std::string, kColumnCount>;

struct Row {
    Cells cells;
    bool checked;
};

struct ReaderCase {
    const char* name;
    std::string file;
    std::vector<Row> rows;
    const char* loggedError;  // the error-log text the read ends with, or nullptr
};

const Cells kPlain = {"1", "-1", "-1", "No Click", "", "0", "0", "0"};
const std::string kPlainLine = "True|||1||-1||-1||No Click||||0||0||0";

std::vector<ReaderCase> ReaderCases() {
    return {
        {"canonical", kPlainLine + "\r\n", {{kPlain, true}}, nullptr},
        {"unchecked", "False|||4||1||2||Left Up||x||0||0||0\r\n", {{{"4", "1", "2", "Left Up", "x", "0", "0", "0"}, false}},
         nullptr},
        {"last line without line end", kPlainLine, {{kPlain, true}}, nullptr},
        {"LF and CR line ends", kPlainLine + "\n" + kPlainLine + "\r" + kPlainLine, {{kPlain, true}, {kPlain, true},
         {kPlain, true}}, nullptr},
        {"every True||| of the line goes", "True|||1||-1||-1||No Click||True|||||0||0||0\r\n", {{kPlain, true}},
         nullptr},
        {"False||| stays in an enabled line", "True|||1||-1||-1||No Click||False|||||0||0||0\r\n",
         {{{"1", "-1", "-1", "No Click", "False", "", "|0", "0"}, true}}, nullptr},
        {"flag 1 shifts the cells", "1|||1||-1||-1||No Click||||0||0||0\r\n",
         {{{"1", "|1", "-1", "-1", "No Click", "", "0", "0"}, true}}, nullptr},
        {"lower-case flag shifts the cells too", "true|||1||5||6||No Click||||0||0||0\r\n",
         {{{"true", "|1", "5", "6", "No Click", "", "0", "0"}, true}}, nullptr},
        {"extra fields are ignored", kPlainLine + "||9||9\r\n", {{kPlain, true}}, nullptr},
        {"flag yes ends the read", kPlainLine + "\r\nyes|||2||-1||-1||No Click||||0||0||0\r\n" + kPlainLine + "\r\n",
         {{kPlain, true}}, "Type mismatch 13 ReadData"},
        {"line without ||| ends the read", kPlainLine + "\r\nTrue||2||-1\r\n" + kPlainLine + "\r\n", {{kPlain, true}},
         "Invalid procedure call or argument 5 ReadData"},
        {"blank line ends the read", kPlainLine + "\r\n\r\n" + kPlainLine + "\r\n", {{kPlain, true}},
         "Invalid procedure call or argument 5 ReadData"},
        {"short line keeps the cells it had", "True|||7||10||20||Left Click\r\n" + kPlainLine + "\r\n",
         {{{"7", "10", "20", "Left Click", "", "", "", ""}, false}}, "Subscript out of range 9 ReadData"},
        {"empty file", "", {}, nullptr},
    };
}

void ExpectRows(const StepGrid& grid, const std::vector<Row>& rows, const std::string& name) {
    ASSERT_EQ(grid.RowCount(), static_cast<int>(rows.size())) << name;
    for (int row = 1; row <= grid.RowCount(); ++row) {
        const Row& want = rows[row - 1];
        EXPECT_EQ(grid.Row(row).cells, want.cells) << name << " row " << row;
        EXPECT_EQ(grid.Checked(row), want.checked) << name << " row " << row;
        EXPECT_EQ(grid.Mark(row), "") << name << " row " << row;
    }
}

}  // namespace

TEST(ReadData, AppendsWhatEachLineHolds) {
    for (const ReaderCase& c : ReaderCases()) {
        TestApp t;
        t.WriteFile("Scripts/case.kwf", c.file);
        EXPECT_TRUE(ReadData(t.app, t.Path("Scripts\\case.kwf"), false)) << c.name;
        ExpectRows(t.grid, c.rows, c.name);
        std::string log = t.ReadFile("Error.log");
        if (c.loggedError) {
            EXPECT_EQ(log, std::string("Klickwerk ") + c.loggedError + " 0\r\n") << c.name;
        } else {
            EXPECT_EQ(log, "") << c.name;
        }
    }
}

TEST(ReadData, AppendsAfterTheRowsAlreadyThere) {
    TestApp t;
    t.AddStep({"1", "5", "5", "Left Click", "", "0", "0", "0"});
    t.WriteFile("Data.dat", kPlainLine + "\r\n");
    ASSERT_TRUE(ReadData(t.app, "", false));
    EXPECT_EQ(t.Column(kColX), "5 -1");
}

TEST(ReadData, AMissingScriptFailsQuietlyAndAMissingWorkingCopyIsCreatedEmpty) {
    TestApp t;
    t.main.busyPointer = true;
    EXPECT_FALSE(ReadData(t.app, t.Path("Scripts\\none.kwf"), false));
    EXPECT_FALSE(t.main.busyPointer);
    EXPECT_FALSE(t.Exists("Error.log"));
    EXPECT_TRUE(ReadData(t.app, "", false));
    EXPECT_TRUE(t.Exists("Data.dat"));
    EXPECT_EQ(t.ReadFile("Data.dat"), "");
    EXPECT_EQ(t.grid.RowCount(), 0);
}

TEST(ReadData, OverwriteFillsExistingRowsOnly) {
    // Rows in the grid, lines in the file, then the X cells, numbers and check marks afterwards.
    const std::tuple<int, int, const char*, const char*, const char*> cases[] = {
        {2, 3, "10 20", "1 2", "11"}, {3, 2, "10 20 old", "1 2 9", "110"}, {0, 1, "", "", ""}};
    for (const auto& [rows, lines, xs, numbers, checks] : cases) {
        TestApp t;
        for (int row = 1; row <= rows; ++row) {
            t.AddStep({"9", "old", "old", "Left Up", "old", "9", "9", "9"}, false);
            t.grid.SetMark(row, "NEW");
        }
        std::string file;
        for (int line = 1; line <= lines; ++line) {
            file += "True|||" + std::to_string(line) + "||" + std::to_string(line * 10) + "||0||No Click||||0||0||0\r\n";
        }
        t.WriteFile("Data.dat", file);
        EXPECT_TRUE(ReadData(t.app, "", true));
        EXPECT_EQ(t.Column(kColX), xs) << rows;
        EXPECT_EQ(t.Column(kColNumber), numbers) << rows;
        EXPECT_EQ(t.Flags(&StepGrid::Checked), checks) << rows;
        for (int row = 1; row <= rows; ++row) EXPECT_EQ(t.grid.Mark(row), row <= lines ? "" : "NEW") << row;
    }
}

TEST(ReadData, SurvivesBinaryAndHugeFiles) {
    std::mt19937 random(7);
    std::string binary(64 * 1024, '\0');
    for (char& c : binary) c = static_cast<char>(random());
    std::string huge(1 << 20, 'x');
    const std::tuple<const char*, std::string, int> cases[] = {
        {"binary", binary, -1},
        {"1 MB line without separators", huge + "\r\n" + kPlainLine, 0},
        {"1 MB keystroke text", "True|||1||0||0||No Click||" + huge + "||0||0||0\r\n", 1},  // kept whole
        {"binary after a good line", kPlainLine + "\r\n" + binary, -1},
    };
    for (const auto& [name, file, rows] : cases) {
        TestApp t;
        t.WriteFile("Data.dat", file);
        EXPECT_TRUE(ReadData(t.app, "", false)) << name;
        if (rows < 0) continue;
        EXPECT_EQ(t.grid.RowCount(), rows) << name;
        if (rows == 1) {
            EXPECT_EQ(t.grid.Cell(1, kColAdditional), huge);
        }
    }
}
