#include "platform/platform_win.h"

namespace {

class FileHandle {
public:
    FileHandle(const std::string& path, DWORD access, DWORD disposition)
        : handle_(CreateFileA(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                              nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr)) {}
    ~FileHandle() {
        if (Ok()) CloseHandle(handle_);
    }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;

    bool Ok() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE Get() const { return handle_; }

    bool WriteAll(const std::string& data) {
        std::size_t done = 0;
        while (done < data.size()) {
            DWORD chunk = static_cast<DWORD>(std::min<std::size_t>(data.size() - done, 1u << 30));
            DWORD written = 0;
            if (!WriteFile(handle_, data.data() + done, chunk, &written, nullptr) || written == 0) return false;
            done += written;
        }
        return true;
    }

private:
    HANDLE handle_;
};

// GetTempFileNameA makes "kwt<hex>.tmp".
constexpr const char* kTemporaryPrefix = "kwt";
constexpr const char* kTemporaryPattern = "\\kwt*.tmp";

std::string FolderOf(const std::string& path) {
    std::size_t slash = path.find_last_of("\\/");
    return slash == std::string::npos ? "." : path.substr(0, slash);
}

}  // namespace

std::string NewTemporaryFile(const std::string& path) {
    char temporary[MAX_PATH];
    if (!GetTempFileNameA(FolderOf(path).c_str(), kTemporaryPrefix, 0, temporary)) return {};
    return temporary;
}

std::optional<std::int64_t> WinFiles::Length(const std::string& path) {
    FileHandle file(path, 0, OPEN_EXISTING);
    LARGE_INTEGER size;
    if (!file.Ok() || !GetFileSizeEx(file.Get(), &size)) return std::nullopt;
    return size.QuadPart;
}

std::optional<std::string> WinFiles::ReadAll(const std::string& path) {
    FileHandle file(path, GENERIC_READ, OPEN_EXISTING);
    if (!file.Ok()) return std::nullopt;
    std::string data;
    char buffer[64 * 1024];
    DWORD read = 0;
    while (ReadFile(file.Get(), buffer, sizeof buffer, &read, nullptr) && read > 0) data.append(buffer, read);
    return data;
}

bool WinFiles::WriteAtomically(const std::string& path, const std::string& data) {
    std::string temporary = NewTemporaryFile(path);
    if (temporary.empty()) return false;
    bool written;
    {
        FileHandle file(temporary, GENERIC_WRITE, CREATE_ALWAYS);
        written = file.Ok() && file.WriteAll(data) && FlushFileBuffers(file.Get());
    }
    if (written && MoveFileExA(temporary.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
        return true;
    DeleteFileA(temporary.c_str());
    return false;
}

bool WinFiles::Append(const std::string& path, const std::string& data) {
    FileHandle file(path, FILE_APPEND_DATA, OPEN_ALWAYS);
    return file.Ok() && file.WriteAll(data);
}

bool WinFiles::Copy(const std::string& from, const std::string& to) {
    // Through WriteAtomically, so the copy over the working copy is never half done.
    std::optional<std::string> data = ReadAll(from);
    return data && WriteAtomically(to, *data);
}

bool WinFiles::Remove(const std::string& path) { return DeleteFileA(path.c_str()) != 0; }

void WinFiles::RemoveLeftovers(const std::string& folder) {
    for (const std::string& name : List(folder + kTemporaryPattern)) DeleteFileA((folder + "\\" + name).c_str());
}

std::vector<std::string> WinFiles::List(const std::string& pattern) {
    std::vector<std::string> names;
    WIN32_FIND_DATAA found;
    HANDLE search = FindFirstFileA(pattern.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return names;
    do {
        if (!(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)) names.push_back(found.cFileName);
    } while (FindNextFileA(search, &found));
    FindClose(search);
    return names;
}
