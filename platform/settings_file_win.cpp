#include "platform/platform_win.h"

namespace {
// The buffer the settings are read through: longer values come back cut.
constexpr DWORD kReadBufferSize = 255;
}  // namespace

std::string WinSettingsFile::Read(const std::string& section, const std::string& key, const std::string& file) {
    char buffer[kReadBufferSize];
    DWORD length = GetPrivateProfileStringA(section.c_str(), key.c_str(), "", buffer, kReadBufferSize, file.c_str());
    return std::string(buffer, length);
}

int WinSettingsFile::Write(const std::string& section, const std::string& key, const std::string& value,
                           const std::string& file) {
    // The profile call rewrites the file in place; let it work on a copy and
    // put the copy in place afterwards. A temporary file of its own, so that
    // two running copies of the program never write through the same one;
    // without a settings file yet, it starts empty.
    std::string copy = NewTemporaryFile(file);
    if (copy.empty()) return 0;
    if (!CopyFileA(file.c_str(), copy.c_str(), FALSE) && GetLastError() != ERROR_FILE_NOT_FOUND) {
        DeleteFileA(copy.c_str());
        return 0;
    }
    BOOL written = WritePrivateProfileStringA(section.c_str(), key.c_str(), value.c_str(), copy.c_str());
    if (written && MoveFileExA(copy.c_str(), file.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
        return written;
    DeleteFileA(copy.c_str());
    return 0;
}
