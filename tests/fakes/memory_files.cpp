#include "fakes/memory_files.h"

#include "core/basic_text.h"

std::optional<std::int64_t> MemoryFiles::Length(const std::string& path) {
    auto found = contents.find(Lower(path));
    if (found == contents.end()) return std::nullopt;
    return static_cast<std::int64_t>(found->second.size());
}

std::optional<std::string> MemoryFiles::ReadAll(const std::string& path) {
    auto found = contents.find(Lower(path));
    if (found == contents.end()) return std::nullopt;
    return found->second;
}

bool MemoryFiles::WriteAtomically(const std::string& path, const std::string& data) {
    contents[Lower(path)] = data;
    return true;
}

bool MemoryFiles::Append(const std::string& path, const std::string& data) {
    contents[Lower(path)] += data;
    return true;
}

bool MemoryFiles::Copy(const std::string& from, const std::string& to) {
    std::optional<std::string> data = ReadAll(from);
    return data && WriteAtomically(to, *data);
}

bool MemoryFiles::Remove(const std::string& path) { return contents.erase(Lower(path)) > 0; }

void MemoryFiles::RemoveLeftovers(const std::string& folder) {
    for (const std::string& name : List(folder + "\\*.tmp")) Remove(folder + "\\" + name);
}

std::vector<std::string> MemoryFiles::List(const std::string& pattern) {
    std::string lowered = Lower(pattern);
    std::size_t star = lowered.rfind("\\*");
    std::string folder = lowered.substr(0, star + 1);
    std::string extension = lowered.substr(star + 2);
    std::vector<std::string> names;
    for (const auto& [path, data] : contents) {
        std::string name = path.substr(folder.size());
        bool inFolder = path.starts_with(folder) && name.find('\\') == std::string::npos;
        if (inFolder && name.ends_with(extension)) names.push_back(name);
    }
    return names;
}
