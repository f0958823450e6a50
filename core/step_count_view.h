#pragma once
// The step-count frame fraSteps as the behaviour sees it: its text box
// txtSteps. The main view shows and hides the frame (Frame::Steps).
#include <string>

class StepCountView {
public:
    virtual ~StepCountView() = default;
    virtual std::string Text() const = 0;
    // Replaces txtSteps's text and puts the caret at its end; the text box
    // reports the change as typing does.
    virtual void SetText(const std::string& text) = 0;
    // Gives txtSteps the focus with all of its text selected.
    virtual void SelectAll() = 0;
    // Centres the frame in the main window's inner area.
    virtual void Centre() = 0;
};
