#include "app/about_box.h"

#include "core/app.h"
#include "platform/win_constants.h"
#include "version.h"

namespace {

// Each step stays on screen this long, so the slide can be seen on a fast machine.
constexpr std::uint32_t kStepPauseMs = 10;

double CentredTop(const AboutView& view) { return view.InnerHeight() / 2 - view.FrameHeight() / 2; }

// Moves the frame through the positions, letting pending messages run after
// every step; stops early when the box is hidden meanwhile or the program closes.
void Slide(App& app, double from, double to) {
    AboutView& view = app.ui.about;
    double step = to >= from ? kAboutSlideStep : -kAboutSlideStep;
    double left = view.InnerWidth() / 2 - view.FrameWidth() / 2;
    for (double top : SlidePositions(from, to, step)) {
        if (!view.Visible() || app.closingFlag) return;
        view.MoveTo(left, top);
        app.os.clock.Yield();
        app.os.clock.Sleep(kStepPauseMs);
    }
}

}  // namespace

std::string BuildText() { return "Build " + std::to_string(KW_BUILD_NUMBER); }

std::vector<double> SlidePositions(double from, double to, double step) {
    std::vector<double> positions;
    if (step == 0) return {to};
    for (double top = from; step > 0 ? top < to : top > to; top += step) positions.push_back(top);
    positions.push_back(to);
    return positions;
}

void ShowAbout(App& app) {
    AboutView& view = app.ui.about;
    app.ui.main.SetEnabled(Control::ToolAbout, false);
    if (view.Visible()) return;
    view.SetTexts(app.appTitle, BuildText());
    // The frame waits above the inner area, so showing it reveals nothing yet.
    view.SetVisible(true);
    Slide(app, -view.FrameHeight(), CentredTop(view));
}

void HideAbout(App& app) {
    AboutView& view = app.ui.about;
    if (view.Visible()) Slide(app, view.Top(), -view.FrameHeight());
    view.SetVisible(false);
    app.ui.main.SetEnabled(Control::ToolAbout, true);
}

void OpenAboutLink(App& app, AboutLink link) {
    std::string target = link == AboutLink::Mail ? std::string("mailto:") + kSupportMail : kWebAddress;
    app.os.shell.Open(target, "", "", win::kSwShow);
    HideAbout(app);
}
