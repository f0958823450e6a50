// A whole run: a fuzzed script read as the working copy and played with the
// fake clock and input device, under fuzzed settings (repetition, smooth
// pointer, pointer guard, countdown, minimised start, polling waits).
//
// Caps, so that no input runs for ever: every message-loop pass costs one
// millisecond of fake time, and once a run has taken kFakeTimeCapMs of fake
// time or sent kEventCap input events the stop key goes down, as a user would
// press it; the stop timer then ends the run. Waits, repetitions and whole
// passes beyond the caps are therefore cut short, not played out.
#include <fuzzer/FuzzedDataProvider.h>

#include "fuzz_app.h"
#include "playback/playback_loop.h"
#include "playback/waits.h"
#include "script/script_file.h"

namespace {
constexpr double kFakeTimeCapMs = 500;
constexpr std::size_t kEventCap = 20000;
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    FuzzApp t;
    SettingValues& settings = t.app.settings;
    settings.repeatState = input.ConsumeBool() ? "1" : "0";
    settings.smoothPointer = input.ConsumeBool();
    settings.mouseSaver = input.ConsumeBool();
    settings.showCount = input.ConsumeBool();
    settings.startMin = input.ConsumeBool();
    if (input.ConsumeBool()) t.app.osName = kWindows95Name;  // no waitable timers: the waits poll
    t.main.panels[5] = "0";
    t.clock.yieldCostMs = 1;
    t.onTick = [&t] {
        if (t.clock.nowMs > kFakeTimeCapMs || t.input.events.size() > kEventCap) {
            t.input.pressedKeys.insert(t.app.stopKeyCode);
        }
    };
    t.Put("Data.dat", input.ConsumeRemainingBytesAsString());
    ReadData(t.app, "", false);
    StartButton(t.app);
    return 0;
}
