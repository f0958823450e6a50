// The hint file: a fuzzed "\DYK.dat" shown at random, then stepped through
// forward and back past both ends.
#include <fuzzer/FuzzedDataProvider.h>

#include "app/hints.h"
#include "fuzz_app.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    FuzzApp t;
    double draw = input.ConsumeProbability<double>();
    t.app.drawRandom = [draw] { return draw; };
    int steps = input.ConsumeIntegralInRange(0, 2);
    t.Put("DYK.dat", input.ConsumeRemainingBytesAsString());
    ShowHintPanel(t.app);
    for (int i = 0; i < steps; ++i) NextHint(t.app);
    for (int i = 0; i < 2 * steps; ++i) PreviousHint(t.app);
    return 0;
}
