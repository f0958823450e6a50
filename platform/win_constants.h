#pragma once
// The values of the Windows constants that portable code passes through the
// platform seams, named as the system headers name them. Portable code cannot
// include <windows.h>; the Windows build checks them against it (all but
// HWND_BOTTOM and HWND_NOTOPMOST, which are pointers, and the class mask,
// which has no name there).
#include <cstdint>

namespace win {

// ShowWindow and ShellExecuteA show commands.
inline constexpr int kSwShowNormal = 1;
inline constexpr int kSwShowMaximized = 3;
inline constexpr int kSwShow = 5;
inline constexpr int kSwMinimize = 6;
inline constexpr int kSwRestore = 9;

inline constexpr unsigned kWmClose = 0x0010;
inline constexpr std::uintptr_t kHwndBottom = 1;
inline constexpr std::uintptr_t kHwndNoTopmost = static_cast<std::uintptr_t>(-2);

// SetWindowPos flags.
inline constexpr unsigned kSwpNoSize = 0x0001;
inline constexpr unsigned kSwpNoMove = 0x0002;

// keybd_event flags.
inline constexpr std::uint32_t kKeyEventKeyUp = 0x0002;

// mouse_event flags.
inline constexpr std::uint32_t kMouseMove = 0x0001;
inline constexpr std::uint32_t kMouseLeftDown = 0x0002;
inline constexpr std::uint32_t kMouseLeftUp = 0x0004;
inline constexpr std::uint32_t kMouseRightDown = 0x0008;
inline constexpr std::uint32_t kMouseRightUp = 0x0010;
inline constexpr std::uint32_t kMouseVirtualDesk = 0x4000;
inline constexpr std::uint32_t kMouseAbsolute = 0x8000;

// GetSystemMetrics indexes.
inline constexpr int kSmCxScreen = 0;
inline constexpr int kSmCyScreen = 1;
inline constexpr int kSmXVirtualScreen = 76;
inline constexpr int kSmYVirtualScreen = 77;
inline constexpr int kSmCxVirtualScreen = 78;
inline constexpr int kSmCyVirtualScreen = 79;

// Virtual keys.
inline constexpr std::uint8_t kVkTab = 0x09;
inline constexpr std::uint8_t kVkReturn = 0x0D;
inline constexpr std::uint8_t kVkShift = 0x10;
inline constexpr std::uint8_t kVkCapital = 0x14;
inline constexpr std::uint8_t kVkEscape = 0x1B;
inline constexpr std::uint8_t kVkF1 = 0x70;
inline constexpr std::uint8_t kVkF10 = 0x79;
inline constexpr std::uint8_t kVkF11 = 0x7A;
inline constexpr std::uint8_t kVkF12 = 0x7B;

// OPENFILENAME flags.
inline constexpr unsigned kOfnReadOnly = 0x00000001;
inline constexpr unsigned kOfnOverwritePrompt = 0x00000002;
inline constexpr unsigned kOfnHideReadOnly = 0x00000004;
inline constexpr unsigned kOfnEnableHook = 0x00000020;
inline constexpr unsigned kOfnEnableTemplate = 0x00000040;
inline constexpr unsigned kOfnAllowMultiSelect = 0x00000200;
inline constexpr unsigned kOfnFileMustExist = 0x00001000;

// InternetOpenUrlA flags.
inline constexpr std::uint32_t kInternetFlagReload = 0x80000000;
inline constexpr std::uint32_t kInternetFlagExistingConnect = 0x20000000;

// InitCommonControlsEx: the structure's size and every control class.
inline constexpr unsigned kInitCommonControlsExSize = 8;
inline constexpr unsigned kIccAllClasses = 0x1FFF;

}  // namespace win
