#pragma once
#include "platform/hook_library.h"
#include "platform/win32.h"

class WinHookLibrary : public HookLibrary {
public:
    bool Load(const std::string& path) override;
    std::optional<HookHandle> Install(HookKind kind) override;
    bool Init(HookKind kind, WindowHandle receiver, HookHandle hook) override;
    void Remove(HookHandle hook) override;
    void Free() override;

private:
    HMODULE library_ = nullptr;
};
