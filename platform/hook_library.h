#pragma once
// The recorder's hook library "InHook.dll": loaded once, its two hooks
// installed for every thread of the desktop while a recording runs.
#include <cstdint>
#include <optional>
#include <string>

#include "platform/window_system.h"

using HookHandle = std::uintptr_t;

enum class HookKind { Mouse, Keyboard };

class HookLibrary {
public:
    virtual ~HookLibrary() = default;
    // LoadLibraryA; false when the library is missing or cannot be loaded.
    virtual bool Load(const std::string& path) = 0;
    // SetWindowsHookExA with the library's "MouseProc" or "KeyProc"; empty
    // when the library does not export it, the call's result (0 when it
    // failed) otherwise.
    virtual std::optional<HookHandle> Install(HookKind kind) = 0;
    // Calls "InitMouse" or "InitKeys" with the receiver and the hook; false
    // when the library does not export it.
    virtual bool Init(HookKind kind, WindowHandle receiver, HookHandle hook) = 0;
    // UnhookWindowsHookEx; the system refuses 0 without harm.
    virtual void Remove(HookHandle hook) = 0;
    // FreeLibrary.
    virtual void Free() = 0;
};
