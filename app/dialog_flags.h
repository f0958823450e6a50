#pragma once
// LoadDLG and SaveDLG: the open and save dialogs as the commands ask for
// them, turned into the request the system call takes.
#include <optional>
#include <string>

#include "app/file_dialogs.h"

struct App;

namespace dialog_flags {
inline constexpr unsigned kReadOnly = 0x1;
inline constexpr unsigned kOverwritePrompt = 0x2;
inline constexpr unsigned kHideReadOnly = 0x4;
inline constexpr unsigned kEnableHook = 0x20;
inline constexpr unsigned kEnableTemplate = 0x40;
inline constexpr unsigned kAllowMultiSelect = 0x200;
inline constexpr unsigned kFileMustExist = 0x1000;
}  // namespace dialog_flags

inline constexpr std::size_t kFileNameBuffer = 260;
inline constexpr std::size_t kMultiSelectBuffer = 8192;

struct DialogOptions {
    std::string title;
    std::string filter;  // "description|pattern|" pairs
    int filterIndex = 1;
    std::string initialFolder;
    std::string defaultExtension;  // a pattern such as "*.kwf"
    std::string fileName;
    // Open dialog only.
    bool fileMustExist = false;
    bool multiSelect = false;
    bool readOnlyChecked = false;
    bool hideReadOnly = false;
    // Save dialog only.
    bool overwritePrompt = false;
    // ORed in after the hook and template bits are cleared.
    unsigned extraFlags = 0;
};

unsigned OpenDialogFlags(const DialogOptions& options);
unsigned SaveDialogFlags(const DialogOptions& options);
// Every "|" becomes a zero character, as the system expects.
std::string ZeroSeparatedFilter(const std::string& filter);
std::size_t FileNameBufferSize(unsigned flags);
FileDialogRequest OpenRequest(const DialogOptions& options);
FileDialogRequest SaveRequest(const DialogOptions& options);

// Show the dialog through app.ui.dialogs; the chosen path, or nothing when
// the user cancelled or the dialog failed (logged as "LoadDLG" / "SaveDLG").
std::optional<std::string> LoadDLG(App& app, const DialogOptions& options);
std::optional<std::string> SaveDLG(App& app, const DialogOptions& options);
