#pragma once
// An error raised inside the program, with the classic run-time error numbers
// so that error-log lines stay meaningful ("Type mismatch 13").
#include <stdexcept>
#include <string>

struct RuntimeError : std::runtime_error {
    int number;
    RuntimeError(int errorNumber, const std::string& description)
        : std::runtime_error(description), number(errorNumber) {}
};

namespace errors {
inline constexpr int kInvalidCall = 5;
inline constexpr int kOverflow = 6;
inline constexpr int kSubscriptOutOfRange = 9;
inline constexpr int kTypeMismatch = 13;
inline constexpr int kFileNotFound = 53;
inline constexpr int kPermissionDenied = 70;
inline constexpr int kPathAccessError = 75;
}  // namespace errors

[[noreturn]] void RaiseTypeMismatch();
[[noreturn]] void RaiseOverflow();
[[noreturn]] void RaiseSubscriptOutOfRange();
[[noreturn]] void RaiseInvalidCall();
