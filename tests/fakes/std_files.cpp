#include "fakes/std_files.h"

#include <algorithm>
#include <filesystem>
#include <fnmatch.h>
#include <fstream>
#include <sstream>
#include <system_error>

namespace fs = std::filesystem;

namespace {

fs::path Native(std::string path) {
    std::ranges::replace(path, '\\', '/');
    return path;
}

}  // namespace

std::optional<std::int64_t> StdFiles::Length(const std::string& path) {
    std::error_code error;
    auto size = fs::file_size(Native(path), error);
    if (error) return std::nullopt;
    return static_cast<std::int64_t>(size);
}

std::optional<std::string> StdFiles::ReadAll(const std::string& path) {
    std::ifstream in(Native(path), std::ios::binary);
    if (!in) return std::nullopt;
    std::ostringstream data;
    data << in.rdbuf();
    return std::move(data).str();
}

bool StdFiles::WriteAtomically(const std::string& path, const std::string& data) {
    if (onWrite && !onWrite(path)) return false;
    fs::path target = Native(path);
    fs::path temporary = target;
    temporary += ".tmp";
    {
        std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
        if (!out.write(data.data(), static_cast<std::streamsize>(data.size())).flush()) return false;
    }
    std::error_code error;
    fs::rename(temporary, target, error);
    return !error;
}

bool StdFiles::Append(const std::string& path, const std::string& data) {
    std::ofstream out(Native(path), std::ios::binary | std::ios::app);
    out.write(data.data(), static_cast<std::streamsize>(data.size()));
    return static_cast<bool>(out);
}

bool StdFiles::Copy(const std::string& from, const std::string& to) {
    std::error_code error;
    fs::copy_file(Native(from), Native(to), fs::copy_options::overwrite_existing, error);
    return !error;
}

bool StdFiles::Remove(const std::string& path) {
    std::error_code error;
    return fs::remove(Native(path), error);
}

void StdFiles::RemoveLeftovers(const std::string& folder) {
    for (const std::string& name : List(folder + "\\*.tmp")) Remove(folder + "\\" + name);
}

std::vector<std::string> StdFiles::List(const std::string& pattern) {
    fs::path native = Native(pattern);
    std::string mask = native.filename().string();
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(native.parent_path(), error)) {
        std::string name = entry.path().filename().string();
        // In any case, as on Windows.
        if (entry.is_regular_file() && fnmatch(mask.c_str(), name.c_str(), FNM_CASEFOLD) == 0) names.push_back(name);
    }
    return names;
}
