#pragma once
#include <string>

enum class RegistryRoot { CurrentUser, LocalMachine };

// Failures are not reported: a refused write leaves the entry as it was.
class Registry {
public:
    virtual ~Registry() = default;
    virtual void SetString(RegistryRoot root, const std::string& subkey, const std::string& name,
                           const std::string& data) = 0;
    virtual void DeleteValue(RegistryRoot root, const std::string& subkey, const std::string& name) = 0;
};
