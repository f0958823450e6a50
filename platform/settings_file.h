#pragma once
// Private-profile (INI) access with the semantics of the Windows calls:
// missing key or file reads as "", values come back through a 255-character
// buffer (at most 254 characters), keys and sections match in any case.
#include <string>

class SettingsFile {
public:
    virtual ~SettingsFile() = default;
    virtual std::string Read(const std::string& section, const std::string& key,
                             const std::string& file) = 0;
    // Returns the call's result: non-zero on success.
    virtual int Write(const std::string& section, const std::string& key,
                      const std::string& value, const std::string& file) = 0;
};
