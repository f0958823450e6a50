#pragma once
// Files over the C++ standard library, for builds other than Windows (the
// Linux tests and benchmarks). "\" in paths is taken as the folder separator.
#include <functional>

#include "platform/files.h"

class StdFiles : public Files {
public:
    std::optional<std::int64_t> Length(const std::string& path) override;
    std::optional<std::string> ReadAll(const std::string& path) override;
    bool WriteAtomically(const std::string& path, const std::string& data) override;
    bool Append(const std::string& path, const std::string& data) override;
    bool Copy(const std::string& from, const std::string& to) override;
    bool Remove(const std::string& path) override;
    std::vector<std::string> List(const std::string& pattern) override;
    // The temporary files are "<target>.tmp".
    void RemoveLeftovers(const std::string& folder) override;

    // Runs before each atomic write; false fails the write like a full disk,
    // so nothing reaches the file.
    std::function<bool(const std::string& path)> onWrite;
};
