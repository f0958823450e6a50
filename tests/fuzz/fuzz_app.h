#pragma once
// What the fuzz targets share: a whole App over the test fakes, made afresh
// for every input (so that no input sees the files or the state another one
// left), its files in memory, and the main window's timers wired to their
// handlers as the real window wires them.
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "app/main_timers.h"
#include "core/runtime_error.h"
#include "fakes/test_app.h"

inline std::string BytesText(const std::uint8_t* data, std::size_t size) {
    return std::string(reinterpret_cast<const char*>(data), size);
}

// Runs a procedure that has no error trap of its own as its callers run it:
// the program's own errors (an overflow, a type mismatch) end in the caller's
// trap, which logs them; anything else escapes and is a finding.
template <typename Procedure>
void UnderCallersTrap(Procedure&& procedure) {
    try {
        procedure();
    } catch (const RuntimeError&) {
    }
}

// Constructed before the TestApp that uses it.
struct InMemory {
    MemoryFiles memory;
};

struct FuzzApp : InMemory, TestApp {
    FuzzApp() : TestApp(memory) {
        CreateMainTimers(app);
        main.onTimer = [this](Timer timer) {
            if (onTick) onTick();
            OnMainTimer(app, timer);
        };
    }
    // A file of the program folder, as the program names it ("Data.dat").
    void Put(const std::string& name, const std::string& data) { memory.WriteAtomically(Path(name), data); }
    // Runs before each timer tick.
    std::function<void()> onTick;
};
