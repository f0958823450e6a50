#pragma once
// The system's open and save dialogs (GetOpenFileNameA, GetSaveFileNameA).
#include "app/file_dialogs.h"
#include "platform/win32.h"

class FileDialogsWin : public FileDialogs {
public:
    void SetOwner(HWND owner) { owner_ = owner; }
    std::optional<std::string> Open(const FileDialogRequest& request) override;
    std::optional<std::string> Save(const FileDialogRequest& request) override;

private:
    HWND owner_ = nullptr;
};
