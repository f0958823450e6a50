#include "platform/platform_win.h"

#include <timeapi.h>

#include <algorithm>

#include "platform/dates.h"
#include "platform/failure_trace_win.h"
#include "platform/message_pump_win.h"

namespace {
constexpr DWORD kAllInput = 255;
constexpr double kHundredNanosecondsPerSecond = 10000000.0;
// Without it, waits end on the system's default tick of about 15.6 ms.
constexpr UINT kFinestTimerMs = 1;

// Named after the executable, so every wait of the program shares one timer
// object while it is open.
std::string TimerName() {
    std::string path = ExecutablePath();
    return path.substr(path.find_last_of('\\') + 1) + "Timer";
}

LARGE_INTEGER RelativeDueTime(double seconds) {
    LARGE_INTEGER due;
    due.QuadPart = -static_cast<LONGLONG>(seconds * kHundredNanosecondsPerSecond);
    return due;
}

// Only when no timer can be had: the same wait, measured with the tick count.
void WaitWithoutTimer(double seconds, const bool& stop) {
    DWORD start = GetTickCount();
    DWORD length = static_cast<DWORD>(std::max(0.0, seconds * 1000));
    for (DWORD elapsed = 0; elapsed < length && !stop; elapsed = GetTickCount() - start) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, length - elapsed, kAllInput);
        if (!PumpPendingMessages()) return;
    }
}

SYSTEMTIME SystemDate(Date date) {
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(date.year);
    time.wMonth = static_cast<WORD>(date.month);
    time.wDay = static_cast<WORD>(date.day);
    return time;
}
}  // namespace

std::uint32_t WinClock::TickCount() { return GetTickCount(); }

double WinClock::Now() {
    SYSTEMTIME local;
    GetLocalTime(&local);
    FILETIME asFileTime;
    SystemTimeToFileTime(&local, &asFileTime);
    ULARGE_INTEGER ticks;
    ticks.LowPart = asFileTime.dwLowDateTime;
    ticks.HighPart = asFileTime.dwHighDateTime;
    return static_cast<double>(ticks.QuadPart) / kHundredNanosecondsPerSecond;
}

Date WinClock::Today() {
    SYSTEMTIME local;
    GetLocalTime(&local);
    return {local.wYear, local.wMonth, local.wDay};
}

std::string WinClock::FormatShortDate(Date date) {
    SYSTEMTIME time = SystemDate(date);
    char text[80];
    int length = GetDateFormatA(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, text, sizeof text);
    return length > 0 ? std::string(text) : std::string();
}

std::optional<Date> WinClock::ParseShortDate(const std::string& text) {
    char pattern[80];
    if (!GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, pattern, sizeof pattern)) return std::nullopt;
    return DateFromText(text, pattern);
}

void WinClock::Wait(double seconds, const bool& stop) {
    OwnedKernelHandle owner(CreateWaitableTimerA(nullptr, TRUE, TimerName().c_str()));
    HANDLE timer = owner.Get();
    if (!timer) {
        ReportLastError("CreateWaitableTimerA");
        WaitWithoutTimer(seconds, stop);
        return;
    }
    if (GetLastError() != ERROR_ALREADY_EXISTS) {
        LARGE_INTEGER firstDue;
        firstDue.QuadPart = -1;
        SetWaitableTimer(timer, &firstDue, 0, nullptr, nullptr, FALSE);
    }
    LARGE_INTEGER due = RelativeDueTime(seconds);
    SetWaitableTimer(timer, &due, 0, nullptr, nullptr, FALSE);
    do {
        waitResult_ = MsgWaitForMultipleObjects(1, &timer, FALSE, INFINITE, kAllInput);
        // Once the program is asked to quit there is nothing left to wait for.
        if (!PumpPendingMessages()) break;
    } while (waitResult_ != WAIT_OBJECT_0 && !stop);
}

void WinClock::Yield() { PumpPendingMessages(); }

void WinClock::Sleep(std::uint32_t milliseconds) { ::Sleep(milliseconds); }

void WinClock::BeginFineTiming() { timeBeginPeriod(kFinestTimerMs); }

void WinClock::EndFineTiming() { timeEndPeriod(kFinestTimerMs); }
