#include "settings_ui/settings_panel_win.h"

#include <commctrl.h>

#include <algorithm>
#include <cmath>
#include <cstring>

#include "controls/check_glyph_win.h"
#include "platform/dpi_win.h"
#include "platform/twips.h"

namespace {

constexpr const char* kPanelClass = "KlickwerkSettingsPanel";
constexpr const char* kFrameClass = "KlickwerkSettingsOptions";
constexpr const char* kTitle = "Settings";

// fraOptions and its places, in twips.
constexpr double kFrameTop = 60;
// Wide enough for the captions in "MS Sans Serif"; a wider font widens it.
constexpr double kNarrowestFrame = 2700;
constexpr double kInset = 120;
constexpr double kFirstRowTop = 270;
constexpr double kRowHeight = 300;
constexpr double kButtonGap = 75;
constexpr double kButtonHeight = 360;
constexpr double kButtonsTop = kFirstRowTop + kPanelOptions.size() * kRowHeight + 120;
constexpr double kFrameHeight = kButtonsTop + kPanelButtons.size() * (kButtonHeight + kButtonGap) + 75;
constexpr double kPanelHeight = kFrameHeight + 2 * kFrameTop;
// Tool tips wrap at this width.
constexpr double kToolTipWidth = 4500;
constexpr int kFontPoints = 8;

constexpr UINT_PTR kKeepAttachedTimer = 1;
constexpr UINT kKeepAttachedMs = 10;

constexpr int kFirstOptionId = 100;
constexpr int kFirstButtonId = 200;

// The panel's face, drawn in "MS Sans Serif" at the window's DPI.
HFONT CreatePanelFont(int dpi) {
    LOGFONTA font{};
    font.lfHeight = -MulDiv(kFontPoints, dpi, 72);
    font.lfWeight = FW_NORMAL;
    font.lfCharSet = DEFAULT_CHARSET;
    font.lfQuality = DEFAULT_QUALITY;
    lstrcpynA(font.lfFaceName, "MS Sans Serif", LF_FACESIZE);
    return CreateFontIndirectA(&font);
}

// The option's place in the panel; past the end for a key that is no option.
std::size_t OptionIndex(Setting key) {
    std::size_t index = 0;
    while (index < kPanelOptions.size() && kPanelOptions[index].key != key) ++index;
    return index;
}

}  // namespace

bool SettingsPanelWin::OptionsFrame::Create(HWND panel) {
    if (!RegisterWindowClass(kFrameClass, nullptr, reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1))) return false;
    return CreateWindowOfClass(kFrameClass, "", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, WS_EX_CONTROLPARENT, 0, 0,
                               0, 0, panel) != nullptr;
}

LRESULT SettingsPanelWin::OptionsFrame::HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND) return SendMessageA(GetParent(hwnd), message, wParam, lParam);
    return DefWindowProcA(hwnd, message, wParam, lParam);
}

// Not owned by the main window: Wine cannot put a window on top of all
// others while it owns a pop-up that is not on top itself.
bool SettingsPanelWin::Create(HWND mainWindow) {
    if (!RegisterWindowClass(kPanelClass, nullptr, reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1))) return false;
    if (!CreateWindowOfClass(kPanelClass, kTitle, WS_POPUP | WS_CLIPCHILDREN, WS_EX_TOOLWINDOW | WS_EX_CONTROLPARENT,
                             0, 0, 0, 0, nullptr))
        return false;
    if (!frame_.Create(hwnd_)) return false;
    CreateControls();
    CreateToolTips();
    ApplyDpi(WindowDpi(mainWindow));
    return true;
}

void SettingsPanelWin::CreateControls() {
    HWND frame = frame_.Handle();
    group_ = ChildControl(frame, WC_BUTTONA, kTitle, BS_GROUPBOX, 0);
    for (std::size_t i = 0; i < kPanelOptions.size(); ++i) {
        boxes_[i].Create(frame, kFirstOptionId + static_cast<int>(i), kPanelOptions[i].caption);
        Setting key = kPanelOptions[i].key;
        boxes_[i].Events().click = [this, key] {
            if (onOptionClick) onOptionClick(key);
        };
    }
    for (std::size_t i = 0; i < kPanelButtons.size(); ++i)
        buttons_[i].Create(frame, kFirstButtonId + static_cast<int>(i), kPanelButtons[i].caption);
    focus_ = boxes_.front().Handle();
}

// One tool per control, shown while the pointer rests on it.
void SettingsPanelWin::CreateToolTips() {
    tips_ = CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0,
                            0, 0, hwnd_, nullptr, GetModuleHandleA(nullptr), nullptr);
    if (!tips_) {
        ReportLastError("CreateWindowExA");
        return;
    }
    auto add = [this](HWND control, const char* text) {
        if (!*text) return;
        TTTOOLINFOA tool{};
        tool.cbSize = sizeof tool;
        tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
        tool.hwnd = frame_.Handle();
        tool.uId = reinterpret_cast<UINT_PTR>(control);
        tool.lpszText = const_cast<char*>(text);
        SendMessageA(tips_, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
    };
    for (std::size_t i = 0; i < kPanelOptions.size(); ++i) add(boxes_[i].Handle(), kPanelOptions[i].toolTip);
    for (std::size_t i = 0; i < kPanelButtons.size(); ++i) add(buttons_[i].Handle(), kPanelButtons[i].toolTip);
}

int SettingsPanelWin::Px(double twips) const { return TwipsToPixels(twips, dpi_); }

