#pragma once
// The file system as the program uses it. Paths are Windows paths joined
// with "\" (program folder + "\Data.dat"); implementations map them.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class Files {
public:
    virtual ~Files() = default;
    // Length in bytes, or nothing when it cannot be read (no such file).
    virtual std::optional<std::int64_t> Length(const std::string& path) = 0;
    virtual std::optional<std::string> ReadAll(const std::string& path) = 0;
    // Writes a temporary file beside `path` and replaces `path` with it, so a
    // crash or a full disk leaves the previous content whole.
    virtual bool WriteAtomically(const std::string& path, const std::string& data) = 0;
    virtual bool Append(const std::string& path, const std::string& data) = 0;
    virtual bool Copy(const std::string& from, const std::string& to) = 0;
    // Deletes the file; false when it could not (it did not exist, say).
    virtual bool Remove(const std::string& path) = 0;
    // Removes the temporary files that writes cut short (a killed program)
    // left in the folder. Only while no other copy of the program runs: one
    // of its writes may be under way.
    virtual void RemoveLeftovers(const std::string& folder) = 0;
    // Names (without folder) of the files matching a pattern such as
    // "C:\Prog\Scripts\*.kwf", in the order the system lists them.
    virtual std::vector<std::string> List(const std::string& pattern) = 0;
};
