#pragma once
#include <cstdint>
#include <string>

class Shell {
public:
    virtual ~Shell() = default;
    // ShellExecuteA with the verb "open"; returns the call's result (> 32 on success).
    virtual std::intptr_t Open(const std::string& file, const std::string& parameters,
                               const std::string& directory, int showCommand) = 0;
};
