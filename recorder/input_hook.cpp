#include "recorder/input_hook.h"

#include "core/app.h"
#include "core/runtime_error.h"

namespace {

constexpr int kDllEntryPointMissing = 453;

void StartHook(App& app, HookKind kind, HookHandle& stored, const char* init) {
    std::optional<HookHandle> hook = app.os.hooks.Install(kind);
    if (!hook) return;
    stored = *hook;
    if (!app.os.hooks.Init(kind, app.ui.main.ReceiverHandle(), *hook)) {
        throw RuntimeError(kDllEntryPointMissing, std::string("Can't find DLL entry point ") + init + " in InHook.dll");
    }
}

}  // namespace

void LoadHookLibrary(App& app) {
    app.hookLibraryLoaded = app.os.hooks.Load(app.programFolder + "\\InHook.dll");
    if (!app.hookLibraryLoaded) app.ui.main.SetEnabled(Control::Record, false);
}

void StartHooks(App& app) {
    StartHook(app, HookKind::Mouse, app.recorder.mouseHook, "InitMouse");
    StartHook(app, HookKind::Keyboard, app.recorder.keyHook, "InitKeys");
}

void StopHooks(App& app) {
    app.os.hooks.Remove(app.recorder.keyHook);
    app.os.hooks.Remove(app.recorder.mouseHook);
}

void ReleaseHookLibrary(App& app) {
    app.os.hooks.Remove(app.recorder.mouseHook);
    app.os.hooks.Remove(app.recorder.keyHook);
    app.os.hooks.Free();
}
