#pragma once
// The settings side panel frmSettings as the behaviour sees it: its option
// check boxes, each named by the settings key it stands for, its place on the
// screen beside the main window, the timer tmrKeepAttached that keeps it
// there, and the frame fraOptions that slides away when the panel hides.
#include "core/settings.h"
#include "platform/window_system.h"

class SettingsPanelView {
public:
    virtual ~SettingsPanelView() = default;
    // The check box of a CheckBox key (0, 1 or 2).
    virtual void SetOption(Setting key, int value) = 0;
    virtual int Option(Setting key) const = 0;
    virtual void SetVisible(bool visible) = 0;
    virtual bool Visible() const = 0;
    // tmrKeepAttached: ticks every 10 ms while enabled.
    virtual void SetKeepAttached(bool enabled) = 0;
    virtual bool KeepAttached() const = 0;
    // The panel's outer rectangle in screen pixels; MoveTo keeps its size.
    virtual Rect Bounds() const = 0;
    virtual void MoveTo(int left, int top) = 0;
    // The panel's width and fraOptions's width and left edge, in twips.
    virtual void SetWidth(double twips) = 0;
    virtual double FrameWidth() const = 0;
    virtual void SetFrameLeft(double twips) = 0;
};
