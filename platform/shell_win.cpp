#include "platform/platform_win.h"

#include <shellapi.h>

std::intptr_t WinShell::Open(const std::string& file, const std::string& parameters, const std::string& directory,
                             int showCommand) {
    HINSTANCE result = ShellExecuteA(nullptr, "open", file.c_str(), parameters.c_str(), directory.c_str(), showCommand);
    return reinterpret_cast<std::intptr_t>(result);
}
