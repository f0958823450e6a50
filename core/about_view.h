#pragma once
// The about box fraAbout as the behaviour sees it.
#include <string>

// The frame as the behaviour sees it. Sizes and positions in twips, relative
// to the main window's inner area.
class AboutView {
public:
    virtual ~AboutView() = default;
    // Fills the title and build labels (the links, hand pointers and logo are fixed).
    virtual void SetTexts(const std::string& title, const std::string& build) = 0;
    virtual double FrameWidth() const = 0;
    virtual double FrameHeight() const = 0;
    virtual double InnerWidth() const = 0;
    virtual double InnerHeight() const = 0;
    virtual void MoveTo(double left, double top) = 0;
    virtual double Top() const = 0;
    virtual void SetVisible(bool visible) = 0;
    virtual bool Visible() const = 0;
};
