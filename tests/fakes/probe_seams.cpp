#include "fakes/probe_seams.h"

std::string RecordingSettingsFile::Read(const std::string& section, const std::string& key, const std::string& file) {
    reads.push_back(key);
    files.push_back(file);
    return inner_.Read(section, key, file);
}

int RecordingSettingsFile::Write(const std::string& section, const std::string& key, const std::string& value,
                                 const std::string& file) {
    writes.push_back(key + "=" + value);
    files.push_back(file);
    return inner_.Write(section, key, value, file);
}

bool ProbeFiles::WriteAtomically(const std::string& path, const std::string& data) {
    if (onWrite) onWrite(path);
    return !failWrites && inner_.WriteAtomically(path, data);
}

bool ProbeFiles::Copy(const std::string& from, const std::string& to) {
    return !failCopies && inner_.Copy(from, to);
}

ProbedTestApp::ProbedTestApp() {
    app.programFolder = base.app.programFolder;
    app.appTitle = base.app.appTitle;
    app.settingsPath = base.app.settingsPath;
    app.scriptStorePath = base.app.scriptStorePath;
    app.errorLogPath = base.app.errorLogPath;
}
