#include "playback/key_letters.h"

#include <cctype>

#include "core/vocabulary.h"
#include "platform/win_constants.h"

namespace {

bool IsFunctionKey(int virtualKey) { return virtualKey >= win::kVkF1 && virtualKey <= win::kVkF12; }

// Tab plays as "t" but is recorded as its own character at its release.
std::string KeyName(int virtualKey) {
    if (IsFunctionKey(virtualKey)) return "F" + std::to_string(virtualKey - win::kVkF1 + 1);
    if (virtualKey == win::kVkTab) return "";
    char letter = CommandLetterOfKey(virtualKey);
    return letter ? std::string(1, letter) : std::string();
}

}  // namespace

std::string KeyToText(int virtualKey, bool isDown) {
    // Caps Lock and the function keys are whole presses at their key-down.
    if (!isDown && (virtualKey == win::kVkCapital || IsFunctionKey(virtualKey))) return "";
    std::string name = KeyName(virtualKey);
    if (!name.empty()) return std::string(1, isDown ? '%' : '$').append(name);
    if (isDown) return "";
    return std::string(1, static_cast<char>(std::tolower(static_cast<unsigned char>(virtualKey))));
}
