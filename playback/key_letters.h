#pragma once
// The keystroke-text language's vocabulary: command letters and the keys
// they name, the characters typed with Shift, and the recorder's reverse map.
#include <cstdint>
#include <string>

inline constexpr std::uint8_t kVkShift = 16;
inline constexpr std::uint8_t kVkCapsLock = 20;
// "%f" plays virtual key 111 plus the digit that follows (F1 = 112).
inline constexpr std::uint8_t kVkFunctionBase = 111;

// The 47 characters of a US layout that need Shift, in table order.
inline constexpr const char* kShiftedCharacters =
    "~!@#$%^&*()_+QWERTYUIOP{}|ASDFGHJKL:\"ZXCVBNM<>?";

// True for the 19 command letters, in any case.
bool IsCommandLetter(char character);
// The virtual key of a lower-case command letter other than "f"; 0 for none.
std::uint8_t CommandKey(char letter);
// A captured key event as keystroke text ("%c", "$c", "a", "%F5", or "").
std::string KeyToText(int virtualKey, bool isDown);
