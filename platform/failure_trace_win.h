#pragma once
// A failed Win32 call, traced with its name and GetLastError().
#include "platform/failure_trace.h"
#include "platform/win32.h"

inline void ReportLastError(const char* call) {
    ReportFailure(call, "Win32 call failed", static_cast<long>(GetLastError()));
}
