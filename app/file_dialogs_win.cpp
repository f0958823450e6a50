#include "app/file_dialogs_win.h"

#include <commdlg.h>

#include <vector>

#include "script/runtime_error.h"

namespace {
using DialogCall = BOOL(APIENTRY*)(OPENFILENAMEA*);

// The chosen name; with several files chosen, the folder and the names each
// ended by a zero character, as the dialog leaves them.
std::string ChosenNames(const std::vector<char>& buffer, unsigned flags) {
    if (!(flags & OFN_ALLOWMULTISELECT)) return buffer.data();
    std::size_t end = 0;
    while (end + 1 < buffer.size() && !(buffer[end] == '\0' && buffer[end + 1] == '\0')) ++end;
    return std::string(buffer.data(), end + 1);
}

std::optional<std::string> RunDialog(DialogCall call, HWND owner, const FileDialogRequest& request) {
    std::vector<char> buffer(std::max<std::size_t>(request.bufferSize, request.fileName.size() + 2), '\0');
    std::copy(request.fileName.begin(), request.fileName.end(), buffer.begin());
    OPENFILENAMEA dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner && IsWindow(owner) ? owner : nullptr;
    // The filter's pairs end with zero characters; c_str adds the final one.
    dialog.lpstrFilter = request.filter.empty() ? nullptr : request.filter.c_str();
    dialog.nFilterIndex = static_cast<DWORD>(request.filterIndex);
    dialog.lpstrFile = buffer.data();
    dialog.nMaxFile = static_cast<DWORD>(buffer.size());
    dialog.lpstrInitialDir = request.initialFolder.empty() ? nullptr : request.initialFolder.c_str();
    dialog.lpstrTitle = request.title.empty() ? nullptr : request.title.c_str();
    dialog.lpstrDefExt = request.defaultExtension.empty() ? nullptr : request.defaultExtension.c_str();
    dialog.Flags = request.flags;
    if (call(&dialog)) return ChosenNames(buffer, request.flags);
    DWORD failure = CommDlgExtendedError();
    if (failure == 0) return std::nullopt;  // cancelled
    throw RuntimeError(static_cast<int>(failure), "The file dialog could not be shown");
}
}  // namespace

std::optional<std::string> FileDialogsWin::Open(const FileDialogRequest& request) {
    return RunDialog(&GetOpenFileNameA, owner_, request);
}

std::optional<std::string> FileDialogsWin::Save(const FileDialogRequest& request) {
    return RunDialog(&GetSaveFileNameA, owner_, request);
}
