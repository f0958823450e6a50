#include "app/main_window_win.h"

#include <commctrl.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "app/drawn_buttons_win.h"
#include "app/grid_menu_win.h"
#include "app/toolbar_commands.h"
#include "core/resource_ids.h"
#include "platform/dpi_win.h"
#include "platform/control_text_win.h"
#include "platform/failure_trace_win.h"

namespace {
constexpr const char* kClassName = "KlickwerkMain";
constexpr double kStartWidthTwips = 6855;
constexpr double kStartHeightTwips = 6610;

// Control ids start above IDOK and IDCANCEL, which dialog keys send.
enum ChildId : int {
    kIdFrame = 100, kIdGrid, kIdStart, kIdStop, kIdRecord, kIdRecOptions, kIdRepeat, kIdHelp, kIdStatusBar,
};

// mnuRecMain: mnuRecBeginning and mnuRecSelected.
constexpr const char* kRecordModeCaptions[] = {"Record from the beginning", "Record from the selected step"};

constexpr DWORD kPushButton = WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON;
constexpr DWORD kDrawnButton = WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_OWNERDRAW;

struct Button {
    Control control;
    int id;
    const char* caption;
    DWORD style;
};

constexpr Button kButtons[] = {
    {Control::Start, kIdStart, "Start", kPushButton},
    {Control::Stop, kIdStop, "Stop", kPushButton},
    {Control::Record, kIdRecord, "RECORD", kPushButton},
    {Control::RecOptions, kIdRecOptions, "Record options", kDrawnButton},
    {Control::Repeat, kIdRepeat, "Repeat", kDrawnButton},
    {Control::Help, kIdHelp, "?", kPushButton},
};

const Button* ButtonById(int id) {
    for (const Button& button : kButtons)
        if (button.id == id) return &button;
    return nullptr;
}

void MoveTo(HWND window, const PixelRect& rect) {
    MoveWindow(window, rect.left, rect.top, rect.width, rect.height, TRUE);
}

// The status-bar panel (1 to 6) under the pointer of the message just
// taken from the queue; 0 for none.
int PanelUnderPointer(HWND statusBar) {
    DWORD position = GetMessagePos();
    POINT point{static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position))};
    ScreenToClient(statusBar, &point);
    int count = static_cast<int>(SendMessageA(statusBar, SB_GETPARTS, 0, 0));
    for (int part = 0; part < count; ++part) {
        RECT rect{};
        if (SendMessageA(statusBar, SB_GETRECT, part, reinterpret_cast<LPARAM>(&rect)) && point.x >= rect.left &&
            point.x < rect.right)
            return part + 1;
    }
    return 0;
}
}  // namespace

MainWindow::~MainWindow() {
    if (hwnd_) DestroyWindow(hwnd_);
}

bool MainWindow::Create() {
    frameVisible_[Frame::Main] = true;
    HICON icon = LoadIconA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDI_KLICKWERK));
    if (!RegisterWindowClass(kClassName, icon, reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1))) return false;
    if (!CreateWindowOfClass(kClassName, "Klickwerk", WS_OVERLAPPEDWINDOW, WS_EX_CONTROLPARENT,
                             CW_USEDEFAULT, CW_USEDEFAULT, 0, 0, nullptr))
        return false;
    dpi_ = WindowDpi(hwnd_);
    CreateChildren();
    StackChildren();
    ApplyFonts();
    timers_.Attach(hwnd_);
    SetSizeTwips(kStartWidthTwips, kStartHeightTwips);
    return true;
}

