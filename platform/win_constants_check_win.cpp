// The named constants of portable code hold the system headers' values.
#include "platform/win_constants.h"
#include "platform/win32.h"

#include <commctrl.h>
#include <commdlg.h>
#include <wininet.h>

static_assert(win::kSwShowNormal == SW_SHOWNORMAL && win::kSwShowMaximized == SW_SHOWMAXIMIZED);
static_assert(win::kSwShow == SW_SHOW && win::kSwMinimize == SW_MINIMIZE && win::kSwRestore == SW_RESTORE);
static_assert(win::kWmClose == WM_CLOSE);
static_assert(win::kSwpNoSize == SWP_NOSIZE && win::kSwpNoMove == SWP_NOMOVE);
static_assert(win::kKeyEventKeyUp == KEYEVENTF_KEYUP);
static_assert(win::kMouseMove == MOUSEEVENTF_MOVE && win::kMouseAbsolute == MOUSEEVENTF_ABSOLUTE);
static_assert(win::kMouseLeftDown == MOUSEEVENTF_LEFTDOWN && win::kMouseLeftUp == MOUSEEVENTF_LEFTUP);
static_assert(win::kMouseRightDown == MOUSEEVENTF_RIGHTDOWN && win::kMouseRightUp == MOUSEEVENTF_RIGHTUP);
static_assert(win::kMouseVirtualDesk == MOUSEEVENTF_VIRTUALDESK);
static_assert(win::kSmCxScreen == SM_CXSCREEN && win::kSmCyScreen == SM_CYSCREEN);
static_assert(win::kSmXVirtualScreen == SM_XVIRTUALSCREEN && win::kSmYVirtualScreen == SM_YVIRTUALSCREEN);
static_assert(win::kSmCxVirtualScreen == SM_CXVIRTUALSCREEN && win::kSmCyVirtualScreen == SM_CYVIRTUALSCREEN);
static_assert(win::kVkTab == VK_TAB && win::kVkReturn == VK_RETURN && win::kVkShift == VK_SHIFT);
static_assert(win::kVkCapital == VK_CAPITAL && win::kVkEscape == VK_ESCAPE && win::kVkF1 == VK_F1);
static_assert(win::kVkF10 == VK_F10 && win::kVkF11 == VK_F11 && win::kVkF12 == VK_F12);
static_assert(win::kOfnReadOnly == OFN_READONLY && win::kOfnOverwritePrompt == OFN_OVERWRITEPROMPT);
static_assert(win::kOfnHideReadOnly == OFN_HIDEREADONLY && win::kOfnEnableHook == OFN_ENABLEHOOK);
static_assert(win::kOfnEnableTemplate == OFN_ENABLETEMPLATE && win::kOfnAllowMultiSelect == OFN_ALLOWMULTISELECT);
static_assert(win::kOfnFileMustExist == OFN_FILEMUSTEXIST);
static_assert(win::kInternetFlagReload == INTERNET_FLAG_RELOAD);
static_assert(win::kInternetFlagExistingConnect == INTERNET_FLAG_EXISTING_CONNECT);
static_assert(win::kInitCommonControlsExSize == sizeof(INITCOMMONCONTROLSEX));
