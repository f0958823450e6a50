// Keystroke text: fuzzed texts typed one after the other (a "%" or "$" left
// pending carries over to the next), and key codes written back as text.
#include <fuzzer/FuzzedDataProvider.h>

#include "fuzz_app.h"
#include "playback/key_letters.h"
#include "playback/key_sender.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    FuzzApp t;
    while (input.remaining_bytes() > 0) {
        int virtualKey = input.ConsumeIntegral<std::uint8_t>();
        KeyToText(virtualKey, input.ConsumeBool());
        std::string text = input.ConsumeRandomLengthString(256);
        if (!text.empty()) TypeKeyText(t.app, text);
    }
    return 0;
}
