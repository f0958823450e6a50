#pragma once
// Files held in memory, keyed by the path as the program names it: for the
// fuzz targets, which run a whole App millions of times and must not wait for
// the disk. Paths match in any case, as on Windows.
#include <map>

#include "platform/files.h"

class MemoryFiles : public Files {
public:
    std::optional<std::int64_t> Length(const std::string& path) override;
    std::optional<std::string> ReadAll(const std::string& path) override;
    bool WriteAtomically(const std::string& path, const std::string& data) override;
    bool Append(const std::string& path, const std::string& data) override;
    bool Copy(const std::string& from, const std::string& to) override;
    bool Remove(const std::string& path) override;
    void RemoveLeftovers(const std::string& folder) override;
    // Only patterns of the form folder + "\*.ext".
    std::vector<std::string> List(const std::string& pattern) override;

    std::map<std::string, std::string> contents;  // lower-cased path -> data
};
