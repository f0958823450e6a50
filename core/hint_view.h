#pragma once
// The hint panel fraDYK on the main window, as the behaviour sees it.
#include <string>

class HintView {
public:
    virtual ~HintView() = default;
    // The caption label ("Hint: 3") and the hint label lblDYK.
    virtual void SetTexts(const std::string& caption, const std::string& hint) = 0;
    virtual std::string Caption() const = 0;
    virtual std::string Hint() const = 0;
    // chkDYK: "do not show hints at start-up".
    virtual void SetDontShow(bool checked) = 0;
    virtual bool DontShow() const = 0;
    // Centres the panel in the main window's inner area.
    virtual void Centre() = 0;
    virtual void SetVisible(bool visible) = 0;
    virtual bool Visible() const = 0;
};
