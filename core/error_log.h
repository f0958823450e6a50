#pragma once
#include <exception>
#include <new>
#include <string>
#include <utility>

#include "core/runtime_error.h"

struct App;

inline constexpr const char* kErrorSource = "Klickwerk";

// Appends one line to the error log and shows "Error: ..." in the status
// line. Never raises: a log that cannot be written is passed over.
void LogError(App& app, const std::string& source, const std::string& description, long number,
              const std::string& label, long line);

bool FileExists(App& app, const std::string& path);

// The error trap every labelled procedure runs under: an error is logged with
// the procedure's label and the procedure is left. Returns false after an error.
template <class Body>
bool Trapped(App& app, const char* label, Body&& body) {
    try {
        std::forward<Body>(body)();
        return true;
    } catch (const RuntimeError& error) {
        LogError(app, kErrorSource, error.what(), error.number, label, 0);
    } catch (const std::bad_alloc&) {
        LogError(app, kErrorSource, "Out of memory", 7, label, 0);
    } catch (const std::exception& error) {
        LogError(app, kErrorSource, error.what(), 51, label, 0);
    }
    return false;
}
