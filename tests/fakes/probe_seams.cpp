#include "fakes/probe_seams.h"

int RecordingSettingsFile::Write(const std::string& section, const std::string& key, const std::string& value,
                                 const std::string& file) {
    writes.push_back(key + "=" + value);
    return inner_.Write(section, key, value, file);
}

bool ProbeFiles::WriteAtomically(const std::string& path, const std::string& data) {
    return (!onWrite || onWrite(path)) && inner_.WriteAtomically(path, data);
}

ProbedTestApp::ProbedTestApp() {
    app.programFolder = base.app.programFolder;
    app.appTitle = base.app.appTitle;
    app.settingsPath = base.app.settingsPath;
    app.scriptStorePath = base.app.scriptStorePath;
    app.errorLogPath = base.app.errorLogPath;
}
