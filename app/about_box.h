#pragma once
// The about box fraAbout: a frame inside the main window that slides in from
// the top, and its two link labels.
#include <string>
#include <vector>

struct App;

inline constexpr const char* kSupportMail = "support@klickwerk.example";
inline constexpr const char* kWebAddress = "https://klickwerk.example/";
inline constexpr double kAboutSlideStep = 200;  // twips per step

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

enum class AboutLink { Mail, Web };

// "Build " + the version's build number.
std::string BuildText();
// The tops the frame takes from `from` to `to` in steps of `step`; the last
// one is always `to`.
std::vector<double> SlidePositions(double from, double to, double step);

// The "about" toolbar command.
void ShowAbout(App& app);
// cmdHideAbout.
void HideAbout(App& app);
void OpenAboutLink(App& app, AboutLink link);
