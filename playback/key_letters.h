#pragma once
// The keys of keystroke text that the command letters do not cover: the
// characters typed with Shift, and the recorder's map from keys to text.
#include <string>

// The 47 characters of a US layout that need Shift, in table order.
inline constexpr const char* kShiftedCharacters =
    "~!@#$%^&*()_+QWERTYUIOP{}|ASDFGHJKL:\"ZXCVBNM<>?";

// A captured key event as keystroke text ("%c", "$c", "a", "%F5", or "").
std::string KeyToText(int virtualKey, bool isDown);
