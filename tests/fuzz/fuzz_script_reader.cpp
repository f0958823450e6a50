// The script reader: a fuzzed file loaded through the load command (its
// first-line check, the copy over the working copy, ReadData appending),
// written back and read again over the rows it made.
#include "app/save_load_commands.h"
#include "fuzz_app.h"
#include "script/script_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzApp t;
    t.Put("Scripts\\fuzzed.kwf", BytesText(data, size));
    t.dialogs.answers.push_back(t.Path("Scripts\\fuzzed.kwf"));
    LoadCommand(t.app);
    SaveData(t.app, true);
    ReadData(t.app, "", true);
    return 0;
}
