#include "platform/program_arguments.h"

#include <gtest/gtest.h>

namespace {

TEST(ProgramArgumentsTest, TakesWhatFollowsTheProgramName) {
    const std::pair<const char*, const char*> cases[] = {
        {"Klickwerk.exe", ""},
        {"Klickwerk.exe   ", ""},
        {"Klickwerk.exe a.kwf", "a.kwf"},
        {"C:\\Kw\\Klickwerk.exe a.kwf /nostart /norep", "a.kwf /nostart /norep"},
        {"\"C:\\Program Files\\Kw\\Klickwerk.exe\" C:\\My Scripts\\a.kwf /norep",
         "C:\\My Scripts\\a.kwf /norep"},
        {"\"C:\\Kw\\Klickwerk.exe\"a.kwf", "a.kwf"},
        {"\"C:\\Kw\\Klickwerk.exe\"\t\t\"quoted path.kwf\" ", "\"quoted path.kwf\" "},
        {"  Klickwerk.exe x", "x"},
        {"\"C:\\Kw\\Klickwerk.exe", ""},
        {"", ""},
    };
    for (const auto& [commandLine, arguments] : cases)
        EXPECT_EQ(ArgumentsAfterProgramName(commandLine), arguments) << commandLine;
}

}  // namespace
