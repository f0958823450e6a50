#pragma once
// Where failures go that no labelled procedure traps: a failed system call
// worth knowing about, an exception caught at a window procedure. The program
// points the trace at its error log once it knows where that is; until then
// failures go nowhere.
#include <functional>
#include <string>

// `where` names the call or the place ("CreateWindowExA", "WindowProc").
using FailureSink = std::function<void(const std::string& where, const std::string& what, long number)>;

void SetFailureSink(FailureSink sink);
void ReportFailure(const std::string& where, const std::string& what, long number);
