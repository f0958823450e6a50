#include "platform/program_arguments.h"

namespace {
bool IsBlank(char c) { return c == ' ' || c == '\t'; }
}  // namespace

std::string ArgumentsAfterProgramName(const std::string& commandLine) {
    std::size_t at = 0;
    while (at < commandLine.size() && IsBlank(commandLine[at])) ++at;
    if (at < commandLine.size() && commandLine[at] == '"') {
        // A quoted program name may hold blanks; a missing closing quote
        // leaves no arguments, as the system's own parsing does.
        std::size_t close = commandLine.find('"', at + 1);
        if (close == std::string::npos) return "";
        at = close + 1;
    } else {
        while (at < commandLine.size() && !IsBlank(commandLine[at])) ++at;
    }
    while (at < commandLine.size() && IsBlank(commandLine[at])) ++at;
    return commandLine.substr(at);
}
