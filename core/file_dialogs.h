#pragma once
// The system's open and save dialogs as the behaviour sees them. The request
// is already in the form the system call takes (see app/dialog_flags.h).
#include <cstddef>
#include <optional>
#include <string>

struct FileDialogRequest {
    std::string title;
    std::string filter;  // description and pattern pairs, each ended by a zero character
    int filterIndex = 1;  // 1 = first pair
    std::string initialFolder;
    std::string defaultExtension;  // without the dot: "kwf"
    std::string fileName;          // proposed name, may be empty
    unsigned flags = 0;            // OPENFILENAME flags
    std::size_t bufferSize = 260;  // characters for the chosen name
};

class FileDialogs {
public:
    virtual ~FileDialogs() = default;
    // The chosen full path, or nothing when the user cancelled. A dialog that
    // fails to open raises RuntimeError.
    virtual std::optional<std::string> Open(const FileDialogRequest& request) = 0;
    virtual std::optional<std::string> Save(const FileDialogRequest& request) = 0;
};
