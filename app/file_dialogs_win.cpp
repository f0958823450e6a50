#include "app/file_dialogs_win.h"

#include <commdlg.h>

#include <algorithm>
#include <cstddef>
#include <vector>

#include "app/dialog_flags.h"
#include "core/runtime_error.h"

namespace {

// The structure as the classic call knows it (no Places bar fields): 76 bytes
// in a 32-bit build, the same fields with 64-bit pointers in a 64-bit one.
constexpr DWORD kStructSize = offsetof(OPENFILENAMEA, lpTemplateName) + sizeof(LPCSTR);
static_assert(sizeof(void*) != 4 || kStructSize == 76);
static_assert(sizeof(void*) != 8 || kStructSize == 136);

using DialogCall = BOOL(WINAPI*)(LPOPENFILENAMEA);

const char* OrNull(const std::string& text) { return text.empty() ? nullptr : text.c_str(); }

// With multiple selection the folder and the names come zero-separated and
// end with two zeros; they are handed on that way.
std::string ChosenText(const std::vector<char>& buffer, unsigned flags) {
    auto end = std::find(buffer.begin(), buffer.end(), '\0');
    if (flags & OFN_ALLOWMULTISELECT) {
        while (end != buffer.end() && end + 1 != buffer.end() && *(end + 1) != '\0')
            end = std::find(end + 1, buffer.end(), '\0');
    }
    return std::string(buffer.begin(), end);
}

std::optional<std::string> Run(HWND owner, const FileDialogRequest& request, DialogCall call, const char* name) {
    // The filter list must end with two zero characters.
    std::string filter = request.filter + '\0';
    std::vector<char> buffer(std::max<std::size_t>(request.bufferSize, 2), '\0');
    std::copy_n(request.fileName.begin(), std::min(request.fileName.size(), buffer.size() - 1), buffer.begin());

    OPENFILENAMEA dialog{};
    dialog.lStructSize = kStructSize;
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = filter.c_str();
    dialog.nFilterIndex = static_cast<DWORD>(request.filterIndex);
    dialog.lpstrFile = buffer.data();
    dialog.nMaxFile = static_cast<DWORD>(buffer.size());
    dialog.lpstrInitialDir = OrNull(request.initialFolder);
    dialog.lpstrTitle = OrNull(request.title);
    dialog.lpstrDefExt = OrNull(request.defaultExtension);
    dialog.Flags = request.flags;
    if (call(&dialog)) return ChosenText(buffer, request.flags);
    DWORD error = CommDlgExtendedError();
    if (error == 0) return std::nullopt;  // the user cancelled
    throw RuntimeError(static_cast<int>(error), std::string(name) + " failed");
}

}  // namespace

std::optional<std::string> FileDialogsWin::Open(const FileDialogRequest& request) {
    return Run(owner_, request, GetOpenFileNameA, "GetOpenFileNameA");
}

std::optional<std::string> FileDialogsWin::Save(const FileDialogRequest& request) {
    return Run(owner_, request, GetSaveFileNameA, "GetSaveFileNameA");
}
