#pragma once
// GetOpenFileNameA / GetSaveFileNameA behind the FileDialogs view.
#include "core/file_dialogs.h"
#include "platform/win32.h"

class FileDialogsWin : public FileDialogs {
public:
    // The window that owns the dialogs: the main window once it exists.
    void SetOwner(HWND owner) { owner_ = owner; }
    std::optional<std::string> Open(const FileDialogRequest& request) override;
    std::optional<std::string> Save(const FileDialogRequest& request) override;

private:
    HWND owner_ = nullptr;
};
