#include "playback/key_letters.h"

#include <array>
#include <cctype>
#include <cstring>

namespace {

struct Letter {
    char letter;
    std::uint8_t key;
};

// Every command letter with its key; "f" (function keys) is computed.
constexpr std::array<Letter, 18> kLetters{{
    {'a', 18}, {'c', 17}, {'e', 27}, {'r', 13}, {'s', 16}, {'t', 9},  {'d', 46}, {'l', 20}, {'b', 8},
    {'n', 35}, {'h', 36}, {'u', 33}, {'j', 34}, {';', 38}, {'.', 40}, {',', 37}, {'/', 39}, {'w', 91},
}};

char LowerChar(char character) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
}

// Tab plays as "t" but is recorded as its own character at its release.
std::string KeyName(int virtualKey) {
    if (virtualKey >= 112 && virtualKey <= 123) return "F" + std::to_string(virtualKey - kVkFunctionBase);
    if (virtualKey == 9) return "";
    for (const Letter& entry : kLetters) {
        if (entry.key == virtualKey) return std::string(1, entry.letter);
    }
    return "";
}

bool IsFullPressKey(int virtualKey) { return virtualKey == kVkCapsLock || (virtualKey >= 112 && virtualKey <= 123); }

}  // namespace

bool IsCommandLetter(char character) {
    char lowered = LowerChar(character);
    return lowered != '\0' && std::strchr("acerstdlbnhuj;.,/fw", lowered) != nullptr;
}

std::uint8_t CommandKey(char letter) {
    for (const Letter& entry : kLetters) {
        if (entry.letter == letter) return entry.key;
    }
    return 0;
}

std::string KeyToText(int virtualKey, bool isDown) {
    // Caps Lock and the function keys are whole presses at their key-down.
    if (!isDown && IsFullPressKey(virtualKey)) return "";
    std::string name = KeyName(virtualKey);
    if (!name.empty()) return (isDown ? "%" : "$") + name;
    if (isDown) return "";
    return std::string(1, LowerChar(static_cast<char>(virtualKey)));
}
