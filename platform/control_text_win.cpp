#include "platform/control_text_win.h"

#include <algorithm>

std::string WindowTextOf(HWND window) {
    int length = GetWindowTextLengthA(window);
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    int copied = GetWindowTextA(window, text.data(), length + 1);
    text.resize(static_cast<std::size_t>(std::max(copied, 0)));
    return text;
}

std::string ComboChoice(HWND combo) {
    LRESULT index = SendMessageA(combo, CB_GETCURSEL, 0, 0);
    if (index == CB_ERR) return "";
    LRESULT length = SendMessageA(combo, CB_GETLBTEXTLEN, static_cast<WPARAM>(index), 0);
    if (length == CB_ERR) return "";
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    SendMessageA(combo, CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}
