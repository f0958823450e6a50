// Window commands: a fuzzed command text with fuzzed step coordinates, run
// over a few windows, one of them in front.
#include <fuzzer/FuzzedDataProvider.h>

#include "fuzz_app.h"
#include "playback/window_command.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    FuzzApp t;
    t.windows.titles = {{7, "Calculator"}, {8, "Untitled - Editor"}, {9, ""}};
    // Rectangles as large as a desktop of several monitors, or turned inside out.
    for (WindowHandle window : {7, 8, 9}) {
        auto edge = [&] { return input.ConsumeIntegralInRange(-100000, 100000); };
        t.windows.rects[window] = {edge(), edge(), edge(), edge()};
    }
    t.windows.foreground = input.ConsumeIntegralInRange(0, 9);
    int x = input.ConsumeIntegral<int>();
    int y = input.ConsumeIntegral<int>();
    std::string text = input.ConsumeRemainingBytesAsString();
    UnderCallersTrap([&] { WinCommand(t.app, text, x, y); });
    return 0;
}
