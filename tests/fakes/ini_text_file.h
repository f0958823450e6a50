#pragma once
// The private-profile format implemented over Files, with the observable
// semantics of GetPrivateProfileStringA / WritePrivateProfileStringA that the
// program meets (it writes no quoted values), for builds other than Windows.
#include <string>
#include <vector>

#include "platform/files.h"
#include "platform/settings_file.h"

class IniTextFile : public SettingsFile {
public:
    explicit IniTextFile(Files& files) : files_(files) {}
    std::string Read(const std::string& section, const std::string& key, const std::string& file) override;
    int Write(const std::string& section, const std::string& key, const std::string& value,
              const std::string& file) override;

    std::vector<std::string> writes;  // "Key=Value", in order

private:
    // The file's lines, parsed again only when its text has changed.
    const std::vector<std::string>& LinesOf(const std::string& file);

    Files& files_;
    std::string parsedText_;
    std::vector<std::string> parsedLines_;
};
