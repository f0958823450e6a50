#include "fakes/std_files.h"

#include <cctype>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

namespace fs = std::filesystem;

namespace {

fs::path Native(const std::string& path) {
    std::string copy = path;
    for (char& c : copy) {
        if (c == '\\') c = '/';
    }
    return fs::path(copy);
}

// "*" matches any run, "?" one character, in any case as on Windows.
bool Matches(const char* pattern, const char* name) {
    if (*pattern == '\0') return *name == '\0';
    if (*pattern == '*') return Matches(pattern + 1, name) || (*name != '\0' && Matches(pattern, name + 1));
    if (*name == '\0') return false;
    bool same = *pattern == '?' || std::tolower(static_cast<unsigned char>(*pattern)) ==
                                       std::tolower(static_cast<unsigned char>(*name));
    return same && Matches(pattern + 1, name + 1);
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
    return std::string(std::istreambuf_iterator<char>(in), {});
}

bool StdFiles::WriteAtomically(const std::string& path, const std::string& data) {
    fs::path target = Native(path);
    fs::path temporary = target;
    temporary += ".tmp";
    {
        std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
        out.write(data.data(), static_cast<std::streamsize>(data.size()));
        out.flush();
        if (!out) {
            out.close();
            std::error_code ignored;
            fs::remove(temporary, ignored);
            return false;
        }
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

std::vector<std::string> StdFiles::List(const std::string& pattern) {
    fs::path native = Native(pattern);
    std::string mask = native.filename().string();
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(native.parent_path(), error)) {
        std::string name = entry.path().filename().string();
        if (entry.is_regular_file() && Matches(mask.c_str(), name.c_str())) names.push_back(name);
    }
    return names;
}