void SettingsPanelWin::ApplyDpi(int dpi) {
    dpi_ = dpi;
    OwnedFont fresh(CreatePanelFont(dpi_));
    auto setFont = [&fresh](HWND window) {
        SendMessageA(window, WM_SETFONT, reinterpret_cast<WPARAM>(fresh.Get()), TRUE);
    };
    setFont(group_);
    for (CheckBoxWin& box : boxes_) setFont(box.Handle());
    for (XpButtonWin& button : buttons_) setFont(button.Handle());
    // The old font goes only now that no control uses it.
    font_ = std::move(fresh);
    frameWidth_ = NeededFrameWidth();
    if (tips_) SendMessageA(tips_, TTM_SETMAXTIPWIDTH, 0, Px(kToolTipWidth));
    Layout();
}

// The widest caption with the glyph before it and room for the focus
// rectangle, as the check box draws them, inside the frame's insets.
double SettingsPanelWin::NeededFrameWidth() const {
    HDC dc = GetDC(hwnd_);
    HGDIOBJ previous = SelectObject(dc, font_.Get());
    int widest = 0;
    for (const PanelOption& option : kPanelOptions) {
        SIZE size{};
        GetTextExtentPoint32A(dc, option.caption, static_cast<int>(strlen(option.caption)), &size);
        widest = std::max(widest, static_cast<int>(size.cx));
    }
    SelectObject(dc, previous);
    ReleaseDC(hwnd_, dc);
    int pixels = CheckGlyphSize(dpi_) + MulDiv(5 + 4, dpi_, 96) + widest;
    return std::max(kNarrowestFrame, std::ceil(PixelsToTwips(pixels, dpi_) + 2 * kInset));
}

void SettingsPanelWin::Layout() {
    SetWidth(frameWidth_ + 2 * kOptionsFrameLeft);
    PlaceChild(frame_.Handle(), Px(frameLeft_), Px(kFrameTop), Px(frameWidth_), Px(kFrameHeight));
    PlaceChild(group_, 0, 0, Px(frameWidth_), Px(kFrameHeight));
    const int width = Px(frameWidth_ - 2 * kInset);
    double top = kFirstRowTop;
    for (CheckBoxWin& box : boxes_) {
        PlaceChild(box.Handle(), Px(kInset), Px(top), width, Px(kRowHeight));
        top += kRowHeight;
    }
    top = kButtonsTop;
    for (XpButtonWin& button : buttons_) {
        PlaceChild(button.Handle(), Px(kInset), Px(top), width, Px(kButtonHeight));
        top += kButtonHeight + kButtonGap;
    }
}

void SettingsPanelWin::SetOption(Setting key, int value) {
    std::size_t index = OptionIndex(key);
    if (index < boxes_.size()) boxes_[index].SetValue(value);
}

int SettingsPanelWin::Option(Setting key) const {
    std::size_t index = OptionIndex(key);
    return index < boxes_.size() ? boxes_[index].Value() : 0;
}

void SettingsPanelWin::SetVisible(bool visible) {
    ShowWindow(hwnd_, visible ? SW_SHOW : SW_HIDE);
}

bool SettingsPanelWin::Visible() const { return IsWindowVisible(hwnd_) != FALSE; }

void SettingsPanelWin::SetKeepAttached(bool enabled) {
    if (enabled) {
        SetTimer(hwnd_, kKeepAttachedTimer, kKeepAttachedMs, nullptr);
    } else {
        KillTimer(hwnd_, kKeepAttachedTimer);
    }
    keepAttached_ = enabled;
}

Rect SettingsPanelWin::Bounds() const {
    RECT rect{};
    GetWindowRect(hwnd_, &rect);
    return {rect.left, rect.top, rect.right, rect.bottom};
}

void SettingsPanelWin::MoveTo(int left, int top) {
    SetWindowPos(hwnd_, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void SettingsPanelWin::SetWidth(double twips) {
    SetWindowPos(hwnd_, nullptr, 0, 0, Px(twips), Px(kPanelHeight), SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

double SettingsPanelWin::FrameWidth() const { return frameWidth_; }

void SettingsPanelWin::SetFrameLeft(double twips) {
    frameLeft_ = twips;
    SetWindowPos(frame_.Handle(), nullptr, Px(twips), Px(kFrameTop), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void SettingsPanelWin::OnCommand(WPARAM wParam) {
    if (HIWORD(wParam) != BN_CLICKED) return;
    std::size_t index = static_cast<std::size_t>(LOWORD(wParam) - kFirstButtonId);
    if (index < kPanelButtons.size() && onCommand) onCommand(kPanelButtons[index].command);
}

// The focus goes back to the control that had it, as in a dialog.
void SettingsPanelWin::OnActivate(WPARAM wParam) {
    if (LOWORD(wParam) == WA_INACTIVE) {
        if (IsChild(hwnd_, GetFocus())) focus_ = GetFocus();
    } else {
        SetFocus(focus_);
    }
}

LRESULT SettingsPanelWin::HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND: OnCommand(wParam); return 0;
        case WM_TIMER:
            if (wParam == kKeepAttachedTimer && onKeepAttachedTick) onKeepAttachedTick();
            return 0;
        case WM_ACTIVATE: OnActivate(wParam); return 0;
        case kWmDpiChanged: ApplyDpi(HIWORD(wParam)); return 0;
    }
    return DefWindowProcA(hwnd, message, wParam, lParam);
}
