// Random values: a fuzzed cell text evaluated as the playback loop evaluates
// it, with a fuzzed draw and decimal separator.
#include <fuzzer/FuzzedDataProvider.h>

#include "fuzz_app.h"
#include "playback/random_value.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    FuzzApp t;
    double draw = input.ConsumeProbability<double>();
    t.app.drawRandom = [draw] { return draw; };
    t.app.decimalSeparator = input.ConsumeBool() ? ',' : '.';
    int step = input.ConsumeIntegral<int>();
    std::string text = input.ConsumeRemainingBytesAsString();
    UnderCallersTrap([&] { RndNumber(t.app, text, step); });
    return 0;
}
