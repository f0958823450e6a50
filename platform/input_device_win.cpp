#include "platform/platform_win.h"

void WinInput::KeybdEvent(std::uint8_t virtualKey, std::uint8_t scanCode, std::uint32_t flags) {
    keybd_event(virtualKey, scanCode, flags, 0);
}

void WinInput::SendUnicodeChar(char character) {
    wchar_t unicode = 0;
    if (MultiByteToWideChar(CP_ACP, 0, &character, 1, &unicode, 1) != 1) return;
    INPUT strokes[2]{};
    for (INPUT& stroke : strokes) {
        stroke.type = INPUT_KEYBOARD;
        stroke.ki.wScan = unicode;
        stroke.ki.dwFlags = KEYEVENTF_UNICODE;
    }
    strokes[1].ki.dwFlags |= KEYEVENTF_KEYUP;
    SendInput(2, strokes, sizeof(INPUT));
}

void WinInput::MouseEvent(std::uint32_t flags, int dx, int dy) {
    mouse_event(flags, static_cast<DWORD>(dx), static_cast<DWORD>(dy), 0, 0);
}

void WinInput::SetCursorPos(int x, int y) { ::SetCursorPos(x, y); }

Point WinInput::GetCursorPos() {
    POINT point{};
    ::GetCursorPos(&point);
    return {point.x, point.y};
}

int WinInput::GetSystemMetrics(int index) { return ::GetSystemMetrics(index); }

std::int16_t WinInput::GetAsyncKeyState(int virtualKey) { return ::GetAsyncKeyState(virtualKey); }

std::int16_t WinInput::VkKeyScan(char character) { return ::VkKeyScanA(character); }

unsigned WinInput::GetDoubleClickTime() { return ::GetDoubleClickTime(); }
