#pragma once
// LoadDLG and SaveDLG: the open and save dialogs as the commands ask for
// them, turned into the request the system call takes.
#include <optional>
#include <string>

#include "core/file_dialogs.h"

struct App;

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
