#include "app/hints.h"

#include <string>
#include <utility>
#include <vector>

#include "core/app.h"
#include "core/basic_text.h"
#include "core/error_log.h"
#include "core/runtime_error.h"
#include "core/settings.h"
#include "playback/random_value.h"

namespace {

constexpr const char* kHintFile = "\\DYK.dat";

// The hint file's elements: its lines joined without separators (a line
// break in a hint comes only from "$ret$"), split at "|". The first and the
// last element are no hints.
std::vector<std::string> ReadHintElements(App& app) {
    std::optional<std::string> text = app.os.files.ReadAll(app.programFolder + kHintFile);
    if (!text) throw RuntimeError(errors::kFileNotFound, "File not found");
    std::erase_if(*text, [](char character) { return character == '\r' || character == '\n'; });
    std::vector<std::string> elements = Split(*text, "|");
    if (elements.size() < 3) RaiseSubscriptOutOfRange();
    return elements;
}

// Each placeholder with the live caption it stands for.
std::vector<std::pair<const char*, std::string>> Placeholders(const App& app) {
    const MainView& main = app.ui.main;
    return {
        {"$ret$", "\r\n"},
        {"$AV$", main.Caption(Control::ToolAbout)},
        {"$B1$", main.Caption(Control::ToolSave)},
        {"$B2$", main.Caption(Control::ToolLoad)},
        {"$P4$", main.PanelText(4)},
        {"$P5$", main.PanelText(5)},
        {"$P6$", main.PanelText(6)},
        {"$M1$", main.MenuCaption(MenuEntry::RecordFromBeginning)},
        {"$M2$", main.MenuCaption(MenuEntry::RecordFromSelected)},
        {"$M3$", main.MenuCaption(MenuEntry::ViewHelpFile)},
        {"$S1$", main.Caption(Control::Start)},
        {"$S2$", main.Caption(Control::Stop)},
        {"$S3$", main.Caption(Control::Record)},
        {"$S4$", main.Caption(Control::Repeat)},
        {"$N1$", main.Caption(Control::ToolSettings)},
        {"$N2$", main.Caption(Control::ToolHelp)},
        {"$N3$", main.Caption(Control::ToolExit)},
    };
}

int Wrapped(int number, int last, bool forward) {
    if (forward && number > last) return 1;
    if (!forward && number < 1) return last;
    return number;
}

}  // namespace

void DidYouKnow(App& app, int number, bool forward) {
    Trapped(app, "DidYouKnow", [&] {
        std::vector<std::string> elements = ReadHintElements(app);
        int last = static_cast<int>(elements.size()) - 2;
        if (number == -1) {
            number = static_cast<int>(DrawRandom(app) * last + 1);
        } else {
            number = Wrapped(number, last, forward);
        }
        // A number still outside the hints raises, as an index would.
        if (number < 1 || number > last) RaiseSubscriptOutOfRange();
        std::string hint = elements[static_cast<std::size_t>(number)];
        for (const auto& [placeholder, value] : Placeholders(app)) hint = ReplaceAll(hint, placeholder, value);
        app.hintNumber = number;
        app.ui.hint.SetTexts("Hint: " + std::to_string(number), hint);
    });
}

void ShowHintPanel(App& app) {
    app.ui.hint.SetDontShow(app.settings.dyk == 0);
    app.ui.hint.Centre();
    app.ui.hint.SetVisible(true);
    DidYouKnow(app, -1, true);
}

void NextHint(App& app) { DidYouKnow(app, app.hintNumber + 1, true); }

void PreviousHint(App& app) { DidYouKnow(app, app.hintNumber - 1, false); }

void DontShowHintsChanged(App& app) { app.settings.dyk = app.ui.hint.DontShow() ? 0 : 1; }

void HideHintPanel(App& app) {
    // The choice is saved at the latest when the program closes; a "do not
    // show" is kept at once.
    if (app.ui.hint.DontShow()) SaveSet(app);
    app.ui.hint.SetVisible(false);
}
