#pragma once
// The part of a process command line after the program's own name, as the
// program receives its arguments: "\"C:\\Kw\\Klickwerk.exe\"  a.kwf /norep"
// gives "a.kwf /norep".
#include <string>

std::string ArgumentsAfterProgramName(const std::string& commandLine);
