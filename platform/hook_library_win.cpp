#include "platform/hook_library_win.h"

namespace {

struct KindNames {
    int hookType;
    const char* procedure;
    const char* init;
};

KindNames NamesOf(HookKind kind) {
    if (kind == HookKind::Mouse) return {WH_MOUSE, "MouseProc", "InitMouse"};
    return {WH_KEYBOARD, "KeyProc", "InitKeys"};
}

using InitProc = void(__stdcall*)(HWND, HHOOK);

}  // namespace

bool WinHookLibrary::Load(const std::string& path) {
    library_ = LoadLibraryA(path.c_str());
    return library_ != nullptr;
}

std::optional<HookHandle> WinHookLibrary::Install(HookKind kind) {
    KindNames names = NamesOf(kind);
    auto procedure = reinterpret_cast<HOOKPROC>(reinterpret_cast<void*>(GetProcAddress(library_, names.procedure)));
    if (!procedure) return std::nullopt;
    return reinterpret_cast<HookHandle>(SetWindowsHookExA(names.hookType, procedure, library_, 0));
}

bool WinHookLibrary::Init(HookKind kind, WindowHandle receiver, HookHandle hook) {
    auto init = reinterpret_cast<InitProc>(reinterpret_cast<void*>(GetProcAddress(library_, NamesOf(kind).init)));
    if (!init) return false;
    init(reinterpret_cast<HWND>(receiver), reinterpret_cast<HHOOK>(hook));
    return true;
}

void WinHookLibrary::Remove(HookHandle hook) { UnhookWindowsHookEx(reinterpret_cast<HHOOK>(hook)); }

void WinHookLibrary::Free() {
    if (library_) FreeLibrary(library_);
    library_ = nullptr;
}
