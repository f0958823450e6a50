#pragma once
// frmTextInput, the keystroke-text editor, as the behaviour sees it: a modal
// dialog with the text box txtSend, three reference labels and the window
// picker panel frahWNDGet.
#include <array>
#include <string>

// What the user does in the dialog.
class TextInputEvents {
public:
    virtual ~TextInputEvents() = default;
    // txtSend's text changed, by typing or by the program.
    virtual void TextChanged() = 0;
    // cmdRetHwnd.
    virtual void OpenPicker() = 0;
    // cmdHwndGetCancel.
    virtual void CancelPicker() = 0;
    // The button went up after a drag from picDrag, anywhere on the screen.
    virtual void PickerDropped() = 0;
    // cmdOK or Enter in txtSend.
    virtual void Confirm() = 0;
    // cmdCancel, Esc or the close box.
    virtual void Cancel() = 0;
};

class TextInputView {
public:
    virtual ~TextInputView() = default;
    // Shows the dialog over the main window with the three reference labels
    // and `text` (all of it selected, the caret at its start) and returns once
    // it is closed; while it is open the user's actions reach `events`.
    virtual void Run(const std::array<std::string, 3>& reference, const std::string& text,
                     TextInputEvents& events) = 0;
    virtual std::string Text() const = 0;
    // Replaces txtSend's text and puts the caret at its end.
    virtual void SetText(const std::string& text) = 0;
    // Shows or hides frahWNDGet; while it shows, the labels, txtSend, cmdOK
    // and cmdCancel are disabled.
    virtual void SetPickerShown(bool shown) = 0;
    virtual bool PickerShown() const = 0;
    // Ends Run.
    virtual void Close() = 0;
};
