#pragma once
// The about box fraAbout: a frame inside the main window that slides in from
// the top, and its two link labels.
#include <string>
#include <vector>

#include "core/about_view.h"

struct App;

inline constexpr const char* kSupportMail = "support@klickwerk.example";
inline constexpr const char* kWebAddress = "https://klickwerk.example/";
inline constexpr double kAboutSlideStep = 200;  // twips per step

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
