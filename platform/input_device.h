#pragma once
// Input synthesis and key state, one call per Windows function the program uses.
#include <cstdint>

struct Point {
    int x = 0;
    int y = 0;
    bool operator==(const Point&) const = default;
};

class InputDevice {
public:
    virtual ~InputDevice() = default;
    virtual void KeybdEvent(std::uint8_t virtualKey, std::uint8_t scanCode, std::uint32_t flags) = 0;
    // Types one character of the user's ANSI code page as Unicode input (a
    // key down and up that carry the character itself, not a key of the
    // layout); a byte the code page cannot convert types nothing.
    virtual void SendUnicodeChar(char character) = 0;
    virtual void MouseEvent(std::uint32_t flags, int dx, int dy) = 0;
    virtual void SetCursorPos(int x, int y) = 0;
    virtual Point GetCursorPos() = 0;
    virtual int GetSystemMetrics(int index) = 0;
    // Non-zero when the key is down now or was pressed since the last query.
    virtual std::int16_t GetAsyncKeyState(int virtualKey) = 0;
    virtual std::int16_t VkKeyScan(char character) = 0;
    virtual unsigned GetDoubleClickTime() = 0;
};

// The key is down now. The low bit of GetAsyncKeyState ("pressed since the
// last call") would also report a press that ended long before, while no
// timer was asking.
inline bool IsKeyDown(InputDevice& input, int virtualKey) {
    return (input.GetAsyncKeyState(virtualKey) & 0x8000) != 0;
}
