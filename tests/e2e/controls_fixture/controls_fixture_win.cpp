// controls_fixture.exe: a window that holds the program's custom controls as
// a host would, for their end-to-end tests. Six check boxes (the values 0,
// 1 and 2, enabled and disabled) and three push buttons (the last disabled),
// laid out in twips at the window's DPI with the program's font; Tab moves
// between them. Their events go to a log file, one flushed line each:
//
//   controls_fixture.exe --log <file>
//
//   "mousedown <id> <left|right|middle> <shift> <x> <y>"   Check's MouseDown
//   "click <id> <value>"                                   Check's Click
//   "command <id>"                                         a push button's BN_CLICKED
#include <windows.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "controls/check_box_win.h"
#include "controls/xp_button_win.h"
#include "platform/base_window_win.h"
#include "platform/dpi_win.h"
#include "platform/message_pump_win.h"
#include "platform/owned_win.h"
#include "platform/twips.h"

namespace {

constexpr const char* kTitle = "Klickwerk Controls";
constexpr double kMargin = 240, kRowHeight = 345, kColumnWidth = 2400;
constexpr double kButtonWidth = 1125, kButtonGap = 120;

struct BoxSpec {
    int id;
    const char* caption;
    int value;
    bool enabled;
};

constexpr BoxSpec kBoxes[] = {
    {101, "Enabled 0", 0, true},   {102, "Enabled 1", 1, true},   {103, "Enabled 2", 2, true},
    {104, "Disabled 0", 0, false}, {105, "Disabled 1", 1, false}, {106, "Disabled 2", 2, false},
};

struct ButtonSpec {
    int id;
    const char* caption;
    bool enabled;
};

constexpr ButtonSpec kButtons[] = {{201, "OK", true}, {202, "Cancel", true}, {203, "Off", false}};

FILE* logFile = nullptr;

void LogLine(const std::string& line) {
    if (!logFile) return;
    fprintf(logFile, "%s\n", line.c_str());
    fflush(logFile);
}

const char* ButtonName(MouseButton button) {
    switch (button) {
        case MouseButton::Left: return "left";
        case MouseButton::Right: return "right";
        case MouseButton::Middle: return "middle";
    }
    return "?";
}

class FixtureWindow : public BaseWindow<FixtureWindow> {
public:
    bool Create() {
        if (!RegisterWindowClass("KlickwerkControlsFixture", nullptr, reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1)))
            return false;
        if (!CreateWindowOfClass("KlickwerkControlsFixture", kTitle, WS_OVERLAPPEDWINDOW, WS_EX_CONTROLPARENT, 100,
                                 100, 0, 0, nullptr))
            return false;
        dpi_ = WindowDpi(hwnd_);
        font_.Reset(CreateMessageFont(dpi_));
        for (const BoxSpec& entry : kBoxes) AddBox(entry);
        for (const ButtonSpec& entry : kButtons) AddButton(entry);
        Layout();
        focus_ = boxes_.front()->Handle();
        ShowWindow(hwnd_, SW_SHOW);
        SetFocus(focus_);
        return true;
    }

    LRESULT HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
        switch (message) {
            case WM_COMMAND:
                if (HIWORD(wParam) == BN_CLICKED) LogLine("command " + std::to_string(LOWORD(wParam)));
                return 0;
            // The focus goes back to the control that had it, as in a dialog.
            case WM_ACTIVATE:
                if (LOWORD(wParam) == WA_INACTIVE) focus_ = GetFocus();
                break;
            case WM_SETFOCUS:
                if (IsChild(hwnd, focus_)) SetFocus(focus_);
                return 0;
            case WM_DESTROY: PostQuitMessage(0); return 0;
        }
        return DefWindowProcA(hwnd, message, wParam, lParam);
    }

private:
    int Px(double twips) const { return TwipsToPixels(twips, dpi_); }

    void AddBox(const BoxSpec& entry) {
        auto box = std::make_unique<CheckBoxWin>();
        box->Create(hwnd_, entry.id, entry.caption);
        box->SetValue(entry.value);
        EnableWindow(box->Handle(), entry.enabled);
        CheckBoxWin& shown = *box;
        box->Events().mouseDown = [id = entry.id](const MouseEvent& mouse) {
            LogLine("mousedown " + std::to_string(id) + " " + ButtonName(mouse.button) + " " +
                    std::to_string(mouse.shift) + " " + std::to_string(mouse.x) + " " + std::to_string(mouse.y));
        };
        box->Events().click = [id = entry.id, &shown] {
            LogLine("click " + std::to_string(id) + " " + std::to_string(shown.Value()));
        };
        boxes_.push_back(std::move(box));
    }

    void AddButton(const ButtonSpec& entry) {
        auto button = std::make_unique<XpButtonWin>();
        button->Create(hwnd_, entry.id, entry.caption);
        EnableWindow(button->Handle(), entry.enabled);
        buttons_.push_back(std::move(button));
    }

    // Enabled boxes on the left, disabled ones on the right, each value on
    // its row; the buttons in a row below.
    void Layout() {
        for (size_t i = 0; i < boxes_.size(); ++i) {
            const double left = kMargin + static_cast<double>(i / 3) * kColumnWidth;
            const double top = kMargin + static_cast<double>(i % 3) * kRowHeight;
            Place(boxes_[i]->Handle(), left, top, kColumnWidth - kMargin, kRowHeight);
        }
        const double buttonsTop = kMargin + 4 * kRowHeight;
        for (size_t i = 0; i < buttons_.size(); ++i) {
            const double left = kMargin + static_cast<double>(i) * (kButtonWidth + kButtonGap);
            Place(buttons_[i]->Handle(), left, buttonsTop, kButtonWidth, kRowHeight);
        }
        RECT frame{0, 0, Px(2 * kMargin + 2 * kColumnWidth), Px(buttonsTop + kRowHeight + kMargin)};
        AdjustWindowRectEx(&frame, WS_OVERLAPPEDWINDOW, FALSE, WS_EX_CONTROLPARENT);
        SetWindowPos(hwnd_, nullptr, 0, 0, frame.right - frame.left, frame.bottom - frame.top,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }

    void Place(HWND control, double left, double top, double width, double height) {
        MoveWindow(control, Px(left), Px(top), Px(width), Px(height), FALSE);
        SendMessageA(control, WM_SETFONT, reinterpret_cast<WPARAM>(font_.Get()), FALSE);
    }

    int dpi_ = 96;
    HWND focus_ = nullptr;
    OwnedFont font_;
    std::vector<std::unique_ptr<CheckBoxWin>> boxes_;
    std::vector<std::unique_ptr<XpButtonWin>> buttons_;
};

}  // namespace

int main(int argc, char** argv) {
    for (int i = 1; i + 1 < argc; ++i) {
        if (strcmp(argv[i], "--log") == 0) logFile = fopen(argv[i + 1], "w");
    }
    FixtureWindow window;
    if (!window.Create()) return 1;
    AddKeyboardNavigationWindow(window.Handle());
    return RunMessageLoop();
}
