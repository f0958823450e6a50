#pragma once
// Time and responsive waiting. Everything runs on the user-interface thread:
// Wait and Yield let pending window messages (and so the program's timers) run.
#include <compare>
#include <cstdint>
#include <optional>
#include <string>

struct Date {
    int year = 0;
    int month = 0;
    int day = 0;
    auto operator<=>(const Date&) const = default;
};

class Clock {
public:
    virtual ~Clock() = default;
    virtual std::uint32_t TickCount() = 0;
    // Local wall-clock time in seconds since an arbitrary fixed origin.
    virtual double Now() = 0;
    virtual Date Today() = 0;
    // The user's short date form.
    virtual std::string FormatShortDate(Date date) = 0;
    // A date in the user's short date form; nothing when it is none.
    virtual std::optional<Date> ParseShortDate(const std::string& text) = 0;
    // Returns after `seconds`, or as soon as `stop` is found set after a
    // message-loop pass.
    virtual void Wait(double seconds, const bool& stop) = 0;
    // Lets pending window messages run once.
    virtual void Yield() = 0;
    // Blocks without running messages.
    virtual void Sleep(std::uint32_t milliseconds) = 0;
    // Asks the system for its finest timer resolution until EndFineTiming, so
    // that short waits end on time; a run holds it from start to end.
    virtual void BeginFineTiming() {}
    virtual void EndFineTiming() {}
};
