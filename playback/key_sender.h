#pragma once
#include <cstddef>
#include <string>

struct App;

// Types one whole keystroke text into the window that has the focus.
void TypeKeyText(App& app, const std::string& text);
// Handles the character at the 1-based `position`; may advance `position`
// past a character it consumed (the digit of "%f1").
void KeySend(App& app, const std::string& text, std::size_t& position);
