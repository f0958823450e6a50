#include "core/error_log.h"

#include "core/app.h"
#include "core/status_line.h"

namespace {
std::string Fields(const std::string& description, long number, const std::string& label, long line) {
    return description + " " + std::to_string(number) + " " + label + " " + std::to_string(line);
}
}  // namespace

void LogError(App& app, const std::string& source, const std::string& description, long number,
              const std::string& label, long line) {
    try {
        std::string fields = Fields(description, number, label, line);
        ShowStatus(app, "Error: " + fields, false, true, 0);
        app.os.files.Append(app.errorLogPath, source + " " + fields + "\r\n");
    } catch (...) {
        // The handler of a handler has nowhere left to report to.
    }
}

bool FileExists(App& app, const std::string& path) { return app.os.files.Length(path).has_value(); }