void MainWindow::CreateChildren() {
    toolbar_.Create(hwnd_);
    // The frame before what it holds: siblings created later are drawn above it.
    frame_ = CreateChild(WC_BUTTONA, "", WS_CHILD | WS_VISIBLE | BS_GROUPBOX, kIdFrame);
    OwnedBitmap background(static_cast<HBITMAP>(LoadImageA(
        GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDB_GRID_BACKGROUND), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
    grid_.Create(hwnd_, kIdGrid, dpi_, std::move(background));
    for (const Button& button : kButtons) buttons_[button.id] = CreateChild(WC_BUTTONA, button.caption, button.style, button.id);
    cells_.Create(hwnd_, grid_.Handle());
    stopKeyFrame_.Create(hwnd_);
    stepCountFrame_.Create(hwnd_);
    receiver_.Create(hwnd_);
    statusBar_.Create(hwnd_, kIdStatusBar);
    about_.Create(hwnd_);
    hint_.Create(hwnd_);
}

// Every child clips its siblings, so the about box slides over the others
// and the frame, at the bottom, does not paint over what it holds.
void MainWindow::StackChildren() {
    for (HWND child = GetWindow(hwnd_, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        SetWindowLongPtrA(child, GWL_STYLE, GetWindowLongPtrA(child, GWL_STYLE) | WS_CLIPSIBLINGS);
    SetWindowPos(frame_, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

HWND MainWindow::CreateChild(const char* className, const char* text, DWORD style, int id) {
    HWND child = CreateWindowExA(0, className, text, style, 0, 0, 0, 0, hwnd_,
                                 reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleA(nullptr), nullptr);
    if (!child) ReportLastError("CreateWindowExA");
    return child;
}

void MainWindow::ApplyFonts() {
    OwnedFont fresh(CreateMessageFont(dpi_));
    HFONT font = fresh.Get();
    SendMessageA(frame_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    cells_.SetFont(font);
    stopKeyFrame_.SetFont(font);
    stepCountFrame_.SetFont(font);
    for (auto& [id, button] : buttons_) SendMessageA(button, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    grid_.SetFont(font);
    statusBar_.SetFont(font);
    toolbar_.OnDpiChanged(dpi_, font);
    about_.OnDpiChanged(dpi_, font);
    hint_.OnDpiChanged(dpi_, font);
    // The old font goes only now that no control uses it.
    font_ = std::move(fresh);
}

void MainWindow::Layout() {
    RECT client{};
    GetClientRect(hwnd_, &client);
    toolbar_.OnParentSize();
    int statusHeight = statusBar_.Resize(client.right, dpi_);
    MainLayout layout = LayoutMainWindow({client.right, client.bottom}, toolbar_.Height(), statusHeight, dpi_);
    MoveTo(frame_, layout.frame);
    stopKeyFrame_.Move(layout.frame, dpi_);
    stepCountFrame_.Place(dpi_);
    grid_.Move(layout.grid);
    MoveTo(buttons_[kIdStart], layout.start);
    MoveTo(buttons_[kIdStop], layout.stop);
    MoveTo(buttons_[kIdRecord], layout.record);
    MoveTo(buttons_[kIdRecOptions], layout.recOptions);
    MoveTo(buttons_[kIdRepeat], layout.repeat);
    MoveTo(buttons_[kIdHelp], layout.help);
}

void MainWindow::Centre(int width, int height) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoA(MonitorFromWindow(hwnd_, MONITOR_DEFAULTTOPRIMARY), &monitor);
    const RECT& area = monitor.rcWork;
    int left = area.left + std::max(0, static_cast<int>(area.right - area.left - width) / 2);
    int top = area.top + std::max(0, static_cast<int>(area.bottom - area.top - height) / 2);
    SetWindowPos(hwnd_, nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

HWND MainWindow::ControlWindow(Control control) const {
    if (control == Control::Grid) return grid_.Handle();
    if (control == Control::StatusBar) return statusBar_.Handle();
    for (const Button& button : kButtons) {
        if (button.control != control) continue;
        auto found = buttons_.find(button.id);
        return found == buttons_.end() ? nullptr : found->second;
    }
    return nullptr;
}

void MainWindow::Click(Control control) {
    if (handlers.command) handlers.command(control);
}

LRESULT MainWindow::HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND: OnCommand(wParam, lParam); return 0;
        case WM_TIMER: OnTimer(wParam); return 0;
        case WM_NOTIFY: return OnNotify(*reinterpret_cast<NMHDR*>(lParam));
        case WM_PAINT:
            if (handlers.paint) handlers.paint();
            break;
        case WM_DRAWITEM: OnDrawItem(*reinterpret_cast<DRAWITEMSTRUCT*>(lParam)); return TRUE;
        case WM_WINDOWPOSCHANGED:
            if (handlers.moved) handlers.moved();
            break;
        case WM_SIZE: OnSize(wParam); return 0;
        case WM_GETMINMAXINFO: OnMinMaxInfo(*reinterpret_cast<MINMAXINFO*>(lParam)); return 0;
        case kWmDpiChanged: OnDpiChanged(HIWORD(wParam), *reinterpret_cast<RECT*>(lParam)); return 0;
        case WM_SETCURSOR:
            if (OnSetCursor()) return TRUE;
            break;
        case WM_CLOSE:
            if (CloseAllowed()) DestroyWindow(hwnd);
            return 0;
        // Logging off or shutting down ends the program without WM_CLOSE;
        // the script and the settings must still be saved on the way out.
        case WM_ENDSESSION:
            if (wParam && CloseAllowed()) DestroyWindow(hwnd);
            return 0;
        case WM_DESTROY: PostQuitMessage(0); return 0;
    }
    return DefWindowProcA(hwnd, message, wParam, lParam);
}

// A minimised window paints nothing, yet its window state must be applied.
void MainWindow::OnSize(WPARAM kind) {
    if (kind == SIZE_MINIMIZED) {
        if (handlers.paint) handlers.paint();
        return;
    }
    Layout();
    // The frame draws only its border and the status bar moves: everything is
    // painted anew so no old border or blank bar stays behind.
    RedrawWindow(hwnd_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    if (handlers.resized) handlers.resized();
}

void MainWindow::OnCommand(WPARAM wParam, LPARAM lParam) {
    if (toolbar_.OnCommand(wParam, lParam)) return;
    const Button* button = ButtonById(LOWORD(wParam));
    if (button && HIWORD(wParam) == BN_CLICKED) Click(button->control);
}

bool MainWindow::CloseAllowed() {
    if (!handlers.close) return true;
    try {
        return handlers.close();
    } catch (...) {
        // The script may not be saved: better a window that stays open.
        return false;
    }
}

void MainWindow::OnDrawItem(const DRAWITEMSTRUCT& item) {
    if (item.CtlID == kIdRepeat) DrawRepeatButton(item, repeatOn_);
    if (item.CtlID == kIdRecOptions) DrawArrowButton(item);
}

void MainWindow::OnTimer(UINT_PTR id) {
    std::optional<Timer> timer = timers_.FromTimerId(id);
    if (!timer || !handlers.timer) return;
    // A tick that comes while the same timer's handler still runs (it may
    // wait or show a box) is passed over rather than nested.
    bool& running = timerRunning_[static_cast<std::size_t>(*timer)];
    if (running) return;
    running = true;
    try {
        handlers.timer(*timer);
    } catch (...) {
        running = false;
        throw;
    }
    running = false;
}

LRESULT MainWindow::OnNotify(NMHDR& header) {
    LRESULT result = 0;
    if (toolbar_.OnNotify(&header, result)) return result;
    if (header.hwndFrom == grid_.Handle()) return grid_.OnNotify(header);
    if (header.hwndFrom == statusBar_.Handle() && header.code == NM_CLICK && handlers.panelClick) {
        if (int panel = PanelUnderPointer(statusBar_.Handle())) handlers.panelClick(panel);
    }
    return 0;
}

void MainWindow::OnDpiChanged(int dpi, const RECT& suggested) {
    grid_.OnDpiChanged(dpi);
    dpi_ = dpi;
    ApplyFonts();
    SetWindowPos(hwnd_, nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
                 suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
    Layout();
}

void MainWindow::OnMinMaxInfo(MINMAXINFO& info) const {
    PixelSize minimum = MinimumWindowSize(dpi_);
    info.ptMinTrackSize = {minimum.width, minimum.height};
}

bool MainWindow::OnSetCursor() {
    if (!busy_) return false;
    SetCursor(LoadCursorA(nullptr, IDC_WAIT));
    return true;
}

void MainWindow::SetPanelText(int panel, const std::string& text) {
    std::string& shown = panels_.at(static_cast<std::size_t>(panel));
    // The pointer display rewrites its panels 20 times a second; an
    // unchanged text needs no repaint.
    if (shown == text) return;
    shown = text;
    statusBar_.SetText(panel, text);
}

std::string MainWindow::PanelText(int panel) const { return panels_.at(static_cast<std::size_t>(panel)); }

void MainWindow::SetEnabled(Control control, bool enabled) {
    disabled_[control] = !enabled;
    if (toolbar_.SetEnabled(control, enabled)) return;
    if (HWND window = ControlWindow(control)) EnableWindow(window, enabled);
}

bool MainWindow::IsEnabled(Control control) const {
    auto found = disabled_.find(control);
    return found == disabled_.end() || !found->second;
}

void MainWindow::SetTimer(Timer timer, bool enabled) { timers_.SetEnabled(timer, enabled); }

void MainWindow::SetTimerInterval(Timer timer, int milliseconds) { timers_.SetInterval(timer, milliseconds); }

bool MainWindow::TimerEnabled(Timer timer) const { return timers_.Enabled(timer); }

void MainWindow::SetCaption(const std::string& text) { SetWindowTextA(hwnd_, text.c_str()); }

std::string MainWindow::RecordCaption() const { return recordCaption_; }

void MainWindow::SetRecordCaption(const std::string& text) {
    recordCaption_ = text;
    SetWindowTextA(ControlWindow(Control::Record), text.c_str());
}

void MainWindow::ShowRepeatState(bool on) {
    repeatOn_ = on;
    InvalidateRect(ControlWindow(Control::Repeat), nullptr, TRUE);
}

void MainWindow::SetFrameVisible(Frame frame, bool visible) {
    frameVisible_[frame] = visible;
    if (frame == Frame::About) about_.SetVisible(visible);
    if (frame == Frame::StopKey) stopKeyFrame_.SetVisible(visible);
    if (frame == Frame::Steps) stepCountFrame_.SetVisible(visible);
    if (frame != Frame::Main) return;
    int show = visible ? SW_SHOW : SW_HIDE;
    ShowWindow(frame_, show);
    ShowWindow(grid_.Handle(), show);
    for (auto& [id, button] : buttons_) ShowWindow(button, show);
}

bool MainWindow::FrameVisible(Frame frame) const {
    if (frame == Frame::About) return about_.Visible();
    if (frame == Frame::StopKey) return stopKeyFrame_.Visible();
    if (frame == Frame::Steps) return stepCountFrame_.Visible();
    auto found = frameVisible_.find(frame);
    return found != frameVisible_.end() && found->second;
}

void MainWindow::SetBusyPointer(bool busy) {
    busy_ = busy;
    POINT pointer;
    GetCursorPos(&pointer);
    RECT window;
    GetWindowRect(hwnd_, &window);
    if (PtInRect(&window, pointer)) SetCursor(LoadCursorA(nullptr, busy ? IDC_WAIT : IDC_ARROW));
}

WindowState MainWindow::State() const {
    if (IsIconic(hwnd_)) return WindowState::Minimised;
    if (IsZoomed(hwnd_)) return WindowState::Maximised;
    return WindowState::Normal;
}

void MainWindow::SetState(WindowState state) {
    static constexpr int kShow[] = {SW_RESTORE, SW_MINIMIZE, SW_MAXIMIZE};
    ShowWindow(hwnd_, kShow[static_cast<int>(state)]);
}

void MainWindow::SetSizeTwips(double width, double height) {
    int pixelsWide = TwipsToPixels(width, dpi_);
    int pixelsHigh = TwipsToPixels(height, dpi_);
    // Until the window is first shown it stays centred on the screen.
    if (!IsWindowVisible(hwnd_)) {
        Centre(pixelsWide, pixelsHigh);
    } else {
        SetWindowPos(hwnd_, nullptr, 0, 0, pixelsWide, pixelsHigh, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

double MainWindow::HeightTwips() const {
    RECT rect{};
    GetWindowRect(hwnd_, &rect);
    return PixelsToTwips(rect.bottom - rect.top, dpi_);
}

Rect MainWindow::Bounds() const {
    RECT rect{};
    GetWindowRect(hwnd_, &rect);
    return {rect.left, rect.top, rect.right, rect.bottom};
}

void MainWindow::SetTopmost(bool topmost) {
    SetWindowPos(hwnd_, topmost ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void MainWindow::Show() {
    ShowWindow(hwnd_, SW_SHOW);
    UpdateWindow(hwnd_);
}

void MainWindow::FillDropDown(DropDown list, const std::vector<std::string>& entries, const std::string& shown) {
    HWND combo = list == DropDown::Button ? cells_.Combo() : stopKeyFrame_.Combo();
    SendMessageA(combo, CB_RESETCONTENT, 0, 0);
    for (const std::string& entry : entries) SendMessageA(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry.c_str()));
    LRESULT index = SendMessageA(combo, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(shown.c_str()));
    SendMessageA(combo, CB_SETCURSEL, index == CB_ERR ? static_cast<WPARAM>(-1) : static_cast<WPARAM>(index), 0);
}

WindowHandle MainWindow::ReceiverHandle() const { return reinterpret_cast<WindowHandle>(receiver_.Handle()); }

void MainWindow::SetGridMultiSelect(bool multiple) { grid_.SetMultiSelect(multiple); }

// mnuRecMain, popped up under cmdRecOptions.
int MainWindow::ChooseRecordMode(bool fromSelected) {
    enum : UINT { kFromBeginning = 1, kFromSelected = 2 };
    HMENU menu = CreatePopupMenu();
    AppendMenuA(menu, MF_STRING | (fromSelected ? 0 : MF_CHECKED), kFromBeginning, kRecordModeCaptions[0]);
    AppendMenuA(menu, MF_STRING | (fromSelected ? MF_CHECKED : 0), kFromSelected, kRecordModeCaptions[1]);
    RECT button{};
    GetWindowRect(ControlWindow(Control::RecOptions), &button);
    UINT chosen = static_cast<UINT>(
        TrackPopupMenu(menu, TPM_RETURNCMD | TPM_NONOTIFY | TPM_LEFTALIGN | TPM_TOPALIGN, button.left, button.bottom,
                       0, hwnd_, nullptr));
    DestroyMenu(menu);
    return chosen == kFromSelected ? 1 : chosen == kFromBeginning ? 0 : -1;
}

std::optional<GridCommand> MainWindow::ChooseGridCommand(const GridMenu& menu) {
    return PopUpGridMenu(hwnd_, grid_.Handle(), menu);
}

void MainWindow::Beep() { MessageBeep(MB_OK); }

std::string MainWindow::Caption(Control control) const {
    for (const ToolbarButton& button : kToolbarButtons) {
        if (button.control == control) return button.caption;
    }
    return WindowTextOf(ControlWindow(control));
}

std::string MainWindow::MenuCaption(MenuEntry entry) const {
    switch (entry) {
        case MenuEntry::RecordFromBeginning: return kRecordModeCaptions[0];
        case MenuEntry::RecordFromSelected: return kRecordModeCaptions[1];
        case MenuEntry::ViewHints: return kHelpMenu[0].caption;
        case MenuEntry::ViewHelpFile: return kHelpMenu[1].caption;
    }
    return "";
}
