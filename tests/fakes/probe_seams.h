#pragma once
// Decorators over the real files and settings file of a TestApp that record
// the settings written and can make file writes fail, and an App that talks
// through them.
#include <functional>
#include <string>
#include <vector>

#include "fakes/test_app.h"

class RecordingSettingsFile : public SettingsFile {
public:
    explicit RecordingSettingsFile(SettingsFile& inner) : inner_(inner) {}
    std::string Read(const std::string& section, const std::string& key, const std::string& file) override {
        return inner_.Read(section, key, file);
    }
    int Write(const std::string& section, const std::string& key, const std::string& value,
              const std::string& file) override {
        writes.push_back(key + "=" + value);
        return inner_.Write(section, key, value, file);
    }

    std::vector<std::string> writes;  // "Key=Value", in order

private:
    SettingsFile& inner_;
};

class ProbeFiles : public Files {
public:
    explicit ProbeFiles(Files& inner) : inner_(inner) {}
    std::optional<std::int64_t> Length(const std::string& path) override { return inner_.Length(path); }
    std::optional<std::string> ReadAll(const std::string& path) override { return inner_.ReadAll(path); }
    bool WriteAtomically(const std::string& path, const std::string& data) override {
        return (!onWrite || onWrite(path)) && inner_.WriteAtomically(path, data);
    }
    bool Append(const std::string& path, const std::string& data) override { return inner_.Append(path, data); }
    bool Copy(const std::string& from, const std::string& to) override { return inner_.Copy(from, to); }
    bool Remove(const std::string& path) override { return inner_.Remove(path); }
    std::vector<std::string> List(const std::string& pattern) override { return inner_.List(pattern); }
    void RemoveLeftovers(const std::string& folder) override { inner_.RemoveLeftovers(folder); }

    // Runs before each atomic write; false fails the write like a full disk,
    // so nothing reaches the file.
    std::function<bool(const std::string& path)> onWrite;

private:
    Files& inner_;
};

// A TestApp whose App reads and writes through the decorators above.
class ProbedTestApp {
public:
    ProbedTestApp() { base.Place(app); }

    TestApp base;
    ProbeFiles files{base.files};
    RecordingSettingsFile ini{base.ini};
    Platform platform{files,      ini,          base.registry, base.shell, base.input,
                      base.windows, base.clock, base.osInfo,   base.hooks, base.internet};
    App app{platform, base.views};
};
