#include "core/vocabulary.h"

#include <cctype>

const std::array<const char*, kColumnCount> kColumnHeaders = {"#", "X", "Y", "Button", "Additional",
                                                            "Mins", "Secs", "Repeat"};

const std::array<const char*, 9> kClickActions = {
    "No Click",  "Left Click",     "Left DblClick", "Left Down", "Left Up",
    "Right Click", "Right DblClick", "Right Down",    "Right Up",
};

const std::array<WindowCommand, 6> kWindowCommands = {{
    {"%winfoc", WindowAction::Focus, "Bring window to focus (front)"},
    {"%winmin", WindowAction::Minimise, "Minimize"},
    {"%winmax", WindowAction::Maximise, "Maximize"},
    {"%winrest", WindowAction::Restore, "Restore"},
    {"%winmov", WindowAction::Move, "Move/Size (see Help file)"},
    {"%winclose", WindowAction::Close, "Close"},
}};

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

struct LetterKey {
    char letter;
    std::uint8_t key;
    // The key's name in the editor's reference and the press/release check;
    // Caps Lock needs no release and has none.
    const char* name;
};

// Every command letter but "f" with the virtual key it presses.
constexpr LetterKey kCommandLetters[] = {
    {'a', 18, "Alt"},        {'c', 17, "Ctrl"},        {'e', 27, "Escape"},       {'r', 13, "Return"},
    {'s', 16, "Shift"},      {'t', 9, "Tab"},          {'d', 46, "Delete"},       {'l', 20, nullptr},
    {'b', 8, "Backspace"},   {'n', 35, "End"},         {'h', 36, "Home"},         {'u', 33, "Page Up"},
    {'j', 34, "Page Down"},  {';', 38, "Up Arrow"},    {'.', 40, "Down Arrow"},   {',', 37, "Left Arrow"},
    {'/', 39, "Right Arrow"}, {'w', 91, "Windows Key"},
};

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

bool IsCommandLetter(char character) {
    char lowered = static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
    return lowered == 'f' || (lowered != '\0' && CommandKey(lowered) != 0);
}

std::uint8_t CommandKey(char letter) {
    for (const LetterKey& entry : kCommandLetters) {
        if (entry.letter == letter) return entry.key;
    }
    return 0;
}

char CommandLetterOfKey(int virtualKey) {
    for (const LetterKey& entry : kCommandLetters) {
        if (entry.key == virtualKey) return entry.letter;
    }
    return '\0';
}

std::vector<NamedLetter> NamedCommandLetters() {
    std::vector<NamedLetter> letters;
    for (const LetterKey& entry : kCommandLetters) {
        if (entry.name) letters.push_back({entry.letter, entry.name});
    }
    return letters;
}
