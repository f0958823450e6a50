#include "app/message_boxes_win.h"

namespace {
UINT Flags(BoxStyle style) {
    switch (style) {
        case BoxStyle::Information: return MB_OK | MB_ICONINFORMATION;
        case BoxStyle::SystemModalInformation: return MB_OK | MB_ICONINFORMATION | MB_SYSTEMMODAL;
        case BoxStyle::Exclamation: return MB_OK | MB_ICONEXCLAMATION;
        case BoxStyle::Error: return MB_OK | MB_ICONERROR;
        case BoxStyle::QuestionYesNo: return MB_YESNO | MB_ICONQUESTION;
        case BoxStyle::YesNoCancel: return MB_YESNOCANCEL | MB_ICONQUESTION;
        case BoxStyle::Plain: break;
    }
    return MB_OK;
}

BoxAnswer Answer(int result) {
    switch (result) {
        case IDYES: return BoxAnswer::Yes;
        case IDNO: return BoxAnswer::No;
        case IDCANCEL: return BoxAnswer::Cancel;
        default: return BoxAnswer::Ok;
    }
}
}  // namespace

BoxAnswer MessageBoxesWin::Show(const std::string& text, const std::string& title, BoxStyle style) {
    HWND owner = owner_ && IsWindow(owner_) ? owner_ : nullptr;
    if (splash_ && IsWindowVisible(splash_)) owner = splash_;
    return Answer(MessageBoxA(owner, text.c_str(), title.c_str(), Flags(style)));
}
