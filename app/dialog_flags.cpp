#include "app/dialog_flags.h"

#include "core/app.h"
#include "core/basic_text.h"
#include "core/error_log.h"
#include "platform/win_constants.h"

namespace {

// A hook or template would need code the program does not have.
unsigned CleanExtraFlags(unsigned extra) { return extra & ~(win::kOfnEnableHook | win::kOfnEnableTemplate); }

// The system wants the bare extension ("kwf"); the commands name a pattern.
std::string BareExtension(const std::string& pattern) {
    std::string extension = pattern;
    if (StartsWith(extension, "*")) extension.erase(0, 1);
    if (StartsWith(extension, ".")) extension.erase(0, 1);
    return extension;
}

FileDialogRequest Request(const DialogOptions& options, unsigned flags) {
    FileDialogRequest request;
    request.title = options.title;
    request.filter = ZeroSeparatedFilter(options.filter);
    request.filterIndex = options.filterIndex;
    request.initialFolder = options.initialFolder;
    request.defaultExtension = BareExtension(options.defaultExtension);
    request.fileName = options.fileName;
    request.flags = flags;
    request.bufferSize = FileNameBufferSize(flags);
    return request;
}

std::optional<std::string> Confirmed(std::optional<std::string> chosen) {
    if (chosen && chosen->empty()) return std::nullopt;
    return chosen;
}

}  // namespace

unsigned OpenDialogFlags(const DialogOptions& options) {
    unsigned flags = 0;
    if (options.fileMustExist) flags |= win::kOfnFileMustExist;
    if (options.multiSelect) flags |= win::kOfnAllowMultiSelect;
    if (options.readOnlyChecked) flags |= win::kOfnReadOnly;
    if (options.hideReadOnly) flags |= win::kOfnHideReadOnly;
    return flags | CleanExtraFlags(options.extraFlags);
}

unsigned SaveDialogFlags(const DialogOptions& options) {
    unsigned flags = win::kOfnHideReadOnly;
    if (options.overwritePrompt) flags |= win::kOfnOverwritePrompt;
    return flags | CleanExtraFlags(options.extraFlags);
}

std::string ZeroSeparatedFilter(const std::string& filter) {
    std::string converted = filter;
    for (char& c : converted) {
        if (c == '|') c = '\0';
    }
    return converted;
}

std::size_t FileNameBufferSize(unsigned flags) {
    return (flags & win::kOfnAllowMultiSelect) ? kMultiSelectBuffer : kFileNameBuffer;
}

FileDialogRequest OpenRequest(const DialogOptions& options) { return Request(options, OpenDialogFlags(options)); }

FileDialogRequest SaveRequest(const DialogOptions& options) { return Request(options, SaveDialogFlags(options)); }

std::optional<std::string> LoadDLG(App& app, const DialogOptions& options) {
    std::optional<std::string> chosen;
    Trapped(app, "LoadDLG", [&] { chosen = app.ui.dialogs.Open(OpenRequest(options)); });
    return Confirmed(chosen);
}

std::optional<std::string> SaveDLG(App& app, const DialogOptions& options) {
    std::optional<std::string> chosen;
    Trapped(app, "SaveDLG", [&] { chosen = app.ui.dialogs.Save(SaveRequest(options)); });
    return Confirmed(chosen);
}
