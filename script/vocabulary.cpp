#include "script/vocabulary.h"

#include "script/basic_text.h"

const std::array<const char*, 9> kClickActions = {
    "No Click",  "Left Click",     "Left DblClick", "Left Down", "Left Up",
    "Right Click", "Right DblClick", "Right Down",    "Right Up",
};

namespace {

struct StopKey {
    std::int16_t code;
    const char* name;
};

// F6 (117) is missing and F10 (121) present on purpose: scripts and settings
// written by earlier versions depend on exactly this table.
constexpr StopKey kStopKeys[] = {
    {27, "ESCAPE"}, {112, "F1"}, {113, "F2"}, {114, "F3"}, {115, "F4"},
    {116, "F5"},    {118, "F7"}, {119, "F8"}, {120, "F9"}, {121, "F10"},
};

constexpr int kStopKeyChoiceCount = 9;  // "F1" to "F9" after "ESCAPE"

}  // namespace

std::string StopKeyName(std::int16_t code) {
    for (const StopKey& key : kStopKeys) {
        if (key.code == code) return key.name;
    }
    return "";
}

std::int16_t StopKeyCodeOf(const std::string& name) {
    for (const StopKey& key : kStopKeys) {
        if (name == key.name) return key.code;
    }
    return 0;
}

std::vector<std::string> StopKeyChoices() {
    std::vector<std::string> choices{"ESCAPE"};
    for (int number = 1; number <= kStopKeyChoiceCount; ++number) choices.push_back(std::string("F").append(std::to_string(number)));
    return choices;
}

std::vector<std::string> CommandLetterList() { return Split("a c e r s t d b n h u j ; . , / w", " "); }

std::vector<std::string> KeyNameList() {
    return Split("Alt,Ctrl,Escape,Return,Shift,Tab,Delete,Backspace,End,Home,Page Up,Page Down,"
                 "Up Arrow,Down Arrow,Left Arrow,Right Arrow,Windows Key",
                 ",");
}

std::vector<std::string> WindowCommandList() {
    return Split("%winfoc,%winmin,%winmax,%winrest,%winmov,%winclose", ",");
}
