#include "platform/platform_win.h"

namespace {
HKEY RootKey(RegistryRoot root) { return root == RegistryRoot::LocalMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER; }
}  // namespace

void WinRegistry::SetString(RegistryRoot root, const std::string& subkey, const std::string& name,
                            const std::string& data) {
    HKEY key;
    if (RegCreateKeyA(RootKey(root), subkey.c_str(), &key) != ERROR_SUCCESS) return;
    // The size is the text's length without its terminating zero.
    RegSetValueExA(key, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(data.c_str()),
                   static_cast<DWORD>(data.size()));
    RegCloseKey(key);
}

void WinRegistry::DeleteValue(RegistryRoot root, const std::string& subkey, const std::string& name) {
    HKEY key;
    if (RegOpenKeyA(RootKey(root), subkey.c_str(), &key) != ERROR_SUCCESS) return;
    RegDeleteValueA(key, name.c_str());
    RegCloseKey(key);
}
