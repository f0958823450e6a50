// The command line: the arguments after the program's name, split into the
// script path and the switches.
#include <cstdlib>

#include "app/startup.h"
#include "fuzz_app.h"
#include "platform/program_arguments.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CommandLine line = SplitCommandLine(ArgumentsAfterProgramName(BytesText(data, size)));
    // The path ends before the first switch.
    if (line.path.find(" /") != std::string::npos) std::abort();
    return 0;
}
