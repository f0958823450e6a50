// The settings reader: a fuzzed "\Settings.ini" read at start-up by Init
// (column widths, height, stop key) and LoadSet (every other key).
#include "app/init.h"
#include "fakes/fake_startup.h"
#include "fuzz_app.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzApp t;
    FakeStartupServices services(t.app);
    t.Put("Settings.ini", BytesText(data, size));
    Init(t.app, true, services);
    return 0;
}
